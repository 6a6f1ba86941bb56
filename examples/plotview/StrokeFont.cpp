// SPDX-License-Identifier: MIT
#include "StrokeFont.h"

#include <QtCore/QHash>
#include <QtGui/QPolygonF>

namespace {

constexpr double GridWidth = 6;
constexpr double GridHeight = 9;

struct Glyph
{
    ushort character;
    // Lines separated by blanks, each a run of points of two characters: x from 0 to 6, y from 0 to 9 and
    // below the base line from c (-1) to a (-3). A line that starts with ~ is bent around its inner points,
    // or around all of them when it ends where it began.
    const char *lines;
};

constexpr Glyph glyphs[] = {
    {' ', ""},
    {'!', "3934 3031"},
    {'"', "2927 4947"},
    {'#', "1029 4059 0363 0666"},
    {'$', "~6759090564601002 3c39"},
    {'%', "0069 ~0929260609 ~4363604043"},
    {'&', "6017 ~171949474502000050 5064"},
    {'\'', "3937"},
    {'(', "~49272240"},
    {')', "~29474220"},
    {'*', "1357 1753 3238"},
    {'+', "3137 0464"},
    {',', "312c"},
    {'-', "1454"},
    {'.', "3031"},
    {'/', "0069"},
    {'0', "~0969600009"},
    {'1', "173930 1050"},
    {'2', "~0709696500 0060"},
    {'3', "~0819696525 ~2565600002"},
    {'4', "50590363"},
    {'5', "690905 ~051666601001"},
    {'6', "~590803 ~0666600006"},
    {'7', "096920"},
    {'8', "~1959551519 ~0565600005"},
    {'9', "~106166 ~6303096963"},
    {':', "3031 3435"},
    {';', "312c 3435"},
    {'<', "571451"},
    {'=', "0363 0666"},
    {'>', "175411"},
    {'?', "~070969653532 3031"},
    {'@', "~2646432326 4643 ~43636909005051"},
    {'A', "003960 1353"},
    {'B', "0009 ~09595505 ~05656000"},
    {'C', "~675909005062"},
    {'D', "0009 ~09696000"},
    {'E', "69090060 0545"},
    {'F', "690900 0545"},
    {'G', "~675909006064 6434"},
    {'H', "0009 6069 0565"},
    {'I', "1959 3930 1050"},
    {'J', "5953 ~53500003"},
    {'K', "0009 6903 2560"},
    {'L', "090060"},
    {'M', "0009346960"},
    {'N', "00096069"},
    {'O', "~0969600009"},
    {'P', "0009 ~09696404"},
    {'Q', "~0969600009 4260"},
    {'R', "0009 ~09696404 3460"},
    {'S', "~6759090564601002"},
    {'T', "0969 3930"},
    {'U', "0903 ~03006063 6369"},
    {'V', "093069"},
    {'W', "0910365069"},
    {'X', "0069 0960"},
    {'Y', "0935 6935 3530"},
    {'Z', "09690060"},
    {'[', "49292040"},
    {'\\', "0960"},
    {']', "29494020"},
    {'^', "163956"},
    {'_', "0c6c"},
    {'`', "2947"},
    {'a', "~0656500006 5650"},
    {'b', "0900 ~0656500006"},
    {'c', "~554606004051"},
    {'d', "~0656500006 5950"},
    {'e', "0353 ~535606004051"},
    {'f', "~592927 2720 0646"},
    {'g', "~0656500006 565c ~5c5a0a0b"},
    {'h', "0900 ~04165653 5350"},
    {'i', "3630 3839"},
    {'j', "464c ~4c4a1a 4849"},
    {'k', "0900 5601 2350"},
    {'l', "3930"},
    {'m', "0600 ~04163634 3430 ~34466664 6460"},
    {'n', "0600 ~04165653 5350"},
    {'o', "~0656500006"},
    {'p', "060a ~0656500006"},
    {'q', "~0656500006 565a"},
    {'r', "0600 ~03164655"},
    {'s', "~5546060353501001"},
    {'t', "2922 ~222050 0646"},
    {'u', "0603 ~03004052 5650"},
    {'v', "063066"},
    {'w', "0610355066"},
    {'x', "0056 0650"},
    {'y', "0630 661a"},
    {'z', "06560050"},
    {'{', "~49293514 ~14332040"},
    {'|', "393a"},
    {'}', "~29493554 ~54334020"},
    {'~', "~04274265"},
    {0x00b0, "~1949461619"},
    {0x00b1, "3238 0565 0060"},
    {0x00b5, "060a ~03004052 5650"},
    {0x00d7, "1256 1652"},
    {0x00d8, "~0969600009 0069"},
    {0x00df, "~000979594505 ~45656010"},
    {0x00f8, "~0656500006 0056"},
    {0x2013, "0464"},
    {0x2019, "3937"},
};

constexpr const char *UnknownGlyph = "0009696000";

QPointF gridPoint(char x, char y)
{
    const int row = y >= 'a' ? y - 'a' - 3 : y - '0';
    return QPointF((x - '0') / GridWidth, row / GridHeight);
}

void addCurve(QPainterPath &path, const QPolygonF &points)
{
    const int count = points.size();
    const bool isLoop = points.isClosed();
    path.moveTo(isLoop ? (points.at(0) + points.at(count - 2)) / 2 : points.first());
    for (int i = isLoop ? 0 : 1; i < count - 1; ++i) {
        const bool isLast = !isLoop && i == count - 2;
        path.quadTo(points.at(i), isLast ? points.last() : (points.at(i) + points.at(i + 1)) / 2);
    }
}

QPainterPath pathOf(const char *lines)
{
    QPainterPath path;
    const QList<QByteArray> parts = QByteArray(lines).split(' ');
    for (const QByteArray &part : parts) {
        const bool isCurve = part.startsWith('~');
        QPolygonF points;
        for (int i = isCurve ? 1 : 0; i + 1 < part.size(); i += 2)
            points.append(gridPoint(part.at(i), part.at(i + 1)));
        if (isCurve)
            addCurve(path, points);
        else
            path.addPolygon(points);
    }
    return path;
}

QChar baseOf(QChar character)
{
    const QString parts = character.decomposition();
    return parts.isEmpty() ? character : parts.at(0);
}

const QHash<QChar, QPainterPath> &paths()
{
    static const QHash<QChar, QPainterPath> table = [] {
        QHash<QChar, QPainterPath> made;
        for (const Glyph &glyph : glyphs)
            made.insert(QChar(glyph.character), pathOf(glyph.lines));
        return made;
    }();
    return table;
}

} // namespace

const QPainterPath &StrokeFont::glyph(QChar character)
{
    static const QPainterPath unknown = pathOf(UnknownGlyph);
    auto found = paths().constFind(character);
    if (found == paths().constEnd())
        found = paths().constFind(baseOf(character));
    return found == paths().constEnd() ? unknown : *found;
}

bool StrokeFont::canDraw(const QString &text)
{
    for (const QChar character : text) {
        if (!paths().contains(character) && !paths().contains(baseOf(character)))
            return false;
    }
    return true;
}
