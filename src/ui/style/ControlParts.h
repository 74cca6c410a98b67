// SPDX-License-Identifier: MIT
#pragma once

#include <QStyleOption>

class QPainter;
class QWidget;

// How the parts of controls look. KorvanStyle calls these functions; each draws into the rectangle
// of its option, from the option's palette and state. A `widget` may be absent.
namespace korvan {

void drawPushButtonPanel(QPainter& painter, const QStyleOptionButton& button);
void drawPushButtonLabel(QPainter& painter, const QStyleOptionButton& button,
                         const QWidget* widget);
// The panel of a tool button and of a link: nothing but the wash under the pointer.
void drawFlatPanel(QPainter& painter, const QStyleOption& option);
// `arrow` is the place of the arrow.
void drawComboBox(QPainter& painter, const QStyleOptionComboBox& box, const QRect& arrow);

// The ground of a line edit, and the frame of a text edit or a list.
void drawField(QPainter& painter, const QStyleOption& option);
// The plain frame of a table and of a pop-up list.
void drawHairlineFrame(QPainter& painter, const QStyleOption& option);
// Whether a frame is only a line, as in KDE's file panels.
[[nodiscard]] bool isRule(const QStyleOptionFrame& frame);
void drawRule(QPainter& painter, const QStyleOptionFrame& frame);

// `header` is a section, or the empty area after the last one.
void drawHeaderSection(QPainter& painter, const QStyleOption& header);
void drawHeaderLabel(QPainter& painter, const QStyleOptionHeader& header);
// The ground of a row. `isRound` means that the list's frame is round, so the selection is, too.
void drawItemPanel(QPainter& painter, const QStyleOptionViewItem& item, bool isRound);
// The focus ring of a row.
void drawItemFocus(QPainter& painter, const QStyleOption& option);

// A scroll bar, which has no buttons. `slider` is the place of its slider.
void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar, const QRect& slider,
                   const QWidget* widget);
// The line in a splitter's handle, beside the neighbour whose ground is not the window's.
void drawSplitterLine(QPainter& painter, const QStyleOption& handle, const QWidget* widget);
// The ground of a scroll bar and of the corner between two: that of what they scroll.
[[nodiscard]] QColor scrollGround(const QPalette& palette, const QWidget* widget);

// Marks the item of a menu or a menu bar that the pointer is on.
void drawMenuSelection(QPainter& painter, const QRect& rect, const QPalette& palette);
// Whether a menu's item consists of a text alone. It does not in a menu with symbols or with items
// that can be checked, where all texts leave room for them.
[[nodiscard]] bool isTextItem(const QStyleOptionMenuItem& item);
void drawTextItem(QPainter& painter, const QStyleOptionMenuItem& item);
// The ground and the frame of a menu or a tooltip.
void drawPopupPanel(QPainter& painter, const QStyleOption& option, QPalette::ColorRole ground);

// A chevron in the middle of the option's rectangle.
void drawArrow(QPainter& painter, const QStyleOption& option, Qt::ArrowType direction);

} // namespace korvan
