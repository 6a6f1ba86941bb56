// SPDX-License-Identifier: MIT
// Window messages: as direct calls on widgets, as calls of WindowProc, as Qt events. Timers, hot keys and
// message peeking, which do nothing.

#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>

#include <afxwin.h>

#include <KxPlatformServices.h>
#include <KxQtMessageCenter.h>

#include <climits>
#include <cstring>
#include <memory>
#include <thread>
#include <type_traits>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

struct Message {
    UINT number;
    WPARAM wParam;
    LPARAM lParam;

    bool operator==(const Message &other) const
    {
        return number == other.number && wParam == other.wParam && lParam == other.lParam;
    }
};
Q_DECLARE_METATYPE(Message)

namespace {

HWND handleOf(QWidget *widget)
{
    return KxHwndFromWidget(widget);
}

/// A widget that keeps the message events it gets, as a host's own widgets do.
template<class Widget>
class Receiver : public Widget
{
public:
    QList<Message> received;
    QList<int> types;
    bool accepts = false;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QKxMsgEvent::eventType()) {
            const auto *message = static_cast<QKxMsgEvent *>(event);
            received.append({message->message(), message->wParam(), message->lParam()});
            types.append(event->type());
            return accepts;
        }
        if (event->type() == QEvent::User || event->type() == QEvent::Timer)
            types.append(event->type());
        return Widget::event(event);
    }
};

/// Keeps the messages that its WindowProc is called with, and answers 42.
class ListeningWnd : public CWnd
{
public:
    ListeningWnd() : CWnd(nullptr) {}

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        received.append({message, wParam, lParam});
        return 42;
    }

    QList<Message> received;
};

LPARAM lParamOf(const void *pointer)
{
    return reinterpret_cast<LPARAM>(pointer);
}

int timerCalls = 0;

void CALLBACK countTimer(HWND, UINT, UINT_PTR, DWORD)
{
    ++timerCalls;
}

} // namespace

class MessagesAndTimersTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void eventTypeIsRegisteredWithTheFirstEvent(); // First of all: nothing before it may make an event.
    void eventFields_data();
    void eventFields();
    void center_data();
    void center() { runPromise(); }
    void buttons_data();
    void buttons() { runPromise(); }
    void comboBoxes_data();
    void comboBoxes() { runPromise(); }
    void wrongWidget_data();
    void wrongWidget();
    void images_data();
    void images() { runPromise(); }
    void applicationMessages_data();
    void applicationMessages();
    void otherMessages_data();
    void otherMessages();
    void nullHandle_data();
    void nullHandle();
    void members_data();
    void members() { runPromise(); }
    void inert_data();
    void inert() { runPromise(); }

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

void MessagesAndTimersTest::eventTypeIsRegisteredWithTheFirstEvent()
{
    QCOMPARE(iKxMsgEventType, -1);
    const QKxMsgEvent first(1, 2, 3);
    const int registered = iKxMsgEventType;
    QVERIFY(registered >= QEvent::User);
    QVERIFY(registered <= QEvent::MaxUser);
    QCOMPARE(static_cast<int>(first.type()), registered);
    const QKxMsgEvent second(4, 5, 6);
    QCOMPARE(static_cast<int>(second.type()), registered);
    QCOMPARE(static_cast<int>(QKxMsgEvent::eventType()), registered);
    QCOMPARE(iKxMsgEventType, registered);
    QVERIFY(QEvent::registerEventType(registered) != registered); // Taken.
}

void MessagesAndTimersTest::eventFields_data()
{
    QTest::addColumn<Message>("message");

    QTest::newRow("0, 0, 0") << Message{0, 0, 0};
    QTest::newRow("0x407, 1, -1") << Message{0x407, 1, -1};
    QTest::newRow("the largest of each") << Message{UINT_MAX, ULONG_MAX, LONG_MAX};
    QTest::newRow("the smallest lParam") << Message{0x10, 0, LONG_MIN};
}

void MessagesAndTimersTest::eventFields()
{
    QFETCH(Message, message);
    const QKxMsgEvent event(message.number, message.wParam, message.lParam);
    QCOMPARE(event.message(), message.number);
    QCOMPARE(event.wParam(), message.wParam);
    QCOMPARE(event.lParam(), message.lParam);
    QVERIFY(event.type() == QKxMsgEvent::eventType());
}

