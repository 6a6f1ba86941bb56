// SPDX-License-Identifier: MIT
#include "KxAfxWin.h"

#include "KxAfxGDI.h"
#include "KxAfxWin_p.h"

#include <QtCore/QList>

#include <algorithm>
#include <vector>

std::map<HWND, CWnd *> CWndHandleTable;
QList<CWnd *> CWndList;

namespace {

/// Temporary wrappers that the handle table does not lead to, since a kept object has their place there.
class UnreachableWrappers
{
public:
    ~UnreachableWrappers()
    {
        const std::vector<CWnd *> wrappers = std::move(m_wrappers);
        for (CWnd *wrapper : wrappers) {
            CWndPrivate *d = wrapper->d_func();
            if (d->keepObject)
                continue;
            // The widget may be gone and the table's entry is another object's: leave both alone.
            wrapper->m_hWnd = nullptr;
            d->widget = nullptr;
            d->items.clear();
            delete wrapper;
        }
    }

    void add(CWnd *wrapper) { m_wrappers.push_back(wrapper); }
    void remove(CWnd *wrapper)
    {
        m_wrappers.erase(std::remove(m_wrappers.begin(), m_wrappers.end(), wrapper), m_wrappers.end());
    }

private:
    std::vector<CWnd *> m_wrappers;
};

UnreachableWrappers unreachableWrappers;

} // namespace

CWnd CWnd::wndTop(nullptr);

CWnd *CreateCWndByHandle(HWND hWnd)
{
    auto *wrapper = new CWnd(nullptr);
    wrapper->d_func()->keepObject = false;
    wrapper->SetHandle(hWnd);
    if (CWnd::FromHandle(hWnd) != wrapper)
        unreachableWrappers.add(wrapper);
    return wrapper;
}

CWnd::CWnd(CWnd *pParent)
    : CWnd(*new CWndPrivate, pParent)
{
}

CWnd::CWnd(CWndPrivate &d, CWnd *pParent)
    : m_hWnd(nullptr)
    , d_ptr(&d)
{
    d.q = this;
    d.parentWnd = pParent;
}

CWnd::~CWnd()
{
    CWndPrivate *d = d_ptr;
    if (d->widget && !d->keepWidget)
        delete d->widget;
    const auto entry = CWndHandleTable.find(m_hWnd);
    if (entry != CWndHandleTable.end()) {
        CWnd *named = entry->second;
        CWndHandleTable.erase(entry);
        if (named != this && !named->d_ptr->keepObject)
            unreachableWrappers.add(named);
    }
    for (const auto &item : d->items) {
        CWnd *window = FromHandle(item.second);
        if (window && !window->d_ptr->keepObject)
            delete window;
    }
    unreachableWrappers.remove(this);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdelete-non-virtual-dtor" // GetDC() makes a plain CDC.
    delete d->dc;
#pragma GCC diagnostic pop
    delete d;
}

CWndPrivate *CWnd::d_func() const
{
    return isSmallHandle(this) ? nullptr : d_ptr;
}

void CWnd::SetHandle(HWND hWnd)
{
    CWndPrivate *d = privateBlock(this);
    if (!d || !hWnd || m_hWnd)
        return;
    m_hWnd = hWnd;
    d->widget = KxWidgetFromHwnd(hWnd);
    if (CWnd *previous = FromHandle(hWnd)) {
        previous->d_ptr->widget = nullptr;
        if (!previous->d_ptr->keepObject)
            delete previous;
    }
    CWndHandleTable.insert({hWnd, this});
}

BOOL CWnd::Attach(HWND hWndNew)
{
    if (isSmallHandle(this))
        return smallHandleResult<BOOL>(this);
    SetHandle(hWndNew);
    return hWndNew != nullptr;
}

HWND CWnd::Detach()
{
    if (isSmallHandle(this))
        return smallHandleResult<HWND>(this);
    HWND handle = GetSafeHwnd();
    if (handle)
        CreateCWndByHandle(handle);
    return handle;
}

CWnd *CWnd::FromHandle(HWND hWnd)
{
    const auto entry = hWnd ? CWndHandleTable.find(hWnd) : CWndHandleTable.end();
    return entry != CWndHandleTable.end() ? entry->second : nullptr;
}

CWnd *CWnd::FromHandlePermanent(HWND hWnd)
{
    return FromHandle(hWnd);
}

void CWnd::SetAutoDelete(bool keepObject, bool deleteWidget)
{
    if (CWndPrivate *d = privateBlock(this)) {
        d->keepObject = keepObject;
        d->keepWidget = !deleteWidget;
    }
}

CWnd::operator HWND() const
{
    if (isSmallHandle(this))
        return smallHandleResult<HWND>(this);
    return boundBlock(this) ? m_hWnd : nullptr;
}

