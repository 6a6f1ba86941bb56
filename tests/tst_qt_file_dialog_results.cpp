// SPDX-License-Identifier: MIT
// KxQtFileDialog: what a run gives, and what stays of it.

#include "KxFileDialogRun.h"
#include "KxFileSandbox.h"
#include "KxTestCase.h"

#include <afxdlgs.h>
#include <afxwin.h>

#include <QtCore/QPointer>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>

#include <cstring>
#include <limits>
#include <memory>

using FillRecord = std::function<void(OPENFILENAMEW &)>;
Q_DECLARE_METATYPE(FillRecord)

namespace {

/// A dialog in a directory of its own.
struct Dialog : OpenedFields
{
    Dialog(bool open, const std::wstring &filters, QWidget *parent = nullptr)
        : OpenedFields(open, nullptr, nullptr, 0, nullptr, reinterpret_cast<CWnd *>(parent))
    {
        setFile(std::wstring());
        setFilters(filters);
        setDirectory(wide(sandbox.path()));
    }

    QString path(const char *name) const { return sandbox.path(QString::fromUtf8(name)); }
    bool makeFiles(const QStringList &names) const
    {
        bool made = true;
        for (const QString &name : names)
            made = write(path(qPrintable(name)), "") && made;
        return made;
    }

    Sandbox sandbox;
};

/// A dialog as after a run in which `files` were chosen.
struct Chosen : OpenedFields
{
    explicit Chosen(const QStringList &files, const QString &filter = QString()) : OpenedFields(TRUE)
    {
        m_selectedFiles = files;
        m_nSelCount = files.size();
        m_selectedNameFilter = filter;
    }
};

POSITION position(qint64 value)
{
    return reinterpret_cast<POSITION>(value);
}

qint64 numberOf(POSITION pos)
{
    return reinterpret_cast<qint64>(pos);
}

QString nextOf(const KxQtFileDialog &dialog, POSITION &pos)
{
    return QString::fromStdWString(dialog.GetNextPathName(pos));
}

QStringList allOf(const KxQtFileDialog &dialog)
{
    QStringList paths;
    POSITION pos = dialog.GetStartPosition();
    while (pos && paths.size() < 100)
        paths.append(nextOf(dialog, pos));
    return paths;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

QPushButton *buttonOf(QFileDialog &dialog, QDialogButtonBox::StandardButton which)
{
    return dialog.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"))->button(which);
}

/// The step that takes the second filter in the list of filters, and then a name.
FileDialogStep chooseWithSecondFilter(const QString &name)
{
    return [name](QFileDialog &run) {
        auto *types = run.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
        QTest::keyClick(types, Qt::Key_Down);
        QCOMPARE(types->currentIndex(), 1);
        choose(name)(run);
    };
}

/// What a run shows, as one text.
QString shownBy(QFileDialog &run)
{
    const auto number = [](int value) { return QString::number(value); };
    return QStringList({number(run.acceptMode()), number(run.fileMode()), run.defaultSuffix(),
                        run.nameFilters().join(QLatin1Char(',')), run.selectedNameFilter(),
                        number(run.options()), number(int(run.windowFlags())), number(!run.parent()),
                        run.windowTitle(), run.directory().path(), nameEditOf(run).text(),
                        number(int(run.filter())), run.labelText(QFileDialog::FileType),
                        run.labelText(QFileDialog::Accept), run.labelText(QFileDialog::Reject)})
        .join(QLatin1Char('|'));
}

const wchar_t *const slides = L"Slides (*.svf);;All (*.*)";

} // namespace

class tst_QtFileDialogResults : public KxTestCase
{
    Q_OBJECT

private slots:
    void completion_data();
    void completion();
    void praseFileInfo_data();
    void praseFileInfo() { runPromise(); }
    void filterIndex_data();
    void filterIndex();
    void iteration_data();
    void iteration() { runPromise(); }
    void outsidePosition_data();
    void outsidePosition();

    void unreadFields_data();
    void unreadFields();
    void returnCode_data();
    void returnCode() { runPromise(); }
    void run_data();
    void run() { runPromise(); }
    void lifetime_data();
    void lifetime() { runPromise(); }
};

void tst_QtFileDialogResults::completion_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("results");

