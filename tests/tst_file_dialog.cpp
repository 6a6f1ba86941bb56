// SPDX-License-Identifier: MIT
// CFileDialog: what its arguments set on the QFileDialog behind it, and what a run gives.

#include "KxClassLayout.h"
#include "KxFileDialogRun.h"
#include "KxFileSandbox.h"
#include "KxTestCase.h"
#include "KxTextRows.h"

#include <afxdlgs.h>
#include <afxwin.h>

#include <QtCore/QPointer>

#include <memory>
#include <type_traits>

using MakeDialog = std::function<CFileDialog *()>;
Q_DECLARE_METATYPE(MakeDialog)
Q_DECLARE_METATYPE(QFileDialog::AcceptMode)

namespace {

const wchar_t *const drawings = L"Drawings (*.dwg)|*.dwg|All (*.*)|*.*||";

/// The only file dialog that there is; null when there are others.
QFileDialog *onlyDialog()
{
    const QList<QFileDialog *> dialogs = allFileDialogs();
    return dialogs.size() == 1 ? dialogs.constFirst() : nullptr;
}

INT_PTR doModal(CFileDialog &dialog, const FileDialogStep &step)
{
    return runFileDialog([&dialog] { return dialog.DoModal(); }, step);
}

QString pathOf(const CFileDialog &dialog)
{
    return QString::fromStdWString(dialog.GetPathName());
}

QString nameOf(const CFileDialog &dialog)
{
    return QString::fromStdWString(dialog.GetFileName());
}

/// Everything that can be set on a file dialog.
QString settingsOf(const QFileDialog &dialog)
{
    const auto number = [](int value) { return QString::number(value); };
    return QStringList({number(dialog.acceptMode()), number(dialog.fileMode()), dialog.defaultSuffix(),
                        dialog.nameFilters().join(QLatin1Char(',')), dialog.selectedNameFilter(),
                        number(dialog.options()), number(int(dialog.windowFlags())), dialog.windowTitle(),
                        dialog.directory().path(), dialog.selectedFiles().join(QLatin1Char(',')),
                        number(dialog.viewMode()), number(int(dialog.filter())),
                        dialog.labelText(QFileDialog::FileType), dialog.labelText(QFileDialog::Accept),
                        dialog.labelText(QFileDialog::Reject), number(dialog.isModal())})
        .join(QLatin1Char('|'));
}

/// A window object bound to a widget of its own.
struct Window
{
    Window() { object.Attach(KxHwndFromWidget(widget.get())); }

    std::unique_ptr<QWidget> widget = std::make_unique<QWidget>();
    CWnd object;
};

/// A window object that gives another handle than its own.
struct Redirecting : CWnd
{
    explicit Redirecting(HWND handle) : m_given(handle) {}
    HWND GetSafeHwnd() const override { return m_given; }

private:
    HWND m_given;
};

struct WithField : CFileDialog
{
    using CFileDialog::CFileDialog;
    using CFileDialog::m_impl;
};

/// Runs without a dialog.
struct Answering : CFileDialog
{
    Answering() : CFileDialog(TRUE) {}
    INT_PTR DoModal() override { return 42; }
};

} // namespace

class tst_FileDialog : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();

    void layout_data();
    void layout();
    void flags_data();
    void flags() { layout(); }
    void tables();

    void acceptMode_data();
    void acceptMode();
    void defaultSuffix_data();
    void defaultSuffix();
    void nameFilters_data();
    void nameFilters();
    void initialName_data();
    void initialName();
    void nameAndFilters_data();
    void nameAndFilters();
    void nothingElseIsSet_data();
    void nothingElseIsSet();
    void ignoredArguments_data();
    void ignoredArguments();

    void parent_data();
    void parent() { runPromise(); }
    void run_data();
    void run() { runPromise(); }
    void pathName_data();
    void pathName() { runPromise(); }
    void lifetime_data();
    void lifetime() { runPromise(); }
};

/// The rows work on Qt's own widgets, which a desktop's dialog would take the place of.
void tst_FileDialog::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void tst_FileDialog::layout_data()
{
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("expected");

    const WithField dialog(TRUE);
    QTest::newRow("2: DoModal") << slotOf(&CFileDialog::DoModal) << 2;
    QTest::newRow("3 slots") << slotCount<CFileDialog>() << 3;
    QTest::newRow("GetPathName is not virtual") << slotOf(&CFileDialog::GetPathName) << -1;
    QTest::newRow("GetFileName is not virtual") << slotOf(&CFileDialog::GetFileName) << -1;
    QTest::newRow("a table and one field") << int(sizeof(CFileDialog)) << 16;
    QTest::newRow("the field follows the table") << offsetOf(dialog, dialog.m_impl) << 8;
    QTest::newRow("the field is a pointer") << int(sizeof dialog.m_impl) << 8;
}

