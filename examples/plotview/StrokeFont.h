// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtGui/QPainterPath>

/// A plotter's letters: lines for a pen to follow, not outlines to fill.
namespace StrokeFont {

/// The lines of a character. A capital letter stands on y = 0 and is one unit wide and one high, y upwards.
/// An accented letter is drawn as its base; a character without a glyph, as a box.
const QPainterPath &glyph(QChar character);

/// Whether every character of the text has a glyph, or a base that has one.
bool canDraw(const QString &text);

} // namespace StrokeFont
