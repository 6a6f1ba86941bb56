// SPDX-License-Identifier: MIT
#include "KxPlatformServices.h"
#include "KxTestCase.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <functional>
#include <set>
#include <string>

Q_DECLARE_METATYPE(std::wstring)
Q_DECLARE_METATYPE(Qt::KeyboardModifiers)
Q_DECLARE_METATYPE(Qt::MouseButton)

namespace {

const SHORT down = static_cast<SHORT>(0x8000);

/// Every code that the key-state service knows, and a few that it does not.
const QVector<int> virtualKeys{VK_LBUTTON,  VK_RBUTTON, VK_CANCEL,  VK_MBUTTON,  VK_XBUTTON1,
                               VK_XBUTTON2, VK_SHIFT,   VK_CONTROL, VK_MENU,     VK_CAPITAL,
                               VK_ESCAPE,   VK_SPACE,   'A',        VK_LWIN,     VK_RWIN,
                               VK_NUMLOCK,  VK_LSHIFT,  VK_RSHIFT,  VK_LCONTROL, VK_RCONTROL,
                               VK_LMENU,    VK_RMENU,   0,          -1,          256};

SHORT keyState(int virtualKey)
{
    return platformServices()->keyStateService()->keyState(virtualKey);
}

QVector<int> keysDown()
{
    QVector<int> result;
    for (const int key : virtualKeys) {
        if (keyState(key) & down)
            result.append(key);
    }
    return result;
}

const SHORT shiftBeforeTheApplication = keyState(VK_SHIFT);

/// Lets go of everything at its end; Qt keeps modifiers and buttons until an event says otherwise.
class KeyScope
{
public:
    KeyScope() = default;
    KeyScope(const KeyScope &) = delete;
    KeyScope &operator=(const KeyScope &) = delete;
    ~KeyScope()
    {
        QWidget widget;
        QTest::keyRelease(&widget, Qt::Key_F35);
        const auto buttons = QGuiApplication::mouseButtons();
        for (const Qt::MouseButton button :
             {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton}) {
            if (buttons & button)
                QTest::mouseRelease(&widget, button);
        }
    }
};

/// Notes which keys are down while it handles an event.
class KeyWidget : public QWidget
{
public:
    QVector<int> seen;

protected:
    bool event(QEvent *event) override
    {
        static const QVector<QEvent::Type> input{QEvent::KeyPress, QEvent::KeyRelease,
                                                 QEvent::MouseButtonPress, QEvent::MouseButtonRelease};
        if (!input.contains(event->type()))
            return QWidget::event(event);
        seen = keysDown();
        return true;
    }
};

class KeyWindow : public QWindow
{
public:
    QVector<int> seen;

protected:
    void keyPressEvent(QKeyEvent *) override { seen = keysDown(); }
    void mousePressEvent(QMouseEvent *) override { seen = keysDown(); }
};

KxImageService *images()
{
    return platformServices()->imageService();
}

} // namespace

class tst_PlatformServices : public KxTestCase
{
    Q_OBJECT

private slots:
    void servicesAreThere();
    void servicesAreReplaceable();

    void keyStateBeforeTheApplication();
    void nothingIsDown();
    void modifiers_data();
    void modifiers();
    void modifiersOfAWindow_data();
    void modifiersOfAWindow();
    void modifiersBelongToTheEvent();
    void mouseButtons_data();
    void mouseButtons();
    void twoMouseButtons();
    void capsLock_data();
    void capsLock();

    void newBitmap();
    void newBitmapOfNoSize_data();
    void newBitmapOfNoSize();
    void bitmapOfAnImage_data();
    void bitmapOfAnImage();
    void bitmapOfTheNullImage();
    void paintingIntoABitmap();
    void brushes_data();
    void brushes();
    void deletedHandles();
    void handlesComeOnce();
    void handlesOfNothing_data();
    void handlesOfNothing();
    void adoptedImages();
    void adoptedTwiceIsOneHandle();
    void adoptedImageIsLetGoNotDeleted();
    void adoptedImageOfTheServiceItself();
    void adoptedNull();

