// SPDX-License-Identifier: MIT
// Dialog objects over QDialog: their life, modal runs and results.

#include "KxModalRun.h"
#include "KxTestCase.h"

#include <QtWidgets/QDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <afxwin.h>

#include <KxAfxWinPrivate.h>
#include <KxQBaseDialog.h>

#include <climits>
#include <type_traits>

/// A caller that goes through a pointer to no object, on purpose.
#define KX_CALLS_THROUGH_SMALL_POINTER __attribute__((no_sanitize("undefined")))

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

class HostDialog;
using Step = void (*)(HostDialog &dialog, QDialog &widget);
Q_DECLARE_METATYPE(Step)

namespace {

HWND handleOf(QWidget *widget)
{
    return KxHwndFromWidget(widget);
}

} // namespace

/// Writes down what is called, in order.
class HostDialog : public CDialog
{
public:
    using CDialog::CDialog;
    HostDialog() = default;

    BOOL OnInitDialog() override
    {
        log.append(QStringLiteral("init"));
        if (resultAtInit != noResult)
            EndDialog(resultAtInit);
        CDialog::OnInitDialog();
        return initResult;
    }

    void DoDataExchange(CDataExchange *exchange) override
    {
        log.append(exchange->m_bSave ? QStringLiteral("save") : QStringLiteral("load"));
        if (exchange->m_bSave && failing)
            exchange->Fail();
    }

    static constexpr int noResult = INT_MIN;

    QStringList log;
    bool initResult = true;
    bool failing = false;
    int resultAtInit = noResult;
};

namespace {

/// Counts calls of the virtual ways out.
class CountingDialog : public QDialog
{
public:
    void accept() override
    {
        ++accepts;
        QDialog::accept();
    }
    void reject() override
    {
        ++rejects;
        QDialog::reject();
    }

    int accepts = 0;
    int rejects = 0;
};

/// Runs no loop and answers a fixed result.
class AnsweringDialog : public QDialog
{
public:
    explicit AnsweringDialog(int result) : m_result(result) {}

    int exec() override
    {
        ++runs;
        return m_result;
    }

    int runs = 0;

private:
    int m_result;
};

INT_PTR doModal(CDialog &dialog, const std::function<void()> &step)
{
    return kxRunModal([&dialog] { return dialog.DoModal(); }, step);
}

class LargerBlock : public CDialogPrivate
{
public:
    int mine = 7;
};

class LargerDialog : public CDialog
{
public:
    LargerDialog(LargerBlock &block, CWnd *parent) : CDialog(block, parent) {}
};

} // namespace

class DialogsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void construction_data();
    void construction() { runPromise(); }
    void create_data();
    void create() { runPromise(); }
    void modalResult_data();
    void modalResult();
    void execResult_data();
    void execResult();
    void modalRun_data();
    void modalRun() { runPromise(); }
    void endings_data();
    void endings() { runPromise(); }
    void hooks_data();
    void hooks() { runPromise(); }

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

