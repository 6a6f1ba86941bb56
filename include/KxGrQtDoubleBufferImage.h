// SPDX-License-Identifier: MIT
#pragma once

#include "KxQtPainterWrapper.h"

class QPalette;

/// Two images behind a window: a memory image to draw on, whose pixels may be addressed, and a front image that
/// the window's paint handler shows.
///
/// Built with a device it has a front image only; createImages() makes the pair, destroyImages() ends it. The
/// painter wrappers of both images live as long as the object, without a device while there is no image.
///
/// \code
/// void Canvas::paintEvent(QPaintEvent *)
/// {
///     QPainter(this).drawImage(0, 0, *m_buffer->frontImage());
/// }
/// \endcode
class KX_EXPORT KxGrQtDoubleBufferImage : public KxQtPaintDeviceWrapper
{
public:
    /// Without a destination and without images.
    KxGrQtDoubleBufferImage();
    /// For a window, or another device, that may be null and is not owned; makes a transparent front image of its
    /// size. The device has to outlive every call.
    explicit KxGrQtDoubleBufferImage(QPaintDevice *device);
    ~KxGrQtDoubleBufferImage() override;

    /// Makes both images anew, `width` by `height` pixels, all zero, in QImage::Format_ARGB32_Premultiplied; the
    /// earlier ones are deleted. Nothing is done when there is a pair and the destination has this size, whatever
    /// size the pair has: in a resize handler, where the window has its new size already, call destroyImages() first.
    ///
    /// `bytesPerPixel` is the length of a row in memBits() divided by the width: give 4; below 4 the memory image is
    /// null. Sides that are not positive, and memory that cannot be had, make null images.
    ///
    /// Neither this nor destroyImages() may be called while a painter of the pair draws; memBits() and the addresses of
    /// the images are other ones afterwards.
    void createImages(int width, int height, int bytesPerPixel);
    /// Deletes the pair that createImages() made; the front image of the constructor stays.
    void destroyImages();
    /// Draws the memory image over the front image, where it is not transparent. Then, with a linked buffer, draws the
    /// front image over that one's memory image, if it has one, and asks nobody for a repaint; without a link, asks
    /// the destination for one when that is a QWidget that takes updates. Without the two images it does nothing.
    void repairFrontBuffer();
    /// Links another buffer, which must outlive the link and is not owned, and takes over its destination. Null ends
    /// the link and leaves the destination.
    void setFrontBuffer(KxGrQtDoubleBufferImage *other);

    /// Never null, as frontPainter().
    KxQtPainterWrapper *memPainter() const { return m_memPainter; }
    /// Null before createImages().
    QImage *memImage() const { return m_memImage; }
    KxQtPainterWrapper *frontPainter() const { return m_frontPainter; }
    /// Null when there is none.
    QImage *frontImage() const { return m_frontImage; }
    /// The pixels of the memory image, row by row from the top, 0xAARRGGBB with the alpha multiplied in; null before
    /// createImages(). To keep the picture use QImage::copy(): while another QImage shares memImage(), drawing goes to
    /// other memory.
    unsigned char *memBits() const { return m_memBits; }
    KX_INERT("returns null; there are no backup pixels")
    unsigned char *backupBits() const;
    /// A QPalette of this object, as a handle.
    HPALETTE getHPalette() const { return reinterpret_cast<HPALETTE>(m_palette); }

protected:
    unsigned char *m_memBits;           ///< From malloc(); owned.
    KxQtPainterWrapper *m_memPainter;   ///< Owned.
    QImage *m_memImage;                 ///< Over m_memBits; owned.
    KxQtPainterWrapper *m_frontPainter; ///< Owned.
    QImage *m_frontImage;               ///< Owned.
    unsigned char *m_backupBits;        ///< Null.
    QPalette *m_palette;                ///< Owned.
    int m_imagesCreated;                ///< 1 between createImages() and destroyImages(), otherwise 0.
    KxGrQtDoubleBufferImage *m_frontBuffer; ///< Not owned.

private:
    void deleteFrontImage();
    void makeFrontImage(int width, int height);
};
