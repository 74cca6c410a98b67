// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QPalette>
#include <QRectF>

class QColor;
class QPainter;
class QWidget;

// What the controls of KorvanStyle and the widgets that draw themselves have in common: lines,
// rectangles with round corners, the ring of keyboard focus, and the shadow and wash below a text.
//
// All lengths are in logical pixels. A line is a whole number of device pixels thick and begins at
// one, also at scales such as 1.25 and 1.5, so that lines look alike and none is blurred. This
// holds for painters that move and scale, but do not rotate.
namespace korvan {

// The radii of controls, and of rows and other small things.
constexpr double kRadius = 6;
constexpr double kSmallRadius = 4;

// Saves the painter's state, turns on antialiasing, and restores the state at the end of the scope.
class PainterState final {
public:
    explicit PainterState(QPainter& painter);
    ~PainterState();
    PainterState(const PainterState&) = delete;
    PainterState& operator=(const PainterState&) = delete;

private:
    QPainter& m_painter;
};

// The thickness that a line of so many logical pixels is drawn with: rounded down to whole device
// pixels, and one of them at least.
[[nodiscard]] double lineWidth(const QPainter& painter, double logicalPixels = 1);

// `rect` with each side moved to the nearest device pixel. Rectangles that touch still do.
[[nodiscard]] QRectF onPixels(const QPainter& painter, const QRectF& rect);

// Draws a line of one logical pixel inside of `rect`, along that edge.
void drawLine(QPainter& painter, const QRectF& rect, Qt::Edge edge, const QColor& color);

// Draws a rectangle with round corners. An invalid colour leaves out the fill or the border, which
// is a line inside of `rect`.
void drawRounded(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& border,
                 double radius = kRadius);

// A rectangle whose sides bend into the round corners gradually. With plain arcs the bend begins
// abruptly.
[[nodiscard]] QPainterPath smoothRectangle(const QRectF& rect, double radius);

// Whether `widget` has the keyboard focus and should show that: only while the user works with the
// keyboard. Text fields always show their focus, without asking here.
[[nodiscard]] bool showsKeyboardFocus(const QWidget& widget);

// Draws the ring of keyboard focus, two logical pixels thick, inside of `rect`. On a selected row
// it has the colour of the row's text.
enum class RingGround { plain, selection };
void drawFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette,
                   double radius = kRadius, RingGround ground = RingGround::plain);

// Draws the shadow around `body`, a rectangle with round corners. The caller leaves kShadow of room
// on each side.
constexpr int kShadow = 14;
void drawShadow(QPainter& painter, const QRectF& body, double radius, const QPalette& palette);

// How a row that can be clicked reacts to the pointer: with a wash, a transparent layer of its
// text's colour. The wash is fainter in a table with alternating rows.
enum class Wash { none, hovered, hoveredInTable, pressed };
[[nodiscard]] QColor washColor(const QPalette& palette, Wash wash);
// Draws the wash over all of `rect`, with small round corners. Call this before drawing the text.
void drawRowWash(QPainter& painter, const QRect& rect, const QPalette& palette, Wash wash);

} // namespace korvan