void DialogsTest::construction_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("CDialog() has result -100, a dialog's block and no parent") << Promise([] {
        QDialog widget;
        CDialog dialog;
        QCOMPARE(dialog.m_nModalResult, -100);
        QVERIFY(dialog.GetSafeHwnd() == nullptr);
        const auto *block = dynamic_cast<CDialogPrivate *>(dialog.d_func());
        QVERIFY(block != nullptr);
        QCOMPARE(block->m_isDialog, 1);
        dialog.Attach(handleOf(&widget));
        QVERIFY(dialog.GetParent() == nullptr);
    });
    QTest::newRow("CDialog(102, parent) ignores the identifier and keeps the parent") << Promise([] {
        QDialog widget;
        CWnd parent(nullptr);
        CDialog dialog(102u, &parent);
        QCOMPARE(dialog.m_nModalResult, -100);
        QVERIFY(dynamic_cast<CDialogPrivate *>(dialog.d_func()) != nullptr);
        dialog.Attach(handleOf(&widget));
        QVERIFY(dialog.GetParent() == &parent);
        QCOMPARE(dialog.GetDlgCtrlID(), -1);
    });
    QTest::newRow("CDialog(L\"NAME\", parent) ignores the name and keeps the parent") << Promise([] {
        QDialog widget;
        CWnd parent(nullptr);
        CDialog dialog(L"NAME", &parent);
        QCOMPARE(dialog.m_nModalResult, -100);
        QVERIFY(dynamic_cast<CDialogPrivate *>(dialog.d_func()) != nullptr);
        dialog.Attach(handleOf(&widget));
        QVERIFY(dialog.GetParent() == &parent);
        QCOMPARE(widget.windowTitle(), QString());
    });
    QTest::newRow("the parent argument may be left out") << Promise([] {
        QDialog first;
        QDialog second;
        CDialog byId(102u);
        CDialog byName(static_cast<const wchar_t *>(nullptr));
        byId.Attach(handleOf(&first));
        byName.Attach(handleOf(&second));
        QVERIFY(byId.GetParent() == nullptr);
        QVERIFY(byName.GetParent() == nullptr);
    });
    QTest::newRow("a derived class may bring a larger private block") << Promise([] {
        QDialog widget;
        CWnd parent(nullptr);
        auto *block = new LargerBlock;
        LargerDialog dialog(*block, &parent);
        QVERIFY(dialog.d_func() == block);
        QVERIFY(block->q == &dialog);
        QCOMPARE(block->m_isDialog, 1);
        QCOMPARE(block->mine, 7);
        QCOMPARE(dialog.m_nModalResult, -100);
        dialog.Attach(handleOf(&widget));
        QVERIFY(dialog.GetParent() == &parent);
    });
    QTest::newRow("a dialog outlived by its widget leaves it alone") << Promise([] {
        QPointer<QDialog> widget = new QDialog;
        {
            CDialog dialog;
            dialog.Attach(handleOf(widget));
        }
        QVERIFY(!widget.isNull());
        delete widget;
    });
    QTest::newRow("SetAutoDelete(true, true): the widget goes with its dialog") << Promise([] {
        QPointer<QDialog> widget = new QDialog;
        {
            CDialog dialog;
            dialog.Attach(handleOf(widget));
            dialog.SetAutoDelete(true, true);
        }
        QVERIFY(widget.isNull());
    });
    QTest::newRow("the temporary wrappers of controls go with their dialog") << Promise([] {
        QDialog widget;
        QLineEdit edit(&widget);
        {
            CDialog dialog;
            dialog.Attach(handleOf(&widget));
            dialog.SetDlgItem(7, handleOf(&edit));
            QVERIFY(dialog.GetDlgItem(7) == CWnd::FromHandle(handleOf(&edit)));
        }
        QVERIFY(CWnd::FromHandle(handleOf(&edit)) == nullptr);
    });
}

