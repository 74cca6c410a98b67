// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>

namespace korvan {

// The sidebar's list, whose rows answer to the pointer and show where the keyboard is.
// FilterRowDelegate draws them.
class CategoryList final : public QListView {
    Q_OBJECT

public:
    explicit CategoryList(QWidget* parent = nullptr);

    // The row that the mouse button went down on, as long as it is down and the pointer there.
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

} // namespace korvan
