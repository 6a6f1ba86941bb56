// SPDX-License-Identifier: MIT
// KxQtFileDialog: what a run makes of the record on the QFileDialog.

#include "KxFileDialogRun.h"
#include "KxFileSandbox.h"
#include "KxTestCase.h"

#include <afxdlgs.h>
#include <afxwin.h>

#include <QtCore/QTranslator>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>

#include <memory>

namespace {

/// A dialog with all that a run needs at least; all other texts are empty.
struct Dialog : OpenedFields
{
    explicit Dialog(bool open) : OpenedFields(open) { setFile(std::wstring()); }
};

/// Answers German for the texts of the file dialog's class.
class German : public QTranslator
{
public:
    German() { qApp->installTranslator(this); }
    ~German() override { qApp->removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (qstrcmp(context, "KxQtFileDialog") != 0)
            return QString();
        if (qstrcmp(source, "File Format:") == 0)
            return QStringLiteral("Dateiformat:");
        if (qstrcmp(source, "Cancel ") == 0)
            return QStringLiteral("Abbrechen ");
        return QString();
    }
};

/// The directory of each file dialog at the time that it appears.
class DirectoryAtShow : public QObject
{
public:
    DirectoryAtShow() { qApp->installEventFilter(this); }
    QStringList paths;

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto *dialog = event->type() == QEvent::Show ? qobject_cast<QFileDialog *>(object) : nullptr;
        if (dialog)
            paths.append(dialog->directory().path());
        return false;
    }
};

} // namespace

class tst_QtFileDialogSettings : public KxTestCase
{
    Q_OBJECT

private slots:
    void filters_data();
    void filters();
    void selectedFilter_data();
    void selectedFilter();
    void directory_data();
    void directory();
    void directoryLeftToQt_data();
    void directoryLeftToQt();
    void nullText_data();
    void nullText() { runPromise(); }
    void shownName_data();
    void shownName();
    void settings_data();
    void settings() { runPromise(); }
};

void tst_QtFileDialogSettings::filters_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QStringList>("opening");
    QTest::addColumn<QStringList>("saving");

    const auto row = [](const char *promise, const char *given, const char *opening, const char *saving) {
        const auto list = [](const char *text) { return QString::fromUtf8(text).split(QLatin1Char('|')); };
        QTest::newRow(promise) << QString::fromUtf8(given) << list(opening) << list(saving);
    };
    row("two descriptions", "Slides (*.svf);;All (*.*)", "*.svf|*.*", "Slides (*.svf)|All (*.*)");
    row("one description", "Drawing (*.dwg)", "*.dwg", "Drawing (*.dwg)");
    row("several patterns", "Plots (*.plt *.hpgl)", "*.plt *.hpgl", "Plots (*.plt *.hpgl)");
    row("no parentheses", "*.dwg;;All", "*.dwg|All", "*.dwg|All");
    row("( in front: whole", "(*.dwg);;All (*.*)", "(*.dwg)|*.*", "(*.dwg)|All (*.*)");
    row("( in front and another pair: whole", "(a) b (*.c)", "(a) b (*.c)", "(a) b (*.c)");
    row(") without ( is cut before it", "Odd x)", "Odd x", "Odd x)");
    row(") without ( is cut with what follows", "Odd) x", "Odd", "Odd) x");
    row("only ): whole", ")", ")", ")");
    row(") in front, without (: whole", ")x", ")x", ")x");
    row(") in front, then a pair: whole", ") (*.a)", ") (*.a)", ") (*.a)");
    row("( without ): whole", "Open (x", "Open (x", "Open (x");
    row(") before (: whole", "a) (b", "a) (b", "a) (b");
    row(") before a pair: whole", "a) (*.b)", "a) (*.b)", "a) (*.b)");
    row("the first pair of two", "a (*.b) (*.c)", "*.b", "a (*.b) (*.c)");
    row("the first ( and the first ) of nested ones", "a ((*.b))", "(*.b", "a ((*.b))");
    row("text behind the pair is dropped", "a (*.b) c", "*.b", "a (*.b) c");
    row("one letter before (", "a(*.b)", "*.b", "a(*.b)");
    row("nothing between the parentheses", "a ()", "", "a ()");
    row("one character between them", "a (b)", "b", "a (b)");
    row("blanks between them stay", "a ( *.b )", " *.b ", "a ( *.b )");
    row("an empty part in the middle stays", "A (*.a);;;;B (*.b)", "*.a||*.b", "A (*.a)||B (*.b)");
    row("an empty part in front stays", ";;B (*.b)", "|*.b", "|B (*.b)");
    row("an empty part at the end stays", "A (*.a);;", "*.a|", "A (*.a)|");
    row("empty is one empty part", "", "", "");
    row("one semicolon does not part", "A (*.a;*.b);B", "*.a;*.b", "A (*.a;*.b);B");
    row("three semicolons leave one", "A (*.a);;;B (*.b)", "*.a|*.b", "A (*.a)|;B (*.b)");
    row("four semicolons leave an empty part", "A;;;;B", "A||B", "A||B");
    row("letters outside ASCII", u8"Pl\u00E4ne \U0001F600 (*.\u00E4)", u8"*.\u00E4",
        u8"Pl\u00E4ne \U0001F600 (*.\u00E4)");
    row("a whole line of them", "A (*.a);;(*.b);;Odd x);;*.c;;D (*.d", "*.a|(*.b)|Odd x|*.c|D (*.d",
        "A (*.a)|(*.b)|Odd x)|*.c|D (*.d");
}

