// SPDX-License-Identifier: MIT
#include "ui/style/KorvanStyle.h"

#include "ui/style/Colors.h"
#include "ui/style/Drawing.h"
#include "ui/style/Symbols.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFontInfo>
#include <QHeaderView>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOption>
#include <QTextEdit>
#include <QToolButton>
#include <algorithm>

namespace korvan {

namespace {

constexpr int kControlHeight = 28;
constexpr int kRowHeight = 28;
constexpr int kPadding = 10;      // beside a control's label
constexpr int kDialogButton = 88; // least width of a button in a dialog
constexpr int kFieldFrame = 4;    // keeps a square content clear of the round corners
constexpr int kFieldPadding = 6;  // beside a field's text
constexpr int kComboArrow = 24;
constexpr int kLeastSlider = 32;

// Frames that are drawn round, like a line edit's.
bool isField(const QWidget* widget) { return qobject_cast<const QAbstractScrollArea*>(widget); }

bool isTextEdit(const QWidget* widget) {
    return qobject_cast<const QTextEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget);
}

// The frame of a list or a text edit. A list that was clicked has its selection to show for it.
void drawArea(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    QStyleOption area = option;
    if (!isTextEdit(widget) && !option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        area.state &= ~QStyle::State_HasFocus;
    }
    drawField(painter, area);
}

// Where a control asks for a mark of focus beside what it draws itself.
void drawFocus(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    if (qobject_cast<const QPushButton*>(widget) || qobject_cast<const QComboBox*>(widget)) {
        return; // a part of their panels
    }
    if (qobject_cast<const QAbstractItemView*>(widget)) {
        // A framed list shows its focus by the frame, as long as its current row is a selected one.
        // The option claims the keyboard for every row; the window knows.
        const bool isShown = isField(widget) && option.state.testFlag(QStyle::State_Selected);
        const bool isByKeyboard = widget->window()->testAttribute(Qt::WA_KeyboardFocusChange);
        if (isByKeyboard && !isShown) drawItemFocus(painter, option);
        return;
    }
    const bool isTool = qobject_cast<const QToolButton*>(widget);
    drawFocusRing(painter, isTool ? widget->rect() : option.rect, option.palette);
}

// Draws the mark of the item that the pointer is on, and answers the item as it stands on the mark.
QStyleOptionMenuItem unmarkedItem(const QStyleOptionMenuItem& item, QPainter& painter) {
    auto plain = item;
    if (item.state.testFlag(QStyle::State_Selected) && item.state.testFlag(QStyle::State_Enabled)) {
        drawMenuSelection(painter, item.rect, item.palette);
        const auto text = item.palette.color(QPalette::Active, QPalette::HighlightedText);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            plain.palette.setColor(role, text);
        }
    }
    plain.state &= ~(QStyle::State_Selected | QStyle::State_Sunken);
    return plain;
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

QPalette lightPalette() {
    QPalette palette(QColor(0xfcfcfd), QColor(0xf3f3f5));
    const QColor text(0x1e1e22);
    const QColor pale(0xa4a4ab);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, pale);
    }
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xf6f6f8));
    palette.setColor(QPalette::AlternateBase, QColor(0xf8f8fa));
    palette.setColor(QPalette::Highlight, QColor(0x2b65d9));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0xd7dae1));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xd7dae1));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, pale);
    palette.setColor(QPalette::PlaceholderText, QColor(0x74747c));
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Link, QColor(0x2b65d9));
    return palette;
}

// Greys as neutral as the light ones. Lists lie deeper than the window, as they lie higher there.
QPalette darkPalette() {
    QPalette palette(QColor(0x36363b), QColor(0x27272a));
    const QColor text(0xe9e9ed);
    const QColor pale(0x77777f);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, pale);
    }
    palette.setColor(QPalette::Base, QColor(0x1e1e20));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0x242427));
    palette.setColor(QPalette::AlternateBase, QColor(0x232326));
    palette.setColor(QPalette::Highlight, QColor(0x3a70dc));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0x43454c));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x43454c));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, pale);
    palette.setColor(QPalette::PlaceholderText, QColor(0x9a9aa2));
    palette.setColor(QPalette::ToolTipBase, QColor(0x36363b));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Link, QColor(0x86adff));
    return palette;
}

