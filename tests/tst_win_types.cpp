// SPDX-License-Identifier: MIT
#include "KxWinTypes.h"

#include "KxNumberRows.h"
#include "KxTestCase.h"

#include <QtOpenGL/QtOpenGL>

#include <limits>
#include <string>
#include <type_traits>
#include <utility>

#if defined(min) || defined(max)
static constexpr bool hasMinOrMaxMacro = true;
#else
static constexpr bool hasMinOrMaxMacro = false;
#endif

namespace unqualified {

// As a host calls them that takes nothing out of std.
constexpr int smallest(int a, int b)
{
    return min(a, b);
}

constexpr long smallestOfMixed(int a, long b)
{
    return min(a, b);
}

constexpr double largestOfMixed(float a, double b)
{
    return max(a, b);
}

} // namespace unqualified

using namespace std;

namespace {

/// What each of the names is used for in a switch: a case label.
QString messageName(LPARAM packed)
{
    switch (HIWORD(packed)) {
    case LOWORD(WM_PAINT):
        return QStringLiteral("paint");
    case MAKEWORD(0x34, 0x12):
        return QStringLiteral("0x1234");
    default:
        return QStringLiteral("other");
    }
}

struct HasArray {
    TCHAR text[12];

    size_t lengthOfCopy() const
    {
        TCHAR copy[_countof(text)];
        return sizeof(copy) / sizeof(copy[0]);
    }
};

/// Declared under generic names, reachable under wide ones.
struct HasGenericNames {
    int SetWindowText(LPCTSTR text) { return static_cast<int>(_tcslen(text)); }
    int GetObject(int size, void *) { return size; }
};

enum Level { Low = 1, High = 9 };

} // namespace

class tst_WinTypes : public KxTestCase
{
    Q_OBJECT

private slots:
    void basicTypes();
    void handlesAreTypesOfTheirOwn();
    void genericTextIsWide();

    void recordSizes_data();
    void recordSizes() { compareNumbers(); }
    void recordFields_data();
    void recordFields() { compareNumbers(); }
    void wholeAndHalves();
    void genericRecordsAreWide();
    void guidsCompare();

    void packing_data();
    void packing() { compareNumbers(); }
    void packedCaseLabels();
    void resourceNames();
    void memory();
    void countof();

    void minAndMax();
    void minAndMaxOfMixedTypes();
    void minAndMaxAreNoMacros();
};

// ---- types ----------------------------------------------------------------------------------------------

void tst_WinTypes::basicTypes()
{
    QVERIFY((is_same_v<BOOL, bool>));
    QVERIFY((is_same_v<LONG, int>));
    QVERIFY((is_same_v<ULONG, unsigned int>));
    QVERIFY((is_same_v<DWORD, unsigned int>));
    QVERIFY((is_same_v<UINT, unsigned int>));
    QVERIFY((is_same_v<COLORREF, unsigned int>));
    QVERIFY((is_same_v<HRESULT, int>));
    QVERIFY((is_same_v<SHORT, short>));
    QVERIFY((is_same_v<WORD, unsigned short>));
    QVERIFY((is_same_v<BYTE, unsigned char>));
    QVERIFY((is_same_v<WPARAM, unsigned long>));
    QVERIFY((is_same_v<LPARAM, long>));
    QVERIFY((is_same_v<LRESULT, long>));
    QVERIFY((is_same_v<INT_PTR, long>));
    QVERIFY((is_same_v<LONG_PTR, long>));
    QVERIFY((is_same_v<UINT_PTR, unsigned long>));
    QVERIFY((is_same_v<DWORD_PTR, unsigned long>));
    QVERIFY((is_same_v<LONGLONG, long long>));
    QVERIFY((is_same_v<ULONGLONG, unsigned long long>));
    QVERIFY((is_same_v<__int64, LONGLONG>));
    QVERIFY((is_same_v<unsigned __int64, ULONGLONG>));
    QVERIFY((is_same_v<TCHAR, wchar_t>));
    QVERIFY((is_same_v<LPCTSTR, const wchar_t *>));
    QVERIFY((is_same_v<LPTSTR, wchar_t *>));
    QVERIFY((is_same_v<LPCSTR, const char *>));
    QCOMPARE(sizeof(DWORD64), sizeof(INT64));
    QCOMPARE(sizeof(INT64), size_t(8));
    QCOMPARE(sizeof(WCHAR), size_t(4));
}

