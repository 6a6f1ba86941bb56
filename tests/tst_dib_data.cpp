// SPDX-License-Identifier: MIT
// CDibData: what makeBitmap makes, its handles, colours and pixels, drawing into it.
#include "KxClassLayout.h"
#include "KxDibModel.h"
#include "KxMemoryLimit.h"
#include "KxTestCase.h"

#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QPushButton>

#include <afxcmn.h>

#include <KxAfxGDI.h>
#include <KxPlatformServices.h>

#include <climits>
#include <type_traits>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

namespace {

constexpr DWORD invalid = 0xFFFFFFFF;

KxImageService *images()
{
    return platformServices()->imageService();
}

/// Counts what is adopted and released.
class CountingService : public KxImageService
{
public:
    HBITMAP adopt(QImage *image) override
    {
        adopted.append(image);
        return KxImageService::adopt(image);
    }
    bool release(QImage *image) override
    {
        released.append(image);
        return KxImageService::release(image);
    }

    QList<QImage *> adopted;
    QList<QImage *> released;
};

/// Nothing can be read from it or searched.
void expectEmpty(const CDibData &dib)
{
    for (const int x : {-1, 0, 1, INT_MAX, INT_MIN}) {
        for (const int y : {-1, 0, 1, INT_MAX, INT_MIN}) {
            QCOMPARE(dib.GetPixelValue(x, y), invalid);
            QCOMPARE(dib.GetPixel(x, y), invalid);
        }
    }
    QCOMPARE(dib.SearchLeft(0, 0, 0, 0), -1);
    QCOMPARE(dib.SearchRight(0, 0, 0, 0), 1);
    QCOMPARE(dib.ScanLeft(0, 0, 0, 0), -1);
    QCOMPARE(dib.ScanRight(0, 0, 0, 0), 1);
}

/// The picture of a button's icon, in its own size.
QImage iconPicture(const QAbstractButton &button)
{
    const QList<QSize> sizes = button.icon().availableSizes();
    if (sizes.isEmpty())
        return {};
    return button.icon().pixmap(sizes.first()).toImage().convertToFormat(QImage::Format_RGB32);
}

void promises(const char *name, Promise promise)
{
    QTest::newRow(name) << promise;
}

} // namespace

class DibDataTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void constants_data();
    void constants() { check(); }
    void emptyObject_data();
    void emptyObject() { check(); }
    void making_data();
    void making() { check(); }
    void oddSizes_data();
    void oddSizes();
    void handles_data();
    void handles() { check(); }
    void conversions_data();
    void conversions();
    void pixels_data();
    void pixels() { check(); }
    void writesOutside_data();
    void writesOutside();
    void drawing_data();
    void drawing() { check(); }
    void floodFill_data();
    void floodFill();

private:
    static void check();
};

void DibDataTest::initTestCase()
{
    QCOMPARE(sizeof(BITMAPINFOHEADER), std::size_t(40));
}

void DibDataTest::check()
{
    QFETCH(Promise, promise);
    promise();
}

void DibDataTest::constants_data()
{
    QTest::addColumn<Promise>("promise");
    promises("lgs_Mask8 has the bit of each of 8 pixels, the leftmost the highest", [] {
        const unsigned char expected[] = {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01};
        QCOMPARE(sizeof lgs_Mask8, std::size_t(8));
        QVERIFY(std::equal(std::begin(expected), std::end(expected), std::begin(lgs_Mask8)));
    });
    promises("lgs_Mask4 has the two bits of each of 4 pixels", [] {
        const unsigned char expected[] = {0xC0, 0x30, 0x0C, 0x03};
        QCOMPARE(sizeof lgs_Mask4, std::size_t(4));
        QVERIFY(std::equal(std::begin(expected), std::end(expected), std::begin(lgs_Mask4)));
    });
    promises("lgs_Mask2 has the four bits of each of 2 pixels", [] {
        const unsigned char expected[] = {0xF0, 0x0F};
        QCOMPARE(sizeof lgs_Mask2, std::size_t(2));
        QVERIFY(std::equal(std::begin(expected), std::end(expected), std::begin(lgs_Mask2)));
    });
    promises("the masks of a table share no bit and make 0xFF together", [] {
        int sums[3] = {};
        for (const unsigned char mask : lgs_Mask8)
            sums[0] += mask;
        for (const unsigned char mask : lgs_Mask4)
            sums[1] += mask;
        for (const unsigned char mask : lgs_Mask2)
            sums[2] += mask;
        for (const int sum : sums)
            QCOMPARE(sum, 0xFF);
    });
    promises("RGB_MASK is 0x00FFFFFF in 32 bits", [] {
        QCOMPARE(DWORD(RGB_MASK), 0x00FFFFFFu);
        QCOMPARE(sizeof(RGB_MASK), std::size_t(4));
    });
    promises("the fields stand in their order from 0 on, without gaps; nothing follows", [] {
        const KxOpenDib dib;
        QCOMPARE(offsetOf(dib, dib.m_pImage), 0);
        QCOMPARE(offsetOf(dib, dib.m_pDC), 8);
        QCOMPARE(offsetOf(dib, dib.m_pHeader), 16);
        QCOMPARE(offsetOf(dib, dib.m_pBits), 24);
        QCOMPARE(offsetOf(dib, dib.m_pRows), 32);
        QCOMPARE(offsetOf(dib, dib.m_nBitCount), 40);
        QCOMPARE(sizeof dib.m_nBitCount, std::size_t(2));
        QCOMPARE(sizeof(CDibData), std::size_t(48));
    });
    promises("it is a CObject and has no table", [] {
        QVERIFY((std::is_convertible_v<CDibData *, CObject *>));
        QVERIFY(!std::is_polymorphic_v<CDibData>);
    });
}

