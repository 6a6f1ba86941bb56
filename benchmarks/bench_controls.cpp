// SPDX-License-Identifier: MIT
#include "KxAfxWinComboBox.h"
#include "KxAfxWinListBox.h"
#include "KxAfxWinListCtrl.h"
#include "KxAfxWinTreeCtrl.h"

#include <benchmark/benchmark.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTreeWidget>

#include <string>
#include <vector>

// Each control beside the direct Qt calls that do the same work in the same run, wide text made Qt text and back
// included.

namespace {

std::vector<std::wstring> makeTexts(int count)
{
    std::vector<std::wstring> texts;
    for (int i = 0; i < count; ++i)
        texts.push_back(L"stroke " + std::to_wstring(i));
    return texts;
}

const std::vector<std::wstring> &texts()
{
    static const std::vector<std::wstring> made = makeTexts(100000);
    return made;
}

QString qtText(std::size_t i)
{
    return QString::fromWCharArray(texts()[i].c_str());
}

/// A window object bound to a widget of its own.
template<class Window, class Widget>
struct Bound
{
    Bound() { window.SetHandle(KxHwndFromWidget(&widget)); }

    Widget widget;
    Window window;
};

// ---- combo box; the first two pay for a list without duplicates -----------------------------------------

constexpr std::size_t comboRows = 10000;

void comboAddQt(benchmark::State &state)
{
    for (auto _ : state) {
        QComboBox combo;
        for (std::size_t i = 0; i < comboRows; ++i) {
            const QString text = qtText(i);
            if (combo.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive) < 0)
                combo.addItem(text);
        }
    }
}
BENCHMARK(comboAddQt)->Unit(benchmark::kMillisecond)->Iterations(2);

void comboAddString(benchmark::State &state)
{
    for (auto _ : state) {
        Bound<CComboBox, QComboBox> combo;
        for (std::size_t i = 0; i < comboRows; ++i)
            combo.window.AddString(texts()[i].c_str());
    }
}
BENCHMARK(comboAddString)->Unit(benchmark::kMillisecond)->Iterations(2);

void comboAddStringWithData(benchmark::State &state)
{
    for (auto _ : state) {
        Bound<CComboBox, QComboBox> combo;
        for (std::size_t i = 0; i < comboRows; ++i)
            combo.window.SetItemData(combo.window.AddString(texts()[i].c_str()), i);
    }
}
BENCHMARK(comboAddStringWithData)->Unit(benchmark::kMillisecond)->Iterations(2);

void comboAddUncheckedQt(benchmark::State &state)
{
    for (auto _ : state) {
        QComboBox combo;
        for (std::size_t i = 0; i < comboRows; ++i)
            combo.addItem(qtText(i));
    }
}
BENCHMARK(comboAddUncheckedQt)->Unit(benchmark::kMillisecond)->Iterations(2);

// ---- list box -------------------------------------------------------------------------------------------

void listBoxAddQt(benchmark::State &state)
{
    for (auto _ : state) {
        QListWidget list;
        for (std::size_t i = 0; i < comboRows; ++i)
            list.addItem(qtText(i).simplified());
    }
}
BENCHMARK(listBoxAddQt)->Unit(benchmark::kMillisecond);

void listBoxAddString(benchmark::State &state)
{
    for (auto _ : state) {
        Bound<CListBox, QListWidget> list;
        for (std::size_t i = 0; i < comboRows; ++i)
            list.window.AddString(texts()[i].c_str());
    }
}
BENCHMARK(listBoxAddString)->Unit(benchmark::kMillisecond);

// ---- report view ----------------------------------------------------------------------------------------

constexpr int tableRows = 100000;
constexpr int tableColumns = 5;

void tableFillQt(benchmark::State &state)
{
    for (auto _ : state) {
        QTableWidget table(0, tableColumns);
        for (int row = 0; row < tableRows; ++row) {
            const QString text = qtText(static_cast<std::size_t>(row));
            table.insertRow(row);
            for (int column = 0; column < tableColumns; ++column)
                table.setItem(row, column, new QTableWidgetItem(text));
            for (int column = 1; column < tableColumns; ++column)
                table.setItem(row, column, new QTableWidgetItem(qtText(static_cast<std::size_t>(row))));
        }
    }
}
BENCHMARK(tableFillQt)->Unit(benchmark::kMillisecond)->Iterations(1);

