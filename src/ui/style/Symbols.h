// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/Colors.h"

#include <QIcon>
#include <QString>

namespace korvan {

// The symbol named `identifier`, such as "arrow.clockwise", or an empty icon if there is none. Its
// colour follows the application's palette, is paler where its control is disabled, and is that of
// the text on a selected row and a filled button. It is sharp at every scale.
[[nodiscard]] QIcon symbol(const QString& identifier, SemanticColor color = SemanticColor::primary);

// The side of a symbol beside a text, in logical pixels: 16 with the usual font, more with a large
// one.
[[nodiscard]] int symbolSize();

// The program's own icon.
[[nodiscard]] QIcon applicationIcon();

} // namespace korvan
