// SPDX-License-Identifier: MIT
#include "ui/main/CategoryList.h"

#include <QMouseEvent>
#include <QStyleOptionFrame>

namespace korvan {

CategoryList::CategoryList(QWidget* parent) : QListView(parent) {
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    viewport()->setAttribute(Qt::WA_Hover);
}

// The row shows the focus. A ring around the list would be the second one.
void CategoryList::initStyleOption(QStyleOptionFrame* option) const {
    QListView::initStyleOption(option);
    if (currentIndex().isValid()) option->state &= ~QStyle::State_HasFocus;
}

void CategoryList::keyPressEvent(QKeyEvent* event) {
    QListView::keyPressEvent(event);
    viewport()->update();
}

void CategoryList::mousePressEvent(QMouseEvent* event) {
    const QModelIndex row = indexAt(event->position().toPoint());
    const bool isChosen =
        event->button() == Qt::LeftButton && row.flags().testFlag(Qt::ItemIsEnabled);
    m_pressed = isChosen ? row : QModelIndex();
    m_isOnPressed = m_pressed.isValid();
    QListView::mousePressEvent(event);
    viewport()->update();
}

void CategoryList::mouseMoveEvent(QMouseEvent* event) {
    QListView::mouseMoveEvent(event);
    const bool isOn = m_pressed.isValid() && m_pressed == indexAt(event->position().toPoint());
    if (isOn != m_isOnPressed) viewport()->update();
    m_isOnPressed = isOn;
}

void CategoryList::mouseReleaseEvent(QMouseEvent* event) {
    m_pressed = QModelIndex();
    m_isOnPressed = false;
    QListView::mouseReleaseEvent(event);
    viewport()->update();
}

} // namespace korvan
