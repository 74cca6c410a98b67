// SPDX-License-Identifier: MIT
#include "ui/style/Palettes.h"

#include "ui/style/Colors.h"

#include <array>

namespace korvan {

namespace {

constexpr std::array kTextRoles{QPalette::WindowText, QPalette::Text, QPalette::ButtonText};

// The colours of one of our palettes, each for one purpose.
struct Shades {
    QRgb window, button, toolTip;
    QRgb list, disabledList, alternateRow;
    QRgb text, disabledText, placeholder, link;
    QRgb selection, inactiveSelection; // with white text, and with the usual text
};

constexpr Shades kLight{.window = 0xf3f3f5,
                        .button = 0xfcfcfd,
                        .toolTip = 0xffffff,
                        .list = 0xffffff,
                        .disabledList = 0xf6f6f8,
                        .alternateRow = 0xf8f8fa,
                        .text = 0x1e1e22,
                        .disabledText = 0xa4a4ab,
                        .placeholder = 0x74747c,
                        .link = 0x2b65d9,
                        .selection = 0x2b65d9,
                        .inactiveSelection = 0xd7dae1};

// Neutral greys, as in the light palette. Lists are darker than the window here, and lighter there.
constexpr Shades kDark{.window = 0x27272a,
                       .button = 0x36363b,
                       .toolTip = 0x36363b,
                       .list = 0x1e1e20,
                       .disabledList = 0x242427,
                       .alternateRow = 0x232326,
                       .text = 0xe9e9ed,
                       .disabledText = 0x77777f,
                       .placeholder = 0x9a9aa2,
                       .link = 0x86adff,
                       .selection = 0x3a70dc,
                       .inactiveSelection = 0x43454c};

QPalette paletteOf(const Shades& shades) {
    QPalette palette(QColor(shades.button), QColor(shades.window));
    const auto set = [&palette](QPalette::ColorRole role, QRgb active, QRgb inactive,
                                QRgb disabled) {
        palette.setColor(QPalette::Active, role, active);
        palette.setColor(QPalette::Inactive, role, inactive);
        palette.setColor(QPalette::Disabled, role, disabled);
    };
    for (const auto role : kTextRoles)
        set(role, shades.text, shades.text, shades.disabledText);
    set(QPalette::Base, shades.list, shades.list, shades.disabledList);
    set(QPalette::Highlight, shades.selection, shades.inactiveSelection, shades.inactiveSelection);
    set(QPalette::HighlightedText, 0xffffff, shades.text, shades.disabledText);
    palette.setColor(QPalette::AlternateBase, shades.alternateRow);
    palette.setColor(QPalette::PlaceholderText, shades.placeholder);
    palette.setColor(QPalette::ToolTipBase, shades.toolTip);
    palette.setColor(QPalette::ToolTipText, shades.text);
    palette.setColor(QPalette::Link, shades.link);
    return palette;
}

QPalette highContrastPalette(const QColor& ground, const QColor& text, const QColor& accent,
                             const QColor& onAccent) {
    QPalette palette(ground, ground);
    for (const auto role : {QPalette::Base, QPalette::AlternateBase, QPalette::ToolTipBase})
        palette.setColor(role, ground);
    for (const auto role : kTextRoles) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, ground); // keepVisible replaces it
    }
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, onAccent);
    palette.setColor(QPalette::Link, accent);
    keepVisible(palette);
    return palette;
}

} // namespace

QPalette lightPalette() { return paletteOf(kLight); }

QPalette darkPalette() { return paletteOf(kDark); }

QPalette lightHighContrastPalette() {
    return highContrastPalette(Qt::white, Qt::black, QColor(0x0037a6), Qt::white);
}

QPalette darkHighContrastPalette() {
    return highContrastPalette(Qt::black, Qt::white, QColor(0x7ab4ff), Qt::black);
}

// In the palette that Qt makes for GNOME, lists have the colour of the window, and the text of a
// window that waits for its sheet is hard to read. Black and white windows keep their lists.
void addDepth(QPalette& palette) {
    const auto window = palette.color(QPalette::Active, QPalette::Window);
    if (palette.color(QPalette::Active, QPalette::Base) != window) return;
    const auto base = isDark(palette) ? window.darker(130) : QColor(Qt::white);
    palette.setColor(QPalette::Active, QPalette::Base, base);
    palette.setColor(QPalette::Inactive, QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, mixed(base, window, 0.5));
    for (const auto role : kTextRoles)
        palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
}

void keepVisible(QPalette& palette) {
    if (!isHighContrast(palette)) return;
    const auto window = palette.color(QPalette::Active, QPalette::Window);
    const auto text = palette.color(QPalette::Active, QPalette::WindowText);
    const auto pale = mixed(window, text, 0.55);
    for (const auto role : kTextRoles)
        if (contrast(palette.color(QPalette::Disabled, role), window) < 4.5)
            palette.setColor(QPalette::Disabled, role, pale);
    palette.setColor(QPalette::PlaceholderText, mixed(window, text, 0.7));
}

} // namespace korvan
