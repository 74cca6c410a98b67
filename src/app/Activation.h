// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

// A desktop brings a new window to the front only when the user has just asked for it. The proof is
// an activation token, a short text that the desktop gives to a program when the user starts it.
namespace korvan {

// Empty when there is none. Call this before a QApplication exists, which takes the token out of
// the environment.
[[nodiscard]] QString activationTokenOfThisStart();

// A name for the screen that windows appear on. It is the same in every process on that screen.
[[nodiscard]] QString screenName();

// Shows a new window, in front if `token` allows it. With an empty token the desktop decides.
void showInFront(QWidget& window, const QString& token);

} // namespace korvan
