// SPDX-License-Identifier: MIT
// Where CComboBox finds a text: always where QComboBox::findText() does, whatever the host did to the list.

#include "KxTestCase.h"

#include <QtCore/QDate>
#include <QtCore/QRandomGenerator>
#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QStringListModel>
#include <QtCore/QUrl>
#include <QtGui/QColor>
#include <QtGui/QStandardItemModel>
#include <QtWidgets/QComboBox>

#include <afxwin.h>

#include <functional>
#include <memory>
#include <string>

namespace {

/// Few texts, so that equal ones meet often.
const QStringList &texts()
{
    static const QStringList all = {
        QString(), QStringLiteral("a"), QStringLiteral("A"), QStringLiteral("ab"), QStringLiteral(" a"),
        QStringLiteral("5"), QStringLiteral("05"), QStringLiteral("0.5"), QStringLiteral("true"),
        QStringLiteral("2020-02-03"), QString::fromUtf8("\xC3\xA9"), QString::fromUtf8("e\xCC\x81"),
        QString::fromUtf8("\xF0\x9F\x98\x80"), QStringLiteral("layer 1"), QStringLiteral("Layer 1"),
        QStringLiteral("layer 10"), QStringLiteral("#ff0000"), QStringLiteral("x-5"), QStringLiteral("q"),
        QStringLiteral("r"), QStringLiteral("s"), QStringLiteral("t"), QStringLiteral("u"),
        QStringLiteral("v"), QStringLiteral("w"), QStringLiteral("y"), QStringLiteral("z")};
    return all;
}

/// What a host may keep in a row in place of a text.
const QVariantList &otherValues()
{
    static const QVariantList all = {
        QVariant(), QVariant(5), QVariant(5u), QVariant(5LL), QVariant(0.5), QVariant(true),
        QVariant(QByteArray("a")), QVariant(QByteArray()), QVariant(QDate(2020, 2, 3)), QVariant(QChar(u'A')),
        QVariant(QUrl(QStringLiteral("ab"))), QVariant(QColor(Qt::red)),
        QVariant(QStringList{QStringLiteral("ab")}),
        QVariant(QString()), QVariant(QLatin1String("")), QVariant::fromValue<void *>(nullptr)};
    return all;
}

int findText(const QComboBox &combo, const QString &text)
{
    return combo.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
}

/// Where the combo box finds a text; the text crosses as the wide string that a host has.
int findString(const CComboBox &control, const QString &text)
{
    return control.FindString(-1, text.toStdWString().c_str());
}

/// A combo box that is found out: rows "row 0" and on, and beyond the length at which it searches otherwise.
struct Combo {
    explicit Combo(int rows = 0)
    {
        for (int row = 0; row < rows; ++row)
            widget.addItem(QStringLiteral("row %1").arg(row));
        control.Attach(KxHwndFromWidget(&widget));
    }

    QStandardItemModel *items() const { return qobject_cast<QStandardItemModel *>(widget.model()); }
    int find(const char *text) const { return findString(control, QString::fromUtf8(text)); }
    int findText(const char *text) const { return ::findText(widget, QString::fromUtf8(text)); }

    QComboBox widget;
    CComboBox control;
};

/// Shows every text with a mark in front, and the mark changes without a word.
class MarkingModel : public QStandardItemModel
{
public:
    using QStandardItemModel::QStandardItemModel;
    QVariant data(const QModelIndex &index, int role) const override
    {
        const QVariant value = QStandardItemModel::data(index, role);
        return role == Qt::DisplayRole ? QVariant(mark + value.toString()) : value;
    }

    QString mark = QStringLiteral("x-");
};

/// Searches in its own way: finds nothing that begins with "a".
class PickyModel : public QStandardItemModel
{
public:
    using QStandardItemModel::QStandardItemModel;
    QModelIndexList match(const QModelIndex &start, int role, const QVariant &value, int hits,
                          Qt::MatchFlags flags) const override
    {
        if (value.toString().startsWith(QLatin1Char('a')))
            return {};
        return QStandardItemModel::match(start, role, value, hits, flags);
    }
};

/// A row whose text comes from somewhere else.
class BorrowingItem : public QStandardItem
{
public:
    explicit BorrowingItem(const QString *lender) : m_lender(lender) {}
    QVariant data(int role) const override
    {
        const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
        return isText ? QVariant(*m_lender) : QStandardItem::data(role);
    }

private:
    const QString *m_lender;
};

/// Two combo boxes, the models that they may have, and one step after another of all a host can do to them.
class RandomHost
{
public:
    explicit RandomHost(quint32 seed) : m_random(seed)
    {
        for (int i = 0; i < 2; ++i)
            m_models.emplace_back(new QStandardItemModel);
        m_models.emplace_back(new QStringListModel);
        m_models.emplace_back(new MarkingModel);
        m_models.emplace_back(new PickyModel);
        m_proxy.setSourceModel(&m_source);
        for (int i = 0; i < 30; ++i)
            combo().widget.addItem(text());
    }

