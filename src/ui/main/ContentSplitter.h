// SPDX-License-Identifier: MIT
#pragma once

#include "state/ColumnWidths.h"

#include <QSplitter>
#include <QVariantAnimation>

namespace korvan {

// The three columns of a window: sidebar, profile table and command panel, as wide as ColumnWidths
// says. Qt's parent rules apply to all three.
class ContentSplitter final : public QSplitter {
    Q_OBJECT

public:
    ContentSplitter(QWidget* sidebar, QWidget* table, QWidget* panel, QWidget* parent = nullptr);

    enum class Panel { shown, hidden };

    // Shows or hides the panel, sliding it unless the desktop wants no motion. Does nothing when it
    // is so already.
    void setPanel(Panel state);

    // The sum of the least widths and the dividers. Counts the panel only while it is shown.
    [[nodiscard]] int leastWidth() const;

    // Sets the splitter's least size. Where it is narrower than leastWidth(), on a small screen,
    // the table alone gives way.
    void setLeastSize(QSize size);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();
    void dragged(int divider);
    void setPanelShare(double share);
    void endSlide();
    [[nodiscard]] int room() const;

    QWidget* m_sidebar;
    QWidget* m_table;
    QWidget* m_frame; // clips the panel while it slides
    QVariantAnimation m_slide;
    Panel m_state = Panel::shown;
    double m_panelShare = 1; // of its width that can be seen
    DraggedWidths m_dragged;
};

} // namespace korvan
