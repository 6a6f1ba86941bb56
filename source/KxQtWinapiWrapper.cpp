// SPDX-License-Identifier: MIT
#include "KxQtWinapiWrapper.h"

#include "KxAfxGlobal.h"
#include "KxAfxWin.h"
#include "KxPlatformServices.h"
#include "KxText_p.h"

#include <QtGui/QScreen>
#include <QtOpenGL/QGLColormap>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDesktopWidget>
#include <QtWidgets/QMessageBox>

#include <algorithm>

QGLColormap g_ColorMap;

// ---- keyboard and screen -------------------------------------------------------------------------------

SHORT GetKeyState(int nVirtKey)
{
    return platformServices()->keyStateService()->keyState(nVirtKey);
}

SHORT GetAsyncKeyState(int vKey)
{
    return GetKeyState(vKey);
}

namespace {

QSize displaySize()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry().size() : QSize(0, 0);
}

} // namespace

int getDisplayWidth()
{
    return displaySize().width();
}

int getDiaplayHeight()
{
    return displaySize().height();
}

int GetSystemMetrics(int nIndex)
{
    switch (nIndex) {
    case SM_CXFULLSCREEN:
        return getDisplayWidth();
    case SM_CYFULLSCREEN:
        return getDiaplayHeight();
    default:
        return 0;
    }
}

// ---- message boxes -------------------------------------------------------------------------------------

namespace {

QMessageBox::StandardButtons buttonsOf(UINT type)
{
    if ((type & 3) == MB_YESNOCANCEL)
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    if (type & MB_OKCANCEL)
        return QMessageBox::Ok | QMessageBox::Cancel;
    if (type & MB_YESNO)
        return QMessageBox::Yes | QMessageBox::No;
    if ((type & MB_ICONEXCLAMATION) != MB_ICONEXCLAMATION && (type & MB_ICONQUESTION))
        return QMessageBox::Yes | QMessageBox::No;
    return QMessageBox::Ok;
}

QMessageBox::Icon iconOf(UINT type)
{
    if ((type & MB_ICONEXCLAMATION) == MB_ICONEXCLAMATION)
        return QMessageBox::Warning;
    if (type & MB_ICONQUESTION)
        return QMessageBox::Question;
    if (type & MB_ICONASTERISK)
        return QMessageBox::Information;
    if (type & MB_ICONHAND)
        return QMessageBox::Critical;
    return QMessageBox::NoIcon;
}

} // namespace

