// SPDX-License-Identifier: MIT
#pragma once

#include <type_traits>

#include "KxWinTypes.h"

/// \file
/// Points, sizes and rectangles, as MFC's CPoint, CSize and CRect, and Win32's functions on RECT.
///
/// Coordinates are signed and have 32 bits; y grows downwards. A rectangle's right and bottom edges lie
/// outside it, so that its width is right minus left. Sums that leave the 32 bits wrap around, as they do
/// on Windows; they are never undefined. The classes have the layout of the records they derive from and
/// may stand wherever those do. Nothing here allocates, throws or keeps a pointer.

class CRect;
class CSize;

/// Sums and differences of coordinates that wrap around at 32 bits instead of overflowing.
namespace KxWrapping {

constexpr int sum(int first, int second) noexcept
{
    return static_cast<int>(static_cast<unsigned int>(first) + static_cast<unsigned int>(second));
}

constexpr int difference(int first, int second) noexcept
{
    return static_cast<int>(static_cast<unsigned int>(first) - static_cast<unsigned int>(second));
}

constexpr int lowWord(unsigned long packed) noexcept
{
    return static_cast<short>(packed & 0xFFFFU);
}

constexpr int highWord(unsigned long packed) noexcept
{
    return static_cast<short>((packed >> 16) & 0xFFFFU);
}

} // namespace KxWrapping

// ---- Win32's functions on rectangles ----------------------------------------------------------------
//
// All of them answer FALSE and touch nothing when a pointer is null. The target may be one of the sources.

/// Writes the four edges.
constexpr BOOL SetRect(RECT *rect, int left, int top, int right, int bottom) noexcept
{
    if (!rect)
        return FALSE;
    rect->left = left;
    rect->top = top;
    rect->right = right;
    rect->bottom = bottom;
    return TRUE;
}

/// Sets all four edges to 0.
constexpr BOOL SetRectEmpty(RECT *rect) noexcept
{
    return SetRect(rect, 0, 0, 0, 0);
}

/// Copies \p source to \p target.
constexpr BOOL CopyRect(RECT *target, const RECT *source) noexcept
{
    return source ? SetRect(target, source->left, source->top, source->right, source->bottom) : FALSE;
}

/// TRUE when the four edges are equal; empty rectangles with different edges differ.
constexpr BOOL EqualRect(const RECT *first, const RECT *second) noexcept
{
    return first && second && first->left == second->left && first->top == second->top
        && first->right == second->right && first->bottom == second->bottom;
}

/// TRUE when the width or the height is 0 or negative. A null pointer is an empty rectangle.
constexpr BOOL IsRectEmpty(const RECT *rect) noexcept
{
    return !rect || rect->left >= rect->right || rect->top >= rect->bottom;
}

/// TRUE when the point is inside, or on the left or top edge; the right and bottom edges are outside.
constexpr BOOL PtInRect(const RECT *rect, POINT point) noexcept
{
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top
        && point.y < rect->bottom;
}

/// Moves the left and right edges apart by \p dx pixels each and top and bottom by \p dy; negative ones
/// bring them together.
constexpr BOOL InflateRect(RECT *rect, int dx, int dy) noexcept
{
    using namespace KxWrapping;
    return rect ? SetRect(rect, difference(rect->left, dx), difference(rect->top, dy), sum(rect->right, dx),
                          sum(rect->bottom, dy))
                : FALSE;
}

/// Moves the rectangle \p dx pixels to the right and \p dy pixels down.
constexpr BOOL OffsetRect(RECT *rect, int dx, int dy) noexcept
{
    using namespace KxWrapping;
    return rect ? SetRect(rect, sum(rect->left, dx), sum(rect->top, dy), sum(rect->right, dx),
                          sum(rect->bottom, dy))
                : FALSE;
}

/// Sets \p target to what both sources cover. FALSE, and the target all zeros, when they share no pixel.
constexpr BOOL IntersectRect(RECT *target, const RECT *first, const RECT *second) noexcept
{
    if (!target || !first || !second)
        return FALSE;
    const RECT common = {first->left > second->left ? first->left : second->left,
                         first->top > second->top ? first->top : second->top,
                         first->right < second->right ? first->right : second->right,
                         first->bottom < second->bottom ? first->bottom : second->bottom};
    if (IsRectEmpty(first) || IsRectEmpty(second) || IsRectEmpty(&common)) {
        SetRectEmpty(target);
        return FALSE;
    }
    return CopyRect(target, &common);
}