void tst_QtFileDialogSettings::filters()
{
    QFETCH(QString, given);
    QFETCH(QStringList, opening);
    QFETCH(QStringList, saving);
    for (const bool open : {true, false}) {
        const QStringList expected = open ? opening : saving;
        Dialog dialog(open);
        dialog.setFilters(wide(given));
        QStringList shown;
        QString active;
        QCOMPARE(dialog.run(lookAndCancel([&](QFileDialog &run) {
            shown = run.nameFilters();
            active = run.selectedNameFilter();
        })), INT_PTR(2));
        QCOMPARE(dialog.m_attri.filterText, given);
        QCOMPARE(dialog.m_attri.nameFilters, expected);
        QCOMPARE(dialog.m_attri.selectedFilter, expected.constFirst());

        QFileDialog bare;
        bare.setOption(QFileDialog::DontUseNativeDialog);
        bare.setFileMode(open ? QFileDialog::ExistingFiles : QFileDialog::AnyFile);
        bare.setNameFilters(expected);
        bare.selectNameFilter(expected.constFirst());
        QCOMPARE(shown, bare.nameFilters());
        QCOMPARE(active, bare.selectedNameFilter());
    }
}

void tst_QtFileDialogSettings::selectedFilter_data()
{
    QTest::addColumn<bool>("open");
    QTest::addColumn<QString>("filters");
    QTest::addColumn<uint>("index");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *promise, bool open, const char *filters, uint index,
                        const char *expected) {
        QTest::newRow(promise) << open << QString::fromUtf8(filters) << index << QString::fromUtf8(expected);
    };
    const char *const two = "Slides (*.svf);;All (*.*)";
    row("open, 0: the first", true, two, 0, "*.svf");
    row("open, 1: the first", true, two, 1, "*.svf");
    row("open, 2: the second", true, two, 2, "*.*");
    row("open, 3 of two: the first", true, two, 3, "*.svf");
    row("open, 5 of two: the first", true, two, 5, "*.svf");
    row("save, 0: the first", false, two, 0, "Slides (*.svf)");
    row("save, 1: the first", false, two, 1, "Slides (*.svf)");
    row("save, 2: the second", false, two, 2, "All (*.*)");
    row("save, 5 of two: the first", false, two, 5, "Slides (*.svf)");
    row("3 of three: the third", true, "A (*.a);;B (*.b);;C (*.c)", 3, "*.c");
    row("4 of three: the first", true, "A (*.a);;B (*.b);;C (*.c)", 4, "*.a");
    row("1 of one: the first", true, "A (*.a)", 1, "*.a");
    row("2 of one: the first", true, "A (*.a)", 2, "*.a");
    row("0x7FFFFFFF: the first", true, two, 0x7FFFFFFFu, "*.svf");
    row("0x80000000: the first", true, two, 0x80000000u, "*.svf");
    row("0x80000001: the first", true, two, 0x80000001u, "*.svf");
    row("0xFFFFFFFF: the first", true, two, 0xFFFFFFFFu, "*.svf");
}

