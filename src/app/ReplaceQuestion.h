// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

namespace korvan {

// Asks over `window` whether the file of this name may be replaced, and waits for the answer: no,
// unless the user says so. `title` is that of the panel in which the name was chosen.
[[nodiscard]] bool mayReplace(QWidget* window, const QString& title, const QString& fileName);

} // namespace korvan
