// SPDX-License-Identifier: MIT
// KxQtFileDialog: its record, and what a run makes of it on the QFileDialog.

#include "KxClassLayout.h"
#include "KxFileDialogRun.h"
#include "KxFileSandbox.h"
#include "KxTestCase.h"

#include <afxdlgs.h>
#include <afxwin.h>

#include <QtCore/QTranslator>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>

#include <cstddef>
#include <cstring>
#include <memory>
#include <type_traits>

using Promise = void (*)();
using MakeDialog = std::function<OpenedFields *()>;
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(MakeDialog)

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

/// The fields that the constructor sets, as one text.
QString fieldsOf(const OpenedFields &dialog)
{
    const auto number = [](int value) { return QString::number(value); };
    const auto &attri = dialog.m_attri;
    return QStringList({number(!dialog.m_dialog), number(int(dialog.m_nSelCount)), dialog.m_args.caption,
                        dialog.m_args.directory, dialog.m_args.filter, number(!dialog.m_args.parent),
                        number(attri.acceptMode), attri.defaultSuffix, attri.fileName, attri.selectFile,
                        number(attri.fileMode), number(int(attri.options)), attri.filterText,
                        attri.nameFilters.join(QLatin1Char(',')), attri.selectedFilter, dialog.results(),
                        dialog.m_selectedFiles.join(QLatin1Char(',')), dialog.m_selectedNameFilter,
                        number(int(dialog.m_ofn.nFilterIndex))})
        .join(QLatin1Char('/'));
}

