// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"
#include "KxWinTypes.h"

#include <QtCore/Qt>

class CPoint;
class CRect;
class QBrush;
class QImage;
class QPaintDevice;
class QPainter;
class QPainterPath;
class QRect;
class QRegion;

/// \file
/// GDI's drawing state as QPainter calls.
///
/// Coordinates are in pixels of the device, y grows downwards. A colour is a COLORREF; its top byte is ignored
/// and it is opaque, whatever that byte says. All of it belongs to the GUI thread.
///
/// Two kinds of object are known by an HDC: a KxQtPainterWrapper, which draws, and a KxQtPaintDeviceWrapper,
/// which is what a CDC holds and hands out a painter wrapper. What takes an HDC says which kind it means; neither
/// is ever taken for the other. A pointer to one converts to HDC by itself, static_cast leads back.

/// What an HDC points at.
struct HDC__
{
};

/// The Qt style of a GDI pen style: PS_SOLID, PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT and PS_NULL are Qt's, and
/// PS_USERSTYLE is Qt::CustomDashLine. All others keep their number, so that PS_INSIDEFRAME is
/// Qt::CustomDashLine too. Only the low four bits of `style` are looked at.
KX_EXPORT Qt::PenStyle LsToQPenStyle(int style);

/// A painter that is told what to do in GDI's terms and draws on a device that it does not own.
///
/// What is drawn stands between beginDraw() and endDraw(), which open and close the device. Pen, brush, font,
/// background and composition mode hold until endDraw(); the clip region and whether a path is being collected
/// hold until they are changed. A call outside of the two goes to the inactive QPainter, which ignores it, most with a
/// warning.
///
/// \code
/// KxQtPainterWrapper painter(&image);
/// if (painter.beginDraw()) {
///     painter.setPen(PS_DASH, 2, RGB(200, 0, 0));
///     painter.drawLine(0, 0, 99, 99);
///     painter.endDraw();
/// }
/// \endcode
class KX_EXPORT KxQtPainterWrapper : public HDC__
{
public:
    KxQtPainterWrapper();
    /// The device may be null; it has to live as long as it is drawn on.
    explicit KxQtPainterWrapper(QPaintDevice *wrapped);
    ~KxQtPainterWrapper();
    KxQtPainterWrapper(const KxQtPainterWrapper &) = delete;
    KxQtPainterWrapper &operator=(const KxQtPainterWrapper &) = delete;

    /// The device of the next beginDraw(). A painter that draws goes on drawing on the earlier one.
    void setWrappedDevice(QPaintDevice *wrapped) { device = wrapped; }
    QPaintDevice *wrappedDevice() const { return device; }
    /// Owned by this object, never null.
    QPainter *wrappedPainter() const { return painter; }

    // ---- drawing and its state -----------------------------------------------------------------------------

    /// Opens the device with a black cosmetic pen of one pixel, a solid black brush and the clip region.
    /// \return false without a device; otherwise true, even when QPainter::begin() refused the device
    bool beginDraw();
    /// Puts the painter's state back and closes the device.
    /// \return false without a device, otherwise what QPainter::end() says
    bool endDraw();
    /// QPainter::save(), to be followed by restore().
    void save();
    void restore();

    /// From here to endPath(), drawPolyline() collects instead of drawing. What was collected earlier stays.
    void beginPath() { inPath = true; }
    /// Ends collecting. The path is kept until it is stroked or filled.
    void endPath() { inPath = false; }
    /// Draws the outline of the path with the pen and empties the path.
    void strokePath();
    /// Fills the path with the brush, turns antialiasing on and empties the path.
    void fillPath();
    /// Draws the outline, then fills over its inner half; otherwise as fillPath().
    void strokeAndFillPath();

    /// The composition mode, as a number of QPainter::CompositionMode. GetROP2 in GDI gives an R2_ code.
    int getROP2() const;
    /// Takes a number of QPainter::CompositionMode, unlike SetROP2 in GDI: 26 is
    /// QPainter::RasterOp_SourceXorDestination. A number that is none changes nothing.
    void setROP2(int mode);

