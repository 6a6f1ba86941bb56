// SPDX-License-Identifier: MIT
// Calls of CWnd's members through null and small object pointers: the pointer's value in the result type.

#include "KxResultNumber.h"
#include "KxTestCase.h"

#include <QtCore/QTimer>

#include <afxwin.h>


/// A caller that goes through a pointer to no object, on purpose.
#define KX_CALLS_THROUGH_SMALL_POINTER __attribute__((no_sanitize("undefined")))

using PointerCall = qint64 (*)(CWnd *);
Q_DECLARE_METATYPE(PointerCall)

namespace {

bool same(const CRect &a, const CRect &b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

} // namespace

class SmallPointersTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void member_data();
    void member();
};

void SmallPointersTest::member_data()
{
    QTest::addColumn<PointerCall>("call");
    QTest::addColumn<quintptr>("pointer");
    QTest::addColumn<qint64>("expected");

    for (const quintptr pointer : {quintptr(0), quintptr(5), quintptr(4095)}) {
        const auto row = [pointer](const char *name, PointerCall call, qint64 expected) {
            QTest::addRow("%s through %d", name, static_cast<int>(pointer)) << call << pointer << expected;
        };
        const auto value = [&](const char *name, PointerCall call) { row(name, call, qint64(pointer)); };
        const auto truth = [&](const char *name, PointerCall call) { row(name, call, pointer != 0); };
        const auto untouched = [&](const char *name, PointerCall call) { row(name, call, 1); };

#define KX_CALL(expression) \
    [](CWnd *w) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { return number(expression); }
        value("operator HWND", KX_CALL(w->operator HWND()));
        value("Detach", KX_CALL(w->Detach()));
        value("GetParent", KX_CALL(w->GetParent()));
        value("SetParent", KX_CALL(w->SetParent(nullptr)));
        value("GetWindow", KX_CALL(w->GetWindow(GW_CHILD)));
        value("GetNextWindow", KX_CALL(w->GetNextWindow()));
        value("GetNextCWndFromID", KX_CALL(w->GetNextCWndFromID(1)));
        value("GetDescendantWindow", KX_CALL(w->GetDescendantWindow(1)));
        value("GetDlgItem", KX_CALL(w->GetDlgItem(1)));
        value("GetDlgCtrlID", KX_CALL(w->GetDlgCtrlID()));
        value("IsDlgButtonChecked", KX_CALL(w->IsDlgButtonChecked(1)));
        value("GetCheckedRadioButton", KX_CALL(w->GetCheckedRadioButton(1, 2)));
        value("GetWindowTextLength", KX_CALL(w->GetWindowTextLengthW()));
        value("GetDC", KX_CALL(w->GetDC()));
        value("MessageBox", KX_CALL(w->MessageBoxW(L"never shown")));
        value("SendMessage", KX_CALL(w->SendMessageW(0x406, 1, 2)));
        truth("Attach", KX_CALL(w->Attach(reinterpret_cast<HWND>(&w))));
        truth("SubclassDlgItem", KX_CALL(w->SubclassDlgItem(1, &CWnd::wndTop)));
        truth("SetWindowPos", KX_CALL(w->SetWindowPos(nullptr, 1, 2, 0, 0, 0)));
        truth("IsWindowEnabled", KX_CALL(w->IsWindowEnabled()));
        truth("EnableWindow", KX_CALL(w->EnableWindow(FALSE)));
        truth("ModifyStyle", KX_CALL(w->ModifyStyle(0, WS_DISABLED)));
        truth("ShowWindow", KX_CALL(w->ShowWindow(5)));
        truth("IsWindowVisible", KX_CALL(w->IsWindowVisible()));
        truth("UpdateData", KX_CALL(w->UpdateData(FALSE)));
#undef KX_CALL

        value("GetDlgItemText leaves the text,", [](CWnd *w) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
            CStdStr<wchar_t> text(L"before");
            const int length = w->GetDlgItemTextW(1, text);
            return text == L"before" ? length : -1;
        });
        untouched("GetWindowRect leaves the rectangle", [](CWnd *w) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
            CRect rect(1, 2, 3, 4);
            w->GetWindowRect(&rect);
            return same(rect, CRect(1, 2, 3, 4));
        });
        untouched("ClientToScreen leaves the point", [](CWnd *w) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
            CPoint point(1, 2);
            w->ClientToScreen(&point);
            return point.x == 1 && point.y == 2;
        });
        untouched("GetDlgItem leaves the handle", [](CWnd *w) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
            HWND handle = nullptr;
            w->GetDlgItem(1, &handle);
            return handle == nullptr;
        });

        // A member that touched memory would end the program here.
#define KX_CALL(statement) \
    [](CWnd *w) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { \
        statement; \
        return 1; \
    }
        untouched("SetHandle returns", KX_CALL(w->SetHandle(reinterpret_cast<HWND>(&w))));
        untouched("SetAutoDelete returns", KX_CALL(w->SetAutoDelete(false, true)));
        untouched("SetCtrlID returns", KX_CALL(w->SetCtrlID(1)));
        untouched("SetDlgItem returns", KX_CALL(w->SetDlgItem(1, reinterpret_cast<HWND>(&w))));
        untouched("SetDlgItemText returns", KX_CALL(w->SetDlgItemTextW(1, L"text")));
        untouched("CheckDlgButton returns", KX_CALL(w->CheckDlgButton(1, 1)));
        untouched("CheckRadioButton returns", KX_CALL(w->CheckRadioButton(1, 2, 1)));
        untouched("MoveWindow returns", KX_CALL(w->MoveWindow(1, 2, 3, 4)));
        untouched("Invalidate returns", KX_CALL(w->Invalidate()));
        untouched("InvalidateRect returns", KX_CALL(w->InvalidateRect(nullptr)));
#undef KX_CALL
    }
}

void SmallPointersTest::member()
{
    QFETCH(PointerCall, call);
    QFETCH(quintptr, pointer);
    QFETCH(qint64, expected);

    bool boxSeen = false;
    QTimer closer;
    connect(&closer, &QTimer::timeout, [&boxSeen] {
        if (QWidget *box = QApplication::activeModalWidget()) {
            boxSeen = true;
            box->close();
        }
    });
    closer.start(10);
    const auto entries = CWndHandleTable.size();
    QCOMPARE(call(reinterpret_cast<CWnd *>(pointer)), expected);
    QVERIFY(!boxSeen);
    QCOMPARE(CWndHandleTable.size(), entries);
}

KX_TEST_MAIN(SmallPointersTest)
#include "tst_small_pointers.moc"