void DialogsTest::create_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("Create without a widget is FALSE, calls nothing and keeps no parent") << Promise([] {
        QDialog widget;
        CWnd parent(nullptr);
        HostDialog dialog;
        QCOMPARE(dialog.Create(102u, &parent), false);
        QCOMPARE(dialog.Create(L"NAME", &parent), false);
        QCOMPARE(dialog.log, QStringList());
        dialog.Attach(handleOf(&widget));
        QVERIFY(dialog.GetParent() == nullptr);
    });
    QTest::newRow("Create of an orphan is FALSE") << Promise([] {
        QDialog widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        CWnd owner(nullptr);
        owner.Attach(handleOf(&widget));
        QCOMPARE(dialog.Create(102u), false);
        QCOMPARE(dialog.log, QStringList());
    });
    QTest::newRow("Create(102, parent) is TRUE, keeps the parent, loads, shows nothing") << Promise([] {
        QDialog widget;
        CWnd parent(nullptr);
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        const int widgets = QApplication::allWidgets().size();
        QCOMPARE(dialog.Create(102u, &parent), true);
        QVERIFY(dialog.GetParent() == &parent);
        QCOMPARE(dialog.log, (QStringList{"init", "load"}));
        QVERIFY(!widget.isVisible());
        QCOMPARE(QApplication::allWidgets().size(), widgets);
    });
    QTest::newRow("Create(L\"NAME\", parent) does the same") << Promise([] {
        QDialog widget;
        CWnd parent(nullptr);
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        QCOMPARE(dialog.Create(L"NAME", &parent), true);
        QVERIFY(dialog.GetParent() == &parent);
        QCOMPARE(dialog.log, (QStringList{"init", "load"}));
        QVERIFY(!widget.isVisible());
    });
    QTest::newRow("Create without a parent argument replaces the parent by none") << Promise([] {
        QDialog widget;
        CWnd parent(nullptr);
        HostDialog dialog(102u, &parent);
        dialog.Attach(handleOf(&widget));
        QCOMPARE(dialog.Create(102u), true);
        QVERIFY(dialog.GetParent() == nullptr);
    });
    QTest::newRow("Create is TRUE when OnInitDialog answers FALSE") << Promise([] {
        QDialog widget;
        HostDialog dialog;
        dialog.initResult = false;
        dialog.Attach(handleOf(&widget));
        QCOMPARE(dialog.Create(102u), true);
        QCOMPARE(dialog.log, (QStringList{"init", "load"}));
    });
    QTest::newRow("Create needs a widget, not a QDialog") << Promise([] {
        QWidget widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        QCOMPARE(dialog.Create(102u), true);
        QCOMPARE(dialog.log, (QStringList{"init", "load"}));
    });
    QTest::newRow("the parent is known when OnInitDialog runs") << Promise([] {
        class AskingDialog : public CDialog
        {
        public:
            BOOL OnInitDialog() override
            {
                parentAtInit = GetParent();
                return TRUE;
            }
            CWnd *parentAtInit = nullptr;
        };
        QDialog widget;
        CWnd parent(nullptr);
        AskingDialog dialog;
        dialog.Attach(handleOf(&widget));
        dialog.Create(102u, &parent);
        QVERIFY(dialog.parentAtInit == &parent);
    });
    QTest::newRow("the Create of every window is still there: TRUE, calls nothing") << Promise([] {
        HostDialog dialog;
        QCOMPARE(dialog.Create(L"CLASS", L"text", 0, CRect(0, 0, 1, 1), nullptr, 7), true);
        QCOMPARE(dialog.log, QStringList());
    });
}

void DialogsTest::modalResult_data()
{
    QTest::addColumn<Step>("step");
    QTest::addColumn<int>("result");

    const auto end = [](const char *name, Step step, int result) { QTest::newRow(name) << step << result; };
    end("EndDialog(5) gives 5", [](HostDialog &dialog, QDialog &) { dialog.EndDialog(5); }, 5);
    end("EndDialog(0) gives 0", [](HostDialog &dialog, QDialog &) { dialog.EndDialog(0); }, 0);
    end("EndDialog(1) gives 1", [](HostDialog &dialog, QDialog &) { dialog.EndDialog(1); }, 1);
    end("EndDialog(2) gives 2", [](HostDialog &dialog, QDialog &) { dialog.EndDialog(2); }, 2);
    end("EndDialog(-1) gives -1", [](HostDialog &dialog, QDialog &) { dialog.EndDialog(-1); }, -1);
    end("EndDialog(-99) gives -99", [](HostDialog &dialog, QDialog &) { dialog.EndDialog(-99); }, -99);
    end("EndDialog(-100) reads as no result and gives 1",
        [](HostDialog &dialog, QDialog &) { dialog.EndDialog(-100); }, 1);
    end("EndDialog(2147483647) gives 2147483647",
        [](HostDialog &dialog, QDialog &) { dialog.EndDialog(INT_MAX); }, INT_MAX);
    end("OnOK gives 1", [](HostDialog &dialog, QDialog &) { dialog.OnOK(); }, 1);
    end("OnCancel gives 2", [](HostDialog &dialog, QDialog &) { dialog.OnCancel(); }, 2);
    end("accept() of the widget gives 1", [](HostDialog &, QDialog &widget) { widget.accept(); }, 1);
    end("reject() of the widget gives 2", [](HostDialog &, QDialog &widget) { widget.reject(); }, 2);
    end("done(7) of the widget gives 2", [](HostDialog &, QDialog &widget) { widget.done(7); }, 2);
    end("closing the widget gives 2", [](HostDialog &, QDialog &widget) { widget.close(); }, 2);
    end("hiding the widget gives 2", [](HostDialog &, QDialog &widget) { widget.hide(); }, 2);
    end("the Escape key gives 2",
        [](HostDialog &, QDialog &widget) { QTest::keyClick(&widget, Qt::Key_Escape); }, 2);
}

