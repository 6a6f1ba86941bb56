// SPDX-License-Identifier: MIT
#include "support/KxTestCase.h"

#include "KxAfxGlobal.h"
#include "KxAfxWin.h"
#include "KxPlatformServices.h"
#include "KxQtWinapiWrapper.h"
#include "KxWinModule.h"

#include <QtWidgets/QDesktopWidget>

#include <type_traits>

namespace {

class MarkedKeys : public KxKeyStateService
{
public:
    SHORT keyState(int key) const override
    {
        lastKey = key;
        return answer;
    }

    SHORT answer = 0;
    mutable int lastKey = -1;
};

} // namespace

class tst_Win32Services : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();

    void keyState_data();
    void keyState();
    void desktopWindow();
    void systemParametersInfo();
    void cursors_data();
    void cursors();
    void drawingStubs();
    void resourceHandle();
    void libraries();
    void classesAreStatic();
};

void tst_Win32Services::initTestCase()
{
    // As it is before anybody set it.
    QCOMPARE(m_hCurrentResourceHandle, static_cast<HINSTANCE>(nullptr));
    QCOMPARE(AfxGetResourceHandle(), static_cast<HINSTANCE>(nullptr));
}

void tst_Win32Services::keyState_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("answer");
    QTest::newRow("Shift, up: 0") << 0x10 << 0;
    QTest::newRow("Shift, down: the sign bit of 16") << 0x10 << -32768;
    QTest::newRow("Control, down: -128") << 0x11 << -128;
    QTest::newRow("Caps Lock, on: 1") << 0x14 << 1;
    QTest::newRow("any key, any answer: 0x7fff") << 0xfe << 0x7fff;
    QTest::newRow("no key at all") << -5 << -3;
}

void tst_Win32Services::keyState()
{
    QFETCH(int, key);
    QFETCH(int, answer);
    MarkedKeys keys;
    keys.answer = SHORT(answer);
    platformServices()->setKeyStateService(&keys);
    using Query = SHORT (*)(int);
    const Query queries[]
        = {&GetKeyState, &GetAsyncKeyState, &KxUser32::GetKeyState, &KxUser32::GetAsyncKeyState};
    int results[4] = {};
    int asked[4] = {};
    for (int i = 0; i < 4; ++i) {
        keys.lastKey = -1;
        results[i] = queries[i](key);
        asked[i] = keys.lastKey;
    }
    platformServices()->setKeyStateService(nullptr);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(results[i], answer);
        QCOMPARE(asked[i], key);
    }
}

void tst_Win32Services::desktopWindow()
{
    QCOMPARE(KxUser32::GetDesktopWindow(), KxHwndFromWidget(QApplication::desktop()));
}

void tst_Win32Services::systemParametersInfo()
{
    tagRECT area {-1, -2, -3, -4};
    QCOMPARE(int(SystemParametersInfoW(0x30, 0, &area, 0)), 0); // SPI_GETWORKAREA
    QCOMPARE(area.left, -1);
    QCOMPARE(area.top, -2);
    QCOMPARE(area.right, -3);
    QCOMPARE(area.bottom, -4);
    QCOMPARE(int(SystemParametersInfoW(0, 0, nullptr, 0)), 0);
}

void tst_Win32Services::cursors_data()
{
    QTest::addColumn<uint>("id");
    QTest::newRow("IDC_ARROW, 32512") << uint(IDC_ARROW);
    QTest::newRow("IDC_WAIT, 32514") << uint(IDC_WAIT);
    QTest::newRow("a number of the host's, 1") << 1u;
    QTest::newRow("0") << 0u;
    QTest::newRow("the largest number") << 0xffffffffu;
}

