// SPDX-License-Identifier: MIT
#include "PlotStrokeBlock.h"

#include "PlotGeometry.h"

#include <QtCore/QDataStream>

#include <algorithm>

namespace {

constexpr quint32 Magic = 0x54534c50;   // "PLST"
constexpr int HeaderSize = 16;
constexpr int StrokeSize = 28;
constexpr int PointSize = 16;

void setUp(QDataStream &stream)
{
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
}

// Of lengths and widths. Not a number is none of them.
bool isSize(double size)
{
    return size >= 0 && size <= 4 * PlotReader::LargestCoordinate;
}

bool isDrawable(const PlotStroke &stroke)
{
    return stroke.pen >= 0 && stroke.pen <= PlotReader::LargestPen
           && stroke.lineType >= PlotStroke::SolidLine && stroke.lineType <= PlotStroke::LargestLineType
           && isSize(stroke.patternLength) && isSize(stroke.width)
           && std::all_of(stroke.points.begin(), stroke.points.end(), isPlottable);
}

// Whether `count` things of `size` bytes at least can be in the rest of the stream; nothing is allocated for
// what is not there.
bool hasRoom(const QDataStream &stream, quint32 count, int size)
{
    return count <= stream.device()->bytesAvailable() / size;
}

bool readStroke(QDataStream &stream, PlotStroke &stroke)
{
    quint32 count = 0;
    stream >> stroke.pen >> stroke.lineType >> stroke.patternLength >> stroke.width >> count;
    if (stream.status() != QDataStream::Ok || count == 0 || !hasRoom(stream, count, PointSize))
        return false;
    stroke.points.resize(static_cast<int>(count));
    for (QPointF &point : stroke.points)
        stream >> point;
    return isDrawable(stroke);
}

} // namespace

QByteArray PlotStrokeBlock::write(const std::vector<PlotStroke> &strokes)
{
    const qint64 size = HeaderSize + qint64(strokes.size()) * StrokeSize + pointCount(strokes) * PointSize;
    QByteArray bytes;
    bytes.reserve(static_cast<int>(size));
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    setUp(stream);
    stream << Magic << Version << static_cast<quint32>(size) << static_cast<quint32>(strokes.size());
    for (const PlotStroke &stroke : strokes) {
        stream << stroke.pen << stroke.lineType << stroke.patternLength << stroke.width
               << static_cast<quint32>(stroke.points.size());
        for (const QPointF &point : stroke.points)
            stream << point;
    }
    return bytes;
}

bool PlotStrokeBlock::read(const QByteArray &bytes, std::vector<PlotStroke> &strokes)
{
    quint32 magic = 0;
    quint32 version = 0;
    quint32 size = 0;
    quint32 count = 0;
    QDataStream header(bytes);
    setUp(header);
    header >> magic >> version >> size >> count;
    const auto room = static_cast<quint32>(bytes.size());
    if (magic != Magic || version != Version || size < HeaderSize || size > room)
        return false;

    const QByteArray body = QByteArray::fromRawData(bytes.constData() + HeaderSize,
                                                    static_cast<int>(size) - HeaderSize);
    QDataStream stream(body);
    setUp(stream);
    if (!hasRoom(stream, count, StrokeSize + PointSize))
        return false;
    std::vector<PlotStroke> found(count);
    for (PlotStroke &stroke : found) {
        if (!readStroke(stream, stroke))
            return false;
    }
    if (!stream.atEnd())
        return false;
    strokes = std::move(found);
    return true;
}
