// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <Qt>

class QColor;
class QPainter;

// Lines that are a whole number of the screen's own pixels thick and begin on one, also where a
// logical pixel is 1.25 or 1.5 of them: all lines of a window look alike, and none is blurred. For
// painters that move and scale, but do not turn.
namespace korvan {

// How thick a line of so many logical pixels is drawn: in logical pixels, rounded down to whole
// device pixels, and one of those at least.
[[nodiscard]] double lineWidth(const QPainter& painter, double logicalPixels = 1);

// `rect` with each side on the nearest device pixel. Rectangles that touch still do.
[[nodiscard]] QRectF onPixels(const QPainter& painter, const QRectF& rect);

// A line of one logical pixel just inside of that edge of `rect`.
void drawLine(QPainter& painter, const QRectF& rect, Qt::Edge edge, const QColor& color);

} // namespace korvan
