// SPDX-License-Identifier: MIT
// The binary layout of the public classes: the order of their virtual operations and of their fields.
//
// The slots are read off pointers to members, which the Itanium C++ ABI lays out as 1 + 8 * slot for a
// virtual member. The named slots, the length of a table and the virtual destructor, which needs two slots,
// leave no slot unaccounted for.

#include "KxClassLayout.h"
#include "KxTestCase.h"

#include <QtCore/QSettings>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QDialog>

#include <afxwin.h>

#include <KxAfxApp.h>
#include <KxAfxDDX.h>
#include <KxAfxWinPrivate.h>
#include <KxQBaseDialog.h>
#include <KxQtMessageCenter.h>
#include <KxQtWinapiWrapper.h>

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <type_traits>

namespace {

/// What stands in an object at a byte offset.
template<class Value, class Object>
Value read(const Object &object, int offset)
{
    Value value;
    std::memcpy(&value, reinterpret_cast<const char *>(&object) + offset, sizeof value);
    return value;
}

// What is protected becomes nameable.

struct WndAccess : CWnd {
    using CWnd::DoDataExchange;
    using CWnd::OnCommand;
    using CWnd::PreSubclassWindow;
    using CWnd::PreTranslateMessage;
    using CWnd::WindowProc;
    using CWnd::d_func;
};

struct DialogAccess : CDialog {
    using CDialog::OnCancel;
    using CDialog::OnInitDialog;
    using CDialog::OnNotify;
    using CDialog::OnOK;
};

struct BaseDialogAccess : QBaseDialog {
    using QBaseDialog::OnCancel;
    using QBaseDialog::OnOK;
    using QBaseDialog::QBaseDialog;
    using QBaseDialog::endById;
    using QBaseDialog::exec;
    using QBaseDialog::execCallBack;
    using QBaseDialog::keyPressEvent;
    using QBaseDialog::m_endId;
    using QBaseDialog::showEvent;
};

} // namespace

class ClassLayoutTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void slot_data();
    void slot();
    void tables();
    void baseDialogTable();
    void offset_data();
    void offset();
    void size_data();
    void size();
    void registryKey();
    void messageEvent();
};

