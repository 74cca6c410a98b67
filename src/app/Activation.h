// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

// Desktops let a new window take the keyboard from others only for what the user did just now. A
// token of a few letters says for what: the desktop gives it to a program when the user starts it.
namespace korvan {

// Empty when there is none. Before the QApplication.
[[nodiscard]] QString activationTokenOfThisStart();

// The screen that windows come up on, by a name that is the same for every process there.
[[nodiscard]] QString screenName();

// Shows a new window, in front if `token` allows it. An empty token leaves that to the desktop.
void showInFront(QWidget& window, const QString& token);

} // namespace korvan
