// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfx.h"
#include "KxAfxGeometry.h"
#include "KxExport.h"
#include "KxQtPainterWrapper.h"
#include "KxStdStr.h"

/// \file
/// MFC's device context and GDI objects.
///
/// Only what fills, selects a bitmap, makes a bitmap or a brush does something; the rest answers a fixed value so
/// that source compiles. Drawing goes through the painter wrapper of the context:
///
/// \code
/// KxQtPainterWrapper *painter = dc.m_hDC->painter();
/// \endcode
///
/// That of a window draws on the widget, and so only during its paint event; at other times use memPainter() of the
/// window's KxGrQtDoubleBufferImage.
///
/// A handle of a bitmap or brush is one of the image service of platformServices(). A GDI object does not delete
/// its handle when it goes; CBitmap::DeleteObject() does when asked to.

/// A handle of a GDI object; CGdiObject of MFC.
class KX_EXPORT CGdiObject : public CObject
{
public:
    HGDIOBJ m_hObject; ///< Null when there is none.

    CGdiObject();

    operator void *() const;
    HGDIOBJ GetSafeHandle() const;
    /// Takes a handle, and forgets an earlier one. \return TRUE
    BOOL Attach(HGDIOBJ hObject);
    /// Gives the handle away. \return the handle, which this object has no longer
    HGDIOBJ Detach();

    KX_INERT("returns TRUE; nothing is deleted")
    BOOL DeleteObject();
    KX_INERT("returns 0 and writes nothing")
    int GetObjectW(int nCount, void *lpObject) const;
    KX_INERT("returns null; keep the object that has the handle")
    static CGdiObject *FromHandle(HGDIOBJ hObject);
};

/// Drawing styles are set on the painter wrapper; see KxQtPainterWrapper::setPen().
class CPen : public CGdiObject
{
};

/// See KxQtPainterWrapper::setClipRegion().
class CRgn : public CGdiObject
{
};

/// Colours are not mapped through palettes.
class CPalette : public CGdiObject
{
};

class CDC;

/// A bitmap of the image service; CBitmap of MFC.
class KX_EXPORT CBitmap : public CGdiObject
{
public:
    operator HBITMAP() const;
    /// See CGdiObject::Attach().
    BOOL Attach(HGDIOBJ hBitmap);
    /// See CGdiObject::Detach().
    HBITMAP Detach();

    /// Makes a bitmap of the image service, in pixels, opaque black. The context is not looked at, and an earlier
    /// handle is forgotten. \return FALSE when a side is not positive or memory does not suffice
    BOOL CreateCompatibleBitmap(CDC *pDC, int nWidth, int nHeight);
    /// Loads the bitmap resource of that number; see LoadImageW(). \return TRUE, even when there is no such
    /// resource: ask for the handle, which is null then
    BOOL LoadBitmapW(UINT nIDResource);
    /// Deletes the bitmap. The handle is kept, and may not be used any more. \return FALSE without a handle, and
    /// when the image service does not know it
    BOOL DeleteObject();

    KX_INERT("returns 0; nothing is added")
    int Add(CBitmap *pbmImage, UINT nFlags);
};

/// A solid brush of the image service; CBrush of MFC.
class KX_EXPORT CBrush : public CGdiObject
{
public:
    CBrush();
    /// The top byte of the colour is dropped; for 0xFFFFFFFF there is no brush, and the handle is null.
    CBrush(COLORREF crColor);
};

/// A font by name only; CFont of MFC. See KxQtPainterWrapper::setFontIndirect().
class KX_EXPORT CFont : public CGdiObject
{
public:
    KX_INERT("returns TRUE and makes no font; use KxQtPainterWrapper::setFontIndirect()")
    BOOL CreateFontW(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                     BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                     BYTE nQuality, BYTE nPitchAndFamily, const wchar_t *lpszFacename);
    KX_INERT("returns null; keep the object that has the handle")
    static CFont *FromHandle(HFONT hFont);
};

/// The device of a context that a bitmap was selected into.
class KX_EXPORT KxHDCWrapper : public KxQtPaintDeviceWrapper
{
public:
    explicit KxHDCWrapper(QPaintDevice *device);
    ~KxHDCWrapper() override;

    /// The bitmap that was selected; not owned, null at first.
    CBitmap *m_bitmap;
};

