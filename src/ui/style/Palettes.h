// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

// The palettes of our own, and the corrections to those of the desktops.
namespace korvan {

[[nodiscard]] QPalette lightPalette();
[[nodiscard]] QPalette darkPalette();
// For users who ask for more contrast: black on white, and white on black.
[[nodiscard]] QPalette lightHighContrastPalette();
[[nodiscard]] QPalette darkHighContrastPalette();

// Gives lists another colour than the window, where the palette has the same for both.
void addDepth(QPalette& palette);

// In a palette of high contrast, makes disabled texts and placeholders visible. Leaves other
// palettes unchanged.
void keepVisible(QPalette& palette);

} // namespace korvan
