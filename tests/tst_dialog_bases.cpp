// SPDX-License-Identifier: MIT
// The dialog widget of the library, and the host application's own dialog bases.

#include "KxModalRun.h"
#include "KxTestCase.h"

#include <QtGui/QScreen>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <afxwin.h>

#include <KxQBaseDialog.h>

#include <functional>
#include <type_traits>

/// A caller that goes through a pointer to no object, on purpose.
#define KX_CALLS_THROUGH_SMALL_POINTER __attribute__((no_sanitize("undefined")))

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

namespace {

HWND handleOf(QWidget *widget)
{
    return KxHwndFromWidget(widget);
}

/// Opens the identifier, and writes down what is called.
class HostBaseDialog : public QBaseDialog
{
public:
    explicit HostBaseDialog(QWidget *parent = nullptr) : QBaseDialog(parent) { resize(200, 100); }

    using QBaseDialog::m_endId;

    void accept() override
    {
        log.append(QStringLiteral("accept, id %1").arg(m_endId));
        if (!refuses)
            QBaseDialog::accept();
    }
    void reject() override
    {
        log.append(QStringLiteral("reject"));
        QBaseDialog::reject();
    }
    void OnCancel() override
    {
        log.append(QStringLiteral("OnCancel"));
        if (!refuses)
            QBaseDialog::OnCancel();
    }
    void execCallBack(int id) override
    {
        log.append(QStringLiteral("callback %1, id %2, %3")
                       .arg(id).arg(m_endId)
                       .arg(isVisible() ? QStringLiteral("open") : QStringLiteral("closed")));
        QBaseDialog::execCallBack(id);
    }

    QStringList log;
    bool refuses = false;
};

INT_PTR doModal(CDialog &dialog, const std::function<void()> &step)
{
    return kxRunModal([&dialog] { return dialog.DoModal(); }, step);
}

int exec(QDialog &widget, const std::function<void()> &step)
{
    return kxRunModal([&widget] { return widget.exec(); }, step);
}

/// The application object with a main window, for its own lifetime.
struct MainWindow {
    MainWindow()
    {
        window.Attach(handleOf(&widget));
        application.m_pMainWnd = &window;
        g_pWinApp = &application;
    }
    ~MainWindow() { g_pWinApp = nullptr; }

    QWidget widget;
    CWnd window{nullptr};
    CWinApp application;
};

/// A tab page that notes when it is given the focus.
class Page : public CTnUiTabChildDialog
{
public:
    using CTnUiTabChildDialog::CTnUiTabChildDialog;

    CWnd *SetFocus() override
    {
        ++focusCalls;
        applyEnabledAtFocus = apply && apply->isEnabled();
        return CTnUiTabChildDialog::SetFocus();
    }

    int focusCalls = 0;
    bool applyEnabledAtFocus = false;
    QWidget *apply = nullptr;
};

constexpr int applyId = 1501;

/// A dialog on the screen with a page and the button that its pages enable.
struct TabbedDialog {
    TabbedDialog()
    {
        dialog.Attach(handleOf(&top));
        dialog.SetDlgItem(applyId, handleOf(&apply));
        page.Attach(handleOf(&pageWidget));
        page.apply = &apply;
        edit.setFocus();
        top.show();
        QApplication::setActiveWindow(&top);
        if (!QTest::qWaitForWindowActive(&top))
            QTest::qFail("the window does not become active", __FILE__, __LINE__);
    }

    QDialog top;
    QPushButton apply{&top};
    QWidget pageWidget{&top};
    QLineEdit edit{&pageWidget};
    CDialog dialog;
    Page page{101u, &dialog};
};

} // namespace

class DialogBasesTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void baseDialog_data();
    void baseDialog() { runPromise(); }
    void baseDialogKeys_data();
    void baseDialogKeys() { runPromise(); }
    void baseDialogCentred_data();
    void baseDialogCentred();
    void baseDialogExec_data();
    void baseDialogExec() { runPromise(); }
    void hostBases_data();
    void hostBases() { runPromise(); }
    void setDirty_data();
    void setDirty() { runPromise(); }
    void inertMembers();

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

