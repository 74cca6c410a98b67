// SPDX-License-Identifier: MIT
#include "ui/style/KeyboardFocus.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>

namespace korvan {

namespace {

// Modifiers do not count as keyboard work, since they are also held while clicking.
bool isModifier(int key) {
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
           key == Qt::Key_Super_L || key == Qt::Key_Super_R;
}

} // namespace

KeyboardFocus::KeyboardFocus(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

bool KeyboardFocus::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (!isModifier(static_cast<QKeyEvent*>(event)->key())) follow(Means::keyboard);
        break;
    case QEvent::Shortcut: follow(Means::keyboard); break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::TabletPress: follow(Means::pointer); break;
    case QEvent::Show:
        if (watched->isWidgetType() && static_cast<QWidget*>(watched)->isWindow())
            mark(*static_cast<QWidget*>(watched));
        break;
    default: break;
    }
    return false;
}

void KeyboardFocus::follow(Means means) {
    m_means = means;
    for (auto* window : QApplication::topLevelWidgets())
        mark(*window);
}

void KeyboardFocus::mark(QWidget& window) const {
    const bool isByKeyboard = m_means == Means::keyboard;
    if (window.testAttribute(Qt::WA_KeyboardFocusChange) == isByKeyboard) return;
    window.setAttribute(Qt::WA_KeyboardFocusChange, isByKeyboard);
    auto* focus = window.focusWidget();
    if (!focus) return;
    focus->update();
    if (const auto* area = qobject_cast<QAbstractScrollArea*>(focus)) area->viewport()->update();
}

} // namespace korvan
