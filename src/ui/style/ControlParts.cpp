// SPDX-License-Identifier: MIT
#include "ui/style/ControlParts.h"

#include "ui/style/Colors.h"
#include "ui/style/Controls.h"
#include "ui/style/Drawing.h"
#include "ui/style/Symbols.h"
#include "ui/style/TextStyles.h"

#include <QAbstractScrollArea>
#include <QIcon>
#include <QPainter>
#include <QSplitter>
#include <QStyle>
#include <algorithm>

namespace korvan {

namespace {

constexpr int kIconGap = 6;
constexpr int kMenuPadding = 10; // beside the text of a menu's item

QColor border(const QPalette& palette) { return colorFor(SemanticColor::border, palette); }

QColor hairline(const QPalette& palette) { return colorFor(SemanticColor::separator, palette); }

bool has(const QStyleOption& option, QStyle::StateFlag flag) { return option.state.testFlag(flag); }

// The share of the text's colour in a control's ground, under the pointer and while it is pressed.
double emphasis(const QStyleOption& option) {
    if (!has(option, QStyle::State_Enabled)) return 0;
    if (has(option, QStyle::State_Sunken) || has(option, QStyle::State_On)) return 0.14;
    return has(option, QStyle::State_MouseOver) ? 0.06 : 0;
}

bool showsKeyboardFocus(const QStyleOption& option) {
    return has(option, QStyle::State_HasFocus) && has(option, QStyle::State_KeyboardFocusChange);
}

bool isFilled(const QStyleOptionButton& button) {
    return button.features.testFlag(QStyleOptionButton::DefaultButton) &&
           !button.features.testFlag(QStyleOptionButton::Flat) &&
           has(button, QStyle::State_Enabled);
}

// The colour that fills a dialog's default button.
QColor fillOf(const QStyleOptionButton& button) {
    return colorFor(SemanticColor::accent, button.palette);
}

QColor labelColor(const QStyleOptionButton& button, const QWidget* widget) {
    if (isFilled(button)) return textOn(fillOf(button), button.palette);
    const auto color = widget ? buttonColor(*widget) : SemanticColor::primary;
    if (color == SemanticColor::primary) return button.palette.color(QPalette::ButtonText);
    const auto own = colorFor(color, button.palette);
    return has(button, QStyle::State_Enabled) ? readable(own, button.palette) : own;
}

} // namespace

void drawPushButtonPanel(QPainter& painter, const QStyleOptionButton& button) {
    const auto& palette = button.palette;
    const auto text = palette.color(QPalette::ButtonText);
    if (isFilled(button)) {
        const auto fill = fillOf(button);
        drawRounded(painter, button.rect, mixed(fill, Qt::black, emphasis(button)), {});
        if (!showsKeyboardFocus(button)) return;
        // A little inside, since a ring in the accent colour would not be seen on the fill.
        return drawFocusRing(painter, button.rect.adjusted(2, 2, -2, -2), palette, kSmallRadius,
                             RingGround::selection);
    }
    if (button.features.testFlag(QStyleOptionButton::Flat)) {
        drawFlatPanel(painter, button);
    } else {
        const auto ground =
            has(button, QStyle::State_Enabled)
                ? palette.color(QPalette::Button)
                : mixed(palette.color(QPalette::Button), palette.color(QPalette::Window), 0.6);
        drawRounded(painter, button.rect, mixed(ground, text, emphasis(button)), border(palette));
    }
    if (showsKeyboardFocus(button)) drawFocusRing(painter, button.rect, palette);
}

void drawPushButtonLabel(QPainter& painter, const QStyleOptionButton& button,
                         const QWidget* widget) {
    const PainterState state(painter);
    const bool hasIcon = !button.icon.isNull();
    const int iconWidth = hasIcon ? button.iconSize.width() : 0;
    const int gap = hasIcon && !button.text.isEmpty() ? kIconGap : 0;
    const int room = button.rect.width() - iconWidth - gap;
    const int needed = button.fontMetrics.size(Qt::TextShowMnemonic, button.text).width();
    const int textWidth = std::min(needed, room);
    const QRect whole(button.rect.left() + (room - textWidth) / 2, button.rect.top(),
                      iconWidth + gap + textWidth, button.rect.height());
    const auto place = [&](Qt::Alignment alignment, QSize size) {
        return QStyle::alignedRect(button.direction, alignment | Qt::AlignVCenter, size, whole);
    };
    if (hasIcon) {
        const auto mode = isFilled(button)                     ? QIcon::Selected
                          : has(button, QStyle::State_Enabled) ? QIcon::Normal
                                                               : QIcon::Disabled;
        button.icon.paint(&painter, place(Qt::AlignLeft, button.iconSize), Qt::AlignCenter, mode);
    }
    painter.setPen(labelColor(button, widget));
    const auto text = needed > room ? button.fontMetrics.elidedText(button.text, Qt::ElideRight,
                                                                    room, Qt::TextShowMnemonic)
                                    : button.text;
    painter.drawText(place(Qt::AlignRight, {textWidth, whole.height()}),
                     Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic, text);
}

void drawFlatPanel(QPainter& painter, const QStyleOption& option) {
    auto ground = option.palette.color(QPalette::ButtonText);
    ground.setAlphaF(static_cast<float>(emphasis(option)));
    drawRounded(painter, option.rect, ground, {});
}

void drawComboBox(QPainter& painter, const QStyleOptionComboBox& box, const QRect& arrow) {
    const auto& palette = box.palette;
    const auto ground =
        mixed(palette.color(QPalette::Button), palette.color(QPalette::ButtonText), emphasis(box));
    drawRounded(painter, box.rect, ground, border(palette));
    if (showsKeyboardFocus(box)) drawFocusRing(painter, box.rect, palette);
    QStyleOption chevron = box;
    chevron.rect = arrow;
    drawArrow(painter, chevron, Qt::DownArrow);
}

void drawField(QPainter& painter, const QStyleOption& option) {
    auto palette = option.palette;
    const auto base = palette.color(QPalette::Base);
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const bool hasError = isInvalid(option.styleObject);
    const auto red = colorFor(SemanticColor::red, palette);
    drawRounded(painter, option.rect,
                isEnabled ? base : mixed(base, palette.color(QPalette::Window), 0.8),
                hasError ? red : border(palette));
    if (hasError) palette.setColor(QPalette::Active, QPalette::Highlight, red);
    if (has(option, QStyle::State_HasFocus)) drawFocusRing(painter, option.rect, palette);
}

void drawHairlineFrame(QPainter& painter, const QStyleOption& option) {
    for (const auto edge : {Qt::TopEdge, Qt::LeftEdge, Qt::RightEdge, Qt::BottomEdge})
        drawLine(painter, option.rect, edge, border(option.palette));
}

bool isRule(const QStyleOptionFrame& frame) {
    return frame.frameShape == QFrame::HLine || frame.frameShape == QFrame::VLine;
}

void drawRule(QPainter& painter, const QStyleOptionFrame& frame) {
    auto line = frame.rect;
    const bool isLevel = frame.frameShape == QFrame::HLine;
    if (isLevel)
        line.setTop(line.center().y());
    else
        line.setLeft(line.center().x());
    drawLine(painter, line, isLevel ? Qt::TopEdge : Qt::LeftEdge, hairline(frame.palette));
}

void drawHeaderSection(QPainter& painter, const QStyleOption& header) {
    const auto& palette = header.palette;
    const QRect& rect = header.rect;
    const auto ground = mixed(palette.color(QPalette::Base), palette.color(QPalette::Window), 0.5);
    const double pressed = has(header, QStyle::State_Sunken) ? 0.06 : 0;
    painter.fillRect(rect, mixed(ground, palette.color(QPalette::WindowText), pressed));
    drawLine(painter, rect, Qt::BottomEdge, hairline(palette));
    const auto* section = qstyleoption_cast<const QStyleOptionHeader*>(&header);
    if (!section || section->orientation != Qt::Horizontal) return;
    const bool isLast = section->position == QStyleOptionHeader::End ||
                        section->position == QStyleOptionHeader::OnlyOneSection;
    if (isLast) return; // the splitter beside the table draws the line
    drawLine(painter, rect.adjusted(0, 6, 0, -6), Qt::RightEdge, hairline(palette));
}

void drawHeaderLabel(QPainter& painter, const QStyleOptionHeader& header) {
    const PainterState state(painter);
    auto font = fontFor(TextStyle::callout);
    font.setWeight(QFont::DemiBold);
    painter.setFont(font);
    painter.setPen(colorFor(SemanticColor::secondary, header.palette));
    const auto alignment =
        QStyle::visualAlignment(header.direction, header.textAlignment | Qt::AlignVCenter);
    const auto text =
        QFontMetrics(font).elidedText(header.text, Qt::ElideRight, header.rect.width());
    painter.drawText(header.rect, static_cast<int>(alignment) | Qt::TextSingleLine, text);
}

void drawItemPanel(QPainter& painter, const QStyleOptionViewItem& item, bool isRound) {
    if (item.backgroundBrush.style() != Qt::NoBrush)
        painter.fillRect(item.rect, item.backgroundBrush);
    if (!has(item, QStyle::State_Selected)) return;
    auto palette = item.palette;
    const bool isActive = has(item, QStyle::State_Active);
    if (has(item, QStyle::State_Enabled))
        palette.setCurrentColorGroup(isActive ? QPalette::Active : QPalette::Inactive);
    const auto fill = palette.color(QPalette::Highlight);
    const bool isOnlyPart = item.viewItemPosition != QStyleOptionViewItem::OnlyOne &&
                            item.viewItemPosition != QStyleOptionViewItem::Invalid;
    if (isRound && !isOnlyPart)
        drawRounded(painter, item.rect, fill, {}, kSmallRadius);
    else
        painter.fillRect(item.rect, fill);
}

void drawItemFocus(QPainter& painter, const QStyleOption& option) {
    drawFocusRing(painter, option.rect, option.palette, kSmallRadius,
                  has(option, QStyle::State_Selected) ? RingGround::selection : RingGround::plain);
}

void drawSplitterLine(QPainter& painter, const QStyleOption& handle, const QWidget* widget) {
    painter.fillRect(handle.rect, handle.palette.color(QPalette::Window));
    const auto* splitter =
        widget ? qobject_cast<const QSplitter*>(widget->parentWidget()) : nullptr;
    // The handle with index i follows the child with index i - 1.
    const QWidget* before = nullptr;
    for (int i = 1; splitter && i < splitter->count(); ++i)
        if (splitter->handle(i) == widget) before = splitter->widget(i - 1);
    const auto* area = qobject_cast<const QAbstractScrollArea*>(before);
    if (area && area->frameWidth() > 0) return; // the area draws its own
    const bool isWindowBefore = before && before->autoFillBackground();
    const bool isUpright = has(handle, QStyle::State_Horizontal);
    const auto edge = isWindowBefore ? (isUpright ? Qt::RightEdge : Qt::BottomEdge)
                                     : (isUpright ? Qt::LeftEdge : Qt::TopEdge);
    drawLine(painter, handle.rect, edge, hairline(handle.palette));
}

QColor scrollGround(const QPalette& palette, const QWidget* widget) {
    for (; widget; widget = widget->parentWidget()) {
        const auto* area = qobject_cast<const QAbstractScrollArea*>(widget);
        if (!area) continue;
        const auto* viewport = area->viewport();
        if (!viewport->autoFillBackground()) break; // the window shows through
        return viewport->palette().color(viewport->backgroundRole());
    }
    return palette.color(QPalette::Window);
}

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar, const QRect& slider,
                   const QWidget* widget) {
    const auto ground = scrollGround(bar.palette, widget);
    painter.fillRect(bar.rect, ground);
    if (!has(bar, QStyle::State_Enabled) || bar.maximum == bar.minimum) return;
    const bool isOnSlider = bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    const double strength = isOnSlider && has(bar, QStyle::State_Sunken)      ? 0.55
                            : isOnSlider && has(bar, QStyle::State_MouseOver) ? 0.42
                                                                              : 0.26;
    const auto text = bar.palette.color(QPalette::WindowText);
    drawRounded(painter, QRectF(slider).adjusted(3, 3, -3, -3), mixed(ground, text, strength), {},
                3);
}