    const auto row = [](const char *promise, const char *file, const char *filter, const char *results) {
        QTest::newRow(promise)
            << QString::fromUtf8(file) << QString::fromUtf8(filter) << QString::fromUtf8(results);
    };
    row("*.svf completes", "/d/drawing1", "*.svf", "/d/drawing1.svf|drawing1.svf|svf");
    row("*.scr completes", "/d/drawing1", "*.scr", "/d/drawing1.scr|drawing1.scr|scr");
    row("*.dwg does not", "/d/drawing1", "*.dwg", "/d/drawing1|drawing1|");
    row("*.dxf does not", "/d/drawing1.dwg", "*.dxf", "/d/drawing1.dwg|drawing1.dwg|dwg");
    row("*.svf leaves what has it", "/d/drawing1.svf", "*.svf", "/d/drawing1.svf|drawing1.svf|svf");
    row("*.scr leaves what has it", "/d/drawing1.scr", "*.scr", "/d/drawing1.scr|drawing1.scr|scr");
    row("*.svf completes another extension", "/d/a.dwg", "*.svf", "/d/a.dwg.svf|a.dwg.svf|svf");
    row("*.svf completes .scr", "/d/a.scr", "*.svf", "/d/a.scr.svf|a.scr.svf|svf");
    row("*.svf completes .SVF", "/d/a.SVF", "*.svf", "/d/a.SVF.svf|a.SVF.svf|svf");
    row("*.SVF does not complete", "/d/a", "*.SVF", "/d/a|a|");
    row("*.Scr does not complete", "/d/a", "*.Scr", "/d/a|a|");
    row("the letters without the dot are no extension", "/d/asvf", "*.svf", "/d/asvf.svf|asvf.svf|svf");
    row("a name that is the extension", "/d/.svf", "*.svf", "/d/.svf|.svf|svf");
    row("a dot at the end is not looked at", "/d/a.", "*.svf", "/d/a..svf|a..svf|svf");
    row("a dot in the folder's name", "/v1.2/a", "*.svf", "/v1.2/a.svf|a.svf|svf");
    row("a description does not complete", "/d/a", "Slides (*.svf)", "/d/a|a|");
    row("a description of .scr does not complete", "/d/a", "Scripts (*.scr)", "/d/a|a|");
    row("the closing parenthesis never matches", "/d/a.svf)", "Slides (*.svf)", "/d/a.svf)|a.svf)|svf)");
    row("the last of several patterns counts", "/d/a", "*.dwg *.svf", "/d/a.svf|a.svf|svf");
    row("not the first of several patterns", "/d/a", "*.svf *.dwg", "/d/a|a|");
    row("a filter without a dot is all extension", "/d/a", "svf", "/d/a.svf|a.svf|svf");
    row("a blank behind it is part of it", "/d/a", "*.svf ", "/d/a|a|");
    row("a longer extension is another", "/d/a", "*.svfx", "/d/a|a|");
    row("a shorter extension is another", "/d/a", "*.sv", "/d/a|a|");
    row("a dot behind it empties it", "/d/a", "*.svf.", "/d/a|a|");
    row("two extensions, the last counts", "/d/a", "*.tar.scr", "/d/a.scr|a.scr|scr");
    row("*.* completes nothing", "/d/a", "*.*", "/d/a|a|");
    row("* completes nothing", "/d/a", "*", "/d/a|a|");
    row("no filter completes nothing", "/d/a", "", "/d/a|a|");
    row("the suffix starts behind the last dot", "/d/a.tar.gz", "*.*", "/d/a.tar.gz|a.tar.gz|gz");
    row("upper case stays", "/d/A.DWG", "*.*", "/d/A.DWG|A.DWG|DWG");
    row("a relative path", "d/a", "*.svf", "d/a.svf|a.svf|svf");
    row("a bare name", "a", "*.svf", "a.svf|a.svf|svf");
    row("letters outside ASCII", u8"/d/\u00E4 \U0001F600", "*.svf",
        u8"/d/\u00E4 \U0001F600.svf|\u00E4 \U0001F600.svf|svf");
    row("an extension outside ASCII", u8"/d/a.\U0001F600", "*.*",
        u8"/d/a.\U0001F600|a.\U0001F600|\U0001F600");
}

void tst_QtFileDialogResults::completion()
{
    QFETCH(QString, file);
    QFETCH(QString, filter);
    QFETCH(QString, results);
    Chosen dialog({file}, filter);
    dialog.PraseFileInfo();
    QCOMPARE(dialog.results(), results);
    QCOMPARE(QString::fromStdWString(dialog.GetPathName()), results.section(QLatin1Char('|'), 0, 0));
    QCOMPARE(QString::fromStdWString(dialog.GetFileName()), results.section(QLatin1Char('|'), 1, 1));
    QCOMPARE(QString::fromStdWString(dialog.GetFileExt()), results.section(QLatin1Char('|'), 2, 2));
    QCOMPARE(allOf(dialog), QStringList({results.section(QLatin1Char('|'), 0, 0)}));
    QCOMPARE(dialog.m_selectedFiles, QStringList({file}));
}

void tst_QtFileDialogResults::praseFileInfo_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("entry 0 of three") << Promise([] {
        Chosen dialog({QStringLiteral("/d/a.x"), QStringLiteral("/d/b.y"), QStringLiteral("/d/c.z")});
        dialog.PraseFileInfo();
        QCOMPARE(dialog.results(), QStringLiteral("/d/a.x|a.x|x"));
    });
    QTest::newRow("without a selection nothing changes") << Promise([] {
        Chosen dialog({}, QStringLiteral("*.b"));
        dialog.m_attri.nameFilters = QStringList({QStringLiteral("*.a"), QStringLiteral("*.b")});
        dialog.m_strPathName = L"path";
        dialog.m_strFileName = L"name";
        dialog.m_strFileExt = L"ext";
        dialog.m_ofn.nFilterIndex = 7;
        dialog.PraseFileInfo();
        QCOMPARE(dialog.results(), QStringLiteral("path|name|ext"));
        QCOMPARE(DWORD(dialog.m_ofn.nFilterIndex), 7u);
    });
    QTest::newRow("what was there before goes") << Promise([] {
        Chosen dialog({QStringLiteral("/d/a.x")});
        dialog.PraseFileInfo();
        dialog.m_selectedFiles = QStringList({QStringLiteral("/e/b")});
        dialog.PraseFileInfo();
        QCOMPARE(dialog.results(), QStringLiteral("/e/b|b|"));
    });
    QTest::newRow("the three texts are copies") << Promise([] {
        Chosen dialog({QStringLiteral("/d/a.x")});
        dialog.PraseFileInfo();
        CString path = dialog.GetPathName();
        CString name = dialog.GetFileName();
        CString extension = dialog.GetFileExt();
        path += L"!";
        name += L"!";
        extension += L"!";
        QCOMPARE(dialog.results(), QStringLiteral("/d/a.x|a.x|x"));
    });
}