    void normalizePath_data();
    void normalizePath();
    void normalizePathOfNothing();
    void normalizePathInPlace();
};

void tst_PlatformServices::servicesAreThere()
{
    KxPlatformServices *services = platformServices();
    QVERIFY(services);
    QCOMPARE(platformServices(), services);
    QVERIFY(services->keyStateService());
    QVERIFY(services->imageService());
    QVERIFY(services->fileSystemService());
}

void tst_PlatformServices::servicesAreReplaceable()
{
    class KeyState : public KxKeyStateService
    {
    public:
        SHORT keyState(int virtualKey) const override { return static_cast<SHORT>(virtualKey + 1); }
    } keys;
    class FileSystem : public KxFileSystemService
    {
    public:
        bool normalizePath(const wchar_t *, std::wstring &normalized) const override
        {
            normalized = L"elsewhere";
            return true;
        }
    } files;
    KxImageService bitmaps;

    KxPlatformServices *services = platformServices();
    KxKeyStateService *const ownKeys = services->keyStateService();
    KxImageService *const ownBitmaps = services->imageService();
    KxFileSystemService *const ownFiles = services->fileSystemService();
    services->setKeyStateService(&keys);
    services->setImageService(&bitmaps);
    services->setFileSystemService(&files);
    QCOMPARE(keyState(41), SHORT(42));
    QCOMPARE(images(), &bitmaps);
    std::wstring path;
    QVERIFY(services->fileSystemService()->normalizePath(L"a", path));
    QCOMPARE(path, std::wstring(L"elsewhere"));

    services->setKeyStateService(nullptr);
    services->setImageService(nullptr);
    services->setFileSystemService(nullptr);
    QCOMPARE(services->keyStateService(), ownKeys);
    QCOMPARE(services->imageService(), ownBitmaps);
    QCOMPARE(services->fileSystemService(), ownFiles);
}

// ---- key state ------------------------------------------------------------------------------------------

void tst_PlatformServices::keyStateBeforeTheApplication()
{
    QCOMPARE(shiftBeforeTheApplication, SHORT(0));
}

void tst_PlatformServices::nothingIsDown()
{
    for (const int key : virtualKeys)
        QCOMPARE(keyState(key), SHORT(0));
}

void tst_PlatformServices::modifiers_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QVector<int>>("keys");

    const auto row = [](const char *title, Qt::KeyboardModifiers modifiers, const QVector<int> &keys) {
        QTest::newRow(title) << modifiers << keys;
    };
    row("none", Qt::NoModifier, {});
    row("Shift, of either side", Qt::ShiftModifier, {VK_SHIFT, VK_LSHIFT, VK_RSHIFT});
    row("Control, of either side", Qt::ControlModifier, {VK_CONTROL, VK_LCONTROL, VK_RCONTROL});
    row("Alt, of either side", Qt::AltModifier, {VK_MENU, VK_LMENU, VK_RMENU});
    row("Meta, of either side", Qt::MetaModifier, {VK_LWIN, VK_RWIN});
    row("keypad is no key", Qt::KeypadModifier, {});
    row("Shift and Alt", Qt::ShiftModifier | Qt::AltModifier,
        {VK_SHIFT, VK_MENU, VK_LSHIFT, VK_RSHIFT, VK_LMENU, VK_RMENU});
}

void tst_PlatformServices::modifiers()
{
    const KeyScope scope;
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QVector<int>, keys);
    KeyWidget widget;
    QTest::keyPress(&widget, Qt::Key_A, modifiers);
    QCOMPARE(widget.seen, keys);
    for (const int key : keys)
        QCOMPARE(keyState(key), down);
    QTest::mouseMove(&widget);
    widget.seen.clear();
    QTest::mousePress(&widget, Qt::LeftButton, modifiers, QPoint(1, 1));
    QCOMPARE(widget.seen, QVector<int>{VK_LBUTTON} + keys);
}