void MessagesAndTimersTest::center_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("sendMessage of a null handle is 0") << Promise([] {
        QCOMPARE(QKxMessageCenter::sendMessage(nullptr, 0x407, 1, 2), 0L);
    });
    QTest::newRow("postMessage of a null handle is 0") << Promise([] {
        QCOMPARE(QKxMessageCenter::postMessage(nullptr, 0x407, 1, 2), 0L);
        QCOMPARE(PostMessageW(nullptr, 0x407, 1, 2), false);
    });
    QTest::newRow("sendMessage delivers before it returns, and answers 0") << Promise([] {
        Receiver<QWidget> widget;
        QCOMPARE(QKxMessageCenter::sendMessage(handleOf(&widget), 0x407, 1, -2), 0L);
        QCOMPARE(widget.received, (QList<Message>{{0x407, 1, -2}}));
    });
    QTest::newRow("sendMessage answers 0 to a receiver that handles the event") << Promise([] {
        Receiver<QWidget> widget;
        widget.accepts = true;
        QCOMPARE(QKxMessageCenter::sendMessage(handleOf(&widget), 0x407, 1, 2), 0L);
        QCOMPARE(widget.received.size(), 1);
    });
    QTest::newRow("sendMessage to a widget that knows no such event is 0") << Promise([] {
        QLabel label;
        QCOMPARE(QKxMessageCenter::sendMessage(handleOf(&label), 0x407, 1, 2), 0L);
    });
    QTest::newRow("postMessage answers 1 and delivers later, with the same values") << Promise([] {
        Receiver<QWidget> widget;
        QCOMPARE(QKxMessageCenter::postMessage(handleOf(&widget), 0x407, ULONG_MAX, LONG_MIN), 1L);
        QVERIFY(widget.received.isEmpty());
        QTRY_COMPARE(widget.received, (QList<Message>{{0x407, ULONG_MAX, LONG_MIN}}));
    });
    QTest::newRow("PostMessage answers TRUE and delivers later, with the same values") << Promise([] {
        Receiver<QWidget> widget;
        QCOMPARE(PostMessageW(handleOf(&widget), 0x408, 1, -2), true);
        QVERIFY(widget.received.isEmpty());
        QTRY_COMPARE(widget.received, (QList<Message>{{0x408, 1, -2}}));
    });
    QTest::newRow("posted messages keep their order") << Promise([] {
        Receiver<QWidget> widget;
        for (UINT number = 1; number <= 3; ++number)
            PostMessageW(handleOf(&widget), number, 0, 0);
        QTRY_COMPARE(widget.received, (QList<Message>{{1, 0, 0}, {2, 0, 0}, {3, 0, 0}}));
    });
    QTest::newRow("posted messages have normal priority: after higher, before lower events") << Promise([] {
        Receiver<QWidget> widget;
        QCoreApplication::postEvent(&widget, new QEvent(QEvent::User), Qt::LowEventPriority);
        PostMessageW(handleOf(&widget), 0x407, 0, 0);
        QCoreApplication::postEvent(&widget, new QEvent(QEvent::User), Qt::HighEventPriority);
        QTRY_COMPARE(widget.types.size(), 3);
        QCOMPARE(widget.types, (QList<int>{QEvent::User, QKxMsgEvent::eventType(), QEvent::User}));
    });
    QTest::newRow("a message posted to a widget that dies is dropped") << Promise([] {
        Receiver<QWidget> survivor;
        {
            Receiver<QWidget> widget;
            QCOMPARE(PostMessageW(handleOf(&widget), 0x407, 0, 0), true);
        }
        PostMessageW(handleOf(&survivor), 0x408, 0, 0);
        QTRY_COMPARE(survivor.received, (QList<Message>{{0x408, 0, 0}}));
    });
    QTest::newRow("PostMessage may be called from another thread") << Promise([] {
        Receiver<QWidget> widget;
        BOOL result = FALSE;
        std::thread thread([&] { result = PostMessageW(handleOf(&widget), 0x407, 1, 2); });
        thread.join();
        QCOMPARE(result, true);
        QTRY_COMPARE(widget.received, (QList<Message>{{0x407, 1, 2}}));
    });
    QTest::newRow("the message centre has no state") << Promise([] {
        QVERIFY(std::is_empty_v<QKxMessageCenter>);
        QVERIFY(!std::is_polymorphic_v<QKxMessageCenter>);
    });
}