void tst_WinTypes::handlesAreTypesOfTheirOwn()
{
    QVERIFY((!is_convertible_v<HBRUSH, HPEN>));
    QVERIFY((!is_convertible_v<HWND, HDC>));
    QVERIFY((!is_convertible_v<HMENU, HWND>));
    QVERIFY((!is_convertible_v<HGDIOBJ, HBITMAP>));
    QVERIFY((is_convertible_v<HBITMAP, HGDIOBJ>));
    QVERIFY((is_same_v<HMODULE, HINSTANCE>));
    QVERIFY((is_same_v<HCURSOR, HICON>));
    QVERIFY((is_same_v<HGLOBAL, void *>));
    QVERIFY((is_same_v<HANDLE, void *>));
    QVERIFY((is_same_v<HWND, struct HWND__ *>));
    QVERIFY((is_same_v<POSITION, struct __POSITION *>));
    QVERIFY((is_same_v<HTREEITEM, struct _TREEITEM *>));
    QVERIFY((is_same_v<HIMAGELIST, struct _IMAGELIST *>));
}

void tst_WinTypes::genericTextIsWide()
{
    QCOMPARE(wstring(_T("ab")), wstring(L"ab"));
    QCOMPARE(wstring(TEXT("ab")), wstring(L"ab"));
    QCOMPARE(_T('x'), L'x');
    QCOMPARE(wstring(_T(__FILE__)).size(), sizeof(__FILE__) - 1);
    QCOMPARE(_tcslen(_T("abc")), size_t(3));
    QCOMPARE(_ttoi(_T(" 42 apples")), 42);
    QCOMPARE(_tstoi(_T("-7")), -7);
    QCOMPARE(_tstof(_T("2.5")), 2.5);
    QVERIFY(_istdigit(_T('7')) && !_istdigit(_T('x')));
    QCOMPARE(_totupper(_T('q')), wint_t(L'Q'));
    QVERIFY(&HasGenericNames::SetWindowTextW != nullptr);
    QCOMPARE(HasGenericNames().SetWindowText(_T("four")), 4);
    QCOMPARE(HasGenericNames().GetObjectW(3, nullptr), 3);
}

// ---- records --------------------------------------------------------------------------------------------