    /// Does one thing; returns its name and what was wrong with its result.
    QString step();
    /// Every text that is not found where it is.
    QString differences() const;

private:
    int number(int below) { return below > 0 ? int(m_random.bounded(quint32(below))) : 0; }
    QString text() { return texts().at(number(texts().size())); }
    QVariant otherValue() { return otherValues().at(number(otherValues().size())); }
    Combo &combo() { return m_combos[m_turn]; }
    QComboBox &widget() { return combo().widget; }
    int row() { return number(widget().count()); }
    QStandardItem *item();
    void addMany();

    QString memberStep();
    QString widgetStep();
    QString itemStep();
    QString modelStep();

    QRandomGenerator m_random;
    QString m_lent = QStringLiteral("a");
    std::vector<std::unique_ptr<QAbstractItemModel>> m_models;
    QStandardItemModel m_source;
    QSortFilterProxyModel m_proxy;
    Combo m_combos[2];
    int m_turn = 0;
};

QStandardItem *RandomHost::item()
{
    QStandardItemModel *items = combo().items();
    return items && items->rowCount() > 0 ? items->item(number(items->rowCount()), widget().modelColumn())
                                          : nullptr;
}

void RandomHost::addMany()
{
    for (int i = 0; i < 25; ++i)
        widget().addItem(text());
}

QString RandomHost::memberStep()
{
    CComboBox &control = combo().control;
    const QString added = text();
    const std::wstring wide = added.toStdWString();
    const int found = findText(widget(), added);
    const int before = widget().count();
    const bool isThere = found >= 0 && !added.isEmpty();
    switch (number(6)) {
    case 0:
    case 1: {
        const int index = control.AddString(wide.c_str());
        const int expected = isThere ? found : before;
        return index == expected ? QStringLiteral("AddString")
                                 : QStringLiteral("!AddString gave %1, not %2").arg(index).arg(expected);
    }
    case 2:
    case 3: {
        const int at = number(before + 4) - 2;
        const int index = control.InsertString(at, wide.c_str());
        const int expected = isThere ? found : at == -1 ? widget().count() - 1 : at;
        return index == expected ? QStringLiteral("InsertString")
                                 : QStringLiteral("!InsertString at %1 gave %2, not %3").arg(at).arg(index)
                                       .arg(expected);
    }
    case 4: {
        const int index = control.SelectString(-1, wide.c_str());
        return index == found ? QStringLiteral("SelectString")
                              : QStringLiteral("!SelectString gave %1, not %2").arg(index).arg(found);
    }
    default:
        control.DeleteString(UINT(row()));
        return QStringLiteral("DeleteString");
    }
}

QString RandomHost::widgetStep()
{
    switch (number(12)) {
    case 0: widget().addItem(text()); return QStringLiteral("addItem");
    case 1: widget().insertItem(row(), text()); return QStringLiteral("insertItem");
    case 2:
        widget().insertItems(row(), {text(), text(), text()});
        return QStringLiteral("insertItems");
    case 3: widget().removeItem(row()); return QStringLiteral("removeItem");
    case 4: widget().setItemText(row(), text()); return QStringLiteral("setItemText");
    case 5:
        widget().setItemData(row(), otherValue(), Qt::DisplayRole);
        return QStringLiteral("setItemData(DisplayRole)");
    case 6:
        widget().setItemData(row(), text(), Qt::EditRole);
        return QStringLiteral("setItemData(EditRole)");
    case 7: widget().insertSeparator(row()); return QStringLiteral("insertSeparator");
    case 8: widget().setModelColumn(number(2)); return QStringLiteral("setModelColumn");
    case 9: {
        if (widget().model() == &m_proxy)
            return QStringLiteral("nothing"); // It cannot bear that itself.
        const QSignalBlocker quiet(widget().model());
        const int before = widget().count();
        if (number(2) == 0)
            widget().model()->insertRows(number(before + 1), 1);
        else if (before > 0)
            widget().model()->removeRows(row(), 1);
        return QStringLiteral("a row more or less with the model's signals blocked");
    }
    case 10:
        if (widget().count() > 1)
            widget().model()->moveRow(QModelIndex(), row(), QModelIndex(), row());
        return QStringLiteral("moveRow");
    default:
        if (number(20) == 0) {
            if (number(2) == 0)
                widget().clear();
            else
                combo().control.ResetContent();
            addMany();
        }
        return QStringLiteral("clear and 25 rows");
    }
}

QString RandomHost::itemStep()
{
    QStandardItemModel *items = combo().items();
    if (!items)
        return widgetStep();
    QStandardItem *some = item();
    const int column = widget().modelColumn();
    switch (number(16)) {
    case 0: if (some) some->setText(text()); return QStringLiteral("item->setText");
    case 1:
        if (some) some->setData(otherValue(), Qt::DisplayRole);
        return QStringLiteral("item->setData");
    case 2: qDeleteAll(items->takeRow(row())); return QStringLiteral("takeRow");
    case 3: delete items->takeItem(row(), column); return QStringLiteral("takeItem");
    case 4:
        items->insertColumn(number(items->columnCount() + 1));
        return QStringLiteral("insertColumn");
    case 5:
        if (items->columnCount() > 2)
            items->removeColumn(number(items->columnCount()));
        return QStringLiteral("removeColumn");
    case 6:
        items->sort(column, number(2) ? Qt::AscendingOrder : Qt::DescendingOrder);
        return QStringLiteral("sort");
    case 7:
        items->setItem(row(), column, new QStandardItem(text()));
        return QStringLiteral("setItem");
    case 8:
        items->setItem(row(), column, new BorrowingItem(&m_lent));
        return QStringLiteral("setItem(subclass)");
    case 9: m_lent = text(); return QStringLiteral("the lent text becomes another");
    case 10:
        items->appendRow({new QStandardItem(text()), new QStandardItem(text())});
        return QStringLiteral("appendRow");
    case 11: items->insertRow(row(), new QStandardItem(text())); return QStringLiteral("insertRow");
    case 12:
        items->insertRow(row(), new BorrowingItem(&m_lent));
        return QStringLiteral("insertRow(subclass)");
    case 13:
        items->setItemData(items->index(row(), column), {{Qt::DisplayRole, text()}});
        return QStringLiteral("setItemData(map)");
    case 14: items->setRowCount(items->rowCount() + 1); return QStringLiteral("setRowCount");
    default:
        if (items->rowCount() > 0) {
            if (!items->item(0))
                items->setItem(0, new QStandardItem);
            items->item(0)->appendRow(new QStandardItem(text()));
            if (number(4) == 0) {
                items->item(0)->appendRow(new QStandardItem(text()));
                widget().setRootModelIndex(items->index(0, 0));
            } else {
                widget().setRootModelIndex(QModelIndex());
            }
        }
        return QStringLiteral("a row with rows, shown or not");
    }
}

QString RandomHost::modelStep()
{
    const int which = number(int(m_models.size()) + 4);
    if (which < int(m_models.size())) {
        widget().setModel(m_models[std::size_t(which)].get());
    } else if (which == int(m_models.size())) {
        m_proxy.setFilterFixedString(number(2) ? QString() : QStringLiteral("a"));
        widget().setModel(&m_proxy);
    } else if (which == int(m_models.size()) + 1) {
        widget().setModel(m_combos[1 - m_turn].widget.model());
    } else if (which == int(m_models.size()) + 2) {
        static_cast<MarkingModel *>(m_models[3].get())->mark = number(2) ? QStringLiteral("x-") : QString();
    } else {
        widget().setModel(new QStandardItemModel(&widget()));
    }
    if (widget().count() < 20)
        addMany();
    return QStringLiteral("setModel %1").arg(which);
}

QString RandomHost::step()
{
    m_turn = number(2);
    while (widget().count() > 70)
        widget().removeItem(row());
    const int kind = number(100);
    if (kind < 40)
        return memberStep();
    if (kind < 70)
        return widgetStep();
    if (kind < 98)
        return itemStep();
    return modelStep();
}

QString RandomHost::differences() const
{
    QStringList found;
    for (int i = 0; i < 2; ++i) {
        for (const QString &text : texts()) {
            const int row = findString(m_combos[i].control, text);
            const int expected = findText(m_combos[i].widget, text);
            if (row != expected)
                found.append(QStringLiteral("combo %1 of %2 rows, \"%3\": %4, not %5").arg(i)
                                 .arg(m_combos[i].widget.count()).arg(text).arg(row).arg(expected));
        }
    }
    return found.join(QStringLiteral("; "));
}

using HostCall = std::function<void(Combo &)>;

} // namespace

