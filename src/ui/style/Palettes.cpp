// SPDX-License-Identifier: MIT
#include "ui/style/Palettes.h"

#include "ui/style/Colors.h"

#include <array>

namespace korvan {

namespace {

constexpr std::array kTextRoles{QPalette::WindowText, QPalette::Text, QPalette::ButtonText};

QPalette highContrastPalette(const QColor& ground, const QColor& text, const QColor& accent,
                             const QColor& onAccent) {
    QPalette palette(ground, ground);
    for (const auto role : {QPalette::Base, QPalette::AlternateBase, QPalette::ToolTipBase})
        palette.setColor(role, ground);
    for (const auto role : kTextRoles) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, ground); // what keepVisible makes of it
    }
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, onAccent);
    palette.setColor(QPalette::Link, accent);
    keepVisible(palette);
    return palette;
}

} // namespace

QPalette lightHighContrastPalette() {
    return highContrastPalette(Qt::white, Qt::black, QColor(0x0037a6), Qt::white);
}

QPalette darkHighContrastPalette() {
    return highContrastPalette(Qt::black, Qt::white, QColor(0x7ab4ff), Qt::black);
}

QPalette lightPalette() {
    QPalette palette(QColor(0xfcfcfd), QColor(0xf3f3f5));
    const QColor text(0x1e1e22);
    const QColor pale(0xa4a4ab);
    for (const auto role : kTextRoles) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, pale);
    }
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xf6f6f8));
    palette.setColor(QPalette::AlternateBase, QColor(0xf8f8fa));
    palette.setColor(QPalette::Highlight, QColor(0x2b65d9));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0xd7dae1));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xd7dae1));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, pale);
    palette.setColor(QPalette::PlaceholderText, QColor(0x74747c));
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Link, QColor(0x2b65d9));
    return palette;
}

// Greys as neutral as the light ones. Lists lie deeper than the window, as they lie higher there.
QPalette darkPalette() {
    QPalette palette(QColor(0x36363b), QColor(0x27272a));
    const QColor text(0xe9e9ed);
    const QColor pale(0x77777f);
    for (const auto role : kTextRoles) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, pale);
    }
    palette.setColor(QPalette::Base, QColor(0x1e1e20));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0x242427));
    palette.setColor(QPalette::AlternateBase, QColor(0x232326));
    palette.setColor(QPalette::Highlight, QColor(0x3a70dc));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0x43454c));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x43454c));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, pale);
    palette.setColor(QPalette::PlaceholderText, QColor(0x9a9aa2));
    palette.setColor(QPalette::ToolTipBase, QColor(0x36363b));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Link, QColor(0x86adff));
    return palette;
}

// In GNOME's palette, as Qt makes it out, nothing tells a list from the window around it, and a
// window that waits for its sheet is hard to read. Black and white stay what they are.
void addDepth(QPalette& palette) {
    const auto window = palette.color(QPalette::Active, QPalette::Window);
    if (palette.color(QPalette::Active, QPalette::Base) != window) return;
    const auto base = isDark(palette) ? window.darker(130) : QColor(Qt::white);
    palette.setColor(QPalette::Active, QPalette::Base, base);
    palette.setColor(QPalette::Inactive, QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, mixed(base, window, 0.5));
    for (const auto role : kTextRoles) {
        palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
    }
}

void keepVisible(QPalette& palette) {
    if (!isHighContrast(palette)) return;
    const auto window = palette.color(QPalette::Active, QPalette::Window);
    const auto text = palette.color(QPalette::Active, QPalette::WindowText);
    const auto pale = mixed(window, text, 0.55);
    for (const auto role : kTextRoles) {
        if (contrast(palette.color(QPalette::Disabled, role), window) < 4.5)
            palette.setColor(QPalette::Disabled, role, pale);
    }
    palette.setColor(QPalette::PlaceholderText, mixed(window, text, 0.7));
}

} // namespace korvan