void ClassLayoutTest::slot_data()
{
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("expected");

    const auto row = [](const char *name, int found, int expected) {
        QTest::newRow(name) << found << expected;
    };

    row("2: CWnd::Create", slotOf(&CWnd::Create), 2);
    row("3: CWnd::GetCapture", slotOf(&CWnd::GetCapture), 3);
    row("4: CWnd::SetCapture", slotOf(&CWnd::SetCapture), 4);
    row("5: CWnd::GetSafeHwnd", slotOf(&CWnd::GetSafeHwnd), 5);
    row("6: CWnd::GetSafeHdc", slotOf(&CWnd::GetSafeHdc), 6);
    row("7: CWnd::GetClientRect", slotOf(&CWnd::GetClientRect), 7);
    row("8: CWnd::PreSubclassWindow", slotOf(&WndAccess::PreSubclassWindow), 8);
    row("9: CWnd::DoDataExchange", slotOf(&WndAccess::DoDataExchange), 9);
    row("10: CWnd::PreTranslateMessage", slotOf(&WndAccess::PreTranslateMessage), 10);
    row("11: CWnd::SetWindowTextW", slotOf(&CWnd::SetWindowTextW), 11);
    row("12: CWnd::GetWindowTextW(CStdStr&)",
        slotOf(static_cast<void (CWnd::*)(CStdStr<wchar_t> &) const>(&CWnd::GetWindowTextW)), 12);
    row("13: CWnd::GetWindowTextW(wchar_t*, int)",
        slotOf(static_cast<int (CWnd::*)(wchar_t *, int) const>(&CWnd::GetWindowTextW)), 13);
    row("14: CWnd::GetMenu", slotOf(&CWnd::GetMenu), 14);
    row("15: CWnd::SetMenu", slotOf(&CWnd::SetMenu), 15);
    row("16: CWnd::OnCommand", slotOf(&WndAccess::OnCommand), 16);
    row("17: CWnd::WindowProc", slotOf(&WndAccess::WindowProc), 17);
    row("18: CWnd::SetForegroundWindow", slotOf(&CWnd::SetForegroundWindow), 18);
    row("19: CWnd::SetFocus", slotOf(&CWnd::SetFocus), 19);
    row("CWnd has 20 slots", slotCount<CWnd>(), 20);

    row("20: CDialog::Create(name)",
        slotOf(static_cast<BOOL (CDialog::*)(const wchar_t *, CWnd *)>(&CDialog::Create)), 20);
    row("21: CDialog::Create(identifier)",
        slotOf(static_cast<BOOL (CDialog::*)(UINT, CWnd *)>(&CDialog::Create)), 21);
    row("22: CDialog::DoModal", slotOf(&CDialog::DoModal), 22);
    row("23: CDialog::OnInitDialog", slotOf(&DialogAccess::OnInitDialog), 23);
    row("24: CDialog::OnOK", slotOf(&DialogAccess::OnOK), 24);
    row("25: CDialog::OnCancel", slotOf(&DialogAccess::OnCancel), 25);
    row("26: CDialog::OnNotify", slotOf(&DialogAccess::OnNotify), 26);
    row("CDialog has 27 slots", slotCount<CDialog>(), 27);
    row("CRmUiDialog has 27 slots", slotCount<CRmUiDialog>(), 27);
    row("CTnUiDialog has 27 slots", slotCount<CTnUiDialog>(), 27);
    row("CTnUiTabChildDialog has 27 slots", slotCount<CTnUiTabChildDialog>(), 27);

    row("0: CWinApp::LoadCursorW", slotOf(&CWinApp::LoadCursorW), 0);
    row("1: CWinApp::LoadIconW", slotOf(&CWinApp::LoadIconW), 1);
    row("2: CWinApp::LoadStandardCursor(name)",
        slotOf(static_cast<HCURSOR (CWinApp::*)(const wchar_t *)>(&CWinApp::LoadStandardCursor)), 2);
    row("3: CWinApp::LoadStandardCursor(identifier)",
        slotOf(static_cast<HCURSOR (CWinApp::*)(UINT)>(&CWinApp::LoadStandardCursor)), 3);
    row("4: CWinApp::GetMainWnd", slotOf(&CWinApp::GetMainWnd), 4);
    row("5: CWinApp::SetMainWnd", slotOf(&CWinApp::SetMainWnd), 5);
    row("6: CWinApp::OpenDocumentFile", slotOf(&CWinApp::OpenDocumentFile), 6);
    row("7: CWinApp::GetProfileIntW", slotOf(&CWinApp::GetProfileIntW), 7);
    row("8: CWinApp::WriteProfileInt", slotOf(&CWinApp::WriteProfileInt), 8);
    row("9: CWinApp::GetProfileStringW", slotOf(&CWinApp::GetProfileStringW), 9);
    row("10: CWinApp::WriteProfileStringW", slotOf(&CWinApp::WriteProfileStringW), 10);
    row("11: CWinApp::GetProfileBinary", slotOf(&CWinApp::GetProfileBinary), 11);
    row("12: CWinApp::WriteProfileBinary", slotOf(&CWinApp::WriteProfileBinary), 12);
    row("13: CWinApp::GetNextDocTemplate", slotOf(&CWinApp::GetNextDocTemplate), 13);
    row("CWinApp has 14 slots", slotCount<CWinApp>(), 14);

    row("CDocument has 2 slots", slotCount<CDocument>(), 2);
    row("QKxMsgEvent has 2 slots", slotCount<QKxMsgEvent>(), 2);

    row("CDialog::EndDialog is not virtual", slotOf(&CDialog::EndDialog), -1);
    row("CDialog::OnHScroll is not virtual", slotOf(&CDialog::OnHScroll), -1);
    row("CRmUiDialog::BeginEditorCommand is not virtual", slotOf(&CRmUiDialog::BeginEditorCommand), -1);
    row("CRmUiDialog::CompleteEditorCommand is not virtual", slotOf(&CRmUiDialog::CompleteEditorCommand), -1);
    row("CRmUiDialog::SetDialogName is not virtual", slotOf(&CRmUiDialog::SetDialogName), -1);
    row("CTnUiDialog::OnSize is not virtual", slotOf(&CTnUiDialog::OnSize), -1);
    row("CTnUiDialog::OnSizing is not virtual", slotOf(&CTnUiDialog::OnSizing), -1);

    // QDialog's last is reject().
    const int reject = slotOf(&QDialog::reject);
    row("QDialog ends with reject()", slotCount<QDialog>(), reject + 1);
    row("after reject(): QBaseDialog::OnOK", slotOf(&BaseDialogAccess::OnOK), reject + 1);
    row("then QBaseDialog::OnCancel", slotOf(&BaseDialogAccess::OnCancel), reject + 2);
    row("then QBaseDialog::endById", slotOf(&BaseDialogAccess::endById), reject + 3);
    row("then QBaseDialog::execCallBack", slotOf(&BaseDialogAccess::execCallBack), reject + 4);
    row("QBaseDialog ends with execCallBack", slotCount<QBaseDialog>(), reject + 5);
}