void tst_FileDialog::layout()
{
    QFETCH(int, found);
    QFETCH(int, expected);
    QCOMPARE(found, expected);
}

void tst_FileDialog::flags_data()
{
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("expected");

#define ROW(name, value) QTest::newRow(#name) << int(name) << int(value)
    ROW(OFN_READONLY, 0x1);
    ROW(OFN_OVERWRITEPROMPT, 0x2);
    ROW(OFN_HIDEREADONLY, 0x4);
    ROW(OFN_NOCHANGEDIR, 0x8);
    ROW(OFN_SHOWHELP, 0x10);
    ROW(OFN_ENABLEHOOK, 0x20);
    ROW(OFN_ENABLETEMPLATE, 0x40);
    ROW(OFN_ENABLETEMPLATEHANDLE, 0x80);
    ROW(OFN_NOVALIDATE, 0x100);
    ROW(OFN_ALLOWMULTISELECT, 0x200);
    ROW(OFN_EXTENSIONDIFFERENT, 0x400);
    ROW(OFN_PATHMUSTEXIST, 0x800);
    ROW(OFN_FILEMUSTEXIST, 0x1000);
    ROW(OFN_CREATEPROMPT, 0x2000);
    ROW(OFN_SHAREAWARE, 0x4000);
    ROW(OFN_NOREADONLYRETURN, 0x8000);
    ROW(OFN_NOTESTFILECREATE, 0x10000);
    ROW(OFN_NONETWORKBUTTON, 0x20000);
    ROW(OFN_NOLONGNAMES, 0x40000);
    ROW(OFN_EXPLORER, 0x80000);
    ROW(OFN_NODEREFERENCELINKS, 0x100000);
    ROW(OFN_LONGNAMES, 0x200000);
    ROW(OFN_ENABLEINCLUDENOTIFY, 0x400000);
    ROW(OFN_ENABLESIZING, 0x800000);
    ROW(OFN_DONTADDTORECENT, 0x2000000);
    ROW(OFN_FORCESHOWHIDDEN, 0x10000000);
    ROW(OFN_EX_NOPLACESBAR, 0x1);
#undef ROW
}

void tst_FileDialog::tables()
{
    QVERIFY(std::has_virtual_destructor_v<CFileDialog>);
    const CFileDialog dialog(TRUE);
    const WithField sameCalls(TRUE);
    const Answering answering;
    QCOMPARE(differences(&sameCalls, &dialog, 3), QList<int>({0, 1}));
    QCOMPARE(differences(&answering, &dialog, 3), QList<int>({0, 1, 2}));

    Answering run;
    CFileDialog &base = run;
    QCOMPARE(base.DoModal(), INT_PTR(42));
}

void tst_FileDialog::acceptMode_data()
{
    QTest::addColumn<bool>("open");
    QTest::addColumn<QFileDialog::AcceptMode>("expected");

    QTest::newRow("true asks for a file to open") << true << QFileDialog::AcceptOpen;
    QTest::newRow("false asks for a file to save") << false << QFileDialog::AcceptSave;
}

void tst_FileDialog::acceptMode()
{
    QFETCH(bool, open);
    QFETCH(QFileDialog::AcceptMode, expected);
    const CFileDialog dialog(open, nullptr, nullptr, 0, nullptr, nullptr, 0, false);
    QVERIFY(onlyDialog());
    QCOMPARE(onlyDialog()->acceptMode(), expected);
    QCOMPARE(onlyDialog()->fileMode(), QFileDialog::AnyFile);
    QVERIFY(!onlyDialog()->isVisible());
}

