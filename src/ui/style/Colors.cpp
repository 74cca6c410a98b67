// SPDX-License-Identifier: MIT
#include "ui/style/Colors.h"

#include <QPalette>
#include <algorithm>
#include <array>
#include <cmath>

namespace korvan {

namespace {

constexpr double kReadableContrast = 4.5;
constexpr int kSteps = 7; // of a bisection: to a hundredth

double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

// The least contrast that text of this colour meets on the grounds that text stands on: windows,
// lists with their alternate rows, and the wash behind a marked row.
double leastContrast(const QColor& color, const QPalette& palette) {
    const auto base = palette.color(QPalette::Base);
    const std::array grounds{palette.color(QPalette::Window), base,
                             palette.color(QPalette::AlternateBase),
                             mixed(base, palette.color(QPalette::Highlight), 0.15)};
    double least = 21;
    for (const auto& ground : grounds) {
        least = std::min(least, contrast(color, ground));
    }
    return least;
}

QColor blackOrWhite(const QPalette& palette) {
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return leastContrast(black, palette) >= leastContrast(white, palette) ? black : white;
}

// The colour as near to `far` as stays readable, on the way there from `near`, which is readable.
QColor furthestReadable(const QColor& near, const QColor& far, const QPalette& palette) {
    double good = 0;
    double bad = 1;
    for (int step = 0; step < kSteps; ++step) {
        const double middle = (good + bad) / 2;
        const bool isGood = leastContrast(mixed(near, far, middle), palette) >= kReadableContrast;
        (isGood ? good : bad) = middle;
    }
    return mixed(near, far, good);
}

QColor readableText(const QPalette& palette) {
    const auto text = palette.color(QPalette::WindowText);
    return leastContrast(text, palette) >= kReadableContrast ? text : blackOrWhite(palette);
}

QColor enabledColor(SemanticColor color, const QPalette& palette) {
    switch (color) {
    case SemanticColor::primary: return palette.color(QPalette::WindowText);
    case SemanticColor::secondary:
        return furthestReadable(readableText(palette), palette.color(QPalette::Window), palette);
    case SemanticColor::accent: return palette.color(QPalette::Highlight);
    case SemanticColor::red:
        return readable(isDark(palette) ? QColor(0xff8078) : QColor(0xc3202f), palette);
    case SemanticColor::green:
        return readable(isDark(palette) ? QColor(0x6fcf87) : QColor(0x1b7638), palette);
    case SemanticColor::separator: break;
    }
    return mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.14);
}

} // namespace

QColor colorFor(SemanticColor color, const QPalette& palette) {
    const bool followsItsGroup =
        color == SemanticColor::primary || color == SemanticColor::separator;
    if (followsItsGroup || palette.currentColorGroup() != QPalette::Disabled) {
        return enabledColor(color, palette);
    }
    // The accent of a disabled group is grey on many desktops; what is pale keeps its hue here.
    auto active = palette;
    active.setCurrentColorGroup(QPalette::Active);
    return mixed(enabledColor(color, active), active.color(QPalette::Window), 0.6);
}

bool isDark(const QPalette& palette) {
    return luminance(palette.color(QPalette::Window)) <
           luminance(palette.color(QPalette::WindowText));
}

QColor mixed(const QColor& from, const QColor& to, double share) {
    const auto part = [share](float first, float second) {
        return first + static_cast<float>(share) * (second - first);
    };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()), part(from.alphaF(), to.alphaF()));
}

double contrast(const QColor& first, const QColor& second) {
    const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readable(const QColor& color, const QPalette& palette) {
    if (leastContrast(color, palette) >= kReadableContrast) return color;
    return furthestReadable(readableText(palette), color, palette);
}

} // namespace korvan