Q_DECLARE_METATYPE(HostCall)

class ControlsComboBoxTextsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void hostCall_data();
    void hostCall();
    void value_data();
    void value();
    void length_data();
    void length();
    void randomHost_data();
    void randomHost();
    void sharedModel();
    void vanishedModel();
    void lookedUpLater();
    void anotherObject();
    void tenThousand();
    void twoThousandInFront();
};

/// One call of the host in a list of 40 rows, "row 0" to "row 39", that was searched before: the texts "new",
/// "row 3" and "row 30" are found where findText() finds them.
void ControlsComboBoxTextsTest::hostCall_data()
{
    QTest::addColumn<HostCall>("call");
    const auto row = [](const char *name, const HostCall &call) { QTest::newRow(name) << call; };
    const QString added = QStringLiteral("new");
    const QString early = QStringLiteral("row 3");
    const QString late = QStringLiteral("row 30");

    row("no call at all", [](Combo &) {});
    row("addItem", [=](Combo &c) { c.widget.addItem(added); });
    row("addItem of a text that is there", [=](Combo &c) { c.widget.addItem(early); });
    row("insertItem in front", [=](Combo &c) { c.widget.insertItem(0, added); });
    row("insertItem of a text that is further down", [=](Combo &c) { c.widget.insertItem(0, late); });
    row("addItems", [=](Combo &c) { c.widget.addItems({added, added, early}); });
    row("removeItem of the row", [](Combo &c) { c.widget.removeItem(3); });
    row("removeItem in front of the row", [](Combo &c) { c.widget.removeItem(0); });
    row("removeItem of the first of two", [=](Combo &c) {
        c.widget.addItem(early);
        c.widget.removeItem(3);
    });
    row("setItemText to another", [=](Combo &c) { c.widget.setItemText(3, added); });
    row("setItemText to one that is further down", [=](Combo &c) { c.widget.setItemText(3, late); });
    row("setItemText to one in another case",
        [](Combo &c) { c.widget.setItemText(3, QStringLiteral("Row 30")); });
    row("setItemData with a number for the text",
        [](Combo &c) { c.widget.setItemData(3, 7, Qt::DisplayRole); });
    row("setItemData of another role", [](Combo &c) { c.widget.setItemData(3, QStringLiteral("new")); });
    row("insertSeparator", [](Combo &c) { c.widget.insertSeparator(2); });
    row("clear", [](Combo &c) { c.widget.clear(); });
    row("clear and other rows", [=](Combo &c) {
        c.widget.clear();
        for (int i = 0; i < 40; ++i)
            c.widget.addItem(i == 20 ? late : added);
    });
    row("sort downwards", [](Combo &c) { c.widget.model()->sort(0, Qt::DescendingOrder); });
    row("setModelColumn", [](Combo &c) {
        c.items()->insertColumn(0);
        c.widget.setModelColumn(1);
    });
    row("insertColumn in front", [](Combo &c) { c.items()->insertColumn(0); });
    row("a column of other texts", [=](Combo &c) {
        for (int i = 0; i < 40; ++i)
            c.items()->setItem(i, 1, new QStandardItem(i == 5 ? late : added));
        c.widget.setModelColumn(1);
    });
    row("item->setText", [=](Combo &c) { c.items()->item(3)->setText(added); });
    row("item->setData", [=](Combo &c) { c.items()->item(3)->setData(late, Qt::DisplayRole); });
    row("takeItem", [](Combo &c) { delete c.items()->takeItem(3); });
    row("takeRow", [](Combo &c) { qDeleteAll(c.items()->takeRow(3)); });
    row("takeRow and appendRow", [](Combo &c) { c.items()->appendRow(c.items()->takeRow(3)); });
    row("setItem", [=](Combo &c) { c.items()->setItem(3, new QStandardItem(added)); });
    row("removeRows", [](Combo &c) { c.items()->removeRows(0, 20); });
    row("setRowCount", [](Combo &c) { c.items()->setRowCount(20); });
    row("setModel to a model of texts", [=](Combo &c) {
        QStringList rows = QVector<QString>(30, QStringLiteral("o")).toList();
        rows[7] = late;
        c.widget.setModel(new QStringListModel(rows, &c.widget));
    });
    row("moveRow in a model of texts", [=](Combo &c) {
        QStringList rows = QVector<QString>(30, QStringLiteral("o")).toList();
        rows[7] = late;
        c.widget.setModel(new QStringListModel(rows, &c.widget));
        QCOMPARE(c.find("row 30"), 7);
        QVERIFY(c.widget.model()->moveRow(QModelIndex(), 7, QModelIndex(), 2));
    });
    row("setModel to another with as many rows", [=](Combo &c) {
        auto *other = new QStandardItemModel(&c.widget);
        for (int i = 0; i < 40; ++i)
            other->appendRow(new QStandardItem(i == 5 ? late : added));
        c.widget.setModel(other);
    });
    row("setModel to a subclass with texts of its own", [](Combo &c) {
        auto *other = new MarkingModel(&c.widget);
        for (int i = 0; i < 40; ++i)
            other->appendRow(new QStandardItem(i == 5 ? QStringLiteral("w 30") : QStringLiteral("o")));
        other->mark = QStringLiteral("ro");
        c.widget.setModel(other);
    });
    row("a subclass whose texts change without a word", [](Combo &c) {
        auto *other = new MarkingModel(&c.widget);
        for (int i = 0; i < 40; ++i)
            other->appendRow(new QStandardItem(i == 5 ? QStringLiteral("w 30") : QStringLiteral("row 3")));
        other->mark = QStringLiteral("ro");
        c.widget.setModel(other);
        QCOMPARE(c.find("row 30"), 5);
        other->mark.clear();
    });
    row("setModel to a subclass with a search of its own", [](Combo &c) {
        auto *other = new PickyModel(&c.widget);
        for (int i = 0; i < 40; ++i)
            other->appendRow(new QStandardItem(i == 5 ? QStringLiteral("a") : QStringLiteral("row 3")));
        c.widget.setModel(other);
        QCOMPARE(c.find("a"), -1);
    });
    row("setModel to a proxy that sorts", [](Combo &c) {
        auto *proxy = new QSortFilterProxyModel(&c.widget);
        auto *source = new QStringListModel(proxy);
        QStringList rows;
        for (int i = 40; i-- > 0;)
            rows.append(QStringLiteral("row %1").arg(i));
        source->setStringList(rows);
        proxy->setSourceModel(source);
        proxy->sort(0);
        c.widget.setModel(proxy);
    });
    row("an item of a subclass whose text changes without a word", [](Combo &c) {
        static QString lent;
        lent = QStringLiteral("row 30");
        c.items()->setItem(2, new BorrowingItem(&lent));
        QCOMPARE(c.find("row 30"), 2);
        lent = QStringLiteral("new");
    });
    row("setRootModelIndex", [](Combo &c) {
        for (int i = 0; i < 40; ++i)
            c.items()->item(0)->appendRow(new QStandardItem(QLatin1String(i == 5 ? "row 30" : "o")));
        c.widget.setRootModelIndex(c.items()->index(0, 0));
    });
    row("a row more while the model's signals are blocked", [=](Combo &c) {
        const QSignalBlocker quiet(c.widget.model());
        c.items()->insertRow(0, new QStandardItem(late));
    });
    row("a row less while the model's signals are blocked", [](Combo &c) {
        const QSignalBlocker quiet(c.widget.model());
        c.items()->removeRow(3);
    });
    row("changes while the widget's signals are blocked", [=](Combo &c) {
        const QSignalBlocker quiet(&c.widget);
        c.widget.setItemText(3, added);
        c.widget.insertItem(0, late);
        c.widget.removeItem(12);
    });
    row("setEditable and an edit text", [=](Combo &c) {
        c.widget.setEditable(true);
        c.widget.setEditText(added);
    });
}

