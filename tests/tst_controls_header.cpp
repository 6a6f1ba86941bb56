// SPDX-License-Identifier: MIT
// CHeaderCtrl over the headers of tables.

#include "KxClassLayout.h"
#include "KxTestCase.h"

#include <QtCore/QStringListModel>
#include <QtGui/QStandardItemModel>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTreeWidget>

#include <afxcmn.h>

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>

/// A caller that goes through a pointer to no object, on purpose.
#define KX_CALLS_THROUGH_SMALL_POINTER __attribute__((no_sanitize("undefined")))

using Promise = void (*)();
using HeaderCall = qint64 (*)(CHeaderCtrl *);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(HeaderCall)

namespace {

/// A table with four columns: "one", "two", one without a header item, "four".
struct Table {
    Table() : widget(2, 4)
    {
        widget.setHorizontalHeaderItem(0, new QTableWidgetItem(QStringLiteral("one")));
        widget.setHorizontalHeaderItem(1, new QTableWidgetItem(QStringLiteral("two")));
        widget.setHorizontalHeaderItem(3, new QTableWidgetItem(QStringLiteral("four")));
        control.Attach(KxHwndFromWidget(widget.horizontalHeader()));
    }

    QTableWidget widget;
    CHeaderCtrl control;
};

/// The same as a table view over a model.
struct ModelTable {
    ModelTable() : model(2, 4)
    {
        model.setHorizontalHeaderItem(0, new QStandardItem(QStringLiteral("one")));
        model.setHorizontalHeaderItem(1, new QStandardItem(QStringLiteral("two")));
        model.setHorizontalHeaderItem(3, new QStandardItem(QStringLiteral("four")));
        widget.setModel(&model);
        control.Attach(KxHwndFromWidget(widget.horizontalHeader()));
    }

