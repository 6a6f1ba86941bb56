// SPDX-License-Identifier: MIT
// CButton and CBitmapButton over buttons, CStatic over a label.

#include "KxClassLayout.h"
#include "KxResultNumber.h"
#include "KxTestCase.h"

#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QToolButton>

#include <afxcmn.h>

#include <KxPlatformServices.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>

/// A caller that goes through a pointer to no object, on purpose.
#define KX_CALLS_THROUGH_SMALL_POINTER __attribute__((no_sanitize("undefined")))

using Promise = void (*)();
using ButtonCall = qint64 (*)(CBitmapButton *);
using StaticCall = qint64 (*)(CStatic *);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(ButtonCall)
Q_DECLARE_METATYPE(StaticCall)

namespace {

KxImageService *images()
{
    return platformServices()->imageService();
}

/// A picture in which no two pixels are alike; the first row is transparent.
QImage picture(int width = 5, int height = 4)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixelColor(x, y, y == 0 ? QColor(0, 0, 0, 0) : QColor(30 * x, 30 * y, 200));
    }
    return image;
}

/// A bitmap handle of the image service, for as long as this lives.
class Bitmap
{
public:
    explicit Bitmap(const QImage &image) : handle(images()->createBitmapFromImage(image)) {}
    ~Bitmap() { images()->deleteHandle(handle); }
    Bitmap(const Bitmap &) = delete;
    Bitmap &operator=(const Bitmap &) = delete;

    const HBITMAP handle;
};

QImage comparable(const QImage &image)
{
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// The picture of a button's icon, in its own size; null without one.
QImage iconPicture(const QAbstractButton &button)
{
    const QList<QSize> sizes = button.icon().availableSizes();
    return sizes.size() == 1 ? comparable(button.icon().pixmap(sizes.first()).toImage()) : QImage();
}

QImage labelPicture(const QLabel &label)
{
    return comparable(label.pixmap(Qt::ReturnByValue).toImage());
}

template<class Control, class Widget>
struct Bound {
    Bound() { control.Attach(KxHwndFromWidget(&widget)); }

    Widget widget;
    Control control;
};

/// Handles that are no bitmap: null, never given out, of a brush, of a deleted bitmap.
QList<HBITMAP> noBitmaps()
{
    static const HBRUSH brush = images()->createSolidBrush(0x123456);
    const HBITMAP deleted = images()->createBitmap(2, 2);
    images()->deleteHandle(deleted);
    return {nullptr, reinterpret_cast<HBITMAP>(static_cast<quintptr>(0x4710)),
            reinterpret_cast<HBITMAP>(brush), deleted};
}

/// Knows one picture, under every handle.
class OnePictureService : public KxImageService
{
public:
    QImage *image(HGDIOBJ) const override { return &m_image; }

private:
    mutable QImage m_image = picture(3, 2);
};

/// Keeps what its Create() was called with.
class RecordingStatic : public CStatic
{
public:
    BOOL Create(const wchar_t *className, const wchar_t *windowName, UINT style, const tagRECT &rect,
                CWnd *parent, UINT id, CCreateContext *context) override
    {
        ++calls;
        classNameSeen = className;
        windowNameSeen = windowName;
        styleSeen = style;
        rectSeen = &rect;
        parentSeen = parent;
        idSeen = id;
        contextSeen = context;
        return CStatic::Create(className, windowName, style, rect, parent, id, context);
    }
    using CStatic::Create;

    int calls = 0;
    std::wstring classNameSeen;
    const wchar_t *windowNameSeen = nullptr;
    UINT styleSeen = 0;
    const tagRECT *rectSeen = nullptr;
    CWnd *parentSeen = nullptr;
    UINT idSeen = 0;
    CCreateContext *contextSeen = reinterpret_cast<CCreateContext *>(static_cast<quintptr>(1));
};

HBITMAP s_bitmap = nullptr; // what the calls below are given

} // namespace

class ControlsButtonsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void check_data();
    void check();
    void buttons_data();
    void buttons() { runPromise(); }
    void withoutButton_data();
    void withoutButton();
    void bitmapButton_data();
    void bitmapButton();
    void statics_data();
    void statics() { runPromise(); }
    void withoutLabel_data();
    void withoutLabel();
    void smallButtonPointer_data();
    void smallButtonPointer();
    void smallStaticPointer_data();
    void smallStaticPointer();
    void plainButton();
    void plainStatic();
    void layout_data();
    void layout() { runPromise(); }

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

// ---- CButton ----------------------------------------------------------------------------------------------

void ControlsButtonsTest::check_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("after");

    for (const char *kind : {"check box", "push button", "tool button", "radio button"}) {
        for (const bool before : {false, true}) {
            for (const int state : {0, 1, 2, 3, -1}) {
                QTest::addRow("SetCheck(%d) of %s %s", state, before ? "a checked" : "an unchecked", kind)
                    << QString::fromLatin1(kind) << state << before << (state != 0);
            }
        }
    }
}

/// GetCheck() is 1 or 0, GetState() 3 or 0; toggled() is heard on a change only, clicked() never.
void ControlsButtonsTest::check()
{
    QFETCH(QString, kind);
    QFETCH(int, state);
    QFETCH(bool, before);
    QFETCH(bool, after);
    std::unique_ptr<QAbstractButton> widget;
    if (kind == QLatin1String("check box"))
        widget = std::make_unique<QCheckBox>();
    else if (kind == QLatin1String("push button"))
        widget = std::make_unique<QPushButton>();
    else if (kind == QLatin1String("tool button"))
        widget = std::make_unique<QToolButton>();
    else
        widget = std::make_unique<QRadioButton>();
    widget->setCheckable(true);
    widget->setAutoExclusive(false);
    widget->setChecked(before);
    QSignalSpy toggled(widget.get(), &QAbstractButton::toggled);
    QSignalSpy clicked(widget.get(), &QAbstractButton::clicked);
    CButton button;
    button.Attach(KxHwndFromWidget(widget.get()));
    QCOMPARE(button.GetCheck(), before ? 1 : 0);
    QCOMPARE(button.GetState(), before ? 3u : 0u);
    button.SetCheck(state);
    QCOMPARE(widget->isChecked(), after);
    QCOMPARE(button.GetCheck(), after ? 1 : 0);
    QCOMPARE(button.GetState(), after ? 3u : 0u);
    QCOMPARE(toggled.count(), before == after ? 0 : 1);
    QCOMPARE(clicked.count(), 0);
}

