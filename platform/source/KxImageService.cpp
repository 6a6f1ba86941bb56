// SPDX-License-Identifier: MIT
#include "KxPlatformServices.h"

#include <QtGui/QImage>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

class KxImageService::Private
{
public:
    /// Handles of the service's own are odd numbers, each given out once: none is ever the address of an
    /// image that somebody adopts, nor that of something new in the place of something deleted.
    template<class Handle>
    Handle newHandle()
    {
        m_lastHandle += 2;
        return KxHandleFromValue<Handle>(m_lastHandle);
    }

    std::unordered_map<HGDIOBJ, std::unique_ptr<QImage>> bitmaps;
    std::unordered_map<HGDIOBJ, COLORREF> brushes;
    std::unordered_set<HGDIOBJ> adopted;

private:
    INT_PTR m_lastHandle = 0xFFFF;
};

KxImageService::KxImageService()
    : d(std::make_unique<Private>())
{
}

KxImageService::~KxImageService() = default;

HBITMAP KxImageService::createBitmap(int width, int height)
{
    auto image = std::make_unique<QImage>(width, height, QImage::Format_ARGB32_Premultiplied);
    if (image->isNull())
        return nullptr;
    image->fill(Qt::black);
    const auto handle = d->newHandle<HBITMAP>();
    d->bitmaps.emplace(handle, std::move(image));
    return handle;
}

HBITMAP KxImageService::createBitmapFromImage(const QImage &source)
{
    const HBITMAP handle = createBitmap(source.width(), source.height());
    if (auto *target = image(handle))
        *target = source.convertToFormat(QImage::Format_ARGB32_Premultiplied).copy(); // of memory that may die
    return handle;
}

HBRUSH KxImageService::createSolidBrush(COLORREF color)
{
    if (color == CLR_INVALID)
        return nullptr;
    const auto handle = d->newHandle<HBRUSH>();
    d->brushes.emplace(handle, color & 0x00FFFFFFu);
    return handle;
}

QImage *KxImageService::image(HGDIOBJ handle) const
{
    if (const auto bitmap = d->bitmaps.find(handle); bitmap != d->bitmaps.end())
        return bitmap->second.get();
    return d->adopted.count(handle) ? static_cast<QImage *>(handle) : nullptr;
}

QPaintDevice *KxImageService::paintDevice(HGDIOBJ handle) const
{
    return image(handle);
}

COLORREF KxImageService::brushColor(HGDIOBJ handle) const
{
    const auto brush = d->brushes.find(handle);
    return brush != d->brushes.end() ? brush->second : CLR_INVALID;
}

bool KxImageService::deleteHandle(HGDIOBJ handle)
{
    return d->bitmaps.erase(handle) || d->brushes.erase(handle) || d->adopted.erase(handle);
}

HBITMAP KxImageService::adopt(QImage *image)
{
    if (!image)
        return nullptr;
    const auto own = std::find_if(d->bitmaps.begin(), d->bitmaps.end(),
                                  [image](const auto &bitmap) { return bitmap.second.get() == image; });
    if (own != d->bitmaps.end())
        return static_cast<HBITMAP>(own->first);
    d->adopted.insert(image);
    return reinterpret_cast<HBITMAP>(image);
}

bool KxImageService::release(QImage *image)
{
    return d->adopted.erase(image) != 0;
}