void MessagesAndTimersTest::buttons_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the numbers of the button messages") << Promise([] {
        QCOMPARE(static_cast<int>(BM_GETCHECK), 0xF0);
        QCOMPARE(static_cast<int>(BM_SETCHECK), 0xF1);
        QCOMPARE(static_cast<int>(BM_SETIMAGE), 0xF7);
    });
    QTest::newRow("BM_GETCHECK of a checked box is 1") << Promise([] {
        QCheckBox box;
        box.setChecked(true);
        QCOMPARE(SendMessageW(handleOf(&box), 0xF0, 0, 0), 1L);
    });
    QTest::newRow("BM_GETCHECK of a cleared box is 0") << Promise([] {
        QCheckBox box;
        QCOMPARE(SendMessageW(handleOf(&box), 0xF0, 0, 0), 0L);
    });
    QTest::newRow("BM_GETCHECK of a partially checked box is 1") << Promise([] {
        QCheckBox box;
        box.setCheckState(Qt::PartiallyChecked);
        QCOMPARE(SendMessageW(handleOf(&box), 0xF0, 0, 0), 1L);
    });
    QTest::newRow("BM_GETCHECK of a checked radio button is 1") << Promise([] {
        QRadioButton button;
        button.setChecked(true);
        QCOMPARE(SendMessageW(handleOf(&button), 0xF0, 0, 0), 1L);
    });
    QTest::newRow("BM_SETCHECK 1 checks a box, tells so and is 0") << Promise([] {
        QCheckBox box;
        QSignalSpy toggled(&box, &QAbstractButton::toggled);
        QCOMPARE(SendMessageW(handleOf(&box), 0xF1, 1, 0), 0L);
        QVERIFY(box.isChecked());
        QCOMPARE(toggled.size(), 1);
    });
    QTest::newRow("BM_SETCHECK 0 clears a box and is 0") << Promise([] {
        QCheckBox box;
        box.setChecked(true);
        QCOMPARE(SendMessageW(handleOf(&box), 0xF1, 0, 1), 0L);
        QVERIFY(!box.isChecked());
    });
    QTest::newRow("BM_SETCHECK 2 checks a box, there is no third state") << Promise([] {
        QCheckBox box;
        box.setTristate(true);
        SendMessageW(handleOf(&box), 0xF1, 2, 0);
        QCOMPARE(box.checkState(), Qt::Checked);
    });
    QTest::newRow("BM_SETCHECK 0x100000000 checks a box, all 64 bits count") << Promise([] {
        QCheckBox box;
        SendMessageW(handleOf(&box), 0xF1, 0x100000000UL, 0);
        QVERIFY(box.isChecked());
    });
    QTest::newRow("button messages make no event and call no WindowProc") << Promise([] {
        Receiver<QCheckBox> box;
        ListeningWnd window;
        window.Attach(handleOf(&box));
        SendMessageW(handleOf(&box), 0xF0, 0, 0);
        SendMessageW(handleOf(&box), 0xF1, 1, 0);
        QVERIFY(box.received.isEmpty());
        QVERIFY(window.received.isEmpty());
    });
}

