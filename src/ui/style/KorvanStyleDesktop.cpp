// SPDX-License-Identifier: MIT
//
// How the style follows the desktop: its palette and its font.
#include "ui/style/Colors.h"
#include "ui/style/KorvanStyle.h"
#include "ui/style/Palettes.h"

#include <QApplication>
#include <QFontInfo>

namespace korvan {

namespace {

// Makes the toolkit take the desktop's palette again and pass it to the style. Qt's theme for GNOME
// sets another palette for line edits, which would not fit.
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

// For a desktop without a palette, the toolkit passes that of Fusion. With Qt's theme for GNOME the
// palette stays light on a dark desktop.
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

// Called for each window, since Qt reports a changed theme only to windows.
void KorvanStyle::followTheme() {
    keepProportionalFont();
    renewPalette();
}

// When GNOME's colours change, Qt 6.8 sets that desktop's monospaced font for all texts. A user who
// really chooses such a font gets it at the next start.
void KorvanStyle::keepProportionalFont() {
    const auto font = QApplication::font();
    if (QFontInfo(font).fixedPitch() && !QFontInfo(m_font).fixedPitch())
        QApplication::setFont(m_font);
    else
        m_font = font;
}

} // namespace korvan
