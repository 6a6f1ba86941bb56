// SPDX-License-Identifier: MIT
#include "KxWinTypes.h"

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

/// The value of a constant or of a handle that is one.
template<class Type>
qlonglong numberOf(Type value)
{
    if constexpr (is_pointer_v<Type>)
        return static_cast<qlonglong>(reinterpret_cast<INT_PTR>(value));
    else
        return static_cast<qlonglong>(value);
}

void numberColumns()
{
    QTest::addColumn<qlonglong>("actual");
    QTest::addColumn<qlonglong>("expected");
}

template<class Type>
void numberRow(const char *name, Type actual, qlonglong expected)
{
    QTest::newRow(name) << numberOf(actual) << expected;
}

#define SIZE_ROW(type, bytes) numberRow("sizeof " #type, sizeof(type), bytes)
#define OFFSET_ROW(type, field, bytes) numberRow(#type "::" #field, offsetof(type, field), bytes)
#define CONSTANT_ROW(name, value) numberRow(#name, name, value)
#define EXPRESSION_ROW(expression, value) numberRow(#expression, expression, value)

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

    void systemConstants_data();
    void systemConstants() { compareNumbers(); }
    void messageConstants_data();
    void messageConstants() { compareNumbers(); }
    void controlConstants_data();
    void controlConstants() { compareNumbers(); }
    void windowConstants_data();
    void windowConstants() { compareNumbers(); }
    void drawingConstants_data();
    void drawingConstants() { compareNumbers(); }
    void trueAndFalse();

    void packing_data();
    void packing() { compareNumbers(); }
    void packedCaseLabels();
    void resourceNames();
    void memory();
    void countof();

    void minAndMax();
    void minAndMaxOfMixedTypes();
    void minAndMaxAreNoMacros();

private:
    static void compareNumbers();
};

void tst_WinTypes::compareNumbers()
{
    QFETCH(qlonglong, actual);
    QFETCH(qlonglong, expected);
    QCOMPARE(actual, expected);
}

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

// ---- constants ------------------------------------------------------------------------------------------