void MessagesAndTimersTest::comboBoxes_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the numbers of the combo box messages") << Promise([] {
        QCOMPARE(static_cast<int>(CB_ADDSTRING), 0x143);
        QCOMPARE(static_cast<int>(CB_GETCOUNT), 0x146);
        QCOMPARE(static_cast<int>(CB_GETCURSEL), 0x147);
        QCOMPARE(static_cast<int>(CB_GETLBTEXT), 0x148);
        QCOMPARE(static_cast<int>(CB_RESETCONTENT), 0x14B);
        QCOMPARE(static_cast<int>(CB_SETCURSEL), 0x14E);
        QCOMPARE(static_cast<int>(WM_USER), 0x400);
    });
    QTest::newRow("CB_ADDSTRING appends a text without data and is 0") << Promise([] {
        QComboBox box;
        box.addItem(QStringLiteral("zz"));
        QCOMPARE(SendMessageW(handleOf(&box), 0x143, 7, lParamOf(L"aa\U0001F600")), 0L);
        QCOMPARE(box.count(), 2);
        QCOMPARE(box.itemText(1), QString::fromWCharArray(L"aa\U0001F600"));
        QVERIFY(!box.itemData(1).isValid());
    });
    QTest::newRow("CB_ADDSTRING adds a text that is there a second time") << Promise([] {
        QComboBox box;
        box.addItem(QStringLiteral("aa"));
        SendMessageW(handleOf(&box), 0x143, 0, lParamOf(L"aa"));
        QCOMPARE(box.count(), 2);
    });
    QTest::newRow("CB_GETCOUNT of three rows is 3") << Promise([] {
        QComboBox box;
        box.addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        QCOMPARE(SendMessageW(handleOf(&box), 0x146, 0, 0), 3L);
    });
    QTest::newRow("CB_GETCOUNT of an empty box is 0") << Promise([] {
        QComboBox box;
        QCOMPARE(SendMessageW(handleOf(&box), 0x146, 0, 0), 0L);
    });
    QTest::newRow("CB_GETCURSEL of an empty box is -1") << Promise([] {
        QComboBox box;
        QCOMPARE(SendMessageW(handleOf(&box), 0x147, 0, 0), -1L);
    });
    QTest::newRow("CB_GETCURSEL of the third row is 2") << Promise([] {
        QComboBox box;
        box.addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        box.setCurrentIndex(2);
        QCOMPARE(SendMessageW(handleOf(&box), 0x147, 0, 0), 2L);
    });
    QTest::newRow("CB_RESETCONTENT empties and is 0") << Promise([] {
        QComboBox box;
        box.addItems({QStringLiteral("a"), QStringLiteral("b")});
        QCOMPARE(SendMessageW(handleOf(&box), 0x14B, 0, 0), 0L);
        QCOMPARE(box.count(), 0);
    });
    QTest::newRow("CB_SETCURSEL 1 chooses the second row, tells so and is 0") << Promise([] {
        QComboBox box;
        box.addItems({QStringLiteral("a"), QStringLiteral("b")});
        QSignalSpy changed(&box, QOverload<int>::of(&QComboBox::currentIndexChanged));
        QCOMPARE(SendMessageW(handleOf(&box), 0x14E, 1, 0), 0L);
        QCOMPARE(box.currentIndex(), 1);
        QCOMPARE(changed.size(), 1);
    });
    QTest::newRow("CB_SETCURSEL -1 chooses nothing and is 0") << Promise([] {
        QComboBox box;
        box.addItem(QStringLiteral("a"));
        QCOMPARE(SendMessageW(handleOf(&box), 0x14E, static_cast<WPARAM>(-1), 0), 0L);
        QCOMPARE(box.currentIndex(), -1);
    });
    QTest::newRow("combo box messages make no event and call no WindowProc") << Promise([] {
        Receiver<QComboBox> box;
        ListeningWnd window;
        window.Attach(handleOf(&box));
        SendMessageW(handleOf(&box), 0x143, 0, lParamOf(L"a"));
        for (const UINT message : {0x146u, 0x147u, 0x14Eu, 0x14Bu})
            SendMessageW(handleOf(&box), message, 0, 0);
        QVERIFY(box.received.isEmpty());
        QVERIFY(window.received.isEmpty());
    });
}

void MessagesAndTimersTest::wrongWidget_data()
{
    QTest::addColumn<UINT>("message");

    QTest::newRow("BM_GETCHECK to a label") << 0xF0u;
    QTest::newRow("BM_SETCHECK to a label") << 0xF1u;
    QTest::newRow("BM_SETIMAGE to a label") << 0xF7u;
    QTest::newRow("CB_ADDSTRING to a label") << 0x143u;
    QTest::newRow("CB_GETCOUNT to a label") << 0x146u;
    QTest::newRow("CB_GETCURSEL to a label is 0, not -1") << 0x147u;
    QTest::newRow("CB_RESETCONTENT to a label") << 0x14Bu;
    QTest::newRow("CB_SETCURSEL to a label") << 0x14Eu;
}