void tst_QtFileDialogSettings::selectedFilter()
{
    QFETCH(bool, open);
    QFETCH(QString, filters);
    QFETCH(uint, index);
    QFETCH(QString, expected);
    Dialog dialog(open);
    dialog.setFilters(wide(filters));
    dialog.GetOFN()->nFilterIndex = index;
    QString active;
    QString shown;
    dialog.run(lookAndCancel([&](QFileDialog &run) {
        active = run.selectedNameFilter();
        shown = run.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"))->currentText();
    }));
    QCOMPARE(dialog.m_attri.selectedFilter, expected);
    QCOMPARE(active, expected);
    QCOMPARE(shown, expected);
    QCOMPARE(uint(dialog.GetOFN()->nFilterIndex), index);
}

void tst_QtFileDialogSettings::directory_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("opened");

    const auto row = [](const char *promise, const char *given, const char *argument, const char *opened) {
        QTest::newRow(promise)
            << QString::fromUtf8(given) << QString::fromUtf8(argument) << QString::fromUtf8(opened);
    };
    row("backslashes and a file's name", "data\\plans\\plan.dwg", "data/plans", "data/plans");
    row("backslashes", "data\\plans", "data/plans", "data/plans");
    row("slashes and a file's name", "data/plans/plan.dwg", "data/plans", "data/plans");
    row("slashes", "data/plans", "data/plans", "data/plans");
    row("both kinds", "data\\plans/plan.dwg", "data/plans", "data/plans");
    row("a file's name with two dots", "data/plans/plan.1.dwg", "data/plans", "data/plans");
    row("a name without an extension is a folder's", "data\\plans\\sub", "data/plans/sub", "data/plans/sub");
    row("a slash at the end", "data/plans/", "data/plans/", "data/plans");
    row("a backslash at the end", "data\\plans\\", "data/plans/", "data/plans");
    row("a last folder with a dot is taken for a file", "data/v1.2", "data", "data");
    row("a last folder with a dot and a slash behind", "data\\v1.2\\", "data/v1.2/", "data/v1.2");
    row("a dot in another folder", "data\\v1.2\\plans", "data/v1.2/plans", "data/v1.2/plans");
    row("a dot in another folder and a file's name", "data\\v1.2\\a.dwg", "data/v1.2", "data/v1.2");
    row("a name that starts with a dot", "data/.hidden", "data", "data");
    row("a dot at the end", "data/plans.", "data", "data");
    row("two dots are a name with a dot", "data/plans/..", "data/plans", "data/plans");
    row("no slash", "data", "data", "data");
}

void tst_QtFileDialogSettings::directory()
{
    QFETCH(QString, given);
    QFETCH(QString, argument);
    QFETCH(QString, opened);
    const Sandbox sandbox;
    QVERIFY(QDir().mkpath(QStringLiteral("data/plans/sub")));
    QVERIFY(QDir().mkpath(QStringLiteral("data/v1.2/plans")));
    const std::wstring prefix = wide(sandbox.path() + QLatin1Char('/'));
    for (const bool open : {true, false}) {
        for (const bool absolute : {false, true}) {
            Dialog dialog(open);
            dialog.setDirectory((absolute ? prefix : std::wstring()) + wide(given));
            QString found;
            dialog.run(lookAndCancel([&found](QFileDialog &run) { found = run.directory().absolutePath(); }));
            QCOMPARE(dialog.m_args.directory, absolute ? sandbox.path(argument) : argument);
            QCOMPARE(QFileInfo(found).canonicalFilePath(), sandbox.path(opened));
        }
    }
}

void tst_QtFileDialogSettings::directoryLeftToQt_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("argument");

    QTest::newRow("empty") << QString(QLatin1String("")) << QString(QLatin1String(""));
    QTest::newRow("a file's name without a slash stays")
        << QStringLiteral("plan.dwg") << QStringLiteral("plan.dwg");
    QTest::newRow("a dot stays") << QStringLiteral(".") << QStringLiteral(".");
    QTest::newRow("a file's name in the root leaves nothing") << QStringLiteral("/plan.dwg") << QString();
    QTest::newRow("the root") << QStringLiteral("\\") << QStringLiteral("/");
    QTest::newRow("a folder that is not there") << QStringLiteral("no\\where") << QStringLiteral("no/where");
}