void ControlsComboBoxTextsTest::hostCall()
{
    QFETCH(HostCall, call);
    Combo combo(40);
    QCOMPARE(combo.find("new"), -1);
    QCOMPARE(combo.find("row 3"), 3);
    QCOMPARE(combo.find("row 30"), 30);
    call(combo);
    for (const char *text : {"new", "row 3", "row 30", "row 39", "Row 30", "row", "", "a"})
        QCOMPARE(combo.find(text), combo.findText(text));
    // And once more, now that it was searched in this state.
    for (const char *text : {"new", "row 3", "row 30", "row 39"})
        QCOMPARE(combo.find(text), combo.findText(text));
}

/// A value in place of a text, in a list of 40: found by exactly the texts by which findText() finds it.
void ControlsComboBoxTextsTest::value_data()
{
    QTest::addColumn<QVariant>("value");
    for (int i = 0; i < otherValues().size(); ++i) {
        const QVariant &value = otherValues().at(i);
        QTest::addRow("%d: %s \"%s\"", i, value.typeName() ? value.typeName() : "nothing",
                      qPrintable(value.toString()))
            << value;
    }
}

void ControlsComboBoxTextsTest::value()
{
    QFETCH(QVariant, value);
    for (const int rows : {3, 40}) {
        for (const bool searchedBefore : {false, true}) {
            Combo combo(rows);
            if (searchedBefore)
                QCOMPARE(combo.find("5"), -1);
            combo.widget.setItemData(2, value, Qt::DisplayRole);
            for (const QString &text : texts() + QStringList(value.toString()))
                QCOMPARE(findString(combo.control, text), findText(combo.widget, text));
            combo.widget.addItem(value.toString());
            for (const QString &text : texts() + QStringList(value.toString()))
                QCOMPARE(findString(combo.control, text), findText(combo.widget, text));
        }
    }
}