void MessagesAndTimersTest::wrongWidget()
{
    QFETCH(UINT, message);
    Receiver<QLabel> label;
    label.setText(QStringLiteral("label"));
    ListeningWnd window;
    window.Attach(handleOf(&label));
    QCOMPARE(SendMessageW(handleOf(&label), message, 1, lParamOf(L"text")), 0L);
    QCoreApplication::processEvents();
    QVERIFY(label.received.isEmpty()); // It is ignored, not passed on.
    QVERIFY(window.received.isEmpty());
    QCOMPARE(label.text(), QStringLiteral("label"));
}

void MessagesAndTimersTest::images_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("BM_SETIMAGE of a bitmap handle sets the icon and is 0") << Promise([] {
        KxImageService *images = platformServices()->imageService();
        const HBITMAP bitmap = images->createBitmap(8, 6);
        images->image(bitmap)->fill(QColor(10, 200, 30));
        QPushButton button;
        QCOMPARE(SendMessageW(handleOf(&button), 0xF7, 0, lParamOf(bitmap)), 0L);
        QCOMPARE(button.icon().availableSizes(), QList<QSize>{QSize(8, 6)});
        QCOMPARE(button.icon().pixmap(8, 6).toImage().pixelColor(4, 3), QColor(10, 200, 30));
        QVERIFY(images->image(bitmap) != nullptr); // The image stays with the service.
        images->deleteHandle(bitmap);
    });
    QTest::newRow("BM_SETIMAGE of an adopted image sets the icon") << Promise([] {
        QImage image(5, 4, QImage::Format_RGB32);
        image.fill(Qt::blue);
        const HBITMAP bitmap = platformServices()->imageService()->adopt(&image);
        QPushButton button;
        SendMessageW(handleOf(&button), 0xF7, 0, lParamOf(bitmap));
        platformServices()->imageService()->release(&image);
        QCOMPARE(button.icon().availableSizes(), QList<QSize>{QSize(5, 4)});
    });
    QTest::newRow("BM_SETIMAGE of 0 leaves the icon") << Promise([] {
        QPushButton button;
        button.setIcon(QIcon(QPixmap(3, 3)));
        QCOMPARE(SendMessageW(handleOf(&button), 0xF7, 0, 0), 0L);
        QCOMPARE(button.icon().availableSizes(), QList<QSize>{QSize(3, 3)});
    });
    QTest::newRow("BM_SETIMAGE of a handle that nobody gave out leaves the icon") << Promise([] {
        QPushButton button;
        button.setIcon(QIcon(QPixmap(3, 3)));
        QCOMPARE(SendMessageW(handleOf(&button), 0xF7, 0, 0x123450), 0L);
        QCOMPARE(button.icon().availableSizes(), QList<QSize>{QSize(3, 3)});
    });
    QTest::newRow("BM_SETIMAGE asks the image service in use") << Promise([] {
        class OneImageService : public KxImageService
        {
        public:
            QImage *image(HGDIOBJ handle) const override
            {
                asked = handle;
                return one.get();
            }

            std::unique_ptr<QImage> one = std::make_unique<QImage>(9, 7, QImage::Format_RGB32);
            mutable HGDIOBJ asked = nullptr;
        } service;
        service.one->fill(Qt::red);
        QPushButton button;
        platformServices()->setImageService(&service);
        SendMessageW(handleOf(&button), 0xF7, 0, 0x4711);
        platformServices()->setImageService(nullptr);
        QCOMPARE(lParamOf(service.asked), 0x4711L);
        QCOMPARE(button.icon().availableSizes(), QList<QSize>{QSize(9, 7)});
    });
}

void MessagesAndTimersTest::applicationMessages_data()
{
    QTest::addColumn<UINT>("message");

    QTest::newRow("0x406, WM_USER + 6") << 0x406u;
    QTest::newRow("0x408, WM_USER + 8") << 0x408u;
    QTest::newRow("0x40C, WM_USER + 12") << 0x40Cu;
    QTest::newRow("0x40D, WM_USER + 13") << 0x40Du;
    QTest::newRow("0x410, WM_USER + 16") << 0x410u;
    QTest::newRow("0x411, WM_USER + 17") << 0x411u;
    QTest::newRow("0x415, WM_USER + 21") << 0x415u;
}