/// What QFileDialog makes of the argument, when it gets it twice. Where it cannot go, it remembers the last
/// directory of the process.
void tst_QtFileDialogSettings::directoryLeftToQt()
{
    QFETCH(QString, given);
    QFETCH(QString, argument);
    const Sandbox sandbox;
    QFileDialog().setDirectory(sandbox.path());
    Dialog dialog(true);
    dialog.setDirectory(wide(given));
    QString found;
    dialog.run(lookAndCancel([&found](QFileDialog &run) { found = run.directory().path(); }));
    QCOMPARE(dialog.m_args.directory, argument);

    QFileDialog().setDirectory(sandbox.path());
    QFileDialog bare(nullptr, QString(), argument);
    bare.setFileMode(QFileDialog::ExistingFiles);
    bare.setDirectory(argument);
    QCOMPARE(found, bare.directory().path());
}

void tst_QtFileDialogSettings::nullText_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("lpstrTitle") << Promise([] {
        Dialog dialog(true);
        dialog.GetOFN()->lpstrTitle = nullptr;
        QCOMPARE(dialog.run(pressEscape), INT_PTR(2));
        QCOMPARE(dialog.m_args.caption, QString());
    });
    QTest::newRow("lpstrInitialDir") << Promise([] {
        Dialog dialog(true);
        dialog.GetOFN()->lpstrInitialDir = nullptr;
        QCOMPARE(dialog.run(pressEscape), INT_PTR(2));
        QCOMPARE(dialog.m_args.directory, QString());
    });
    QTest::newRow("lpstrFilter") << Promise([] {
        Dialog dialog(true);
        dialog.GetOFN()->lpstrFilter = nullptr;
        QCOMPARE(dialog.run(pressEscape), INT_PTR(2));
        QCOMPARE(dialog.m_attri.filterText, QString());
        QCOMPARE(dialog.m_attri.nameFilters, QStringList({QString()}));
        QCOMPARE(dialog.m_attri.selectedFilter, QString());
    });
    QTest::newRow("lpstrFile") << Promise([] {
        OpenedFields dialog(TRUE);
        QVERIFY(!dialog.GetOFN()->lpstrFile);
        QCOMPARE(dialog.run(lookAndCancel([](QFileDialog &run) {
            QCOMPARE(nameEditOf(run).text(), QString());
        })), INT_PTR(2));
        QCOMPARE(dialog.m_attri.selectFile, QString());
    });
    QTest::newRow("a null text after another one") << Promise([] {
        Dialog dialog(true);
        dialog.setTitle(L"title");
        dialog.setFilters(L"A (*.a)");
        dialog.setFile(L"name");
        dialog.run(pressEscape);
        OPENFILENAMEW &record = *dialog.GetOFN();
        record.lpstrTitle = record.lpstrFilter = record.lpstrFile = nullptr;
        QCOMPARE(dialog.run(pressEscape), INT_PTR(2));
        QCOMPARE(dialog.m_args.caption, QString());
        QCOMPARE(dialog.m_attri.nameFilters, QStringList({QString()}));
        QCOMPARE(dialog.m_attri.selectFile, QString());
    });
}

void tst_QtFileDialogSettings::shownName_data()
{
    QTest::addColumn<bool>("open");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("filters");
    QTest::addColumn<uint>("index");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *promise, bool open, const char *file, const char *filters, uint index,
                        const char *expected) {
        QTest::newRow(promise) << open << QString::fromUtf8(file) << QString::fromUtf8(filters) << index
                               << QString::fromUtf8(expected);
    };
    const char *const two = "Slides (*.svf);;Drawing (*.dwg)";
    row("save: plan.dwg becomes plan.svf", false, "plan.dwg", "Slides (*.svf)", 0, "plan.svf");
    row("save: plan.dwg becomes plan.svf of the first filter", false, "plan.dwg", two, 1, "plan.svf");
    row("save: plan.dxf becomes plan.dwg of the second filter", false, "plan.dxf", two, 2, "plan.dwg");
    row("save: plan.dxf becomes plan.svf before All (*) leaves it", false, "plan.dxf",
        "Slides (*.svf);;All (*)", 2, "plan.svf");
    row("save: All (*) alone leaves plan.dwg", false, "plan.dwg", "All (*)", 0, "plan.dwg");
    row("save: plan.dwg becomes plan.* with All (*.*)", false, "plan.dwg", "All (*.*)", 0, "plan.*");
    row("save: plan stays", false, "plan", "Slides (*.svf)", 0, "plan");
    row("open: plan.dwg stays", true, "plan.dwg", "Slides (*.svf)", 0, "plan.dwg");
    row("open: plan.dwg stays with the second filter", true, "plan.dwg", two, 2, "plan.dwg");
}