void DialogsTest::modalResult()
{
    QFETCH(Step, step);
    QFETCH(int, result);
    static_assert(std::is_same_v<decltype(std::declval<CDialog>().DoModal()), INT_PTR>);
    static_assert(sizeof(INT_PTR) == 8);
    {
        QDialog widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        QCOMPARE(doModal(dialog, [&] { step(dialog, widget); }), INT_PTR(result));
        QVERIFY(!widget.isVisible());
    }
    {
        QBaseDialog widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        QCOMPARE(doModal(dialog, [&] { step(dialog, widget); }), INT_PTR(result));
        QVERIFY(!widget.isVisible());
    }
}

void DialogsTest::execResult_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<int>("result");

    QTest::newRow("exec() 1 gives 1") << 1 << 1;
    QTest::newRow("exec() 0 gives 2") << 0 << 2;
    QTest::newRow("exec() 2 gives 2") << 2 << 2;
    QTest::newRow("exec() -1 gives 2") << -1 << 2;
    QTest::newRow("exec() -100 gives 2") << -100 << 2;
    QTest::newRow("exec() 7 gives 2") << 7 << 2;
}

void DialogsTest::execResult()
{
    QFETCH(int, answer);
    QFETCH(int, result);
    AnsweringDialog widget(answer);
    HostDialog dialog;
    dialog.Attach(handleOf(&widget));
    QCOMPARE(dialog.DoModal(), INT_PTR(result));
    QCOMPARE(widget.runs, 1);
    QCOMPARE(dialog.log, (QStringList{"init", "load"}));
}

