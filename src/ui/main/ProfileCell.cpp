// SPDX-License-Identifier: MIT
#include "ui/main/ProfileCell.h"

#include "ui/main/ProfileTableModel.h"
#include "ui/style/Colors.h"
#include "ui/style/Drawing.h"
#include "ui/style/UserText.h"

#include <QAbstractItemView>
#include <QFontInfo>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

namespace korvan {

namespace {

constexpr int kPadding = 8; // beside a text, as in the table's header

QFont fontOf(const QModelIndex& index) { return index.data(Qt::FontRole).value<QFont>(); }

// The baseline of all texts of a row: that of the centred name.
int baselineIn(const QRect& cell, const QModelIndex& index) {
    const QFontMetrics metrics(fontOf(index.siblingAtColumn(ProfileTableModel::name)));
    return cell.top() + (cell.height() - metrics.height()) / 2 + metrics.ascent();
}

bool isReadable(const QColor& text, const QColor& ground) { return contrast(text, ground) >= 4.5; }

} // namespace

ProfileCell::Selection ProfileCell::selectionIn(const QPalette& palette, bool hasKeyboard) {
    const auto group = hasKeyboard ? QPalette::Active : QPalette::Inactive;
    Selection selection{palette.color(group, QPalette::Highlight),
                        palette.color(group, QPalette::HighlightedText)};
    // Many desktops have only one colour of selection.
    if (!hasKeyboard && selection.fill == palette.color(QPalette::Active, QPalette::Highlight)) {
        const QColor text = palette.color(QPalette::Active, QPalette::Text);
        selection = {mixed(palette.color(QPalette::Active, QPalette::Base), text, 0.16), text};
    }
    if (!isReadable(selection.text, selection.fill))
        selection.text = isReadable(Qt::white, selection.fill) ? Qt::white : Qt::black;
    return selection;
}

QRect ProfileCell::textRect(const QRect& cell, const QModelIndex& index) const {
    const QString text = index.data().toString();
    if (text.isEmpty()) return {};
    const QFontMetrics metrics(fontOf(index));
    const int width = std::min(metrics.horizontalAdvance(text), cell.width() - 2 * kPadding);
    return {cell.left() + kPadding, baselineIn(cell, index) - metrics.ascent(), width,
            metrics.height()};
}

void ProfileCell::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const QRect& cell = option.rect;
    QColor color = index.data(Qt::ForegroundRole).value<QColor>();
    if (option.state.testFlag(QStyle::State_Selected)) {
        const bool hasKeyboard =
            option.widget && option.widget->hasFocus() && option.widget->isActiveWindow();
        const Selection selection = selectionIn(option.palette, hasKeyboard);
        painter->fillRect(cell, selection.fill);
        color = selection.text;
    } else if (index.row() == m_hoveredRow) {
        painter->fillRect(cell, washColor(option.palette, Wash::hoveredInTable));
    }
    const QString text = index.data().toString();
    if (text.isEmpty()) return;
    const QFont font = fontOf(index);
    painter->setFont(font);
    painter->setPen(color);
    painter->drawText(
        cell.left() + kPadding, baselineIn(cell, index),
        QFontMetrics(font).elidedText(text, Qt::ElideRight, cell.width() - 2 * kPadding));
}

bool ProfileCell::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                            const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString shown = index.data().toString();
    const QString written = index.data(ProfileTableModel::kWrittenText).toString();
    const QFont font = fontOf(index);
    const int room = option.rect.width() - 2 * kPadding;
    const bool isCut = QFontMetrics(font).horizontalAdvance(shown) > room;
    if (!written.isEmpty() && (isCut || shown != written))
        showToolTip(event->globalPos(), written,
                    QFontInfo(font).fixedPitch() ? font : QToolTip::font(), *view->viewport(),
                    option.rect);
    else
        QToolTip::hideText();
    return true;
}

} // namespace korvan
