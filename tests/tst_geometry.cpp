// SPDX-License-Identifier: MIT
// Points, sizes, rectangles and Win32's functions on rectangles.

#include "KxTestCase.h"

#include <afxwin.h>

#include <climits>
#include <type_traits>

Q_DECLARE_METATYPE(CRect)
Q_DECLARE_METATYPE(CPoint)
Q_DECLARE_METATYPE(CSize)

namespace QTest {

template<>
char *toString(const CRect &rect)
{
    return qstrdup(qPrintable(QStringLiteral("(%1, %2, %3, %4)")
                                  .arg(rect.left).arg(rect.top).arg(rect.right).arg(rect.bottom)));
}

template<>
char *toString(const CPoint &point)
{
    return qstrdup(qPrintable(QStringLiteral("(%1, %2)").arg(point.x).arg(point.y)));
}

template<>
char *toString(const CSize &size)
{
    return qstrdup(qPrintable(QStringLiteral("(%1 by %2)").arg(size.cx).arg(size.cy)));
}

} // namespace QTest

static_assert(std::is_base_of_v<tagRECT, CRect> && sizeof(CRect) == 16);
static_assert(std::is_base_of_v<tagPOINT, CPoint> && sizeof(CPoint) == 8);
static_assert(std::is_base_of_v<tagSIZE, CSize> && sizeof(CSize) == 8);
static_assert(!std::is_polymorphic_v<CRect>);
static_assert(!std::is_polymorphic_v<CPoint> && !std::is_polymorphic_v<CSize>);
static_assert(CRect(20, 30, 80, 70).Width() == 60, "usable as constants");
static_assert((CPoint(1, 2) + CSize(3, 4)).y == 6, "usable as constants");

namespace {

template<typename Change>
CRect changed(CRect rect, Change change)
{
    change(rect);
    return rect;
}

/// What a rectangle's left edge is once its corner was written as a point.
template<typename Rectangle, typename Point>
__attribute__((noinline)) int edgeAfterCorner(Rectangle rect, Point corner)
{
    rect.left = 7;
    corner.x = 8;
    return rect.left;
}

/// A rectangle that no operation gives by itself: what is left of it was not written.
const CRect untouched(-7, -8, -9, -10);

} // namespace

class TestGeometry : public KxTestCase
{
    Q_OBJECT

private slots:
    void rectangle_data();
    void rectangle();
    void number_data();
    void number();
    void answer_data();
    void answer();
    void combination_data();
    void combination();
    void point_data();
    void point();
    void size_data();
    void size();
    void cornerIsPartOfTheRectangle();
    void convertsToThePointersOfTheRecord();
    void nullPointersAreRefused();
    void targetMayBeASource();
};

