// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/QtText.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>
#include <string_view>

// Finding widgets as a user does: by what they are called.
namespace korvan {

// The visible descendant with this accessible name, null when there is none.
template <class Widget>
Widget* named(const QWidget& root, std::string_view name) {
    for (Widget* each : root.findChildren<Widget*>())
        if (each->accessibleName() == toQString(name) && each->isVisible()) return each;
    return nullptr;
}

inline QAbstractButton* buttonOf(const QWidget& root, std::string_view label) {
    for (QAbstractButton* each : root.findChildren<QAbstractButton*>())
        if (each->text() == toQString(label) && each->isVisible()) return each;
    return named<QAbstractButton>(root, label);
}

inline void click(QAbstractButton* button) { QTest::mouseClick(button, Qt::LeftButton); }

// Shows `window` and waits until it has the keyboard.
inline void activate(QWidget& window) {
    window.show();
    window.activateWindow();
    (void)QTest::qWaitForWindowActive(&window);
}

} // namespace korvan
