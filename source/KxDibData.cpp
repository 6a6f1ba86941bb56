// SPDX-License-Identifier: MIT
#include "KxDibData.h"

#include "KxAfxGeometry.h"
#include "KxDibRow_p.h"
#include "KxPlatformServices.h"
#include "KxQtPainterWrapper.h"

#include <QtGui/QImage>

#include <algorithm>
#include <cstdlib>
#include <limits>

using KxDibRow::StopAt;

namespace {

constexpr DWORD NoValue = 0xFFFFFFFF;
constexpr DWORD Opaque = 0xFF000000;

/// As many rows as the height says, 0 for one that no 32 bits can turn positive.
int rowCount(int height)
{
    return height == std::numeric_limits<int>::min() ? 0 : std::abs(height);
}

} // namespace

CDibData::CDibData()
    : m_pImage(nullptr)
    , m_pDC(nullptr)
    , m_pHeader(nullptr)
    , m_pBits(nullptr)
    , m_pRows(nullptr)
    , m_nBitCount(0)
{
}

CDibData::~CDibData()
{
    delete m_pDC;
    if (m_pImage)
        platformServices()->imageService()->release(m_pImage);
    delete m_pImage;
    std::free(m_pBits);
    std::free(m_pHeader);
    delete[] m_pRows;
}

void CDibData::makeBitmap(HDC &dc, HBITMAP &bitmap, int width, int height, HDC)
{
    const bool hasPixels = width > 0 && height > 0 && width <= std::numeric_limits<int>::max() / 4;
    const std::size_t rowBytes = hasPixels ? 4 * static_cast<std::size_t>(width) : 0;
    const std::size_t rows = hasPixels ? static_cast<std::size_t>(height) : 0;
    m_pBits = static_cast<unsigned char *>(std::malloc(rowBytes * rows));
    m_pImage = hasPixels && m_pBits
                   ? new QImage(m_pBits, width, height, 4 * width, QImage::Format_ARGB32_Premultiplied)
                   : new QImage;
    const bool isMade = !m_pImage->isNull();
    m_pDC = new KxQtPainterWrapper(m_pImage);
    dc = m_pDC;
    bitmap = platformServices()->imageService()->adopt(m_pImage);

    m_pHeader = static_cast<BITMAPINFOHEADER *>(std::calloc(1, sizeof(BITMAPINFOHEADER)));
    m_pHeader->biSize = sizeof(BITMAPINFOHEADER);
    m_pHeader->biWidth = width;
    m_pHeader->biHeight = height;
    m_pHeader->biPlanes = 1;
    m_pHeader->biBitCount = 32;
    m_pHeader->biCompression = BI_RGB;
    m_nBitCount = 32;

    m_pRows = isMade ? new unsigned char *[rows] : nullptr;
    for (std::size_t y = 0; isMade && y < rows; ++y) {
        m_pRows[y] = m_pBits + y * rowBytes;
        KxDibRow::fill32(m_pRows[y], rowBytes / 4, Opaque);
    }
}

// ---- single pixels -------------------------------------------------------------------------------------

DWORD CDibData::RGBtoValue(COLORREF c) const
{
    return c == NoValue ? NoValue : (c & 0xFF) << 16 | (c & 0xFF00) | (c >> 16 & 0xFF);
}

COLORREF CDibData::ValueToRGB(DWORD v) const
{
    return RGBtoValue(v); // Red and blue change places, either way.
}

BOOL CDibData::SetPixel(int x, int y, COLORREF c)
{
    return SetPixelValue(x, y, RGBtoValue(c));
}

BOOL CDibData::SetPixelValue(int x, int y, DWORD v)
{
    if (m_pImage)
        m_pImage->setPixel(x, y, v | Opaque);
    return TRUE;
}

COLORREF CDibData::GetPixel(int x, int y) const
{
    return ValueToRGB(GetPixelValue(x, y));
}

inline bool CDibData::isColumn(int x) const
{
    return static_cast<unsigned int>(x) < static_cast<unsigned int>(std::max(GetWidth(), 0));
}

inline const unsigned char *CDibData::rowAt(int x, int y) const
{
    const bool isInside = m_pRows && isColumn(x) && y >= 0 && y < rowCount(GetHeight());
    return isInside ? m_pRows[y] : nullptr;
}

DWORD CDibData::GetPixelValue(int x, int y) const
{
    const unsigned char *row = rowAt(x, y);
    return row ? KxDibRow::pixel(row, m_nBitCount, x) : NoValue;
}

// ---- runs of pixels ------------------------------------------------------------------------------------

inline const unsigned char *CDibData::walkableRow(int x, int y, int limit, DWORD v) const
{
    return isColumn(limit) && v != NoValue ? rowAt(x, y) : nullptr;
}

template<bool StopAtEqual>
inline int CDibData::walkLeft(int x, int y, int limit, DWORD v) const
{
    const unsigned char *row = walkableRow(x, y, limit, v);
    if (!row)
        return KxWrapping::difference(limit, 1);
    if (!KxDibRow::isServed(m_nBitCount))
        return x;
    if (x < limit)
        return limit - 1;
    constexpr StopAt stop = StopAtEqual ? StopAt::Equal : StopAt::Different;
    return x - KxDibRow::runLeft<stop>(row, m_nBitCount, x, x - limit + 1, v);
}

template<bool StopAtEqual>
inline int CDibData::walkRight(int x, int y, int limit, DWORD v) const
{
    const unsigned char *row = walkableRow(x, y, limit, v);
    if (!row)
        return KxWrapping::sum(limit, 1);
    if (!KxDibRow::isServed(m_nBitCount))
        return x;
    if (x > limit)
        return limit + 1;
    constexpr StopAt stop = StopAtEqual ? StopAt::Equal : StopAt::Different;
    return x + KxDibRow::runRight<stop>(row, m_nBitCount, x, limit - x + 1, v);
}

int CDibData::SearchLeft(int x, int y, int limit, DWORD v) const
{
    return walkLeft<true>(x, y, limit, v);
}

int CDibData::SearchRight(int x, int y, int limit, DWORD v) const
{
    return walkRight<true>(x, y, limit, v);
}

int CDibData::ScanLeft(int x, int y, int limit, DWORD v) const
{
    return walkLeft<false>(x, y, limit, v);
}

int CDibData::ScanRight(int x, int y, int limit, DWORD v) const
{
    return walkRight<false>(x, y, limit, v);
}

BOOL CDibData::DrawLineH(int x1, int x2, int y, DWORD v)
{
    if (!m_pRows || v == NoValue)
        return FALSE;
    const auto [left, right] = std::minmax(x1, x2);
    const int width = GetWidth();
    if (right < 0 || left >= width)
        return FALSE;
    const int first = std::max(left, 0);
    const int last = std::min(right, KxWrapping::difference(width, 1));
    if (first > last)
        return KxDibRow::isServed(m_nBitCount); // Across a row without pixels.
    return KxDibRow::fill(m_pRows[y], m_nBitCount, first, last, v);
}