    /// A pen of a GDI style (PS_*, see LsToQPenStyle(); all but the low four bits are dropped), a width in pixels
    /// and a colour. 0 is a cosmetic pen of one pixel. PS_DASH, PS_INSIDEFRAME and PS_USERSTYLE draw dashes of
    /// 12 and gaps of 4 pen widths; dots and dash-dots have Qt's pattern.
    void setPen(int style, int width, COLORREF colour);
    /// Changes nothing but the colour of the pen.
    void setPenColor(COLORREF colour);
    void setBrush(const QBrush &brush);
    /// A black brush of a style of Qt's, by its number: 0 is Qt::NoBrush, 1 Qt::SolidPattern.
    void setBrush(int style);
    /// A solid brush. An `unsigned int` is a colour here, an `int` a style.
    void setBrush(unsigned int colour);
    /// TRANSPARENT or OPAQUE, as SetBkMode in GDI: whether the gaps of dashes and hatches are filled.
    void setBkMode(int mode);
    /// What the gaps are filled with; SetBkColor in GDI.
    void setBackground(unsigned int colour);
    /// The font of a record, of which face, weight, height, pitch and italics count. The device must not be null.
    ///
    /// - lfHeight is not in pixels: the font's pixel size is the height times the bits per pixel of the device,
    ///   divided by 36, without the fraction. Where it is 0 or negative, lfWeight stands for it. When no pixel comes
    ///   out, for want of both or of a larger height, the font keeps Qt's size, with Qt's warning.
    /// - lfWeight divided by 10 is Qt's weight, 400 gives 40; 0 leaves Qt's own.
    /// - The pitch is fixed when lfPitchAndFamily is FIXED_PITCH exactly.
    void setFontIndirect(const tagLOGFONTW *font);
    /// Restricts drawing to polygons, at once while the painter draws, and from every beginDraw() on.
    ///
    /// `points` holds the corners of all polygons one after another, `counts` how many belong to each. Where
    /// polygons overlap, an even number of them leaves a hole. Without points or counts, or with a `polygonCount`
    /// of 0, drawing is unrestricted again; so it is when the polygons enclose no pixel, where GDI draws nothing.
    void setClipRegion(tagPOINT *points, unsigned int *counts, unsigned int polygonCount);
    /// Moves the origin to (x, y), then turns clockwise by `angle` degrees. The origin stays there.
    void Rotate(double angle, int x, int y);

    // ---- figures -------------------------------------------------------------------------------------------

    /// One point with the pen.
    void drawPoint(int x, int y);
    /// A line with the pen. Both ends are drawn; LineTo in GDI leaves the last pixel out. A path does not
    /// collect it.
    void drawLine(int x1, int y1, int x2, int y2);
    /// Lines through `n` points with the pen, or, between beginPath() and endPath(), one more figure of the path.
    /// While the composition mode is 26, a closed line, whose last point is the first, is drawn as a polygon, so
    /// that the shared pixel is inverted once. Nothing for `n` below 1.
    void drawPolyline(const tagPOINT *points, int n);
    /// A polygon with pen and brush, filled by the odd-even rule. A path does not collect it. Nothing for `n`
    /// below 1.
    void drawPolygon(const tagPOINT *points, int n);
    /// `length` characters of text with the pen, -1 for all up to the terminating zero; nothing for null. `y` is the
    /// baseline; TextOut in GDI puts the top there.
    void drawText(int x, int y, const wchar_t *text, int length);
    /// A rectangle with the pen, filled with `colour` at `alpha`, 1 to 255; an `alpha` below 1 draws the outline
    /// alone. Right and bottom are inside it: without a pen it is one pixel wider and higher than fillRect() makes it,
    /// and QPainter::drawRect()'s outline adds another. The corners of a rectangle whose left edge is not left of its
    /// right edge are swapped. The brush stays set.
    void drawAlphaRect(const CRect &rect, unsigned int colour, int alpha);
    /// drawPolygon() with the brush of drawAlphaRect(). For `n` below 1 the brush is not touched either.
    void drawAlphaArea(const CPoint *points, int n, unsigned int colour, int alpha);
    /// Draws the caller's pixels, `a` wide and `b` high, with their upper left corner at (a, b). `format` is a
    /// number of QImage::Format; each row starts at a multiple of 4 bytes. `c` and `d` are ignored. The memory
    /// is read during the call only. One bit is black or white, eight bits are 256 shades of grey. Nothing for null,
    /// for a side that is not positive and for a number that is no format. To draw at another place, use the other
    /// overload.
    void drawImage(int a, int b, unsigned char *bits, int c, int d, int format);
    /// Draws an image scaled into a rectangle.
    void drawImage(const QRect &rect, const QImage &image);
    /// Fills a rectangle, right and bottom excluded, as FillRect in GDI. The brush stays as it is.
    void fillRect(const CRect &rect, unsigned int colour);

protected:
    /// The pen and the brush that an episode of drawing starts with.
    void setDefaults();