void tst_QtFileDialogResults::filterIndex_data()
{
    QTest::addColumn<QString>("filters");
    QTest::addColumn<QString>("active");
    QTest::addColumn<uint>("expected");

    const auto row = [](const char *promise, const char *filters, const char *active, uint expected) {
        QTest::newRow(promise) << QString::fromUtf8(filters) << QString::fromUtf8(active) << expected;
    };
    row("the first is 1", "*.a|*.b|*.c", "*.a", 1);
    row("the second is 2", "*.a|*.b|*.c", "*.b", 2);
    row("the third is 3", "*.a|*.b|*.c", "*.c", 3);
    row("not in the list is 0", "*.a|*.b|*.c", "*.d", 0);
    row("upper case is another", "*.a|*.b|*.c", "*.A", 0);
    row("a part of one is another", "*.ab|*.b", "*.a", 0);
    row("the first of two equal ones", "*.x|*.a|*.a", "*.a", 2);
    row("an empty one", "*.a|", "", 2);
    row("a description", "A (*.a)|B (*.b)", "B (*.b)", 2);
}

void tst_QtFileDialogResults::filterIndex()
{
    QFETCH(QString, filters);
    QFETCH(QString, active);
    QFETCH(uint, expected);
    Chosen dialog({QStringLiteral("/d/a")}, active);
    dialog.m_attri.nameFilters = filters.split(QLatin1Char('|'));
    dialog.m_ofn.nFilterIndex = 99;
    dialog.PraseFileInfo();
    QCOMPARE(uint(dialog.m_ofn.nFilterIndex), expected);
}

void tst_QtFileDialogResults::iteration_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("three files are entries 0, 1, 2 while pos goes 3, 2, 1, 0") << Promise([] {
        const Chosen dialog({QStringLiteral("/d/c"), QStringLiteral("/d/a"), QStringLiteral("/d/b")});
        POSITION pos = dialog.GetStartPosition();
        QCOMPARE(numberOf(pos), 3LL);
        QCOMPARE(nextOf(dialog, pos), QStringLiteral("/d/c"));
        QCOMPARE(numberOf(pos), 2LL);
        QCOMPARE(nextOf(dialog, pos), QStringLiteral("/d/a"));
        QCOMPARE(numberOf(pos), 1LL);
        QCOMPARE(nextOf(dialog, pos), QStringLiteral("/d/b"));
        QVERIFY(!pos);
    });
    QTest::newRow("each is completed") << Promise([] {
        const Chosen dialog({QStringLiteral("/d/a"), QStringLiteral("/d/b.svf"), QStringLiteral("/d/c.dwg")},
                            QStringLiteral("*.svf"));
        QCOMPARE(allOf(dialog), QStringList({QStringLiteral("/d/a.svf"), QStringLiteral("/d/b.svf"),
                                             QStringLiteral("/d/c.dwg.svf")}));
    });
    QTest::newRow("it can start in the middle, and again") << Promise([] {
        const Chosen dialog({QStringLiteral("/d/a"), QStringLiteral("/d/b"), QStringLiteral("/d/c")});
        POSITION pos = position(1);
        QCOMPARE(nextOf(dialog, pos), QStringLiteral("/d/c"));
        QVERIFY(!pos);
        pos = position(2);
        QCOMPARE(nextOf(dialog, pos), QStringLiteral("/d/b"));
        QCOMPARE(numberOf(pos), 1LL);
        QCOMPARE(allOf(dialog).size(), 3);
        QCOMPARE(allOf(dialog).size(), 3);
    });
    QTest::newRow("without a selection the text is empty and pos stays") << Promise([] {
        const OpenedFields dialog(TRUE);
        QVERIFY(!dialog.GetStartPosition());
        for (const qint64 value : {0, 1, 3}) {
            POSITION pos = position(value);
            QVERIFY(dialog.GetNextPathName(pos).empty());
            QCOMPARE(numberOf(pos), value);
        }
    });
    QTest::newRow("a position of an earlier, longer selection ends it") << Promise([] {
        Chosen dialog({QStringLiteral("/d/a"), QStringLiteral("/d/b"), QStringLiteral("/d/c")});
        POSITION pos = dialog.GetStartPosition();
        QCOMPARE(nextOf(dialog, pos), QStringLiteral("/d/a"));
        QCOMPARE(numberOf(pos), 2LL);
        dialog.m_selectedFiles = QStringList({QStringLiteral("/e/x")});
        dialog.m_nSelCount = 1;
        QStringList paths;
        while (pos && paths.size() < 5)
            paths.append(nextOf(dialog, pos));
        QCOMPARE(paths, QStringList({QString()}));
        QVERIFY(!pos);
        QCOMPARE(allOf(dialog), QStringList({QStringLiteral("/e/x")}));
    });
    QTest::newRow("the start position is the count's field") << Promise([] {
        OpenedFields dialog(TRUE);
        dialog.m_nSelCount = 0x100000001LL;
        QCOMPARE(numberOf(dialog.GetStartPosition()), 0x100000001LL);
    });
}

