// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QProxyStyle>

namespace korvan {

class KeyboardFocus;

// Draws every control: flat, alike on all desktops, with the desktop's palette and font. Nothing
// moves by itself. Set once, on the application, which then owns it.
//
// This class decides how large controls are and which function of ControlParts.h draws each part.
// Everything else is left to Fusion, the toolkit's own style. Sizes are in logical pixels.
class KorvanStyle final : public QProxyStyle {
    Q_OBJECT

public:
    KorvanStyle();

    enum class Motion { full, reduced };

    // Whether parts of a window may slide and fade.
    void setMotion(Motion motion) { m_motion = motion; }
    [[nodiscard]] Motion motion() const { return m_motion; }

    enum class Scheme { light, dark };

    // Chooses between our palettes, and updates all widgets. A palette of the desktop has priority,
    // except for a light one with the dark scheme.
    void setScheme(Scheme scheme);

    enum class Contrast { usual, high };

    // With high contrast, a palette of ours replaces the desktop's unless that has high contrast,
    // too.
    void setContrast(Contrast contrast);

    // Sets the application's font. For desktops whose font the toolkit does not know.
    void setFont(const QFont& font);

    // The palette for a desktop that has none.
    [[nodiscard]] QPalette standardPalette() const override;

    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    void polish(QApplication* application) override;
    void polish(QWidget* widget) override;
    bool eventFilter(QObject* window, QEvent* event) override;

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& contents,
                                         const QWidget* widget) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                                     const QWidget* widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl part, const QWidget* widget) const override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;

private:
    void followTheme();
    void keepProportionalFont();

    Motion m_motion = Motion::full;
    Scheme m_scheme = Scheme::light;
    Contrast m_contrast = Contrast::usual;
    bool m_isPaletteSet = false;
    QFont m_font;                             // the application's
    KeyboardFocus* m_keyboardFocus = nullptr; // absent until this is the application's style
};

// The duration of an animation of `widget`, in milliseconds. 0 where motion is reduced.
[[nodiscard]] int animationDuration(const QWidget& widget);

} // namespace korvan
