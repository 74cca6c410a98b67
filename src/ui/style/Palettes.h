// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

// The palettes of our own, and what we mend in those of the desktops.
namespace korvan {

[[nodiscard]] QPalette lightPalette();
[[nodiscard]] QPalette darkPalette();

// Tells lists from the window around them where the palette does not.
void addDepth(QPalette& palette);

} // namespace korvan