int MessageBoxW(const wchar_t *lpText, const wchar_t *lpCaption, UINT uType)
{
    QMessageBox box(iconOf(uType), toQString(lpCaption), toQString(lpText), buttonsOf(uType), nullptr,
                    Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    const auto setButtonText = [&box](QMessageBox::StandardButton which, const QString &text) {
        if (QAbstractButton *button = box.button(which))
            button->setText(text);
    };
    setButtonText(QMessageBox::Ok, QObject::tr("&OK"));
    setButtonText(QMessageBox::Cancel, QObject::tr("&Cancel"));
    setButtonText(QMessageBox::No, QObject::tr("&No"));
    setButtonText(QMessageBox::Yes, QObject::tr("&Yes"));
    box.setTextFormat(Qt::PlainText);
    if (!lpCaption)
        box.setWindowTitle(QStringLiteral("TORVA."));
    box.setWindowFlags(box.windowFlags() | Qt::WindowStaysOnTopHint);
    switch (box.exec()) {
    case QMessageBox::Ok:
        return IDOK;
    case QMessageBox::Yes:
        return IDYES;
    case QMessageBox::Cancel:
        return IDCANCEL;
    case QMessageBox::No:
        return IDNO;
    default:
        return 0;
    }
}

int MessageBoxW(HWND, const wchar_t *lpText, const wchar_t *lpCaption, UINT uType)
{
    return MessageBoxW(lpText, lpCaption, uType);
}

int AfxMessageBox(const wchar_t *lpszText, UINT nType, UINT)
{
    return MessageBoxW(nullptr, lpszText, nullptr, nType);
}

int AfxMessageBox(UINT nIDPrompt, UINT, UINT)
{
    CString text;
    text.LoadStringW(nIDPrompt);
    // The caller's type is dropped: a text by identifier always asks for OK alone.
    return AfxMessageBox(text, 0, 0);
}

// ---- palettes ------------------------------------------------------------------------------------------

namespace {

constexpr int paletteSize = 256;

HPALETTE onlyPalette()
{
    return reinterpret_cast<HPALETTE>(&g_ColorMap);
}

} // namespace

HPALETTE CreatePalette(const LOGPALETTE *plpal)
{
    if (!plpal)
        return nullptr;
    const int count = std::min<int>(plpal->palNumEntries, paletteSize);
    const PALETTEENTRY *entries = plpal->palPalEntry;
    for (int i = 0; i < count; ++i)
        g_ColorMap.setEntry(i, QColor(entries[i].peRed, entries[i].peGreen, entries[i].peBlue));
    return onlyPalette();
}

UINT GetNearestPaletteIndex(HPALETTE hpal, COLORREF color)
{
    if (hpal != onlyPalette())
        return 0;
    return static_cast<UINT>(g_ColorMap.findNearest(qRgb(GetRValue(color), GetGValue(color), GetBValue(color))));
}

// ---- cursors -------------------------------------------------------------------------------------------

HCURSOR LoadCursorW(HINSTANCE, UINT nIDCursor)
{
    return reinterpret_cast<HCURSOR>(static_cast<UINT_PTR>(nIDCursor));
}

HCURSOR SetCursor(HCURSOR hCursor)
{
    return hCursor;
}

// ---- windows -------------------------------------------------------------------------------------------

BOOL EnableWindow(HWND hWnd, BOOL bEnable)
{
    return KxUser32::EnableWindow(hWnd, bEnable);
}

BOOL KxUser32::EnableWindow(HWND hWnd, BOOL bEnable)
{
    if (hWnd)
        KxWidgetFromHwnd(hWnd)->setEnabled(bEnable);
    return hWnd != nullptr;
}

HWND KxUser32::GetDesktopWindow()
{
    return KxHwndFromWidget(QApplication::desktop());
}

HWND KxUser32::GetDlgItem(HWND hDlg, int nIDDlgItem) { return ::GetDlgItem(hDlg, nIDDlgItem); }
BOOL KxUser32::GetWindowRect(HWND hWnd, tagRECT *lpRect) { return ::GetWindowRect(hWnd, lpRect); }
SHORT KxUser32::GetKeyState(int nVirtKey) { return ::GetKeyState(nVirtKey); }
SHORT KxUser32::GetAsyncKeyState(int vKey) { return ::GetKeyState(vKey); }

// ---- there so that ported code compiles ----------------------------------------------------------------

BOOL SystemParametersInfoW(UINT, UINT, void *, UINT) { return FALSE; }
BOOL MessageBeep(UINT) { return TRUE; }
HCURSOR LoadCursorW(HINSTANCE, const wchar_t *) { return nullptr; }
HCURSOR GetCursor() { return nullptr; }
HWND SetFocus(HWND) { return nullptr; }
HWND GetFocus() { return nullptr; }
HBRUSH CreateSolidBrush(COLORREF) { return nullptr; }
HDC CreateICW(const wchar_t *, const wchar_t *, const wchar_t *, const DEVMODEW *) { return nullptr; }
int GetMapMode(HDC) { return 0; }

HWND KxUser32::SetFocus(HWND) { return nullptr; }
HWND KxUser32::GetFocus() { return nullptr; }
HCURSOR KxUser32::SetCursor(HCURSOR) { return nullptr; }
HCURSOR KxUser32::GetCursor() { return nullptr; }

BOOL KxKernel32::MoveToEx(HDC, int, int, tagPOINT *) { return FALSE; }
BOOL KxKernel32::LineTo(HDC, int, int) { return FALSE; }
BOOL KxKernel32::Polyline(HDC, const tagPOINT *, int) { return FALSE; }
int KxKernel32::SetPolyFillMode(HDC, int) { return 0; }
BOOL KxKernel32::PolyPolygon(HDC, const tagPOINT *, const int *, int) { return FALSE; }