void DialogsTest::modalRun_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("DoModal without a widget is 0 and calls nothing") << Promise([] {
        HostDialog dialog;
        QCOMPARE(dialog.DoModal(), INT_PTR(0));
        QCOMPARE(dialog.log, QStringList());
    });
    QTest::newRow("DoModal over a widget that is no QDialog is 0 and calls nothing") << Promise([] {
        QWidget widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        QCOMPARE(dialog.DoModal(), INT_PTR(0));
        QCOMPARE(dialog.log, QStringList());
        QVERIFY(!widget.isVisible());
    });
    QTest::newRow("DoModal of an orphan is 0 and calls nothing") << Promise([] {
        QDialog widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        CWnd owner(nullptr);
        owner.Attach(handleOf(&widget));
        QCOMPARE(dialog.DoModal(), INT_PTR(0));
        QCOMPARE(dialog.log, QStringList());
    });
    QTest::newRow("the order of a run: init, load, loop, save") << Promise([] {
        QDialog widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        const INT_PTR result = doModal(dialog, [&] {
            QCOMPARE(dialog.log, (QStringList{"init", "load"}));
            QVERIFY(widget.isVisible());
            QVERIFY(widget.isModal());
            dialog.log.append(QStringLiteral("loop"));
            dialog.OnOK();
        });
        QCOMPARE(result, INT_PTR(IDOK));
        QCOMPARE(dialog.log, (QStringList{"init", "load", "loop", "save"}));
        QCOMPARE(dialog.m_nModalResult, 1);
    });
    QTest::newRow("a run whose OnInitDialog answers FALSE goes on") << Promise([] {
        QDialog widget;
        HostDialog dialog;
        dialog.initResult = false;
        dialog.Attach(handleOf(&widget));
        QCOMPARE(doModal(dialog, [&] { dialog.EndDialog(5); }), INT_PTR(5));
    });
    QTest::newRow("the result is -100 during a run, also the second") << Promise([] {
        QDialog widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        QCOMPARE(doModal(dialog, [&] { dialog.EndDialog(5); }), INT_PTR(5));
        QCOMPARE(dialog.m_nModalResult, 5);
        const INT_PTR second = doModal(dialog, [&] {
            QCOMPARE(dialog.m_nModalResult, -100);
            widget.reject();
        });
        QCOMPARE(second, INT_PTR(2)); // The 5 of the first run is forgotten.
    });
    QTest::newRow("EndDialog(9) in OnInitDialog: the loop still runs, the result is 9") << Promise([] {
        CountingDialog widget;
        HostDialog dialog;
        dialog.resultAtInit = 9;
        dialog.Attach(handleOf(&widget));
        bool ran = false;
        const INT_PTR result = doModal(dialog, [&] {
            ran = true;
            widget.reject();
        });
        QVERIFY(ran);
        QCOMPARE(widget.accepts, 1);
        QCOMPARE(result, INT_PTR(9));
    });
    QTest::newRow("an OnOK whose exchange fails leaves the dialog open, the result -100") << Promise([] {
        CountingDialog widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        dialog.failing = true;
        const INT_PTR result = doModal(dialog, [&] {
            dialog.OnOK();
            QVERIFY(widget.isVisible());
            QCOMPARE(widget.accepts, 0);
            QCOMPARE(dialog.m_nModalResult, -100);
            dialog.failing = false;
            dialog.OnOK();
            QVERIFY(!widget.isVisible());
        });
        QCOMPARE(result, INT_PTR(1));
        QCOMPARE(dialog.log, (QStringList{"init", "load", "save", "save"}));
    });
    QTest::newRow("a dialog inside a dialog: each has its own result") << Promise([] {
        QDialog outerWidget;
        QDialog innerWidget;
        HostDialog outer;
        HostDialog inner;
        outer.Attach(handleOf(&outerWidget));
        inner.Attach(handleOf(&innerWidget));
        INT_PTR innerResult = 0;
        const INT_PTR outerResult = doModal(outer, [&] {
            innerResult = doModal(inner, [&] { inner.EndDialog(5); });
            outer.EndDialog(7);
        });
        QCOMPARE(innerResult, INT_PTR(5));
        QCOMPARE(outerResult, INT_PTR(7));
    });
    QTest::newRow("values go to the controls before the loop and back with OnOK") << Promise([] {
        class NameDialog : public CDialog
        {
        public:
            void DoDataExchange(CDataExchange *exchange) override { DDX_Text(exchange, 7, name); }
            CStdStr<wchar_t> name = L"before";
        };
        QBaseDialog widget;
        QLineEdit edit(&widget);
        QPushButton ok(&widget);
        ok.setDefault(true);
        NameDialog dialog;
        dialog.Attach(handleOf(&widget));
        dialog.SetDlgItem(7, handleOf(&edit));
        QObject::connect(&ok, &QPushButton::clicked, [&dialog] { dialog.OnOK(); });
        const INT_PTR result = doModal(dialog, [&] {
            QCOMPARE(edit.text(), QStringLiteral("before"));
            edit.clear();
            QTest::keyClicks(&edit, QStringLiteral("after"));
            QTest::keyClick(&edit, Qt::Key_Return); // On to the default button.
        });
        QCOMPARE(result, INT_PTR(IDOK));
        QCOMPARE(QString::fromStdWString(dialog.name), QStringLiteral("after"));
    });
}

