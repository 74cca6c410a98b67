// SPDX-License-Identifier: MIT
//
// What the style takes over from the desktop: its palette and its font.
#include "ui/style/Colors.h"
#include "ui/style/KorvanStyle.h"
#include "ui/style/Palettes.h"

#include <QApplication>
#include <QFontInfo>

namespace korvan {

namespace {

// Asks the desktop, and then the style, again. A palette that Qt's theme for GNOME has for fields
// alone would not fit the others.
void renewPalette() {
    QApplication::setPalette(QPalette());
    QApplication::setPalette(QApplication::palette(), "QLineEdit");
}

} // namespace

void KorvanStyle::setScheme(Scheme scheme) {
    if (scheme == m_scheme && m_isPaletteSet) return;
    m_scheme = scheme;
    m_isPaletteSet = true;
    renewPalette();
}

void KorvanStyle::setContrast(Contrast contrast) {
    if (contrast == m_contrast) return;
    m_contrast = contrast;
    if (m_isPaletteSet) renewPalette();
}

void KorvanStyle::setFont(const QFont& font) {
    m_font = font;
    if (font != QApplication::font()) QApplication::setFont(font);
}

QPalette KorvanStyle::standardPalette() const {
    const bool isHigh = m_contrast == Contrast::high;
    if (m_scheme == Scheme::dark) return isHigh ? darkHighContrastPalette() : darkPalette();
    return isHigh ? lightHighContrastPalette() : lightPalette();
}

// Where a desktop brings no palette, the toolkit offers Fusion's as if it were the desktop's. And
// GNOME's, as Qt makes it out, does not become dark with the desktop.
void KorvanStyle::polish(QPalette& palette) {
    const auto fusion = QProxyStyle::standardPalette();
    const auto isFusion = [&](QPalette::ColorRole role) {
        return palette.color(QPalette::Active, role) == fusion.color(QPalette::Active, role);
    };
    const bool isNone =
        isFusion(QPalette::Window) && isFusion(QPalette::Base) && isFusion(QPalette::Highlight);
    const bool isTooLight = m_scheme == Scheme::dark && !isDark(palette);
    const bool isTooFaint = m_contrast == Contrast::high && !isHighContrast(palette);
    if (isNone || isTooLight || isTooFaint) palette = standardPalette();
    addDepth(palette);
    keepVisible(palette);
}

// Qt tells of a change to the desktop by windows alone.
void KorvanStyle::followTheme() {
    keepProportionalFont();
    renewPalette();
}

// When GNOME's colours change, Qt 6.8 takes that desktop's font for code for the one of all texts.
// Who really chooses such a font has it from the next start on.
void KorvanStyle::keepProportionalFont() {
    const auto font = QApplication::font();
    if (QFontInfo(font).fixedPitch() && !QFontInfo(m_font).fixedPitch()) {
        QApplication::setFont(m_font);
    } else {
        m_font = font;
    }
}

} // namespace korvan
