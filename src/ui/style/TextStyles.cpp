// SPDX-License-Identifier: MIT
#include "ui/style/TextStyles.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <algorithm>

namespace korvan {

namespace {

constexpr double kLeastPointSize = 8.5;

double scaleOf(TextStyle style) {
    switch (style) {
    case TextStyle::title2: return 1.31;
    case TextStyle::headline:
    case TextStyle::body: return 1;
    case TextStyle::callout: return 0.92;
    case TextStyle::subheadline: return 0.85;
    case TextStyle::caption:
    case TextStyle::caption2: break;
    }
    return 0.77;
}

// Keeps small text readable on desktops with small text. No style below body becomes larger than
// body.
double pointSizeOf(TextStyle style, double body) {
    const double size = std::max(scaleOf(style) * body, std::min(kLeastPointSize, body));
    return style == TextStyle::caption2 ? size * 0.95 : size;
}

} // namespace

QFont fontFor(TextStyle style, FontDesign design) {
    auto font = QApplication::font();
    font.setPointSizeF(pointSizeOf(style, QFontInfo(font).pointSizeF()));
    font.setBold(style == TextStyle::title2 || style == TextStyle::headline);
    if (design == FontDesign::standard) return font;

    const double height = QFontMetricsF(font).xHeight();
    font.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    // Both designs stand in one line, so their letters must be equally tall.
    const double ratio = height / std::max(QFontMetricsF(font).xHeight(), 1.0);
    font.setPointSizeF(font.pointSizeF() * std::clamp(ratio, 0.94, 1.1));
    return font;
}

} // namespace korvan
