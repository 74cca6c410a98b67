// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

class QPalette;

namespace korvan {

// A colour by what it is for. What it looks like follows from the palette, light or dark.
enum class SemanticColor {
    primary,   // text
    secondary, // text that steps back, at a contrast of 4.5:1 or more
    accent,    // selection and focus
    red,       // what destroys, and what went wrong
    green,     // what is there
    separator, // lines between regions
};

[[nodiscard]] QColor colorFor(SemanticColor color, const QPalette& palette);

// Whether the palette is a dark one: light text on a dark window.
[[nodiscard]] bool isDark(const QPalette& palette);

} // namespace korvan