/// A QFileDialog to save gives the name in its field the extension of each filter that becomes active: the
/// name is there before the filters.
void tst_QtFileDialogSettings::shownName()
{
    QFETCH(bool, open);
    QFETCH(QString, file);
    QFETCH(QString, filters);
    QFETCH(uint, index);
    QFETCH(QString, expected);
    Dialog dialog(open);
    dialog.setFile(wide(file));
    dialog.setFilters(wide(filters));
    dialog.GetOFN()->nFilterIndex = index;
    QString shown;
    dialog.run(lookAndCancel([&shown](QFileDialog &run) { shown = nameEditOf(run).text(); }));

    QFileDialog bare;
    bare.setOption(QFileDialog::DontUseNativeDialog);
    bare.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    bare.selectFile(file);
    bare.setFileMode(open ? QFileDialog::ExistingFiles : QFileDialog::AnyFile);
    bare.setNameFilters(dialog.m_attri.nameFilters);
    bare.selectNameFilter(dialog.m_attri.selectedFilter);
    QCOMPARE(nameEditOf(bare).text(), expected);
    QCOMPARE(shown, expected);
    QCOMPARE(dialog.m_attri.selectFile, file);
}

void tst_QtFileDialogSettings::settings_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the title") << Promise([] {
        Dialog dialog(true);
        dialog.setTitle(L"\U0001F600 Open a drawing");
        dialog.run(lookAndCancel([](QFileDialog &run) {
            QCOMPARE(run.windowTitle(), QString::fromUtf8(u8"\U0001F600 Open a drawing"));
        }));
        QCOMPARE(dialog.m_args.caption, QString::fromUtf8(u8"\U0001F600 Open a drawing"));
    });
    QTest::newRow("open: several existing files") << Promise([] {
        Dialog dialog(true);
        dialog.run(lookAndCancel([](QFileDialog &run) {
            QCOMPARE(run.acceptMode(), QFileDialog::AcceptOpen);
            QCOMPARE(run.fileMode(), QFileDialog::ExistingFiles);
        }));
    });
    QTest::newRow("save: any file") << Promise([] {
        Dialog dialog(false);
        dialog.run(lookAndCancel([](QFileDialog &run) {
            QCOMPARE(run.acceptMode(), QFileDialog::AcceptSave);
            QCOMPARE(run.fileMode(), QFileDialog::AnyFile);
        }));
    });
    QTest::newRow("the modes are those of the fields") << Promise([] {
        Dialog dialog(true);
        dialog.m_attri.acceptMode = QFileDialog::AcceptSave;
        dialog.m_attri.fileMode = QFileDialog::ExistingFile;
        dialog.setFilters(L"A (*.a)");
        dialog.run(lookAndCancel([](QFileDialog &run) {
            QCOMPARE(run.acceptMode(), QFileDialog::AcceptSave);
            QCOMPARE(run.fileMode(), QFileDialog::ExistingFile);
            QCOMPARE(run.nameFilters(), QStringList({QStringLiteral("A (*.a)")}));
        }));
    });
    QTest::newRow("save: extension and name of the constructor are not used") << Promise([] {
        OpenedFields dialog(FALSE, L"dwg", L"drawing1");
        dialog.setFile(std::wstring());
        dialog.run(lookAndCancel([](QFileDialog &run) {
            QCOMPARE(run.defaultSuffix(), QString());
            QCOMPARE(nameEditOf(run).text(), QString());
        }));
        QCOMPARE(dialog.m_attri.defaultSuffix, QStringLiteral("dwg"));
        QCOMPARE(dialog.m_attri.fileName, QStringLiteral("drawing1"));
    });
    QTest::newRow("the record's filter is shown, not the constructor's") << Promise([] {
        OpenedFields dialog(TRUE, nullptr, nullptr, 0, L"A (*.a)");
        dialog.setFile(std::wstring());
        dialog.setFilters(L"B (*.b)");
        dialog.run(lookAndCancel([](QFileDialog &run) {
            QCOMPARE(run.nameFilters(), QStringList({QStringLiteral("*.b")}));
        }));
        QCOMPARE(dialog.m_args.filter, QStringLiteral("A (*.a)"));
    });
    QTest::newRow("lpstrFile is what the name's field holds") << Promise([] {
        for (const bool open : {true, false}) {
            Dialog dialog(open);
            dialog.setFile(L"drawing \u00E4 1");
            dialog.run(lookAndCancel([](QFileDialog &run) {
                QCOMPARE(nameEditOf(run).text(), QString::fromUtf8(u8"drawing \u00E4 1"));
            }));
            QCOMPARE(dialog.m_attri.selectFile, QString::fromUtf8(u8"drawing \u00E4 1"));
        }
    });
    QTest::newRow("lpstrFile is read as it was when the run began") << Promise([] {
        Dialog dialog(false);
        dialog.setFile(L"one");
        dialog.setFile(L"two");
        dialog.run(lookAndCancel([](QFileDialog &run) {
            QCOMPARE(nameEditOf(run).text(), QStringLiteral("two"));
        }));
    });
    QTest::newRow("lpstrInitialDir wins against the folder of lpstrFile") << Promise([] {
        const Sandbox sandbox;
        QVERIFY(QDir().mkdir(QStringLiteral("one")) && QDir().mkdir(QStringLiteral("two")));
        Dialog dialog(false);
        dialog.setFile(sandbox.widePath(QStringLiteral("one/plan.dwg")));
        dialog.setDirectory(sandbox.widePath(QStringLiteral("two")));
        dialog.run(lookAndCancel([&sandbox](QFileDialog &run) {
            QCOMPARE(run.directory().path(), sandbox.path(QStringLiteral("two")));
        }));
    });
    QTest::newRow("a fixed size of 600 x 400") << Promise([] {
        for (const bool open : {true, false}) {
            Dialog dialog(open);
            dialog.run(lookAndCancel([](QFileDialog &run) {
                QCOMPARE(run.size(), QSize(600, 400));
                QCOMPARE(run.minimumSize(), QSize(600, 400));
                QCOMPARE(run.maximumSize(), QSize(600, 400));
            }));
        }
    });
    QTest::newRow("two labels of its own, the blank behind Cancel too") << Promise([] {
        for (const bool open : {true, false}) {
            Dialog dialog(open);
            dialog.run(lookAndCancel([](QFileDialog &run) {
                QCOMPARE(run.labelText(QFileDialog::FileType), QStringLiteral("File Format:"));
                QCOMPARE(run.labelText(QFileDialog::Reject), QStringLiteral("Cancel "));
                const auto *type = run.findChild<QLabel *>(QStringLiteral("fileTypeLabel"));
                QCOMPARE(type->text(), QStringLiteral("File Format:"));
                const auto *box = run.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
                QCOMPARE(box->button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Cancel "));
            }));
        }
    });
    QTest::newRow("the other labels are Qt's") << Promise([] {
        for (const bool open : {true, false}) {
            Dialog dialog(open);
            dialog.run(lookAndCancel([open](QFileDialog &run) {
                QFileDialog bare;
                bare.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
                for (auto label : {QFileDialog::LookIn, QFileDialog::FileName, QFileDialog::Accept})
                    QCOMPARE(run.labelText(label), bare.labelText(label));
            }));
        }
    });
    QTest::newRow("the labels are translated, in the class's name") << Promise([] {
        Dialog dialog(true);
        const German german;
        dialog.run(lookAndCancel([](QFileDialog &run) {
            QCOMPARE(run.labelText(QFileDialog::FileType), QStringLiteral("Dateiformat:"));
            QCOMPARE(run.labelText(QFileDialog::Reject), QStringLiteral("Abbrechen "));
        }));
    });
    QTest::newRow("Qt's own dialog on every desktop, and no other option") << Promise([] {
        Dialog dialog(true);
        dialog.run(lookAndCancel([](QFileDialog &run) {
            QVERIFY(run.testOption(QFileDialog::DontUseNativeDialog));
            QCOMPARE(run.options(), QFileDialog::Options(QFileDialog::DontUseNativeDialog));
        }));
        QCOMPARE(dialog.m_attri.options, 0xFFFFFFFFu);
    });
    QTest::newRow("visible and modal") << Promise([] {
        QWidget other;
        other.show();
        BlockCount blocks(other);
        Dialog dialog(true);
        dialog.run(lookAndCancel([&dialog](QFileDialog &run) {
            QCOMPARE(&run, dialog.m_dialog);
            QVERIFY(run.isVisible());
            QVERIFY(run.isModal());
            QCOMPARE(QApplication::activeModalWidget(), &run);
        }));
        QCOMPARE(blocks.count, 1);
        QVERIFY(!dialog.m_dialog->isVisible());
    });
    QTest::newRow("it appears once, and before the directory is set again") << Promise([] {
        const Sandbox sandbox;
        QFileDialog().setDirectory(sandbox.path());     // where Qt starts without one
        Dialog dialog(true);
        DirectoryAtShow shows;
        dialog.run(lookAndCancel([&sandbox](QFileDialog &run) {
            QVERIFY(run.directory().path() != sandbox.path());
        }));
        QCOMPARE(shows.paths, QStringList({sandbox.path()}));
    });
    QTest::newRow("it is made in lpstrInitialDir, and appears there") << Promise([] {
        const Sandbox sandbox;
        QVERIFY(QDir().mkdir(QStringLiteral("last")) && QDir().mkdir(QStringLiteral("given")));
        for (const bool open : {true, false}) {
            QFileDialog().setDirectory(sandbox.path(QStringLiteral("last")));
            Dialog dialog(open);
            dialog.setDirectory(sandbox.widePath(QStringLiteral("given")));
            DirectoryAtShow shows;
            dialog.run(pressEscape);
            QCOMPARE(shows.paths, QStringList({sandbox.path(QStringLiteral("given"))}));
        }
    });
    QTest::newRow("the parent widget") << Promise([] {
        QWidget widget;
        widget.show();
        BlockCount blocks(widget);
        OpenedFields dialog(TRUE, nullptr, nullptr, 0, nullptr, reinterpret_cast<CWnd *>(&widget));
        dialog.setFile(std::wstring());
        dialog.run(lookAndCancel([&widget](QFileDialog &run) {
            QCOMPARE(run.parentWidget(), &widget);
            QVERIFY(run.isWindow());
        }));
        QCOMPARE(blocks.count, 1);
    });
    QTest::newRow("hwndOwner is no parent widget") << Promise([] {
        QWidget owner;
        QWidget widget;
        for (QWidget *parent : {static_cast<QWidget *>(nullptr), &widget}) {
            OpenedFields dialog(TRUE, nullptr, nullptr, 0, nullptr, reinterpret_cast<CWnd *>(parent));
            dialog.setFile(std::wstring());
            dialog.GetOFN()->hwndOwner = KxHwndFromWidget(&owner);
            dialog.run(lookAndCancel([parent](QFileDialog &run) { QCOMPARE(run.parentWidget(), parent); }));
        }
    });
    QTest::newRow("no parent widget") << Promise([] {
        Dialog dialog(true);
        dialog.run(lookAndCancel([](QFileDialog &run) { QVERIFY(!run.parent()); }));
    });
    QTest::newRow("the next run reads the record anew") << Promise([] {
        Dialog dialog(true);
        dialog.setTitle(L"one");
        dialog.setFilters(L"A (*.a)");
        dialog.run(pressEscape);
        dialog.setTitle(L"two");
        dialog.setFilters(L"B (*.b);;C (*.c)");
        dialog.GetOFN()->nFilterIndex = 2;
        dialog.run(lookAndCancel([](QFileDialog &run) {
            QCOMPARE(run.windowTitle(), QStringLiteral("two"));
            QCOMPARE(run.nameFilters(), QStringList({QStringLiteral("*.b"), QStringLiteral("*.c")}));
            QCOMPARE(run.selectedNameFilter(), QStringLiteral("*.c"));
        }));
    });
}

KX_TEST_MAIN(tst_QtFileDialogSettings)
#include "tst_qt_file_dialog_settings.moc"