void tst_PlatformServices::modifiersOfAWindow_data()
{
    modifiers_data();
}

void tst_PlatformServices::modifiersOfAWindow()
{
    const KeyScope scope;
    // Through the window system's queue, as real events come.
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QVector<int>, keys);
    KeyWindow window;
    window.resize(100, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTest::keyPress(&window, Qt::Key_A, modifiers);
    QCOMPARE(window.seen, keys);
    QTest::keyRelease(&window, Qt::Key_A, modifiers);
    QTest::mousePress(&window, Qt::RightButton, modifiers, QPoint(1, 1));
    QCOMPARE(window.seen, QVector<int>{VK_RBUTTON} + keys);
    QTest::mouseRelease(&window, Qt::RightButton, Qt::NoModifier, QPoint(1, 1));
}

void tst_PlatformServices::modifiersBelongToTheEvent()
{
    const KeyScope scope;
    KeyWidget widget;
    QTest::keyPress(&widget, Qt::Key_A, Qt::ShiftModifier);
    QVERIFY(keyState(VK_SHIFT) & down);
    QTest::keyPress(&widget, Qt::Key_B);
    QCOMPARE(keyState(VK_SHIFT), SHORT(0));
}

void tst_PlatformServices::mouseButtons_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<int>("key");

    QTest::newRow("left") << Qt::LeftButton << int(VK_LBUTTON);
    QTest::newRow("right") << Qt::RightButton << int(VK_RBUTTON);
    QTest::newRow("middle") << Qt::MiddleButton << int(VK_MBUTTON);
    QTest::newRow("back is X1") << Qt::BackButton << int(VK_XBUTTON1);
    QTest::newRow("forward is X2") << Qt::ForwardButton << int(VK_XBUTTON2);
}

void tst_PlatformServices::mouseButtons()
{
    const KeyScope scope;
    QFETCH(Qt::MouseButton, button);
    QFETCH(int, key);
    KeyWidget widget;
    QTest::mousePress(&widget, button);
    QCOMPARE(widget.seen, QVector<int>{key});
    QCOMPARE(keyState(key), down);
    QTest::mouseRelease(&widget, button);
    QCOMPARE(widget.seen, QVector<int>());
    QCOMPARE(keyState(key), SHORT(0));
}

void tst_PlatformServices::twoMouseButtons()
{
    const KeyScope scope;
    KeyWidget widget;
    QTest::mousePress(&widget, Qt::LeftButton);
    QTest::mousePress(&widget, Qt::RightButton);
    QCOMPARE(widget.seen, QVector<int>({VK_LBUTTON, VK_RBUTTON}));
    QTest::mouseRelease(&widget, Qt::LeftButton);
    QCOMPARE(widget.seen, QVector<int>{VK_RBUTTON});
}

void tst_PlatformServices::capsLock_data()
{
    // Key events as the window system delivers them: A or C(aps Lock); + press, - release; L lock bit of the
    // native state set, - not set, ? no native state. An exclamation mark is a change of application.
    QTest::addColumn<QString>("events");
    QTest::addColumn<int>("state");

    const int isDown = 0xFFFF8000;
    QTest::newRow("a key while it is on") << "A+L" << 1;
    QTest::newRow("a key while it is off") << "A+L A+-" << 0;
    QTest::newRow("the release of a key tells too") << "A+- A-L" << 1;
    QTest::newRow("a key without native state tells nothing") << "A+L A+?" << 1;
    QTest::newRow("switched on: down and on at the press") << "A+- C+-" << (isDown | 1);
    QTest::newRow("switched on: on after the release") << "A+- C+- C-L" << 1;
    QTest::newRow("switched off: down and off at the press") << "A+L C+L" << isDown;
    QTest::newRow("switched off: off after the release") << "A+L C+L C-L" << 0;
    QTest::newRow("switched off, a key in between") << "C+L A+L C-L" << 0;
    QTest::newRow("on and off again") << "C+- C-L C+L C-L A+-" << 0;
    QTest::newRow("let go of in another application") << "C+- !" << 1;
}