void tst_WinTypes::recordSizes_data()
{
    numberColumns();
    SIZE_ROW(POINT, 8);
    SIZE_ROW(POINTS, 4);
    SIZE_ROW(SIZE, 8);
    SIZE_ROW(RECT, 16);
    SIZE_ROW(LARGE_INTEGER, 8);
    SIZE_ROW(ULARGE_INTEGER, 8);
    SIZE_ROW(GUID, 16);
    SIZE_ROW(FILETIME, 8);
    SIZE_ROW(SYSTEMTIME, 16);
    SIZE_ROW(MSG, 48);
    SIZE_ROW(NMHDR, 24);
    SIZE_ROW(HELPINFO, 40);
    SIZE_ROW(CREATESTRUCTW, 80);
    SIZE_ROW(WNDCLASSW, 72);
    SIZE_ROW(WNDCLASSEXW, 80);
    SIZE_ROW(MINMAXINFO, 40);
    SIZE_ROW(WINDOWPOS, 40);
    SIZE_ROW(WINDOWPLACEMENT, 44);
    SIZE_ROW(NCCALCSIZE_PARAMS, 56);
    SIZE_ROW(STYLESTRUCT, 8);
    SIZE_ROW(COPYDATASTRUCT, 24);
    SIZE_ROW(TRACKMOUSEEVENT, 24);
    SIZE_ROW(SCROLLINFO, 28);
    SIZE_ROW(MONITORINFO, 40);
    SIZE_ROW(ACCEL, 6);
    SIZE_ROW(DLGTEMPLATE, 18);
    SIZE_ROW(MENUITEMINFOW, 80);
    SIZE_ROW(MENUINFO, 40);
    SIZE_ROW(DRAWITEMSTRUCT, 64);
    SIZE_ROW(MEASUREITEMSTRUCT, 32);
    SIZE_ROW(COMPAREITEMSTRUCT, 56);
    SIZE_ROW(DELETEITEMSTRUCT, 32);
    SIZE_ROW(CWPSTRUCT, 32);
    SIZE_ROW(MOUSEHOOKSTRUCT, 32);
    SIZE_ROW(KBDLLHOOKSTRUCT, 24);
    SIZE_ROW(PALETTEENTRY, 4);
    SIZE_ROW(LOGPALETTE, 8);
    SIZE_ROW(LOGBRUSH, 16);
    SIZE_ROW(LOGPEN, 16);
    SIZE_ROW(XFORM, 24);
    SIZE_ROW(BLENDFUNCTION, 4);
    SIZE_ROW(BITMAP, 32);
    SIZE_ROW(RGBQUAD, 4);
    SIZE_ROW(RGBTRIPLE, 3);
    SIZE_ROW(BITMAPFILEHEADER, 14);
    SIZE_ROW(BITMAPINFOHEADER, 40);
    SIZE_ROW(BITMAPINFO, 44);
    SIZE_ROW(DIBSECTION, 104);
    SIZE_ROW(ICONINFO, 32);
    SIZE_ROW(PAINTSTRUCT, 72);
    SIZE_ROW(SECURITY_ATTRIBUTES, 24);
    SIZE_ROW(OVERLAPPED, 32);
    SIZE_ROW(PROCESS_INFORMATION, 24);
    SIZE_ROW(STARTUPINFOW, 104);
    // BOOL fields have Windows' four bytes.
    SIZE_ROW(PAINTSTRUCT::fErase, 4);
    SIZE_ROW(PAINTSTRUCT::fRestore, 4);
    SIZE_ROW(PAINTSTRUCT::fIncUpdate, 4);
    SIZE_ROW(ICONINFO::fIcon, 4);
    SIZE_ROW(SECURITY_ATTRIBUTES::bInheritHandle, 4);
    // Text in them: 4 bytes a character.
    SIZE_ROW(LOGFONTW, 28 + 32 * 4);
    SIZE_ROW(TEXTMETRICW, 44 + 4 * 4 + 8);
    SIZE_ROW(MONITORINFOEXW, 40 + 32 * 4);
    SIZE_ROW(NONCLIENTMETRICSW, 44 + 5 * (28 + 32 * 4));
    SIZE_ROW(WIN32_FIND_DATAW, 44 + (260 + 14) * 4);
}

