// SPDX-License-Identifier: MIT
#pragma once

#include "Plot.h"
#include "PlotPaper.h"
#include "PlotScanner.h"

/// The plotter: carries the instructions of a plot file out and keeps what its pens draw.
class PlotInterpreter
{
public:
    explicit PlotInterpreter(const PlotSource &source);

    Plot run();

private:
    using Handler = bool (PlotInterpreter::*)();
    struct Instruction;
    struct Polyline;
    enum class Parameters {
        Numbers,    // all or nothing
        Pairs,      // those before a damaged one count
        Own         // read by the handler
    };
    enum class ScaleType { Anisotropic, Isotropic, PointFactor };

    static constexpr double UnitsPerCentimetre = 10 * Plot::UnitsPerMillimetre;

    static const Instruction *find(const char *mnemonic);

    bool carryOut(const Instruction &instruction);

    // Each instruction answers whether it was carried out; m_numbers are its parameters.
    bool ignore() { return true; }
    bool skipText();
    bool comment();
    bool initialize();
    bool setDefaults();
    bool selectPen();
    bool penUp();
    bool penDown();
    bool plotAbsolute();
    bool plotRelative();
    bool encodedPolyline();
    bool circle();
    bool arcAbsolute();
    bool arcRelative();
    bool edgeRectangleAbsolute();
    bool edgeRectangleRelative();
    bool shadeRectangleAbsolute();
    bool shadeRectangleRelative();
    bool edgeWedge();
    bool shadeWedge();
    bool polygonMode();
    bool edgePolygon();
    bool fillPolygon();
    bool fillType();
    bool tickLength();
    bool xTick();
    bool yTick();
    bool symbolMode();
    bool lineType();
    bool penWidth();
    bool penWidthUnit();
    bool penColour();
    bool chordTolerance();
    bool inputPoints();
    bool scale();
    bool rotate();
    bool inputWindow();
    bool label();
    bool labelTerminator();
    bool labelOrigin();
    bool absoluteSize();
    bool relativeSize();
    bool absoluteDirection();
    bool relativeDirection();
    bool slant();
    bool characterPlot();

    std::size_t count() const { return m_numbers.values.size(); }
    double parameter(std::size_t index, double otherwise = 0) const;
    int integerParameter(std::size_t index, int otherwise = 0) const;

    void setPenDown(bool down);
    bool plotPairs(bool relative);
    bool moveTo(const QPointF &position);
    void endStroke();

    bool plotEncoded(char c, Polyline &polyline);
    bool plotEncodedNumber(double number, Polyline &polyline);

    QPointF unitsPerUserUnit() const;
    QPointF toPlotterUnits(double x, double y) const;
    double diagonal() const;
    QSizeF characterSize() const;
    QPointF direction() const;
    double patternLength() const;
    double penWidthInMillimetres() const;

    bool arc(const QPointF &centre, double sweep, double chord);
    QPolygonF arcPoints(const QPointF &centre, double radius, double start, double sweep, double chord) const;
    int chordCount(double radius, double sweep, double chord) const;
    QPolygonF rectangle(bool relative) const;
    QPolygonF wedge() const;

    bool addFigure(const QPolygonF &points);
    bool addAreaFigure(const QPolygonF &outline);
    void addStroke(const QPolygonF &points);
    void addArea(const QVector<QPolygonF> &outlines);
    void addLabel(const QPointF &position, const QString &text);
    void plotText(const QString &text);

    // What DF sets back.
    struct Settings
    {
        static constexpr double DefaultTickPercent = 0.5;

        bool relative = false;
        int lineType = PlotStroke::SolidLine;
        double patternLength = 4;           // percent of P1 to P2, or millimetres
        bool patternInMillimetres = false;
        char symbol = '\0';                 // plotted at each point
        bool chordIsDeviation = false;

        bool scaled = false;
        ScaleType scaleType = ScaleType::Anisotropic;
        QPointF userMinimum;                // user units at P1
        QPointF userMaximum;                // user units at P2, or plotter units per user unit (PointFactor)
        QPointF spareShare;                 // 0 to 1: the spare room's part left and below (Isotropic)

        int fillType = 1;
        double fillSpacing = 0;             // plotter units
        double fillAngle = 0;
        double positiveTick = DefaultTickPercent;
        double negativeTick = DefaultTickPercent;

        char terminator = '\x03';
        int labelOrigin = 1;
        bool relativeCharacterSize = false;
        QSizeF characterSize = QSizeF(0.187, 0.269) * UnitsPerCentimetre;   // or percent of P1 to P2
        bool relativeDirection = false;
        QPointF direction = QPointF(1, 0);
        double slant = 0;
    };

    PlotScanner m_scanner;
    PlotNumbers m_numbers;
    PlotPaper m_paper;
    Settings m_settings;

    QPointF m_p1;
    QPointF m_p2;
    int m_pen = 1;
    std::map<int, double> m_penWidths;  // millimetres
    bool m_relativePenWidth = false;
    bool m_penDown = false;
    QPointF m_position;
    QPointF m_lineStart;                // where carriage return goes
    QPolygonF m_stroke;
    bool m_strokeTouchedDown = false;   // the pen came down for it, so that it is a dot at least
    bool m_inPolygon = false;
    QVector<QPolygonF> m_polygon;
    bool m_subpolygonEnded = false;
};