void DibDataTest::emptyObject_data()
{
    QTest::addColumn<Promise>("promise");
    promises("the constructor sets the pointers to null", [] {
        const KxOpenDib dib;
        QVERIFY(!dib.m_pImage && !dib.m_pDC && !dib.m_pHeader && !dib.m_pBits && !dib.m_pRows);
    });
    promises("a new object has no header, no pixel, and nothing to search or fill", [] {
        CDibData dib;
        QVERIFY(!dib.GetHeaderPtr());
        QCOMPARE(dib.GetWidth(), 0);
        QCOMPARE(dib.GetHeight(), 0);
        expectEmpty(dib);
        QCOMPARE(dib.DrawLineH(0, 0, 0, 0), false);
    });
    promises("a pixel set in a new object is nowhere, and the answer is TRUE", [] {
        CDibData dib;
        for (const int at : {-1, 0, INT_MAX}) {
            QCOMPARE(dib.SetPixel(at, at, 0x123456), true);
            QCOMPARE(dib.SetPixelValue(at, at, 0x123456), true);
        }
        expectEmpty(dib);
        QVERIFY(!dib.GetHeaderPtr());
    });
    promises("a pixel set where there are rows but no image is not written, and the answer is TRUE", [] {
        unsigned char row[2 * 4] = {1, 2, 3, 4, 5, 6, 7, 8};
        const QByteArray before(reinterpret_cast<const char *>(row), sizeof row);
        KxForeignDib dib(32, 2, row);
        QCOMPARE(dib.SetPixel(1, 0, 0x123456), true);
        QCOMPARE(dib.SetPixelValue(0, 0, 0x123456), true);
        QCOMPARE(dib.SetPixelValue(2, 0, 0x123456), true);
        QCOMPARE(QByteArray(reinterpret_cast<const char *>(row), sizeof row), before);
        QCOMPARE(dib.GetPixelValue(1, 0), 0x070605u);
    });
    promises("it converts colours all the same", [] {
        const CDibData dib;
        QCOMPARE(dib.RGBtoValue(0x00112233), 0x00332211u);
        QCOMPARE(dib.ValueToRGB(0x00332211), 0x00112233u);
    });
    promises("a header without rows is no bitmap", [] {
        KxOpenDib dib;
        dib.m_pHeader = static_cast<BITMAPINFOHEADER *>(std::calloc(1, sizeof(BITMAPINFOHEADER)));
        dib.m_pHeader->biWidth = 4;
        dib.m_pHeader->biHeight = 3;
        dib.m_nBitCount = 32;
        QCOMPARE(dib.GetWidth(), 4);
        QCOMPARE(dib.GetHeight(), 3);
        expectEmpty(dib);
        QCOMPARE(dib.DrawLineH(0, 3, 0, 0), false);
    });
    promises("the bits of a derived class are freed with it", [] {
        KxOpenDib dib;
        dib.m_pHeader = static_cast<BITMAPINFOHEADER *>(std::calloc(1, sizeof(BITMAPINFOHEADER)));
        dib.m_pHeader->biWidth = 2;
        dib.m_pHeader->biHeight = 1;
        dib.m_pBits = static_cast<unsigned char *>(std::calloc(1, 2));
        dib.m_pBits[1] = 0x17;
        dib.m_pRows = new unsigned char *[1]{dib.m_pBits};
        dib.m_nBitCount = 8;
        QCOMPARE(dib.GetPixelValue(0, 0), 0u);
        QCOMPARE(dib.GetPixelValue(1, 0), 0x17u);
    });
}