void tst_QtFileDialogResults::outsidePosition_data()
{
    QTest::addColumn<qint64>("value");

    QTest::newRow("null") << qint64(0);
    QTest::newRow("one more than there are") << qint64(3);
    QTest::newRow("many more") << qint64(1000000);
    QTest::newRow("negative") << qint64(-1);
    QTest::newRow("more than 32 bits, whose lower half would be right") << (qint64(1) << 32) + 2;
    QTest::newRow("the largest") << std::numeric_limits<qint64>::max();
    QTest::newRow("the smallest") << std::numeric_limits<qint64>::min();
}

/// A position that is none gives an empty text, and becomes null: whoever asks while there is one ends.
void tst_QtFileDialogResults::outsidePosition()
{
    QFETCH(qint64, value);
    const Chosen dialog({QStringLiteral("/d/a"), QStringLiteral("/d/b")}, QStringLiteral("*.svf"));
    POSITION pos = position(value);
    QVERIFY(dialog.GetNextPathName(pos).empty());
    QCOMPARE(numberOf(pos), 0LL);
}

void tst_QtFileDialogResults::unreadFields_data()
{
    QTest::addColumn<FillRecord>("fill");

    static wchar_t text[] = L"Other (*.other)";
    const auto row = [](const char *promise, const FillRecord &fill) { QTest::newRow(promise) << fill; };
    row("lStructSize", [](OPENFILENAMEW &record) { record.lStructSize = ~0u; });
    row("hInstance", [](OPENFILENAMEW &record) { record.hInstance = KxHandleFromValue<HINSTANCE>(1); });
    row("lpstrCustomFilter", [](OPENFILENAMEW &record) {
        record.lpstrCustomFilter = text;
        record.nMaxCustFilter = 16;
    });
    row("nMaxFile", [](OPENFILENAMEW &record) { record.nMaxFile = 1; });
    row("lpstrFileTitle", [](OPENFILENAMEW &record) {
        record.lpstrFileTitle = text;
        record.nMaxFileTitle = 16;
    });
    row("Flags, none set", [](OPENFILENAMEW &record) { record.Flags = 0; });
    row("Flags, all set", [](OPENFILENAMEW &record) { record.Flags = ~0u; });
    row("nFileOffset", [](OPENFILENAMEW &record) { record.nFileOffset = 2; });
    row("nFileExtension", [](OPENFILENAMEW &record) { record.nFileExtension = 2; });
    row("lpstrDefExt", [](OPENFILENAMEW &record) { record.lpstrDefExt = L"dwg"; });
    row("lCustData", [](OPENFILENAMEW &record) { record.lCustData = 1; });
    row("lpfnHook", [](OPENFILENAMEW &record) {
        record.Flags = OFN_ENABLEHOOK | OFN_EXPLORER;
        record.lpfnHook = [](HWND, UINT, WPARAM, LPARAM) -> UINT_PTR {
            QTest::qFail("the hook was called", __FILE__, __LINE__);
            return 0;
        };
    });
    row("lpTemplateName", [](OPENFILENAMEW &record) { record.lpTemplateName = text; });
    row("pvReserved", [](OPENFILENAMEW &record) { record.pvReserved = text; });
    row("dwReserved", [](OPENFILENAMEW &record) { record.dwReserved = 1; });
    row("FlagsEx", [](OPENFILENAMEW &record) { record.FlagsEx = OFN_EX_NOPLACESBAR; });
}

/// They are what they were, and the dialog looks the same, whatever they say.
void tst_QtFileDialogResults::unreadFields()
{
    QFETCH(FillRecord, fill);
    const Sandbox sandbox;
    for (const bool open : {true, false}) {
        QStringList shown;
        for (const bool filled : {false, true}) {
            OpenedFields dialog(open);
            OPENFILENAMEW &record = *dialog.GetOFN();
            dialog.setTitle(L"title");
            dialog.setDirectory(wide(sandbox.path()));
            dialog.setFilters(L"A (*.a);;B (*.b)");
            dialog.setFile(L"plan");
            record.nFilterIndex = 2;
            if (filled)
                fill(record);
            const OPENFILENAMEW before = record;
            dialog.run(lookAndCancel([&shown](QFileDialog &run) { shown.append(shownBy(run)); }));
            const OPENFILENAMEW after = record;
            QVERIFY(std::memcmp(&after, &before, sizeof after) == 0);
        }
        QCOMPARE(shown.value(1), shown.value(0));
    }
}