void tst_WinTypes::recordFields_data()
{
    numberColumns();
    OFFSET_ROW(RECT, top, 4);
    OFFSET_ROW(RECT, right, 8);
    OFFSET_ROW(RECT, bottom, 12);
    OFFSET_ROW(POINT, y, 4);
    OFFSET_ROW(SIZE, cy, 4);
    OFFSET_ROW(MSG, message, 8);
    OFFSET_ROW(MSG, wParam, 16);
    OFFSET_ROW(MSG, lParam, 24);
    OFFSET_ROW(MSG, time, 32);
    OFFSET_ROW(MSG, pt, 36);
    OFFSET_ROW(NMHDR, idFrom, 8);
    OFFSET_ROW(NMHDR, code, 16);
    OFFSET_ROW(HELPINFO, hItemHandle, 16);
    OFFSET_ROW(HELPINFO, dwContextId, 24);
    OFFSET_ROW(HELPINFO, MousePos, 32);
    OFFSET_ROW(CREATESTRUCTW, hInstance, 8);
    OFFSET_ROW(CREATESTRUCTW, cy, 32);
    OFFSET_ROW(CREATESTRUCTW, style, 48);
    OFFSET_ROW(CREATESTRUCTW, lpszName, 56);
    OFFSET_ROW(CREATESTRUCTW, dwExStyle, 72);
    OFFSET_ROW(WNDCLASSW, lpfnWndProc, 8);
    OFFSET_ROW(WNDCLASSW, lpszClassName, 64);
    OFFSET_ROW(WNDCLASSEXW, hIconSm, 72);
    OFFSET_ROW(MINMAXINFO, ptMinTrackSize, 24);
    OFFSET_ROW(WINDOWPOS, x, 16);
    OFFSET_ROW(WINDOWPOS, flags, 32);
    OFFSET_ROW(WINDOWPLACEMENT, rcNormalPosition, 28);
    OFFSET_ROW(NCCALCSIZE_PARAMS, lppos, 48);
    OFFSET_ROW(COPYDATASTRUCT, cbData, 8);
    OFFSET_ROW(COPYDATASTRUCT, lpData, 16);
    OFFSET_ROW(TRACKMOUSEEVENT, hwndTrack, 8);
    OFFSET_ROW(TRACKMOUSEEVENT, dwHoverTime, 16);
    OFFSET_ROW(SCROLLINFO, nPage, 16);
    OFFSET_ROW(SCROLLINFO, nTrackPos, 24);
    OFFSET_ROW(MONITORINFO, rcWork, 20);
    OFFSET_ROW(DLGTEMPLATE, cy, 16);
    OFFSET_ROW(MENUITEMINFOW, hSubMenu, 24);
    OFFSET_ROW(MENUITEMINFOW, dwTypeData, 56);
    OFFSET_ROW(DRAWITEMSTRUCT, hwndItem, 24);
    OFFSET_ROW(DRAWITEMSTRUCT, rcItem, 40);
    OFFSET_ROW(DRAWITEMSTRUCT, itemData, 56);
    OFFSET_ROW(MEASUREITEMSTRUCT, itemHeight, 16);
    OFFSET_ROW(MEASUREITEMSTRUCT, itemData, 24);
    OFFSET_ROW(COMPAREITEMSTRUCT, itemData2, 40);
    OFFSET_ROW(COMPAREITEMSTRUCT, dwLocaleId, 48);
    OFFSET_ROW(DELETEITEMSTRUCT, hwndItem, 16);
    OFFSET_ROW(CWPSTRUCT, hwnd, 24);
    OFFSET_ROW(LOGPALETTE, palNumEntries, 2);
    OFFSET_ROW(LOGPALETTE, palPalEntry, 4);
    OFFSET_ROW(PALETTEENTRY, peBlue, 2);
    OFFSET_ROW(LOGFONTW, lfWeight, 16);
    OFFSET_ROW(LOGFONTW, lfItalic, 20);
    OFFSET_ROW(LOGFONTW, lfPitchAndFamily, 27);
    OFFSET_ROW(LOGFONTW, lfFaceName, 28);
    OFFSET_ROW(TEXTMETRICW, tmWeight, 28);
    OFFSET_ROW(TEXTMETRICW, tmFirstChar, 44);
    OFFSET_ROW(TEXTMETRICW, tmCharSet, 64);
    OFFSET_ROW(NONCLIENTMETRICSW, lfCaptionFont, 24);
    OFFSET_ROW(LOGBRUSH, lbHatch, 8);
    OFFSET_ROW(LOGPEN, lopnColor, 12);
    OFFSET_ROW(BITMAP, bmPlanes, 16);
    OFFSET_ROW(BITMAP, bmBits, 24);
    OFFSET_ROW(RGBQUAD, rgbRed, 2);
    OFFSET_ROW(BITMAPFILEHEADER, bfSize, 2);
    OFFSET_ROW(BITMAPFILEHEADER, bfOffBits, 10);
    OFFSET_ROW(BITMAPINFOHEADER, biPlanes, 12);
    OFFSET_ROW(BITMAPINFOHEADER, biBitCount, 14);
    OFFSET_ROW(BITMAPINFOHEADER, biCompression, 16);
    OFFSET_ROW(BITMAPINFOHEADER, biClrImportant, 36);
    OFFSET_ROW(BITMAPINFO, bmiColors, 40);
    OFFSET_ROW(DIBSECTION, dsBmih, 32);
    OFFSET_ROW(ICONINFO, hbmMask, 16);
    OFFSET_ROW(PAINTSTRUCT, fErase, 8);
    OFFSET_ROW(PAINTSTRUCT, rcPaint, 12);
    OFFSET_ROW(PAINTSTRUCT, rgbReserved, 36);
    OFFSET_ROW(SECURITY_ATTRIBUTES, bInheritHandle, 16);
    OFFSET_ROW(OVERLAPPED, OffsetHigh, 20);
    OFFSET_ROW(OVERLAPPED, hEvent, 24);
    OFFSET_ROW(WIN32_FIND_DATAW, nFileSizeLow, 32);
    OFFSET_ROW(WIN32_FIND_DATAW, cFileName, 44);
    OFFSET_ROW(SYSTEMTIME, wMilliseconds, 14);
    OFFSET_ROW(GUID, Data4, 8);
}