void DialogBasesTest::baseDialog_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a QBaseDialog is a tool window, its identifier is -1") << Promise([] {
        HostBaseDialog dialog;
        QCOMPARE(static_cast<int>(dialog.windowType()), 11);
        QCOMPARE(dialog.m_endId, -1);
    });
    QTest::newRow("QBaseDialog(parent) has that parent") << Promise([] {
        const MainWindow main;
        QWidget parent;
        HostBaseDialog dialog(&parent);
        QVERIFY(dialog.parentWidget() == &parent);
        QVERIFY(dialog.isWindow());
    });
    QTest::newRow("QBaseDialog(nullptr) has the host's main window as its parent") << Promise([] {
        const MainWindow main;
        HostBaseDialog dialog(nullptr);
        QVERIFY(dialog.parentWidget() == &main.widget);
        QVERIFY(dialog.isWindow());
    });
    QTest::newRow("QBaseDialog(nullptr) of a host without main window has no parent") << Promise([] {
        QVERIFY(g_pWinApp == nullptr);
        HostBaseDialog dialog(nullptr);
        QVERIFY(dialog.parentWidget() == nullptr);
    });
    QTest::newRow("the meta-object is QDialog's") << Promise([] {
        HostBaseDialog dialog;
        QVERIFY(dialog.metaObject() == &QDialog::staticMetaObject);
    });
    QTest::newRow("OnOK accepts past an override of accept()") << Promise([] {
        HostBaseDialog dialog;
        dialog.show();
        dialog.OnOK();
        QCOMPARE(dialog.result(), 1);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.log, QStringList());
    });
    QTest::newRow("OnCancel rejects past an override of reject()") << Promise([] {
        HostBaseDialog dialog;
        dialog.setResult(1);
        dialog.show();
        dialog.QBaseDialog::OnCancel();
        QCOMPARE(dialog.result(), 0);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.log, QStringList());
    });
    QTest::newRow("endById(7) accepts through the virtual, then keeps 7") << Promise([] {
        HostBaseDialog dialog;
        dialog.show();
        dialog.endById(7);
        QCOMPARE(dialog.log, QStringList{"accept, id -1"});
        QCOMPARE(dialog.m_endId, 7);
        QCOMPARE(dialog.result(), 1);
        QVERIFY(!dialog.isVisible());
    });
}

void DialogBasesTest::baseDialogKeys_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("Escape calls OnCancel, not reject()") << Promise([] {
        HostBaseDialog dialog;
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QCOMPARE(dialog.log, QStringList{"OnCancel"});
        QVERIFY(!dialog.isVisible());
    });
    QTest::newRow("Escape with Shift calls OnCancel too") << Promise([] {
        HostBaseDialog dialog;
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Escape, Qt::ShiftModifier);
        QCOMPARE(dialog.log, QStringList{"OnCancel"});
    });
    QTest::newRow("Escape goes no further than an OnCancel that does nothing") << Promise([] {
        HostBaseDialog dialog;
        dialog.refuses = true;
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QCOMPARE(dialog.log, QStringList{"OnCancel"});
        QVERIFY(dialog.isVisible());
    });
    QTest::newRow("Escape in a control of the dialog reaches OnCancel") << Promise([] {
        HostBaseDialog dialog;
        QLineEdit edit(&dialog);
        dialog.show();
        QTest::keyClick(&edit, Qt::Key_Escape);
        QCOMPARE(dialog.log, QStringList{"OnCancel"});
    });
    QTest::newRow("Escape in a modal run: OnCancel, and the CDialog gives 2") << Promise([] {
        HostBaseDialog widget;
        CDialog dialog;
        dialog.Attach(handleOf(&widget));
        const INT_PTR result = doModal(dialog, [&] { QTest::keyClick(&widget, Qt::Key_Escape); });
        QCOMPARE(result, INT_PTR(2));
        QCOMPARE(widget.log, (QStringList{"OnCancel", "callback -1, id -1, closed"}));
    });
    QTest::newRow("Return presses the default button") << Promise([] {
        HostBaseDialog dialog;
        QPushButton button(&dialog);
        button.setDefault(true);
        QSignalSpy clicked(&button, &QPushButton::clicked);
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Return);
        QCOMPARE(clicked.size(), 1);
        QCOMPARE(dialog.log, QStringList());
    });
    QTest::newRow("Enter presses the default button") << Promise([] {
        HostBaseDialog dialog;
        QPushButton button(&dialog);
        button.setDefault(true);
        QSignalSpy clicked(&button, &QPushButton::clicked);
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Enter);
        QCOMPARE(clicked.size(), 1);
    });
    QTest::newRow("other keys end nothing") << Promise([] {
        HostBaseDialog dialog;
        dialog.show();
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_Return, Qt::Key_F1, Qt::Key_Backspace})
            QTest::keyClick(&dialog, key);
        QCOMPARE(dialog.log, QStringList());
        QVERIFY(dialog.isVisible());
    });
}