void ControlsButtonsTest::buttons_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("SetCheck(2) checks a box with three states, not in part") << Promise([] {
        Bound<CButton, QCheckBox> bound;
        bound.widget.setTristate(true);
        bound.control.SetCheck(2);
        QCOMPARE(bound.widget.checkState(), Qt::Checked);
        QCOMPARE(bound.control.GetState(), 3u);
    });
    QTest::newRow("a partly checked box is checked") << Promise([] {
        Bound<CButton, QCheckBox> bound;
        bound.widget.setTristate(true);
        bound.widget.setCheckState(Qt::PartiallyChecked);
        QCOMPARE(bound.control.GetCheck(), 1);
        QCOMPARE(bound.control.GetState(), 3u);
    });
    QTest::newRow("a button that cannot be checked stays so") << Promise([] {
        Bound<CButton, QPushButton> bound;
        bound.control.SetCheck(1);
        QCOMPARE(bound.control.GetCheck(), 0);
        QVERIFY(!bound.widget.isCheckable());
    });
    QTest::newRow("GetState tells neither the focus nor being pressed") << Promise([] {
        Bound<CButton, QPushButton> bound;
        bound.widget.show();
        bound.widget.setDown(true);
        bound.widget.setFocus();
        QCOMPARE(bound.control.GetState(), 0u);
    });
    QTest::newRow("SetCheck of a radio button unchecks its neighbours") << Promise([] {
        QWidget group;
        auto *first = new QRadioButton(&group);
        auto *second = new QRadioButton(&group);
        first->setChecked(true);
        CButton button;
        button.Attach(KxHwndFromWidget(second));
        button.SetCheck(1);
        QVERIFY(second->isChecked());
        QVERIFY(!first->isChecked());
    });
    QTest::newRow("SetBitmap makes the picture the icon, each pixel, and gives null") << Promise([] {
        const Bitmap bitmap(picture());
        Bound<CButton, QPushButton> bound;
        QVERIFY(bound.control.SetBitmap(bitmap.handle) == nullptr);
        QCOMPARE(iconPicture(bound.widget), picture());
    });
    QTest::newRow("SetBitmap on each kind of button") << Promise([] {
        const Bitmap bitmap(picture());
        Bound<CButton, QToolButton> tool;
        Bound<CButton, QCheckBox> box;
        Bound<CButton, QRadioButton> radio;
        tool.control.SetBitmap(bitmap.handle);
        box.control.SetBitmap(bitmap.handle);
        radio.control.SetBitmap(bitmap.handle);
        QCOMPARE(iconPicture(tool.widget), picture());
        QCOMPARE(iconPicture(box.widget), picture());
        QCOMPARE(iconPicture(radio.widget), picture());
    });
    QTest::newRow("SetBitmap again takes the place of the first and gives null too") << Promise([] {
        const Bitmap first(picture());
        const Bitmap second(picture(6, 3));
        Bound<CButton, QPushButton> bound;
        bound.control.SetBitmap(first.handle);
        QVERIFY(bound.control.SetBitmap(second.handle) == nullptr);
        QCOMPARE(iconPicture(bound.widget), picture(6, 3));
    });
    QTest::newRow("the image stays the service's, and the icon outlives it") << Promise([] {
        Bound<CButton, QPushButton> bound;
        {
            const Bitmap bitmap(picture());
            const QImage *image = images()->image(bitmap.handle);
            bound.control.SetBitmap(bitmap.handle);
            QVERIFY(images()->image(bitmap.handle) == image);
            QCOMPARE(*image, picture());
        }
        QCOMPARE(iconPicture(bound.widget), picture());
    });
    QTest::newRow("SetBitmap of an adopted image") << Promise([] {
        QImage image = picture(7, 7);
        const HBITMAP handle = images()->adopt(&image);
        Bound<CButton, QPushButton> bound;
        bound.control.SetBitmap(handle);
        images()->release(&image);
        QCOMPARE(iconPicture(bound.widget), picture(7, 7));
    });
    QTest::newRow("SetBitmap of what is no bitmap leaves the icon and gives null") << Promise([] {
        const Bitmap bitmap(picture());
        Bound<CButton, QPushButton> bound;
        bound.control.SetBitmap(bitmap.handle);
        for (const HBITMAP handle : noBitmaps()) {
            QVERIFY(bound.control.SetBitmap(handle) == nullptr);
            QCOMPARE(iconPicture(bound.widget), picture());
        }
    });
    QTest::newRow("SetBitmap asks the image service that is in place") << Promise([] {
        OnePictureService service;
        platformServices()->setImageService(&service);
        Bound<CButton, QPushButton> bound;
        bound.control.SetBitmap(reinterpret_cast<HBITMAP>(static_cast<quintptr>(0x4710)));
        platformServices()->setImageService(nullptr);
        QCOMPARE(iconPicture(bound.widget), picture(3, 2));
    });
    QTest::newRow("SetIcon sets no icon and gives null") << Promise([] {
        const Bitmap bitmap(picture());
        Bound<CButton, QPushButton> bound;
        QVERIFY(bound.control.SetIcon(reinterpret_cast<HICON>(bitmap.handle)) == nullptr);
        QVERIFY(bound.widget.icon().isNull());
        QVERIFY(bound.control.SetIcon(nullptr) == nullptr);
    });
}

#define KX_CALL(Control, expression) \
    [](Control *control) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { return number(expression); }