void tst_QtFileDialogResults::returnCode_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("accepted is 1") << Promise([] {
        Dialog dialog(false, slides);
        QCOMPARE(dialog.run(choose(QStringLiteral("drawing1"))), INT_PTR(1));
    });
    QTest::newRow("Escape is 2") << Promise([] {
        Dialog dialog(true, slides);
        QCOMPARE(dialog.run(pressEscape), INT_PTR(2));
    });
    QTest::newRow("the cancel button is 2") << Promise([] {
        Dialog dialog(true, slides);
        QCOMPARE(dialog.run([](QFileDialog &run) {
            QTest::mouseClick(buttonOf(run, QDialogButtonBox::Cancel), Qt::LeftButton);
        }), INT_PTR(2));
    });
    QTest::newRow("closed is 2") << Promise([] {
        Dialog dialog(true, slides);
        QCOMPARE(dialog.run([](QFileDialog &run) { run.close(); }), INT_PTR(2));
    });
    QTest::newRow("another result of exec is 2") << Promise([] {
        Dialog dialog(true, slides);
        for (const int result : {7, 2, -1, 0})
            QCOMPARE(dialog.run([result](QDialog &run) { run.done(result); }), INT_PTR(2));
    });
    QTest::newRow("accepted without a file is 1, and the earlier texts stay") << Promise([] {
        Dialog dialog(true, slides);
        QVERIFY(dialog.makeFiles({QStringLiteral("a")}));
        QCOMPARE(dialog.run(choose(QStringLiteral("a"))), INT_PTR(1));
        const QString before = dialog.results();
        QCOMPARE(dialog.run([](QDialog &run) { run.done(1); }), INT_PTR(1));
        QCOMPARE(dialog.m_selectedFiles, QStringList());
        QVERIFY(!dialog.GetStartPosition());
        QCOMPARE(dialog.results(), before);
    });
    QTest::newRow("a name that does not exist is not opened") << Promise([] {
        Dialog dialog(true, slides);
        const MessageBoxAnswer answer(QMessageBox::Ok);
        QCOMPARE(dialog.run([](QFileDialog &run) {
            choose(QStringLiteral("nowhere"))(run);
            QVERIFY(run.isVisible());
            pressEscape(run);
        }), INT_PTR(2));
        QCOMPARE(answer.count(), 1);
    });
    QTest::newRow("saving over a file asks; yes is 1") << Promise([] {
        Dialog dialog(false, slides);
        QVERIFY(dialog.makeFiles({QStringLiteral("there")}));
        const MessageBoxAnswer answer(QMessageBox::Yes);
        QCOMPARE(dialog.run(choose(QStringLiteral("there"))), INT_PTR(1));
        QCOMPARE(answer.count(), 1);
        QCOMPARE(QString::fromStdWString(dialog.GetPathName()), dialog.path("there"));
    });
}

