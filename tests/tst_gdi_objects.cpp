// SPDX-License-Identifier: MIT
// GDI objects and the handles in them: bitmaps, brushes, fonts, and what only exists as an argument.

#include "KxClassLayout.h"
#include "KxPlatformServices.h"
#include "KxTestCase.h"
#include "KxWinResource.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <afxwin.h>

#include <cstring>
#include <type_traits>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

namespace {

constexpr auto bitmapFormat = QImage::Format_ARGB32_Premultiplied;

/// Two addresses that no image service gave out.
int something = 0;
int somethingElse = 0;

KxImageService *images()
{
    return platformServices()->imageService();
}

QImage plain(int width, int height, QRgb pixel)
{
    QImage image(width, height, bitmapFormat);
    image.fill(pixel);
    return image;
}

/// The image behind a handle; the null image when there is none.
QImage imageOf(HGDIOBJ handle)
{
    const QImage *image = images()->image(handle);
    return image ? *image : QImage();
}

/// Deletes a handle of the image service when it goes.
struct Deleter {
    explicit Deleter(HGDIOBJ owned) : handle(owned) {}
    Deleter(const Deleter &) = delete;
    Deleter &operator=(const Deleter &) = delete;
    ~Deleter() { images()->deleteHandle(handle); }

    HGDIOBJ handle;
};

/// A picture with an upper left corner of its own, registered under the number 7.
struct RegisteredBitmap {
    RegisteredBitmap() : picture(plain(5, 3, 0xFF00FF00))
    {
        picture.setPixel(0, 0, 0xFFFF0000);
        KxRegisterBitmap(nullptr, 7, picture);
    }
    RegisteredBitmap(const RegisteredBitmap &) = delete;
    RegisteredBitmap &operator=(const RegisteredBitmap &) = delete;
    ~RegisteredBitmap() { KxUnregisterBitmaps(nullptr); }

    QImage picture;
};

/// A host's service, in place while it lives: writes down what it is asked and answers what it is told to.
class WatchedImages : public KxImageService
{
public:
    WatchedImages() { platformServices()->setImageService(this); }
    ~WatchedImages() override { platformServices()->setImageService(nullptr); }

    HBITMAP createBitmap(int width, int height) override
    {
        sizes.append(QSize(width, height));
        return KxHandleFromValue<HBITMAP>(answer);
    }
    HBITMAP createBitmapFromImage(const QImage &image) override
    {
        pictures.append(image);
        return KxHandleFromValue<HBITMAP>(answer);
    }
    HBRUSH createSolidBrush(COLORREF color) override
    {
        colors.append(color);
        return KxHandleFromValue<HBRUSH>(answer);
    }
    bool deleteHandle(HGDIOBJ handle) override
    {
        deleted.append(handle);
        return deletes;
    }

    int requests() const { return sizes.size() + pictures.size() + colors.size() + deleted.size(); }

