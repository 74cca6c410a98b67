// SPDX-License-Identifier: MIT
#include "ui/style/KorvanStyle.h"

#include "ui/style/Colors.h"
#include "ui/style/ControlParts.h"
#include "ui/style/Dimming.h"
#include "ui/style/Drawing.h"
#include "ui/style/KeyboardFocus.h"
#include "ui/style/Symbols.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
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

using namespace Qt::StringLiterals;

namespace {

// Lists and text edits, whose frame is round like that of a line edit.
bool isScrollArea(const QWidget* widget) {
    return qobject_cast<const QAbstractScrollArea*>(widget);
}

bool isTextEdit(const QWidget* widget) {
    return qobject_cast<const QTextEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget);
}

// Whether a list can show its focus on a row. Its frame shows the focus only where there is no row,
// so that there are never two rings.
bool hasRow(const QWidget* area) {
    if (const auto* view = qobject_cast<const QAbstractItemView*>(area))
        return view->currentIndex().isValid();
    const auto* viewport = static_cast<const QAbstractScrollArea*>(area)->viewport();
    return std::ranges::any_of(viewport->children(), [](const QObject* child) {
        const auto* row = qobject_cast<const QWidget*>(child);
        return row && row->isVisible();
    });
}

// The frame of a list or a text edit. A read-only text has no frame, only the focus ring.
void drawArea(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    QStyleOption area = option;
    const bool isByKeyboard = option.state.testFlag(QStyle::State_KeyboardFocusChange);
    const bool isText = isTextEdit(widget);
    const bool isRead = isText && widget->property("readOnly").toBool();
    const bool showsFocus = isText ? !isRead || isByKeyboard : isByKeyboard && !hasRow(widget);
    if (!showsFocus) area.state &= ~QStyle::State_HasFocus;
    if (!isRead) return drawField(painter, area);
    if (area.state.testFlag(QStyle::State_HasFocus))
        drawFocusRing(painter, area.rect, area.palette);
}

// Draws the focus ring for controls that do not draw it with their panel.
void drawFocus(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    if (!widget) return drawFocusRing(painter, option.rect, option.palette);
    // A row's option always says that the user works with the keyboard; only the window knows. A
    // pop-up list needs no ring, since its selection shows the row.
    const auto* window = widget->window();
    if (!window->testAttribute(Qt::WA_KeyboardFocusChange)) return;
    if (qobject_cast<const QAbstractItemView*>(widget)) {
        if (window->windowType() != Qt::Popup) drawItemFocus(painter, option);
        return;
    }
    const bool isInPanel =
        qobject_cast<const QPushButton*>(widget) || qobject_cast<const QComboBox*>(widget);
    if (isInPanel) return;
    const bool isTool = qobject_cast<const QToolButton*>(widget);
    drawFocusRing(painter, isTool ? widget->rect() : option.rect, option.palette);
}

// Draws the mark of the item that the pointer is on. Returns the item without a mark, with its text
// in the colour that fits on the mark.
QStyleOptionMenuItem unmarkedItem(const QStyleOptionMenuItem& item, QPainter& painter) {
    auto plain = item;
    if (item.state.testFlag(QStyle::State_Selected) && item.state.testFlag(QStyle::State_Enabled)) {
        drawMenuSelection(painter, item.rect, item.palette);
        const auto text = item.palette.color(QPalette::Active, QPalette::HighlightedText);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            plain.palette.setColor(role, text);
    }
    plain.state &= ~(QStyle::State_Selected | QStyle::State_Sunken);
    return plain;
}

// Qt tells only the windows when the desktop's font changes. Widgets that derive their own font
// from it must be told, too.
void tellOfFont(const QWidget& window, QEvent& change) {
    for (auto* widget : window.findChildren<QWidget*>())
        if (!widget->isWindow()) QCoreApplication::sendEvent(widget, &change);
}

// Not every desktop draws a frame that sets a sheet apart from the window behind it.
void drawSheetEdge(QWidget& sheet) {
    QPainter painter(&sheet);
    QStyleOption option;
    option.initFrom(&sheet);
    drawHairlineFrame(painter, option);
}

} // namespace

KorvanStyle::KorvanStyle() : QProxyStyle(u"fusion"_s), m_font(QApplication::font()) {}

void KorvanStyle::polish(QApplication* application) {
    QProxyStyle::polish(application);
    if (!m_keyboardFocus) m_keyboardFocus = new KeyboardFocus(this);
}

void KorvanStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (widget->isWindow()) widget->installEventFilter(this);
    if (auto* header = qobject_cast<QHeaderView*>(widget))
        header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter); // as the cells below it
    if (qobject_cast<QScrollBar*>(widget) || qobject_cast<QComboBox*>(widget))
        widget->setAttribute(Qt::WA_Hover);
}

bool KorvanStyle::eventFilter(QObject* watched, QEvent* event) {
    auto* window = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::ThemeChange: followTheme(); break;
    case QEvent::ApplicationFontChange: tellOfFont(*window, *event); break;
    case QEvent::WindowBlocked: Dimming::set(*window, Dimming::State::dimmed); break;
    case QEvent::WindowUnblocked: Dimming::set(*window, Dimming::State::clear); break;
    case QEvent::Paint:
        if (window->isModal()) drawSheetEdge(*window);
        break;
    default: break;
    }
    return QProxyStyle::eventFilter(watched, event);
}

int KorvanStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* data) const {
    switch (hint) {
    case SH_Widget_Animation_Duration:
    case SH_Widget_Animate:
    case SH_ComboBox_Popup: // a list below the box, not a menu over it
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText: return 0;
    default: return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QIcon KorvanStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                const QWidget* widget) const {
    // Each line edit and menu bar asks for its icon when it is made. Without our own, the program
    // would search the desktop's icon theme and the image plug-ins at each start.
    switch (icon) {
    case SP_LineEditClearButton: return symbol(u"xmark.circle.fill"_s, SemanticColor::secondary);
    case SP_ToolBarHorizontalExtensionButton: return symbol(u"chevron.right.2"_s);
    // The rest is for the toolkit's own file panel.
    case SP_ArrowBack:
    case SP_FileDialogBack: return symbol(u"chevron.left"_s);
    case SP_ArrowForward: return symbol(u"chevron.right"_s);
    case SP_FileDialogToParent: return symbol(u"arrow.up"_s);
    case SP_FileDialogNewFolder: return symbol(u"folder.badge.plus"_s);
    case SP_FileDialogListView: return symbol(u"square.grid.2x2"_s);
    case SP_FileDialogDetailedView: return symbol(u"list.bullet"_s);
    case SP_DirIcon:
    case SP_DirOpenIcon:
    case SP_DirClosedIcon:
    case SP_DirLinkIcon:
    case SP_DirHomeIcon: return symbol(u"folder"_s);
    case SP_FileIcon:
    case SP_FileLinkIcon: return symbol(u"doc"_s);
    case SP_ComputerIcon: return symbol(u"desktopcomputer"_s);
    case SP_DriveHDIcon: return symbol(u"internaldrive"_s);
    default: return QProxyStyle::standardIcon(icon, option, widget);
    }
}

void KorvanStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_PanelButtonCommand:
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option))
            return drawPushButtonPanel(*painter, *button);
        break;
    case PE_PanelButtonTool: return drawFlatPanel(*painter, *option);
    case PE_FrameFocusRect: return drawFocus(*painter, *option, widget);
    case PE_PanelLineEdit: {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (frame && frame->lineWidth > 0) drawField(*painter, *option);
        return;
    }
    case PE_FrameLineEdit: return drawField(*painter, *option);
    case PE_Frame:
        return isScrollArea(widget) ? drawArea(*painter, *option, widget)
                                    : drawHairlineFrame(*painter, *option);
    case PE_PanelItemViewItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option))
            return drawItemPanel(*painter, *item, isScrollArea(widget));
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
    case CE_PushButtonBevel: // the toolkit would leave out the panel of a flat button
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option))
            return drawPushButtonPanel(*painter, *button);
        break;
    case CE_PushButtonLabel:
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option))
            return drawPushButtonLabel(*painter, *button, widget);
        break;
    case CE_HeaderSection:
    case CE_HeaderEmptyArea: return drawHeaderSection(*painter, *option);
    case CE_HeaderLabel:
        if (const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option))
            return drawHeaderLabel(*painter, *header);
        break;
    case CE_ShapedFrame:
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            frame && isRule(*frame))
            return drawRule(*painter, *frame);
        break;
    case CE_Splitter: return drawSplitterLine(*painter, *option, widget);
    case CE_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            if (isTextItem(*item)) return drawTextItem(*painter, *item);
            // Fusion draws the rest.
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