void TestGeometry::rectangle_data()
{
    QTest::addColumn<CRect>("actual");
    QTest::addColumn<CRect>("expected");

    const RECT record = {0, 0, 100, 50};
    QTest::newRow("without arguments all zeros") << CRect() << CRect(0, 0, 0, 0);
    QTest::newRow("from a record") << CRect(record) << CRect(0, 0, 100, 50);
    QTest::newRow("from a pointer to a record") << CRect(&record) << CRect(0, 0, 100, 50);
    QTest::newRow("from a null pointer all zeros") << CRect(static_cast<LPCRECT>(nullptr))
        << CRect(0, 0, 0, 0);
    QTest::newRow("from a point and a size") << CRect(CPoint(1, 2), CSize(100, 50)) << CRect(1, 2, 101, 52);
    QTest::newRow("from two points") << CRect(CPoint(1, 2), CPoint(100, 50)) << CRect(1, 2, 100, 50);
    QTest::newRow("assigned a record") << changed(untouched, [&](CRect &r) { r = record; })
                                       << CRect(0, 0, 100, 50);

    QTest::newRow("CopyRect of a flat rectangle")
        << changed({}, [](CRect &r) { r.CopyRect(CRect(35, 10, 125, 10)); }) << CRect(35, 10, 125, 10);
    QTest::newRow("SetRect") << changed({}, [](CRect &r) { r.SetRect(256, 257, 512, 513); })
                             << CRect(256, 257, 512, 513);
    QTest::newRow("SetRectEmpty") << changed(untouched, [](CRect &r) { r.SetRectEmpty(); })
        << CRect(0, 0, 0, 0);

    QTest::newRow("InflateRect by two numbers")
        << changed({0, 0, 300, 300}, [](CRect &r) { r.InflateRect(50, 200); }) << CRect(-50, -200, 350, 500);
    QTest::newRow("InflateRect by a size")
        << changed({0, 0, 300, 300}, [](CRect &r) { r.InflateRect(CSize(50, 200)); })
        << CRect(-50, -200, 350, 500);
    QTest::newRow("InflateRect by four numbers")
        << changed({10, 10, 50, 50}, [](CRect &r) { r.InflateRect(1, 2, 3, 4); }) << CRect(9, 8, 53, 54);
    QTest::newRow("InflateRect by a rectangle")
        << changed({10, 10, 50, 50}, [](CRect &r) { r.InflateRect(CRect(1, 2, 3, 4)); })
        << CRect(9, 8, 53, 54);
    QTest::newRow("InflateRect by negative numbers deflates")
        << changed({10, 10, 50, 50}, [](CRect &r) { r.InflateRect(-1, -2); }) << CRect(11, 12, 49, 48);
    QTest::newRow("DeflateRect by two numbers")
        << changed({10, 10, 50, 50}, [](CRect &r) { r.DeflateRect(1, 2); }) << CRect(11, 12, 49, 48);
    QTest::newRow("DeflateRect by a size")
        << changed({10, 10, 50, 50}, [](CRect &r) { r.DeflateRect(CSize(1, 2)); }) << CRect(11, 12, 49, 48);
    QTest::newRow("DeflateRect by a rectangle")
        << changed({10, 10, 50, 50}, [](CRect &r) { r.DeflateRect(CRect(1, 2, 3, 4)); })
        << CRect(11, 12, 47, 46);
    QTest::newRow("DeflateRect by four numbers")
        << changed({10, 10, 50, 50}, [](CRect &r) { r.DeflateRect(1, 2, 3, 4); }) << CRect(11, 12, 47, 46);

    QTest::newRow("OffsetRect by two numbers")
        << changed({0, 0, 35, 35}, [](CRect &r) { r.OffsetRect(230, 231); }) << CRect(230, 231, 265, 266);
    QTest::newRow("OffsetRect by a point")
        << changed({0, 0, 35, 35}, [](CRect &r) { r.OffsetRect(CPoint(-1, 2)); }) << CRect(-1, 2, 34, 37);
    QTest::newRow("OffsetRect by a size")
        << changed({0, 0, 35, 35}, [](CRect &r) { r.OffsetRect(CSize(-1, 2)); }) << CRect(-1, 2, 34, 37);
    QTest::newRow("MoveToX") << changed({0, 0, 100, 100}, [](CRect &r) { r.MoveToX(10); })
                             << CRect(10, 0, 110, 100);
    QTest::newRow("MoveToY") << changed({0, 0, 100, 100}, [](CRect &r) { r.MoveToY(10); })
                             << CRect(0, 10, 100, 110);
    QTest::newRow("MoveToXY by two numbers")
        << changed({5, 6, 105, 206}, [](CRect &r) { r.MoveToXY(10, 20); }) << CRect(10, 20, 110, 220);
    QTest::newRow("MoveToXY by a point")
        << changed({5, 6, 105, 206}, [](CRect &r) { r.MoveToXY(CPoint(10, 20)); }) << CRect(10, 20, 110, 220);

    QTest::newRow("NormalizeRect swaps both directions")
        << changed({250, 310, 110, 100}, [](CRect &r) { r.NormalizeRect(); }) << CRect(110, 100, 250, 310);
    QTest::newRow("NormalizeRect swaps left and right alone")
        << changed({250, 100, 110, 310}, [](CRect &r) { r.NormalizeRect(); }) << CRect(110, 100, 250, 310);
    QTest::newRow("NormalizeRect swaps top and bottom alone")
        << changed({110, 310, 250, 100}, [](CRect &r) { r.NormalizeRect(); }) << CRect(110, 100, 250, 310);
    QTest::newRow("NormalizeRect leaves a normal one")
        << changed({110, 100, 250, 310}, [](CRect &r) { r.NormalizeRect(); }) << CRect(110, 100, 250, 310);

    const CRect rect(100, 235, 200, 335);
    QTest::newRow("rectangle + point") << rect + CPoint(35, 65) << CRect(135, 300, 235, 400);
    QTest::newRow("rectangle + size") << rect + CSize(35, 65) << CRect(135, 300, 235, 400);
    QTest::newRow("rectangle + rectangle inflates") << rect + CRect(1, 2, 3, 4) << CRect(99, 233, 203, 339);
    QTest::newRow("rectangle - point") << rect - CPoint(35, 65) << CRect(65, 170, 165, 270);
    QTest::newRow("rectangle - size") << rect - CSize(35, 65) << CRect(65, 170, 165, 270);
    QTest::newRow("rectangle - rectangle deflates") << rect - CRect(1, 2, 3, 4) << CRect(101, 237, 197, 331);
    QTest::newRow("rectangle - pointer deflates") << rect - &record << CRect(100, 235, 100, 285);
    QTest::newRow("rectangle += point") << changed(rect, [](CRect &r) { r += CPoint(35, 65); })
                                        << CRect(135, 300, 235, 400);
    QTest::newRow("rectangle += size") << changed(rect, [](CRect &r) { r += CSize(35, 65); })
                                       << CRect(135, 300, 235, 400);
    QTest::newRow("rectangle += rectangle") << changed(rect, [](CRect &r) { r += CRect(1, 2, 3, 4); })
                                            << CRect(99, 233, 203, 339);
    QTest::newRow("rectangle -= point") << changed(rect, [](CRect &r) { r -= CPoint(35, 65); })
                                        << CRect(65, 170, 165, 270);
    QTest::newRow("rectangle -= size") << changed(rect, [](CRect &r) { r -= CSize(35, 65); })
                                       << CRect(65, 170, 165, 270);
    QTest::newRow("rectangle -= rectangle") << changed(rect, [](CRect &r) { r -= CRect(1, 2, 3, 4); })
                                            << CRect(101, 237, 197, 331);
    QTest::newRow("rectangle & rectangle") << (CRect(100, 0, 200, 300) & CRect(0, 100, 300, 200))
                                           << CRect(100, 100, 200, 200);
    QTest::newRow("rectangle | rectangle") << (CRect(100, 0, 200, 300) | CRect(0, 100, 300, 200))
                                           << CRect(0, 0, 300, 300);
    QTest::newRow("rectangle &= rectangle")
        << changed({125, 0, 150, 200}, [](CRect &r) { r &= CRect(0, 75, 350, 95); })
        << CRect(125, 75, 150, 95);
    QTest::newRow("rectangle |= rectangle")
        << changed({100, 0, 200, 300}, [](CRect &r) { r |= CRect(0, 100, 300, 200); })
        << CRect(0, 0, 300, 300);
    QTest::newRow("point + rectangle moves it") << CPoint(25, -19) + CRect(125, 219, 325, 419)
                                                << CRect(150, 200, 350, 400);
    QTest::newRow("point - rectangle moves it back") << CPoint(25, -19) - CRect(125, 200, 325, 400)
                                                     << CRect(100, 219, 300, 419);
    QTest::newRow("size + rectangle moves it") << CSize(25, -19) + CRect(125, 219, 325, 419)
                                               << CRect(150, 200, 350, 400);
    QTest::newRow("size - rectangle moves it back") << CSize(25, -19) - CRect(125, 200, 325, 400)
                                                    << CRect(100, 219, 300, 419);

    QTest::newRow("OffsetRect past the greatest number wraps")
        << changed({0, 0, INT_MAX, INT_MAX}, [](CRect &r) { r.OffsetRect(1, 2); })
        << CRect(1, 2, INT_MIN, INT_MIN + 1);
    QTest::newRow("InflateRect past the smallest number wraps")
        << changed({INT_MIN, INT_MIN, INT_MAX, INT_MAX}, [](CRect &r) { r.InflateRect(1, 2); })
        << CRect(INT_MAX, INT_MAX - 1, INT_MIN, INT_MIN + 1);
    QTest::newRow("DeflateRect by the smallest number wraps")
        << changed({0, 0, 0, 0}, [](CRect &r) { r.DeflateRect(INT_MIN, 0); })
        << CRect(INT_MIN, 0, INT_MIN, 0);
    QTest::newRow("minus the smallest point wraps") << CRect(1, 1, 2, 2) - CPoint(INT_MIN, INT_MIN)
                                                   
        << CRect(INT_MIN + 1, INT_MIN + 1, INT_MIN + 2, INT_MIN + 2);
    QTest::newRow("the greatest size at a point wraps") << CRect(CPoint(1, 1), CSize(INT_MAX, 3))
                                                        << CRect(1, 1, INT_MIN, 4);
    QTest::newRow("MoveToX across the whole range keeps the width")
        << changed({INT_MIN, 0, INT_MIN + 10, 1}, [](CRect &r) { r.MoveToX(INT_MAX - 10); })
        << CRect(INT_MAX - 10, 0, INT_MAX, 1);

    QTest::newRow("free SetRect") << changed({}, [](CRect &r) { ::SetRect(&r, 1, 2, 3, 4); })
        << CRect(1, 2, 3, 4);
    QTest::newRow("free SetRectEmpty") << changed(untouched, [](CRect &r) { ::SetRectEmpty(&r); }) << CRect();
    QTest::newRow("free CopyRect") << changed({}, [&](CRect &r) { ::CopyRect(&r, &record); })
                                   << CRect(0, 0, 100, 50);
    QTest::newRow("free InflateRect") << changed({10, 10, 50, 50}, [](CRect &r) { ::InflateRect(&r, 1, 2); })
                                      << CRect(9, 8, 51, 52);
    QTest::newRow("free OffsetRect") << changed({10, 10, 50, 50}, [](CRect &r) { ::OffsetRect(&r, 1, -2); })
                                     << CRect(11, 8, 51, 48);
}