    int answer = 0x4710; ///< The value of the handles that are given out.
    bool deletes = true;
    QList<QSize> sizes;
    QList<QImage> pictures;
    QList<COLORREF> colors;
    QList<HGDIOBJ> deleted;
};

HGDIOBJ handleOf(int value)
{
    return KxHandleFromValue<HGDIOBJ>(value);
}

// The rows of CGdiObject, which hold for every class that derives from it.

template<class Object>
void startsEmpty()
{
    const Object object;
    QVERIFY(!object.m_hObject);
    QVERIFY(!object.GetSafeHandle());
    QVERIFY(!static_cast<const CGdiObject &>(object).operator void *());
}

template<class Object>
void attaches()
{
    Object object;
    CGdiObject &base = object;
    QVERIFY(base.Attach(&something));
    QVERIFY(object.m_hObject == &something);
    QVERIFY(object.GetSafeHandle() == &something);
    QVERIFY(base.operator void *() == &something);
}

template<class Object>
void attachesAnother()
{
    Object object;
    CGdiObject &base = object;
    base.Attach(&something);
    QVERIFY(base.Attach(&somethingElse));
    QVERIFY(object.m_hObject == &somethingElse);
    QVERIFY(base.Attach(nullptr));
    QVERIFY(!object.m_hObject);
}

template<class Object>
void detaches()
{
    Object object;
    CGdiObject &base = object;
    base.Attach(&something);
    QVERIFY(base.Detach() == &something);
    QVERIFY(!object.m_hObject);
    QVERIFY(!base.Detach());
    QVERIFY(!object.m_hObject);
}

template<class Object>
void deletesNothing()
{
    const Deleter bitmap(images()->createBitmap(3, 2));
    const Deleter brush(images()->createSolidBrush(RGB(1, 2, 3)));
    Object object;
    CGdiObject &base = object;
    QVERIFY(base.DeleteObject());
    QVERIFY(!object.m_hObject);
    base.Attach(bitmap.handle);
    QVERIFY(base.DeleteObject());
    QVERIFY(object.m_hObject == bitmap.handle);
    QCOMPARE(imageOf(bitmap.handle), plain(3, 2, 0xFF000000));
    base.Attach(brush.handle);
    QVERIFY(base.DeleteObject());
    QCOMPARE(images()->brushColor(brush.handle), COLORREF(RGB(1, 2, 3)));
}

template<class Object>
void tellsNothing()
{
    Object object;
    const Object &asked = object;
    char record[64];
    char before[64];
    std::memset(record, 0xA5, sizeof record);
    std::memset(before, 0xA5, sizeof before);
    QCOMPARE(asked.GetObjectW(sizeof record, record), 0);
    const Deleter bitmap(images()->createBitmap(3, 2));
    static_cast<CGdiObject &>(object).Attach(bitmap.handle);
    QCOMPARE(asked.GetObjectW(sizeof record, record), 0);
    QCOMPARE(asked.GetObjectW(0, nullptr), 0);
    QCOMPARE(std::memcmp(record, before, sizeof record), 0);
}

template<class Object>
void leavesItsHandle()
{
    const Deleter bitmap(images()->createBitmap(3, 2));
    const Deleter brush(images()->createSolidBrush(RGB(1, 2, 3)));
    for (const HGDIOBJ handle : {bitmap.handle, brush.handle}) {
        Object object;
        CGdiObject &base = object;
        base.Attach(handle);
    }
    QCOMPARE(imageOf(bitmap.handle), plain(3, 2, 0xFF000000));
    QCOMPARE(images()->brushColor(brush.handle), COLORREF(RGB(1, 2, 3)));
}

template<class Object>
void layoutOf()
{
    const Object object;
    QCOMPARE(int(sizeof object), 8);
    QCOMPARE(offsetOf(object, object.m_hObject), 0);
    QVERIFY(!std::is_polymorphic_v<Object>);
    QVERIFY((std::is_convertible_v<Object *, CGdiObject *>));
    QVERIFY((std::is_convertible_v<Object *, CObject *>));
}

template<class Object>
void addObjectRows(const char *name)
{
    QTest::addRow("%s: the handle is null at first", name) << Promise(startsEmpty<Object>);
    QTest::addRow("%s: Attach gives TRUE, both ways to ask the handle", name) << Promise(attaches<Object>);
    QTest::addRow("%s: Attach takes another handle, and null", name) << Promise(attachesAnother<Object>);
    QTest::addRow("%s: Detach gives the handle and has none then", name) << Promise(detaches<Object>);
    QTest::addRow("%s: CGdiObject::DeleteObject is TRUE and deletes nothing", name)
        << Promise(deletesNothing<Object>);
    QTest::addRow("%s: GetObjectW, of a const object, is 0 and writes nothing", name)
        << Promise(tellsNothing<Object>);
    QTest::addRow("%s: the handle outlives the object", name) << Promise(leavesItsHandle<Object>);
    QTest::addRow("%s: one field, no table", name) << Promise(layoutOf<Object>);
}

} // namespace

class GdiObjectsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void object_data();
    void object() { run(); }
    void fromHandle_data();
    void fromHandle() { run(); }
    void bitmap_data();
    void bitmap() { run(); }
    void createCompatibleBitmap_data();
    void createCompatibleBitmap();
    void createCompatible_data();
    void createCompatible() { run(); }
    void loadBitmap_data();
    void loadBitmap() { run(); }
    void deleteBitmap_data();
    void deleteBitmap() { run(); }
    void brush_data();
    void brush();
    void brushes_data();
    void brushes() { run(); }
    void font_data();
    void font() { run(); }
    void service_data();
    void service() { run(); }

private:
    static void run()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

void GdiObjectsTest::object_data()
{
    QTest::addColumn<Promise>("promise");
    addObjectRows<CGdiObject>("CGdiObject");
    addObjectRows<CBitmap>("CBitmap");
    addObjectRows<CBrush>("CBrush");
    addObjectRows<CFont>("CFont");
    addObjectRows<CPen>("CPen");
    addObjectRows<CRgn>("CRgn");
    addObjectRows<CPalette>("CPalette");
}

void GdiObjectsTest::fromHandle_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("CGdiObject: null for null") << Promise([] { QVERIFY(!CGdiObject::FromHandle(nullptr)); });
    QTest::newRow("CGdiObject: null for the handle of an object that lives") << Promise([] {
        CGdiObject object;
        object.Attach(&something);
        QVERIFY(!CGdiObject::FromHandle(&something));
    });
    QTest::newRow("CBitmap: null for a bitmap that lives") << Promise([] {
        const Deleter handle(images()->createBitmap(3, 2));
        CBitmap bitmap;
        bitmap.Attach(static_cast<HBITMAP>(handle.handle));
        QVERIFY(!CBitmap::FromHandle(handle.handle));
    });
    QTest::newRow("CFont: null for null") << Promise([] { QVERIFY(!CFont::FromHandle(nullptr)); });
    QTest::newRow("CFont: null for the handle of a font that lives") << Promise([] {
        CFont font;
        font.Attach(handleOf(0x4710));
        QVERIFY(!CFont::FromHandle(KxHandleFromValue<HFONT>(0x4710)));
    });
}

// ---- bitmaps --------------------------------------------------------------------------------------------

void GdiObjectsTest::bitmap_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("Attach: TRUE, the handle from all who are asked") << Promise([] {
        const auto handle = KxHandleFromValue<HBITMAP>(0x4710);
        CBitmap bitmap;
        QVERIFY(bitmap.Attach(handle));
        QVERIFY(bitmap.m_hObject == handle);
        QVERIFY(bitmap.GetSafeHandle() == handle);
        QVERIFY(static_cast<HBITMAP>(bitmap) == handle);
    });
    QTest::newRow("Attach: another handle, and null") << Promise([] {
        CBitmap bitmap;
        bitmap.Attach(KxHandleFromValue<HBITMAP>(0x4710));
        QVERIFY(bitmap.Attach(KxHandleFromValue<HBITMAP>(0x4720)));
        QVERIFY(static_cast<HBITMAP>(bitmap) == KxHandleFromValue<HBITMAP>(0x4720));
        QVERIFY(bitmap.Attach(nullptr));
        QVERIFY(!static_cast<HBITMAP>(bitmap));
    });
    QTest::newRow("Attach: the earlier bitmap is not deleted") << Promise([] {
        const Deleter first(images()->createBitmap(3, 2));
        const Deleter second(images()->createBitmap(4, 2));
        CBitmap bitmap;
        bitmap.Attach(static_cast<HBITMAP>(first.handle));
        bitmap.Attach(static_cast<HBITMAP>(second.handle));
        QCOMPARE(imageOf(first.handle), plain(3, 2, 0xFF000000));
    });
    QTest::newRow("Detach: the handle, and none is left") << Promise([] {
        const auto handle = KxHandleFromValue<HBITMAP>(0x4710);
        CBitmap bitmap;
        bitmap.Attach(handle);
        const HBITMAP given = bitmap.Detach();
        QVERIFY(given == handle);
        QVERIFY(!bitmap.m_hObject);
    });
    QTest::newRow("Detach: null of an empty one") << Promise([] {
        CBitmap bitmap;
        QVERIFY(!bitmap.Detach());
    });
    QTest::newRow("Detach: the bitmap is not deleted") << Promise([] {
        const Deleter handle(images()->createBitmap(3, 2));
        CBitmap bitmap;
        bitmap.Attach(static_cast<HBITMAP>(handle.handle));
        bitmap.Detach();
        QCOMPARE(imageOf(handle.handle), plain(3, 2, 0xFF000000));
    });
    QTest::newRow("operator HBITMAP: null of an empty one") << Promise([] {
        const CBitmap bitmap;
        QVERIFY(!static_cast<HBITMAP>(bitmap));
    });
    QTest::newRow("Add: 0, both bitmaps stay as they are") << Promise([] {
        const Deleter first(images()->createBitmap(3, 2));
        const Deleter second(images()->createBitmap(4, 2));
        CBitmap bitmap;
        CBitmap other;
        bitmap.Attach(static_cast<HBITMAP>(first.handle));
        other.Attach(static_cast<HBITMAP>(second.handle));
        images()->image(second.handle)->fill(0xFFFFFFFF);
        QCOMPARE(bitmap.Add(&other, 0), 0);
        QCOMPARE(bitmap.Add(nullptr, 0xFFFFFFFF), 0);
        QVERIFY(bitmap.m_hObject == first.handle);
        QVERIFY(other.m_hObject == second.handle);
        QCOMPARE(imageOf(first.handle), plain(3, 2, 0xFF000000));
        QCOMPARE(imageOf(second.handle), plain(4, 2, 0xFFFFFFFF));
    });
}

