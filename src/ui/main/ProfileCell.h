// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QStyledItemDelegate>

namespace korvan {

// Draws the cells of a ProfileTable as parts of one row. Its texts stand on one line, whatever
// their fonts, and all of it shows that it is selected or under the pointer.
class ProfileCell final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // The row under the pointer, -1 for none.
    void setHoveredRow(int row) { m_hoveredRow = row; }
    [[nodiscard]] int hoveredRow() const { return m_hoveredRow; }

    // Where the text of a cell is drawn, as wide as it is shown. Empty without a text.
    [[nodiscard]] QRect textRect(const QRect& cell, const QModelIndex& index) const;

    // What fills a selected row, and the text on it. Pale while the keyboard is elsewhere.
    struct Selection {
        QColor fill;
        QColor text;
    };
    [[nodiscard]] static Selection selectionIn(const QPalette& palette, bool hasKeyboard);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    // Shows a tool tip with a text that is cut or not shown as it is written.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    int m_hoveredRow = -1;
};

} // namespace korvan
