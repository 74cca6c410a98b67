// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

namespace korvan {

// Asks over `window` whether the file of this name may be replaced, waits for the answer and
// returns it. Closing the question means no. `title` is that of the panel in which the user chose
// the name.
[[nodiscard]] bool mayReplace(QWidget* window, const QString& title, const QString& fileName);

} // namespace korvan
