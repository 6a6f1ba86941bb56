// SPDX-License-Identifier: MIT
#include <afxwin.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QPushButton button;

    CWnd wnd;
    wnd.Attach(KxHwndFromWidget(&button));
    CString text;
    text.Format(_T("%d sheets"), 3);
    wnd.SetWindowText(text);
    const bool shown = button.text() == QStringLiteral("3 sheets");
    return shown && LOWORD(GetKeyState(VK_SHIFT)) == 0 ? 0 : 1;
}