void DialogBasesTest::baseDialogCentred_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("withParent");

    QTest::newRow("200 x 100") << QSize(200, 100) << false;
    QTest::newRow("301 x 151") << QSize(301, 151) << false;
    QTest::newRow("200 x 100, parent in a corner") << QSize(200, 100) << true;
}

void DialogBasesTest::baseDialogCentred()
{
    QFETCH(QSize, size);
    QFETCH(bool, withParent);
    QWidget parent;
    parent.setGeometry(0, 0, 50, 50);
    parent.show();
    HostBaseDialog dialog(withParent ? &parent : nullptr);
    dialog.resize(size);
    dialog.move(1, 2);
    const QPoint centre = QGuiApplication::primaryScreen()->availableGeometry().center()
        - QRect(QPoint(0, 0), size).center();
    dialog.show();
    QCOMPARE(dialog.size(), size);
    QCOMPARE(dialog.pos(), centre);
    dialog.move(3, 4);
    QCOMPARE(dialog.pos(), QPoint(3, 4));
    dialog.hide();
    dialog.show();
    QCOMPARE(dialog.pos(), centre); // At every show.
}

void DialogBasesTest::baseDialogExec_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("endById(7) in a run: result 1, callback with 7, then -1 again") << Promise([] {
        HostBaseDialog dialog;
        QCOMPARE(exec(dialog, [&] { dialog.endById(7); }), 1);
        QCOMPARE(dialog.log, (QStringList{"accept, id -1", "callback 7, id 7, closed"}));
        QCOMPARE(dialog.m_endId, -1);
    });
    QTest::newRow("a rejected run: result 0, callback with -1") << Promise([] {
        HostBaseDialog dialog;
        QCOMPARE(exec(dialog, [&] { dialog.reject(); }), 0);
        QCOMPARE(dialog.log, (QStringList{"reject", "callback -1, id -1, closed"}));
        QCOMPARE(dialog.m_endId, -1);
    });
    QTest::newRow("done(5) in a run: result 5, callback with -1") << Promise([] {
        HostBaseDialog dialog;
        QCOMPARE(exec(dialog, [&] { dialog.done(5); }), 5);
        QCOMPARE(dialog.log, QStringList{"callback -1, id -1, closed"});
    });
    QTest::newRow("an identifier from before the run is forgotten when it starts") << Promise([] {
        HostBaseDialog dialog;
        dialog.endById(7);
        QCOMPARE(dialog.m_endId, 7);
        dialog.log.clear();
        exec(dialog, [&] {
            QCOMPARE(dialog.m_endId, -1);
            dialog.done(0);
        });
        QCOMPARE(dialog.log, QStringList{"callback -1, id -1, closed"});
    });
    QTest::newRow("the second of two runs has its own identifier") << Promise([] {
        HostBaseDialog dialog;
        exec(dialog, [&] { dialog.endById(7); });
        dialog.log.clear();
        exec(dialog, [&] { dialog.endById(8); });
        QCOMPARE(dialog.log, (QStringList{"accept, id -1", "callback 8, id 8, closed"}));
    });
    QTest::newRow("endById keeps its identifier even when accept() refuses") << Promise([] {
        HostBaseDialog dialog;
        dialog.refuses = true;
        exec(dialog, [&] {
            dialog.endById(7);
            QVERIFY(dialog.isVisible());
            dialog.done(0);
        });
        QCOMPARE(dialog.log, (QStringList{"accept, id -1", "callback 7, id 7, closed"}));
    });
    QTest::newRow("endById in the run of a CDialog gives 1") << Promise([] {
        HostBaseDialog widget;
        CDialog dialog;
        dialog.Attach(handleOf(&widget));
        QCOMPARE(doModal(dialog, [&] { widget.endById(7); }), INT_PTR(1));
        QCOMPARE(widget.log, (QStringList{"accept, id -1", "callback 7, id 7, closed"}));
    });
}