/// Sets \p target to the smallest rectangle that holds both sources. An empty source is ignored; with two
/// empty ones the answer is FALSE and the target all zeros.
constexpr BOOL UnionRect(RECT *target, const RECT *first, const RECT *second) noexcept
{
    if (!target || !first || !second)
        return FALSE;
    if (IsRectEmpty(first) && IsRectEmpty(second)) {
        SetRectEmpty(target);
        return FALSE;
    }
    if (IsRectEmpty(first))
        return CopyRect(target, second);
    if (IsRectEmpty(second))
        return CopyRect(target, first);
    return SetRect(target, first->left < second->left ? first->left : second->left,
                   first->top < second->top ? first->top : second->top,
                   first->right > second->right ? first->right : second->right,
                   first->bottom > second->bottom ? first->bottom : second->bottom);
}

/// Sets \p target to the smallest rectangle that holds what is left of \p first without \p second: \p first
/// itself, unless \p second covers its whole width or its whole height at one side. FALSE, and the target all
/// zeros, when nothing is left.
constexpr BOOL SubtractRect(RECT *target, const RECT *first, const RECT *second) noexcept
{
    if (!target || !first || !second)
        return FALSE;
    RECT rest = *first;
    RECT common = {0, 0, 0, 0};
    if (IntersectRect(&common, first, second)) {
        if (common.top == rest.top && common.bottom == rest.bottom) {
            if (common.left == rest.left)
                rest.left = common.right;
            else if (common.right == rest.right)
                rest.right = common.left;
        } else if (common.left == rest.left && common.right == rest.right) {
            if (common.top == rest.top)
                rest.top = common.bottom;
            else if (common.bottom == rest.bottom)
                rest.bottom = common.top;
        }
    }
    if (IsRectEmpty(&rest)) {
        SetRectEmpty(target);
        return FALSE;
    }
    return CopyRect(target, &rest);
}

// ---- The classes -------------------------------------------------------------------------------------
//
// CPoint and CRect may alias: CRect::TopLeft and BottomRight hand out halves of the rectangle as points.

/// A point; as MFC's CPoint.
class __attribute__((may_alias)) CPoint : public tagPOINT
{
public:
    constexpr CPoint() noexcept : tagPOINT{0, 0} {}
    constexpr CPoint(int initX, int initY) noexcept : tagPOINT{initX, initY} {}
    constexpr CPoint(POINT initPt) noexcept : tagPOINT(initPt) {}
    constexpr CPoint(SIZE initSize) noexcept : tagPOINT{initSize.cx, initSize.cy} {}
    /// x is the low word and y the high word, each read as a signed number of 16 bits, as mouse messages
    /// carry them.
    constexpr CPoint(LPARAM dwPoint) noexcept
        : tagPOINT{KxWrapping::lowWord(static_cast<unsigned long>(dwPoint)),
                   KxWrapping::highWord(static_cast<unsigned long>(dwPoint))}
    {
    }

    constexpr void Offset(int xOffset, int yOffset) noexcept
    {
        x = KxWrapping::sum(x, xOffset);
        y = KxWrapping::sum(y, yOffset);
    }
    constexpr void Offset(POINT point) noexcept { Offset(point.x, point.y); }
    constexpr void Offset(SIZE size) noexcept { Offset(size.cx, size.cy); }

    constexpr BOOL operator==(POINT point) const noexcept { return x == point.x && y == point.y; }
    constexpr BOOL operator!=(POINT point) const noexcept { return !(*this == point); }
    constexpr void operator+=(SIZE size) noexcept { Offset(size); }
    constexpr void operator+=(POINT point) noexcept { Offset(point); }
    constexpr void operator-=(SIZE size) noexcept { *this -= POINT{size.cx, size.cy}; }
    constexpr void operator-=(POINT point) noexcept
    {
        x = KxWrapping::difference(x, point.x);
        y = KxWrapping::difference(y, point.y);
    }