void TestGeometry::rectangle()
{
    QFETCH(CRect, actual);
    QTEST(actual, "expected");
}

void TestGeometry::number_data()
{
    QTest::addColumn<int>("actual");
    QTest::addColumn<int>("expected");

    QTest::newRow("Width is right minus left") << CRect(20, 30, 80, 70).Width() << 60;
    QTest::newRow("Height is bottom minus top") << CRect(20, 30, 80, 70).Height() << 40;
    QTest::newRow("Width may be negative") << CRect(80, 30, 20, 70).Width() << -60;
    QTest::newRow("Height may be negative") << CRect(20, 70, 80, 30).Height() << -40;
    QTest::newRow("Width of the whole range wraps") << CRect(INT_MIN, 0, INT_MAX, 0).Width() << -1;
    QTest::newRow("Height of the whole range wraps") << CRect(0, INT_MIN, 0, INT_MAX).Height() << -1;
}

void TestGeometry::number()
{
    QFETCH(int, actual);
    QTEST(actual, "expected");
}

void TestGeometry::answer_data()
{
    QTest::addColumn<bool>("actual");
    QTest::addColumn<bool>("expected");

    const CRect inside(5, 6, 100, 101);
    QTest::newRow("PtInRect: a point within") << inside.PtInRect(CPoint(35, 50)) << true;
    QTest::newRow("PtInRect: a point beyond") << inside.PtInRect(CPoint(125, 298)) << false;
    QTest::newRow("PtInRect: the left edge is in") << inside.PtInRect(CPoint(5, 65)) << true;
    QTest::newRow("PtInRect: the top edge is in") << inside.PtInRect(CPoint(88, 6)) << true;
    QTest::newRow("PtInRect: the right edge is out") << inside.PtInRect(CPoint(100, 98)) << false;
    QTest::newRow("PtInRect: the bottom edge is out") << inside.PtInRect(CPoint(35, 101)) << false;
    QTest::newRow("PtInRect: the last column is in") << inside.PtInRect(CPoint(99, 98)) << true;
    QTest::newRow("PtInRect: the last row is in") << inside.PtInRect(CPoint(35, 100)) << true;
    QTest::newRow("PtInRect: left of it") << inside.PtInRect(CPoint(4, 65)) << false;
    QTest::newRow("PtInRect: above it") << inside.PtInRect(CPoint(88, 5)) << false;
    QTest::newRow("PtInRect: nothing is in an empty one") << CRect().PtInRect(CPoint(0, 0)) << false;
    QTest::newRow("PtInRect takes a record") << inside.PtInRect(POINT{35, 50}) << true;
    QTest::newRow("free PtInRect: in") << ::PtInRect(inside, POINT{5, 6}) << true;
    QTest::newRow("free PtInRect: out") << ::PtInRect(inside, POINT{100, 101}) << false;

    QTest::newRow("IsRectEmpty: all zeros") << CRect(0, 0, 0, 0).IsRectEmpty() << true;
    QTest::newRow("IsRectEmpty: no size, not at zero") << CRect(35, 35, 35, 35).IsRectEmpty() << true;
    QTest::newRow("IsRectEmpty: no width") << CRect(35, 35, 35, 36).IsRectEmpty() << true;
    QTest::newRow("IsRectEmpty: no height") << CRect(35, 35, 36, 35).IsRectEmpty() << true;
    QTest::newRow("IsRectEmpty: negative width") << CRect(36, 35, 35, 36).IsRectEmpty() << true;
    QTest::newRow("IsRectEmpty: negative height") << CRect(35, 36, 36, 35).IsRectEmpty() << true;
    QTest::newRow("IsRectEmpty: one pixel") << CRect(35, 50, 36, 51).IsRectEmpty() << false;
    QTest::newRow("IsRectEmpty: the whole range") << CRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX).IsRectEmpty()
                                                  << false;
    QTest::newRow("IsRectNull: all zeros") << CRect(0, 0, 0, 0).IsRectNull() << true;
    QTest::newRow("IsRectNull: left") << CRect(1, 0, 0, 0).IsRectNull() << false;
    QTest::newRow("IsRectNull: top") << CRect(0, 1, 0, 0).IsRectNull() << false;
    QTest::newRow("IsRectNull: right") << CRect(0, 0, 35, 0).IsRectNull() << false;
    QTest::newRow("IsRectNull: bottom") << CRect(0, 0, 0, 50).IsRectNull() << false;

    const CRect rect(35, 150, 10, 25);
    QTest::newRow("EqualRect: equal") << rect.EqualRect(CRect(35, 150, 10, 25)) << true;
    QTest::newRow("EqualRect: unequal") << rect.EqualRect(CRect(98, 999, 6, 3)) << false;
    QTest::newRow("EqualRect: empty ones with other edges") << CRect(1, 1, 1, 1).EqualRect(CRect()) << false;
    QTest::newRow("EqualRect: a null pointer") << rect.EqualRect(nullptr) << false;
    QTest::newRow("==: equal") << (rect == RECT{35, 150, 10, 25}) << true;
    QTest::newRow("==: left differs") << (rect == RECT{36, 150, 10, 25}) << false;
    QTest::newRow("==: top differs") << (rect == RECT{35, 151, 10, 25}) << false;
    QTest::newRow("==: right differs") << (rect == RECT{35, 150, 11, 25}) << false;
    QTest::newRow("==: bottom differs") << (rect == RECT{35, 150, 10, 26}) << false;
    QTest::newRow("!=: equal") << (rect != RECT{35, 150, 10, 25}) << false;
    QTest::newRow("!=: unequal") << (rect != RECT{98, 999, 6, 3}) << true;

    QTest::newRow("point ==: equal") << (CPoint(1, 2) == POINT{1, 2}) << true;
    QTest::newRow("point ==: x differs") << (CPoint(1, 2) == POINT{3, 2}) << false;
    QTest::newRow("point ==: y differs") << (CPoint(1, 2) == POINT{1, 3}) << false;
    QTest::newRow("point !=: equal") << (CPoint(1, 2) != CPoint(1, 2)) << false;
    QTest::newRow("point !=: unequal") << (CPoint(1, 2) != CPoint(1, 3)) << true;
    QTest::newRow("size ==: equal") << (CSize(1, 2) == SIZE{1, 2}) << true;
    QTest::newRow("size ==: width differs") << (CSize(1, 2) == SIZE{3, 2}) << false;
    QTest::newRow("size ==: height differs") << (CSize(1, 2) == SIZE{1, 3}) << false;
    QTest::newRow("size !=: equal") << (CSize(1, 2) != CSize(1, 2)) << false;
    QTest::newRow("size !=: unequal") << (CSize(1, 2) != CSize(1, 3)) << true;
}