void DialogBasesTest::hostBases_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("CRmUiDialog(102, parent) is a CDialog with that parent") << Promise([] {
        QDialog widget;
        CWnd parent(nullptr);
        CRmUiDialog dialog(102u, &parent);
        dialog.Attach(handleOf(&widget));
        QVERIFY(dialog.GetParent() == &parent);
        QCOMPARE(dialog.m_nModalResult, -100);
        QCOMPARE(doModal(dialog, [&] { dialog.EndDialog(5); }), INT_PTR(5));
    });
    QTest::newRow("CTnUiDialog(102, parent) is a CRmUiDialog with that parent") << Promise([] {
        static_assert(std::is_base_of_v<CRmUiDialog, CTnUiDialog>);
        QDialog widget;
        CWnd parent(nullptr);
        CTnUiDialog dialog(102u, &parent);
        dialog.Attach(handleOf(&widget));
        QVERIFY(dialog.GetParent() == &parent);
        QCOMPARE(doModal(dialog, [&] { dialog.EndDialog(5); }), INT_PTR(5));
    });
    QTest::newRow("CTnUiTabChildDialog(102, parent) is a CTnUiDialog with that parent") << Promise([] {
        static_assert(std::is_base_of_v<CTnUiDialog, CTnUiTabChildDialog>);
        QWidget widget;
        CWnd parent(nullptr);
        CTnUiTabChildDialog page(102u, &parent);
        page.Attach(handleOf(&widget));
        QVERIFY(page.GetParent() == &parent);
    });
    QTest::newRow("the members of the host's bases that do nothing leave the dialog as it is") << Promise([] {
        QDialog widget;
        widget.setGeometry(10, 20, 30, 40);
        CTnUiDialog dialog(102u, nullptr);
        dialog.Attach(handleOf(&widget));
        dialog.BeginEditorCommand();
        dialog.CompleteEditorCommand();
        dialog.SetDialogName(L"name");
        dialog.OnSize(0, 100, 100);
        CRect rect(1, 2, 3, 4);
        dialog.OnSizing(1, &rect);
        QVERIFY(rect.left == 1 && rect.top == 2 && rect.right == 3 && rect.bottom == 4);
        QCOMPARE(widget.geometry(), QRect(10, 20, 30, 40));
        QCOMPARE(widget.windowTitle(), QString());
        QCOMPARE(widget.objectName(), QString());
        QCOMPARE(dialog.m_nModalResult, -100);
    });
}