    constexpr CPoint operator+(SIZE size) const noexcept { return *this + POINT{size.cx, size.cy}; }
    constexpr CPoint operator+(POINT point) const noexcept
    {
        return CPoint(KxWrapping::sum(x, point.x), KxWrapping::sum(y, point.y));
    }
    /// The rectangle moved by this point's coordinates.
    constexpr CRect operator+(const RECT *lpRect) const noexcept;
    constexpr CSize operator-(POINT point) const noexcept;
    constexpr CPoint operator-(SIZE size) const noexcept
    {
        return CPoint(KxWrapping::difference(x, size.cx), KxWrapping::difference(y, size.cy));
    }
    /// The rectangle moved back by this point's coordinates.
    constexpr CRect operator-(const RECT *lpRect) const noexcept;
    constexpr CPoint operator-() const noexcept
    {
        return CPoint(KxWrapping::difference(0, x), KxWrapping::difference(0, y));
    }
};

/// A width and a height, or a distance; as MFC's CSize.
class CSize : public tagSIZE
{
public:
    constexpr CSize() noexcept : tagSIZE{0, 0} {}
    constexpr CSize(int initCX, int initCY) noexcept : tagSIZE{initCX, initCY} {}
    constexpr CSize(SIZE initSize) noexcept : tagSIZE(initSize) {}
    constexpr CSize(POINT initPt) noexcept : tagSIZE{initPt.x, initPt.y} {}
    /// cx is the low word and cy the high word, each read as a signed number of 16 bits.
    constexpr CSize(DWORD dwSize) noexcept
        : tagSIZE{KxWrapping::lowWord(dwSize), KxWrapping::highWord(dwSize)}
    {
    }

    constexpr BOOL operator==(SIZE size) const noexcept { return cx == size.cx && cy == size.cy; }
    constexpr BOOL operator!=(SIZE size) const noexcept { return !(*this == size); }
    constexpr void operator+=(SIZE size) noexcept { *this = *this + size; }
    constexpr void operator-=(SIZE size) noexcept { *this = *this - size; }

    constexpr CSize operator+(SIZE size) const noexcept
    {
        return CSize(KxWrapping::sum(cx, size.cx), KxWrapping::sum(cy, size.cy));
    }
    /// The point moved by this size.
    constexpr CPoint operator+(POINT point) const noexcept { return CPoint(point) + *this; }
    /// The rectangle moved by this size.
    constexpr CRect operator+(const RECT *lpRect) const noexcept;
    constexpr CSize operator-(SIZE size) const noexcept
    {
        return CSize(KxWrapping::difference(cx, size.cx), KxWrapping::difference(cy, size.cy));
    }
    /// The point moved back by this size.
    constexpr CPoint operator-(POINT point) const noexcept { return CPoint(point) - *this; }
    /// The rectangle moved back by this size.
    constexpr CRect operator-(const RECT *lpRect) const noexcept;
    constexpr CSize operator-() const noexcept
    {
        return CSize(KxWrapping::difference(0, cx), KxWrapping::difference(0, cy));
    }
};

/// A rectangle; as MFC's CRect. What it computes is told by the functions above of the same names; the
/// operations want a normalised rectangle (left below right, top below bottom) and do not check for it.
class __attribute__((may_alias)) CRect : public tagRECT
{
public:
    /// All four edges are 0.
    constexpr CRect() noexcept : tagRECT{0, 0, 0, 0} {}
    constexpr CRect(int l, int t, int r, int b) noexcept : tagRECT{l, t, r, b} {}
    constexpr CRect(const RECT &srcRect) noexcept : tagRECT(srcRect) {}
    /// A null pointer gives the rectangle of zeros.
    constexpr CRect(LPCRECT lpSrcRect) noexcept : tagRECT{0, 0, 0, 0} { CopyRect(lpSrcRect); }
    constexpr CRect(POINT point, SIZE size) noexcept
        : tagRECT{point.x, point.y, KxWrapping::sum(point.x, size.cx), KxWrapping::sum(point.y, size.cy)}
    {
    }
    constexpr CRect(POINT topLeft, POINT bottomRight) noexcept
        : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
    {
    }

    constexpr operator LPRECT() noexcept { return this; }
    constexpr operator LPCRECT() const noexcept { return this; }