void tst_FileDialog::defaultSuffix_data()
{
    QTest::addColumn<bool>("open");
    QTest::addColumn<bool>("null");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *promise, const char *given, const char *expected) {
        for (const bool open : {false, true}) {
            QTest::addRow("%s: %s", open ? "open" : "save", promise)
                << open << !given << QString::fromUtf8(given) << QString::fromUtf8(expected);
        }
    };
    row(".dwg is dwg", ".dwg", "dwg");
    row("dwg is dwg", "dwg", "dwg");
    row(".html loses its first letter", ".html", "tml");
    row("html loses its first letter", "html", "tml");
    row("a.dwg is dwg", "a.dwg", "dwg");
    row("two letters stay", "gz", "gz");
    row("one letter stays", "c", "c");
    row(".gz is gz, as QFileDialog drops the dot", ".gz", "gz");
    row("the last three of a.c are .c without the dot", "xa.c", "a.c");
    row("upper case stays", ".DWG", "DWG");
    row("letters outside ASCII are one each", u8".\u00E4\u00F6\u00FC", u8"\u00E4\u00F6\u00FC");
    row("empty is none", "", "");
    row("null is none", nullptr, "");
}

void tst_FileDialog::defaultSuffix()
{
    QFETCH(bool, open);
    QFETCH(bool, null);
    QFETCH(QString, given);
    QFETCH(QString, expected);
    const std::wstring text = wide(given);
    const CFileDialog dialog(open, null ? nullptr : text.c_str());
    QVERIFY(onlyDialog());
    QCOMPARE(onlyDialog()->defaultSuffix(), expected);
}

void tst_FileDialog::nameFilters_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *promise, const char *given, const QStringList &expected) {
        QTest::newRow(promise) << QString::fromUtf8(given) << expected;
    };
    row("two pairs and a double bar", "Drawings (*.dwg)|*.dwg|All (*.*)|*.*||",
        {QStringLiteral("Drawings (*.dwg)"), QStringLiteral("All (*.*)")});
    row("two pairs, one bar at the end", "A (*.a)|*.a|B (*.b)|*.b|",
        {QStringLiteral("A (*.a)"), QStringLiteral("B (*.b)")});
    row("two pairs, no bar at the end", "A (*.a)|*.a|B (*.b)|*.b",
        {QStringLiteral("A (*.a)"), QStringLiteral("B (*.b)")});
    row("three bars at the end", "A (*.a)|*.a|||", {QStringLiteral("A (*.a)")});
    row("many bars at the end", "A (*.a)|*.a||||||", {QStringLiteral("A (*.a)")});
    row("a description without a bar", "A (*.a)", {QStringLiteral("A (*.a)")});
    row("a last description without its pattern", "A (*.a)|*.a|B (*.b)",
        {QStringLiteral("A (*.a)"), QStringLiteral("B (*.b)")});
    row("the second piece is dropped, whatever it says", "A (*.a)|B (*.b)|C (*.c)|D (*.d)",
        {QStringLiteral("A (*.a)"), QStringLiteral("C (*.c)")});
    row("an empty first piece is skipped, and counted", "|*.a|B (*.b)|*.b", {QStringLiteral("B (*.b)")});
    row("an empty second piece is counted", "A (*.a)||B (*.b)||C (*.c)||",
        {QStringLiteral("A (*.a)"), QStringLiteral("B (*.b)"), QStringLiteral("C (*.c)")});
    row("an empty third piece is skipped, and counted", "A (*.a)|*.a||*.b|C (*.c)|*.c",
        {QStringLiteral("A (*.a)"), QStringLiteral("C (*.c)")});
    row("a bar before everything moves the descriptions to odd places", "|A (*.a)|*.a",
        {QStringLiteral("*.a")});
    row("a blank is not empty", " |x", {QString()});
    row("a piece with two semicolons is one filter", "A (*.a);;B (*.b)|*.a",
        {QStringLiteral("A (*.a);;B (*.b)")});
    row("several patterns", "Plots (*.plt *.hpgl)|*.plt;*.hpgl||", {QStringLiteral("Plots (*.plt *.hpgl)")});
    row("the same twice stays twice", "A (*.a)|*.a|A (*.a)|*.a||",
        {QStringLiteral("A (*.a)"), QStringLiteral("A (*.a)")});
    row("no parentheses", "Drawings|*.dwg||", {QStringLiteral("Drawings")});
    row("letters outside ASCII", u8"Pl\u00E4ne \U0001F600 (*.dwg)|*.dwg||",
        {QString::fromUtf8(u8"Pl\u00E4ne \U0001F600 (*.dwg)")});
    row("only a second piece", "|*.a", {});
    row("one bar", "|", {});
    row("only bars", "||||", {});
    row("empty", "", {});
    row("null", nullptr, {});
}