void tst_WinTypes::wholeAndHalves()
{
    LARGE_INTEGER number;
    number.QuadPart = -2;
    QCOMPARE(number.LowPart, 0xFFFFFFFEu);
    QCOMPARE(number.HighPart, -1);
    QCOMPARE(number.u.HighPart, -1);

    ULARGE_INTEGER unsignedNumber;
    unsignedNumber.LowPart = 5;
    unsignedNumber.HighPart = 0x80000000u;
    QCOMPARE(unsignedNumber.QuadPart, 0x8000000000000005ull);
}

void tst_WinTypes::genericRecordsAreWide()
{
    QVERIFY((is_same_v<LOGFONT, tagLOGFONTW>));
    QVERIFY((is_same_v<LPLOGFONT, LOGFONTW *>));
    QVERIFY((is_same_v<CREATESTRUCT, tagCREATESTRUCTW>));
    QVERIFY((is_same_v<LPCREATESTRUCT, CREATESTRUCTW *>));
    QVERIFY((is_same_v<TEXTMETRIC, tagTEXTMETRICW>));
    QVERIFY((is_same_v<WNDCLASS, tagWNDCLASSW>));
    QVERIFY((is_same_v<WIN32_FIND_DATA, WIN32_FIND_DATAW>));
    QVERIFY((is_same_v<RECT, struct tagRECT>));
    QVERIFY((is_same_v<MSG, struct tagMSG>));
}

void tst_WinTypes::guidsCompare()
{
    const GUID first = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
    GUID second = first;
    QVERIFY(first == second);
    QVERIFY(IsEqualGUID(first, second) && IsEqualIID(first, second) && IsEqualCLSID(first, second));
    second.Data4[7] = 12;
    QVERIFY(first != second);
    QVERIFY(!IsEqualGUID(first, second));
}

// ---- functions in the place of macros -------------------------------------------------------------------