/// The first and the last of a number of rows, a text that is there twice, and one that is not.
void ControlsComboBoxTextsTest::length_data()
{
    QTest::addColumn<int>("rows");
    for (const int rows : {0, 1, 2, 15, 16, 17, 18, 100})
        QTest::addRow("%d rows", rows) << rows;
}

void ControlsComboBoxTextsTest::length()
{
    QFETCH(int, rows);
    Combo combo(rows);
    QCOMPARE(combo.find("row 0"), rows > 0 ? 0 : -1);
    QCOMPARE(findString(combo.control, QStringLiteral("row %1").arg(rows - 1)), rows - 1);
    QCOMPARE(combo.find("row"), -1);
    QCOMPARE(combo.find("Row 0"), -1);
    combo.widget.addItem(QStringLiteral("row 0"));
    QCOMPARE(combo.find("row 0"), 0);
    QCOMPARE(combo.control.AddString(L"row 0"), 0);
    QCOMPARE(combo.control.AddString(L"other"), rows + 1);
    QCOMPARE(combo.control.AddString(L"other"), rows + 1);
    combo.control.DeleteString(0);
    QCOMPARE(combo.find("row 0"), rows > 0 ? rows - 1 : -1);
    QCOMPARE(combo.find("other"), rows);
}

void ControlsComboBoxTextsTest::randomHost_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::newRow("seed 20261121") << 20261121u;
    QTest::newRow("seed 4") << 4u;
}