void GdiObjectsTest::createCompatibleBitmap_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("made");

    QTest::newRow("1 x 1") << QSize(1, 1) << true;
    QTest::newRow("30 x 20") << QSize(30, 20) << true;
    QTest::newRow("1 x 500") << QSize(1, 500) << true;
    QTest::newRow("no width") << QSize(0, 5) << false;
    QTest::newRow("no height") << QSize(5, 0) << false;
    QTest::newRow("width below 0") << QSize(-3, 5) << false;
    QTest::newRow("height below 0") << QSize(5, -3) << false;
    QTest::newRow("both below 0") << QSize(-3, -5) << false;
}

/// TRUE is a handle of an opaque black image, FALSE is none, whatever handle there was before.
void GdiObjectsTest::createCompatibleBitmap()
{
    QFETCH(QSize, size);
    QFETCH(bool, made);
    for (HGDIOBJ before : {HGDIOBJ(nullptr), HGDIOBJ(&something)}) {
        CBitmap bitmap;
        bitmap.m_hObject = before;
        QCOMPARE(bitmap.CreateCompatibleBitmap(nullptr, size.width(), size.height()) != FALSE, made);
        const Deleter deleter(bitmap.m_hObject);
        QCOMPARE(bitmap.m_hObject != nullptr, made);
        QCOMPARE(imageOf(bitmap), made ? plain(size.width(), size.height(), 0xFF000000) : QImage());
    }
}