void tst_PlatformServices::capsLock()
{
    QFETCH(QString, events);
    QFETCH(int, state);
    QWidget parent;
    QWidget widget(&parent); // which passes events on, so that each is seen twice
    const auto send = [&widget](const QString &event) {
        const bool isNative = event.at(2) != QLatin1Char('?');
        const quint32 lockMask = event.at(2) == QLatin1Char('L') ? 2 : 0;
        QKeyEvent key(event.at(1) == QLatin1Char('+') ? QEvent::KeyPress : QEvent::KeyRelease,
                      event.at(0) == QLatin1Char('C') ? Qt::Key_CapsLock : Qt::Key_A, Qt::NoModifier,
                      isNative ? 38 : 0, 0, lockMask);
        QCoreApplication::sendEvent(&widget, &key);
    };
    const auto reset = qScopeGuard([&send] {
        send(QStringLiteral("C--"));
        send(QStringLiteral("A+-"));
    });
    for (const QString &event : events.split(QLatin1Char(' '))) {
        if (event == QLatin1String("!")) {
            QEvent change(QEvent::ApplicationStateChange);
            QCoreApplication::sendEvent(qApp, &change);
        } else {
            send(event);
        }
    }
    QCOMPARE(int(keyState(VK_CAPITAL)), state);
}

// ---- images ---------------------------------------------------------------------------------------------

void tst_PlatformServices::newBitmap()
{
    const HBITMAP bitmap = images()->createBitmap(7, 5);
    QVERIFY(bitmap);
    QImage *image = images()->image(bitmap);
    QVERIFY(image);
    QCOMPARE(image->size(), QSize(7, 5));
    QCOMPARE(image->format(), QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(image->pixel(0, 0), 0xFF000000u);
    QCOMPARE(image->pixel(6, 4), 0xFF000000u);
    QCOMPARE(images()->image(bitmap), image);
    QCOMPARE(images()->brushColor(bitmap), 0xFFFFFFFFu);
    QVERIFY(images()->deleteHandle(bitmap));
}

void tst_PlatformServices::newBitmapOfNoSize_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");

    QTest::newRow("no width") << 0 << 5;
    QTest::newRow("no height") << 5 << 0;
    QTest::newRow("a negative width") << -1 << 5;
    QTest::newRow("a negative height") << 5 << -1;
    QTest::newRow("both negative") << -5 << -5;
    QTest::newRow("more than memory") << INT_MAX << INT_MAX;
}

void tst_PlatformServices::newBitmapOfNoSize()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QVERIFY(!images()->createBitmap(width, height));
}

void tst_PlatformServices::bitmapOfAnImage_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<unsigned int>("pixel");

    QTest::newRow("RGB32") << int(QImage::Format_RGB32) << 0xFF336699u;
    QTest::newRow("ARGB32, transparent") << int(QImage::Format_ARGB32) << 0x33FF0000u;
    QTest::newRow("RGB888") << int(QImage::Format_RGB888) << 0xFF336699u;
    QTest::newRow("a colour table") << int(QImage::Format_Indexed8) << 0xFF336699u;
}

