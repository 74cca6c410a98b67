// SPDX-License-Identifier: MIT
#pragma once

#include "state/ContentView.h"
#include "ui/style/Colors.h"

#include <QWidget>
#include <vector>

class QHBoxLayout;
class QPushButton;

namespace korvan {

// The window's bar of actions. The state must outlive it.
//
// Where the bar is too narrow for all labels, the title is cut first. Then the labels of the
// buttons go, the least needed first; their symbols, tooltips and names stay. The label of the
// panel's toggle goes last, since it tells a state.
class HeaderBar final : public QWidget {
    Q_OBJECT

public:
    explicit HeaderBar(ContentView& state, QWidget* parent = nullptr);

    void refresh();

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Target { none, selectedProfile };
    using Action = void (ContentView::*)();

    QPushButton* addButton(const QString& symbol, const QString& label, Action action,
                           Target target = Target::none,
                           SemanticColor color = SemanticColor::primary);
    void addDivider();
    void setLabel(QPushButton* button, const QString& label);
    // Shows as many labels as there is room for.
    void fitLabels();

    ContentView& m_state;
    QHBoxLayout* m_layout;
    QWidget* m_title;
    std::vector<QPushButton*> m_buttons;        // the most needed first
    std::vector<QPushButton*> m_profileButtons; // those that need a selected profile
    QPushButton* m_panelToggle;
};

} // namespace korvan