HWND CWnd::GetSafeHwnd() const
{
    return isSmallHandle(this) ? smallHandleResult<HWND>(this) : m_hWnd;
}

BOOL CWnd::Create(const wchar_t *, const wchar_t *, UINT, const tagRECT &, CWnd *pParentWnd, UINT, CCreateContext *)
{
    if (isSmallHandle(this))
        return smallHandleResult<BOOL>(this);
    if (CWndPrivate *d = boundBlock(this))
        d->parentWnd = pParentWnd;
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd *pParent)
{
    if (isSmallHandle(this))
        return smallHandleResult<BOOL>(this);
    if (!pParent)
        return FALSE;
    if (m_hWnd)
        return TRUE;
    const CWndPrivate *parent = privateBlock(pParent);
    const int id = static_cast<int>(nID);
    const auto item = parent ? parent->items.find(id) : decltype(parent->items.end())();
    if (!parent || item == parent->items.end())
        return FALSE;
    SetHandle(item->second);
    SetParent(pParent);
    SetCtrlID(id);
    PreSubclassWindow();
    return TRUE;
}

// ---- parent and neighbours -----------------------------------------------------------------------------

CWnd *CWnd::GetParent() const
{
    if (isSmallHandle(this))
        return smallHandleResult<CWnd *>(this);
    const CWndPrivate *d = boundBlock(this);
    return d ? d->parentWnd : nullptr;
}

CWnd *CWnd::SetParent(CWnd *pWndNewParent)
{
    if (isSmallHandle(this))
        return smallHandleResult<CWnd *>(this);
    CWndPrivate *d = boundBlock(this);
    return d ? std::exchange(d->parentWnd, pWndNewParent) : nullptr;
}

CWnd *CWnd::GetWindow(UINT nCmd) const
{
    if (isSmallHandle(this))
        return smallHandleResult<CWnd *>(this);
    const CWndPrivate *d = boundBlock(this);
    return d && nCmd == GW_CHILD && !d->items.empty() ? GetDlgItem(d->items.begin()->first) : nullptr;
}

CWnd *CWnd::GetNextWindow(UINT nFlag) const
{
    if (isSmallHandle(this))
        return smallHandleResult<CWnd *>(this);
    CWnd *parent = nFlag == GW_HWNDNEXT ? GetParent() : nullptr;
    return parent ? parent->GetNextCWndFromID(GetDlgCtrlID()) : nullptr;
}

CWnd *CWnd::GetNextCWndFromID(int id) const
{
    if (isSmallHandle(this))
        return smallHandleResult<CWnd *>(this);
    const CWndPrivate *d = boundBlock(this);
    if (!d)
        return nullptr;
    const auto next = d->items.upper_bound(id);
    return next != d->items.end() ? GetDlgItem(next->first) : nullptr;
}

CWnd *CWnd::GetDescendantWindow(int nID, BOOL) const
{
    if (isSmallHandle(this))
        return smallHandleResult<CWnd *>(this);
    return GetDlgItem(nID);
}

// ---- dialog items --------------------------------------------------------------------------------------

void CWnd::SetCtrlID(int id)
{
    if (CWndPrivate *d = boundBlock(this))
        d->ctrlId = id;
}

int CWnd::GetDlgCtrlID() const
{
    if (isSmallHandle(this))
        return smallHandleResult<int>(this);
    const CWndPrivate *d = boundBlock(this);
    return d ? d->ctrlId : 0;
}

void CWnd::SetDlgItem(int nID, HWND hWnd)
{
    if (CWndPrivate *d = boundBlock(this))
        d->items.insert({nID, hWnd});
}

CWnd *CWnd::GetDlgItem(int nID) const
{
    if (isSmallHandle(this))
        return smallHandleResult<CWnd *>(this);
    const CWndPrivate *d = boundBlock(this);
    if (!d)
        return nullptr;
    const auto item = d->items.find(nID);
    if (item == d->items.end() || !item->second) {
        static CWnd sNullWnd(nullptr);
        return &sNullWnd;
    }
    CWnd *window = FromHandle(item->second);
    if (!window)
        window = CreateCWndByHandle(item->second);
    window->SetParent(const_cast<CWnd *>(this));
    window->SetCtrlID(nID);
    return window;
}

void CWnd::GetDlgItem(int nID, HWND *) const
{
    if (!isSmallHandle(this))
        GetDlgItem(nID);
}

int CWnd::GetDlgItemTextW(int nID, CString &rString) const
{
    if (isSmallHandle(this))
        return smallHandleResult<int>(this);
    const CWnd *item = GetDlgItem(nID);
    if (!item)
        return 0;
    item->GetWindowTextW(rString);
    return rString.GetLength();
}

