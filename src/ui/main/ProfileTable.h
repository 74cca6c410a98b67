// SPDX-License-Identifier: MIT
#pragma once

#include "state/ContentView.h"
#include "ui/main/ProfileTableModel.h"

#include <QTableView>

namespace korvan {

class ProfileCell;

// The table of profiles. Its selection and the window's are the same: it follows the state, and
// what the user selects is written there. A click on a cell's text selects that profile alone, a
// double click on it connects, too; a click beside all rows selects nothing. The state must outlive
// it.
class ProfileTable final : public QTableView {
    Q_OBJECT

public:
    explicit ProfileTable(ContentView& state, QWidget* parent = nullptr);

    void refresh();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void configure();
    void restyle();

    // The profile whose text is at `position` in the viewport, null where there is none.
    [[nodiscard]] const SSHProfile* profileWithTextAt(QPoint position) const;
    // The row that a key begins with where none is selected, -1 for a key that selects none.
    [[nodiscard]] int firstRowFor(int key) const;
    void updateRow(int row);
    void showHoverAt(QPoint position);

    void showSelection();
    void takeOverSelection();

    void fitColumns();
    void limitColumn(int column, int width);

    ContentView& m_state;
    ProfileTableModel m_model;
    ProfileCell* m_cell;
    ProfileSelection m_shownSelection;
    CategoryFilter m_shownFilter = CategoryFilter::all();
    bool m_isShowingSelection = false; // what changes then is not the user's doing
    double m_columnScale = 1;
    bool m_isFittingColumns = false;
    bool m_hasUserWidths = false; // the user dragged a column, so widths are not fitted
};

} // namespace korvan