namespace {

const struct {
    const char *name;
    ButtonCall call;
    int whenBound; // the result on a checked button
    int otherwise;
} buttonCalls[] = {
    {"GetCheck", KX_CALL(CBitmapButton, control->GetCheck()), 1, 0},
    {"SetCheck", KX_CALL(CBitmapButton, (control->SetCheck(1), 0)), 0, 0},
    {"GetState", KX_CALL(CBitmapButton, control->GetState()), 3, 0},
    {"SetBitmap", KX_CALL(CBitmapButton, control->SetBitmap(s_bitmap)), 0, 0},
    {"SetIcon", KX_CALL(CBitmapButton, control->SetIcon(reinterpret_cast<HICON>(s_bitmap))), 0, 0},
    {"LoadBitmaps(name)", KX_CALL(CBitmapButton, control->LoadBitmaps(L"up")), 0, 0},
    {"LoadBitmaps(names)", KX_CALL(CBitmapButton, control->LoadBitmaps(L"a", L"b", L"c", L"d")), 0, 0},
    {"LoadBitmaps(ID)", KX_CALL(CBitmapButton, control->LoadBitmaps(5u)), 0, 0},
    {"LoadBitmaps(IDs)", KX_CALL(CBitmapButton, control->LoadBitmaps(5u, 6u, 7u, 8u)), 0, 0},
    {"AutoLoad", KX_CALL(CBitmapButton, control->AutoLoad(5u, nullptr)), 1, 1},
    {"AutoLoad with a parent", KX_CALL(CBitmapButton, control->AutoLoad(5u, &CWnd::wndTop)), 1, 1},
};

const struct {
    const char *name;
    StaticCall call;
} staticCalls[] = {
    {"SetBitmap", KX_CALL(CStatic, control->SetBitmap(s_bitmap))},
    {"GetBitmap", KX_CALL(CStatic, control->GetBitmap())},
    {"SetIcon", KX_CALL(CStatic, control->SetIcon(reinterpret_cast<HICON>(s_bitmap)))},
};

} // namespace

#undef KX_CALL

void ControlsButtonsTest::withoutButton_data()
{
    QTest::addColumn<ButtonCall>("call");
    QTest::addColumn<QString>("situation");
    QTest::addColumn<qint64>("expected");
    for (const char *situation : {"unbound", "orphaned", "on a label", "on a group box"}) {
        for (const auto &call : buttonCalls) {
            QTest::addRow("%s is %d %s", call.name, call.otherwise, situation)
                << call.call << QString::fromLatin1(situation) << qint64(call.otherwise);
        }
    }
}

