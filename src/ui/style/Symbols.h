// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/Colors.h"

#include <QIcon>
#include <QString>

namespace korvan {

// The drawing named `identifier`, such as "arrow.clockwise", in a colour that follows the
// application's palette and grows paler where its control is disabled. On a selected row and a
// filled button it takes the colour of their text. Sharp at every scale. An unknown identifier
// gives an empty icon.
[[nodiscard]] QIcon symbol(const QString& identifier, SemanticColor color = SemanticColor::primary);

// The side of a symbol beside a text, in logical pixels: 16 at the usual size of texts, and growing
// with them.
[[nodiscard]] int symbolSize();

// The program's own icon.
[[nodiscard]] QIcon applicationIcon();

} // namespace korvan
