// SPDX-License-Identifier: MIT
#include "KxAfxGDI.h"

#include "KxAfxWin.h"
#include "KxAfxWin_p.h"
#include "KxGrQtDoubleBufferImage.h"
#include "KxPlatformBase.h"
#include "KxPlatformServices.h"

#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

#include <utility>

namespace {

/// What a context's figures go to.
KxQtPainterWrapper *painterFor(KxQtPaintDeviceWrapper *device)
{
    auto *buffer = dynamic_cast<KxGrQtDoubleBufferImage *>(device);
    if (!buffer)
        return device->painter();
    // Qt lets nobody draw on a widget but in its paint event.
    const auto *widget = dynamic_cast<QWidget *>(buffer->destinationDevice());
    if (widget && widget->testAttribute(Qt::WA_WState_InPaintEvent))
        return buffer->painter();
    return buffer->memImage() ? buffer->memPainter() : buffer->frontPainter();
}

} // namespace

// ---- CGdiObject and its kinds --------------------------------------------------------------------------

CGdiObject::CGdiObject()
    : m_hObject(nullptr)
{
}

CGdiObject::operator void *() const
{
    return m_hObject;
}

HGDIOBJ CGdiObject::GetSafeHandle() const
{
    return m_hObject;
}

BOOL CGdiObject::Attach(HGDIOBJ hObject)
{
    m_hObject = hObject;
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    return std::exchange(m_hObject, nullptr);
}

BOOL CGdiObject::DeleteObject() { return TRUE; }
int CGdiObject::GetObjectW(int, void *) const { return 0; }
CGdiObject *CGdiObject::FromHandle(HGDIOBJ) { return nullptr; }

CBitmap::operator HBITMAP() const
{
    return static_cast<HBITMAP>(m_hObject);
}

BOOL CBitmap::Attach(HGDIOBJ hBitmap)
{
    return CGdiObject::Attach(hBitmap);
}

HBITMAP CBitmap::Detach()
{
    return static_cast<HBITMAP>(CGdiObject::Detach());
}

BOOL CBitmap::CreateCompatibleBitmap(CDC *, int nWidth, int nHeight)
{
    m_hObject = platformServices()->imageService()->createBitmap(nWidth, nHeight);
    return m_hObject != nullptr;
}

BOOL CBitmap::LoadBitmapW(UINT nIDResource)
{
    m_hObject = LoadImageW(nullptr, MAKEINTRESOURCEW(nIDResource), IMAGE_BITMAP, 0, 0, 0);
    return TRUE;
}

BOOL CBitmap::DeleteObject()
{
    return m_hObject && platformServices()->imageService()->deleteHandle(m_hObject);
}

int CBitmap::Add(CBitmap *, UINT) { return 0; }

CBrush::CBrush() = default;

CBrush::CBrush(COLORREF crColor)
{
    m_hObject = platformServices()->imageService()->createSolidBrush(crColor);
}

BOOL CFont::CreateFontW(int, int, int, int, int, BYTE, BYTE, BYTE, BYTE, BYTE, BYTE, BYTE, BYTE, const wchar_t *)
{
    return TRUE;
}

CFont *CFont::FromHandle(HFONT) { return nullptr; }

// ---- CDC -----------------------------------------------------------------------------------------------

KxHDCWrapper::KxHDCWrapper(QPaintDevice *device)
    : KxQtPaintDeviceWrapper(device)
    , m_bitmap(nullptr)
{
}

KxHDCWrapper::~KxHDCWrapper() = default;

CDC::CDC()
    : m_hDC(nullptr)
{
}

CDC::~CDC()
{
    delete m_hDC;
}

CDC::operator HDC() const
{
    return m_hDC;
}

CBitmap *CDC::SelectObject(CBitmap *pBitmap)
{
    if (!pBitmap)
        return nullptr;
    if (m_hDC) {
        const auto *bound = dynamic_cast<KxHDCWrapper *>(m_hDC);
        return bound ? bound->m_bitmap : nullptr;
    }
    if (HGDIOBJ handle = pBitmap->GetSafeHandle()) {
        auto *device = new KxHDCWrapper(platformServices()->imageService()->paintDevice(handle));
        device->m_bitmap = pBitmap;
        m_hDC = device;
    }
    return nullptr;
}

void CDC::FillRect(const tagRECT *lpRect, CBrush *pBrush)
{
    const HGDIOBJ handle = pBrush ? pBrush->GetSafeHandle() : nullptr;
    if (!m_hDC || !lpRect || !handle)
        return;
    const COLORREF colour = platformServices()->imageService()->brushColor(handle);
    if (colour == CLR_INVALID)
        return;
    KxQtPainterWrapper *painter = painterFor(m_hDC);
    // The host may be drawing with it.
    const bool isOpen = painter->wrappedPainter()->isActive();
    if (!isOpen && !painter->beginDraw())
        return;
    painter->fillRect(CRect(lpRect), colour);
    if (!isOpen)
        painter->endDraw();
}

CSize CDC::GetTextExtent(const CString &) const { return CSize(0, 0); }
HDC CDC::GetSafeHdc() const { return nullptr; }
BOOL CDC::Attach(HDC) { return FALSE; }
HDC CDC::Detach() { return nullptr; }
CGdiObject *CDC::SelectStockObject(int) { return nullptr; }
CPen *CDC::SelectObject(CPen *) { return nullptr; }
CBrush *CDC::SelectObject(CBrush *) { return nullptr; }
CFont *CDC::SelectObject(CFont *) { return nullptr; }
CRgn *CDC::SelectObject(CRgn *) { return nullptr; }
CGdiObject *CDC::SelectObject(CGdiObject *) { return nullptr; }
CPalette *CDC::SelectPalette(CPalette *, BOOL) { return nullptr; }
BOOL CDC::CreateCompatibleDC(CDC *) { return TRUE; }
BOOL CDC::BitBlt(int, int, int, int, CDC *, int, int, DWORD) { return TRUE; }
BOOL CDC::DeleteDC() { return TRUE; }
int CDC::SaveDC() { return 0; }
BOOL CDC::RestoreDC(int) { return TRUE; }
int CDC::GetDeviceCaps(int) const { return 0; }
BOOL CDC::GetTextMetricsW(tagTEXTMETRICW *) const { return TRUE; }
void CDC::FrameRect(const tagRECT *, CBrush *) {}
void CDC::FillSolidRect(int, int, int, int, COLORREF) {}
void CDC::FillSolidRect(const tagRECT *, COLORREF) {}

CDC *_CreateDCforHwnd(HWND hwnd)
{
    CWnd *window = CWnd::FromHandle(hwnd);
    CDC *context = window ? window->GetDC() : nullptr;
    if (context)
        context->m_hDC = new KxGrQtDoubleBufferImage(KxWidgetFromHwnd(hwnd));
    return context;
}