void DialogsTest::endings_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("OnCancel calls the virtual reject(), exchanges and stores nothing") << Promise([] {
        CountingDialog widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        dialog.OnCancel();
        QCOMPARE(widget.rejects, 1);
        QCOMPARE(widget.accepts, 0);
        QCOMPARE(dialog.m_nModalResult, -100);
        QCOMPARE(dialog.log, QStringList());
    });
    QTest::newRow("EndDialog(2) stores 2 and calls the virtual accept(), not reject()") << Promise([] {
        CountingDialog widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        dialog.EndDialog(2);
        QCOMPARE(dialog.m_nModalResult, 2);
        QCOMPARE(widget.accepts, 1);
        QCOMPARE(widget.rejects, 0);
        QCOMPARE(widget.result(), 1);
    });
    QTest::newRow("the result is stored before accept() runs") << Promise([] {
        class AskingWidget : public QDialog
        {
        public:
            explicit AskingWidget(CDialog *object) : m_object(object) {}
            void accept() override { resultAtAccept = m_object->m_nModalResult; }
            int resultAtAccept = 0;

        private:
            CDialog *m_object;
        };
        HostDialog dialog;
        AskingWidget widget(&dialog);
        dialog.Attach(handleOf(&widget));
        dialog.EndDialog(5);
        QCOMPARE(widget.resultAtAccept, 5);
    });
    QTest::newRow("OnOK outside a run saves and stores 1") << Promise([] {
        CountingDialog widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        dialog.OnOK();
        QCOMPARE(dialog.log, QStringList{"save"});
        QCOMPARE(dialog.m_nModalResult, 1);
        QCOMPARE(widget.accepts, 1);
    });
    QTest::newRow("without a widget OnCancel and EndDialog store nothing") << Promise([] {
        HostDialog dialog;
        dialog.OnCancel();
        dialog.EndDialog(5);
        QCOMPARE(dialog.m_nModalResult, -100);
        QCOMPARE(dialog.log, QStringList());
    });
    QTest::newRow("over no QDialog OnCancel and EndDialog store and close nothing") << Promise([] {
        QWidget widget;
        widget.show();
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        dialog.OnCancel();
        dialog.EndDialog(5);
        QCOMPARE(dialog.m_nModalResult, -100);
        QVERIFY(widget.isVisible());
    });
    QTest::newRow("an orphan ends nothing") << Promise([] {
        CountingDialog widget;
        HostDialog dialog;
        dialog.Attach(handleOf(&widget));
        CWnd owner(nullptr);
        owner.Attach(handleOf(&widget));
        dialog.OnCancel();
        dialog.EndDialog(5);
        QCOMPARE(dialog.m_nModalResult, -100);
        QCOMPARE(widget.accepts + widget.rejects, 0);
    });
    QTest::newRow("EndDialog through null and small pointers returns") << Promise(
        []() KX_CALLS_THROUGH_SMALL_POINTER {
            CountingDialog widget;
            for (const quintptr pointer : {quintptr(0), quintptr(5), quintptr(4095)})
                reinterpret_cast<CDialog *>(pointer)->EndDialog(5);
            QCOMPARE(widget.accepts, 0);
        });
}

void DialogsTest::hooks_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("OnInitDialog loads once and is TRUE") << Promise([] {
        HostDialog dialog;
        QCOMPARE(dialog.CDialog::OnInitDialog(), true);
        QCOMPARE(dialog.log, QStringList{"load"});
    });
    QTest::newRow("OnNotify is TRUE and leaves the result") << Promise([] {
        CDialog dialog;
        LRESULT result = 42;
        QCOMPARE(dialog.OnNotify(1, 2, &result), true);
        QCOMPARE(result, 42L);
        QCOMPARE(dialog.OnNotify(0, 0, nullptr), true);
    });
    QTest::newRow("OnHelpInfo is FALSE") << Promise([] {
        CDialog dialog;
        QCOMPARE(dialog.OnHelpInfo(nullptr), false);
    });
}

KX_TEST_MAIN(DialogsTest)
#include "tst_dialogs.moc"