void MessagesAndTimersTest::applicationMessages()
{
    QFETCH(UINT, message);
    Receiver<QWidget> widget;
    // Without an object the message goes nowhere.
    QCOMPARE(SendMessageW(handleOf(&widget), message, 1, -2), 0L);
    QVERIFY(widget.received.isEmpty());
    // With one its WindowProc runs once, with the same values; its answer, 42, is dropped.
    ListeningWnd window;
    window.Attach(handleOf(&widget));
    QCOMPARE(SendMessageW(handleOf(&widget), message, ULONG_MAX, -2), 0L);
    QCOMPARE(window.received, (QList<Message>{{message, ULONG_MAX, -2}}));
    QCoreApplication::processEvents();
    QVERIFY(widget.received.isEmpty());
}

void MessagesAndTimersTest::otherMessages_data()
{
    QTest::addColumn<UINT>("message");

    QTest::newRow("0") << 0u;
    QTest::newRow("0x10") << 0x10u;
    QTest::newRow("0xEF, below BM_GETCHECK") << 0xEFu;
    QTest::newRow("0xF2, above BM_SETCHECK") << 0xF2u;
    QTest::newRow("0xF6, BM_GETIMAGE") << 0xF6u;
    QTest::newRow("0xF8, above BM_SETIMAGE") << 0xF8u;
    QTest::newRow("0x144, CB_DELETESTRING") << 0x144u;
    QTest::newRow("0x148, CB_GETLBTEXT") << 0x148u;
    QTest::newRow("0x149, CB_GETLBTEXTLEN") << 0x149u;
    QTest::newRow("0x400, WM_USER") << 0x400u;
    QTest::newRow("0x405") << 0x405u;
    QTest::newRow("0x407") << 0x407u;
    QTest::newRow("0x409") << 0x409u;
    QTest::newRow("0x40B") << 0x40Bu;
    QTest::newRow("0x40E") << 0x40Eu;
    QTest::newRow("0x40F") << 0x40Fu;
    QTest::newRow("0x412") << 0x412u;
    QTest::newRow("0x414") << 0x414u;
    QTest::newRow("0x416") << 0x416u;
    QTest::newRow("0xFFFFFFFF") << 0xFFFFFFFFu;
}

void MessagesAndTimersTest::otherMessages()
{
    QFETCH(UINT, message);
    Receiver<QComboBox> widget;
    ListeningWnd window;
    window.Attach(handleOf(&widget));
    QCOMPARE(SendMessageW(handleOf(&widget), message, 3, -4), 0L);
    QCOMPARE(widget.received, (QList<Message>{{message, 3, -4}}));
    QVERIFY(window.received.isEmpty());
}

void MessagesAndTimersTest::nullHandle_data()
{
    QTest::addColumn<UINT>("message");

    for (const UINT message :
         {0xF0u, 0xF1u, 0xF7u, 0x143u, 0x146u, 0x147u, 0x14Bu, 0x14Eu, 0x406u, 0x407u, 0u})
        QTest::addRow("message 0x%X to a null handle is 0", message) << message;
}

void MessagesAndTimersTest::nullHandle()
{
    QFETCH(UINT, message);
    QCOMPARE(SendMessageW(nullptr, message, 1, lParamOf(L"text")), 0L);
}

