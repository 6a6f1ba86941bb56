// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfx.h"
#include "KxExport.h"
#include "KxWinTypes.h"

#include <QtGui/QRgb>

class KxQtPainterWrapper;
class QImage;

/// The colour bits of a pixel of 24 or 32 bits, 0x00FFFFFF: the constant that Qt has under this name, also for
/// source that asks whether the name is defined.
#define RGB_MASK RGB_MASK

/// The bit of pixel `x & 7` in a byte of a bitmap of 1 bit per pixel.
constexpr unsigned char lgs_Mask8[8] = {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01};
/// The bits of pixel `x & 3` in a byte of a bitmap of 2 bits per pixel.
constexpr unsigned char lgs_Mask4[4] = {0xC0, 0x30, 0x0C, 0x03};
/// The bits of pixel `x & 1` in a byte of a bitmap of 4 bits per pixel.
constexpr unsigned char lgs_Mask2[2] = {0xF0, 0x0F};

/// A bitmap of 32 bits per pixel whose pixels are read, written, searched and filled: what a flood fill is made
/// of.
///
/// A pixel value is what stands in the bitmap, 0xAARRGGBB; it is read without the alpha. 0xFFFFFFFF is no pixel
/// value, nor a colour. Pixels are counted from 0, rows from the top; the rows lie one behind the other without
/// gaps.
///
/// The searches, DrawLineH() and GetPixel() also serve depths of 1, 2, 4, 8, 16 and 24 bits, for a derived class that
/// fills the fields with a bitmap of its own; SetPixel() draws on makeBitmap()'s alone. Below 8 bits the leftmost pixel
/// is in the highest bits of its byte.
///
/// A flood fill colours a run of pixels of the colour `old`:
///
/// \code
/// const int left = dib.ScanLeft(x, y, 0, old) + 1;
/// const int right = dib.ScanRight(x, y, dib.GetWidth() - 1, old) - 1;
/// if (!dib.DrawLineH(left, right, y, 0xFF000000 | dib.RGBtoValue(colour)))
///     return; // White, which a line cannot have.
/// \endcode
class KX_EXPORT CDibData : public CObject
{
public:
    CDibData();
    ~CDibData();
    CDibData(const CDibData &) = delete;
    CDibData &operator=(const CDibData &) = delete;

    /// Makes a bitmap of `width` by `height` pixels, both positive, opaque black.
    ///
    /// `dc` becomes a KxQtPainterWrapper on it, `bitmap` a handle of the image service, which must be the one in use
    /// still when this object goes. Both belong to this object and hold as long as it lives. A second call forgets the
    /// first bitmap without deleting it. `reference` is ignored.
    ///
    /// When memory cannot be had, or a side is not positive, there are no pixels: reading gives 0xFFFFFFFF and nothing
    /// is drawn, while GetWidth() and GetHeight() tell what was asked for.
    ///
    /// To keep the picture use QImage::copy(): while another QImage shares the image behind the handle, what is drawn
    /// through `dc` or SetPixel() goes to other memory.
    void makeBitmap(HDC &dc, HBITMAP &bitmap, int width, int height, HDC reference);

    /// The pixel value of a colour, with an alpha of 0. The colour's top byte is dropped; 0xFFFFFFFF stays.
    DWORD RGBtoValue(COLORREF c) const;
    /// The colour of a pixel value, whose top byte is dropped; 0xFFFFFFFF stays.
    COLORREF ValueToRGB(DWORD v) const;

    /// Makes a pixel opaque in that colour, 0xFFFFFFFF is white here; outside of the bitmap nothing, with Qt's warning.
    /// \return TRUE
    BOOL SetPixel(int x, int y, COLORREF c);
    /// As SetPixel(); the alpha of the value is replaced by 0xFF.
    BOOL SetPixelValue(int x, int y, DWORD v);
    /// \return the colour; 0xFFFFFFFF outside of the bitmap
    COLORREF GetPixel(int x, int y) const;
    /// \return the pixel value without the alpha; 0xFFFFFFFF outside of the bitmap and for a depth that is not served
    DWORD GetPixelValue(int x, int y) const;

    /// Walks from `x` to the left and stops at the first pixel that is `v`; `x` and `limit` are looked at too.
    /// \return where it stopped; `limit` - 1 when there is none, for a start, row or limit outside of the bitmap
    /// and for a `v` of 0xFFFFFFFF; `x` for a depth that is not served
    ///
    /// At 24 and 32 bits a `v` with bits in its top byte is no pixel's; at 8 and 16 bits the low bits of `v`
    /// count. At 1 bit every `v` but 0 is 1; at 2 and 4 bits `v` must not have more bits than that.
    int SearchLeft(int x, int y, int limit, DWORD v) const;
    /// As SearchLeft(), to the right. \return `limit` + 1 when it does not stop
    int SearchRight(int x, int y, int limit, DWORD v) const;
    /// As SearchLeft(), but stops at the first pixel that is not `v`.
    int ScanLeft(int x, int y, int limit, DWORD v) const;
    /// As SearchRight(), but stops at the first pixel that is not `v`.
    int ScanRight(int x, int y, int limit, DWORD v) const;
    /// Makes the pixels from `x1` to `x2`, in either order and both included, `v`; what lies left or right of the
    /// bitmap is left out. `y` has to be a row of the bitmap: it is not checked.
    ///
    /// At 32 bits the whole of `v` is written, its alpha too: an opaque pixel needs 0xFF in the top byte. Opaque white
    /// is then 0xFFFFFFFF and cannot be drawn; SetPixel() can. At 24 bits nothing is written.
    /// \return FALSE when there is no bitmap, when all of it lies left or all right of the bitmap, for a `v` of
    /// 0xFFFFFFFF and for a depth that is not served; otherwise TRUE
    BOOL DrawLineH(int x1, int x2, int y, DWORD v);

    /// Owned by this object; null before makeBitmap().
    BITMAPINFOHEADER *GetHeaderPtr() const { return m_pHeader; }
    /// In pixels; 0 before makeBitmap(), as GetHeight().
    int GetWidth() const { return m_pHeader ? m_pHeader->biWidth : 0; }
    int GetHeight() const { return m_pHeader ? m_pHeader->biHeight : 0; }

protected:
    // All of them owned. A bitmap of a derived class's own needs m_pHeader (biWidth and biHeight), m_pRows and
    // m_nBitCount.
    QImage *m_pImage;
    KxQtPainterWrapper *m_pDC;   ///< The HDC of makeBitmap().
    BITMAPINFOHEADER *m_pHeader; ///< From malloc().
    unsigned char *m_pBits;      ///< From malloc(); may be null when the rows lie elsewhere.
    unsigned char **m_pRows;     ///< The first byte of each row; from new[].
    WORD m_nBitCount;            ///< Per pixel.

private:
    template<bool StopAtEqual>
    int walkLeft(int x, int y, int limit, DWORD v) const;
    template<bool StopAtEqual>
    int walkRight(int x, int y, int limit, DWORD v) const;
    bool isColumn(int x) const;
    /// The row of a pixel; null outside of the bitmap.
    const unsigned char *rowAt(int x, int y) const;
    /// The row that a walk goes along; null for bad input.
    const unsigned char *walkableRow(int x, int y, int limit, DWORD v) const;
};