    QPaintDevice *device;   ///< Not owned.
    QPainter *painter;      ///< Owned, as are the next two.
    QPainterPath *path;
    QRegion *clipRegion;    ///< Empty when drawing is unrestricted.
    bool inPath;            ///< Between beginPath() and endPath().

private:
    void applyClipRegion();
    void setAlphaBrush(unsigned int colour, int alpha);
};

/// A painter wrapper for a device that has to see one QPainter::begin() and one end(), such as a printer: it is
/// open from construction to destruction. It must be used and deleted through its own type, and before the device
/// goes; setWrappedDevice() does not open another device.
class KX_EXPORT KxQtPrinterPainter : public KxQtPainterWrapper
{
public:
    explicit KxQtPrinterPainter(QPaintDevice *wrapped);
    ~KxQtPrinterPainter();

    /// Saves the painter's state and sets pen and brush as KxQtPainterWrapper::beginDraw() does. The device stays
    /// open, and a clip region set before is not applied again. \return false without a device
    bool beginDraw();
    /// Puts the painter's state back; the device stays open. \return false without a device
    bool endDraw();
};

/// A device to draw on, and on demand the painter wrapper that draws on it: the HDC that a CDC holds.
class KX_EXPORT KxQtPaintDeviceWrapper : public HDC__
{
public:
    KxQtPaintDeviceWrapper();
    /// The device is not owned and may be null.
    explicit KxQtPaintDeviceWrapper(QPaintDevice *device);
    /// Deletes the painter wrapper that painter() made. A derived class that deleted it sets the field to null.
    virtual ~KxQtPaintDeviceWrapper();
    KxQtPaintDeviceWrapper(const KxQtPaintDeviceWrapper &) = delete;
    KxQtPaintDeviceWrapper &operator=(const KxQtPaintDeviceWrapper &) = delete;

    /// Of the device, in pixels; there has to be one.
    int width() const;
    int height() const;
    /// Bits per pixel of the device; there has to be one.
    int depth() const;

    /// Changes the device. A painter wrapper that was made before keeps its own.
    void setDestinationDevice(QPaintDevice *device) { destination = device; }
    QPaintDevice *destinationDevice() const { return destination; }

    /// Does nothing: the painter wrapper is what begins. \return true
    bool beginDraw() { return true; }
    /// Does nothing. \return true
    bool endDraw() { return true; }
    /// The painter wrapper on the device; the first call makes it. Owned by this object.
    KxQtPainterWrapper *painter();

protected:
    QPaintDevice *destination;          ///< Not owned.
    KxQtPainterWrapper *painterWrapper; ///< Null before the first painter(); owned.
};

/// Undoes at the end of a scope what is drawn on an image in it.
///
/// The image is copied at the beginning and drawn over itself at the end: where the copy is transparent, or a clip
/// region of the painter wrapper leaves pixels out, what was drawn stays. Does nothing for any other device.
class KX_EXPORT KxQtGrDCAutoSaver
{
public:
    /// `painterWrapper` is a KxQtPainterWrapper, or null; the HDC of a CDC is not one and must not be given. It has
    /// to live longer than the guard, and no drawing may be going on when the guard ends.
    explicit KxQtGrDCAutoSaver(HDC painterWrapper);
    ~KxQtGrDCAutoSaver();
    KxQtGrDCAutoSaver(const KxQtGrDCAutoSaver &) = delete;
    KxQtGrDCAutoSaver &operator=(const KxQtGrDCAutoSaver &) = delete;

private:
    KxQtPainterWrapper *dc; ///< Null when there is nothing to undo.
    QImage *backup;         ///< Owned.
};
