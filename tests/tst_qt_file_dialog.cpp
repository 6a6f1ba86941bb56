// SPDX-License-Identifier: MIT
// KxQtFileDialog: its fields, its record, and what the constructor makes of the arguments.

#include "KxClassLayout.h"
#include "KxFileDialogRun.h"
#include "KxTestCase.h"

#include <afxdlgs.h>
#include <afxwin.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <type_traits>

using MakeDialog = std::function<OpenedFields *()>;
Q_DECLARE_METATYPE(MakeDialog)

namespace {

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

KX_TEST_MAIN(tst_QtFileDialog)
#include "tst_qt_file_dialog.moc"
