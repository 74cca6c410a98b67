// SPDX-License-Identifier: MIT
#pragma once

#include <QSplitter>
#include <QVariantAnimation>

namespace korvan {

// The profile table and, beside it, the command panel. When the window grows or shrinks, the panel
// takes the difference as far as its limits allow, and the table the rest: the table keeps its
// width before the panel does. Qt's parent rules apply to both.
class ContentSplitter final : public QSplitter {
    Q_OBJECT

public:
    ContentSplitter(QWidget* table, QWidget* panel, QWidget* parent = nullptr);

    enum class Panel { shown, hidden };

    // Shows or hides the panel, sliding it unless the desktop wants no motion. Does nothing when it
    // is so already.
    void setPanel(Panel state);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void slideTo(int width);
    void setPanelWidth(int width);
    void endSlide();
    [[nodiscard]] int availableWidth() const;

    QWidget* m_frame; // clips the panel while it slides
    QWidget* m_panel;
    QVariantAnimation m_slide;
    Panel m_state = Panel::shown;
    int m_panelWidth; // as the user left it
};

} // namespace korvan