void ClassLayoutTest::slot()
{
    QFETCH(int, slot);
    QFETCH(int, expected);
    QCOMPARE(slot, expected);
}

/// Which operations a class overrides: none but its destructors, in slots 0 and 1.
void ClassLayoutTest::tables()
{
    QVERIFY(std::has_virtual_destructor_v<CWnd>);
    QVERIFY(std::has_virtual_destructor_v<CDialog>);
    QVERIFY(std::has_virtual_destructor_v<CDocument>);
    QVERIFY(std::has_virtual_destructor_v<QKxMsgEvent>);
    QVERIFY(std::is_polymorphic_v<CWinApp>);
    QVERIFY(!std::has_virtual_destructor_v<CWinApp>);

    const CWnd window(nullptr);
    const CDialog dialog;
    const CRmUiDialog rmDialog(1u, nullptr);
    const CTnUiDialog tnDialog(1u, nullptr);
    const QList<int> destructors{0, 1};
    QCOMPARE(differences(&dialog, &window, 20), destructors);
    QCOMPARE(differences(&rmDialog, &dialog, 27), destructors);
    QCOMPARE(differences(&tnDialog, &rmDialog, 27), destructors);
}

/// QBaseDialog overrides its destructors, keyPressEvent(), showEvent() and exec(), and no more of QDialog.
void ClassLayoutTest::baseDialogTable()
{
    const QDialog dialog;
    const QBaseDialog baseDialog(nullptr);
    QList<int> expected{3, 4}; // Behind metaObject(), qt_metacast() and qt_metacall().
    expected.append({slotOf(&BaseDialogAccess::keyPressEvent), slotOf(&BaseDialogAccess::showEvent),
                     slotOf(&BaseDialogAccess::exec)});
    std::sort(expected.begin(), expected.end());
    QCOMPARE(differences(&baseDialog, &dialog, slotOf(&QDialog::reject) + 1), expected);
}

void ClassLayoutTest::offset_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("expected");

    const auto row = [](const char *name, int found, int expected) {
        QTest::newRow(name) << found << expected;
    };

    const CWnd window(nullptr);
    row("CWnd::m_hWnd", offsetOf(window, window.m_hWnd), 8);

    const CDialogPrivate block;
    const int start = offsetOf(block, block.widget);
    const int pointer = sizeof(void *);
    row("CWndPrivate::q follows widget", offsetOf(block, block.q), start + pointer);
    row("CWndPrivate::parentWnd follows q", offsetOf(block, block.parentWnd), start + 2 * pointer);
    row("CWndPrivate::dc follows parentWnd", offsetOf(block, block.dc), start + 3 * pointer);
    row("CWndPrivate::keepObject follows dc", offsetOf(block, block.keepObject), start + 4 * pointer);
    row("CWndPrivate::keepWidget follows keepObject", offsetOf(block, block.keepWidget),
        start + 4 * pointer + 1);
    const int items = start + 5 * pointer;
    row("CWndPrivate::items follows keepWidget", offsetOf(block, block.items), items);
    const int ctrlId = items + static_cast<int>(sizeof block.items);
    row("CWndPrivate::ctrlId follows items", offsetOf(block, block.ctrlId), ctrlId);
    row("CDialogPrivate::m_isDialog follows ctrlId", offsetOf(block, block.m_isDialog), ctrlId + 4);

    const CDialog dialog;
    row("CDialog::m_nModalResult follows the fields of CWnd", offsetOf(dialog, dialog.m_nModalResult),
        static_cast<int>(sizeof(CWnd)));

    const CDataExchange exchange(nullptr, TRUE);
    row("CDataExchange::m_bSave", offsetOf(exchange, exchange.m_bSave), 0);
    row("CDataExchange::m_bInit", offsetOf(exchange, exchange.m_bInit), 1);
    row("CDataExchange::m_bFailed", offsetOf(exchange, exchange.m_bFailed), 2);
    row("CDataExchange::m_pDlgWnd", offsetOf(exchange, exchange.m_pDlgWnd), 8);

    const CWinApp application;
    row("CWinApp::m_pMainWnd", offsetOf(application, application.m_pMainWnd), 8);

    const BaseDialogAccess baseDialog(nullptr);
    row("QBaseDialog::m_endId follows the fields of QDialog", offsetOf(baseDialog, baseDialog.m_endId),
        static_cast<int>(sizeof(QDialog)));
}