void DibDataTest::making_data()
{
    QTest::addColumn<Promise>("promise");
    promises("4 by 3: every pixel reads as black", [] {
        const KxMadeDib dib(4, 3);
        for (int y = 0; y < 3; ++y) {
            for (int x = 0; x < 4; ++x) {
                QCOMPARE(dib.GetPixel(x, y), 0u);
                QCOMPARE(dib.GetPixelValue(x, y), 0u);
            }
        }
        QCOMPARE(dib.GetWidth(), 4);
        QCOMPARE(dib.GetHeight(), 3);
        QCOMPARE(dib.GetPixelValue(4, 0), invalid);
    });
    promises("every pixel is opaque in memory: 0xFF000000", [] {
        const KxMadeDib dib(7, 5);
        for (int y = 0; y < 5; ++y) {
            for (int x = 0; x < 7; ++x) {
                QCOMPARE(dib.memory(x, y), 0xFF000000u);
                QCOMPARE(dib.m_pImage->pixel(x, y), 0xFF000000u);
            }
        }
    });
    promises("the header: 40 bytes, the sides, 1 plane, 32 bits, all else 0", [] {
        const KxMadeDib dib(5, 7);
        const BITMAPINFOHEADER *const header = dib.GetHeaderPtr();
        QVERIFY(header && header == dib.m_pHeader);
        QCOMPARE(header->biSize, 40u);
        QCOMPARE(header->biWidth, LONG(5));
        QCOMPARE(header->biHeight, LONG(7));
        QCOMPARE(int(header->biPlanes), 1);
        QCOMPARE(int(header->biBitCount), 32);
        QCOMPARE(header->biCompression, 0u);
        QCOMPARE(header->biSizeImage, 0u);
        QCOMPARE(header->biXPelsPerMeter, LONG(0));
        QCOMPARE(header->biYPelsPerMeter, LONG(0));
        QCOMPARE(header->biClrUsed, 0u);
        QCOMPARE(header->biClrImportant, 0u);
    });
    promises("GetWidth and GetHeight are what stands in the header", [] {
        const KxMadeDib dib(5, 7);
        dib.GetHeaderPtr()->biWidth = 3;
        dib.GetHeaderPtr()->biHeight = 2;
        QCOMPARE(dib.GetWidth(), 3);
        QCOMPARE(dib.GetHeight(), 2);
        dib.GetHeaderPtr()->biWidth = 5;
        dib.GetHeaderPtr()->biHeight = 7;
    });
    promises("32 bits per pixel", [] { QCOMPARE(int(KxMadeDib(2, 2).m_nBitCount), 32); });
    promises("the image lies over the memory: premultiplied, 4 bytes for each pixel of a line", [] {
        const KxMadeDib dib(5, 3);
        QCOMPARE(dib.m_pImage->size(), QSize(5, 3));
        QCOMPARE(dib.m_pImage->format(), QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(dib.m_pImage->bytesPerLine(), 20);
        QVERIFY(dib.m_pImage->constBits() == dib.m_pBits);
    });
    promises("row y lies y times 4 times the width behind the first, the first on top", [] {
        const KxMadeDib dib(5, 3);
        for (int y = 0; y < 3; ++y) {
            QVERIFY(dib.m_pRows[y] == dib.m_pBits + 20 * y);
            QVERIFY(dib.m_pRows[y] == dib.m_pImage->constScanLine(y));
        }
    });
    promises("dc becomes the painter wrapper on the image", [] {
        const KxMadeDib dib(2, 2);
        QVERIFY(dib.dc && dib.dc == dib.m_pDC);
        QVERIFY(static_cast<KxQtPainterWrapper *>(dib.dc)->wrappedDevice() == dib.m_pImage);
    });
    promises("bitmap becomes the image", [] {
        const KxMadeDib dib(2, 2);
        QVERIFY(dib.bitmap);
        QVERIFY(static_cast<void *>(dib.bitmap) == static_cast<void *>(dib.m_pImage));
    });
    promises("the reference is ignored, whatever it is", [] {
        KxMadeDib first(2, 2);
        const KxMadeDib second(3, 1, first.dc);
        const KxMadeDib third(3, 1, reinterpret_cast<HDC>(static_cast<std::uintptr_t>(0x10)));
        QCOMPARE(second.GetPixel(2, 0), 0u);
        QCOMPARE(third.GetPixel(2, 0), 0u);
        QVERIFY(second.dc != first.dc);
    });
    promises("one pixel", [] {
        const KxMadeDib dib(1, 1);
        QCOMPARE(dib.GetPixelValue(0, 0), 0u);
        QCOMPARE(dib.GetPixelValue(1, 0), invalid);
        QCOMPARE(dib.GetPixelValue(0, 1), invalid);
    });
    promises("3000 by 2000 pixels: the first and the last", [] {
        KxMadeDib dib(3000, 2000);
        dib.SetPixel(0, 0, 0x010203);
        dib.SetPixel(2999, 1999, 0x040506);
        QCOMPARE(dib.GetPixel(0, 0), 0x010203u);
        QCOMPARE(dib.GetPixel(2999, 1999), 0x040506u);
        QCOMPARE(dib.GetPixel(2998, 1999), 0u);
    });
    promises("two objects do not share their pixels", [] {
        KxMadeDib first(2, 2);
        const KxMadeDib second(2, 2);
        first.SetPixel(0, 0, 0xFF);
        QCOMPARE(second.GetPixel(0, 0), 0u);
    });
    promises("a second makeBitmap replaces the bitmap and leaves the first as it is", [] {
        KxMadeDib dib(4, 3);
        QImage *const image = dib.m_pImage;
        KxQtPainterWrapper *const painter = dib.m_pDC;
        BITMAPINFOHEADER *const header = dib.m_pHeader;
        unsigned char *const bits = dib.m_pBits;
        unsigned char **const rows = dib.m_pRows;
        dib.SetPixel(1, 1, 0x0000FF);
        dib.makeBitmap(dib.dc, dib.bitmap, 2, 5, dib.dc);
        QVERIFY(dib.m_pImage != image && dib.m_pDC != painter && dib.m_pHeader != header);
        QVERIFY(dib.m_pBits != bits && dib.m_pRows != rows);
        QVERIFY(dib.dc == dib.m_pDC);
        QCOMPARE(dib.GetWidth(), 2);
        QCOMPARE(dib.GetHeight(), 5);
        QCOMPARE(dib.GetPixel(1, 1), 0u);
        QCOMPARE(header->biWidth, LONG(4));
        QCOMPARE(image->pixel(1, 1), 0xFFFF0000u);
        QVERIFY(painter->wrappedDevice() == image);
        QVERIFY(rows[1] == bits + 16);
        QVERIFY(images()->image(static_cast<HGDIOBJ>(image)) == image);
        images()->release(image);
        delete painter;
        delete image;
        std::free(bits);
        std::free(header);
        delete[] rows;
    });
}

void DibDataTest::oddSizes_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("no columns") << 0 << 3;
    QTest::newRow("no rows") << 4 << 0;
    QTest::newRow("neither") << 0 << 0;
    QTest::newRow("a negative width") << -4 << 3;
    QTest::newRow("a negative height") << 4 << -3;
    QTest::newRow("both negative") << -4 << -3;
    QTest::newRow("the most negative sides") << INT_MIN << INT_MIN;
    QTest::newRow("one pixel wide, the most negative height") << 1 << INT_MIN;
#if !defined(__SANITIZE_ADDRESS__) // It needs more addresses than KxMemoryLimit leaves.
    QTest::newRow("the largest sides") << INT_MAX << INT_MAX;
    QTest::newRow("sides of 2^30 pixels") << (1 << 30) << (1 << 30);
    QTest::newRow("the most rows, no columns") << 0 << INT_MAX;
#endif
    QTest::newRow("the largest width, one row") << INT_MAX << 1;
    QTest::newRow("rows of 2 GiB: one byte more than an image's may have") << (1 << 29) << 1;
#if !defined(__SANITIZE_ADDRESS__) // KxMemoryLimit does not limit there.
    QTest::newRow("4 GiB, where 1 GiB can be had") << 32768 << 32768;
#endif
}

