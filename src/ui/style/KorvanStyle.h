// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QProxyStyle>

namespace korvan {

class KeyboardFocus;

// How every control is drawn: flat and calm, on any desktop alike, with that desktop's palette and
// font. Set once, on the application. Nothing that it draws moves by itself.
//
// This class decides how large controls are and which drawing (Drawing.h) each part of them takes.
// What it does not name is left to Fusion.
class KorvanStyle final : public QProxyStyle {
    Q_OBJECT

public:
    KorvanStyle();

    enum class Motion { full, reduced };

    // Whether parts of a window may slide and fade. Full unless the desktop asks for less.
    void setMotion(Motion motion) { m_motion = motion; }
    [[nodiscard]] Motion motion() const { return m_motion; }

    enum class Scheme { light, dark };

    // Which of our palettes the application's widgets have, from now on. A palette that the desktop
    // brings stays instead, but for a light one where dark is wished for.
    void setScheme(Scheme scheme);

    enum class Contrast { usual, high };

    // High contrast brings palettes of our own where the desktop's has less.
    void setContrast(Contrast contrast);

    // The font of the application from now on, where the toolkit does not know the desktop's.
    void setFont(const QFont& font);

    // The palette where the desktop brings none of its own.
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
    QFont m_font;                             // the application's, as it was last
    KeyboardFocus* m_keyboardFocus = nullptr; // once this is the application's style
};

// How long a movement of `widget` takes, in milliseconds; 0 where nothing should move.
[[nodiscard]] int animationDuration(const QWidget& widget);

} // namespace korvan
