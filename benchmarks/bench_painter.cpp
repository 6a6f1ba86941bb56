// SPDX-License-Identifier: MIT
#include "KxAfxGeometry.h"
#include "KxQtPainterWrapper.h"

#include <benchmark/benchmark.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <random>
#include <vector>

// The painter wrapper beside a QPainter that is given the same calls. With --count=NAME one of them draws a
// hundred times, for counting its instructions: valgrind --tool=callgrind bench_painter --count=lines, then
// with linesQt, and with none for what the program needs by itself.

namespace {

constexpr int Side = 1000;
constexpr int Figures = 1000;

struct Sheet
{
    QImage image{Side, Side, QImage::Format_ARGB32_Premultiplied};
    std::vector<QPoint> points;

    explicit Sheet(int reach)
    {
        image.fill(Qt::white);
        std::mt19937 random(7);
        for (int i = 0; i < 4 * Figures; ++i) {
            const auto number = [&random](int below) { return static_cast<int>(random() % unsigned(below)); };
            const QPoint start(50 + number(Side - 100), 50 + number(Side - 100));
            points.push_back(start);
            points.push_back(start + QPoint(number(reach), number(reach)));
        }
    }

    const tagPOINT *corners(int i) const
    {
        return reinterpret_cast<const tagPOINT *>(&points[4 * static_cast<std::size_t>(i)]);
    }
};

QColor toQColor(COLORREF colour)
{
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF, 255);
}

/// A QPainter that draws, behind the names of the wrapper: what a host would write without it.
class Bare
{
public:
    explicit Bare(QImage *image) : m_painter(image) {}

    void setPen(int width, COLORREF colour)
    {
        QPen pen(Qt::SolidLine);
        pen.setWidth(width);
        pen.setColor(toQColor(colour));
        m_painter.setPen(pen);
    }
    void setBrush(COLORREF colour) { m_painter.setBrush(QBrush(toQColor(colour))); }
    void drawLine(const QPoint &a, const QPoint &b) { m_painter.drawLine(a.x(), a.y(), b.x(), b.y()); }
    void drawPoint(const QPoint &a) { m_painter.drawPoint(a.x(), a.y()); }
    void fillRect(const QPoint &a, COLORREF colour) { m_painter.fillRect(a.x(), a.y(), 10, 10, toQColor(colour)); }
    void drawPolyline(const tagPOINT *corners, int n)
    {
        m_painter.drawPolyline(reinterpret_cast<const QPoint *>(corners), n);
    }
    void drawPolygon(const tagPOINT *corners, int n)
    {
        m_painter.drawPolygon(reinterpret_cast<const QPoint *>(corners), n, Qt::OddEvenFill);
    }
    void drawText(const QPoint &a) { m_painter.drawText(a.x(), a.y(), QString::fromWCharArray(L"label 7", 7)); }

private:
    QPainter m_painter;
};

class Wrapped
{
public:
    explicit Wrapped(QImage *image) : m_painter(image) { m_painter.beginDraw(); }
    ~Wrapped() { m_painter.endDraw(); }

    void setPen(int width, COLORREF colour) { m_painter.setPen(PS_SOLID, width, colour); }
    void setBrush(COLORREF colour) { m_painter.setBrush(colour); }
    void drawLine(const QPoint &a, const QPoint &b) { m_painter.drawLine(a.x(), a.y(), b.x(), b.y()); }
    void drawPoint(const QPoint &a) { m_painter.drawPoint(a.x(), a.y()); }
    void fillRect(const QPoint &a, COLORREF colour)
    {
        m_painter.fillRect(CRect(a.x(), a.y(), a.x() + 10, a.y() + 10), colour);
    }
    void drawPolyline(const tagPOINT *corners, int n) { m_painter.drawPolyline(corners, n); }
    void drawPolygon(const tagPOINT *corners, int n) { m_painter.drawPolygon(corners, n); }
    void drawText(const QPoint &a) { m_painter.drawText(a.x(), a.y(), L"label 7", 7); }

private:
    KxQtPainterWrapper m_painter;
};