/// Nothing is read, written or found there, though the sides are what was asked for; the next object has a
/// bitmap as ever.
void DibDataTest::oddSizes()
{
    QFETCH(const int, width);
    QFETCH(const int, height);
    {
        const KxMemoryLimit limit;
        KxMadeDib dib(width, height);
        expectEmpty(dib);
        expectWarning(QStringLiteral("^QImage::setPixel: coordinate \\(0,0\\) out of range$"));
        QCOMPARE(dib.SetPixel(0, 0, 0x123456), true);
        if (height != 0 && height != INT_MIN) // Otherwise there is no row to be named.
            QCOMPARE(dib.DrawLineH(0, 3, 0, 0x123456), false);
        expectEmpty(dib);
        QCOMPARE(dib.GetWidth(), width);
        QCOMPARE(dib.GetHeight(), height);
    }
    const KxMadeDib next(2, 2);
    QCOMPARE(next.GetPixel(1, 1), 0u);
}

void DibDataTest::handles_data()
{
    QTest::addColumn<Promise>("promise");
    promises("the image service knows the handle: its image and its device are the bitmap's", [] {
        const KxMadeDib dib(2, 2);
        QVERIFY(images()->image(dib.bitmap) == dib.m_pImage);
        QVERIFY(images()->paintDevice(dib.bitmap) == dib.m_pImage);
    });
    promises("it knows the handle no longer when the object is gone", [] {
        HBITMAP handle = nullptr;
        {
            const KxMadeDib dib(2, 2);
            handle = dib.bitmap;
        }
        QVERIFY(!images()->image(handle));
        QVERIFY(!images()->paintDevice(handle));
        QVERIFY(!images()->deleteHandle(handle));
    });
    promises("the service in place is told of the image once, and of its end once", [] {
        CountingService service;
        platformServices()->setImageService(&service);
        QImage *image = nullptr;
        {
            const KxMadeDib dib(2, 2);
            image = dib.m_pImage;
            QCOMPARE(service.adopted, QList<QImage *>{image});
            QCOMPARE(service.released, QList<QImage *>());
        }
        platformServices()->setImageService(nullptr);
        QCOMPARE(service.adopted, QList<QImage *>{image});
        QCOMPARE(service.released, QList<QImage *>{image});
    });
    promises("an object without a bitmap tells the service nothing", [] {
        CountingService service;
        platformServices()->setImageService(&service);
        {
            const CDibData dib;
        }
        platformServices()->setImageService(nullptr);
        QCOMPARE(service.released, QList<QImage *>());
    });
    promises("deleting the handle lets it go; the bitmap stays", [] {
        KxMadeDib dib(2, 2);
        CBitmap bitmap;
        bitmap.Attach(dib.bitmap);
        QCOMPARE(bitmap.DeleteObject(), true);
        QVERIFY(!images()->image(dib.bitmap));
        dib.SetPixel(1, 1, 0x0000FF);
        QCOMPARE(dib.GetPixel(1, 1), 0x0000FFu);
    });
    promises("CDC::SelectObject and FillRect draw through the handle", [] {
        const KxMadeDib dib(4, 3);
        CBitmap bitmap;
        bitmap.Attach(dib.bitmap);
        CDC dc;
        QVERIFY(!dc.SelectObject(&bitmap));
        CBrush brush(RGB(0x12, 0x34, 0x56));
        const CRect rect(1, 1, 3, 2);
        dc.FillRect(&rect, &brush);
        images()->deleteHandle(brush.Detach());
        for (int y = 0; y < 3; ++y) {
            for (int x = 0; x < 4; ++x)
                QCOMPARE(dib.GetPixel(x, y), y == 1 && (x == 1 || x == 2) ? 0x563412u : 0u);
        }
    });
    promises("CButton::SetBitmap shows it", [] {
        KxMadeDib dib(6, 4);
        dib.SetPixel(2, 1, RGB(1, 2, 3));
        QPushButton widget;
        CButton button;
        button.Attach(KxHwndFromWidget(&widget));
        button.SetBitmap(dib.bitmap);
        const QImage shown = iconPicture(widget);
        QCOMPARE(shown.size(), QSize(6, 4));
        QCOMPARE(shown.pixel(2, 1), 0xFF010203u);
        QCOMPARE(shown.pixel(3, 1), 0xFF000000u);
    });
    promises("a button that shows it keeps the picture when pixels change and when the object goes", [] {
        QPushButton widget;
        CButton button;
        button.Attach(KxHwndFromWidget(&widget));
        {
            KxMadeDib dib(6, 4);
            dib.SetPixel(2, 1, RGB(1, 2, 3));
            button.SetBitmap(dib.bitmap);
            dib.SetPixel(3, 1, RGB(4, 5, 6));
            QCOMPARE(dib.GetPixel(3, 1), RGB(4, 5, 6));
            QCOMPARE(dib.m_pImage->pixel(3, 1), 0xFF040506u);
        }
        QCOMPARE(iconPicture(widget).pixel(2, 1), 0xFF010203u);
        QCOMPARE(iconPicture(widget).pixel(3, 1), 0xFF000000u);
    });
    promises("a button keeps a picture that is transparent in places when the object goes", [] {
        QPushButton widget;
        CButton button;
        button.Attach(KxHwndFromWidget(&widget));
        {
            KxMadeDib dib(6, 4);
            dib.DrawLineH(2, 2, 1, 0);
            dib.SetPixel(4, 2, RGB(7, 8, 9));
            button.SetBitmap(dib.bitmap);
        }
        QCOMPARE(iconPicture(widget).pixel(4, 2), 0xFF070809u);
    });
    promises("a bitmap made of the picture keeps it when the object goes", [] {
        HBITMAP copy = nullptr;
        {
            KxMadeDib dib(6, 4);
            dib.SetPixel(2, 1, RGB(1, 2, 3));
            copy = images()->createBitmapFromImage(*images()->image(dib.bitmap));
        }
        QCOMPARE(images()->image(copy)->pixel(2, 1), 0xFF010203u);
        images()->deleteHandle(copy);
    });
}