void ClassLayoutTest::offset()
{
    QFETCH(int, offset);
    QFETCH(int, expected);
    QCOMPARE(offset, expected);
}

void ClassLayoutTest::size_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("expected");

    const auto row = [](const char *name, std::size_t size, int expected) {
        QTest::newRow(name) << static_cast<int>(size) << expected;
    };
    row("CWnd: table, handle, private pointer", sizeof(CWnd), 24);
    row("CDialog: and one result of 32 bits", sizeof(CDialog), 32);
    row("CRmUiDialog adds no field", sizeof(CRmUiDialog), 32);
    row("CTnUiDialog adds no field", sizeof(CTnUiDialog), 32);
    row("CTnUiTabChildDialog adds no field", sizeof(CTnUiTabChildDialog), 32);
    row("CDataExchange: three flags and a pointer", sizeof(CDataExchange), 16);
    row("CWinApp: table and main window", sizeof(CWinApp), 16);
    row("CRegKey: three pointers", sizeof(CRegKey), 24);
    row("CDocument: table only", sizeof(CDocument), 8);
    row("QKxMsgEvent: QEvent, 4 + 8 + 8 bytes, the 4 behind QEvent's flags", sizeof(QKxMsgEvent), 40);
    row("QBaseDialog: QDialog and one identifier of 32 bits", sizeof(QBaseDialog), sizeof(QDialog) + 8);
    row("CObject is empty", std::is_empty_v<CObject>, 1);
    row("CDataExchange has no table", std::is_polymorphic_v<CDataExchange>, 0);
    row("CRegKey has no table", std::is_polymorphic_v<CRegKey>, 0);
    row("CDialog::m_nModalResult has 32 bits", sizeof(CDialog::m_nModalResult), 4);
    row("CDialogPrivate::m_isDialog has 32 bits", sizeof(CDialogPrivate::m_isDialog), 4);
    row("QBaseDialog::m_endId has 32 bits", sizeof(BaseDialogAccess::m_endId), 4);
}

void ClassLayoutTest::size()
{
    QFETCH(int, size);
    QFETCH(int, expected);
    QCOMPARE(size, expected);
}

/// CRegKey: the key handle, the settings, the path buffer. CWnd: the private pointer behind the handle.
void ClassLayoutTest::registryKey()
{
    CRegKey key;
    QVERIFY(read<HKEY>(key, 0) == static_cast<HKEY>(key));
    QVERIFY(read<HKEY>(key, 0) == nullptr);
    const auto *settings = read<QSettings *>(key, 8);
    QCOMPARE(settings->organizationName(), QStringLiteral("Drumal"));
    QCOMPARE(settings->applicationName(), QStringLiteral("TORVA"));
    QCOMPARE(settings->format(), QSettings::NativeFormat);
    QCOMPARE(settings->scope(), QSettings::UserScope);
    QCOMPARE(key.Create(nullptr, L"Software\\A"), 0);
    QCOMPARE(std::wcscmp(read<wchar_t *>(key, 16), L"Software\\A"), 0);

    QWidget widget;
    WndAccess window;
    window.Attach(KxHwndFromWidget(&widget));
    QVERIFY(read<CWndPrivate *>(static_cast<const CWnd &>(window), 16) == window.d_func());
}

/// QKxMsgEvent: message, wParam and lParam behind the fields of QEvent.
void ClassLayoutTest::messageEvent()
{
    const QKxMsgEvent event(0x12345678u, 0x1122334455667788UL, -2L);
    QCOMPARE(read<unsigned int>(event, 20), 0x12345678u);
    QCOMPARE(read<unsigned long>(event, 24), 0x1122334455667788UL);
    QCOMPARE(read<long>(event, 32), -2L);
}

KX_TEST_MAIN(ClassLayoutTest)
#include "tst_class_layout.moc"
