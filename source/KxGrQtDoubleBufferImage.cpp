// SPDX-License-Identifier: MIT
#include "KxGrQtDoubleBufferImage.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtWidgets/QWidget>

#include <cstdlib>

namespace {

/// Nothing for an image without pixels, for which Qt would warn.
void drawOver(QImage *target, const QImage &image)
{
    if (!target->isNull() && !image.isNull())
        QPainter(target).drawImage(0, 0, image);
}

} // namespace

KxGrQtDoubleBufferImage::KxGrQtDoubleBufferImage()
    : KxGrQtDoubleBufferImage(nullptr)
{
}

KxGrQtDoubleBufferImage::KxGrQtDoubleBufferImage(QPaintDevice *device)
    : KxQtPaintDeviceWrapper(device)
    , m_memBits(nullptr)
    , m_memPainter(new KxQtPainterWrapper)
    , m_memImage(nullptr)
    , m_frontPainter(new KxQtPainterWrapper)
    , m_frontImage(nullptr)
    , m_backupBits(nullptr)
    , m_palette(new QPalette)
    , m_imagesCreated(0)
    , m_frontBuffer(nullptr)
{
    if (device)
        makeFrontImage(device->width(), device->height());
}

KxGrQtDoubleBufferImage::~KxGrQtDoubleBufferImage()
{
    destroyImages();
    deleteFrontImage();
    delete m_memPainter;
    delete m_frontPainter;
    delete m_palette;
}

void KxGrQtDoubleBufferImage::createImages(int width, int height, int bytesPerPixel)
{
    const QPaintDevice *window = destination;
    if (m_imagesCreated && window && window->width() == width && window->height() == height)
        return;
    destroyImages();
    deleteFrontImage();

    int bytesPerRow = 0;
    const bool isValid = width > 0 && height > 0 && bytesPerPixel > 0
                         && !__builtin_mul_overflow(width, bytesPerPixel, &bytesPerRow);
    if (isValid)
        m_memBits = static_cast<unsigned char *>(std::calloc(static_cast<std::size_t>(height),
                                                             static_cast<std::size_t>(bytesPerRow)));
    m_memImage = m_memBits ? new QImage(m_memBits, width, height, bytesPerRow,
                                        QImage::Format_ARGB32_Premultiplied)
                           : new QImage;
    m_memPainter->setWrappedDevice(m_memImage);
    makeFrontImage(width, height);
    m_imagesCreated = 1;
}

void KxGrQtDoubleBufferImage::destroyImages()
{
    if (!m_imagesCreated)
        return;
    m_memPainter->setWrappedDevice(nullptr);
    delete m_memImage;
    m_memImage = nullptr;
    std::free(m_memBits);
    m_memBits = nullptr;
    deleteFrontImage();
    m_imagesCreated = 0;
}

void KxGrQtDoubleBufferImage::makeFrontImage(int width, int height)
{
    m_frontImage = new QImage(width, height, QImage::Format_ARGB32_Premultiplied);
    m_frontImage->fill(0);
    m_frontPainter->setWrappedDevice(m_frontImage);
}

void KxGrQtDoubleBufferImage::deleteFrontImage()
{
    m_frontPainter->setWrappedDevice(nullptr);
    delete m_frontImage;
    m_frontImage = nullptr;
}

void KxGrQtDoubleBufferImage::repairFrontBuffer()
{
    if (!m_memImage || !m_frontImage)
        return;
    drawOver(m_frontImage, *m_memImage);
    if (m_frontBuffer && m_frontBuffer->m_memImage)
        drawOver(m_frontBuffer->m_memImage, *m_frontImage);
    if (m_frontBuffer)
        return;
    if (auto *window = dynamic_cast<QWidget *>(destination); window && window->updatesEnabled())
        window->update();
}

void KxGrQtDoubleBufferImage::setFrontBuffer(KxGrQtDoubleBufferImage *other)
{
    m_frontBuffer = other;
    if (other)
        setDestinationDevice(other->destinationDevice());
}

unsigned char *KxGrQtDoubleBufferImage::backupBits() const
{
    return m_backupBits;
}