/// An empty list is what QFileDialog makes of one.
void tst_FileDialog::nameFilters()
{
    QFETCH(QString, given);
    QFETCH(QStringList, expected);
    for (const bool open : {true, false}) {
        const std::wstring text = wide(given);
        const CFileDialog dialog(open, nullptr, nullptr, 0, given.isNull() ? nullptr : text.c_str());
        QFileDialog *const made = onlyDialog();
        QVERIFY(made);
        QFileDialog bare;
        bare.setNameFilters(expected);
        QCOMPARE(made->nameFilters(), bare.nameFilters());
        QCOMPARE(made->selectedNameFilter(), bare.selectedNameFilter());
        if (!expected.isEmpty())
            QCOMPARE(made->nameFilters(), expected);
    }
}

void tst_FileDialog::initialName_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("shown");

    QTest::newRow("a name") << QStringLiteral("drawing1.dwg") << QStringLiteral("drawing1.dwg");
    QTest::newRow("a name without extension") << QStringLiteral("drawing1") << QStringLiteral("drawing1");
    QTest::newRow("a name with a blank")
        << QStringLiteral("my drawing.dwg") << QStringLiteral("my drawing.dwg");
    QTest::newRow("letters outside ASCII")
        << QString::fromUtf8(u8"Pl\u00E4ne \U0001F600") << QString::fromUtf8(u8"Pl\u00E4ne \U0001F600");
    QTest::newRow("a name in a folder") << QStringLiteral("plans/a.dwg") << QStringLiteral("plans/a.dwg");
    QTest::newRow("empty") << QString(QLatin1String("")) << QString();
    QTest::newRow("null") << QString() << QString();
}

void tst_FileDialog::initialName()
{
    QFETCH(QString, given);
    QFETCH(QString, shown);
    const Sandbox sandbox;
    QVERIFY(QDir().mkdir(QStringLiteral("plans")));
    for (const bool open : {true, false}) {
        const std::wstring text = wide(given);
        const CFileDialog dialog(open, L".dwg", given.isNull() ? nullptr : text.c_str());
        QFileDialog *const made = onlyDialog();
        QVERIFY(made);
        QFileDialog bare;
        bare.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
        bare.setDefaultSuffix(QStringLiteral("dwg"));
        bare.selectFile(given);
        QCOMPARE(nameEditOf(*made).text(), shown);
        QCOMPARE(made->selectedFiles(), bare.selectedFiles());
        QCOMPARE(made->directory(), bare.directory());
        QCOMPARE(pathOf(dialog), bare.selectedFiles().constFirst());
    }
}

void tst_FileDialog::nameAndFilters_data()
{
    QTest::addColumn<bool>("open");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("filters");

    const auto row = [](const char *promise, bool open, const char *name, const char *filters) {
        QTest::newRow(promise) << open << QString::fromUtf8(name) << QString::fromUtf8(filters);
    };
    row("save: plan.dxf stays with *.dwg", false, "plan.dxf", "Drawings (*.dwg)|*.dwg|All (*.*)|*.*||");
    row("save: plan.dxf stays with *.dwg alone", false, "plan.dxf", "Drawings (*.dwg)");
    row("save: plan.dxf stays with *.svf and *.dwg", false, "plan.dxf", "S (*.svf)|*.svf|D (*.dwg)|*.dwg");
    row("save: plan stays with *.dwg", false, "plan", "Drawings (*.dwg)|*.dwg||");
    row("open: plan.dxf stays with *.dwg", true, "plan.dxf", "Drawings (*.dwg)|*.dwg||");
}

/// A QFileDialog to save gives the name in its field the extension of each filter that becomes active: the
/// name comes after the filters.
void tst_FileDialog::nameAndFilters()
{
    QFETCH(bool, open);
    QFETCH(QString, name);
    QFETCH(QString, filters);
    const CFileDialog dialog(open, L".dwg", wide(name).c_str(), 0, wide(filters).c_str());
    QVERIFY(onlyDialog());
    QCOMPARE(nameEditOf(*onlyDialog()).text(), name);
}

void tst_FileDialog::nothingElseIsSet_data()
{
    QTest::addColumn<bool>("open");

    QTest::newRow("open: otherwise a QFileDialog made with nothing") << true;
    QTest::newRow("save: otherwise a QFileDialog made with nothing") << false;
}