void GdiObjectsTest::createCompatible_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a new bitmap at every call; the earlier one is forgotten, not deleted") << Promise([] {
        CBitmap bitmap;
        QVERIFY(bitmap.CreateCompatibleBitmap(nullptr, 3, 2));
        const Deleter first(bitmap.m_hObject);
        QVERIFY(bitmap.CreateCompatibleBitmap(nullptr, 3, 2));
        const Deleter second(bitmap.m_hObject);
        QVERIFY(first.handle != second.handle);
        QCOMPARE(imageOf(first.handle), plain(3, 2, 0xFF000000));
    });
    QTest::newRow("a context without a device is not looked at") << Promise([] {
        CDC dc;
        CBitmap bitmap;
        QVERIFY(bitmap.CreateCompatibleBitmap(&dc, 3, 2));
        const Deleter deleter(bitmap.m_hObject);
        QCOMPARE(imageOf(bitmap), plain(3, 2, 0xFF000000));
        QVERIFY(!dc.m_hDC);
    });
    QTest::newRow("a context of another format and content is not looked at") << Promise([] {
        QImage other(50, 40, QImage::Format_Grayscale8);
        other.fill(0x80);
        CDC dc;
        dc.m_hDC = new KxQtPaintDeviceWrapper(&other);
        CBitmap bitmap;
        QVERIFY(bitmap.CreateCompatibleBitmap(&dc, 3, 2));
        const Deleter deleter(bitmap.m_hObject);
        QCOMPARE(imageOf(bitmap), plain(3, 2, 0xFF000000));
    });
    QTest::newRow("a context may draw on it") << Promise([] {
        CBitmap bitmap;
        QVERIFY(bitmap.CreateCompatibleBitmap(nullptr, 3, 2));
        const Deleter deleter(bitmap.m_hObject);
        CBrush white(RGB(255, 255, 255));
        const Deleter brushDeleter(white.m_hObject);
        CDC dc;
        dc.SelectObject(&bitmap);
        const tagRECT all = {0, 0, 3, 2};
        dc.FillRect(&all, &white);
        QCOMPARE(imageOf(bitmap), plain(3, 2, 0xFFFFFFFF));
    });
}

void GdiObjectsTest::loadBitmap_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a registered number: TRUE, a bitmap with the picture in its own size") << Promise([] {
        const RegisteredBitmap resource;
        CBitmap bitmap;
        QVERIFY(bitmap.LoadBitmapW(7));
        const Deleter deleter(bitmap.m_hObject);
        QCOMPARE(imageOf(bitmap), resource.picture);
    });
    QTest::newRow("an unknown number: TRUE, and no handle") << Promise([] {
        const RegisteredBitmap resource;
        CBitmap bitmap;
        QVERIFY(bitmap.LoadBitmapW(8));
        QVERIFY(!bitmap.m_hObject);
    });
    QTest::newRow("number 0: TRUE, and no handle") << Promise([] {
        CBitmap bitmap;
        QVERIFY(bitmap.LoadBitmapW(0));
        QVERIFY(!bitmap.m_hObject);
    });
    QTest::newRow("an unknown number after a bitmap: the handle is null then, the bitmap is not deleted")
        << Promise([] {
               const RegisteredBitmap resource;
               CBitmap bitmap;
               bitmap.LoadBitmapW(7);
               const Deleter first(bitmap.m_hObject);
               QVERIFY(bitmap.LoadBitmapW(8));
               QVERIFY(!bitmap.m_hObject);
               QCOMPARE(imageOf(first.handle), resource.picture);
           });
    QTest::newRow("the number has 16 bits: 0x10007 is 7") << Promise([] {
        const RegisteredBitmap resource;
        CBitmap bitmap;
        QVERIFY(bitmap.LoadBitmapW(0x10007));
        const Deleter deleter(bitmap.m_hObject);
        QCOMPARE(imageOf(bitmap), resource.picture);
    });
    QTest::newRow("the largest number") << Promise([] {
        const RegisteredBitmap resource;
        QVERIFY(KxRegisterBitmap(nullptr, 0xFFFF, resource.picture));
        CBitmap bitmap;
        QVERIFY(bitmap.LoadBitmapW(0xFFFF));
        const Deleter deleter(bitmap.m_hObject);
        QCOMPARE(imageOf(bitmap), resource.picture);
    });
    QTest::newRow("twice: two bitmaps, the first is forgotten and not deleted") << Promise([] {
        const RegisteredBitmap resource;
        CBitmap bitmap;
        bitmap.LoadBitmapW(7);
        const Deleter first(bitmap.m_hObject);
        bitmap.LoadBitmapW(7);
        const Deleter second(bitmap.m_hObject);
        QVERIFY(first.handle != second.handle);
        QCOMPARE(imageOf(first.handle), resource.picture);
    });
    QTest::newRow("what a module registered for itself is not found") << Promise([] {
        const auto module = KxHandleFromValue<HINSTANCE>(0x4711);
        QVERIFY(KxRegisterBitmap(module, 9, plain(2, 2, 0xFFFFFFFF)));
        CBitmap bitmap;
        QVERIFY(bitmap.LoadBitmapW(9));
        QCOMPARE(KxUnregisterBitmaps(module), 1);
        QVERIFY(!bitmap.m_hObject);
    });
    QTest::newRow("drawing on it leaves the registered picture alone") << Promise([] {
        const RegisteredBitmap resource;
        CBitmap bitmap;
        bitmap.LoadBitmapW(7);
        const Deleter first(bitmap.m_hObject);
        images()->image(first.handle)->fill(0xFFFFFFFF);
        bitmap.LoadBitmapW(7);
        const Deleter second(bitmap.m_hObject);
        QCOMPARE(imageOf(second.handle), resource.picture);
    });
}

