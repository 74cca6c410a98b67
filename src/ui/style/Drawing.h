// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QRect>
#include <QStyleOption>

class QPainter;
class QWidget;

// How the parts of controls look, each from its option's palette and state. KorvanStyle calls them.
namespace korvan {

// A rectangle with round corners, for widgets that draw themselves. Its sides bend into the corners
// little by little, where those of an arc of the same radius begin with a jump.
[[nodiscard]] QPainterPath smoothRectangle(const QRectF& rect, double radius);

// The radii of controls, and of rows and what else is small.
constexpr double kRadius = 6;
constexpr double kSmallRadius = 4;

// Whether `widget` shows that it has the keyboard: only where the user works by keyboard. Fields
// that are typed into show it always, and do not ask.
[[nodiscard]] bool showsKeyboardFocus(const QWidget& widget);

// The one ring of keyboard focus, two logical pixels, just inside of `rect`. On a selected row it
// has the colour of that row's text.
enum class RingGround { plain, selection };
void drawFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette,
                   double radius = kRadius, RingGround ground = RingGround::plain);

// What makes `body`, a round rectangle, stand off from what it lies on. Needs kShadow around it.
constexpr int kShadow = 14;
void drawShadow(QPainter& painter, const QRectF& body, double radius, const QPalette& palette);

// How a row that can be clicked answers to the pointer: it takes on the colour of its text. In a
// table with alternating rows a fainter wash does.
enum class Wash { none, hovered, hoveredInTable, pressed };
[[nodiscard]] QColor washColor(const QPalette& palette, Wash wash);
// The wash over all of `rect`, with small round corners. Below the row's text.
void drawRowWash(QPainter& painter, const QRect& rect, const QPalette& palette, Wash wash);

void drawPushButtonPanel(QPainter& painter, const QStyleOptionButton& button);
void drawPushButtonLabel(QPainter& painter, const QStyleOptionButton& button,
                         const QWidget* widget);
void drawToolButtonPanel(QPainter& painter, const QStyleOption& option);
void drawComboBox(QPainter& painter, const QStyleOptionComboBox& box, const QRect& arrow);

// What is typed into: the ground of a line edit and the frame of a text edit or a list.
void drawField(QPainter& painter, const QStyleOption& option);
// The plain frame of a table and of a pop-up list.
void drawHairlineFrame(QPainter& painter, const QStyleOption& option);
// A frame that is no more than a line, as those in KDE's file panels.
[[nodiscard]] bool isRule(const QStyleOptionFrame& frame);
void drawRule(QPainter& painter, const QStyleOptionFrame& frame);

void drawHeaderSection(QPainter& painter, const QStyleOption& header);
void drawHeaderLabel(QPainter& painter, const QStyleOptionHeader& header);
// What stands behind a row's text. In a round frame the selection is round, too.
void drawItemPanel(QPainter& painter, const QStyleOptionViewItem& item, bool isRound);
// A row's mark of keyboard focus, which stands on the selection's colour or beside it.
void drawItemFocus(QPainter& painter, const QStyleOption& option);

// The bar without its buttons: they are left out.
void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar, const QRect& slider,
                   const QWidget* widget);
// The line of a splitter's handle, on the side where the ground beside it is not the window's.
void drawSplitterLine(QPainter& painter, const QStyleOption& handle, const QWidget* widget);
// The ground of a scroll bar and of the corner between two: that of what they scroll.
[[nodiscard]] QColor scrollGround(const QPalette& palette, const QWidget* widget);

// The mark of the item in a menu or a menu bar that the pointer is on.
void drawMenuSelection(QPainter& painter, const QRect& rect, const QPalette& palette);
// An item of a menu that has a text and nothing before it: no item of that menu has a symbol or can
// be checked.
[[nodiscard]] bool isTextItem(const QStyleOptionMenuItem& item);
void drawTextItem(QPainter& painter, const QStyleOptionMenuItem& item);
// The ground and the frame of a menu or a tooltip.
void drawPopupPanel(QPainter& painter, const QStyleOption& option, QPalette::ColorRole ground);

// A chevron in the middle of the option's rectangle.
void drawArrow(QPainter& painter, const QStyleOption& option, Qt::ArrowType direction);

} // namespace korvan