    QStandardItemModel model;
    QTableView widget;
    CHeaderCtrl control;
};

template<class Kind>
QString headerText(const Kind &table, int column)
{
    return table.widget.model()->headerData(column, Qt::Horizontal).toString();
}

void giveText(Table &table, int column, const QString &text)
{
    table.widget.setHorizontalHeaderItem(column, new QTableWidgetItem(text));
}

void giveText(ModelTable &table, int column, const QString &text)
{
    table.model.setHorizontalHeaderItem(column, new QStandardItem(text));
}

/// A record with something in every field.
HDITEMW filledRecord(wchar_t *text = nullptr)
{
    HDITEMW record = {};
    record.mask = HDI_WIDTH | HDI_LPARAM;
    record.cxy = 1;
    record.pszText = text;
    record.hbm = reinterpret_cast<HBITMAP>(static_cast<quintptr>(2));
    record.cchTextMax = 3;
    record.fmt = 4;
    record.lParam = 5;
    record.iImage = 6;
    record.iOrder = 7;
    record.type = 8;
    record.pvFilter = record.hbm;
    record.state = 9;
    return record;
}

/// What GetItem() gives: the text, or "(none)".
QString gotText(const CHeaderCtrl &control, int column)
{
    HDITEMW record = {};
    if (!control.GetItem(column, &record))
        return record.pszText ? QStringLiteral("(none, but a text)") : QStringLiteral("(none)");
    return QString::fromWCharArray(record.pszText);
}

bool setText(CHeaderCtrl &control, int column, const wchar_t *text)
{
    std::wstring copy(text);
    HDITEMW record = {};
    record.pszText = &copy[0];
    return control.SetItem(column, &record);
}

const QString none = QStringLiteral("(none)");

template<class Kind>
void getItemPromises(const char *kind)
{
    const auto row = [kind](const char *name, Promise promise) {
        QTest::addRow("%s, %s", name, kind) << promise;
    };

    row("GetItemCount is the number of columns", [] {
        Kind table;
        QCOMPARE(table.control.GetItemCount(), 4);
        table.widget.hideColumn(1);
        QCOMPARE(table.control.GetItemCount(), 4);
        table.widget.model()->removeColumns(0, 3);
        QCOMPARE(table.control.GetItemCount(), 1);
        table.widget.model()->removeColumn(0);
        QCOMPARE(table.control.GetItemCount(), 0);
    });
    row("GetItem gives the text of each column", [] {
        Kind table;
        QCOMPARE(gotText(table.control, 0), QStringLiteral("one"));
        QCOMPARE(gotText(table.control, 1), QStringLiteral("two"));
        QCOMPARE(gotText(table.control, 3), QStringLiteral("four"));
    });
    row("GetItem of a column without a header item is FALSE", [] {
        Kind table;
        QCOMPARE(gotText(table.control, 2), none);
    });
    row("GetItem of a column that is not there is FALSE", [] {
        Kind table;
        QCOMPARE(gotText(table.control, -1), none);
        QCOMPARE(gotText(table.control, 4), none);
    });
    row("GetItem takes the columns as they are numbered, not as they were moved", [] {
        Kind table;
        table.widget.horizontalHeader()->moveSection(0, 3);
        QCOMPARE(gotText(table.control, 0), QStringLiteral("one"));
    });
    row("GetItem fills pszText and nothing else, whatever the mask", [] {
        Kind table;
        for (const UINT mask : {0u, unsigned(HDI_TEXT), unsigned(HDI_WIDTH | HDI_LPARAM)}) {
            HDITEMW record = filledRecord();
            record.mask = mask;
            HDITEMW expected;
            std::memcpy(&expected, &record, sizeof expected);
            QCOMPARE(table.control.GetItem(0, &record), true);
            QCOMPARE(QString::fromWCharArray(record.pszText), QStringLiteral("one"));
            record.pszText = nullptr;
            QCOMPARE(std::memcmp(&record, &expected, sizeof record), 0);
        }
    });
    row("GetItem of no text leaves the record", [] {
        Kind table;
        HDITEMW record = filledRecord();
        HDITEMW expected;
        std::memcpy(&expected, &record, sizeof expected);
        QCOMPARE(table.control.GetItem(2, &record), false);
        QCOMPARE(std::memcmp(&record, &expected, sizeof record), 0);
    });
    row("GetItem gives an empty text as one", [] {
        Kind table;
        table.widget.model()->setHeaderData(0, Qt::Horizontal, QString());
        HDITEMW record = {};
        QCOMPARE(table.control.GetItem(0, &record), true);
        QVERIFY(record.pszText != nullptr);
        QCOMPARE(std::wcslen(record.pszText), std::size_t(0));
    });
    row("GetItem gives a character beyond 16 bits as one", [] {
        Kind table;
        table.widget.model()->setHeaderData(0, Qt::Horizontal, QStringLiteral("\u00e9\U0001F600"));
        HDITEMW record = {};
        QCOMPARE(table.control.GetItem(0, &record), true);
        QCOMPARE(std::wcscmp(record.pszText, L"\u00e9\U0001F600"), 0);
    });
    row("GetItem gives a text of 10,000 characters", [] {
        Kind table;
        const QString longText(10000, QLatin1Char('x'));
        table.widget.model()->setHeaderData(0, Qt::Horizontal, longText);
        QCOMPARE(gotText(table.control, 0), longText);
    });
    row("GetItem gives the text as it is now", [] {
        Kind table;
        gotText(table.control, 0);
        table.widget.model()->setHeaderData(0, Qt::Horizontal, QStringLiteral("now"));
        QCOMPARE(gotText(table.control, 0), QStringLiteral("now"));
    });
    row("the texts of two columns are there at once", [] {
        Kind table;
        HDITEMW first = {};
        HDITEMW second = {};
        HDITEMW last = {};
        QCOMPARE(table.control.GetItem(0, &first), true);
        QCOMPARE(table.control.GetItem(1, &second), true);
        QCOMPARE(table.control.GetItem(3, &last), true);
        QCOMPARE(QString::fromWCharArray(first.pszText), QStringLiteral("one"));
        QCOMPARE(QString::fromWCharArray(second.pszText), QStringLiteral("two"));
        QCOMPARE(QString::fromWCharArray(last.pszText), QStringLiteral("four"));
    });
    row("a text outlives the window object", [] {
        Kind table;
        HDITEMW record = {};
        {
            const auto header = std::make_unique<CHeaderCtrl>();
            header->Attach(KxHwndFromWidget(table.widget.horizontalHeader()));
            QCOMPARE(header->GetItem(1, &record), true);
        }
        QCOMPARE(QString::fromWCharArray(record.pszText), QStringLiteral("two"));
        CHeaderCtrl next;
        next.Attach(KxHwndFromWidget(table.widget.horizontalHeader()));
        QCOMPARE(gotText(next, 0), QStringLiteral("one"));
        QCOMPARE(QString::fromWCharArray(record.pszText), QStringLiteral("two"));
    });
    row("a text outlives the column's own text and the column", [] {
        Kind table;
        HDITEMW record = {};
        QCOMPARE(table.control.GetItem(1, &record), true);
        table.widget.model()->setHeaderData(1, Qt::Horizontal, QStringLiteral("changed"));
        QCOMPARE(QString::fromWCharArray(record.pszText), QStringLiteral("two"));
        table.widget.model()->removeColumns(0, 4);
        QCOMPARE(QString::fromWCharArray(record.pszText), QStringLiteral("two"));
    });
    row("two headers keep their texts apart", [] {
        Kind table;
        Kind other;
        other.widget.model()->setHeaderData(0, Qt::Horizontal, QStringLiteral("other"));
        HDITEMW record = {};
        HDITEMW otherRecord = {};
        table.control.GetItem(0, &record);
        other.control.GetItem(0, &otherRecord);
        QCOMPARE(QString::fromWCharArray(record.pszText), QStringLiteral("one"));
        QCOMPARE(QString::fromWCharArray(otherRecord.pszText), QStringLiteral("other"));
    });
    row("the texts of 100 columns are there at once", [] {
        Kind table;
        table.widget.model()->insertColumns(4, 100);
        QList<const wchar_t *> texts;
        for (int column = 4; column < 104; ++column) {
            giveText(table, column, QString::number(column));
            HDITEMW record = {};
            QCOMPARE(table.control.GetItem(column, &record), true);
            texts.append(record.pszText);
        }
        for (int i = 0; i < texts.size(); ++i)
            QCOMPARE(QString::fromWCharArray(texts[i]), QString::number(i + 4));
    });
    row("SetItem sets the text of a column that has one", [] {
        Kind table;
        QCOMPARE(setText(table.control, 1, L"new \U0001F600"), true);
        QCOMPARE(headerText(table, 1), QStringLiteral("new \U0001F600"));
        QCOMPARE(headerText(table, 0), QStringLiteral("one"));
        QCOMPARE(headerText(table, 3), QStringLiteral("four"));
    });
    row("SetItem sets the text whatever the mask, and leaves the record and the width", [] {
        Kind table;
        const int width = table.widget.columnWidth(1);
        wchar_t text[] = L"new";
        HDITEMW record = filledRecord(text);
        HDITEMW expected;
        std::memcpy(&expected, &record, sizeof expected);
        QCOMPARE(table.control.SetItem(1, &record), true);
        QCOMPARE(headerText(table, 1), QStringLiteral("new"));
        QCOMPARE(std::memcmp(&record, &expected, sizeof record), 0);
        QCOMPARE(table.widget.columnWidth(1), width);
    });
    row("SetItem of a column without a header item is FALSE and makes none", [] {
        Kind table;
        QCOMPARE(setText(table.control, 2, L"new"), false);
        QCOMPARE(gotText(table.control, 2), none);
        QCOMPARE(headerText(table, 2), QStringLiteral("3"));
    });
    row("SetItem of a column that is not there is FALSE", [] {
        Kind table;
        QCOMPARE(setText(table.control, -1, L"new"), false);
        QCOMPARE(setText(table.control, 4, L"new"), false);
        QCOMPARE(table.control.GetItemCount(), 4);
    });
    row("SetItem is heard from the model", [] {
        Kind table;
        int heard = 0;
        QObject::connect(table.widget.model(), &QAbstractItemModel::headerDataChanged,
                         [&heard](Qt::Orientation, int first, int last) {
                             heard += first <= 1 && last >= 1;
                         });
        setText(table.control, 1, L"new");
        QVERIFY(heard >= 1);
    });
    row("SetItem from a text that GetItem gave", [] {
        Kind table;
        HDITEMW record = {};
        QCOMPARE(table.control.GetItem(0, &record), true);
        QCOMPARE(table.control.SetItem(1, &record), true);
        QCOMPARE(headerText(table, 1), QStringLiteral("one"));
    });
    row("the members of a header control on a plain window object", [] {
        QWidget dialogWidget;
        Kind table;
        CWnd dialog;
        dialog.Attach(KxHwndFromWidget(&dialogWidget));
        auto *view = new QHeaderView(Qt::Horizontal, &table.widget);
        view->setModel(table.widget.model());
        dialog.SetDlgItem(7, KxHwndFromWidget(view));
        CWnd *plain = dialog.GetDlgItem(7);
        QVERIFY(typeid(*plain) == typeid(CWnd));
        auto *header = static_cast<CHeaderCtrl *>(plain);
        QCOMPARE(header->GetItemCount(), 4);
        QCOMPARE(gotText(*header, 1), QStringLiteral("two"));
        QCOMPARE(setText(*header, 1, L"new"), true);
        QCOMPARE(gotText(*header, 1), QStringLiteral("new"));
    });
}

#define KX_CALL(expression) \
    [](CHeaderCtrl *header) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { return qint64(expression); }

struct NamedCall {
    const char *name;
    HeaderCall call;
};

const NamedCall calls[] = {
    {"GetItemCount", KX_CALL(header->GetItemCount())},
    {"GetItem", [](CHeaderCtrl *header) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
         HDITEMW record = filledRecord();
         const qint64 result = header->GetItem(0, &record);
         return record.pszText ? -1 : result;
     }},
    {"SetItem", [](CHeaderCtrl *header) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
         wchar_t text[] = L"new";
         HDITEMW record = filledRecord(text);
         return header->SetItem(0, &record);
     }},
};