void GdiObjectsTest::deleteBitmap_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("without a handle: 0") << Promise([] {
        CBitmap bitmap;
        QCOMPARE(bitmap.DeleteObject(), 0);
        QVERIFY(!bitmap.m_hObject);
    });
    QTest::newRow("a bitmap: TRUE, it is gone, the handle is kept") << Promise([] {
        CBitmap bitmap;
        QVERIFY(bitmap.CreateCompatibleBitmap(nullptr, 3, 2));
        const HGDIOBJ handle = bitmap.m_hObject;
        QVERIFY(bitmap.DeleteObject());
        QVERIFY(!images()->image(handle));
        QVERIFY(bitmap.m_hObject == handle);
    });
    QTest::newRow("twice: the second is FALSE") << Promise([] {
        CBitmap bitmap;
        QVERIFY(bitmap.CreateCompatibleBitmap(nullptr, 3, 2));
        QVERIFY(bitmap.DeleteObject());
        QVERIFY(!bitmap.DeleteObject());
        QVERIFY(bitmap.m_hObject);
    });
    QTest::newRow("a handle that the image service does not know: FALSE, kept") << Promise([] {
        CBitmap bitmap;
        bitmap.m_hObject = &something;
        QVERIFY(!bitmap.DeleteObject());
        QVERIFY(bitmap.m_hObject == &something);
    });
    QTest::newRow("a loaded one: TRUE, the resource stays") << Promise([] {
        const RegisteredBitmap resource;
        CBitmap bitmap;
        bitmap.LoadBitmapW(7);
        QVERIFY(bitmap.DeleteObject());
        bitmap.LoadBitmapW(7);
        QCOMPARE(imageOf(bitmap), resource.picture);
        QVERIFY(bitmap.DeleteObject());
    });
    QTest::newRow("an adopted image: TRUE, let go, its owner's still") << Promise([] {
        QImage image = plain(3, 2, 0xFFFFFFFF);
        CBitmap bitmap;
        bitmap.Attach(images()->adopt(&image));
        QVERIFY(bitmap.DeleteObject());
        QVERIFY(!images()->image(bitmap.m_hObject));
        QCOMPARE(image, plain(3, 2, 0xFFFFFFFF));
        images()->release(&image);
    });
    QTest::newRow("after Detach: 0, the bitmap is not deleted") << Promise([] {
        CBitmap bitmap;
        QVERIFY(bitmap.CreateCompatibleBitmap(nullptr, 3, 2));
        const Deleter deleter(bitmap.Detach());
        QCOMPARE(bitmap.DeleteObject(), 0);
        QCOMPARE(imageOf(deleter.handle), plain(3, 2, 0xFF000000));
    });
}

// ---- brushes and fonts ----------------------------------------------------------------------------------

void GdiObjectsTest::brush_data()
{
    QTest::addColumn<COLORREF>("color");
    QTest::addColumn<COLORREF>("kept");

    QTest::newRow("black") << COLORREF(0) << COLORREF(0);
    QTest::newRow("0x00112233") << COLORREF(0x00112233) << COLORREF(0x00112233);
    QTest::newRow("white") << COLORREF(0x00FFFFFF) << COLORREF(0x00FFFFFF);
    QTest::newRow("the top byte is dropped") << COLORREF(0x80112233) << COLORREF(0x00112233);
    QTest::newRow("a top byte of all ones is dropped") << COLORREF(0xFF112233) << COLORREF(0x00112233);
}