void TestGeometry::answer()
{
    QFETCH(bool, actual);
    QTEST(actual, "expected");
}

using Combination = BOOL (CRect::*)(LPCRECT, LPCRECT);
using FreeCombination = BOOL (*)(RECT *, const RECT *, const RECT *);
Q_DECLARE_METATYPE(Combination)
Q_DECLARE_METATYPE(FreeCombination)

void TestGeometry::combination_data()
{
    QTest::addColumn<Combination>("member");
    QTest::addColumn<FreeCombination>("function");
    QTest::addColumn<CRect>("first");
    QTest::addColumn<CRect>("second");
    QTest::addColumn<bool>("expectedAnswer");
    QTest::addColumn<CRect>("expected");

    const auto row = [](const char *name, Combination member, FreeCombination function, const CRect &first,
                        const CRect &second, bool expectedAnswer, const CRect &expected) {
        QTest::newRow(name) << member << function << first << second << expectedAnswer << expected;
    };
    const auto intersect = [row](const char *name, const CRect &first, const CRect &second, bool answer,
                                 const CRect &expected) {
        row(name, &CRect::IntersectRect, &::IntersectRect, first, second, answer, expected);
    };
    const auto unite = [row](const char *name, const CRect &first, const CRect &second, bool answer,
                             const CRect &expected) {
        row(name, &CRect::UnionRect, &::UnionRect, first, second, answer, expected);
    };
    const auto subtract = [row](const char *name, const CRect &first, const CRect &second, bool answer,
                                const CRect &expected) {
        row(name, &CRect::SubtractRect, &::SubtractRect, first, second, answer, expected);
    };
    const CRect none;

    intersect("IntersectRect: crossing", {125, 0, 150, 200}, {0, 75, 350, 95}, true, {125, 75, 150, 95});
    intersect("IntersectRect: second inside first", {0, 0, 9, 9}, {2, 3, 4, 5}, true, {2, 3, 4, 5});
    intersect("IntersectRect: first inside second", {2, 3, 4, 5}, {0, 0, 9, 9}, true, {2, 3, 4, 5});
    intersect("IntersectRect: apart", {0, 0, 10, 10}, {20, 20, 30, 30}, false, none);
    intersect("IntersectRect: touching at an edge", {0, 0, 10, 10}, {10, 0, 20, 10}, false, none);
    intersect("IntersectRect: touching at a corner", {0, 0, 10, 10}, {10, 10, 20, 20}, false, none);
    intersect("IntersectRect: an empty one inside", {0, 0, 10, 10}, {5, 5, 5, 9}, false, none);
    intersect("IntersectRect: one turned inside out", {0, 0, 10, 10}, {8, 8, 2, 2}, false, none);
    intersect("IntersectRect: the whole range", {INT_MIN, INT_MIN, INT_MAX, INT_MAX}, {1, 2, 3, 4}, true,
              {1, 2, 3, 4});

    unite("UnionRect: crossing", {100, 0, 200, 300}, {0, 100, 300, 200}, true, {0, 0, 300, 300});
    unite("UnionRect: apart", {0, 0, 10, 10}, {20, 21, 30, 31}, true, {0, 0, 30, 31});
    unite("UnionRect: an empty first is ignored", {500, 500, 500, 600}, {1, 2, 3, 4}, true, {1, 2, 3, 4});
    unite("UnionRect: an empty second is ignored", {1, 2, 3, 4}, {-50, -50, -60, -40}, true, {1, 2, 3, 4});
    unite("UnionRect: two empty ones", {1, 2, 1, 4}, {5, 6, 9, 6}, false, none);

    subtract("SubtractRect: a corner covered changes nothing", {10, 10, 100, 100}, {50, 50, 150, 150}, true,
             {10, 10, 100, 100});
    subtract("SubtractRect: the right side covered", {10, 10, 100, 100}, {50, 10, 150, 150}, true,
             {10, 10, 50, 100});
    subtract("SubtractRect: the left side covered", {10, 10, 100, 100}, {0, 0, 40, 150}, true,
             {40, 10, 100, 100});
    subtract("SubtractRect: the top covered", {10, 10, 100, 100}, {0, 0, 150, 40}, true, {10, 40, 100, 100});
    subtract("SubtractRect: the bottom covered", {10, 10, 100, 100}, {10, 70, 100, 100}, true,
             {10, 10, 100, 70});
    subtract("SubtractRect: a stripe through the middle changes nothing", {10, 10, 100, 100},
             {40, 0, 60, 150}, true, {10, 10, 100, 100});
    subtract("SubtractRect: a stripe across the middle changes nothing", {10, 10, 100, 100},
             {0, 40, 150, 60}, true, {10, 10, 100, 100});
    subtract("SubtractRect: the upper left corner covered changes nothing", {10, 10, 100, 100},
             {0, 0, 60, 40}, true, {10, 10, 100, 100});
    subtract("SubtractRect: a hole changes nothing", {10, 10, 100, 100}, {40, 40, 60, 60}, true,
             {10, 10, 100, 100});
    subtract("SubtractRect: apart changes nothing", {10, 10, 100, 100}, {200, 10, 300, 100}, true,
             {10, 10, 100, 100});
    subtract("SubtractRect: an empty second changes nothing", {10, 10, 100, 100}, {50, 10, 50, 100}, true,
             {10, 10, 100, 100});
    subtract("SubtractRect: nothing left", {10, 10, 100, 100}, {10, 10, 100, 100}, false, none);
    subtract("SubtractRect: nothing left under a greater one", {10, 10, 100, 100}, {0, 0, 200, 200}, false,
             none);
    subtract("SubtractRect: an empty first", {10, 10, 10, 100}, {200, 200, 300, 300}, false, none);
}