#undef KX_CALL

} // namespace

class ControlsHeaderTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts() { runPromise(); }
    void otherViews_data();
    void otherViews() { runPromise(); }
    void withoutHeader_data();
    void withoutHeader();
    void smallPointer_data();
    void smallPointer();
    void layout();

private:
    static void runPromise()
    {
        const auto tableBefore = CWndHandleTable.size();
        QFETCH(Promise, promise);
        promise();
        if (!QTest::currentTestFailed())
            QCOMPARE(CWndHandleTable.size(), tableBefore);
    }
};

void ControlsHeaderTest::texts_data()
{
    QTest::addColumn<Promise>("promise");
    getItemPromises<Table>("QTableWidget");
    getItemPromises<ModelTable>("QTableView");
}

void ControlsHeaderTest::otherViews_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a table view over another model has a count and no texts") << Promise([] {
        QTableView view;
        QStringListModel model({QStringLiteral("a"), QStringLiteral("b")});
        view.setModel(&model);
        CHeaderCtrl header;
        header.Attach(KxHwndFromWidget(view.horizontalHeader()));
        QCOMPARE(header.GetItemCount(), 1);
        QCOMPARE(gotText(header, 0), none);
        QCOMPARE(setText(header, 0, L"new"), false);
    });
    QTest::newRow("the header of a tree has a count and no texts") << Promise([] {
        QTreeWidget tree;
        tree.setHeaderLabels({QStringLiteral("a"), QStringLiteral("b")});
        CHeaderCtrl header;
        header.Attach(KxHwndFromWidget(tree.header()));
        QCOMPARE(header.GetItemCount(), 2);
        QCOMPARE(gotText(header, 0), none);
        QCOMPARE(setText(header, 0, L"new"), false);
        QCOMPARE(tree.headerItem()->text(0), QStringLiteral("a"));
    });
    QTest::newRow("a tree view over a QStandardItemModel has a count and no texts") << Promise([] {
        QTreeView tree;
        QStandardItemModel model;
        model.setHorizontalHeaderLabels({QStringLiteral("a"), QStringLiteral("b")});
        tree.setModel(&model);
        CHeaderCtrl header;
        header.Attach(KxHwndFromWidget(tree.header()));
        QCOMPARE(header.GetItemCount(), 2);
        QCOMPARE(gotText(header, 0), none);
        QCOMPARE(setText(header, 0, L"new"), false);
        QCOMPARE(model.horizontalHeaderItem(0)->text(), QStringLiteral("a"));
    });
    QTest::newRow("a header without a parent has a count and no texts") << Promise([] {
        QStandardItemModel model;
        model.setHorizontalHeaderLabels({QStringLiteral("a"), QStringLiteral("b")});
        QHeaderView view(Qt::Horizontal);
        view.setModel(&model);
        CHeaderCtrl header;
        header.Attach(KxHwndFromWidget(&view));
        QCOMPARE(header.GetItemCount(), 2);
        QCOMPARE(gotText(header, 0), none);
        QCOMPARE(setText(header, 0, L"new"), false);
        QCOMPARE(model.horizontalHeaderItem(0)->text(), QStringLiteral("a"));
    });
    QTest::newRow("a header without a model has no columns and no texts") << Promise([] {
        QHeaderView view(Qt::Horizontal);
        CHeaderCtrl header;
        header.Attach(KxHwndFromWidget(&view));
        QCOMPARE(header.GetItemCount(), 0);
        QCOMPARE(gotText(header, 0), none);
        QCOMPARE(setText(header, 0, L"new"), false);
    });
    QTest::newRow("a table view without a model has no texts") << Promise([] {
        QTableView view;
        CHeaderCtrl header;
        header.Attach(KxHwndFromWidget(view.horizontalHeader()));
        QCOMPARE(gotText(header, 0), none);
        QCOMPARE(setText(header, 0, L"new"), false);
    });
    QTest::newRow("the vertical header tells of the columns too") << Promise([] {
        Table table;
        CHeaderCtrl header;
        header.Attach(KxHwndFromWidget(table.widget.verticalHeader()));
        QCOMPARE(header.GetItemCount(), 4);
        QCOMPARE(gotText(header, 1), QStringLiteral("two"));
    });
}

