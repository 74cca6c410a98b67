// SPDX-License-Identifier: MIT
#pragma once

#include "state/ContentView.h"

#include <QWidget>

class QToolButton;

namespace korvan {

class CategoryList;
class CategoryListModel;
class ColumnHeading;

// The column of category filters. A click on a row, or Return on it, filters the table; a category
// has a context menu. The state must outlive it.
class CategorySidebar final : public QWidget {
    Q_OBJECT

public:
    explicit CategorySidebar(ContentView& state, QWidget* parent = nullptr);

    void refresh();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ColumnHeading* makeHeading();
    void fitWidth();
    void chooseRow(const QModelIndex& index);
    void openMenuOfCurrentRow();
    void openMenu(const QModelIndex& index, QPoint globalPosition);

    ContentView& m_state;
    CategoryListModel* m_model;
    CategoryList* m_list;
    ColumnHeading* m_heading = nullptr;
    QToolButton* m_renameButton = nullptr;
    QToolButton* m_deleteButton = nullptr;
};

} // namespace korvan