// In GNOME's palette, as Qt makes it out, nothing tells a list from the window around it, and a
// window that waits for its sheet is hard to read. Black and white stay what they are.
void addDepth(QPalette& palette) {
    const auto window = palette.color(QPalette::Active, QPalette::Window);
    if (palette.color(QPalette::Active, QPalette::Base) != window) return;
    const auto base = isDark(palette) ? window.darker(130) : QColor(Qt::white);
    palette.setColor(QPalette::Active, QPalette::Base, base);
    palette.setColor(QPalette::Inactive, QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, mixed(base, window, 0.5));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
    }
}

// Asks the desktop, and then the style, again. A palette that Qt's theme for GNOME has for fields
// alone would not fit the others.
void renewPalette() {
    QApplication::setPalette(QPalette());
    QApplication::setPalette(QApplication::palette(), "QLineEdit");
}

} // namespace

KorvanStyle::KorvanStyle() : QProxyStyle(QStringLiteral("fusion")), m_font(QApplication::font()) {}

void KorvanStyle::setScheme(Scheme scheme) {
    if (scheme == m_scheme && m_isPaletteSet) return;
    m_scheme = scheme;
    m_isPaletteSet = true;
    renewPalette();
}

void KorvanStyle::setFont(const QFont& font) {
    m_font = font;
    if (font != QApplication::font()) QApplication::setFont(font);
}

QPalette KorvanStyle::standardPalette() const {
    return m_scheme == Scheme::dark ? darkPalette() : lightPalette();
}

// Where a desktop brings no palette, the toolkit offers Fusion's as if it were the desktop's. And
// GNOME's, as Qt makes it out, does not become dark with the desktop.
void KorvanStyle::polish(QPalette& palette) {
    const auto fusion = QProxyStyle::standardPalette();
    const auto isFusion = [&](QPalette::ColorRole role) {
        return palette.color(QPalette::Active, role) == fusion.color(QPalette::Active, role);
    };
    const bool isNone =
        isFusion(QPalette::Window) && isFusion(QPalette::Base) && isFusion(QPalette::Highlight);
    const bool isTooLight = m_scheme == Scheme::dark && !isDark(palette);
    if (isNone || isTooLight) palette = standardPalette();
    addDepth(palette);
}

void KorvanStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (widget->isWindow()) widget->installEventFilter(this);
    if (auto* header = qobject_cast<QHeaderView*>(widget)) {
        header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter); // as the cells below it
    }
    if (qobject_cast<QScrollBar*>(widget) || qobject_cast<QComboBox*>(widget)) {
        widget->setAttribute(Qt::WA_Hover);
    }
}

// Of a new font of the desktop, Qt tells the windows alone. Whatever has a font of its own, taken
// from the desktop's in another size, would stay as it is.
bool KorvanStyle::eventFilter(QObject* window, QEvent* event) {
    if (event->type() == QEvent::ThemeChange) {
        keepProportionalFont();
        renewPalette();
    } else if (event->type() == QEvent::ApplicationFontChange) {
        for (auto* widget : window->findChildren<QWidget*>()) {
            if (!widget->isWindow()) QCoreApplication::sendEvent(widget, event);
        }
    }
    return QProxyStyle::eventFilter(window, event);
}

// When GNOME's colours change, Qt 6.8 takes that desktop's font for code for the one of all texts.
// Who really chooses such a font has it from the next start on.
void KorvanStyle::keepProportionalFont() {
    const auto font = QApplication::font();
    if (QFontInfo(font).fixedPitch() && !QFontInfo(m_font).fixedPitch()) {
        QApplication::setFont(m_font);
    } else {
        m_font = font;
    }
}

int KorvanStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                             const QWidget* widget) const {
    switch (metric) {
    case PM_DefaultFrameWidth: return isField(widget) ? kFieldFrame : 1;
    case PM_ButtonIconSize:
    case PM_SmallIconSize:
    case PM_ListViewIconSize:
    case PM_IndicatorWidth:
    case PM_IndicatorHeight: return 16;
    case PM_ButtonDefaultIndicator:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical: return 0;
    case PM_FocusFrameHMargin: return 7; // beside the text of a row
    case PM_HeaderMargin: return 8;
    case PM_HeaderDefaultSectionSizeVertical: return kRowHeight;
    case PM_ScrollBarExtent: return 12;
    case PM_ScrollBarSliderMin: return kLeastSlider;
    case PM_ScrollView_ScrollBarSpacing:
    case PM_ScrollView_ScrollBarOverlap: return 0;
    case PM_SplitterWidth: // drawn as a hairline; the toolkit widens what can be grabbed
    case PM_MenuPanelWidth: return 1;
    case PM_MenuHMargin:
    case PM_MenuVMargin: return 4;
    case PM_MenuBarPanelWidth: return 0;
    case PM_MenuBarHMargin:
    case PM_MenuBarVMargin: return 2;
    case PM_ToolTipLabelFrameWidth: return 6;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing: return 8;
    default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int KorvanStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* data) const {
    switch (hint) {
    case SH_Widget_Animation_Duration:
    case SH_Widget_Animate:
    case SH_ComboBox_Popup: return 0; // a list below the box, not a menu over it
    case SH_ComboBox_PopupFrameStyle: return static_cast<int>(QFrame::StyledPanel) | QFrame::Plain;
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText: return 0;
    case SH_ItemView_ShowDecorationSelected: return 1;
    case SH_Table_GridLineColor:
        return option ? static_cast<int>(colorFor(SemanticColor::separator, option->palette).rgba())
                      : QProxyStyle::styleHint(hint, option, widget, data);
    default: return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QSize KorvanStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                    const QSize& contents, const QWidget* widget) const {
    const int height = std::max(kControlHeight, option ? option->fontMetrics.height() + 12 : 0);
    switch (type) {
    case CT_PushButton: {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        const bool isPlain =
            button && button->icon.isNull() && !button->features.testFlag(QStyleOptionButton::Flat);
        const bool isInDialog = widget && qobject_cast<const QDialog*>(widget->window());
        const int width = contents.width() + 2 * kPadding + (isPlain ? 2 : 4);
        return {isPlain && isInDialog ? std::max(width, kDialogButton) : width, height};
    }
    case CT_ToolButton: {
        const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
        const bool isSymbol = button && button->toolButtonStyle == Qt::ToolButtonIconOnly;
        return isSymbol ? QSize(std::max(contents.width() + 10, kControlHeight), kControlHeight)
                        : QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
    case CT_LineEdit: return {contents.width() + 2 * kFieldPadding, height};
    case CT_ComboBox: return {contents.width() + kPadding + kComboArrow, height};
    case CT_ItemViewItem:
    case CT_HeaderSection: {
        const auto size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        return {size.width(), std::max(size.height(), kRowHeight)};
    }
    case CT_MenuItem: {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        const auto size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        const bool isText = item && item->menuItemType != QStyleOptionMenuItem::Separator;
        return isText ? QSize(size.width() + kPadding, std::max(size.height(), kRowHeight)) : size;
    }
    case CT_MenuBarItem: return {contents.width() + 2 * kPadding - 2, height - 2};
    default: return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
}

QIcon KorvanStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                const QWidget* widget) const {
    // Also spares the start a walk through the desktop's icon theme and the plug-ins for pictures:
    // each line edit and menu bar asks for its icon when it is made.
    switch (icon) {
    case SP_LineEditClearButton:
        return symbol(QStringLiteral("xmark.circle.fill"), SemanticColor::secondary);
    case SP_ToolBarHorizontalExtensionButton: return symbol(QStringLiteral("chevron.right.2"));
    default: return QProxyStyle::standardIcon(icon, option, widget);
    }
}

QRect KorvanStyle::subElementRect(SubElement element, const QStyleOption* option,
                                  const QWidget* widget) const {
    switch (element) {
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
    if (control == CC_ScrollBar) {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
            return visualRect(bar->direction, bar->rect, scrollBarPart(*bar, part));
        }
    }
    if (control == CC_ComboBox && (part == SC_ComboBoxEditField || part == SC_ComboBoxArrow)) {
        auto rect = option->rect;
        if (part == SC_ComboBoxArrow) {
            rect.setLeft(rect.right() - kComboArrow + 1);
        } else {
            rect.adjust(kPadding - 1, 2, -kComboArrow, -2);
        }
        return visualRect(option->direction, option->rect, rect);
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

void KorvanStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_PanelButtonCommand:
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            return drawPushButtonPanel(*painter, *button);
        }
        break;
    case PE_PanelButtonTool: return drawToolButtonPanel(*painter, *option);
    case PE_FrameDefaultButton:
    case PE_FrameStatusBarItem: return;
    case PE_FrameFocusRect: return drawFocus(*painter, *option, widget);
    case PE_PanelLineEdit: {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (frame && frame->lineWidth > 0) drawField(*painter, *option);
        return;
    }
    case PE_FrameLineEdit: return drawField(*painter, *option);
    case PE_Frame:
        return isField(widget) ? drawArea(*painter, *option, widget)
                               : drawHairlineFrame(*painter, *option);
    case PE_PanelItemViewItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option)) {
            return drawItemPanel(*painter, *item, isField(widget));
        }
        break;
    case PE_FrameMenu: return;
    case PE_PanelMenu: return drawPopupPanel(*painter, *option, QPalette::Base);
    case PE_PanelTipLabel: return drawPopupPanel(*painter, *option, QPalette::ToolTipBase);
    case PE_PanelScrollAreaCorner:
        return painter->fillRect(option->rect, scrollGround(option->palette, widget));
    case PE_IndicatorArrowDown: return drawArrow(*painter, *option, Qt::DownArrow);
    case PE_IndicatorArrowUp: return drawArrow(*painter, *option, Qt::UpArrow);
    case PE_IndicatorArrowLeft: return drawArrow(*painter, *option, Qt::LeftArrow);
    case PE_IndicatorArrowRight: return drawArrow(*painter, *option, Qt::RightArrow);
    default: break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void KorvanStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    switch (element) {
    case CE_PushButtonLabel:
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            return drawPushButtonLabel(*painter, *button, widget);
        }
        break;
    case CE_HeaderSection:
    case CE_HeaderEmptyArea: return drawHeaderSection(*painter, *option);
    case CE_HeaderLabel:
        if (const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option)) {
            return drawHeaderLabel(*painter, *header);
        }
        break;
    case CE_ShapedFrame:
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option)) {
            if (isRule(*frame)) return drawRule(*painter, *frame);
        }
        break;
    case CE_Splitter:
        return painter->fillRect(option->rect, colorFor(SemanticColor::separator, option->palette));
    case CE_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            // Fusion draws all but the mark, as it would an item without one.
            const auto plain = unmarkedItem(*item, *painter);
            return QProxyStyle::drawControl(element, &plain, painter, widget);
        }
        break;
    case CE_MenuBarItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            painter->fillRect(item->rect, item->palette.color(QPalette::Window));
            const auto plain = unmarkedItem(*item, *painter);
            return drawItemText(painter, item->rect, Qt::AlignCenter | Qt::TextShowMnemonic,
                                plain.palette, item->state.testFlag(State_Enabled), item->text,
                                QPalette::WindowText);
        }
        break;
    case CE_MenuBarEmptyArea:
        return painter->fillRect(option->rect, option->palette.color(QPalette::Window));
    default: break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void KorvanStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
    if (control == CC_ScrollBar) {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
            const auto slider = subControlRect(control, option, SC_ScrollBarSlider, widget);
            return drawScrollBar(*painter, *bar, slider, widget);
        }
    }
    if (control == CC_ComboBox) {
        if (const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option)) {
            const auto arrow = subControlRect(control, option, SC_ComboBoxArrow, widget);
            return drawComboBox(*painter, *box, arrow);
        }
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

int animationDuration(const QWidget& widget) {
    constexpr int slideMilliseconds = 180;
    const auto* style = qobject_cast<const KorvanStyle*>(widget.style());
    return style && style->motion() == KorvanStyle::Motion::full ? slideMilliseconds : 0;
}

} // namespace korvan