void TestGeometry::combination()
{
    QFETCH(Combination, member);
    QFETCH(FreeCombination, function);
    QFETCH(CRect, first);
    QFETCH(CRect, second);
    QFETCH(bool, expectedAnswer);
    QFETCH(CRect, expected);

    CRect byMember = untouched;
    QCOMPARE((byMember.*member)(first, second), expectedAnswer);
    QCOMPARE(byMember, expected);
    RECT byFunction = untouched;
    QCOMPARE(function(&byFunction, &first, &second), expectedAnswer);
    QCOMPARE(CRect(byFunction), expected);
}

void TestGeometry::point_data()
{
    QTest::addColumn<CPoint>("actual");
    QTest::addColumn<CPoint>("expected");

    const auto moved = [](CPoint point, auto change) {
        change(point);
        return point;
    };
    QTest::newRow("without arguments zeros") << CPoint() << CPoint(0, 0);
    QTest::newRow("from a record") << CPoint(POINT{35, 95}) << CPoint(35, 95);
    QTest::newRow("from a size") << CPoint(SIZE{300, 10}) << CPoint(300, 10);
    QTest::newRow("from two words") << CPoint(LPARAM(MAKELONG(35, 95))) << CPoint(35, 95);
    QTest::newRow("the words are signed") << CPoint(LPARAM(0xFFFEFFFF)) << CPoint(-1, -2);
    QTest::newRow("the upper half of the number is not looked at") << CPoint(LPARAM(0x7777000000020001))
                                                                   << CPoint(1, 2);
    QTest::newRow("Offset by two numbers") << moved({10, 20}, [](CPoint &p) { p.Offset(3, -4); })
                                           << CPoint(13, 16);
    QTest::newRow("Offset by a point") << moved({10, 20}, [](CPoint &p) { p.Offset(POINT{3, -4}); })
                                       << CPoint(13, 16);
    QTest::newRow("Offset by a size") << moved({10, 20}, [](CPoint &p) { p.Offset(SIZE{3, -4}); })
                                      << CPoint(13, 16);
    QTest::newRow("point += point") << moved({30, 40}, [](CPoint &p) { p += CPoint(5, -7); })
        << CPoint(35, 33);
    QTest::newRow("point += size") << moved({30, 40}, [](CPoint &p) { p += CSize(5, -7); }) << CPoint(35, 33);
    QTest::newRow("point -= point") << moved({30, 40}, [](CPoint &p) { p -= CPoint(5, -7); })
        << CPoint(25, 47);
    QTest::newRow("point -= size") << moved({30, 40}, [](CPoint &p) { p -= CSize(5, -7); }) << CPoint(25, 47);
    QTest::newRow("point + point") << CPoint(25, -19) + CPoint(15, 5) << CPoint(40, -14);
    QTest::newRow("point + size") << CPoint(25, -19) + CSize(15, 5) << CPoint(40, -14);
    QTest::newRow("point - size is a point") << CPoint(25, -19) - CSize(15, 5) << CPoint(10, -24);
    QTest::newRow("-point") << -CPoint(25, -19) << CPoint(-25, 19);
    QTest::newRow("size + point is a point") << CSize(15, 5) + CPoint(25, -19) << CPoint(40, -14);
    QTest::newRow("size - point moves it back") << CSize(15, 5) - CPoint(25, -19) << CPoint(10, -24);

    QTest::newRow("TopLeft") << CRect(1, 2, 3, 4).TopLeft() << CPoint(1, 2);
    QTest::newRow("BottomRight") << CRect(210, 150, 350, 900).BottomRight() << CPoint(350, 900);
    const CRect constant(1, 2, 3, 4);
    QTest::newRow("TopLeft of a constant") << constant.TopLeft() << CPoint(1, 2);
    QTest::newRow("BottomRight of a constant") << constant.BottomRight() << CPoint(3, 4);
    QTest::newRow("CenterPoint") << CRect(10, 20, 50, 100).CenterPoint() << CPoint(30, 60);
    QTest::newRow("CenterPoint halves towards zero") << CRect(0, -3, 3, 0).CenterPoint() << CPoint(1, -1);
    QTest::newRow("CenterPoint near the greatest number")
        << CRect(INT_MAX - 4, INT_MIN, INT_MAX, INT_MIN).CenterPoint()
                                                          << CPoint(INT_MAX - 2, INT_MIN);

    QTest::newRow("past the greatest number wraps") << CPoint(INT_MAX, 0) + CPoint(1, 0)
        << CPoint(INT_MIN, 0);
    QTest::newRow("past the smallest number wraps") << CPoint(0, INT_MIN) - CSize(0, 1) << CPoint(0, INT_MAX);
    QTest::newRow("minus the smallest number wraps") << -CPoint(INT_MIN, 1) << CPoint(INT_MIN, -1);
}