    /// Right minus left; negative when the rectangle is not normalised.
    constexpr int Width() const noexcept { return KxWrapping::difference(right, left); }
    /// Bottom minus top; negative when the rectangle is not normalised.
    constexpr int Height() const noexcept { return KxWrapping::difference(bottom, top); }
    constexpr CSize Size() const noexcept { return CSize(Width(), Height()); }
    /// The corner itself, to read and to assign; valid as long as the rectangle is.
    CPoint &TopLeft() noexcept { return *reinterpret_cast<CPoint *>(this); }
    const CPoint &TopLeft() const noexcept { return *reinterpret_cast<const CPoint *>(this); }
    /// \copydoc TopLeft
    CPoint &BottomRight() noexcept { return *(reinterpret_cast<CPoint *>(this) + 1); }
    const CPoint &BottomRight() const noexcept { return *(reinterpret_cast<const CPoint *>(this) + 1); }
    /// Half of the sums of the edges, halves rounded towards 0.
    constexpr CPoint CenterPoint() const noexcept { return CPoint(middle(left, right), middle(top, bottom)); }

    constexpr BOOL IsRectEmpty() const noexcept { return ::IsRectEmpty(this); }
    /// TRUE when all four edges are 0.
    constexpr BOOL IsRectNull() const noexcept { return !left && !top && !right && !bottom; }
    constexpr BOOL PtInRect(POINT point) const noexcept { return ::PtInRect(this, point); }
    constexpr BOOL EqualRect(LPCRECT lpRect) const noexcept { return ::EqualRect(this, lpRect); }

    constexpr void SetRect(int x1, int y1, int x2, int y2) noexcept { ::SetRect(this, x1, y1, x2, y2); }
    constexpr void SetRectEmpty() noexcept { ::SetRectEmpty(this); }
    constexpr void CopyRect(LPCRECT lpSrcRect) noexcept { ::CopyRect(this, lpSrcRect); }

    /// Swaps left with right and top with bottom where the first is the greater one.
    constexpr void NormalizeRect() noexcept
    {
        if (left > right)
            SetRect(right, top, left, bottom);
        if (top > bottom)
            SetRect(left, bottom, right, top);
    }

    constexpr void InflateRect(int x, int y) noexcept { ::InflateRect(this, x, y); }
    constexpr void InflateRect(SIZE size) noexcept { InflateRect(size.cx, size.cy); }
    constexpr void InflateRect(LPCRECT lpRect) noexcept
    {
        InflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
    }
    constexpr void InflateRect(int l, int t, int r, int b) noexcept
    {
        SetRect(KxWrapping::difference(left, l), KxWrapping::difference(top, t), KxWrapping::sum(right, r),
                KxWrapping::sum(bottom, b));
    }
    constexpr void DeflateRect(int x, int y) noexcept { DeflateRect(x, y, x, y); }
    constexpr void DeflateRect(SIZE size) noexcept { DeflateRect(size.cx, size.cy); }
    constexpr void DeflateRect(LPCRECT lpRect) noexcept
    {
        DeflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
    }
    constexpr void DeflateRect(int l, int t, int r, int b) noexcept
    {
        SetRect(KxWrapping::sum(left, l), KxWrapping::sum(top, t), KxWrapping::difference(right, r),
                KxWrapping::difference(bottom, b));
    }

    constexpr void OffsetRect(int x, int y) noexcept { ::OffsetRect(this, x, y); }
    constexpr void OffsetRect(POINT point) noexcept { OffsetRect(point.x, point.y); }
    constexpr void OffsetRect(SIZE size) noexcept { OffsetRect(size.cx, size.cy); }
    /// Moves the left edge to \p x, keeping the width.
    constexpr void MoveToX(int x) noexcept { OffsetRect(KxWrapping::difference(x, left), 0); }
    /// Moves the top edge to \p y, keeping the height.
    constexpr void MoveToY(int y) noexcept { OffsetRect(0, KxWrapping::difference(y, top)); }
    constexpr void MoveToXY(int x, int y) noexcept
    {
        MoveToX(x);
        MoveToY(y);
    }
    constexpr void MoveToXY(POINT point) noexcept { MoveToXY(point.x, point.y); }