void tst_FileDialog::nothingElseIsSet()
{
    QFETCH(bool, open);
    const CFileDialog dialog(open, L".dwg", L"drawing1", 0, drawings, nullptr, 0, false);
    QFileDialog *const made = onlyDialog();
    QVERIFY(made);
    QVERIFY(!made->parentWidget());

    QFileDialog bare(nullptr, QString(), QString(), QString());
    bare.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    bare.setDefaultSuffix(QStringLiteral("dwg"));
    bare.setNameFilters({QStringLiteral("Drawings (*.dwg)"), QStringLiteral("All (*.*)")});
    bare.selectFile(QStringLiteral("drawing1"));
    QCOMPARE(settingsOf(*made), settingsOf(bare));
}

void tst_FileDialog::ignoredArguments_data()
{
    QTest::addColumn<MakeDialog>("make");
    QTest::addColumn<bool>("open");

    const auto row = [](const char *promise, bool open, unsigned int flags, unsigned int size,
                        bool vistaStyle) {
        QTest::newRow(promise) << MakeDialog([=] {
            return new CFileDialog(open, L".dwg", L"drawing1", flags, drawings, nullptr, size, vistaStyle);
        }) << open;
    };
    row("open: flags all set", true, ~0u, 0, false);
    row("save: flags all set", false, ~0u, 0, false);
    row("open: OFN_ALLOWMULTISELECT", true, OFN_ALLOWMULTISELECT | OFN_EXPLORER, 0, false);
    row("save: no OFN_OVERWRITEPROMPT", false, OFN_HIDEREADONLY, 0, false);
    row("open: OFN_FILEMUSTEXIST", true, OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST, 0, false);
    row("a size", true, 0, 152, false);
    row("the largest size", true, 0, ~0u, false);
    row("the style", true, 0, 0, true);
    QTest::newRow("left out, they are ignored too") << MakeDialog([] {
        auto *dialog = new CFileDialog(TRUE, L".dwg", L"drawing1");
        onlyDialog()->setNameFilters({QStringLiteral("Drawings (*.dwg)"), QStringLiteral("All (*.*)")});
        return dialog;
    }) << true;
}

void tst_FileDialog::ignoredArguments()
{
    QFETCH(MakeDialog, make);
    QFETCH(bool, open);
    QString expected;
    {
        const CFileDialog plain(open, L".dwg", L"drawing1", 0, drawings, nullptr, 0, false);
        QVERIFY(onlyDialog());
        expected = settingsOf(*onlyDialog());
    }
    const std::unique_ptr<CFileDialog> dialog(make());
    QVERIFY(onlyDialog());
    QCOMPARE(settingsOf(*onlyDialog()), expected);
}

void tst_FileDialog::parent_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("null: no parent widget") << Promise([] {
        const CFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, nullptr);
        QVERIFY(onlyDialog());
        QVERIFY(!onlyDialog()->parent());
    });
    QTest::newRow("a window object: its widget is the parent") << Promise([] {
        Window window;
        const CFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, &window.object);
        QVERIFY(onlyDialog());
        QCOMPARE(onlyDialog()->parentWidget(), window.widget.get());
    });
    QTest::newRow("a window object without a widget: no parent") << Promise([] {
        CWnd unbound;
        const CFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, &unbound);
        QVERIFY(onlyDialog());
        QVERIFY(!onlyDialog()->parent());
    });
    QTest::newRow("an address below 4096 is no window object: no parent") << Promise([] {
        for (const quintptr address : {1, 8, 4095}) {
            CFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, reinterpret_cast<CWnd *>(address));
            QVERIFY(onlyDialog());
            QVERIFY(!onlyDialog()->parent());
            QCOMPARE(doModal(dialog, pressEscape), INT_PTR(0));
        }
    });
    QTest::newRow("the window object is asked through GetSafeHwnd") << Promise([] {
        QWidget other;
        Redirecting window(KxHwndFromWidget(&other));
        const CFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, &window);
        QVERIFY(onlyDialog());
        QCOMPARE(onlyDialog()->parentWidget(), &other);
    });
    QTest::newRow("a window object that another took the widget from still tells its handle") << Promise([] {
        Window window;
        CWnd heir;
        heir.Attach(KxHwndFromWidget(window.widget.get()));
        QCOMPARE(window.object.GetSafeHwnd(), KxHwndFromWidget(window.widget.get()));
        const CFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, &window.object);
        QVERIFY(onlyDialog());
        QCOMPARE(onlyDialog()->parentWidget(), window.widget.get());
    });
    QTest::newRow("with a parent it keeps its window flags, and is a window") << Promise([] {
        const auto flags = QFileDialog().windowFlags();
        Window window;
        const CFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, &window.object);
        QVERIFY(onlyDialog());
        QCOMPARE(onlyDialog()->windowFlags(), flags);
        QVERIFY(onlyDialog()->isWindow());
    });
    QTest::newRow("a child of a window as parent stays the parent") << Promise([] {
        QWidget top;
        QWidget child(&top);
        CWnd window;
        window.Attach(KxHwndFromWidget(&child));
        const CFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, &window);
        QVERIFY(onlyDialog());
        QCOMPARE(onlyDialog()->parentWidget(), &child);
    });
    QTest::newRow("the parent is blocked while it runs") << Promise([] {
        Window window;
        window.widget->show();
        BlockCount blocks(*window.widget);
        CFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, &window.object);
        QCOMPARE(doModal(dialog, pressEscape), INT_PTR(0));
        QCOMPARE(blocks.count, 1);
    });
}

