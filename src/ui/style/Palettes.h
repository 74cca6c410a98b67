// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

// The palettes of our own, and what we mend in those of the desktops.
namespace korvan {

[[nodiscard]] QPalette lightPalette();
[[nodiscard]] QPalette darkPalette();
// For who asks for more contrast: white or black, and all that is on it.
[[nodiscard]] QPalette lightHighContrastPalette();
[[nodiscard]] QPalette darkHighContrastPalette();

// Tells lists from the window around them where the palette does not.
void addDepth(QPalette& palette);

// In a palette of high contrast, lets nothing that is disabled vanish, nor a field's placeholder.
void keepVisible(QPalette& palette);

} // namespace korvan