/// Nothing changes, on the widget itself and on a button out of reach.
void ControlsButtonsTest::withoutButton()
{
    QFETCH(ButtonCall, call);
    QFETCH(QString, situation);
    QFETCH(qint64, expected);
    const Bitmap bitmap(picture());
    s_bitmap = bitmap.handle;
    Bound<CBitmapButton, QCheckBox> outOfReach;
    QLabel label(QStringLiteral("text"));
    QGroupBox group;
    group.setCheckable(true);
    group.setChecked(false);
    CBitmapButton owner;
    CBitmapButton control;
    CBitmapButton *used = &control;
    if (situation == QLatin1String("orphaned")) {
        owner.Attach(KxHwndFromWidget(&outOfReach.widget));
        used = &outOfReach.control;
    } else if (situation == QLatin1String("on a label")) {
        control.Attach(KxHwndFromWidget(&label));
    } else if (situation == QLatin1String("on a group box")) {
        control.Attach(KxHwndFromWidget(&group));
    }
    QCOMPARE(call(used), expected);
    QVERIFY(!outOfReach.widget.isChecked());
    QVERIFY(outOfReach.widget.icon().isNull());
    QVERIFY(label.pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(label.text(), QStringLiteral("text"));
    QVERIFY(!group.isChecked());
    QVERIFY(CWnd::wndTop.GetSafeHwnd() == nullptr);
}

void ControlsButtonsTest::bitmapButton_data()
{
    QTest::addColumn<ButtonCall>("call");
    QTest::addColumn<qint64>("expected");
    QTest::addColumn<bool>("setsIcon");
    for (const auto &call : buttonCalls) {
        QTest::addRow("%s is %d on a checked button", call.name, call.whenBound)
            << call.call << qint64(call.whenBound) << (std::strcmp(call.name, "SetBitmap") == 0);
    }
}

/// A CBitmapButton does what a CButton does, and loads nothing.
void ControlsButtonsTest::bitmapButton()
{
    QFETCH(ButtonCall, call);
    QFETCH(qint64, expected);
    QFETCH(bool, setsIcon);
    const Bitmap bitmap(picture());
    s_bitmap = bitmap.handle;
    Bound<CBitmapButton, QCheckBox> bound;
    bound.widget.setChecked(true);
    QCOMPARE(call(&bound.control), expected);
    QVERIFY(bound.widget.isChecked());
    QCOMPARE(iconPicture(bound.widget), setsIcon ? picture() : QImage());
}

// ---- CStatic ----------------------------------------------------------------------------------------------

void ControlsButtonsTest::statics_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("Create calls the virtual Create with STATIC and its own arguments") << Promise([] {
        RecordingStatic control;
        CWnd parent;
        const wchar_t *const text = L"text";
        const tagRECT rect = {1, 2, 3, 4};
        CStatic &asStatic = control;
        QCOMPARE(asStatic.Create(text, 0x50000001u, rect, &parent, 77u), true);
        QCOMPARE(control.calls, 1);
        QVERIFY(control.classNameSeen == L"STATIC");
        QVERIFY(control.windowNameSeen == text);
        QCOMPARE(control.styleSeen, 0x50000001u);
        QVERIFY(control.rectSeen == &rect);
        QVERIFY(control.parentSeen == &parent);
        QCOMPARE(control.idSeen, 77u);
        QVERIFY(control.contextSeen == nullptr);
    });
    QTest::newRow("Create without an identifier has 0xFFFF") << Promise([] {
        RecordingStatic control;
        CStatic &asStatic = control;
        QCOMPARE(asStatic.Create(nullptr, 0u, tagRECT{1, 2, 3, 4}, nullptr), true);
        QCOMPARE(control.idSeen, 0xFFFFu);
        QVERIFY(control.windowNameSeen == nullptr);
    });
    QTest::newRow("Create of an unbound one is TRUE, binds nothing and keeps no parent") << Promise([] {
        CStatic control;
        CWnd parent;
        QCOMPARE(control.Create(L"text", 0u, tagRECT{1, 2, 3, 4}, &parent), true);
        QVERIFY(control.GetSafeHwnd() == nullptr);
        QLabel label;
        control.Attach(KxHwndFromWidget(&label));
        QVERIFY(control.GetParent() == nullptr);
    });
    QTest::newRow("Create of a bound one keeps the parent and leaves text and place") << Promise([] {
        Bound<CStatic, QLabel> bound;
        bound.widget.setText(QStringLiteral("before"));
        const QRect geometry = bound.widget.geometry();
        CWnd parent;
        QCOMPARE(bound.control.Create(L"text", 0u, tagRECT{1, 2, 3, 4}, &parent, 77u), true);
        QVERIFY(bound.control.GetParent() == &parent);
        QCOMPARE(bound.widget.text(), QStringLiteral("before"));
        QCOMPARE(bound.widget.geometry(), geometry);
        QCOMPARE(bound.control.GetDlgCtrlID(), -1);
    });
    QTest::newRow("SetBitmap shows the picture, each pixel, and gives null") << Promise([] {
        const Bitmap bitmap(picture());
        Bound<CStatic, QLabel> bound;
        QVERIFY(bound.control.SetBitmap(bitmap.handle) == nullptr);
        QCOMPARE(labelPicture(bound.widget), picture());
    });
    QTest::newRow("SetBitmap again takes the place of the first and gives null too") << Promise([] {
        const Bitmap first(picture());
        const Bitmap second(picture(6, 3));
        Bound<CStatic, QLabel> bound;
        bound.control.SetBitmap(first.handle);
        QVERIFY(bound.control.SetBitmap(second.handle) == nullptr);
        QCOMPARE(labelPicture(bound.widget), picture(6, 3));
    });
    QTest::newRow("the image stays the service's, and the pixmap outlives it") << Promise([] {
        Bound<CStatic, QLabel> bound;
        {
            const Bitmap bitmap(picture());
            const QImage *image = images()->image(bitmap.handle);
            bound.control.SetBitmap(bitmap.handle);
            QVERIFY(images()->image(bitmap.handle) == image);
        }
        QCOMPARE(labelPicture(bound.widget), picture());
    });
    QTest::newRow("SetBitmap of what is no bitmap leaves the label and gives null") << Promise([] {
        Bound<CStatic, QLabel> text;
        text.widget.setText(QStringLiteral("text"));
        const Bitmap bitmap(picture());
        Bound<CStatic, QLabel> shown;
        shown.control.SetBitmap(bitmap.handle);
        for (const HBITMAP handle : noBitmaps()) {
            QVERIFY(text.control.SetBitmap(handle) == nullptr);
            QCOMPARE(text.widget.text(), QStringLiteral("text"));
            QVERIFY(shown.control.SetBitmap(handle) == nullptr);
            QCOMPARE(labelPicture(shown.widget), picture());
        }
    });
    QTest::newRow("SetBitmap asks the image service that is in place") << Promise([] {
        OnePictureService service;
        platformServices()->setImageService(&service);
        Bound<CStatic, QLabel> bound;
        bound.control.SetBitmap(reinterpret_cast<HBITMAP>(static_cast<quintptr>(0x4710)));
        platformServices()->setImageService(nullptr);
        QCOMPARE(labelPicture(bound.widget), picture(3, 2));
    });
    QTest::newRow("GetBitmap is null also while a bitmap is shown") << Promise([] {
        const Bitmap bitmap(picture());
        Bound<CStatic, QLabel> bound;
        bound.control.SetBitmap(bitmap.handle);
        QVERIFY(bound.control.GetBitmap() == nullptr);
    });
    QTest::newRow("SetIcon shows nothing and gives null") << Promise([] {
        const Bitmap bitmap(picture());
        Bound<CStatic, QLabel> bound;
        QVERIFY(bound.control.SetIcon(reinterpret_cast<HICON>(bitmap.handle)) == nullptr);
        QVERIFY(labelPicture(bound.widget).isNull());
    });
    QTest::newRow("SetWindowText and GetWindowText are the label's text") << Promise([] {
        Bound<CStatic, QLabel> bound;
        bound.control.SetWindowTextW(L"new \U0001F600");
        QCOMPARE(bound.widget.text(), QStringLiteral("new \U0001F600"));
        CString text;
        bound.control.GetWindowTextW(text);
        QVERIFY(text == L"new \U0001F600");
        wchar_t buffer[4];
        QCOMPARE(bound.control.GetWindowTextW(buffer, 4), 3);
        QVERIFY(std::wstring(buffer) == L"new");
        bound.control.SetWindowTextW(nullptr);
        QCOMPARE(bound.widget.text(), QStringLiteral("new \U0001F600"));
    });
    QTest::newRow("SetWindowText and GetWindowText through a CWnd") << Promise([] {
        Bound<CStatic, QLabel> bound;
        CWnd &window = bound.control;
        window.SetWindowTextW(L"new");
        QCOMPARE(bound.widget.text(), QStringLiteral("new"));
        CString text;
        window.GetWindowTextW(text);
        QVERIFY(text == L"new");
    });
    QTest::newRow("SetWindowText and GetWindowText on other widgets are CWnd's") << Promise([] {
        Bound<CStatic, QLineEdit> edit;
        Bound<CStatic, QWidget> other;
        edit.control.SetWindowTextW(L"edit");
        other.control.SetWindowTextW(L"title");
        QCOMPARE(edit.widget.text(), QStringLiteral("edit"));
        QCOMPARE(other.widget.windowTitle(), QStringLiteral("title"));
        CString text;
        other.control.GetWindowTextW(text);
        QVERIFY(text == L"title");
    });
    QTest::newRow("SetWindowText and GetWindowText of an unbound one do nothing") << Promise([] {
        CStatic control;
        control.SetWindowTextW(L"new");
        CString text(L"before");
        control.GetWindowTextW(text);
        QVERIFY(text == L"before");
    });
}