void tst_Win32Services::cursors()
{
    QFETCH(uint, id);
    const HCURSOR cursor = LoadCursorW(nullptr, id);
    QCOMPARE(reinterpret_cast<quintptr>(cursor), quintptr(id));
    QCOMPARE(LoadCursorW(reinterpret_cast<HINSTANCE>(0x20), id), cursor);
    QCOMPARE(LoadCursorW(nullptr, L"name"), static_cast<HCURSOR>(nullptr));
    // Its own argument, never the cursor before; and no cursor changes.
    SetCursor(reinterpret_cast<HCURSOR>(0x30));
    QCOMPARE(SetCursor(cursor), cursor);
    QCOMPARE(GetCursor(), static_cast<HCURSOR>(nullptr));
    KxUser32::SetCursor(reinterpret_cast<HCURSOR>(0x30));
    QCOMPARE(KxUser32::GetCursor(), static_cast<HCURSOR>(nullptr));
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(uint(IDC_ARROW), 32512u);
    QCOMPARE(uint(IDC_WAIT), 32514u);
}

void tst_Win32Services::drawingStubs()
{
    const HDC context = reinterpret_cast<HDC>(0x40);
    QCOMPARE(CreateSolidBrush(0x00ff00), static_cast<HBRUSH>(nullptr));
    QCOMPARE(CreateICW(L"DISPLAY", nullptr, nullptr, nullptr), static_cast<HDC>(nullptr));
    QCOMPARE(GetMapMode(context), 0);
    tagPOINT point {-1, -2};
    QCOMPARE(int(KxKernel32::MoveToEx(context, 3, 4, &point)), 0);
    QCOMPARE(point.x, -1);
    QCOMPARE(point.y, -2);
    QCOMPARE(int(KxKernel32::LineTo(context, 3, 4)), 0);
    QCOMPARE(int(KxKernel32::Polyline(context, &point, 1)), 0);
    QCOMPARE(int(KxKernel32::SetPolyFillMode(context, 1)), 0);
    const int count = 1;
    QCOMPARE(int(KxKernel32::PolyPolygon(context, &point, &count, 1)), 0);
    QCOMPARE(int(KxKernel32::MoveToEx(nullptr, 3, 4, nullptr)), 0);
    QCOMPARE(int(MessageBeep(0)), 1);
    QCOMPARE(int(MessageBeep(0xffffffffu)), 1);
}

void tst_Win32Services::resourceHandle()
{
    const HINSTANCE module = reinterpret_cast<HINSTANCE>(0x50);
    AfxSetResourceHandle(module);
    QCOMPARE(AfxGetResourceHandle(), module);
    QCOMPARE(m_hCurrentResourceHandle, module);
    m_hCurrentResourceHandle = reinterpret_cast<HINSTANCE>(0x60);
    QCOMPARE(AfxGetResourceHandle(), reinterpret_cast<HINSTANCE>(0x60));
    AfxSetResourceHandle(nullptr);
    QCOMPARE(AfxGetResourceHandle(), static_cast<HINSTANCE>(nullptr));
}

void tst_Win32Services::libraries()
{
    const HINSTANCE module = AfxLoadLibrary(L"libm.so.6");
    QVERIFY(module);
    const HMODULE same = LoadLibraryW(L"libm.so.6");
    QCOMPARE(same, module);
    QCOMPARE(int(AfxFreeLibrary(module)), 1);
    QCOMPARE(int(FreeLibrary(same)), 1);
    QCOMPARE(AfxLoadLibrary(L"there-is-no-such-library.so"), static_cast<HINSTANCE>(nullptr));
    QCOMPARE(int(AfxFreeLibrary(nullptr)), int(FreeLibrary(nullptr)));
}

void tst_Win32Services::classesAreStatic()
{
    QVERIFY(std::is_empty_v<KxUser32>);
    QVERIFY(std::is_empty_v<KxKernel32>);
    QCOMPARE(TRUE, 1);
    QCOMPARE(FALSE, 0);
}

KX_TEST_MAIN(tst_Win32Services)

#include "tst_win32_services.moc"