/// Counts the times that a window was told that a modal dialog blocks it.
class BlockCount : public QObject
{
public:
    explicit BlockCount(QWidget &window) { window.installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::WindowBlocked;
        return false;
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

class tst_QtFileDialog : public KxTestCase
{
    Q_OBJECT

private slots:
    void layout_data();
    void layout();
    void constructed_data();
    void constructed() { runPromise(); }
    void ignoredArguments_data();
    void ignoredArguments();
    void emptiedRecord_data();
    void emptiedRecord() { runPromise(); }

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

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
        QCOMPARE(allFileDialogs().size(), 0);
    }
};

void tst_QtFileDialog::layout_data()
{
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("expected");

#define ROW(field, offset) QTest::newRow("OPENFILENAMEW::" #field " at " #offset) \
    << int(offsetof(OPENFILENAMEW, field)) << offset
    ROW(lStructSize, 0);
    ROW(hwndOwner, 4);
    ROW(hInstance, 12);
    ROW(lpstrFilter, 20);
    ROW(lpstrCustomFilter, 28);
    ROW(nMaxCustFilter, 36);
    ROW(nFilterIndex, 40);
    ROW(lpstrFile, 44);
    ROW(nMaxFile, 52);
    ROW(lpstrFileTitle, 56);
    ROW(nMaxFileTitle, 64);
    ROW(lpstrInitialDir, 68);
    ROW(lpstrTitle, 76);
    ROW(Flags, 84);
    ROW(nFileOffset, 88);
    ROW(nFileExtension, 90);
    ROW(lpstrDefExt, 92);
    ROW(lCustData, 100);
    ROW(lpfnHook, 108);
    ROW(lpTemplateName, 116);
    ROW(pvReserved, 124);
    ROW(dwReserved, 132);
    ROW(FlagsEx, 136);
#undef ROW
    QTest::newRow("OPENFILENAMEW has 140 bytes") << int(sizeof(OPENFILENAMEW)) << 140;
    QTest::newRow("OPENFILENAMEW::nFileOffset has 16 bits") << int(sizeof(OPENFILENAMEW::nFileOffset)) << 2;
    QTest::newRow("OPENFILENAMEW::nFileExtension has 16 bits")
        << int(sizeof(OPENFILENAMEW::nFileExtension)) << 2;
    QTest::newRow("OPENFILENAMEW::nFilterIndex has 32 bits") << int(sizeof(OPENFILENAMEW::nFilterIndex)) << 4;

    const OpenedFields dialog(TRUE);
    const auto row = [&dialog](const char *promise, const auto &field, int expected) {
        QTest::newRow(promise) << offsetOf(static_cast<const KxQtFileDialog &>(dialog), field) << expected;
    };
    row("a list that nobody uses is first", dialog.m_unused, 0);
    row("m_dialog at 8", dialog.m_dialog, 8);
    row("m_args at 16", dialog.m_args, 16);
    row("m_args.parent at 16", dialog.m_args.parent, 16);
    row("m_args.caption at 24", dialog.m_args.caption, 24);
    row("m_args.directory at 32", dialog.m_args.directory, 32);
    row("m_args.filter at 40", dialog.m_args.filter, 40);
    row("m_attri at 48", dialog.m_attri, 48);
    row("m_attri.acceptMode at 48", dialog.m_attri.acceptMode, 48);
    row("m_attri.defaultSuffix at 56", dialog.m_attri.defaultSuffix, 56);
    row("m_attri.fileName at 64", dialog.m_attri.fileName, 64);
    row("m_attri.selectFile at 72", dialog.m_attri.selectFile, 72);
    row("m_attri.fileMode at 80", dialog.m_attri.fileMode, 80);
    row("m_attri.options at 84", dialog.m_attri.options, 84);
    row("m_attri.filterText at 88", dialog.m_attri.filterText, 88);
    row("m_attri.nameFilters at 96", dialog.m_attri.nameFilters, 96);
    row("m_attri.selectedFilter at 104", dialog.m_attri.selectedFilter, 104);
    row("m_strPathName at 112", dialog.m_strPathName, 112);
    row("m_strFileName at 144", dialog.m_strFileName, 144);
    row("m_strFileExt at 176", dialog.m_strFileExt, 176);
    row("m_nSelCount at 208", dialog.m_nSelCount, 208);
    row("m_selectedFiles at 216", dialog.m_selectedFiles, 216);
    row("m_selectedNameFilter at 224", dialog.m_selectedNameFilter, 224);
    row("m_ofn at 232", dialog.m_ofn, 232);
    QTest::newRow("m_attri.acceptMode has 32 bits") << int(sizeof dialog.m_attri.acceptMode) << 4;
    QTest::newRow("m_attri.fileMode has 32 bits") << int(sizeof dialog.m_attri.fileMode) << 4;
    QTest::newRow("m_nSelCount has 64 bits") << int(sizeof dialog.m_nSelCount) << 8;
    QTest::newRow("KxQtFileDialog has 376 bytes") << int(sizeof(KxQtFileDialog)) << 376;
    QTest::newRow("KxQtFileDialog has no virtual operation")
        << int(std::is_polymorphic_v<KxQtFileDialog>) << 0;
}

void tst_QtFileDialog::layout()
{
    QFETCH(int, found);
    QFETCH(int, expected);
    QCOMPARE(found, expected);
}

void tst_QtFileDialog::constructed_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("open: accept mode 0, file mode 3") << Promise([] {
        const OpenedFields dialog(TRUE);
        QCOMPARE(dialog.m_attri.acceptMode, 0);
        QCOMPARE(dialog.m_attri.acceptMode, int(QFileDialog::AcceptOpen));
        QCOMPARE(dialog.m_attri.fileMode, 3);
        QCOMPARE(dialog.m_attri.fileMode, int(QFileDialog::ExistingFiles));
    });
    QTest::newRow("save: accept mode 1, file mode 0") << Promise([] {
        const OpenedFields dialog(FALSE);
        QCOMPARE(dialog.m_attri.acceptMode, 1);
        QCOMPARE(dialog.m_attri.acceptMode, int(QFileDialog::AcceptSave));
        QCOMPARE(dialog.m_attri.fileMode, 0);
        QCOMPARE(dialog.m_attri.fileMode, int(QFileDialog::AnyFile));
    });
    QTest::newRow("open: extension and name are not kept") << Promise([] {
        const OpenedFields dialog(TRUE, L".dwg", L"drawing1");
        QCOMPARE(dialog.m_attri.defaultSuffix, QString());
        QCOMPARE(dialog.m_attri.fileName, QString());
    });
    QTest::newRow("save: extension and name are kept whole") << Promise([] {
        const OpenedFields dialog(FALSE, L".html", L"plans\\page 1");
        QCOMPARE(dialog.m_attri.defaultSuffix, QStringLiteral(".html"));
        QCOMPARE(dialog.m_attri.fileName, QStringLiteral("plans\\page 1"));
        QCOMPARE(dialog.m_attri.selectFile, QString());
    });
    QTest::newRow("save: null extension and name are empty") << Promise([] {
        const OpenedFields dialog(FALSE, nullptr, nullptr);
        QCOMPARE(dialog.m_attri.defaultSuffix, QString());
        QCOMPARE(dialog.m_attri.fileName, QString());
    });
    for (const bool open : {true, false}) {
        QTest::addRow("%s: the filter is kept as it is", open ? "open" : "save") << (open
            ? Promise([] {
                  const OpenedFields dialog(TRUE, nullptr, nullptr, 0, L"A (*.a)|*.a||;;B");
                  QCOMPARE(dialog.m_args.filter, QStringLiteral("A (*.a)|*.a||;;B"));
                  QCOMPARE(dialog.m_attri.nameFilters, QStringList());
              })
            : Promise([] {
                  const OpenedFields dialog(FALSE, nullptr, nullptr, 0, L"A (*.a)|*.a||;;B");
                  QCOMPARE(dialog.m_args.filter, QStringLiteral("A (*.a)|*.a||;;B"));
                  QCOMPARE(dialog.m_attri.nameFilters, QStringList());
              }));
    }
    QTest::newRow("a null filter is empty") << Promise([] {
        const OpenedFields dialog(TRUE, nullptr, nullptr, 0, nullptr);
        QCOMPARE(dialog.m_args.filter, QString());
    });
    QTest::newRow("texts beyond 16 bits") << Promise([] {
        const OpenedFields dialog(FALSE, L"\U0001F600", L"\U0001F601", 0, L"\U0001F602");
        QCOMPARE(dialog.m_attri.defaultSuffix, QString::fromUtf8(u8"\U0001F600"));
        QCOMPARE(dialog.m_attri.fileName, QString::fromUtf8(u8"\U0001F601"));
        QCOMPARE(dialog.m_args.filter, QString::fromUtf8(u8"\U0001F602"));
    });
    QTest::newRow("the parent's address is taken for a widget's") << Promise([] {
        QWidget widget;
        const OpenedFields dialog(TRUE, nullptr, nullptr, 0, nullptr, reinterpret_cast<CWnd *>(&widget));
        QCOMPARE(dialog.m_args.parent, &widget);
    });
    QTest::newRow("no parent is none") << Promise([] {
        const OpenedFields dialog(TRUE);
        QVERIFY(!dialog.m_args.parent);
    });
    QTest::newRow("no dialog, no result, no selection") << Promise([] {
        const OpenedFields dialog(TRUE, L".dwg", L"drawing1", 0, L"A (*.a)");
        QVERIFY(!dialog.m_dialog);
        QCOMPARE(allFileDialogs().size(), 0);
        QCOMPARE(dialog.m_nSelCount, 0LL);
        QVERIFY(!dialog.GetStartPosition());
        QCOMPARE(dialog.results(), QStringLiteral("||"));
        QCOMPARE(dialog.m_selectedFiles, QStringList());
        QCOMPARE(dialog.m_selectedNameFilter, QString());
        QVERIFY(dialog.GetPathName().empty());
        QVERIFY(dialog.GetFileName().empty());
        QVERIFY(dialog.GetFileExt().empty());
    });
    QTest::newRow("the other settings are empty") << Promise([] {
        const OpenedFields dialog(FALSE, L".dwg", L"drawing1", 0, L"A (*.a)");
        QCOMPARE(dialog.m_args.caption, QString());
        QCOMPARE(dialog.m_args.directory, QString());
        QCOMPARE(dialog.m_attri.filterText, QString());
        QCOMPARE(dialog.m_attri.selectedFilter, QString());
        QCOMPARE(dialog.m_attri.options, 0xFFFFFFFFu);
    });
}