void tableFill(benchmark::State &state)
{
    for (auto _ : state) {
        Bound<CListCtrl, QTableWidget> list;
        list.widget.setColumnCount(tableColumns);
        for (int row = 0; row < tableRows; ++row) {
            const wchar_t *text = texts()[static_cast<std::size_t>(row)].c_str();
            list.window.InsertItem(row, text);
            for (int column = 1; column < tableColumns; ++column)
                list.window.SetItemText(row, column, text);
        }
    }
}
BENCHMARK(tableFill)->Unit(benchmark::kMillisecond)->Iterations(1);

void fillTable(QTableWidget &table)
{
    table.setColumnCount(1);
    table.setRowCount(tableRows);
    for (int row = 0; row < tableRows; ++row)
        table.setItem(row, 0, new QTableWidgetItem(qtText(static_cast<std::size_t>(row))));
}

void tableTextsQt(benchmark::State &state)
{
    QTableWidget table;
    fillTable(table);
    for (auto _ : state) {
        for (int row = 0; row < tableRows; ++row) {
            const QTableWidgetItem *item = table.item(row, 0);
            benchmark::DoNotOptimize(item ? item->text().toStdWString() : std::wstring());
        }
    }
}
BENCHMARK(tableTextsQt)->Unit(benchmark::kMillisecond);

void tableTexts(benchmark::State &state)
{
    Bound<CListCtrl, QTableWidget> list;
    fillTable(list.widget);
    for (auto _ : state) {
        for (int row = 0; row < tableRows; ++row)
            benchmark::DoNotOptimize(list.window.GetItemText(row, 0));
    }
}
BENCHMARK(tableTexts)->Unit(benchmark::kMillisecond);

void tableCleared(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Bound<CListCtrl, QTableWidget> list;
        fillTable(list.widget);
        state.ResumeTiming();
        list.window.DeleteAllItems();
    }
}
BENCHMARK(tableCleared)->Unit(benchmark::kMillisecond);

// ---- tree -----------------------------------------------------------------------------------------------

constexpr std::size_t treeItems = 100000;

void treeFillQt(benchmark::State &state)
{
    for (auto _ : state) {
        QTreeWidget tree;
        auto *root = new QTreeWidgetItem(QStringList(QStringLiteral("root")));
        tree.addTopLevelItem(root);
        for (std::size_t i = 0; i < treeItems; ++i) {
            auto *item = new QTreeWidgetItem(QStringList(qtText(i)));
            root->addChild(item);
            item->setData(0, Qt::UserRole, QVariant(static_cast<qulonglong>(i)));
        }
    }
}
BENCHMARK(treeFillQt)->Unit(benchmark::kMillisecond);

void treeFill(benchmark::State &state)
{
    for (auto _ : state) {
        Bound<CTreeCtrl, QTreeWidget> tree;
        const HTREEITEM root = tree.window.InsertItem(L"root");
        for (std::size_t i = 0; i < treeItems; ++i) {
            const HTREEITEM item = tree.window.InsertItem(texts()[i].c_str(), root);
            tree.window.SetItemData(item, i);
        }
    }
}
BENCHMARK(treeFill)->Unit(benchmark::kMillisecond);

// ---- a dialog of many controls; the direct way is a lookup by object name, the quickest a hash of one's own

constexpr int controls = 1000;

struct Form
{
    Form()
    {
        for (int id = 1; id <= controls; ++id) {
            auto *edit = new QLineEdit(&widget);
            edit->setObjectName(QStringLiteral("edit%1").arg(id));
            byId.insert(id, edit);
        }
    }

    QWidget widget;
    QHash<int, QWidget *> byId;
};

void dialogItemsFindChild(benchmark::State &state)
{
    const Form form;
    for (auto _ : state) {
        for (int id = 1; id <= controls; ++id)
            benchmark::DoNotOptimize(form.widget.findChild<QWidget *>(QStringLiteral("edit%1").arg(id)));
    }
}
BENCHMARK(dialogItemsFindChild);

void dialogItemsHash(benchmark::State &state)
{
    const Form form;
    for (auto _ : state) {
        for (int id = 1; id <= controls; ++id)
            benchmark::DoNotOptimize(form.byId.value(id));
    }
}
BENCHMARK(dialogItemsHash);

void dialogItems(benchmark::State &state)
{
    Form form;
    CWnd window;
    window.SetHandle(KxHwndFromWidget(&form.widget));
    for (int id = 1; id <= controls; ++id)
        window.SetDlgItem(id, KxHwndFromWidget(form.byId.value(id)));
    for (auto _ : state) {
        for (int id = 1; id <= controls; ++id)
            benchmark::DoNotOptimize(window.GetDlgItem(id));
    }
}
BENCHMARK(dialogItems);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