void ControlsHeaderTest::withoutHeader_data()
{
    QTest::addColumn<HeaderCall>("call");
    QTest::addColumn<QString>("situation");
    for (const char *situation : {"unbound", "orphaned", "on a table", "on its viewport"}) {
        for (const NamedCall &call : calls)
            QTest::addRow("%s %s", call.name, situation) << call.call << QString::fromLatin1(situation);
    }
}

void ControlsHeaderTest::withoutHeader()
{
    QFETCH(HeaderCall, call);
    QFETCH(QString, situation);
    Table table;
    CHeaderCtrl owner;
    CHeaderCtrl header;
    CHeaderCtrl *used = &header;
    if (situation == QLatin1String("orphaned")) {
        owner.Attach(KxHwndFromWidget(table.widget.horizontalHeader()));
        used = &table.control;
    } else if (situation == QLatin1String("on a table")) {
        header.Attach(KxHwndFromWidget(&table.widget));
    } else if (situation == QLatin1String("on its viewport")) {
        header.Attach(KxHwndFromWidget(table.widget.viewport()));
    }
    QCOMPARE(call(used), 0);
    QCOMPARE(headerText(table, 0), QStringLiteral("one"));
}

void ControlsHeaderTest::smallPointer_data()
{
    QTest::addColumn<HeaderCall>("call");
    QTest::addColumn<quintptr>("pointer");
    for (const quintptr pointer : {quintptr(0), quintptr(7), quintptr(4095)}) {
        for (const NamedCall &call : calls)
            QTest::addRow("%s through %d", call.name, static_cast<int>(pointer)) << call.call << pointer;
    }
}