void MessagesAndTimersTest::members_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("CWnd::SendMessage calls WindowProc once and answers its result, 42") << Promise([] {
        Receiver<QWidget> widget;
        ListeningWnd window;
        window.Attach(handleOf(&widget));
        QCOMPARE(window.SendMessageW(0x407, 1, -2), 42L);
        QCOMPARE(window.received, (QList<Message>{{0x407, 1, -2}}));
        QVERIFY(widget.received.isEmpty());
    });
    QTest::newRow("CWnd::SendMessage hands button messages to WindowProc too") << Promise([] {
        QCheckBox box;
        ListeningWnd window;
        window.Attach(handleOf(&box));
        QCOMPARE(window.SendMessageW(BM_SETCHECK, 1, 0), 42L);
        QVERIFY(!box.isChecked());
    });
    QTest::newRow("CWnd::SendMessage of an unbound window calls WindowProc") << Promise([] {
        ListeningWnd window;
        QCOMPARE(window.SendMessageW(0x407, 1, 2), 42L);
        QCOMPARE(window.received.size(), 1);
    });
    QTest::newRow("CWnd::SendMessage without parameters sends 0 and 0") << Promise([] {
        ListeningWnd window;
        QCOMPARE(window.SendMessageW(0x407), 42L);
        QCOMPARE(window.received, (QList<Message>{{0x407, 0, 0}}));
    });
    QTest::newRow("CWnd::SendMessage works on a const window") << Promise([] {
        const ListeningWnd window;
        QCOMPARE(window.SendMessageW(0x407, 1, 2), 42L);
    });
    QTest::newRow("CWnd::SendMessage of a plain window is 0") << Promise([] {
        const CWnd window(nullptr);
        QCOMPARE(window.SendMessageW(0x407, 1, 2), 0L);
    });
    QTest::newRow("CWnd::PostMessage is TRUE and nothing arrives") << Promise([] {
        Receiver<QWidget> widget;
        ListeningWnd window;
        window.Attach(handleOf(&widget));
        QCOMPARE(window.PostMessageW(0x407, 1, 2), true);
        QCOMPARE(window.PostMessageW(0x406), true);
        // What is posted now would arrive behind it.
        PostMessageW(handleOf(&widget), 0x408, 0, 0);
        QTRY_COMPARE(widget.received, (QList<Message>{{0x408, 0, 0}}));
        QVERIFY(window.received.isEmpty());
    });
    QTest::newRow("CWnd::PostMessage of an unbound window is TRUE") << Promise([] {
        CWnd window(nullptr);
        QCOMPARE(window.PostMessageW(0x407, 1, 2), true);
    });
}

void MessagesAndTimersTest::inert_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("both SetTimer are 0 and nothing ever fires") << Promise([] {
        Receiver<QWidget> widget;
        CWnd window(nullptr);
        window.Attach(handleOf(&widget));
        timerCalls = 0;
        QCOMPARE(window.SetTimer(1, 0, countTimer), 0UL);
        QCOMPARE(window.SetTimer(2, 0, nullptr), 0UL);
        QCOMPARE(SetTimer(handleOf(&widget), 3, 0, countTimer), 0UL);
        QCOMPARE(SetTimer(nullptr, 4, 0, countTimer), 0UL);
        // A timer of no milliseconds that is made later fires: one made before would have fired too.
        bool fired = false;
        QTimer::singleShot(0, [&fired] { fired = true; });
        QTRY_VERIFY(fired);
        QCOMPARE(timerCalls, 0);
        QVERIFY(widget.types.isEmpty());
    });
    QTest::newRow("both KillTimer are TRUE") << Promise([] {
        QWidget widget;
        CWnd window(nullptr);
        QCOMPARE(window.KillTimer(1), true);
        QCOMPARE(KillTimer(handleOf(&widget), 1), true);
        QCOMPARE(KillTimer(nullptr, 1), true);
    });
    QTest::newRow("PeekMessage is TRUE and leaves the record") << Promise([] {
        tagMSG message;
        tagMSG before;
        std::memset(&message, 0x5A, sizeof message);
        std::memset(&before, 0x5A, sizeof before);
        QCOMPARE(PeekMessageW(&message, nullptr, 0, 0, 1), true);
        QCOMPARE(std::memcmp(&message, &before, sizeof message), 0);
    });
    QTest::newRow("PeekMessage takes no message from the queue") << Promise([] {
        Receiver<QWidget> widget;
        PostMessageW(handleOf(&widget), 0x407, 1, 2);
        tagMSG message = {};
        QCOMPARE(PeekMessageW(&message, handleOf(&widget), 0, 0, 1), true);
        QCOMPARE(message.message, 0u);
        QVERIFY(widget.received.isEmpty());
        QTRY_COMPARE(widget.received.size(), 1);
    });
    QTest::newRow("RegisterHotKey and UnregisterHotKey are TRUE") << Promise([] {
        QWidget widget;
        QCOMPARE(RegisterHotKey(handleOf(&widget), 1, 0, 'A'), true);
        QCOMPARE(UnregisterHotKey(handleOf(&widget), 1), true);
        QCOMPARE(RegisterHotKey(nullptr, 1, 0, 'A'), true);
        QCOMPARE(UnregisterHotKey(nullptr, 1), true);
    });
}

KX_TEST_MAIN(MessagesAndTimersTest)
#include "tst_messages_and_timers.moc"