void tst_WinTypes::packing_data()
{
    numberColumns();
    EXPRESSION_ROW(LOWORD(0x12345678), 0x5678);
    EXPRESSION_ROW(HIWORD(0x12345678), 0x1234);
    EXPRESSION_ROW(LOWORD(-1), 0xFFFF);
    EXPRESSION_ROW(HIWORD(-2L), 0xFFFF);
    EXPRESSION_ROW(HIWORD(0x1122334455667788L), 0x5566);
    EXPRESSION_ROW(LOBYTE(0x1234), 0x34);
    EXPRESSION_ROW(HIBYTE(0x1234), 0x12);
    EXPRESSION_ROW(HIBYTE(0x51234), 0x12);
    EXPRESSION_ROW(MAKEWORD(0x34, 0x12), 0x1234);
    EXPRESSION_ROW(MAKEWORD(0x1FF, 0x101), 0x01FF);
    EXPRESSION_ROW(MAKELONG(0x5678, 0x1234), 0x12345678);
    EXPRESSION_ROW(MAKELONG(0x15678, -1), static_cast<LONG>(0xFFFF5678));
    EXPRESSION_ROW(MAKELONG(0, 0x8000), -0x80000000ll);
    EXPRESSION_ROW(MAKEWPARAM(IDOK, 0xFFFF), 0xFFFF0001ll);
    EXPRESSION_ROW(MAKELPARAM(-1, -1), 0xFFFFFFFFll);
    EXPRESSION_ROW(MAKELRESULT(2, 0x8000), 0x80000002ll);
    EXPRESSION_ROW(GET_X_LPARAM(MAKELPARAM(-5, 7)), -5);
    EXPRESSION_ROW(GET_Y_LPARAM(MAKELPARAM(-5, 7)), 7);
    EXPRESSION_ROW(GET_WHEEL_DELTA_WPARAM(MAKEWPARAM(MK_SHIFT, -120)), -120);
    EXPRESSION_ROW(GET_KEYSTATE_WPARAM(MAKEWPARAM(MK_SHIFT, -120)), MK_SHIFT);
    EXPRESSION_ROW(RGB(1, 2, 3), 0x030201);
    EXPRESSION_ROW(RGB(255, 255, 255), 0xFFFFFF);
    EXPRESSION_ROW(RGB(256, 257, -1), 0xFF0100);
    EXPRESSION_ROW(RGB(1.9, 2u, 3L), 0x030201);
    EXPRESSION_ROW(PALETTERGB(1, 2, 3), 0x02030201);
    EXPRESSION_ROW(PALETTEINDEX(7), 0x01000007);
    EXPRESSION_ROW(GetRValue(0xAA030201), 1);
    EXPRESSION_ROW(GetGValue(0xAA030201), 2);
    EXPRESSION_ROW(GetBValue(0xAA030201), 3);
    EXPRESSION_ROW(SUCCEEDED(S_OK), 1);
    EXPRESSION_ROW(SUCCEEDED(S_FALSE), 1);
    EXPRESSION_ROW(SUCCEEDED(E_FAIL), 0);
    EXPRESSION_ROW(FAILED(S_FALSE), 0);
    EXPRESSION_ROW(FAILED(E_FAIL), 1);
    EXPRESSION_ROW(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED), E_ACCESSDENIED);
    EXPRESSION_ROW(HRESULT_FROM_WIN32(ERROR_SUCCESS), S_OK);
    EXPRESSION_ROW(HRESULT_FROM_WIN32(E_FAIL), E_FAIL);
    EXPRESSION_ROW(HRESULT_CODE(E_ACCESSDENIED), 5);
    EXPRESSION_ROW(HRESULT_FACILITY(E_ACCESSDENIED), 7);
    EXPRESSION_ROW(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), 0x0409);
    EXPRESSION_ROW(PRIMARYLANGID(0x0409), LANG_ENGLISH);
    EXPRESSION_ROW(SUBLANGID(0x0409), SUBLANG_ENGLISH_US);
    EXPRESSION_ROW(MAKELCID(0x0407, 1), 0x10407);
    numberRow("LOWORD of a pointer", LOWORD(KxHandleFromValue<HWND>(0x12345678)), 0x5678);
    numberRow("HIWORD of a pointer", HIWORD(KxHandleFromValue<void *>(0x12345678)), 0x1234);
}

void tst_WinTypes::packedCaseLabels()
{
    QCOMPARE(messageName(MAKELPARAM(0, WM_PAINT)), QStringLiteral("paint"));
    QCOMPARE(messageName(MAKELPARAM(WM_PAINT, 0x1234)), QStringLiteral("0x1234"));
    QCOMPARE(messageName(MAKELPARAM(WM_PAINT, 0)), QStringLiteral("other"));
}

void tst_WinTypes::resourceNames()
{
    QCOMPARE(number(MAKEINTRESOURCE(300)), 300);
    QCOMPARE(number(MAKEINTRESOURCEW(0x10001)), 1);
    QCOMPARE(number(MAKEINTRESOURCE(-1)), 0xFFFF);
    QVERIFY(IS_INTRESOURCE(MAKEINTRESOURCE(0xFFFF)));
    QVERIFY(!IS_INTRESOURCE(L"NAME"));
}