void TestGeometry::point()
{
    QFETCH(CPoint, actual);
    QTEST(actual, "expected");
}

void TestGeometry::size_data()
{
    QTest::addColumn<CSize>("actual");
    QTest::addColumn<CSize>("expected");

    const auto resized = [](CSize size, auto change) {
        change(size);
        return size;
    };
    QTest::newRow("without arguments zeros") << CSize() << CSize(0, 0);
    QTest::newRow("from a record") << CSize(SIZE{10, 25}) << CSize(10, 25);
    QTest::newRow("from a point") << CSize(POINT{10, 25}) << CSize(10, 25);
    QTest::newRow("from two words") << CSize(DWORD(MAKELONG(10, 25))) << CSize(10, 25);
    QTest::newRow("the words are signed") << CSize(DWORD(0xFFFEFFFF)) << CSize(-1, -2);
    QTest::newRow("size += size") << resized({100, 100}, [](CSize &s) { s += CSize(50, 25); })
        << CSize(150, 125);
    QTest::newRow("size -= size") << resized({100, 100}, [](CSize &s) { s -= CSize(50, 25); })
        << CSize(50, 75);
    QTest::newRow("size + size") << CSize(100, 100) + CSize(50, 25) << CSize(150, 125);
    QTest::newRow("size - size") << CSize(100, 100) - CSize(50, 25) << CSize(50, 75);
    QTest::newRow("-size") << -CSize(50, -25) << CSize(-50, 25);
    QTest::newRow("point - point is a size") << CPoint(25, -19) - CPoint(15, 5) << CSize(10, -24);
    QTest::newRow("Size of a rectangle") << CRect(10, 20, 50, 90).Size() << CSize(40, 70);
    QTest::newRow("Size may be negative") << CRect(50, 90, 10, 20).Size() << CSize(-40, -70);
    QTest::newRow("past the greatest number wraps") << CSize(INT_MAX, 1) + CSize(1, INT_MAX)
                                                    << CSize(INT_MIN, INT_MIN);
    QTest::newRow("minus the smallest number wraps") << -CSize(INT_MIN, 1) << CSize(INT_MIN, -1);
}