/// 10,000 random steps, and after each every text is found where findText() finds it.
void ControlsComboBoxTextsTest::randomHost()
{
    QFETCH(quint32, seed);
    RandomHost host(seed);
    QStringList last;
    for (int step = 0; step < 10000; ++step) {
        const QString done = host.step();
        last.append(done);
        if (last.size() > 6)
            last.removeFirst();
        const QString wrong = done.startsWith(QLatin1Char('!')) ? done : host.differences();
        if (!wrong.isEmpty())
            QFAIL(qPrintable(QStringLiteral("seed %1, step %2 after [%3]: %4").arg(seed).arg(step)
                                 .arg(last.join(QStringLiteral(", ")), wrong)));
    }
}

/// Two combo boxes over one model: each sees what was done through the other.
void ControlsComboBoxTextsTest::sharedModel()
{
    Combo first(40);
    Combo second;
    second.widget.setModel(first.widget.model());
    QCOMPARE(second.find("row 30"), 30);
    QCOMPARE(first.control.InsertString(0, L"new"), 0);
    QCOMPARE(second.find("new"), 0);
    QCOMPARE(second.find("row 30"), 31);
    QCOMPARE(second.control.DeleteString(0), 0);
    QCOMPARE(first.find("new"), -1);
    QCOMPARE(first.find("row 30"), 30);
    second.widget.setModel(new QStandardItemModel(&second.widget));
    QCOMPARE(second.find("row 30"), -1);
    QCOMPARE(first.find("row 30"), 30);
}