void DibDataTest::conversions_data()
{
    QTest::addColumn<DWORD>("from");
    QTest::addColumn<DWORD>("to");
    QTest::newRow("0x00112233 is 0x00332211") << 0x00112233u << 0x00332211u;
    QTest::newRow("0x00332211 is 0x00112233") << 0x00332211u << 0x00112233u;
    QTest::newRow("black") << 0u << 0u;
    QTest::newRow("white") << 0x00FFFFFFu << 0x00FFFFFFu;
    QTest::newRow("the low byte goes to bits 16 to 23") << 0x000000FFu << 0x00FF0000u;
    QTest::newRow("bits 16 to 23 go to the low byte") << 0x00FF0000u << 0x000000FFu;
    QTest::newRow("the middle stays") << 0x0000FF00u << 0x0000FF00u;
    QTest::newRow("0xFFFFFFFF stays") << 0xFFFFFFFFu << 0xFFFFFFFFu;
    QTest::newRow("the top byte is dropped") << 0xAB112233u << 0x00332211u;
    QTest::newRow("0xFFFFFFFE is not 0xFFFFFFFF") << 0xFFFFFFFEu << 0x00FEFFFFu;
    QTest::newRow("a top byte of 0xFF is dropped") << 0xFF000000u << 0u;
    QTest::newRow("0xFEFFFFFF is white") << 0xFEFFFFFFu << 0x00FFFFFFu;
}