void tst_WinTypes::systemConstants_data()
{
    numberColumns();
    CONSTANT_ROW(MAX_PATH, 260);
    CONSTANT_ROW(_MAX_PATH, 260);
    CONSTANT_ROW(INFINITE, 0xFFFFFFFFll);
    CONSTANT_ROW(S_OK, 0);
    CONSTANT_ROW(S_FALSE, 1);
    CONSTANT_ROW(E_FAIL, -2147467259);
    CONSTANT_ROW(E_NOTIMPL, -2147467263);
    CONSTANT_ROW(E_INVALIDARG, -2147024809);
    CONSTANT_ROW(NO_ERROR, 0);
    CONSTANT_ROW(ERROR_SUCCESS, 0);
    CONSTANT_ROW(ERROR_FILE_NOT_FOUND, 2);
    CONSTANT_ROW(ERROR_PATH_NOT_FOUND, 3);
    CONSTANT_ROW(ERROR_ACCESS_DENIED, 5);
    CONSTANT_ROW(ERROR_NO_MORE_FILES, 18);
    CONSTANT_ROW(ERROR_FILE_EXISTS, 80);
    CONSTANT_ROW(ERROR_INVALID_PARAMETER, 87);
    CONSTANT_ROW(ERROR_INSUFFICIENT_BUFFER, 122);
    CONSTANT_ROW(ERROR_ALREADY_EXISTS, 183);
    CONSTANT_ROW(ERROR_MORE_DATA, 234);
    CONSTANT_ROW(ERROR_RESOURCE_NAME_NOT_FOUND, 1814);
    CONSTANT_ROW(GENERIC_READ, 0x80000000ll);
    CONSTANT_ROW(GENERIC_WRITE, 0x40000000);
    CONSTANT_ROW(GENERIC_ALL, 0x10000000);
    CONSTANT_ROW(FILE_SHARE_READ, 1);
    CONSTANT_ROW(FILE_SHARE_DELETE, 4);
    CONSTANT_ROW(CREATE_NEW, 1);
    CONSTANT_ROW(CREATE_ALWAYS, 2);
    CONSTANT_ROW(OPEN_EXISTING, 3);
    CONSTANT_ROW(OPEN_ALWAYS, 4);
    CONSTANT_ROW(TRUNCATE_EXISTING, 5);
    CONSTANT_ROW(INVALID_HANDLE_VALUE, -1);
    CONSTANT_ROW(INVALID_FILE_ATTRIBUTES, 0xFFFFFFFFll);
    CONSTANT_ROW(FILE_ATTRIBUTE_READONLY, 0x1);
    CONSTANT_ROW(FILE_ATTRIBUTE_DIRECTORY, 0x10);
    CONSTANT_ROW(FILE_ATTRIBUTE_NORMAL, 0x80);
    CONSTANT_ROW(DRIVE_FIXED, 3);
    CONSTANT_ROW(GMEM_MOVEABLE, 0x2);
    CONSTANT_ROW(GMEM_ZEROINIT, 0x40);
    CONSTANT_ROW(GHND, 0x42);
    CONSTANT_ROW(CF_TEXT, 1);
    CONSTANT_ROW(CF_BITMAP, 2);
    CONSTANT_ROW(CF_UNICODETEXT, 13);
    CONSTANT_ROW(CF_HDROP, 15);
    CONSTANT_ROW(CF_PRIVATEFIRST, 0x200);
    numberRow("HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT, -0x80000000ll);
    numberRow("HKEY_CURRENT_USER", HKEY_CURRENT_USER, -0x7FFFFFFF);
    numberRow("HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE, -0x7FFFFFFE);
    CONSTANT_ROW(KEY_READ, 0x20019);
    CONSTANT_ROW(KEY_ALL_ACCESS, 0xF003F);
    CONSTANT_ROW(REG_SZ, 1);
    CONSTANT_ROW(REG_DWORD, 4);
    CONSTANT_ROW(CREATE_SUSPENDED, 4);
    CONSTANT_ROW(THREAD_PRIORITY_BELOW_NORMAL, -1);
    CONSTANT_ROW(WAIT_OBJECT_0, 0);
    CONSTANT_ROW(WAIT_TIMEOUT, 258);
    CONSTANT_ROW(IMAGE_BITMAP, 0);
    CONSTANT_ROW(IMAGE_ICON, 1);
    CONSTANT_ROW(LR_LOADFROMFILE, 0x10);
    CONSTANT_ROW(LR_SHARED, 0x8000);
    CONSTANT_ROW(IDC_ARROW, 32512);
    CONSTANT_ROW(IDC_WAIT, 32514);
    CONSTANT_ROW(IDC_SIZEWE, 32644);
    CONSTANT_ROW(IDC_HAND, 32649);
    CONSTANT_ROW(IDI_QUESTION, 32514);
    CONSTANT_ROW(RT_BITMAP, 2);
    CONSTANT_ROW(RT_GROUP_ICON, 14);
    CONSTANT_ROW(LANG_ENGLISH, 9);
    CONSTANT_ROW(LOCALE_USER_DEFAULT, 0x400);
    CONSTANT_ROW(CP_ACP, 0);
    CONSTANT_ROW(CP_UTF8, 65001);
}

void tst_WinTypes::messageConstants_data()
{
    numberColumns();
    CONSTANT_ROW(WM_NULL, 0);
    CONSTANT_ROW(WM_CREATE, 0x01);
    CONSTANT_ROW(WM_DESTROY, 0x02);
    CONSTANT_ROW(WM_SIZE, 0x05);
    CONSTANT_ROW(WM_SETTEXT, 0x0C);
    CONSTANT_ROW(WM_PAINT, 0x0F);
    CONSTANT_ROW(WM_CLOSE, 0x10);
    CONSTANT_ROW(WM_ERASEBKGND, 0x14);
    CONSTANT_ROW(WM_ICONERASEBKGND, 0x27);
    CONSTANT_ROW(WM_NEXTDLGCTL, 0x28);
    CONSTANT_ROW(WM_SETFONT, 0x30);
    CONSTANT_ROW(WM_COPYDATA, 0x4A);
    CONSTANT_ROW(WM_NOTIFY, 0x4E);
    CONSTANT_ROW(WM_HELP, 0x53);
    CONSTANT_ROW(WM_NCLBUTTONDOWN, 0xA1);
    CONSTANT_ROW(WM_KEYFIRST, 0x100);
    CONSTANT_ROW(WM_KEYDOWN, 0x100);
    CONSTANT_ROW(WM_KEYUP, 0x101);
    CONSTANT_ROW(WM_CHAR, 0x102);
    CONSTANT_ROW(WM_SYSKEYDOWN, 0x104);
    CONSTANT_ROW(WM_INITDIALOG, 0x110);
    CONSTANT_ROW(WM_COMMAND, 0x111);
    CONSTANT_ROW(WM_SYSCOMMAND, 0x112);
    CONSTANT_ROW(WM_TIMER, 0x113);
    CONSTANT_ROW(WM_HSCROLL, 0x114);
    CONSTANT_ROW(WM_VSCROLL, 0x115);
    CONSTANT_ROW(WM_CTLCOLORSTATIC, 0x138);
    CONSTANT_ROW(WM_MOUSEMOVE, 0x200);
    CONSTANT_ROW(WM_LBUTTONDOWN, 0x201);
    CONSTANT_ROW(WM_LBUTTONDBLCLK, 0x203);
    CONSTANT_ROW(WM_RBUTTONDOWN, 0x204);
    CONSTANT_ROW(WM_MOUSEWHEEL, 0x20A);
    CONSTANT_ROW(WM_MOUSEHOVER, 0x2A1);
    CONSTANT_ROW(WM_MOUSELEAVE, 0x2A3);
    CONSTANT_ROW(WM_DPICHANGED, 0x2E0);
    CONSTANT_ROW(WM_HOTKEY, 0x312);
    CONSTANT_ROW(WM_USER, 0x400);
    CONSTANT_ROW(WM_APP, 0x8000);
    CONSTANT_ROW(WHEEL_DELTA, 120);
    CONSTANT_ROW(CTLCOLOR_STATIC, 6);
    CONSTANT_ROW(MK_LBUTTON, 1);
    CONSTANT_ROW(MK_CONTROL, 8);
    CONSTANT_ROW(PM_REMOVE, 1);
    CONSTANT_ROW(TME_LEAVE, 2);
    CONSTANT_ROW(HTERROR, -2);
    CONSTANT_ROW(HTCLIENT, 1);
    CONSTANT_ROW(HTCAPTION, 2);
    CONSTANT_ROW(HTBOTTOMRIGHT, 17);
    CONSTANT_ROW(SC_MINIMIZE, 0xF020);
    CONSTANT_ROW(SC_CLOSE, 0xF060);
    CONSTANT_ROW(VK_LBUTTON, 0x01);
    CONSTANT_ROW(VK_RBUTTON, 0x02);
    CONSTANT_ROW(VK_MBUTTON, 0x04);
    CONSTANT_ROW(VK_BACK, 0x08);
    CONSTANT_ROW(VK_TAB, 0x09);
    CONSTANT_ROW(VK_RETURN, 0x0D);
    CONSTANT_ROW(VK_SHIFT, 0x10);
    CONSTANT_ROW(VK_CONTROL, 0x11);
    CONSTANT_ROW(VK_MENU, 0x12);
    CONSTANT_ROW(VK_CAPITAL, 0x14);
    CONSTANT_ROW(VK_ESCAPE, 0x1B);
    CONSTANT_ROW(VK_SPACE, 0x20);
    CONSTANT_ROW(VK_PRIOR, 0x21);
    CONSTANT_ROW(VK_LEFT, 0x25);
    CONSTANT_ROW(VK_DELETE, 0x2E);
    CONSTANT_ROW(VK_LWIN, 0x5B);
    CONSTANT_ROW(VK_ADD, 0x6B);
    CONSTANT_ROW(VK_F1, 0x70);
    CONSTANT_ROW(VK_F24, 0x87);
    CONSTANT_ROW(VK_LSHIFT, 0xA0);
    CONSTANT_ROW(VK_RMENU, 0xA5);
    CONSTANT_ROW(IDOK, 1);
    CONSTANT_ROW(IDCANCEL, 2);
    CONSTANT_ROW(IDYES, 6);
    CONSTANT_ROW(IDNO, 7);
    CONSTANT_ROW(IDHELP, 9);
    CONSTANT_ROW(MB_OK, 0);
    CONSTANT_ROW(MB_OKCANCEL, 1);
    CONSTANT_ROW(MB_ABORTRETRYIGNORE, 2);
    CONSTANT_ROW(MB_YESNOCANCEL, 3);
    CONSTANT_ROW(MB_YESNO, 4);
    CONSTANT_ROW(MB_RETRYCANCEL, 5);
    CONSTANT_ROW(MB_ICONHAND, 0x10);
    CONSTANT_ROW(MB_ICONSTOP, 0x10);
    CONSTANT_ROW(MB_ICONERROR, 0x10);
    CONSTANT_ROW(MB_ICONQUESTION, 0x20);
    CONSTANT_ROW(MB_ICONEXCLAMATION, 0x30);
    CONSTANT_ROW(MB_ICONWARNING, 0x30);
    CONSTANT_ROW(MB_ICONASTERISK, 0x40);
    CONSTANT_ROW(MB_ICONINFORMATION, 0x40);
    CONSTANT_ROW(MB_DEFBUTTON2, 0x100);
    CONSTANT_ROW(MB_TASKMODAL, 0x2000);
    CONSTANT_ROW(DS_MODALFRAME, 0x80);
    CONSTANT_ROW(DLGC_WANTALLKEYS, 4);
    CONSTANT_ROW(DWLP_USER, 16);
}

void tst_WinTypes::controlConstants_data()
{
    numberColumns();
    CONSTANT_ROW(BS_PUSHBUTTON, 0);
    CONSTANT_ROW(BS_AUTOCHECKBOX, 3);
    CONSTANT_ROW(BS_OWNERDRAW, 11);
    CONSTANT_ROW(BM_GETCHECK, 0xF0);
    CONSTANT_ROW(BM_SETCHECK, 0xF1);
    CONSTANT_ROW(BM_SETIMAGE, 0xF7);
    CONSTANT_ROW(BN_CLICKED, 0);
    CONSTANT_ROW(BN_DOUBLECLICKED, 5);
    CONSTANT_ROW(BST_UNCHECKED, 0);
    CONSTANT_ROW(BST_CHECKED, 1);
    CONSTANT_ROW(BST_INDETERMINATE, 2);
    CONSTANT_ROW(SS_BITMAP, 14);
    CONSTANT_ROW(SS_NOTIFY, 0x100);
    CONSTANT_ROW(STM_SETIMAGE, 0x172);
    CONSTANT_ROW(ES_MULTILINE, 4);
    CONSTANT_ROW(ES_AUTOHSCROLL, 0x80);
    CONSTANT_ROW(ES_READONLY, 0x800);
    CONSTANT_ROW(EM_SETSEL, 0xB1);
    CONSTANT_ROW(EM_LIMITTEXT, 0xC5);
    CONSTANT_ROW(EN_SETFOCUS, 0x100);
    CONSTANT_ROW(EN_CHANGE, 0x300);
    CONSTANT_ROW(LBS_NOTIFY, 1);
    CONSTANT_ROW(LB_ADDSTRING, 0x180);
    CONSTANT_ROW(LB_GETCURSEL, 0x188);
    CONSTANT_ROW(LB_ERR, -1);
    CONSTANT_ROW(LB_ERRSPACE, -2);
    CONSTANT_ROW(LBN_SELCHANGE, 1);
    CONSTANT_ROW(LBN_DBLCLK, 2);
    CONSTANT_ROW(CBS_DROPDOWN, 2);
    CONSTANT_ROW(CBS_DROPDOWNLIST, 3);
    CONSTANT_ROW(CB_ADDSTRING, 0x143);
    CONSTANT_ROW(CB_GETCOUNT, 0x146);
    CONSTANT_ROW(CB_GETCURSEL, 0x147);
    CONSTANT_ROW(CB_GETLBTEXT, 0x148);
    CONSTANT_ROW(CB_RESETCONTENT, 0x14B);
    CONSTANT_ROW(CB_SETCURSEL, 0x14E);
    CONSTANT_ROW(CB_ERR, -1);
    CONSTANT_ROW(CB_ERRSPACE, -2);
    CONSTANT_ROW(CBN_ERRSPACE, -1);
    CONSTANT_ROW(CBN_SELCHANGE, 1);
    CONSTANT_ROW(CBN_EDITCHANGE, 5);
    CONSTANT_ROW(SB_HORZ, 0);
    CONSTANT_ROW(SB_VERT, 1);
    CONSTANT_ROW(SB_THUMBPOSITION, 4);
    CONSTANT_ROW(SB_THUMBTRACK, 5);
    CONSTANT_ROW(SB_BOTTOM, 7);
    CONSTANT_ROW(SIF_ALL, 0x17);
    CONSTANT_ROW(ODT_COMBOBOX, 3);
    CONSTANT_ROW(ODA_DRAWENTIRE, 1);
    CONSTANT_ROW(ODS_SELECTED, 1);
    CONSTANT_ROW(ODS_FOCUS, 0x10);
}

void tst_WinTypes::windowConstants_data()
{
    numberColumns();
    CONSTANT_ROW(WS_POPUP, 0x80000000ll);
    CONSTANT_ROW(WS_CHILD, 0x40000000);
    CONSTANT_ROW(WS_VISIBLE, 0x10000000);
    CONSTANT_ROW(WS_DISABLED, 0x08000000);
    CONSTANT_ROW(WS_CAPTION, 0x00C00000);
    CONSTANT_ROW(WS_BORDER, 0x00800000);
    CONSTANT_ROW(WS_THICKFRAME, 0x00040000);
    CONSTANT_ROW(WS_TABSTOP, 0x00010000);
    CONSTANT_ROW(WS_OVERLAPPEDWINDOW, 0x00CF0000);
    CONSTANT_ROW(WS_POPUPWINDOW, 0x80880000ll);
    CONSTANT_ROW(WS_EX_DLGMODALFRAME, 0x1);
    CONSTANT_ROW(WS_EX_CLIENTEDGE, 0x200);
    CONSTANT_ROW(WS_EX_STATICEDGE, 0x20000);
    CONSTANT_ROW(CS_DBLCLKS, 8);
    CONSTANT_ROW(CW_USEDEFAULT, -0x80000000ll);
    CONSTANT_ROW(SW_HIDE, 0);
    CONSTANT_ROW(SW_SHOWNORMAL, 1);
    CONSTANT_ROW(SW_SHOWMAXIMIZED, 3);
    CONSTANT_ROW(SW_SHOW, 5);
    CONSTANT_ROW(SW_MINIMIZE, 6);
    CONSTANT_ROW(SW_RESTORE, 9);
    CONSTANT_ROW(SWP_NOSIZE, 0x1);
    CONSTANT_ROW(SWP_NOMOVE, 0x2);
    CONSTANT_ROW(SWP_NOZORDER, 0x4);
    CONSTANT_ROW(SWP_NOACTIVATE, 0x10);
    CONSTANT_ROW(SWP_DRAWFRAME, 0x20);
    CONSTANT_ROW(SWP_SHOWWINDOW, 0x40);
    CONSTANT_ROW(HWND_TOP, 0);
    CONSTANT_ROW(HWND_BOTTOM, 1);
    CONSTANT_ROW(HWND_TOPMOST, -1);
    CONSTANT_ROW(HWND_NOTOPMOST, -2);
    CONSTANT_ROW(HWND_BROADCAST, 0xFFFF);
    CONSTANT_ROW(HWND_DESKTOP, 0);
    CONSTANT_ROW(GW_HWNDNEXT, 2);
    CONSTANT_ROW(GW_OWNER, 4);
    CONSTANT_ROW(GW_CHILD, 5);
    CONSTANT_ROW(GWL_WNDPROC, -4);
    CONSTANT_ROW(GWL_ID, -12);
    CONSTANT_ROW(GWL_STYLE, -16);
    CONSTANT_ROW(GWL_EXSTYLE, -20);
    CONSTANT_ROW(GWLP_USERDATA, -21);
    CONSTANT_ROW(MONITOR_DEFAULTTONEAREST, 2);
    CONSTANT_ROW(MF_BYCOMMAND, 0);
    CONSTANT_ROW(MF_GRAYED, 1);
    CONSTANT_ROW(MF_CHECKED, 8);
    CONSTANT_ROW(MF_POPUP, 0x10);
    CONSTANT_ROW(MF_BYPOSITION, 0x400);
    CONSTANT_ROW(MF_SEPARATOR, 0x800);
    CONSTANT_ROW(MIIM_ID, 2);
    CONSTANT_ROW(TPM_RIGHTBUTTON, 2);
    CONSTANT_ROW(TPM_RETURNCMD, 0x100);
    CONSTANT_ROW(SM_CXSCREEN, 0);
    CONSTANT_ROW(SM_CYSCREEN, 1);
    CONSTANT_ROW(SM_CXICON, 11);
    CONSTANT_ROW(SM_CXFULLSCREEN, 16);
    CONSTANT_ROW(SM_CYFULLSCREEN, 17);
    CONSTANT_ROW(SM_CXSIZEFRAME, 32);
    CONSTANT_ROW(SM_CXSMICON, 49);
    CONSTANT_ROW(SPI_GETNONCLIENTMETRICS, 0x29);
    CONSTANT_ROW(SPI_GETWORKAREA, 0x30);
    CONSTANT_ROW(WH_KEYBOARD, 2);
    CONSTANT_ROW(HELP_CONTEXT, 1);
}

void tst_WinTypes::drawingConstants_data()
{
    numberColumns();
    CONSTANT_ROW(COLOR_ACTIVECAPTION, 2);
    CONSTANT_ROW(COLOR_WINDOW, 5);
    CONSTANT_ROW(COLOR_WINDOWTEXT, 8);
    CONSTANT_ROW(COLOR_HIGHLIGHT, 13);
    CONSTANT_ROW(COLOR_BTNFACE, 15);
    CONSTANT_ROW(COLOR_3DFACE, 15);
    CONSTANT_ROW(COLOR_3DSHADOW, 16);
    CONSTANT_ROW(COLOR_3DHILIGHT, 20);
    CONSTANT_ROW(CLR_INVALID, 0xFFFFFFFFll);
    CONSTANT_ROW(CLR_DEFAULT, 0xFF000000ll);
    CONSTANT_ROW(LF_FACESIZE, 32);
    CONSTANT_ROW(FW_NORMAL, 400);
    CONSTANT_ROW(FW_BOLD, 700);
    CONSTANT_ROW(DEFAULT_CHARSET, 1);
    CONSTANT_ROW(OUT_DEFAULT_PRECIS, 0);
    CONSTANT_ROW(CLIP_DEFAULT_PRECIS, 0);
    CONSTANT_ROW(FIXED_PITCH, 1);
    CONSTANT_ROW(FF_SWISS, 0x20);
    CONSTANT_ROW(TA_CENTER, 6);
    CONSTANT_ROW(TRANSPARENT, 1);
    CONSTANT_ROW(OPAQUE, 2);
    CONSTANT_ROW(DT_CENTER, 1);
    CONSTANT_ROW(DT_VCENTER, 4);
    CONSTANT_ROW(DT_SINGLELINE, 0x20);
    CONSTANT_ROW(DT_CALCRECT, 0x400);
    CONSTANT_ROW(DT_END_ELLIPSIS, 0x8000);
    CONSTANT_ROW(WHITE_BRUSH, 0);
    CONSTANT_ROW(NULL_BRUSH, 5);
    CONSTANT_ROW(NULL_PEN, 8);
    CONSTANT_ROW(DEFAULT_GUI_FONT, 17);
    CONSTANT_ROW(PS_SOLID, 0);
    CONSTANT_ROW(PS_DOT, 2);
    CONSTANT_ROW(PS_NULL, 5);
    CONSTANT_ROW(PS_GEOMETRIC, 0x10000);
    CONSTANT_ROW(BS_HATCHED, 2);
    CONSTANT_ROW(HS_CROSS, 4);
    CONSTANT_ROW(R2_NOT, 6);
    CONSTANT_ROW(R2_XORPEN, 7);
    CONSTANT_ROW(R2_COPYPEN, 13);
    CONSTANT_ROW(SRCCOPY, 0x00CC0020);
    CONSTANT_ROW(SRCAND, 0x008800C6);
    CONSTANT_ROW(PATCOPY, 0x00F00021);
    CONSTANT_ROW(DSTINVERT, 0x00550009);
    CONSTANT_ROW(MM_TEXT, 1);
    CONSTANT_ROW(MM_ANISOTROPIC, 8);
    CONSTANT_ROW(ALTERNATE, 1);
    CONSTANT_ROW(WINDING, 2);
    CONSTANT_ROW(RGN_DIFF, 4);
    CONSTANT_ROW(HALFTONE, 4);
    CONSTANT_ROW(BI_RGB, 0);
    CONSTANT_ROW(BI_BITFIELDS, 3);
    CONSTANT_ROW(DIB_RGB_COLORS, 0);
    CONSTANT_ROW(HORZRES, 8);
    CONSTANT_ROW(LOGPIXELSX, 88);
    CONSTANT_ROW(LOGPIXELSY, 90);
    CONSTANT_ROW(BF_RECT, 0xF);
    CONSTANT_ROW(EDGE_SUNKEN, 0xA);
    CONSTANT_ROW(DFC_BUTTON, 4);
    CONSTANT_ROW(DI_NORMAL, 3);
    CONSTANT_ROW(RDW_INVALIDATE, 1);
    CONSTANT_ROW(RDW_UPDATENOW, 0x100);
}

void tst_WinTypes::trueAndFalse()
{
    const BOOL yes = TRUE;
    const BOOL no = FALSE;
    const int one = TRUE;
    const int zero = FALSE;
    QVERIFY(yes && !no);
    QCOMPARE(one, 1);
    QCOMPARE(zero, 0);
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
    QCOMPARE(numberOf(MAKEINTRESOURCE(300)), 300);
    QCOMPARE(numberOf(MAKEINTRESOURCEW(0x10001)), 1);
    QCOMPARE(numberOf(MAKEINTRESOURCE(-1)), 0xFFFF);
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