void TestGeometry::size()
{
    QFETCH(CSize, actual);
    QTEST(actual, "expected");
}

void TestGeometry::cornerIsPartOfTheRectangle()
{
    CRect rect(10, 10, 350, 350);
    rect.BottomRight() = CPoint(180, 190);
    QCOMPARE(rect, CRect(10, 10, 180, 190));
    rect.TopLeft() = CPoint(1, 2);
    QCOMPARE(rect, CRect(1, 2, 180, 190));

    // The compiler must not take a corner and an edge for two places.
    QCOMPARE((edgeAfterCorner<CRect &, POINT &>(rect, rect.TopLeft())), 8);
    QCOMPARE((edgeAfterCorner<RECT &, CPoint &>(rect, rect.TopLeft())), 8);
}

void TestGeometry::convertsToThePointersOfTheRecord()
{
    CRect rect(1, 2, 3, 4);
    const CRect constant(5, 6, 7, 8);
    LPRECT pointer = rect;
    LPCRECT constantPointer = constant;
    QCOMPARE(static_cast<void *>(pointer), static_cast<void *>(&rect));
    QCOMPARE(static_cast<const void *>(constantPointer), static_cast<const void *>(&constant));
    pointer->top = 20;
    QCOMPARE(rect, CRect(1, 20, 3, 4));
    QCOMPARE(constantPointer->bottom, 8);
}

