// SPDX-License-Identifier: MIT
#pragma once

#include "state/CategoryFilter.h"
#include "state/ContentView.h"

#include <QAbstractListModel>
#include <QListView>
#include <QString>
#include <QStyledItemDelegate>
#include <cstdint>
#include <optional>
#include <vector>

namespace korvan {

// The rows of the sidebar: all, those without a category, a heading, and one row per category.
// Reads the window's state, which must outlive it.
class CategoryListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    // The role of a title as it is written. The display role has it on one line.
    static constexpr int kWrittenText = Qt::UserRole;

    explicit CategoryListModel(const ContentView& state, QObject* parent = nullptr);

    void refresh();

    // The filter that a row stands for, nothing for the heading.
    [[nodiscard]] std::optional<CategoryFilter> filterAt(int row) const;

    // The category of a row, null for every other row. Valid until the store changes.
    [[nodiscard]] const SSHCategory* categoryAt(int row) const;

    // Whether the row is the one whose filter the window uses.
    [[nodiscard]] bool isMarked(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Row {
        QString title;
        std::optional<CategoryFilter> filter;
    };

    [[nodiscard]] std::vector<Row> makeRows() const;

    const ContentView& m_state;
    std::vector<Row> m_rows;
    std::uint64_t m_revision = 0;
    CategoryFilter m_shownFilter = CategoryFilter::all();
};

// The sidebar's list, whose rows answer to the pointer and show where the keyboard is.
// FilterRowDelegate draws them.
class CategoryList final : public QListView {
    Q_OBJECT

public:
    explicit CategoryList(QWidget* parent = nullptr);

    // The row that is pressed: the mouse button went down on it, and the pointer is there. Invalid
    // when there is none.
    [[nodiscard]] QModelIndex pressedRow() const {
        return m_isOnPressed ? QModelIndex(m_pressed) : QModelIndex();
    }

protected:
    void initStyleOption(QStyleOptionFrame* option) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QPersistentModelIndex m_pressed;
    bool m_isOnPressed = false;
};

// Draws the rows of a CategoryListModel: title, checkmark and highlight.
class FilterRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit FilterRowDelegate(const CategoryListModel& model, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    // Shows a tool tip with a title that is cut or not shown as it is written.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    [[nodiscard]] QRect titleRect(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const;

    const CategoryListModel& m_model;
};

} // namespace korvan