void tst_QtFileDialog::ignoredArguments_data()
{
    QTest::addColumn<MakeDialog>("make");
    QTest::addColumn<bool>("open");

    const auto row = [](const char *promise, bool open, unsigned int flags, unsigned int size,
                        bool vistaStyle) {
        QTest::newRow(promise) << MakeDialog([=] {
            return new OpenedFields(open, L"dwg", L"name", flags, L"A (*.a)", nullptr, size, vistaStyle);
        }) << open;
    };
    row("open: flags all set", true, ~0u, 0, false);
    row("save: flags all set", false, ~0u, 0, false);
    row("save: OFN_ALLOWMULTISELECT", false, OFN_ALLOWMULTISELECT, 0, false);
    row("a size", true, 0, 152, false);
    row("the largest size", false, 0, ~0u, false);
    row("open: the style", true, 0, 0, true);
    row("save: the style", false, 0, 0, true);
}

void tst_QtFileDialog::ignoredArguments()
{
    QFETCH(MakeDialog, make);
    QFETCH(bool, open);
    const OpenedFields plain(open, L"dwg", L"name", 0, L"A (*.a)", nullptr, 0, false);
    const std::unique_ptr<OpenedFields> dialog(make());
    QCOMPARE(fieldsOf(*dialog), fieldsOf(plain));
}