void GdiObjectsTest::brush()
{
    QFETCH(COLORREF, color);
    const CBrush brush(color);
    const Deleter deleter(brush.m_hObject);
    QVERIFY(brush.m_hObject);
    QTEST(images()->brushColor(brush.m_hObject), "kept");
}

void GdiObjectsTest::brushes_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("of the colour that is no colour: no handle") << Promise([] {
        const CBrush brush(0xFFFFFFFF);
        QVERIFY(!brush.m_hObject);
    });
    QTest::newRow("two of one colour have two handles") << Promise([] {
        const CBrush first(RGB(1, 2, 3));
        const CBrush second(RGB(1, 2, 3));
        const Deleter firstDeleter(first.m_hObject);
        const Deleter secondDeleter(second.m_hObject);
        QVERIFY(first.m_hObject != second.m_hObject);
    });
    QTest::newRow("the handle outlives the brush that made it") << Promise([] {
        HGDIOBJ handle = nullptr;
        {
            const CBrush brush(RGB(1, 2, 3));
            handle = brush.m_hObject;
        }
        const Deleter deleter(handle);
        QCOMPARE(images()->brushColor(handle), COLORREF(RGB(1, 2, 3)));
    });
    QTest::newRow("DeleteObject: TRUE, the brush is not deleted and the handle is kept") << Promise([] {
        CBrush brush(RGB(1, 2, 3));
        const Deleter deleter(brush.m_hObject);
        QVERIFY(brush.DeleteObject());
        QVERIFY(brush.m_hObject == deleter.handle);
        QCOMPARE(images()->brushColor(deleter.handle), COLORREF(RGB(1, 2, 3)));
    });
    QTest::newRow("a brush is no bitmap") << Promise([] {
        const CBrush brush(RGB(1, 2, 3));
        const Deleter deleter(brush.m_hObject);
        QVERIFY(!images()->paintDevice(brush.m_hObject));
    });
}

void GdiObjectsTest::font_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("CreateFontW: TRUE, no handle") << Promise([] {
        CFont font;
        QVERIFY(font.CreateFontW(-12, 0, 0, 0, 400, FALSE, FALSE, FALSE, 1, 0, 0, 0, 0, L"Sans"));
        QVERIFY(!font.m_hObject);
        QVERIFY(!font.GetSafeHandle());
    });
    QTest::newRow("CreateFontW: TRUE without a face") << Promise([] {
        CFont font;
        QVERIFY(font.CreateFontW(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, nullptr));
        QVERIFY(!font.m_hObject);
    });
    QTest::newRow("CreateFontW: TRUE, an attached handle stays") << Promise([] {
        CFont font;
        font.Attach(&something);
        QVERIFY(font.CreateFontW(20, 5, 900, 900, 700, TRUE, TRUE, TRUE, 0, 3, 2, 1, 49, L"Courier New"));
        QVERIFY(font.m_hObject == &something);
    });
}

// ---- an image service of the host's own -----------------------------------------------------------------