void drawMenuSelection(QPainter& painter, const QRect& rect, const QPalette& palette) {
    drawRounded(painter, rect, palette.color(QPalette::Active, QPalette::Highlight), {},
                kSmallRadius);
}

bool isTextItem(const QStyleOptionMenuItem& item) {
    const bool hasText = item.menuItemType == QStyleOptionMenuItem::Normal ||
                         item.menuItemType == QStyleOptionMenuItem::DefaultItem ||
                         item.menuItemType == QStyleOptionMenuItem::SubMenu;
    return hasText && item.maxIconWidth == 0 && !item.menuHasCheckableItems;
}

void drawTextItem(QPainter& painter, const QStyleOptionMenuItem& item) {
    const PainterState state(painter);
    auto palette = item.palette;
    const bool isEnabled = has(item, QStyle::State_Enabled);
    palette.setCurrentColorGroup(isEnabled ? QPalette::Active : QPalette::Disabled);
    const bool isMarked = isEnabled && has(item, QStyle::State_Selected);
    if (isMarked) drawMenuSelection(painter, item.rect, palette);
    const auto text = palette.color(isMarked ? QPalette::HighlightedText : QPalette::Text);
    painter.setPen(text);
    painter.setFont(item.font);
    const auto place = item.rect.adjusted(kMenuPadding, 0, -kMenuPadding, 0);
    const auto draw = [&](Qt::Alignment side, const QString& part) {
        const auto alignment = QStyle::visualAlignment(item.direction, side | Qt::AlignVCenter);
        painter.drawText(place,
                         static_cast<int>(alignment) | Qt::TextSingleLine | Qt::TextShowMnemonic |
                             Qt::TextDontClip,
                         part);
    };
    const auto tab = item.text.indexOf(u'\t');
    draw(Qt::AlignLeft, item.text.left(tab));
    if (tab >= 0) draw(Qt::AlignRight, item.text.mid(tab + 1));
    if (item.menuItemType != QStyleOptionMenuItem::SubMenu) return;
    QStyleOption arrow = item;
    arrow.rect.setLeft(place.right() - kMenuPadding);
    arrow.palette.setColor(QPalette::WindowText, text);
    drawArrow(painter, arrow, Qt::RightArrow);
}

void drawPopupPanel(QPainter& painter, const QStyleOption& option, QPalette::ColorRole ground) {
    painter.fillRect(option.rect, option.palette.color(ground));
    drawHairlineFrame(painter, option);
}

void drawArrow(QPainter& painter, const QStyleOption& option, Qt::ArrowType direction) {
    const PainterState state(painter);
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const auto text = option.palette.color(isEnabled ? QPalette::Active : QPalette::Disabled,
                                           QPalette::WindowText);
    painter.setPen(QPen(mixed(text, option.palette.color(QPalette::Window), 0.25), 1.5,
                        Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.translate(QRectF(option.rect).center());
    painter.rotate(direction == Qt::UpArrow      ? 180
                   : direction == Qt::LeftArrow  ? 90
                   : direction == Qt::RightArrow ? -90
                                                 : 0);
    const double growth = symbolSize() / 16.0;
    painter.scale(growth, growth);
    painter.drawPolyline(QPolygonF{QPointF(-3.5, -1.75), QPointF(0, 1.75), QPointF(3.5, -1.75)});
}

} // namespace korvan