void tst_QtFileDialog::emptiedRecord_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("GetOFN is the address of the record") << Promise([] {
        OpenedFields dialog(TRUE);
        QCOMPARE(static_cast<void *>(dialog.GetOFN()), static_cast<void *>(&dialog.m_ofn));
    });
    QTest::newRow("the constructor empties it") << Promise([] {
        for (const bool open : {true, false}) {
            OpenedFields dialog(open, L"dwg", L"name", ~0u, L"A (*.a)", nullptr, 152, true);
            const OPENFILENAMEW record = *dialog.GetOFN();
            for (LPCWSTR text : {record.lpstrFilter, record.lpstrInitialDir, record.lpstrTitle,
                                 record.lpstrDefExt, record.lpTemplateName}) {
                QVERIFY(text);
                QCOMPARE(text[0], L'\0');
            }
            QVERIFY(!record.lpstrCustomFilter);
            QVERIFY(!record.lpstrFile);
            QVERIFY(!record.lpstrFileTitle);
            QCOMPARE(DWORD(record.nFilterIndex), 0u);
        }
    });
    QTest::newRow("the empty texts are one shared text") << Promise([] {
        OpenedFields dialog(TRUE);
        const OPENFILENAMEW record = *dialog.GetOFN();
        for (LPCWSTR text : {record.lpstrInitialDir, record.lpstrTitle, record.lpstrDefExt,
                             record.lpTemplateName}) {
            QVERIFY(text == record.lpstrFilter);
        }
    });
    QTest::newRow("all dialogs share the empty text") << Promise([] {
        OpenedFields one(TRUE);
        OpenedFields two(FALSE, L"dwg", L"name", 0, L"A (*.a)");
        const LPCWSTR ofOne = one.GetOFN()->lpstrFilter;
        const LPCWSTR ofTwo = two.GetOFN()->lpstrFilter;
        QVERIFY(ofOne == ofTwo);
    });
    QTest::newRow("initOpenFileName empties nine fields and leaves the others") << Promise([] {
        OpenedFields dialog(TRUE);
        OPENFILENAMEW &record = *dialog.GetOFN();
        wchar_t buffer[] = L"text";
        std::memset(static_cast<void *>(&record), 0x5A, sizeof record);
        record.lpstrFilter = record.lpstrInitialDir = record.lpstrTitle = buffer;
        record.lpstrDefExt = record.lpTemplateName = buffer;
        record.lpstrCustomFilter = record.lpstrFile = record.lpstrFileTitle = buffer;
        record.nFilterIndex = 7;
        OPENFILENAMEW expected = record;
        dialog.initOpenFileName();

        const OPENFILENAMEW after = record;
        QVERIFY(after.lpstrFilter && after.lpstrFilter != buffer);
        QCOMPARE(after.lpstrFilter[0], L'\0');
        expected.lpstrFilter = expected.lpstrInitialDir = expected.lpstrTitle = after.lpstrFilter;
        expected.lpstrDefExt = expected.lpTemplateName = after.lpstrFilter;
        expected.lpstrCustomFilter = expected.lpstrFile = expected.lpstrFileTitle = nullptr;
        expected.nFilterIndex = 0;
        QVERIFY(std::memcmp(&after, &expected, sizeof after) == 0);
        QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("text"));
    });
    QTest::newRow("initOpenFileName leaves the results") << Promise([] {
        OpenedFields dialog(TRUE);
        dialog.m_selectedFiles = QStringList({QStringLiteral("/a/b.c")});
        dialog.m_nSelCount = 1;
        dialog.PraseFileInfo();
        dialog.initOpenFileName();
        QCOMPARE(dialog.results(), QStringLiteral("/a/b.c|b.c|c"));
        QCOMPARE(dialog.m_nSelCount, 1LL);
    });
}

void tst_QtFileDialog::filters_data()
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

void tst_QtFileDialog::filters()
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

void tst_QtFileDialog::selectedFilter_data()
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

void tst_QtFileDialog::selectedFilter()
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

void tst_QtFileDialog::directory_data()
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

void tst_QtFileDialog::directory()
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

void tst_QtFileDialog::directoryLeftToQt_data()
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
void tst_QtFileDialog::directoryLeftToQt()
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

void tst_QtFileDialog::nullText_data()
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

void tst_QtFileDialog::shownName_data()
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
void tst_QtFileDialog::shownName()
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

void tst_QtFileDialog::settings_data()
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

KX_TEST_MAIN(tst_QtFileDialog)
#include "tst_qt_file_dialog.moc"
