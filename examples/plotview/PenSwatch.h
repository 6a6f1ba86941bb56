// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QImage>

/// A piece of paper with a line of a pen on it, `size` pixels large.
QImage penSwatch(const QColor &ink, const QColor &paper, const QSize &size);