template<class Painter>
void lines(Painter &painter, const Sheet &sheet)
{
    for (std::size_t i = 0; i < Figures; ++i)
        painter.drawLine(sheet.points[2 * i], sheet.points[2 * i + 1]);
}

template<class Painter>
void points(Painter &painter, const Sheet &sheet)
{
    for (std::size_t i = 0; i < Figures; ++i)
        painter.drawPoint(sheet.points[i]);
}

template<class Painter>
void rectangles(Painter &painter, const Sheet &sheet)
{
    for (std::size_t i = 0; i < Figures; ++i)
        painter.fillRect(sheet.points[i], static_cast<COLORREF>(i));
}

template<class Painter>
void polylines(Painter &painter, const Sheet &sheet)
{
    for (int i = 0; i < Figures; ++i)
        painter.drawPolyline(sheet.corners(i), 4);
}

template<class Painter>
void polygons(Painter &painter, const Sheet &sheet)
{
    for (int i = 0; i < Figures; i += 10)
        painter.drawPolygon(sheet.corners(i), 4);
}

template<class Painter>
void texts(Painter &painter, const Sheet &sheet)
{
    for (std::size_t i = 0; i < Figures; i += 10)
        painter.drawText(sheet.points[i]);
}

template<class Painter>
void pens(Painter &painter, const Sheet &)
{
    for (int i = 0; i < Figures; ++i)
        painter.setPen(i % 3, static_cast<COLORREF>(i));
}

template<class Painter>
void brushes(Painter &painter, const Sheet &)
{
    for (int i = 0; i < Figures; ++i)
        painter.setBrush(static_cast<COLORREF>(i));
}

/// What a plot is: pens, short lines, now and then a polygon.
template<class Painter>
void drawing(Painter &painter, const Sheet &sheet)
{
    for (int i = 0; i < Figures; ++i) {
        if (i % 10 == 0)
            painter.setPen(i % 3, static_cast<COLORREF>(i));
        painter.drawLine(sheet.points[std::size_t(2 * i)], sheet.points[std::size_t(2 * i + 1)]);
        if (i % 50 == 0)
            painter.drawPolygon(sheet.corners(i), 4);
    }
}

using Draw = void (*)(Sheet &, int times);

template<class Painter, void (*draw)(Painter &, const Sheet &)>
void drawTimes(Sheet &sheet, int times)
{
    Painter painter(&sheet.image);
    painter.setPen(0, 0);
    painter.setBrush(0);
    for (int i = 0; i < times; ++i)
        draw(painter, sheet);
}

struct Case
{
    const char *name;
    Draw bare;
    Draw wrapped;
    int reach;
};

#define CASE(name, reach) {#name, drawTimes<Bare, name<Bare>>, drawTimes<Wrapped, name<Wrapped>>, reach}
const Case cases[] = {
    CASE(lines, 20), CASE(points, 20), CASE(rectangles, 20), CASE(polylines, 20), CASE(polygons, 50),
    CASE(texts, 20), CASE(pens, 20), CASE(brushes, 20), CASE(drawing, 20),
};

void count(const std::string &name)
{
    for (const Case &one : cases) {
        Sheet sheet(one.reach);
        if (name == std::string(one.name) + "Qt")
            one.bare(sheet, 100);
        if (name == one.name)
            one.wrapped(sheet, 100);
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const std::string option = argc > 1 ? argv[1] : "";
    if (option.rfind("--count=", 0) == 0) {
        count(option.substr(8));
        return 0;
    }
    for (const Case &one : cases) {
        for (const bool isBare : {true, false}) {
            const auto run = [one, isBare](benchmark::State &state) {
                Sheet sheet(one.reach);
                for (auto _ : state)
                    (isBare ? one.bare : one.wrapped)(sheet, 10);
            };
            benchmark::RegisterBenchmark((one.name + std::string(isBare ? "Qt" : "")).c_str(), run);
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