void ControlsButtonsTest::withoutLabel_data()
{
    QTest::addColumn<StaticCall>("call");
    QTest::addColumn<QString>("situation");
    for (const char *situation : {"unbound", "orphaned", "on a button", "on a line edit"}) {
        for (const auto &call : staticCalls)
            QTest::addRow("%s %s", call.name, situation) << call.call << QString::fromLatin1(situation);
    }
}

/// The result is null, and nothing changes.
void ControlsButtonsTest::withoutLabel()
{
    QFETCH(StaticCall, call);
    QFETCH(QString, situation);
    const Bitmap bitmap(picture());
    s_bitmap = bitmap.handle;
    Bound<CStatic, QLabel> outOfReach;
    QPushButton button;
    QLineEdit edit;
    CStatic owner;
    CStatic control;
    CStatic *used = &control;
    if (situation == QLatin1String("orphaned")) {
        owner.Attach(KxHwndFromWidget(&outOfReach.widget));
        used = &outOfReach.control;
    } else if (situation == QLatin1String("on a button")) {
        control.Attach(KxHwndFromWidget(&button));
    } else if (situation == QLatin1String("on a line edit")) {
        control.Attach(KxHwndFromWidget(&edit));
    }
    QCOMPARE(call(used), 0);
    QVERIFY(labelPicture(outOfReach.widget).isNull());
    QVERIFY(button.icon().isNull());
}