void tst_QtFileDialogResults::run_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("open, *.svf: drawing1 becomes drawing1.svf") << Promise([] {
        Dialog dialog(true, slides);
        QVERIFY(dialog.makeFiles({QStringLiteral("drawing1")}));
        QCOMPARE(dialog.run(choose(QStringLiteral("drawing1"))), INT_PTR(1));
        QCOMPARE(dialog.results(), dialog.path("drawing1.svf") + QStringLiteral("|drawing1.svf|svf"));
        QCOMPARE(dialog.m_selectedFiles, QStringList({dialog.path("drawing1")}));
        QCOMPARE(dialog.m_selectedNameFilter, QStringLiteral("*.svf"));
        QCOMPARE(dialog.m_nSelCount, 1LL);
        QCOMPARE(DWORD(dialog.m_ofn.nFilterIndex), 1u);
        QCOMPARE(allOf(dialog), QStringList({dialog.path("drawing1.svf")}));
    });
    QTest::newRow("open, *.dwg: drawing1 stays") << Promise([] {
        Dialog dialog(true, L"Drawing (*.dwg);;All (*.*)");
        QVERIFY(dialog.makeFiles({QStringLiteral("drawing1")}));
        QCOMPARE(dialog.run(choose(QStringLiteral("drawing1"))), INT_PTR(1));
        QCOMPARE(dialog.results(), dialog.path("drawing1") + QStringLiteral("|drawing1|"));
    });
    QTest::newRow("save, a description of .svf: the name stays") << Promise([] {
        Dialog dialog(false, slides);
        QCOMPARE(dialog.run(choose(QStringLiteral("drawing1"))), INT_PTR(1));
        QCOMPARE(dialog.results(), dialog.path("drawing1") + QStringLiteral("|drawing1|"));
        QCOMPARE(dialog.m_selectedNameFilter, QStringLiteral("Slides (*.svf)"));
    });
    QTest::newRow("save, a bare *.scr: the name is completed") << Promise([] {
        Dialog dialog(false, L"*.scr");
        QCOMPARE(dialog.run(choose(QStringLiteral("drawing1"))), INT_PTR(1));
        QCOMPARE(dialog.results(), dialog.path("drawing1.scr") + QStringLiteral("|drawing1.scr|scr"));
    });
    QTest::newRow("save: a name gets no extension of the constructor's") << Promise([] {
        OpenedFields dialog(FALSE, L"dwg", L"other");
        const Sandbox sandbox;
        dialog.setDirectory(wide(sandbox.path()));
        dialog.setFile(L"drawing1");
        QCOMPARE(dialog.run(pressEnter), INT_PTR(1));
        QCOMPARE(dialog.results(), sandbox.path(QStringLiteral("drawing1")) + QStringLiteral("|drawing1|"));
    });
    QTest::newRow("three files by their quoted names") << Promise([] {
        Dialog dialog(true, L"All (*)");
        const QStringList files = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                                   QStringLiteral("d")};
        QVERIFY(dialog.makeFiles(files));
        QCOMPARE(dialog.run(chooseSeveral(files.mid(0, 3), files)), INT_PTR(1));
        QCOMPARE(numberOf(dialog.GetStartPosition()), 3LL);
        QCOMPARE(allOf(dialog), dialog.m_dialog->selectedFiles());
        QCOMPARE(sorted(allOf(dialog)), QStringList({dialog.path("a"), dialog.path("b"), dialog.path("c")}));
        QCOMPARE(QString::fromStdWString(dialog.GetPathName()), allOf(dialog).constFirst());
    });
    QTest::newRow("three files by their quoted names, completed") << Promise([] {
        Dialog dialog(true, L"Slides (* *.svf)");
        const QStringList files = {QStringLiteral("a"), QStringLiteral("b.svf"), QStringLiteral("c")};
        QVERIFY(dialog.makeFiles(files));
        QCOMPARE(dialog.run(chooseSeveral(files, files)), INT_PTR(1));
        QCOMPARE(sorted(allOf(dialog)),
                 QStringList({dialog.path("a.svf"), dialog.path("b.svf"), dialog.path("c.svf")}));
    });
    QTest::newRow("three files picked in the list") << Promise([] {
        Dialog dialog(true, slides);
        QVERIFY(dialog.makeFiles({QStringLiteral("a.svf"), QStringLiteral("b.svf"), QStringLiteral("c.svf"),
                                  QStringLiteral("d.dwg")}));
        QCOMPARE(dialog.run([](QFileDialog &run) {
            QTRY_COMPARE(listedNames(run), QStringList({QStringLiteral("a.svf"), QStringLiteral("b.svf"),
                                                        QStringLiteral("c.svf")}));
            QAbstractItemView &list = fileListOf(run);
            list.setFocus();
            QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
            QCOMPARE(run.selectedFiles().size(), 3);
            QTest::mouseClick(buttonOf(run, QDialogButtonBox::Open), Qt::LeftButton);
        }), INT_PTR(1));
        QCOMPARE(sorted(allOf(dialog)),
                 QStringList({dialog.path("a.svf"), dialog.path("b.svf"), dialog.path("c.svf")}));
    });
    QTest::newRow("three files picked in the list, and cancelled") << Promise([] {
        Dialog dialog(true, L"All (*)");
        QVERIFY(dialog.makeFiles({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
        QCOMPARE(dialog.run([](QFileDialog &run) {
            QTRY_COMPARE(listedNames(run).size(), 3);
            fileListOf(run).setFocus();
            QTest::keyClick(&fileListOf(run), Qt::Key_A, Qt::ControlModifier);
            QCOMPARE(run.selectedFiles().size(), 3);
            QTest::mouseClick(buttonOf(run, QDialogButtonBox::Cancel), Qt::LeftButton);
        }), INT_PTR(2));
        QVERIFY(!dialog.GetStartPosition());
        QCOMPARE(dialog.results(), QStringLiteral("||"));
    });
    QTest::newRow("the list shows what the active filter lets through") << Promise([] {
        Dialog dialog(true, L"Slides (*.svf);;Drawing (*.dwg)");
        QVERIFY(dialog.makeFiles({QStringLiteral("a.svf"), QStringLiteral("b.dwg")}));
        dialog.m_ofn.nFilterIndex = 2;
        dialog.run(lookAndCancel([](QFileDialog &run) {
            QTRY_COMPARE(listedNames(run), QStringList({QStringLiteral("b.dwg")}));
        }));
    });
    QTest::newRow("nFilterIndex becomes that of the active filter, 0 becomes 1") << Promise([] {
        Dialog dialog(false, slides);
        dialog.m_ofn.nFilterIndex = 0;
        dialog.run(choose(QStringLiteral("a")));
        QCOMPARE(DWORD(dialog.m_ofn.nFilterIndex), 1u);
    });
    QTest::newRow("nFilterIndex becomes that of the active filter, 5 of two becomes 1") << Promise([] {
        Dialog dialog(false, slides);
        dialog.m_ofn.nFilterIndex = 5;
        dialog.run(choose(QStringLiteral("a")));
        QCOMPARE(DWORD(dialog.m_ofn.nFilterIndex), 1u);
    });
    QTest::newRow("nFilterIndex stays when the filter stays") << Promise([] {
        Dialog dialog(false, slides);
        dialog.m_ofn.nFilterIndex = 2;
        dialog.run(choose(QStringLiteral("a")));
        QCOMPARE(DWORD(dialog.m_ofn.nFilterIndex), 2u);
    });
    QTest::newRow("nFilterIndex becomes 2 when the user takes the second filter") << Promise([] {
        Dialog dialog(false, slides);
        QCOMPARE(dialog.run(chooseWithSecondFilter(QStringLiteral("a"))), INT_PTR(1));
        QCOMPARE(DWORD(dialog.m_ofn.nFilterIndex), 2u);
        QCOMPARE(dialog.m_selectedNameFilter, QStringLiteral("All (*.*)"));
    });
    QTest::newRow("the filter that the user takes completes the name") << Promise([] {
        Dialog dialog(true, L"Drawing (*.dwg);;Scripts (*.scr)");
        QVERIFY(dialog.makeFiles({QStringLiteral("a")}));
        QCOMPARE(dialog.run(chooseWithSecondFilter(QStringLiteral("a"))), INT_PTR(1));
        QCOMPARE(dialog.results(), dialog.path("a.scr") + QStringLiteral("|a.scr|scr"));
        QCOMPARE(DWORD(dialog.m_ofn.nFilterIndex), 2u);
    });
    QTest::newRow("a filter that Qt shows without its double blank is not in the list: 0") << Promise([] {
        Dialog dialog(false, L"A  (*.a);;B (*.b)");
        dialog.m_ofn.nFilterIndex = 1;
        QCOMPARE(dialog.run(choose(QStringLiteral("x"))), INT_PTR(1));
        QCOMPARE(dialog.m_attri.nameFilters.constFirst(), QStringLiteral("A  (*.a)"));
        QCOMPARE(dialog.m_selectedNameFilter, dialog.m_dialog->selectedNameFilter());
        QCOMPARE(dialog.m_selectedNameFilter, QStringLiteral("A (*.a)"));
        QCOMPARE(DWORD(dialog.m_ofn.nFilterIndex), 0u);
    });
    QTest::newRow("only nFilterIndex is written into the record, nothing into its buffers") << Promise([] {
        Dialog dialog(false, slides);
        wchar_t file[] = L"first";
        wchar_t title[] = L"untouched";
        OPENFILENAMEW &record = *dialog.GetOFN();
        record.lStructSize = 1;
        record.hwndOwner = nullptr;
        record.hInstance = nullptr;
        record.nMaxCustFilter = 2;
        record.lpstrFile = file;
        record.nMaxFile = 0;
        record.lpstrFileTitle = title;
        record.nMaxFileTitle = 1;
        record.Flags = ~0u;
        record.nFileOffset = 3;
        record.nFileExtension = 4;
        record.lCustData = 5;
        record.lpfnHook = nullptr;
        record.pvReserved = nullptr;
        record.dwReserved = 6;
        record.FlagsEx = 7;
        OPENFILENAMEW expected = record;
        expected.nFilterIndex = 1;
        QCOMPARE(dialog.run(choose(QStringLiteral("a longer name"))), INT_PTR(1));
        const OPENFILENAMEW after = record;
        QVERIFY(std::memcmp(&after, &expected, sizeof after) == 0);
        QCOMPARE(QString::fromWCharArray(file), QStringLiteral("first"));
        QCOMPARE(QString::fromWCharArray(title), QStringLiteral("untouched"));
    });
    QTest::newRow("letters outside ASCII and beyond 16 bits") << Promise([] {
        Dialog dialog(false, L"All (*)");
        dialog.setFile(L"Pl\u00E4ne \U0001F600.\U0001F601");
        QCOMPARE(dialog.run(pressEnter), INT_PTR(1));
        QCOMPARE(dialog.results(), dialog.path(u8"Pl\u00E4ne \U0001F600.\U0001F601")
                     + QString::fromUtf8(u8"|Pl\u00E4ne \U0001F600.\U0001F601|\U0001F601"));
    });
    QTest::newRow("a cancelled run changes no result") << Promise([] {
        Dialog dialog(true, slides);
        const QStringList listed = {QStringLiteral("a.svf"), QStringLiteral("b.svf"),
                                    QStringLiteral("c.svf")};
        QVERIFY(dialog.makeFiles(listed));
        QCOMPARE(dialog.run(chooseSeveral(listed.mid(0, 2), listed)), INT_PTR(1));
        const QString results = dialog.results();
        const QStringList files = allOf(dialog);
        QCOMPARE(files.size(), 2);
        dialog.m_ofn.nFilterIndex = 2;
        QCOMPARE(dialog.run(lookAndCancel([](QFileDialog &run) { typeName(run, QStringLiteral("c.svf")); })),
                 INT_PTR(2));
        QCOMPARE(dialog.results(), results);
        QCOMPARE(allOf(dialog), files);
        QCOMPARE(dialog.m_nSelCount, 2LL);
        QCOMPARE(dialog.m_selectedNameFilter, QStringLiteral("*.svf"));
        QCOMPARE(DWORD(dialog.m_ofn.nFilterIndex), 2u);
    });
    QTest::newRow("a position kept from a longer run ends in the next") << Promise([] {
        Dialog dialog(true, L"All (*)");
        const QStringList files = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
        QVERIFY(dialog.makeFiles(files));
        QCOMPARE(dialog.run(chooseSeveral(files, files)), INT_PTR(1));
        POSITION pos = dialog.GetStartPosition();
        QCOMPARE(numberOf(pos), 3LL);
        QCOMPARE(dialog.run(choose(QStringLiteral("c"))), INT_PTR(1));
        QCOMPARE(nextOf(dialog, pos), QString());
        QVERIFY(!pos);
        QCOMPARE(allOf(dialog), QStringList({dialog.path("c")}));
    });
    QTest::newRow("the next accepted run replaces the results") << Promise([] {
        Dialog dialog(true, L"All (*)");
        const QStringList files = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c.x")};
        QVERIFY(dialog.makeFiles(files));
        QCOMPARE(dialog.run(chooseSeveral(files.mid(0, 2), files)), INT_PTR(1));
        QCOMPARE(dialog.m_nSelCount, 2LL);
        QCOMPARE(dialog.run(choose(QStringLiteral("c.x"))), INT_PTR(1));
        QCOMPARE(allOf(dialog), QStringList({dialog.path("c.x")}));
        QCOMPARE(dialog.results(), dialog.path("c.x") + QStringLiteral("|c.x|x"));
    });
}

void tst_QtFileDialogResults::lifetime_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("no QFileDialog before the first run") << Promise([] {
        const Dialog dialog(true, slides);
        QVERIFY(!dialog.m_dialog);
        QCOMPARE(allFileDialogs().size(), 0);
    });
    QTest::newRow("a cancelled run leaves its QFileDialog") << Promise([] {
        Dialog dialog(true, slides);
        dialog.run(pressEscape);
        QCOMPARE(allFileDialogs(), QList<QFileDialog *>({dialog.m_dialog}));
        QVERIFY(!dialog.m_dialog->isVisible());
    });
    QTest::newRow("an accepted run leaves its QFileDialog") << Promise([] {
        Dialog dialog(false, slides);
        dialog.run(choose(QStringLiteral("a")));
        QCOMPARE(allFileDialogs(), QList<QFileDialog *>({dialog.m_dialog}));
        QVERIFY(!dialog.m_dialog->isVisible());
    });
    QTest::newRow("the next run makes a new one and deletes the earlier") << Promise([] {
        Dialog dialog(true, slides);
        for (int run = 0; run < 3; ++run) {
            const QPointer<QFileDialog> earlier(dialog.m_dialog);
            dialog.run(lookAndCancel([&](QFileDialog &now) {
                QVERIFY(!earlier);
                QCOMPARE(&now, dialog.m_dialog);
                QCOMPARE(allFileDialogs().size(), 1);
            }));
        }
    });
    QTest::newRow("its end deletes the QFileDialog") << Promise([] {
        auto dialog = std::make_unique<Dialog>(true, slides);
        dialog->run(pressEscape);
        const QPointer<QFileDialog> made(dialog->m_dialog);
        QVERIFY(made);
        dialog.reset();
        QVERIFY(!made);
    });
    QTest::newRow("its end deletes the QFileDialog out of the parent") << Promise([] {
        QWidget parent;
        auto dialog = std::make_unique<Dialog>(true, slides, &parent);
        dialog->run(pressEscape);
        QCOMPARE(parent.findChildren<QFileDialog *>().size(), 1);
        dialog.reset();
        QCOMPARE(parent.findChildren<QFileDialog *>().size(), 0);
    });
    QTest::newRow("a parent that dies after a run takes the QFileDialog, the results stay") << Promise([] {
        auto parent = std::make_unique<QWidget>();
        Dialog dialog(false, slides, parent.get());
        QCOMPARE(dialog.run(choose(QStringLiteral("a"))), INT_PTR(1));
        const QPointer<QFileDialog> made(dialog.m_dialog);
        parent.reset();
        QVERIFY(!made);
        QCOMPARE(dialog.results(), dialog.path("a") + QStringLiteral("|a|"));
        QCOMPARE(allOf(dialog), QStringList({dialog.path("a")}));
    });
    QTest::newRow("a parent that dies during the run ends it with 2") << Promise([] {
        auto parent = std::make_unique<QWidget>();
        Dialog dialog(true, slides, parent.get());
        QCOMPARE(dialog.run([&parent](QFileDialog &) { parent.reset(); }), INT_PTR(2));
        QCOMPARE(allFileDialogs().size(), 0);
        QCOMPARE(dialog.results(), QStringLiteral("||"));
    });
    QTest::newRow("two dialogs keep their results apart") << Promise([] {
        Dialog one(false, slides);
        QCOMPARE(one.run(choose(QStringLiteral("a"))), INT_PTR(1));
        Dialog two(false, slides);
        QCOMPARE(two.run(choose(QStringLiteral("b"))), INT_PTR(1));
        QCOMPARE(allFileDialogs().size(), 2);
        QCOMPARE(one.results(), one.path("a") + QStringLiteral("|a|"));
        QCOMPARE(two.results(), two.path("b") + QStringLiteral("|b|"));
    });
}

KX_TEST_MAIN(tst_QtFileDialogResults)
#include "tst_qt_file_dialog_results.moc"