void tst_WinTypes::memory()
{
    BYTE bytes[] = {1, 2, 3, 4, 5, 6};
    const auto contents = [&bytes] { return QByteArray(reinterpret_cast<char *>(bytes), 6).toHex(); };
    MoveMemory(bytes + 1, bytes, 4);
    QCOMPARE(contents(), QByteArray("010102030406"));
    FillMemory(bytes + 4, 2, 0xEE);
    QCOMPARE(contents(), QByteArray("01010203eeee"));
    CopyMemory(bytes, bytes + 4, 2);
    QCOMPARE(contents(), QByteArray("eeee0203eeee"));
    ZeroMemory(bytes + 1, 2);
    QCOMPARE(contents(), QByteArray("ee000003eeee"));
    QCOMPARE(SecureZeroMemory(bytes, 5), static_cast<void *>(bytes));
    QCOMPARE(contents(), QByteArray("0000000000ee"));
}

void tst_WinTypes::countof()
{
    const wchar_t text[] = L"abc";
    int numbers[7] = {};
    UNREFERENCED_PARAMETER(numbers);
    QCOMPARE(_countof(text), size_t(4));
    QCOMPARE(_countof(numbers), size_t(7));
    QCOMPARE(ARRAYSIZE(numbers), size_t(7));
    QCOMPARE(HasArray().lengthOfCopy(), size_t(12));
}

// ---- min and max ----------------------------------------------------------------------------------------

void tst_WinTypes::minAndMax()
{
    QCOMPARE(min(3, 2), 2);
    QCOMPARE(max(3, 2), 3);
    QCOMPARE(min(-1L, 1L), -1L);
    QCOMPARE(max(2.5, 1.5), 2.5);
    QCOMPARE(min(wstring(L"b"), wstring(L"a")), wstring(L"a"));
    QCOMPARE(max({4, 9, 2}), 9);
    QCOMPARE(min(1, 2, greater<int>()), 2);
    QCOMPARE(unqualified::smallest(8, 7), 7);
    int first = 1;
    int second = 2;
    QCOMPARE(&min(first, second), &first);
    QCOMPARE(&max(first, second), &second);
}

void tst_WinTypes::minAndMaxOfMixedTypes()
{
    QCOMPARE(min(3, 2L), 2L);
    QCOMPARE(min(-3L, 2), -3L);
    QCOMPARE(max(3, 2.5), 3.0);
    QCOMPARE(max(short(3), 4), 4);
    QCOMPARE(min('a', 200), int('a'));
    QCOMPARE(max(7u, short(9)), 9u);
    QCOMPARE(max(1ll << 40, 1), 1ll << 40);
    QCOMPARE(min(2.5f, 3.5), 2.5);
    QCOMPARE(min(size_t(5), 6u), size_t(5));
    QCOMPARE(max(5, High), 9);
    QCOMPARE(min(Low, 5u), 1u);
    QCOMPARE(max(true, 5), 5);
    QCOMPARE(min<int>(3, 2L), 2);
    QCOMPARE(max<double>(3, 2.5f), 3.0);
    QCOMPARE(std::min(3, 2), 2);
    QCOMPARE(unqualified::smallestOfMixed(8, 7), 7L);
    QCOMPARE(unqualified::largestOfMixed(1.5f, 2.5), 2.5);
    // As arithmetic between the two types goes, and as the macros answer: -1 becomes the largest number.
    QCOMPARE(min(-1, 2u), 2u);

    QVERIFY((is_same_v<decltype(min(1, 2L)), long>));
    QVERIFY((is_same_v<decltype(max(1, 2.0f)), float>));
    QVERIFY((is_same_v<decltype(min<int>(1, 2L)), const int &>));
    static_assert(min(4, 3L) == 3 && max(4, 3L) == 4);
}

void tst_WinTypes::minAndMaxAreNoMacros()
{
    QVERIFY(!hasMinOrMaxMacro);
    QCOMPARE(numeric_limits<int>::max(), INT_MAX);
}

KX_TEST_MAIN(tst_WinTypes)

#include "tst_win_types.moc"