void DibDataTest::conversions()
{
    QFETCH(const DWORD, from);
    QFETCH(const DWORD, to);
    const CDibData dib;
    QCOMPARE(dib.RGBtoValue(from), to);
    QCOMPARE(dib.ValueToRGB(from), to);
}

void DibDataTest::pixels_data()
{
    QTest::addColumn<Promise>("promise");
    promises("SetPixel(1, 1, red) is 0x00FF0000 as a value and red as a colour", [] {
        KxMadeDib dib(4, 3);
        QCOMPARE(dib.SetPixel(1, 1, 0x000000FF), true);
        QCOMPARE(dib.GetPixelValue(1, 1), 0x00FF0000u);
        QCOMPARE(dib.GetPixel(1, 1), 0x000000FFu);
    });
    promises("SetPixelValue(2, 0, 0x00112233) is that value and 0x00332211 as a colour", [] {
        KxMadeDib dib(4, 3);
        QCOMPARE(dib.SetPixelValue(2, 0, 0x00112233), true);
        QCOMPARE(dib.GetPixelValue(2, 0), 0x00112233u);
        QCOMPARE(dib.GetPixel(2, 0), 0x00332211u);
    });
    promises("a pixel is opaque whatever the top byte of the value", [] {
        KxMadeDib dib(4, 1);
        dib.SetPixelValue(0, 0, 0x00112233);
        dib.SetPixelValue(1, 0, 0x80112233);
        dib.SetPixelValue(2, 0, 0xFF112233);
        for (int x = 0; x < 3; ++x) {
            QCOMPARE(dib.memory(x, 0), 0xFF112233u);
            QCOMPARE(dib.GetPixelValue(x, 0), 0x00112233u);
        }
    });
    promises("SetPixel drops the top byte of the colour", [] {
        KxMadeDib dib(1, 1);
        dib.SetPixel(0, 0, 0x7F112233);
        QCOMPARE(dib.memory(0, 0), 0xFF332211u);
    });
    promises("no colour and no value make the pixel white", [] {
        KxMadeDib dib(2, 1);
        QCOMPARE(dib.SetPixel(0, 0, 0xFFFFFFFF), true);
        QCOMPARE(dib.SetPixelValue(1, 0, 0xFFFFFFFF), true);
        for (int x = 0; x < 2; ++x) {
            QCOMPARE(dib.GetPixelValue(x, 0), 0x00FFFFFFu);
            QCOMPARE(dib.GetPixel(x, 0), 0x00FFFFFFu);
            QCOMPARE(dib.memory(x, 0), 0xFFFFFFFFu);
        }
    });
    promises("each pixel is its own, and the image shows it in place", [] {
        KxMadeDib dib(5, 4);
        for (int y = 0; y < 4; ++y) {
            for (int x = 0; x < 5; ++x)
                dib.SetPixelValue(x, y, DWORD(0x010203 * (1 + x) + 0x10 * y));
        }
        for (int y = 0; y < 4; ++y) {
            for (int x = 0; x < 5; ++x) {
                const auto value = DWORD(0x010203 * (1 + x) + 0x10 * y);
                QCOMPARE(dib.GetPixelValue(x, y), value);
                QCOMPARE(dib.m_pImage->pixel(x, y), 0xFF000000u | value);
                QCOMPARE(dib.memory(x, y), 0xFF000000u | value);
            }
        }
    });
    promises("reading masks the alpha of what was drawn half transparent", [] {
        const KxMadeDib dib(1, 1);
        const DWORD pixel = 0x80402010;
        std::memcpy(dib.m_pBits, &pixel, 4);
        QCOMPARE(dib.GetPixelValue(0, 0), 0x00402010u);
        QCOMPARE(dib.GetPixel(0, 0), 0x00102040u);
    });
}

