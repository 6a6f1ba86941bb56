// SPDX-License-Identifier: MIT
// What only a real window system can show: placement, activation and the keyboard focus.
#include "KxTestCase.h"

#include <afxwin.h>

#include <QtCore/QTimer>
#include <QtGui/QScreen>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

namespace {

/// A dialog with two edits, bound to a CDialog.
struct BoundDialog
{
    enum Item { FirstEdit = 11, SecondEdit = 12 };

    BoundDialog()
    {
        auto *layout = new QVBoxLayout(&form);
        layout->addWidget(first);
        layout->addWidget(second);
        dialog.Attach(KxHwndFromWidget(&form));
        dialog.SetDlgItem(FirstEdit, KxHwndFromWidget(first));
        dialog.SetDlgItem(SecondEdit, KxHwndFromWidget(second));
    }

    QBaseDialog form;
    QLineEdit *first = new QLineEdit;
    QLineEdit *second = new QLineEdit;
    CDialog dialog;
};

} // namespace

class XvfbWindows : public KxTestCase
{
    Q_OBJECT

private slots:
    void dialogIsCentredAtEveryShow();
    void escapeTypedIntoAnEditCancelsTheDialog();
    void focusFollowsSetFocus();
};

void XvfbWindows::dialogIsCentredAtEveryShow()
{
    BoundDialog bound;
    for (int show = 0; show < 2; ++show) {
        bound.dialog.ShowWindow(SW_SHOW);
        QVERIFY(QTest::qWaitForWindowExposed(&bound.form));
        const QPoint centre = QGuiApplication::primaryScreen()->availableGeometry().center();
        QTRY_COMPARE(bound.form.pos(), centre - bound.form.rect().center());
        bound.form.move(3, 4);
        bound.dialog.ShowWindow(SW_HIDE);
    }
}

void XvfbWindows::escapeTypedIntoAnEditCancelsTheDialog()
{
    BoundDialog bound;
    QTimer::singleShot(0, &bound.form, [&bound] {
        if (QTest::qWaitForWindowActive(&bound.form))
            QTest::keyClick(bound.first, Qt::Key_Escape);
        else
            bound.form.done(77);
    });
    QCOMPARE(bound.dialog.DoModal(), INT_PTR(IDCANCEL));
    QVERIFY(!bound.form.isVisible());
    QCOMPARE(bound.form.result(), int(QDialog::Rejected));
}

void XvfbWindows::focusFollowsSetFocus()
{
    BoundDialog bound;
    bound.dialog.ShowWindow(SW_SHOW);
    bound.form.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&bound.form));
    CWnd *second = bound.dialog.GetDlgItem(BoundDialog::SecondEdit);
    second->SetFocus();
    QTRY_COMPARE(CWnd::GetFocus(), second);
    CWnd *first = bound.dialog.GetDlgItem(BoundDialog::FirstEdit);
    first->SetFocus();
    QTRY_COMPARE(CWnd::GetFocus(), first);
}

KX_TEST_MAIN(XvfbWindows)
#include "xvfb_windows.moc"