void tst_FileDialog::run_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("accepted is 1") << Promise([] {
        const Sandbox sandbox;
        CFileDialog dialog(FALSE, L".dwg", L"drawing1", 0, drawings);
        QCOMPARE(doModal(dialog, pressEnter), INT_PTR(1));
    });
    QTest::newRow("rejected is 0") << Promise([] {
        CFileDialog dialog(TRUE);
        QCOMPARE(doModal(dialog, pressEscape), INT_PTR(0));
    });
    QTest::newRow("closed is 0") << Promise([] {
        CFileDialog dialog(TRUE);
        QCOMPARE(doModal(dialog, [](QFileDialog &run) { run.close(); }), INT_PTR(0));
    });
    QTest::newRow("another result of exec comes unchanged, 7") << Promise([] {
        CFileDialog dialog(TRUE);
        QCOMPARE(doModal(dialog, [](QDialog &run) { run.done(7); }), INT_PTR(7));
    });
    QTest::newRow("another result of exec comes unchanged, -1") << Promise([] {
        CFileDialog dialog(TRUE);
        QCOMPARE(doModal(dialog, [](QDialog &run) { run.done(-1); }), INT_PTR(-1));
    });
    QTest::newRow("it is the dialog of the constructor that runs, modal and visible") << Promise([] {
        CFileDialog dialog(TRUE);
        QFileDialog *const made = onlyDialog();
        QVERIFY(made);
        QVERIFY(!made->isVisible());
        doModal(dialog, lookAndCancel([made](QFileDialog &run) {
            QCOMPARE(&run, made);
            QVERIFY(run.isVisible());
            QVERIFY(run.isModal());
        }));
        QVERIFY(!made->isVisible());
    });
    QTest::newRow("another window is blocked while it runs") << Promise([] {
        QWidget other;
        other.show();
        BlockCount blocks(other);
        CFileDialog dialog(TRUE);
        doModal(dialog, pressEscape);
        QCOMPARE(blocks.count, 1);
    });
    QTest::newRow("it can run again, the same dialog") << Promise([] {
        const Sandbox sandbox;
        CFileDialog dialog(FALSE);
        QFileDialog *const made = onlyDialog();
        QCOMPARE(doModal(dialog, choose(QStringLiteral("one"))), INT_PTR(1));
        QCOMPARE(QFileInfo(pathOf(dialog)).fileName(), QStringLiteral("one"));
        QCOMPARE(doModal(dialog, [made](QFileDialog &run) {
            QCOMPARE(&run, made);
            choose(QStringLiteral("two"))(run);
        }), INT_PTR(1));
        QCOMPARE(QFileInfo(pathOf(dialog)).fileName(), QStringLiteral("two"));
        QCOMPARE(allFileDialogs().size(), 1);
    });
    QTest::newRow("an open dialog takes a name that does not exist") << Promise([] {
        const Sandbox sandbox;
        CFileDialog dialog(TRUE);
        QCOMPARE(doModal(dialog, choose(sandbox.path(QStringLiteral("nowhere")))), INT_PTR(1));
        QCOMPARE(pathOf(dialog), sandbox.path(QStringLiteral("nowhere")));
    });
    QTest::newRow("a save dialog asks before it takes a file that exists; yes is 1") << Promise([] {
        const Sandbox sandbox;
        QVERIFY(write(QStringLiteral("there.dwg"), "old"));
        CFileDialog dialog(FALSE);
        const MessageBoxAnswer answer(QMessageBox::Yes);
        QCOMPARE(doModal(dialog, choose(sandbox.path(QStringLiteral("there.dwg")))), INT_PTR(1));
        QCOMPARE(answer.count(), 1);
        QCOMPARE(pathOf(dialog), sandbox.path(QStringLiteral("there.dwg")));
        QCOMPARE(contentsOf(QStringLiteral("there.dwg")), QByteArray("old"));
    });
    QTest::newRow("a save dialog asks before it takes a file that exists; no is no end") << Promise([] {
        const Sandbox sandbox;
        QVERIFY(write(QStringLiteral("there.dwg"), "old"));
        CFileDialog dialog(FALSE);
        const MessageBoxAnswer answer(QMessageBox::No);
        QCOMPARE(doModal(dialog, [&sandbox](QFileDialog &run) {
            choose(sandbox.path(QStringLiteral("there.dwg")))(run);
            QVERIFY(run.isVisible());
            pressEscape(run);
        }), INT_PTR(0));
        QCOMPARE(answer.count(), 1);
    });
}

