// SPDX-License-Identifier: MIT
#include <afxwin.h>

#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTreeWidget>

Q_DECLARE_METATYPE(QSharedPointer<CWnd>)

namespace {

/// A window object bound to a widget of its own.
template<class Window, class Widget>
struct Bound
{
    Bound() { window.SetHandle(KxHwndFromWidget(widget)); }
    ~Bound() { delete widget; }
    Bound(const Bound &) = delete;
    Bound &operator=(const Bound &) = delete;

    QPointer<Widget> widget = new Widget;
    Window window;
};

/// A combo box whose host destroys the widget when told of the selection.
class DestructiveComboBox : public CComboBox
{
public:
    LRESULT WindowProc(UINT message, WPARAM, LPARAM) override
    {
        if (message == CB_SETCURSEL)
            delete KxWidgetFromHwnd(m_hWnd);
        return 0;
    }
};

} // namespace

/// Calls that MFC source makes and that have no widget, no text or no buffer behind them.
class ControlsOddCallsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void callbackTextInList();
    void callbackTextInTable();
    void callbackTextInColumn();
    void callbackTextInTree();
    void widgetDiesInWindowProc();
    void unboundLeavesTheBuffer_data();
    void unboundLeavesTheBuffer();
    void dataDoesNotLoseTheTexts();
};

void ControlsOddCallsTest::callbackTextInList()
{
    Bound<CListCtrl, QListWidget> list;
    QCOMPARE(list.window.InsertItem(0, LPSTR_TEXTCALLBACK), 0);
    QCOMPARE(list.widget->count(), 1);
    QCOMPARE(list.widget->item(0)->text(), QString());
}

void ControlsOddCallsTest::callbackTextInTable()
{
    Bound<CListCtrl, QTableWidget> list;
    list.widget->setColumnCount(1);
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.pszText = LPSTR_TEXTCALLBACK;
    item.lParam = 5;
    QCOMPARE(list.window.InsertItem(&item), 0);
    QCOMPARE(list.widget->item(0, 0)->text(), QString());
    QCOMPARE(list.window.GetItemData(0), DWORD_PTR(5));
}

void ControlsOddCallsTest::callbackTextInColumn()
{
    Bound<CListCtrl, QTableWidget> list;
    LVCOLUMNW column = {};
    column.pszText = LPSTR_TEXTCALLBACK;
    QCOMPARE(list.window.InsertColumn(0, &column), 0);
    QCOMPARE(list.widget->columnCount(), 1);
    QCOMPARE(list.widget->horizontalHeaderItem(0)->text(), QString());
}

void ControlsOddCallsTest::callbackTextInTree()
{
    Bound<CTreeCtrl, QTreeWidget> tree;
    TVINSERTSTRUCTW record = {};
    record.item.pszText = LPSTR_TEXTCALLBACK;
    const HTREEITEM item = tree.window.InsertItem(&record);
    QVERIFY(item);
    QCOMPARE(tree.window.GetItemText(item), CString());
}

void ControlsOddCallsTest::widgetDiesInWindowProc()
{
    Bound<DestructiveComboBox, QComboBox> combo;
    combo.window.AddString(L"one");
    combo.window.AddString(L"two");
    QCOMPARE(combo.window.SetCurSel(1), 1);
    QVERIFY(!combo.widget);
}

void ControlsOddCallsTest::unboundLeavesTheBuffer_data()
{
    QTest::addColumn<QSharedPointer<CWnd>>("window");
    QTest::newRow("CComboBox") << QSharedPointer<CWnd>(new CComboBox);
    QTest::newRow("CEdit") << QSharedPointer<CWnd>(new CEdit);
}

void ControlsOddCallsTest::unboundLeavesTheBuffer()
{
    QFETCH(QSharedPointer<CWnd>, window);
    wchar_t buffer[8] = L"before";
    QCOMPARE(window->GetWindowTextW(buffer, 8), 0);
    QCOMPARE(CString(buffer), CString(L"before"));
}

// The usual way to fill a combo box: the text, then the row's data.
void ControlsOddCallsTest::dataDoesNotLoseTheTexts()
{
    Bound<CComboBox, QComboBox> combo;
    for (int i = 0; i < 20000; ++i) {
        const int row = combo.window.AddString(std::to_wstring(i).c_str());
        QCOMPARE(row, i);
        combo.window.SetItemData(row, static_cast<unsigned long>(i));
    }
    QCOMPARE(combo.window.AddString(L"19999"), 19999);
    QCOMPARE(combo.window.GetItemData(19999), 19999UL);
}


KX_TEST_MAIN(ControlsOddCallsTest)
#include "tst_controls_odd_calls.moc"