// ---- all of them ------------------------------------------------------------------------------------------

void ControlsButtonsTest::smallButtonPointer_data()
{
    QTest::addColumn<ButtonCall>("call");
    QTest::addColumn<quintptr>("pointer");
    for (const quintptr pointer : {quintptr(0), quintptr(7), quintptr(4095)}) {
        for (const auto &call : buttonCalls)
            QTest::addRow("%s through %d", call.name, static_cast<int>(pointer)) << call.call << pointer;
    }
}

/// A member that touched memory would end the program here.
void ControlsButtonsTest::smallButtonPointer()
{
    QFETCH(ButtonCall, call);
    QFETCH(quintptr, pointer);
    const auto entries = CWndHandleTable.size();
    call(reinterpret_cast<CBitmapButton *>(pointer));
    QCOMPARE(CWndHandleTable.size(), entries);
}

void ControlsButtonsTest::smallStaticPointer_data()
{
    QTest::addColumn<StaticCall>("call");
    QTest::addColumn<quintptr>("pointer");
    for (const quintptr pointer : {quintptr(0), quintptr(7), quintptr(4095)}) {
        for (const auto &call : staticCalls)
            QTest::addRow("%s through %d", call.name, static_cast<int>(pointer)) << call.call << pointer;
    }
}

/// A member that touched memory would end the program here.
void ControlsButtonsTest::smallStaticPointer()
{
    QFETCH(StaticCall, call);
    QFETCH(quintptr, pointer);
    const auto entries = CWndHandleTable.size();
    call(reinterpret_cast<CStatic *>(pointer));
    QCOMPARE(CWndHandleTable.size(), entries);
}

namespace {

/// A dialog with a widget of kind `Widget` as its item 7, whose window object is a CWnd and no more.
template<class Widget>
struct DialogWithItem {
    DialogWithItem() : item(new Widget(&widget))
    {
        dialog.Attach(KxHwndFromWidget(&widget));
        dialog.SetDlgItem(7, KxHwndFromWidget(item));
    }

