// SPDX-License-Identifier: MIT
#include "ui/style/Colors.h"

#include <QPalette>
#include <algorithm>
#include <cmath>
#include <vector>

namespace korvan {

namespace {

constexpr double kReadable = 4.5;
constexpr double kVisible = 3; // for shapes, disabled text and text on the accent
constexpr double kHighlyReadable = 7;
constexpr int kSteps = 7; // of a bisection, to within a hundredth

double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrastOf(double luminance, double other) {
    const auto [darker, lighter] = std::minmax(luminance, other);
    return (lighter + 0.05) / (darker + 0.05);
}

// The grounds that text stands on, and the contrast that it needs there: windows, lists with their
// alternate rows, and the wash behind a marked row. Keeps their luminances, since many colours are
// tried.
class Grounds final {
public:
    Grounds(const QPalette& palette, double needed) : m_needed(needed) {
        const auto base = palette.color(QPalette::Base);
        m_luminances = {luminance(palette.color(QPalette::Window)), luminance(base),
                        luminance(palette.color(QPalette::AlternateBase)),
                        luminance(mixed(base, palette.color(QPalette::Highlight), 0.15))};
    }

    void add(const QColor& ground) { m_luminances.push_back(luminance(ground)); }

    // The contrast of this colour on the least favourable ground.
    [[nodiscard]] double leastContrast(const QColor& color) const {
        const double own = luminance(color);
        double least = 21;
        for (const double ground : m_luminances)
            least = std::min(least, contrastOf(own, ground));
        return least;
    }

    [[nodiscard]] bool areReadableWith(const QColor& color) const {
        return leastContrast(color) >= m_needed;
    }

private:
    double m_needed;
    std::vector<double> m_luminances;
};

QColor blackOrWhite(const Grounds& grounds) {
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return grounds.leastContrast(black) >= grounds.leastContrast(white) ? black : white;
}

// The mixture of both colours that is as near to `far` as it can be and still be read. `near` can
// be read.
QColor furthestReadable(const QColor& near, const QColor& far, const Grounds& grounds) {
    double good = 0;
    double bad = 1;
    for (int step = 0; step < kSteps; ++step) {
        const double middle = (good + bad) / 2;
        (grounds.areReadableWith(mixed(near, far, middle)) ? good : bad) = middle;
    }
    return mixed(near, far, good);
}

QColor readableText(const QPalette& palette, const Grounds& grounds) {
    const auto text = palette.color(QPalette::WindowText);
    return grounds.areReadableWith(text) ? text : blackOrWhite(grounds);
}

QColor secondaryText(const QPalette& palette) {
    const Grounds grounds(palette, isHighContrast(palette) ? kHighlyReadable : kReadable);
    return furthestReadable(readableText(palette, grounds), palette.color(QPalette::Window),
                            grounds);
}

QColor focusRing(const QPalette& palette) {
    Grounds grounds(palette, kVisible);
    grounds.add(palette.color(QPalette::Button));
    const auto accent = palette.color(QPalette::Active, QPalette::Highlight);
    if (grounds.areReadableWith(accent)) return accent;
    return furthestReadable(readableText(palette, grounds), accent, grounds);
}

// A line's colour: a share of the text's colour, which is larger in a palette of high contrast.
QColor lineColor(const QPalette& palette, double share, double highContrastShare) {
    return mixed(palette.color(QPalette::Window),
                 palette.color(QPalette::Active, QPalette::WindowText),
                 isHighContrast(palette) ? highContrastShare : share);
}

QColor enabledColor(SemanticColor color, const QPalette& palette) {
    switch (color) {
    case SemanticColor::primary: return palette.color(QPalette::WindowText);
    case SemanticColor::secondary: return secondaryText(palette);
    case SemanticColor::accent: return palette.color(QPalette::Highlight);
    case SemanticColor::red:
        return readable(isDark(palette) ? QColor(0xff8078) : QColor(0xc3202f), palette);
    case SemanticColor::green:
        return readable(isDark(palette) ? QColor(0x6fcf87) : QColor(0x1b7638), palette);
    case SemanticColor::focus: return focusRing(palette);
    case SemanticColor::border:
        return palette.currentColorGroup() == QPalette::Disabled ? lineColor(palette, 0.12, 0.45)
                                                                 : lineColor(palette, 0.22, 0.6);
    case SemanticColor::separator: break;
    }
    return lineColor(palette, 0.14, 0.4);
}

} // namespace

QColor colorFor(SemanticColor color, const QPalette& palette) {
    const bool followsItsGroup = color == SemanticColor::primary ||
                                 color == SemanticColor::separator ||
                                 color == SemanticColor::border;
    if (followsItsGroup || palette.currentColorGroup() != QPalette::Disabled)
        return enabledColor(color, palette);
    // Many desktops have a grey accent in the disabled group. Here a pale colour keeps its hue.
    auto active = palette;
    active.setCurrentColorGroup(QPalette::Active);
    const auto pale = mixed(enabledColor(color, active), active.color(QPalette::Window), 0.6);
    return isHighContrast(palette) ? readable(pale, active, kVisible) : pale;
}

bool isDark(const QPalette& palette) {
    return luminance(palette.color(QPalette::Window)) <
           luminance(palette.color(QPalette::WindowText));
}

bool isHighContrast(const QPalette& palette) {
    const double window = luminance(palette.color(QPalette::Active, QPalette::Window));
    const double text = luminance(palette.color(QPalette::Active, QPalette::WindowText));
    const bool isBlackOrWhite = std::max(contrastOf(window, 0), contrastOf(window, 1)) > 20.6;
    return isBlackOrWhite && contrastOf(window, text) >= 18;
}

QColor mixed(const QColor& from, const QColor& to, double share) {
    const auto part = [share](float first, float second) {
        return first + static_cast<float>(share) * (second - first);
    };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()), part(from.alphaF(), to.alphaF()));
}

double contrast(const QColor& first, const QColor& second) {
    return contrastOf(luminance(first), luminance(second));
}

QColor readable(const QColor& color, const QPalette& palette, double leastContrast) {
    const Grounds grounds(palette, leastContrast);
    if (grounds.areReadableWith(color)) return color;
    return furthestReadable(readableText(palette, grounds), color, grounds);
}

QColor textOn(const QColor& fill, const QPalette& palette) {
    const auto text = palette.color(QPalette::HighlightedText);
    if (contrast(text, fill) >= kVisible) return text;
    return contrast(Qt::white, fill) > contrast(Qt::black, fill) ? Qt::white : Qt::black;
}

} // namespace korvan