/// A member that touched memory would end the program here.
void ControlsHeaderTest::smallPointer()
{
    QFETCH(HeaderCall, call);
    QFETCH(quintptr, pointer);
    const auto entries = CWndHandleTable.size();
    call(reinterpret_cast<CHeaderCtrl *>(pointer));
    QCOMPARE(CWndHandleTable.size(), entries);
}

/// A window object without fields of its own that overrides the destructors, slots 0 and 1, of CWnd's 20.
void ControlsHeaderTest::layout()
{
    struct Derived : CHeaderCtrl {
        virtual void next() {}
    };
    QVERIFY((std::is_base_of_v<CWnd, CHeaderCtrl>));
    QCOMPARE(sizeof(CHeaderCtrl), sizeof(CWnd));
    QCOMPARE(slotOf(&Derived::next), 20);

    const CWnd window;
    const CHeaderCtrl header;
    const void *const *table = nullptr;
    const void *const *windowTable = nullptr;
    std::memcpy(&table, static_cast<const void *>(&header), sizeof table);
    std::memcpy(&windowTable, static_cast<const void *>(&window), sizeof windowTable);
    QList<int> found;
    for (int slot = 0; slot < 20; ++slot) {
        if (table[slot] != windowTable[slot])
            found.append(slot);
    }
    QCOMPARE(found, (QList<int>{0, 1}));
}

KX_TEST_MAIN(ControlsHeaderTest)
#include "tst_controls_header.moc"