void GdiObjectsTest::service_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("CreateCompatibleBitmap: width and height arrive, the answer is the handle") << Promise([] {
        WatchedImages service;
        CBitmap bitmap;
        QVERIFY(bitmap.CreateCompatibleBitmap(nullptr, 30, 20));
        QCOMPARE(service.sizes, QList<QSize>{QSize(30, 20)});
        QCOMPARE(service.requests(), 1);
        QVERIFY(bitmap.m_hObject == handleOf(0x4710));
    });
    QTest::newRow("CreateCompatibleBitmap: null is FALSE, the earlier handle is gone") << Promise([] {
        WatchedImages service;
        service.answer = 0;
        CBitmap bitmap;
        bitmap.m_hObject = &something;
        QVERIFY(!bitmap.CreateCompatibleBitmap(nullptr, 30, 20));
        QVERIFY(!bitmap.m_hObject);
        QCOMPARE(service.requests(), 1);
    });
    QTest::newRow("CBrush: the colour arrives, the answer is the handle") << Promise([] {
        WatchedImages service;
        const CBrush brush(RGB(1, 2, 3));
        QCOMPARE(service.colors, QList<COLORREF>{0x00030201});
        QCOMPARE(service.requests(), 1);
        QVERIFY(brush.m_hObject == handleOf(0x4710));
    });
    QTest::newRow("CBrush without a colour asks for nothing") << Promise([] {
        WatchedImages service;
        const CBrush brush;
        QCOMPARE(service.requests(), 0);
        QVERIFY(!brush.m_hObject);
    });
    QTest::newRow("LoadBitmapW: the registered picture arrives, the answer is the handle") << Promise([] {
        const RegisteredBitmap resource;
        WatchedImages service;
        CBitmap bitmap;
        QVERIFY(bitmap.LoadBitmapW(7));
        QCOMPARE(service.pictures.size(), 1);
        QCOMPARE(service.pictures.first().convertToFormat(bitmapFormat), resource.picture);
        QVERIFY(bitmap.m_hObject == handleOf(0x4710));
    });
    QTest::newRow("LoadBitmapW: TRUE too when the service makes no bitmap") << Promise([] {
        const RegisteredBitmap resource;
        WatchedImages service;
        service.answer = 0;
        CBitmap bitmap;
        QVERIFY(bitmap.LoadBitmapW(7));
        QVERIFY(!bitmap.m_hObject);
    });
    QTest::newRow("CBitmap::DeleteObject: the handle arrives, TRUE is TRUE") << Promise([] {
        WatchedImages service;
        CBitmap bitmap;
        bitmap.m_hObject = &something;
        QVERIFY(bitmap.DeleteObject());
        QCOMPARE(service.deleted, QList<HGDIOBJ>{&something});
        QVERIFY(bitmap.m_hObject == &something);
    });
    QTest::newRow("CBitmap::DeleteObject: false is FALSE") << Promise([] {
        WatchedImages service;
        service.deletes = false;
        CBitmap bitmap;
        bitmap.m_hObject = &something;
        QVERIFY(!bitmap.DeleteObject());
        QCOMPARE(service.deleted, QList<HGDIOBJ>{&something});
    });
    QTest::newRow("CBitmap::DeleteObject without a handle asks for nothing") << Promise([] {
        WatchedImages service;
        CBitmap bitmap;
        QCOMPARE(bitmap.DeleteObject(), 0);
        QCOMPARE(service.requests(), 0);
    });
    QTest::newRow("nothing else asks it for anything") << Promise([] {
        WatchedImages service;
        {
            CGdiObject object;
            object.Attach(&something);
            object.DeleteObject();
            object.GetObjectW(0, nullptr);
            CGdiObject::FromHandle(&something);
            object.Detach();
            object.Attach(&something);
            CBitmap bitmap;
            bitmap.Attach(KxHandleFromValue<HBITMAP>(0x4710));
            bitmap.Attach(KxHandleFromValue<HBITMAP>(0x4720));
            bitmap.Add(&bitmap, 0);
            bitmap.Detach();
            bitmap.Attach(KxHandleFromValue<HBITMAP>(0x4720));
            CBrush brush;
            brush.Attach(&something);
            brush.DeleteObject();
            CFont font;
            font.CreateFontW(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, nullptr);
            font.DeleteObject();
        }
        QCOMPARE(service.requests(), 0);
    });
    QTest::newRow("the service that is in place at the call is asked") << Promise([] {
        CBitmap bitmap;
        QVERIFY(bitmap.CreateCompatibleBitmap(nullptr, 3, 2));
        const Deleter deleter(bitmap.m_hObject);
        {
            WatchedImages service;
            QVERIFY(bitmap.DeleteObject());
            QCOMPARE(service.deleted, QList<HGDIOBJ>{deleter.handle});
        }
        QCOMPARE(imageOf(deleter.handle), plain(3, 2, 0xFF000000));
    });
}

KX_TEST_MAIN(GdiObjectsTest)
#include "tst_gdi_objects.moc"