    constexpr BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept
    {
        return ::IntersectRect(this, lpRect1, lpRect2);
    }
    constexpr BOOL UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept
    {
        return ::UnionRect(this, lpRect1, lpRect2);
    }
    constexpr BOOL SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) noexcept
    {
        return ::SubtractRect(this, lpRectSrc1, lpRectSrc2);
    }

    constexpr void operator=(const RECT &srcRect) noexcept { CopyRect(&srcRect); }
    constexpr BOOL operator==(const RECT &rect) const noexcept { return EqualRect(&rect); }
    constexpr BOOL operator!=(const RECT &rect) const noexcept { return !EqualRect(&rect); }
    constexpr void operator+=(POINT point) noexcept { OffsetRect(point); }
    constexpr void operator+=(SIZE size) noexcept { OffsetRect(size); }
    constexpr void operator+=(LPCRECT lpRect) noexcept { InflateRect(lpRect); }
    constexpr void operator-=(POINT point) noexcept { *this = *this - point; }
    constexpr void operator-=(SIZE size) noexcept { *this = *this - size; }
    constexpr void operator-=(LPCRECT lpRect) noexcept { DeflateRect(lpRect); }
    constexpr void operator&=(const RECT &rect) noexcept { IntersectRect(this, &rect); }
    constexpr void operator|=(const RECT &rect) noexcept { UnionRect(this, &rect); }

    constexpr CRect operator+(POINT point) const noexcept
    {
        CRect moved(*this);
        moved.OffsetRect(point);
        return moved;
    }
    constexpr CRect operator+(SIZE size) const noexcept { return *this + POINT{size.cx, size.cy}; }
    /// Inflated by each edge's number of pixels.
    constexpr CRect operator+(LPCRECT lpRect) const noexcept
    {
        CRect inflated(*this);
        inflated.InflateRect(lpRect);
        return inflated;
    }
    constexpr CRect operator-(POINT point) const noexcept { return *this + -CPoint(point); }
    constexpr CRect operator-(SIZE size) const noexcept { return *this + -CSize(size); }
    /// Deflated by each edge's number of pixels; not SubtractRect.
    constexpr CRect operator-(LPCRECT lpRect) const noexcept
    {
        CRect deflated(*this);
        deflated.DeflateRect(lpRect);
        return deflated;
    }
    /// \overload
    constexpr CRect operator-(const RECT &rect) const noexcept { return *this - &rect; }
    constexpr CRect operator&(const RECT &rect2) const noexcept
    {
        CRect common;
        common.IntersectRect(this, &rect2);
        return common;
    }
    constexpr CRect operator|(const RECT &rect2) const noexcept
    {
        CRect both;
        both.UnionRect(this, &rect2);
        return both;
    }

private:
    static constexpr int middle(int first, int second) noexcept
    {
        return static_cast<int>((static_cast<long>(first) + second) / 2);
    }
};

constexpr CSize CPoint::operator-(POINT point) const noexcept
{
    return CSize(KxWrapping::difference(x, point.x), KxWrapping::difference(y, point.y));
}

constexpr CRect CPoint::operator+(const RECT *lpRect) const noexcept
{
    return CRect(lpRect) + *this;
}

constexpr CRect CPoint::operator-(const RECT *lpRect) const noexcept
{
    return CRect(lpRect) - *this;
}

constexpr CRect CSize::operator+(const RECT *lpRect) const noexcept
{
    return CRect(lpRect) + *this;
}

constexpr CRect CSize::operator-(const RECT *lpRect) const noexcept
{
    return CRect(lpRect) - *this;
}

static_assert(sizeof(CPoint) == sizeof(POINT) && alignof(CPoint) == alignof(POINT));
static_assert(sizeof(CSize) == sizeof(SIZE) && alignof(CSize) == alignof(SIZE));
static_assert(sizeof(CRect) == sizeof(RECT) && alignof(CRect) == alignof(RECT));
static_assert(std::is_standard_layout_v<CPoint> && std::is_trivially_copyable_v<CPoint>);
static_assert(std::is_standard_layout_v<CSize> && std::is_trivially_copyable_v<CSize>);
static_assert(std::is_standard_layout_v<CRect> && std::is_trivially_copyable_v<CRect>);
