// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

class QPalette;

namespace korvan {

// A colour by what it is for. What it looks like follows from the palette, light or dark.
enum class SemanticColor {
    primary,   // text
    secondary, // text that steps back, at a contrast of 4.5:1 or more
    accent,    // selection
    focus,     // the ring of keyboard focus: the accent, at 3:1 or more on all that it lies on
    red,       // what destroys, and what went wrong
    green,     // what is there
    separator, // lines between regions
    border,    // lines around controls
};

// Of the palette's current colour group: the colours of a disabled group are paler.
[[nodiscard]] QColor colorFor(SemanticColor color, const QPalette& palette);

// Whether the palette is a dark one: light text on a dark window.
[[nodiscard]] bool isDark(const QPalette& palette);

// Whether the palette is one for people who need the strongest contrasts: text at 18:1 or more on a
// window that is as good as black or white. Text alone would not tell: many a light desktop has
// black text, but its window is a light grey, off from the white of its lists.
[[nodiscard]] bool isHighContrast(const QPalette& palette);

// `from` with the share 0...1 of `to` in it.
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, double share);

// How far two opaque colours stand apart, from 1 to 21, as the accessibility guidelines count it.
[[nodiscard]] double contrast(const QColor& first, const QColor& second);

// `color`, moved towards the text colour as far as text in it needs for a contrast of 4.5:1, or
// another one.
[[nodiscard]] QColor readable(const QColor& color, const QPalette& palette,
                              double leastContrast = 4.5);

} // namespace korvan