void DibDataTest::writesOutside_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    QTest::newRow("left") << -1 << 0;
    QTest::newRow("above") << 0 << -1;
    QTest::newRow("right") << 4 << 0;
    QTest::newRow("below") << 0 << 3;
    QTest::newRow("far away") << INT_MAX << INT_MIN;
}

/// Qt says so, nothing changes, and the answer is TRUE.
void DibDataTest::writesOutside()
{
    QFETCH(const int, x);
    QFETCH(const int, y);
    KxMadeDib dib(4, 3);
    const QImage before = dib.m_pImage->copy();
    const QString warning = QStringLiteral("^QImage::setPixel: coordinate \\(%1,%2\\) out of range$");
    for (int times = 0; times < 2; ++times)
        expectWarning(warning.arg(x).arg(y));
    QCOMPARE(dib.SetPixel(x, y, 0x123456), true);
    QCOMPARE(dib.SetPixelValue(x, y, 0x123456), true);
    QCOMPARE(*dib.m_pImage, before);
}

void DibDataTest::drawing_data()
{
    QTest::addColumn<Promise>("promise");
    promises("what is drawn through the HDC is read back, each pixel", [] {
        const KxMadeDib dib(5, 4);
        auto *const painter = static_cast<KxQtPainterWrapper *>(dib.dc);
        QVERIFY(painter->beginDraw());
        painter->fillRect(CRect(1, 1, 4, 3), RGB(0x11, 0x22, 0x33));
        QVERIFY(painter->endDraw());
        for (int y = 0; y < 4; ++y) {
            for (int x = 0; x < 5; ++x) {
                const bool isInside = x >= 1 && x < 4 && y >= 1 && y < 3;
                QCOMPARE(dib.GetPixelValue(x, y), isInside ? 0x112233u : 0u);
                QCOMPARE(dib.GetPixel(x, y), isInside ? RGB(0x11, 0x22, 0x33) : 0u);
            }
        }
    });
    promises("lines, figures and transparency as a plain QPainter draws them", [] {
        const KxMadeDib dib(30, 20);
        auto *const wrapper = static_cast<KxQtPainterWrapper *>(dib.dc);
        QImage image(30, 20, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        const auto draw = [](QPainter &painter) {
            painter.setPen(QPen(QColor(200, 100, 50), 3));
            painter.drawLine(2, 3, 25, 17);
            painter.setBrush(QColor(10, 20, 200, 100));
            painter.drawEllipse(4, 2, 20, 15);
        };
        QVERIFY(wrapper->beginDraw());
        draw(*wrapper->wrappedPainter());
        QVERIFY(wrapper->endDraw());
        QPainter painter(&image);
        draw(painter);
        painter.end();
        int drawn = 0;
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 30; ++x) {
                QCOMPARE(dib.GetPixelValue(x, y), image.pixel(x, y) & 0x00FFFFFF);
                drawn += dib.GetPixelValue(x, y) != 0;
            }
        }
        QVERIFY(drawn > 100);
    });
    promises("pixels and lines that were set are what the painter draws over", [] {
        KxMadeDib dib(4, 1);
        dib.SetPixelValue(0, 0, 0xFFFFFF);
        dib.DrawLineH(1, 2, 0, 0xFF00FF00);
        auto *const painter = static_cast<KxQtPainterWrapper *>(dib.dc);
        painter->beginDraw();
        painter->wrappedPainter()->fillRect(QRect(0, 0, 2, 1), QColor(255, 0, 0, 0));
        painter->fillRect(CRect(2, 0, 3, 1), RGB(0, 0, 255));
        painter->endDraw();
        QCOMPARE(dib.GetPixelValue(0, 0), 0xFFFFFFu);
        QCOMPARE(dib.GetPixelValue(1, 0), 0x00FF00u);
        QCOMPARE(dib.GetPixelValue(2, 0), 0x0000FFu);
        QCOMPARE(dib.GetPixelValue(3, 0), 0u);
    });
    promises("drawn lines stop the scans", [] {
        const KxMadeDib dib(40, 3);
        auto *const painter = static_cast<KxQtPainterWrapper *>(dib.dc);
        painter->beginDraw();
        painter->fillRect(CRect(10, 0, 11, 3), RGB(255, 0, 0));
        painter->fillRect(CRect(33, 0, 34, 3), RGB(255, 0, 0));
        painter->endDraw();
        QCOMPARE(dib.ScanRight(20, 1, 39, 0), 33);
        QCOMPARE(dib.ScanLeft(20, 1, 0, 0), 10);
        QCOMPARE(dib.SearchRight(0, 2, 39, 0xFF0000), 10);
        QCOMPARE(dib.SearchLeft(39, 2, 0, 0xFF0000), 33);
    });
}