void tst_PlatformServices::bitmapOfAnImage()
{
    QFETCH(int, format);
    QFETCH(unsigned int, pixel);
    QImage source(3, 2, QImage::Format_ARGB32);
    source.fill(pixel);
    source = source.convertToFormat(QImage::Format(format));

    const HBITMAP bitmap = images()->createBitmapFromImage(source);
    QImage *image = images()->image(bitmap);
    QVERIFY(image);
    QCOMPARE(image->size(), QSize(3, 2));
    QCOMPARE(image->format(), QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(image->pixelColor(2, 1).rgba(), pixel);
    image->fill(Qt::green);
    QCOMPARE(source.pixel(2, 1), pixel);
    QVERIFY(images()->deleteHandle(bitmap));
}

void tst_PlatformServices::bitmapOfTheNullImage()
{
    QVERIFY(!images()->createBitmapFromImage(QImage()));
}

void tst_PlatformServices::paintingIntoABitmap()
{
    const HBITMAP bitmap = images()->createBitmap(4, 4);
    QPaintDevice *device = images()->paintDevice(bitmap);
    QVERIFY(device);
    QPainter painter(device);
    QVERIFY(painter.isActive());
    painter.fillRect(0, 0, 2, 2, Qt::red);
    painter.end();
    QCOMPARE(images()->image(bitmap)->pixel(1, 1), 0xFFFF0000u);
    QCOMPARE(images()->image(bitmap)->pixel(2, 2), 0xFF000000u);
    QVERIFY(images()->deleteHandle(bitmap));
}

void tst_PlatformServices::brushes_data()
{
    QTest::addColumn<unsigned int>("color");
    QTest::addColumn<unsigned int>("answer");
    QTest::addColumn<bool>("isMade");

    QTest::newRow("black") << 0x00000000u << 0x00000000u << true;
    QTest::newRow("red in the low byte") << 0x000000FFu << 0x000000FFu << true;
    QTest::newRow("white") << 0x00FFFFFFu << 0x00FFFFFFu << true;
    QTest::newRow("the top byte is dropped") << 0x02112233u << 0x00112233u << true;
    QTest::newRow("no colour makes no brush") << 0xFFFFFFFFu << 0xFFFFFFFFu << false;
}

void tst_PlatformServices::brushes()
{
    QFETCH(unsigned int, color);
    QFETCH(bool, isMade);
    const HBRUSH brush = images()->createSolidBrush(color);
    QCOMPARE(brush != nullptr, isMade);
    QTEST(images()->brushColor(brush), "answer");
    QVERIFY(!images()->image(brush));
    QVERIFY(!images()->paintDevice(brush));
    QCOMPARE(images()->deleteHandle(brush), isMade);
}

void tst_PlatformServices::deletedHandles()
{
    const HBITMAP bitmap = images()->createBitmap(7, 5);
    const HBRUSH brush = images()->createSolidBrush(0x112233);
    QVERIFY(images()->deleteHandle(bitmap));
    QVERIFY(images()->deleteHandle(brush));
    QVERIFY(!images()->image(bitmap));
    QVERIFY(!images()->paintDevice(bitmap));
    QCOMPARE(images()->brushColor(brush), 0xFFFFFFFFu);
    QVERIFY(!images()->deleteHandle(bitmap));
    QVERIFY(!images()->deleteHandle(brush));
}

void tst_PlatformServices::handlesComeOnce()
{
    std::set<HGDIOBJ> seen;
    for (int i = 0; i < 500; ++i) {
        const HGDIOBJ bitmap = images()->createBitmap(2, 2);
        const HGDIOBJ brush = images()->createSolidBrush(0x112233);
        QVERIFY(seen.insert(bitmap).second);
        QVERIFY(seen.insert(brush).second);
        QVERIFY(images()->deleteHandle(bitmap) && images()->deleteHandle(brush));
    }
}

void tst_PlatformServices::handlesOfNothing_data()
{
    QTest::addColumn<HGDIOBJ>("handle");

    static QImage notAdopted(2, 2, QImage::Format_RGB32);
    static int somethingElse = 0;
    QTest::newRow("null") << HGDIOBJ(nullptr);
    QTest::newRow("a small number") << KxHandleFromValue<HGDIOBJ>(7);
    QTest::newRow("-1") << KxHandleFromValue<HGDIOBJ>(-1);
    QTest::newRow("an image that was not adopted") << HGDIOBJ(&notAdopted);
    QTest::newRow("the address of something else") << HGDIOBJ(&somethingElse);
    QTest::newRow("an address that nothing is at") << KxHandleFromValue<HGDIOBJ>(0x7F0000000000);
}

void tst_PlatformServices::handlesOfNothing()
{
    QFETCH(HGDIOBJ, handle);
    QVERIFY(!images()->image(handle));
    QVERIFY(!images()->paintDevice(handle));
    QCOMPARE(images()->brushColor(handle), 0xFFFFFFFFu);
    QVERIFY(!images()->deleteHandle(handle));
}

void tst_PlatformServices::adoptedImages()
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const HBITMAP bitmap = images()->adopt(&image);
    QCOMPARE(static_cast<void *>(bitmap), static_cast<void *>(&image));
    QCOMPARE(images()->image(bitmap), &image);
    QCOMPARE(images()->paintDevice(bitmap), static_cast<QPaintDevice *>(&image));
    QCOMPARE(images()->brushColor(bitmap), 0xFFFFFFFFu);
    QVERIFY(images()->release(&image));
    QVERIFY(!images()->image(bitmap));
    QVERIFY(!images()->paintDevice(bitmap));
    QVERIFY(!images()->release(&image));
    QCOMPARE(image.pixel(0, 0), 0xFF0000FFu);
}