void DialogBasesTest::setDirty_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("SetDirty(true) enables control 1501 of the parent") << Promise([] {
        TabbedDialog tabbed;
        tabbed.apply.setEnabled(false);
        tabbed.page.SetDirty(true);
        QVERIFY(tabbed.apply.isEnabled());
        QCOMPARE(tabbed.page.focusCalls, 0);
    });
    QTest::newRow("SetDirty(false) disables control 1501 of the parent") << Promise([] {
        TabbedDialog tabbed;
        tabbed.page.SetDirty(false);
        QVERIFY(!tabbed.apply.isEnabled());
        QCOMPARE(tabbed.page.focusCalls, 0); // It had no focus to give away.
        QVERIFY(QApplication::focusWidget() == &tabbed.edit);
    });
    QTest::newRow("SetDirty(false) first moves the focus of control 1501 to the page") << Promise([] {
        TabbedDialog tabbed;
        tabbed.dialog.GetDlgItem(applyId)->SetFocus();
        QVERIFY(QApplication::focusWidget() == &tabbed.apply);
        tabbed.page.SetDirty(false);
        QCOMPARE(tabbed.page.focusCalls, 1);
        QVERIFY(tabbed.page.applyEnabledAtFocus);
        QVERIFY(QApplication::focusWidget() == &tabbed.pageWidget);
        QVERIFY(!tabbed.apply.isEnabled());
    });
    QTest::newRow("SetDirty(true) leaves the focus of control 1501") << Promise([] {
        TabbedDialog tabbed;
        tabbed.apply.setFocus();
        tabbed.page.SetDirty(true);
        QCOMPARE(tabbed.page.focusCalls, 0);
        QVERIFY(QApplication::focusWidget() == &tabbed.apply);
        QVERIFY(tabbed.apply.isEnabled());
    });
    QTest::newRow("SetDirty of a page without parent changes nothing") << Promise([] {
        TabbedDialog tabbed;
        tabbed.apply.setFocus();
        tabbed.page.SetParent(nullptr);
        tabbed.page.SetDirty(false);
        QVERIFY(tabbed.apply.isEnabled());
        QCOMPARE(tabbed.page.focusCalls, 0);
    });
    QTest::newRow("SetDirty of an unbound page changes nothing") << Promise([] {
        TabbedDialog tabbed;
        Page page(102u, &tabbed.dialog);
        page.SetDirty(false);
        QVERIFY(tabbed.apply.isEnabled());
        QCOMPARE(page.focusCalls, 0);
    });
    QTest::newRow("SetDirty under a parent without control 1501 changes nothing") << Promise([] {
        TabbedDialog tabbed;
        QDialog widget;
        CDialog other;
        other.Attach(handleOf(&widget));
        other.SetDlgItem(1500, handleOf(&tabbed.apply));
        tabbed.page.SetParent(&other);
        tabbed.apply.setFocus();
        tabbed.page.SetDirty(false);
        QVERIFY(tabbed.apply.isEnabled());
        QVERIFY(widget.isEnabled());
        QCOMPARE(tabbed.page.focusCalls, 0);
    });
    QTest::newRow("SetDirty through null and small pointers returns") << Promise(
        []() KX_CALLS_THROUGH_SMALL_POINTER {
            TabbedDialog tabbed;
            for (const quintptr pointer : {quintptr(0), quintptr(5), quintptr(4095)})
                reinterpret_cast<CTnUiTabChildDialog *>(pointer)->SetDirty(false);
            QVERIFY(tabbed.apply.isEnabled());
        });
}

void DialogBasesTest::inertMembers()
{
    TabbedDialog tabbed;
    QWidget *focus = QApplication::focusWidget();
    QVERIFY(focus == &tabbed.edit);
    tabbed.dialog.GotoDlgCtrl(tabbed.dialog.GetDlgItem(applyId));
    tabbed.dialog.OnHScroll(0, 5, nullptr);
    QVERIFY(QApplication::focusWidget() == focus);
    QCOMPARE(tabbed.dialog.m_nModalResult, -100);
}

KX_TEST_MAIN(DialogBasesTest)
#include "tst_dialog_bases.moc"