    QWidget widget;
    Widget *const item;
    CWnd dialog;
};

} // namespace

/// What GetDlgItem() gives is a CWnd and no more; the members work on it after the cast.
void ControlsButtonsTest::plainButton()
{
    const Bitmap bitmap(picture());
    DialogWithItem<QCheckBox> dialog;
    CWnd *plain = dialog.dialog.GetDlgItem(7);
    QVERIFY(typeid(*plain) == typeid(CWnd));
    auto *button = static_cast<CButton *>(plain);
    button->SetCheck(2);
    QVERIFY(dialog.item->isChecked());
    QCOMPARE(button->GetCheck(), 1);
    QCOMPARE(button->GetState(), 3u);
    QVERIFY(button->SetBitmap(bitmap.handle) == nullptr);
    QCOMPARE(iconPicture(*dialog.item), picture());
    QVERIFY(button->SetIcon(nullptr) == nullptr);

    auto *bitmapButton = static_cast<CBitmapButton *>(plain);
    QCOMPARE(bitmapButton->GetCheck(), 1);
    QCOMPARE(bitmapButton->LoadBitmaps(L"up"), false);
    QCOMPARE(bitmapButton->LoadBitmaps(5u), false);
    QCOMPARE(bitmapButton->AutoLoad(7u, &dialog.dialog), true);
    QVERIFY(dialog.dialog.GetDlgItem(7) == plain);
}

void ControlsButtonsTest::plainStatic()
{
    const Bitmap bitmap(picture());
    DialogWithItem<QLabel> dialog;
    CWnd *plain = dialog.dialog.GetDlgItem(7);
    QVERIFY(typeid(*plain) == typeid(CWnd));
    auto *control = static_cast<CStatic *>(plain);
    QVERIFY(control->SetBitmap(bitmap.handle) == nullptr);
    QCOMPARE(labelPicture(*dialog.item), picture());
    QVERIFY(control->GetBitmap() == nullptr);
    QVERIFY(control->SetIcon(nullptr) == nullptr);
    // These two are CWnd's own here, at the slots that a CStatic overrides.
    control->SetWindowTextW(L"new");
    QCOMPARE(dialog.item->text(), QStringLiteral("new"));
    CString text;
    control->GetWindowTextW(text);
    QVERIFY(text == L"new");
}

void ControlsButtonsTest::layout_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the classes have no fields of their own") << Promise([] {
        QCOMPARE(sizeof(CButton), sizeof(CWnd));
        QCOMPARE(sizeof(CBitmapButton), sizeof(CWnd));
        QCOMPARE(sizeof(CStatic), sizeof(CWnd));
        QVERIFY((std::is_base_of_v<CButton, CBitmapButton>));
    });
    QTest::newRow("CButton and CBitmapButton have CWnd's 20 slots and operations") << Promise([] {
        const CButton button;
        const CBitmapButton bitmapButton;
        QCOMPARE(slotCount<CButton>(), 20);
        QCOMPARE(slotCount<CBitmapButton>(), 20);
        QCOMPARE(overridden(button), QList<int>());
        QCOMPARE(overridden(bitmapButton), QList<int>());
    });
    QTest::newRow("CStatic has its Create in slot 20, the last") << Promise([] {
        using Create = BOOL (CStatic::*)(const wchar_t *, UINT, const tagRECT &, CWnd *, UINT);
        QCOMPARE(slotOf(static_cast<Create>(&CStatic::Create)), 20);
        QCOMPARE(slotCount<CStatic>(), 21);
    });
    QTest::newRow("CStatic overrides the text operations in slots 11 and 12") << Promise([] {
        const CStatic control;
        QCOMPARE(overridden(control), (QList<int>{11, 12}));
    });
}

KX_TEST_MAIN(ControlsButtonsTest)
#include "tst_controls_buttons.moc"