void tst_PlatformServices::adoptedTwiceIsOneHandle()
{
    QImage image(3, 2, QImage::Format_RGB32);
    const HBITMAP bitmap = images()->adopt(&image);
    QCOMPARE(images()->adopt(&image), bitmap);
    QVERIFY(images()->release(&image));
    QVERIFY(!images()->image(bitmap));
}

void tst_PlatformServices::adoptedImageIsLetGoNotDeleted()
{
    auto image = std::make_unique<QImage>(3, 2, QImage::Format_RGB32);
    image->fill(Qt::blue);
    const HBITMAP bitmap = images()->adopt(image.get());
    QVERIFY(images()->deleteHandle(bitmap));
    QVERIFY(!images()->image(bitmap));
    QVERIFY(!images()->deleteHandle(bitmap));
    QVERIFY(!images()->release(image.get()));
    QCOMPARE(image->pixel(2, 1), 0xFF0000FFu);
}

void tst_PlatformServices::adoptedImageOfTheServiceItself()
{
    const HBITMAP bitmap = images()->createBitmap(3, 2);
    QImage *image = images()->image(bitmap);
    QCOMPARE(images()->adopt(image), bitmap);
    QVERIFY(!images()->release(image));
    QCOMPARE(images()->image(bitmap), image);
    QVERIFY(images()->deleteHandle(bitmap));
    QVERIFY(!images()->image(image));
}

void tst_PlatformServices::adoptedNull()
{
    QVERIFY(!images()->adopt(nullptr));
    QVERIFY(!images()->release(nullptr));
    QVERIFY(!images()->image(nullptr));
}

// ---- paths ----------------------------------------------------------------------------------------------