void tst_FileDialog::pathName_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the path of a file that was typed") << Promise([] {
        const Sandbox sandbox;
        QVERIFY(write(QStringLiteral("plan.dwg"), ""));
        CFileDialog dialog(TRUE, L".dwg", nullptr, 0, drawings);
        QVERIFY(onlyDialog());
        onlyDialog()->setDirectory(sandbox.path());
        QCOMPARE(doModal(dialog, choose(QStringLiteral("plan.dwg"))), INT_PTR(1));
        QCOMPARE(pathOf(dialog), sandbox.path(QStringLiteral("plan.dwg")));
    });
    QTest::newRow("the path of a file that was picked in the list") << Promise([] {
        const Sandbox sandbox;
        QVERIFY(write(QStringLiteral("plan.dwg"), "") && write(QStringLiteral("other.txt"), ""));
        CFileDialog dialog(TRUE, nullptr, nullptr, 0, drawings);
        QVERIFY(onlyDialog());
        onlyDialog()->setDirectory(sandbox.path());
        QCOMPARE(doModal(dialog, [](QFileDialog &run) {
            QTRY_COMPARE(listedNames(run), QStringList({QStringLiteral("plan.dwg")}));
            QAbstractItemView &list = fileListOf(run);
            list.setCurrentIndex(list.model()->index(0, 0, list.rootIndex()));
            pressEnter(run);
        }), INT_PTR(1));
        QCOMPARE(pathOf(dialog), sandbox.path(QStringLiteral("plan.dwg")));
    });
    QTest::newRow("a new name gets the default suffix") << Promise([] {
        const Sandbox sandbox;
        CFileDialog dialog(FALSE, L".dwg", nullptr, 0, drawings);
        QCOMPARE(doModal(dialog, choose(sandbox.path(QStringLiteral("plan")))), INT_PTR(1));
        QCOMPARE(pathOf(dialog), sandbox.path(QStringLiteral("plan.dwg")));
    });
    QTest::newRow("a four-letter extension comes without its first letter") << Promise([] {
        const Sandbox sandbox;
        CFileDialog dialog(FALSE, L".html");
        QCOMPARE(doModal(dialog, choose(sandbox.path(QStringLiteral("page")))), INT_PTR(1));
        QCOMPARE(pathOf(dialog), sandbox.path(QStringLiteral("page.tml")));
    });
    QTest::newRow("the first of several selected files") << Promise([] {
        const Sandbox sandbox;
        const QStringList names = {QStringLiteral("a"), QStringLiteral("b")};
        QVERIFY(write(names[0], "") && write(names[1], ""));
        CFileDialog dialog(TRUE);
        QFileDialog *const made = onlyDialog();
        QVERIFY(made);
        made->setFileMode(QFileDialog::ExistingFiles);
        made->setDirectory(sandbox.path());
        QCOMPARE(doModal(dialog, chooseSeveral(names, names)), INT_PTR(1));
        QCOMPARE(made->selectedFiles().size(), 2);
        QCOMPARE(pathOf(dialog), made->selectedFiles().constFirst());
    });
    QTest::newRow("empty when no file is selected") << Promise([] {
        const CFileDialog dialog(TRUE);
        QVERIFY(onlyDialog());
        onlyDialog()->setFileMode(QFileDialog::ExistingFile);
        QCOMPARE(onlyDialog()->selectedFiles(), QStringList());
        QVERIFY(dialog.GetPathName().empty());
    });
    QTest::newRow("after a cancel it is what the QFileDialog says") << Promise([] {
        const Sandbox sandbox;
        CFileDialog dialog(FALSE, nullptr, L"first");
        QVERIFY(onlyDialog());
        QCOMPARE(doModal(dialog, [](QFileDialog &run) {
            typeName(run, QStringLiteral("second"));
            pressEscape(run);
        }), INT_PTR(0));
        QCOMPARE(pathOf(dialog), onlyDialog()->selectedFiles().constFirst());
        QCOMPARE(QFileInfo(pathOf(dialog)).fileName(), QStringLiteral("second"));
    });
    QTest::newRow("letters outside ASCII and beyond 16 bits") << Promise([] {
        const Sandbox sandbox;
        const std::wstring path = sandbox.widePath(QString::fromUtf8(u8"Pl\u00E4ne \U0001F600.dwg"));
        const CFileDialog dialog(FALSE, nullptr, path.c_str());
        QCOMPARE(shown(dialog.GetPathName()), shown(path));
        QVERIFY(dialog.GetPathName().find(L'\U0001F600') != std::wstring::npos);
    });
    QTest::newRow("GetFileName is empty before a run") << Promise([] {
        const CFileDialog dialog(TRUE, nullptr, L"drawing1.dwg");
        QCOMPARE(nameOf(dialog), QString());
    });
    QTest::newRow("GetFileName is empty after a file was chosen") << Promise([] {
        const Sandbox sandbox;
        CFileDialog dialog(FALSE, L".dwg");
        QCOMPARE(doModal(dialog, choose(QStringLiteral("drawing1"))), INT_PTR(1));
        QVERIFY(!dialog.GetPathName().empty());
        QCOMPARE(nameOf(dialog), QString());
    });
}

