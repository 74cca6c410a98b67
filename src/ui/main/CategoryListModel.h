// SPDX-License-Identifier: MIT
#pragma once

#include "state/CategoryFilter.h"
#include "state/ContentView.h"

#include <QAbstractListModel>
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
    // A title as it is written. Shown, it has one line.
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

// Draws the rows of a CategoryListModel: title, checkmark and highlight.
class FilterRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit FilterRowDelegate(const CategoryListModel& model, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    // Tells a title that is cut.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    [[nodiscard]] QRect titleRect(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const;

    const CategoryListModel& m_model;
};

} // namespace korvan