void tst_PlatformServices::normalizePath_data()
{
    QTest::addColumn<std::wstring>("path");
    QTest::addColumn<std::wstring>("normalized");

    const auto row = [](const char *title, const wchar_t *path, const wchar_t *normalized) {
        QTest::newRow(title) << std::wstring(path) << std::wstring(normalized);
    };
    row("nothing to do, rooted", L"/a/b.txt", L"/a/b.txt");
    row("nothing to do, relative", L"a/b.txt", L"a/b.txt");
    row("a dot in the middle", L"/a/./b", L"/a/b");
    row("a dot in front", L"./a", L"a");
    row("a dot at the end", L"a/.", L"a");
    row("two dots in the middle", L"/a/b/../c", L"/a/c");
    row("two dots at the end", L"a/b/..", L"a");
    row("two dots twice", L"/a/b/c/../../d", L"/a/d");
    row("dots mixed", L"a/./b/.././c", L"a/c");
    row("doubled separators", L"a//b", L"a/b");
    row("many separators", L"a/////b", L"a/b");
    row("two separators in front", L"//a", L"/a");
    row("three separators in front", L"///a", L"/a");
    row("the root", L"/", L"/");
    row("two separators alone", L"//", L"/");
    row("the root and a dot", L"/.", L"/");
    row("above the root", L"/..", L"/");
    row("above the root, with a separator", L"/../", L"/");
    row("far above the root", L"/../../a", L"/a");
    row("above the root again", L"/a/../../b", L"/b");
    row("leading two dots stay", L"../a", L"../a");
    row("leading two dots stay, all of them", L"../../a", L"../../a");
    row("two dots beyond a relative path's beginning", L"a/../../b", L"../b");
    row("leading two dots are not climbed over", L"../a/../..", L"../..");
    row("nothing remains", L"a/..", L".");
    row("nothing remains, with a separator", L"a/../", L"./");
    row("a dot alone", L".", L".");
    row("a dot and a separator", L"./", L"./");
    row("two dots alone", L"..", L"..");
    row("two dots and a separator", L"../", L"../");
    row("a separator at the end is kept", L"a/b/", L"a/b/");
    row("separators at the end become one", L"a/b//", L"a/b/");
    row("a separator at the end after two dots", L"a/b/../", L"a/");
    row("three dots are a name", L"a/.../b", L"a/.../b");
    row("names that begin with dots", L"a/.b/..c", L"a/.b/..c");
    row("names that end with dots", L"a./b../c", L"a./b../c");
    row("blanks are kept", L" / a ", L" / a ");
    row("a backslash is a character", L"a\\..\\b", L"a\\..\\b");
    row("a backslash and a separator", L"a\\b/../c", L"c");
    row("beyond 16 bits", L"\U0001F600/./\u00E4", L"\U0001F600/\u00E4");
    row("a drive", L"C:/a/../b", L"C:/b");
    row("a drive's root", L"C:/", L"C:/");
    row("above a drive's root", L"C:/..", L"C:/");
    row("above a drive's root, into something", L"c:/../../x", L"c:/x");
    row("separators behind a drive", L"C://a", L"C:/a");
    row("a drive alone", L"C:", L"C:");
    row("relative to a drive", L"C:a/../b", L"C:b");
    row("above what is relative to a drive", L"C:../a", L"C:../a");
    row("nothing remains behind a drive", L"C:a/..", L"C:.");
    row("nothing remains behind a drive, with a separator", L"C:./", L"C:./");
    row("two letters and a colon are a name", L"ab:/../c", L"c");
    row("a digit and a colon are a name", L"1:/../c", L"c");
}

void tst_PlatformServices::normalizePath()
{
    QFETCH(std::wstring, path);
    std::wstring result = L"before";
    QVERIFY(platformServices()->fileSystemService()->normalizePath(path.c_str(), result));
    QTEST(result, "normalized");
    QVERIFY(platformServices()->fileSystemService()->normalizePath(result.c_str(), path));
    QVERIFY2(path == result, "a normal path stays as it is");
}

void tst_PlatformServices::normalizePathOfNothing()
{
    std::wstring result = L"before";
    QVERIFY(!platformServices()->fileSystemService()->normalizePath(nullptr, result));
    QVERIFY(!platformServices()->fileSystemService()->normalizePath(L"", result));
    QCOMPARE(result, std::wstring(L"before"));
}

void tst_PlatformServices::normalizePathInPlace()
{
    std::wstring path = L"/a/long/way/../down/to/./the//file.txt";
    QVERIFY(platformServices()->fileSystemService()->normalizePath(path.c_str(), path));
    QCOMPARE(path, std::wstring(L"/a/long/down/to/the/file.txt"));
}

KX_TEST_MAIN(tst_PlatformServices)

#include "tst_platform_services.moc"
