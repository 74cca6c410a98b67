// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/Colors.h"

#include <QIcon>
#include <QString>

namespace korvan {

// The drawing named `identifier`, such as "arrow.clockwise", in a colour that follows the palette
// and grows paler where its control is disabled. Sharp at every scale.
[[nodiscard]] QIcon symbol(const QString& identifier,
                           SemanticColor color = SemanticColor::primary);

} // namespace korvan