void tst_FileDialog::lifetime_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("its end deletes the QFileDialog") << Promise([] {
        auto dialog = std::make_unique<CFileDialog>(TRUE);
        const QPointer<QFileDialog> made(onlyDialog());
        QVERIFY(made);
        dialog.reset();
        QVERIFY(!made);
    });
    QTest::newRow("its end deletes the QFileDialog out of the parent") << Promise([] {
        Window window;
        auto dialog = std::make_unique<CFileDialog>(TRUE, nullptr, nullptr, 0, nullptr, &window.object);
        const QPointer<QFileDialog> made(onlyDialog());
        QVERIFY(made);
        dialog.reset();
        QVERIFY(!made);
        QVERIFY(window.widget->findChildren<QFileDialog *>().isEmpty());
    });
    QTest::newRow("two dialogs have a QFileDialog each") << Promise([] {
        const CFileDialog one(TRUE, nullptr, L"one");
        const CFileDialog two(TRUE, nullptr, L"two");
        QCOMPARE(allFileDialogs().size(), 2);
        QCOMPARE(QFileInfo(pathOf(one)).fileName(), QStringLiteral("one"));
        QCOMPARE(QFileInfo(pathOf(two)).fileName(), QStringLiteral("two"));
    });
    QTest::newRow("a parent that dies first takes the QFileDialog along") << Promise([] {
        Window window;
        CFileDialog dialog(TRUE, nullptr, L"drawing1", 0, nullptr, &window.object);
        const QPointer<QFileDialog> made(onlyDialog());
        QVERIFY(made);
        window.widget.reset();
        QVERIFY(!made);
        QVERIFY(dialog.GetPathName().empty());
        QVERIFY(dialog.GetFileName().empty());
        QCOMPARE(dialog.DoModal(), INT_PTR(0));
    });
    QTest::newRow("a parent that dies after a run takes the QFileDialog along") << Promise([] {
        const Sandbox sandbox;
        Window window;
        CFileDialog dialog(FALSE, nullptr, L"drawing1", 0, nullptr, &window.object);
        QCOMPARE(doModal(dialog, pressEnter), INT_PTR(1));
        window.widget.reset();
        QVERIFY(dialog.GetPathName().empty());
    });
    QTest::newRow("a parent that dies during the run ends it with 0") << Promise([] {
        Window window;
        CFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, &window.object);
        QCOMPARE(doModal(dialog, [&window](QFileDialog &) { window.widget.reset(); }), INT_PTR(0));
        QVERIFY(dialog.GetPathName().empty());
    });
}

KX_TEST_MAIN(tst_FileDialog)
#include "tst_file_dialog.moc"
