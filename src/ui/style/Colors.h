// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

class QPalette;

namespace korvan {

// A colour by its purpose. Its value follows from the palette, light or dark.
enum class SemanticColor {
    primary,   // text
    secondary, // less important text, at a contrast of 4.5:1 or more
    accent,    // selection
    focus,     // the ring of keyboard focus: the accent, at a contrast of 3:1 or more on any ground
    red,       // what destroys, and errors
    green,     // success
    separator, // lines between regions
    border,    // lines around controls
};

// The colour in the palette's current colour group. In the disabled group it is paler.
[[nodiscard]] QColor colorFor(SemanticColor color, const QPalette& palette);

// Whether the palette is a dark one: light text on a dark window.
[[nodiscard]] bool isDark(const QPalette& palette);

// Whether the palette is one of high contrast: text at 18:1 or more on a window that is nearly
// black or white. The text alone does not tell: many light desktops have black text, on light grey
// windows.
[[nodiscard]] bool isHighContrast(const QPalette& palette);

// A mixture of both, from 0 (all `from`) to 1 (all `to`).
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, double share);

// The contrast of two opaque colours, from 1 to 21, as the accessibility guidelines define it.
[[nodiscard]] double contrast(const QColor& first, const QColor& second);

// `color`, moved towards the text colour just so far that text in it has this contrast on all
// grounds of the palette.
[[nodiscard]] QColor readable(const QColor& color, const QPalette& palette,
                              double leastContrast = 4.5);

// The colour of text on `fill`: that of the palette's selected text where it can be read there,
// otherwise black or white.
[[nodiscard]] QColor textOn(const QColor& fill, const QPalette& palette);

} // namespace korvan