int CWnd::GetDlgItemTextW(int nID, wchar_t *lpStr, int nMaxCount) const
{
    if (isSmallHandle(this))
        return smallHandleResult<int>(this);
    const CWnd *item = GetDlgItem(nID);
    return item ? item->GetWindowTextW(lpStr, nMaxCount) : 0;
}

void CWnd::SetDlgItemTextW(int nID, const wchar_t *lpszString)
{
    if (isSmallHandle(this))
        return;
    if (CWnd *item = GetDlgItem(nID))
        item->SetWindowTextW(lpszString);
}

// ---- what every host class may hide or call back -------------------------------------------------------

void CWnd::PreSubclassWindow() {}
void CWnd::DoDataExchange(CDataExchange *) {}
BOOL CWnd::PreTranslateMessage(tagMSG *) { return TRUE; }
BOOL CWnd::OnCommand(WPARAM, LPARAM) { return TRUE; }
LRESULT CWnd::WindowProc(UINT, WPARAM, LPARAM) { return 0; }
BOOL CWnd::OnChildNotify(UINT, WPARAM, LPARAM, LRESULT *) { return FALSE; }
int CWnd::OnCreate(LPCREATESTRUCTW) { return 1; }
void CWnd::OnPaint() {}
void CWnd::OnDestroy() {}
void CWnd::OnClose() {}
void CWnd::OnTimer(UINT_PTR) {}
void CWnd::OnSize(UINT, int, int) {}
void CWnd::OnSizing(UINT, LPRECT) {}
void CWnd::OnGetMinMaxInfo(MINMAXINFO *) {}
void CWnd::OnChar(UINT, UINT, UINT) {}
void CWnd::OnLButtonDown(UINT, CPoint) {}
void CWnd::OnLButtonUp(UINT, CPoint) {}
void CWnd::OnMouseMove(UINT, CPoint) {}
BOOL CWnd::OnMouseWheel(UINT, short, CPoint) { return FALSE; }
HBRUSH CWnd::OnCtlColor(CDC *, CWnd *, UINT) { return nullptr; }

// ---- there so that ported code compiles ----------------------------------------------------------------

CWnd *CWnd::GetCapture() { return nullptr; }
CWnd *CWnd::SetCapture() { return nullptr; }
CMenu *CWnd::GetMenu() const { return nullptr; }
BOOL CWnd::SetMenu(CMenu *) { return TRUE; }
BOOL CWnd::SetForegroundWindow() { return FALSE; }
BOOL CWnd::SubclassWindow(HWND) { return TRUE; }
CWnd *CWnd::GetParentOwner() const { return nullptr; }
CWnd *CWnd::GetOwner() const { return nullptr; }
void CWnd::SetOwner(CWnd *) {}
CWnd *CWnd::GetTopLevelParent() const { return nullptr; }
void CWnd::ClientToScreen(tagRECT *) const {}
void CWnd::ScreenToClient(tagPOINT *) const {}
void CWnd::ScreenToClient(tagRECT *) const {}
void CWnd::MapWindowPoints(CWnd *, tagRECT *) const {}
void CWnd::MapWindowPoints(CWnd *, tagPOINT *, UINT) const {}
void CWnd::MoveWindow(const tagRECT *, BOOL) {}
void CWnd::CenterWindow(CWnd *) {}
void CWnd::BringWindowToTop() {}
BOOL CWnd::ModifyStyleEx(DWORD, DWORD, UINT) { return TRUE; }
DWORD CWnd::GetStyle() const { return 0; }
HICON CWnd::SetIcon(HICON, BOOL) { return nullptr; }
HICON CWnd::GetIcon(BOOL) const { return nullptr; }
void CWnd::SetFont(CFont *, BOOL) {}
CFont *CWnd::GetFont() const { return nullptr; }
BOOL CWnd::EnableToolTips(BOOL) { return TRUE; }
void CWnd::UpdateWindow() {}
BOOL CWnd::RedrawWindow(const tagRECT *, CRgn *, UINT) { return TRUE; }
BOOL CWnd::SetRedraw(BOOL bRedraw) { return bRedraw; }
BOOL CWnd::LockWindowUpdate() { return FALSE; }
void CWnd::UnlockWindowUpdate() {}
CDC *CWnd::GetWindowDC() { return nullptr; }
int CWnd::ReleaseDC(CDC *) { return 0; }
void CWnd::BeginWaitCursor() {}
void CWnd::EndWaitCursor() {}
BOOL CWnd::PostMessageW(UINT, WPARAM, LPARAM) { return TRUE; }
UINT_PTR CWnd::SetTimer(UINT_PTR, UINT, TIMERPROC) { return 0; }
BOOL CWnd::KillTimer(UINT_PTR) { return TRUE; }
LRESULT CWnd::Default() { return 0; }
BOOL CWnd::IsKindOf(const CRuntimeClass *) const { return TRUE; }
