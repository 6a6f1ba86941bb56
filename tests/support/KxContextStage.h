// SPDX-License-Identifier: MIT
#pragma once

#include "KxDoubleBufferStage.h"
#include "KxPlatformServices.h"

#include <afxwin.h>

#include <functional>

/// \file
/// What the tests of device contexts share: contexts of bitmaps and windows, a device that tells its end.

inline constexpr QRgb white = 0xFFFFFFFF;
inline const tagRECT everything = {0, 0, 1000, 1000};

inline KxImageService *images()
{
    return platformServices()->imageService();
}

/// Deletes its handle when it goes.
struct OwnedBitmap : CBitmap {
    OwnedBitmap(int width, int height) { CreateCompatibleBitmap(nullptr, width, height); }
    OwnedBitmap(const OwnedBitmap &) = delete;
    OwnedBitmap &operator=(const OwnedBitmap &) = delete;
    ~OwnedBitmap() { DeleteObject(); }

    QImage &image() { return *images()->image(m_hObject); }
};

struct OwnedBrush : CBrush {
    explicit OwnedBrush(COLORREF color) : CBrush(color) {}
    OwnedBrush(const OwnedBrush &) = delete;
    OwnedBrush &operator=(const OwnedBrush &) = delete;
    ~OwnedBrush() { images()->deleteHandle(m_hObject); }
};

/// A context that is bound to a white bitmap.
struct BitmapContext {
    explicit BitmapContext(int width = 10, int height = 8) : bitmap(width, height)
    {
        bitmap.image().fill(white);
        dc.SelectObject(&bitmap);
    }

    OwnedBitmap bitmap;
    CDC dc;
};

/// A window whose paint event does what the row says.
class PaintedWindow : public QWidget
{
public:
    PaintedWindow() { resize(20, 10); }

    QImage picture() { return grab().toImage().convertToFormat(QImage::Format_RGB32); }

    std::function<void()> whenPainted;

protected:
    void paintEvent(QPaintEvent *) override
    {
        if (whenPainted)
            whenPainted();
    }
};

/// A window with a context that draws into a double buffer.
struct WindowContext {
    WindowContext()
    {
        window.Attach(KxHwndFromWidget(&widget));
        dc = _CreateDCforHwnd(KxHwndFromWidget(&widget));
        buffer = dc ? dynamic_cast<KxGrQtDoubleBufferImage *>(dc->m_hDC) : nullptr;
    }

    PaintedWindow widget;
    CWnd window;
    CDC *dc;
    KxGrQtDoubleBufferImage *buffer;
};

/// Tells when it is deleted.
struct WatchedDevice : KxQtPaintDeviceWrapper {
    explicit WatchedDevice(int *deletions) : deleted(deletions) {}
    ~WatchedDevice() override { ++*deleted; }

    int *deleted;
};

/// The image with the pixels of a rectangle, right and bottom excluded, in another colour.
inline QImage filled(QImage image, const tagRECT &rect, QRgb pixel)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom)
                image.setPixel(x, y, pixel);
        }
    }
    return image;
}