/// A model that is deleted while the combo box has it leaves no row and nothing to find.
void ControlsComboBoxTextsTest::vanishedModel()
{
    Combo combo;
    auto *model = new QStandardItemModel;
    for (int i = 0; i < 40; ++i)
        model->appendRow(new QStandardItem(QStringLiteral("row %1").arg(i)));
    combo.widget.setModel(model);
    QCOMPARE(combo.find("row 30"), 30);
    delete model;
    QCOMPARE(combo.find("row 30"), -1);
    auto *other = new QStandardItemModel(&combo.widget);
    for (int i = 0; i < 40; ++i)
        other->appendRow(new QStandardItem(QStringLiteral("row %1").arg(39 - i)));
    combo.widget.setModel(other);
    QCOMPARE(combo.find("row 30"), 9);
}

/// The widget may go on without its object, and have another later.
void ControlsComboBoxTextsTest::lookedUpLater()
{
    QComboBox widget;
    for (int round = 0; round < 3; ++round) {
        CComboBox control;
        control.Attach(KxHwndFromWidget(&widget));
        for (int i = 0; i < 40; ++i)
            control.AddString(std::to_wstring(i * 3 + round).c_str());
        QCOMPARE(widget.count(), 40 * (round + 1));
        for (int i = 0; i < 40; ++i)
            QCOMPARE(findString(control, QString::number(i * 3 + round)), 40 * round + i);
    }
}

/// Another object may take the widget over, and widgets come and go, perhaps at the same address.
void ControlsComboBoxTextsTest::anotherObject()
{
    for (int round = 0; round < 50; ++round) {
        const std::unique_ptr<Combo> combo(new Combo(40 + round));
        QCOMPARE(combo->find("row 39"), 39);
        combo->widget.insertItem(0, QStringLiteral("round %1").arg(round));
        QCOMPARE(combo->find("row 39"), 40);
        QCOMPARE(findString(combo->control, QStringLiteral("round %1").arg(round - 1)), -1);
        CComboBox other;
        other.Attach(KxHwndFromWidget(&combo->widget));
        QCOMPARE(findString(other, QStringLiteral("round %1").arg(round)), 0);
        QCOMPARE(combo->find("row 39"), 0); // has lost its widget
    }
}

/// 10,000 different texts and then all of them again.
void ControlsComboBoxTextsTest::tenThousand()
{
    Combo combo;
    QStringList expected;
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 10000; ++i) {
            const QString text = QStringLiteral("item %1").arg(i);
            if (round == 0)
                expected.append(text);
            QCOMPARE(combo.control.AddString(text.toStdWString().c_str()), i);
        }
    }
    QStringList rows;
    for (int i = 0; i < combo.widget.count(); ++i)
        rows.append(combo.widget.itemText(i));
    QCOMPARE(rows, expected);
    for (int i = 0; i < 10000; i += 500)
        QCOMPARE(findString(combo.control, expected.at(i)), findText(combo.widget, expected.at(i)));
}

/// 2,000 texts, each in front of all others.
void ControlsComboBoxTextsTest::twoThousandInFront()
{
    Combo combo;
    QStringList expected;
    for (int i = 0; i < 2000; ++i) {
        expected.prepend(QStringLiteral("item %1").arg(i));
        QCOMPARE(combo.control.InsertString(0, expected.first().toStdWString().c_str()), 0);
    }
    QStringList rows;
    for (int i = 0; i < combo.widget.count(); ++i)
        rows.append(combo.widget.itemText(i));
    QCOMPARE(rows, expected);
    for (int i = 0; i < 2000; i += 100)
        QCOMPARE(findString(combo.control, expected.at(i)), i);
}

KX_TEST_MAIN(ControlsComboBoxTextsTest)
#include "tst_controls_combo_box_texts.moc"