/// A device context; CDC of MFC.
///
/// It gets its device once and keeps it: a window's from _CreateDCforHwnd(), a bitmap's from the first
/// SelectObject(CBitmap *). Not to be deleted through a pointer to CObject.
class KX_EXPORT CDC : public CObject
{
public:
    /// The device; owned, null at first. Wherever an HDC is taken that is a KxQtPaintDeviceWrapper, it may stand.
    KxQtPaintDeviceWrapper *m_hDC;

    CDC();
    /// Deletes the device.
    ~CDC();
    CDC(const CDC &) = delete;
    CDC &operator=(const CDC &) = delete;

    /// \return m_hDC, which is a KxQtPaintDeviceWrapper
    operator HDC() const;

    /// Binds a context without a device to the bitmap, for good: a later selection changes nothing. The bitmap has
    /// to keep its handle as long as the context is drawn on. One without a handle binds nothing; one whose handle the
    /// image service does not know binds to nothing that could be drawn on.
    /// \return the bitmap that the context had been bound to; null when there was none, when the context has the
    /// device of a window or of the host's own, and for null
    CBitmap *SelectObject(CBitmap *pBitmap);
    /// Fills a rectangle, right and bottom excluded, with the colour of the brush. Nothing without a device, a
    /// rectangle, or a brush that the image service knows.
    ///
    /// A context with a double buffer fills the widget itself during its paint event; otherwise the memory image of
    /// the buffer, or the front image while there is no memory image. While the host draws with the painter that is
    /// used, the rectangle becomes part of what it draws. In a paint event a QPainter of the host's own on the widget
    /// has to be closed first.
    void FillRect(const tagRECT *lpRect, CBrush *pBrush);

    KX_INERT("returns an empty size; use QFontMetrics")
    CSize GetTextExtent(const CString &str) const;
    KX_INERT("returns null, not m_hDC")
    HDC GetSafeHdc() const;
    KX_INERT("returns FALSE; m_hDC stays")
    BOOL Attach(HDC hDC);
    KX_INERT("returns null; m_hDC stays")
    HDC Detach();
    KX_INERT("returns null; nothing is selected")
    virtual CGdiObject *SelectStockObject(int nIndex);
    KX_INERT("returns null; use KxQtPainterWrapper::setPen()")
    CPen *SelectObject(CPen *pPen);
    KX_INERT("returns null; use KxQtPainterWrapper::setBrush()")
    CBrush *SelectObject(CBrush *pBrush);
    KX_INERT("returns null; use KxQtPainterWrapper::setFontIndirect()")
    virtual CFont *SelectObject(CFont *pFont);
    KX_INERT("returns null; use KxQtPainterWrapper::setClipRegion()")
    CRgn *SelectObject(CRgn *pRgn);
    KX_INERT("returns null; nothing is selected")
    CGdiObject *SelectObject(CGdiObject *pObject);
    KX_INERT("returns null; there are no palettes")
    CPalette *SelectPalette(CPalette *pPalette, BOOL bForceBackground);
    KX_INERT("returns TRUE; select a bitmap to get a device")
    BOOL CreateCompatibleDC(CDC *pDC);
    KX_INERT("returns TRUE; nothing is copied, use KxQtPainterWrapper::drawImage()")
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC *pSrcDC, int xSrc, int ySrc, DWORD dwRop);
    KX_INERT("returns TRUE; the destructor deletes the device")
    BOOL DeleteDC();
    KX_INERT("returns 0; use KxQtPainterWrapper::save()")
    virtual int SaveDC();
    KX_INERT("returns TRUE; use KxQtPainterWrapper::restore()")
    virtual BOOL RestoreDC(int nSavedDC);
    KX_INERT("returns 0; ask the QPaintDevice")
    int GetDeviceCaps(int nIndex) const;
    KX_INERT("returns TRUE and writes nothing; use QFontMetrics")
    BOOL GetTextMetricsW(tagTEXTMETRICW *lpMetrics) const;
    KX_INERT("draws nothing")
    void FrameRect(const tagRECT *lpRect, CBrush *pBrush);
    KX_INERT("draws nothing; use FillRect()")
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
    KX_INERT("draws nothing; use FillRect()")
    void FillSolidRect(const tagRECT *lpRect, COLORREF clr);
};

/// Gives a window's context, CWnd::GetDC(), a KxGrQtDoubleBufferImage for its widget. A device that the context
/// had is replaced and not deleted: who calls twice deletes the first one.
/// \return the context, which belongs to the window; null without a window object and for an unbound one
KX_EXPORT CDC *_CreateDCforHwnd(HWND hwnd);
