// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/ContentView.h"
#include "ui/main/ProfileTableModel.h"

#include <QTableView>
#include <array>

namespace korvan {

// The table of profiles. Its selection and the window's are the same: it follows the state, and
// what the user selects is written there. A click on a cell's text selects that profile alone, a
// double click on it connects, too. The state must outlive it.
class ProfileTable final : public QTableView {
    Q_OBJECT

public:
    explicit ProfileTable(ContentView& view, QWidget* parent = nullptr);

    void refresh();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void configure();
    void restyle();

    // The profile whose text is at `position` in the viewport, null where there is none.
    [[nodiscard]] const SSHProfile* profileWithTextAt(QPoint position) const;
    [[nodiscard]] QRect textRectOf(const QModelIndex& index) const;

    void showSelection();
    void takeOverSelection();

    void fitColumns();
    void limitColumn(int column, int width);

    ContentView& m_view;
    ProfileTableModel m_model;
    ProfileSelection m_shownSelection;
    CategoryFilter m_shownFilter = CategoryFilter::all();
    bool m_isShowingSelection = false; // the table's own change is not the user's
    bool m_isFittingColumns = false;
    bool m_hasUserWidths = false; // from then on widths are the user's business
};

} // namespace korvan