void DibDataTest::floodFill_data()
{
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= 10; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

/// A run at a time on a bitmap of random pixels and drawn rectangles, beside a queue of single pixels.
void DibDataTest::floodFill()
{
    QFETCH(const unsigned int, seed);
    KxDibDice dice(seed);
    const int width = 20 + dice(40);
    const int height = 20 + dice(30);
    KxMadeDib dib(width, height);
    for (int i = width * height / 4; i > 0; --i)
        dib.SetPixel(dice(width), dice(height), RGB(255, 0, 0));
    auto *const painter = static_cast<KxQtPainterWrapper *>(dib.dc);
    painter->beginDraw();
    for (int i = 0; i < 6; ++i) {
        const int x = dice(width);
        const int y = dice(height);
        painter->fillRect(CRect(x, y, x + dice(20), y + dice(20)), i % 2 ? RGB(255, 0, 0) : RGB(0, 0, 0));
    }
    painter->endDraw();

    QImage expected = dib.m_pImage->copy();
    for (int times = 0; times < 20; ++times) {
        const int x = dice(width);
        const int y = dice(height);
        const COLORREF colour = RGB(times, 100, 200);
        kxFloodFill(dib, x, y, 0xFF000000 | dib.RGBtoValue(colour));
        kxFloodFillByPixels(
            width, height, x, y, qRgb(times, 100, 200),
            [&](int atX, int atY) { return expected.pixel(atX, atY); },
            [&](int atX, int atY, DWORD v) { expected.setPixel(atX, atY, v); });
        QCOMPARE(*dib.m_pImage, expected);
        QCOMPARE(dib.GetPixel(x, y), colour);
    }
}

KX_TEST_MAIN(DibDataTest)
#include "tst_dib_data.moc"