void TestGeometry::nullPointersAreRefused()
{
    const CRect rect(1, 2, 3, 4);
    RECT target = untouched;
    QVERIFY(!::SetRect(nullptr, 1, 2, 3, 4));
    QVERIFY(!::SetRectEmpty(nullptr));
    QVERIFY(!::CopyRect(nullptr, &rect));
    QVERIFY(!::CopyRect(&target, nullptr));
    QVERIFY(!::EqualRect(nullptr, &rect));
    QVERIFY(!::EqualRect(&rect, nullptr));
    QVERIFY(::IsRectEmpty(nullptr));
    QVERIFY(!::PtInRect(nullptr, POINT{0, 0}));
    QVERIFY(!::InflateRect(nullptr, 1, 1));
    QVERIFY(!::OffsetRect(nullptr, 1, 1));
    for (FreeCombination function : {FreeCombination(::IntersectRect), FreeCombination(::UnionRect),
                                     FreeCombination(::SubtractRect)}) {
        QVERIFY(!function(nullptr, &rect, &rect));
        QVERIFY(!function(&target, nullptr, &rect));
        QVERIFY(!function(&target, &rect, nullptr));
    }
    QCOMPARE(CRect(target), untouched);
    QVERIFY(::SetRect(&target, 1, 2, 3, 4));
    QCOMPARE(CRect(target), rect);
}

void TestGeometry::targetMayBeASource()
{
    CRect rect(0, 0, 10, 10);
    QVERIFY(rect.IntersectRect(rect, CRect(5, 5, 20, 20)));
    QCOMPARE(rect, CRect(5, 5, 10, 10));
    QVERIFY(rect.UnionRect(CRect(0, 0, 1, 1), rect));
    QCOMPARE(rect, CRect(0, 0, 10, 10));
    QVERIFY(rect.SubtractRect(rect, CRect(5, 0, 20, 20)));
    QCOMPARE(rect, CRect(0, 0, 5, 10));
}

KX_TEST_MAIN(TestGeometry)

#include "tst_geometry.moc"
