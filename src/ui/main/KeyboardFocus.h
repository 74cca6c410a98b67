// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace korvan {

// Tells the window of a list whether the user works by keyboard there, which showsKeyboardFocus
// asks. The toolkit itself only knows of the Tab key, and forgets nothing when the mouse is used.
inline void noteKeyboard(QWidget& list) {
    list.window()->setAttribute(Qt::WA_KeyboardFocusChange, true);
}
inline void noteMouse(QWidget& list) {
    list.window()->setAttribute(Qt::WA_KeyboardFocusChange, false);
}

} // namespace korvan
