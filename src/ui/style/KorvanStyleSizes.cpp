// SPDX-License-Identifier: MIT
//
// How large controls are and where their parts are, in logical pixels.
#include "ui/style/ControlParts.h"
#include "ui/style/KorvanStyle.h"
#include "ui/style/Symbols.h"

#include <QAbstractScrollArea>
#include <QDialog>
#include <QStyleOption>
#include <algorithm>

namespace korvan {

namespace {

constexpr int kControlHeight = 28;
constexpr int kRowHeight = 28;
constexpr int kPadding = 10; // beside a control's label
constexpr int kLinkPadding = 8;
constexpr int kSymbolPadding = 6; // around a symbol that is all of a button
constexpr int kShortcutGap = 24;  // between a menu item and its shortcut
constexpr int kDialogButton = 88; // least width of a button in a dialog
constexpr int kFieldFrame = 4;    // so that the content does not cover the round corners
constexpr int kFieldPadding = 6;  // beside a field's text; the toolkit adds 2
constexpr int kLeastSlider = 32;

// The width for the arrow of a combo box and of a submenu.
int arrowRoom() { return symbolSize() * 3 / 2; }

bool isLink(const QStyleOptionButton& button) {
    return button.features.testFlag(QStyleOptionButton::Flat);
}

QRect sliderRect(const QStyleOptionSlider& bar) {
    const bool isHorizontal = bar.orientation == Qt::Horizontal;
    const int groove = isHorizontal ? bar.rect.width() : bar.rect.height();
    const qint64 range = qint64{bar.maximum} - bar.minimum;
    int length = groove;
    if (range > 0) {
        length = static_cast<int>(qint64{groove} * bar.pageStep / (range + bar.pageStep));
        length = std::min(std::max(length, kLeastSlider), groove);
    }
    const int begin = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                      groove - length, bar.upsideDown);
    return isHorizontal ? QRect(bar.rect.left() + begin, bar.rect.top(), length, bar.rect.height())
                        : QRect(bar.rect.left(), bar.rect.top() + begin, bar.rect.width(), length);
}

QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
    const auto slider = sliderRect(bar);
    const bool isHorizontal = bar.orientation == Qt::Horizontal;
    auto before = bar.rect;
    auto after = bar.rect;
    if (isHorizontal) {
        before.setRight(slider.left() - 1);
        after.setLeft(slider.right() + 1);
    } else {
        before.setBottom(slider.top() - 1);
        after.setTop(slider.bottom() + 1);
    }
    switch (part) {
    case QStyle::SC_ScrollBarGroove: return bar.rect;
    case QStyle::SC_ScrollBarSlider: return slider;
    case QStyle::SC_ScrollBarSubPage: return before;
    case QStyle::SC_ScrollBarAddPage: return after;
    default: return {}; // no buttons at the ends
    }
}

} // namespace

int KorvanStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                             const QWidget* widget) const {
    switch (metric) {
    case PM_DefaultFrameWidth:
        return qobject_cast<const QAbstractScrollArea*>(widget) ? kFieldFrame : 1;
    case PM_ButtonIconSize:
    case PM_SmallIconSize:
    case PM_ListViewIconSize:
    case PM_IndicatorWidth:
    case PM_IndicatorHeight: return symbolSize();
    case PM_FocusFrameHMargin: return 7; // beside the text of a row
    case PM_HeaderMargin: return 8;
    case PM_HeaderDefaultSectionSizeVertical: return kRowHeight;
    case PM_ScrollBarExtent: return 12;
    case PM_ScrollBarSliderMin: return kLeastSlider;
    case PM_SplitterWidth: // a hairline; the toolkit makes the area for the pointer wider
    case PM_MenuPanelWidth: return 1;
    case PM_MenuHMargin:
    case PM_MenuVMargin: return 4;
    case PM_MenuBarHMargin:
    case PM_MenuBarVMargin: return 2;
    case PM_ToolTipLabelFrameWidth: return 6;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing: return 8;
    default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize KorvanStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                    const QSize& contents, const QWidget* widget) const {
    const int height = std::max(kControlHeight, option ? option->fontMetrics.height() + 12 : 0);
    switch (type) {
    case CT_PushButton: {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (button && isLink(*button)) return {contents.width() + 2 * kLinkPadding, height};
        const bool isPlain = button && button->icon.isNull();
        const bool isInDialog = widget && qobject_cast<const QDialog*>(widget->window());
        const int width = contents.width() + 2 * kPadding + (isPlain ? 2 : 4);
        return {isPlain && isInDialog ? std::max(width, kDialogButton) : width, height};
    }
    case CT_ToolButton: {
        const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
        const bool isSymbol = button && button->toolButtonStyle == Qt::ToolButtonIconOnly;
        const int side = std::max(contents.height() + 2 * kSymbolPadding, kControlHeight);
        return isSymbol ? QSize(std::max(contents.width() + 10, side), side)
                        : QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
    case CT_LineEdit: return {contents.width() + 2 * kFieldPadding, height};
    case CT_ComboBox: return {contents.width() + kPadding + arrowRoom(), height};
    case CT_ItemViewItem:
    case CT_HeaderSection: {
        const auto size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        return {size.width(), std::max(size.height(), kRowHeight)};
    }
    case CT_MenuItem: {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (item && isTextItem(*item)) {
            const int shortcut = item->reservedShortcutWidth > 0 ? kShortcutGap : 0;
            const int arrow = item->menuItemType == QStyleOptionMenuItem::SubMenu ? arrowRoom() : 0;
            return {contents.width() + 2 * kPadding + shortcut + arrow,
                    std::max(contents.height(), kRowHeight)};
        }
        const auto size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        const bool isText = item && item->menuItemType != QStyleOptionMenuItem::Separator;
        return isText ? QSize(size.width() + kPadding, std::max(size.height(), kRowHeight)) : size;
    }
    case CT_MenuBarItem: return {contents.width() + 2 * kPadding - 2, height - 2};
    default: return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
}

QRect KorvanStyle::subElementRect(SubElement element, const QStyleOption* option,
                                  const QWidget* widget) const {
    switch (element) {
    case SE_PushButtonLayoutItem: { // layouts align a link's text; its ring reaches beyond
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        return button && isLink(*button) ? option->rect.adjusted(kLinkPadding, 0, -kLinkPadding, 0)
                                         : option->rect;
    }
    case SE_PushButtonContents: return option->rect.adjusted(kPadding, 0, -kPadding, 0);
    case SE_LineEditContents: {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        const int padding = frame && frame->lineWidth > 0 ? kFieldPadding : 0;
        return option->rect.adjusted(padding, 0, -padding, 0);
    }
    default: return QProxyStyle::subElementRect(element, option, widget);
    }
}

QRect KorvanStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                  SubControl part, const QWidget* widget) const {
    if (control == CC_ScrollBar)
        if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option))
            return scrollBarPart(*bar, part);
    if (control == CC_ComboBox && (part == SC_ComboBoxEditField || part == SC_ComboBoxArrow)) {
        auto rect = option->rect;
        if (part == SC_ComboBoxArrow)
            rect.setLeft(rect.right() - arrowRoom() + 1);
        else
            rect.adjust(kFieldPadding + 1, 2, -arrowRoom(), -2); // the toolkit adds 1
        return rect;
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

} // namespace korvan
