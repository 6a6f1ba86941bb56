// SPDX-License-Identifier: MIT
#include "KxAfxGlobal.h"

#include "KxAfxWin_p.h"
#include "KxPlatformBase.h"
#include "KxText_p.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>

std::map<HWND, long> g_hwndMap;
HINSTANCE m_hCurrentResourceHandle = nullptr;

HWND GetDlgItem(HWND hDlg, int nIDDlgItem)
{
    const CWnd *window = CWnd::FromHandle(hDlg);
    const CWnd *item = window ? window->GetDlgItem(nIDDlgItem) : nullptr;
    return item ? item->GetSafeHwnd() : nullptr;
}

int GetDlgCtrlID(HWND hWnd)
{
    const CWnd *window = CWnd::FromHandle(hWnd);
    return window ? window->GetDlgCtrlID() : 0;
}

HWND GetParent(HWND hWnd)
{
    const CWnd *window = CWnd::FromHandle(hWnd);
    const CWnd *parent = window ? window->GetParent() : nullptr;
    return isSmallHandle(parent) ? nullptr : parent->GetSafeHwnd();
}

BOOL GetWindowRect(HWND hWnd, tagRECT *lpRect)
{
    if (!hWnd || !lpRect)
        return FALSE;
    const QWidget *widget = KxWidgetFromHwnd(hWnd);
    QPoint position = widget->pos();
    if (const QWidget *parent = widget->parentWidget())
        position = parent->mapToGlobal(position);
    // Right and bottom are QRect's, inclusive: one less than Windows gives.
    const QRect rect(position, widget->frameGeometry().size());
    *lpRect = {rect.left(), rect.top(), rect.right(), rect.bottom()};
    return TRUE;
}

BOOL GetClientRect(HWND hWnd, tagRECT *lpRect)
{
    const CWnd *window = CWnd::FromHandle(hWnd);
    if (window)
        window->GetClientRect(lpRect);
    return window != nullptr;
}

BOOL ShowWindow(HWND hWnd, int nCmdShow)
{
    CWnd *window = CWnd::FromHandle(hWnd);
    if (window)
        window->ShowWindow(nCmdShow);
    return window != nullptr;
}

BOOL SetWindowTextW(HWND hWnd, const wchar_t *lpString)
{
    CWnd *window = CWnd::FromHandle(hWnd);
    if (window)
        window->SetWindowTextW(lpString);
    return window != nullptr;
}

int GetWindowTextW(HWND hWnd, wchar_t *lpString, int nMaxCount)
{
    const CWnd *window = CWnd::FromHandle(hWnd);
    return window ? window->GetWindowTextW(lpString, nMaxCount) : 0;
}

int GetWindowTextLengthW(HWND hWnd)
{
    const CWnd *window = CWnd::FromHandle(hWnd);
    return window ? window->GetWindowTextLengthW() : 0;
}

int GetWindowTextLengthA(HWND hWnd)
{
    return GetWindowTextLengthW(hWnd);
}

namespace {

const wchar_t *classNameOf(const QWidget *widget)
{
    if (qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QDoubleSpinBox *>(widget)
        || qobject_cast<const QSpinBox *>(widget))
        return L"Edit";
    if (qobject_cast<const QAbstractButton *>(widget))
        return L"Button";
    if (qobject_cast<const QComboBox *>(widget))
        return L"ComboBox";
    if (qobject_cast<const QLabel *>(widget))
        return L"Static";
    return L"";
}

} // namespace

int GetClassNameW(HWND hWnd, wchar_t *lpClassName, int nMaxCount)
{
    return fillBuffer(lpClassName, nMaxCount, classNameOf(KxWidgetFromHwnd(hWnd)));
}

// ---- a handle's value ----------------------------------------------------------------------------------

namespace {

constexpr int valueIndex = 1;

LONG_PTR storedValue(HWND hWnd)
{
    const auto entry = g_hwndMap.find(hWnd);
    return entry != g_hwndMap.end() ? entry->second : 0;
}

} // namespace

LONG_PTR SetWindowLongW(HWND hWnd, int nIndex, long dwNewLong)
{
    if (!hWnd || nIndex != valueIndex)
        return 0;
    g_hwndMap.erase(nullptr);
    const LONG_PTR previous = storedValue(hWnd);
    g_hwndMap.insert({hWnd, dwNewLong});
    return previous;
}

LONG_PTR GetWindowLongPtrW(HWND hWnd, int nIndex)
{
    if (!hWnd)
        return 0;
    switch (nIndex) {
    case GWL_ID:
        return GetDlgCtrlID(hWnd);
    case valueIndex:
        return storedValue(hWnd);
    default:
        return 0;
    }
}

// ---- modules -------------------------------------------------------------------------------------------

HINSTANCE AfxLoadLibrary(const wchar_t *lpszModuleName)
{
    return LoadLibraryW(lpszModuleName);
}

BOOL AfxFreeLibrary(HINSTANCE hInstLib)
{
    return FreeLibrary(hInstLib);
}

HINSTANCE AfxGetResourceHandle()
{
    return m_hCurrentResourceHandle;
}

void AfxSetResourceHandle(HINSTANCE hInstResource)
{
    m_hCurrentResourceHandle = hInstResource;
}

// ---- there so that ported code compiles ----------------------------------------------------------------

BOOL IsWindow(HWND) { return TRUE; }
UINT IsDlgButtonChecked(HWND, int) { return 0; }
BOOL CheckDlgButton(HWND, int, UINT) { return FALSE; }
BOOL CheckRadioButton(HWND, int, int, int) { return FALSE; }
HWND GetCapture() { return nullptr; }
HWND SetCapture(HWND) { return nullptr; }
BOOL ReleaseCapture() { return FALSE; }
