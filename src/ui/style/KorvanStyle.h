// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace korvan {

// How every control is drawn: flat and calm, on any desktop alike, with that desktop's palette and
// font. Set once, on the application.
class KorvanStyle final : public QProxyStyle {
    Q_OBJECT

public:
    KorvanStyle();

    enum class Motion { full, reduced };

    // Whether parts of a window may slide and fade. Full unless the desktop asks for less.
    void setMotion(Motion motion) { m_motion = motion; }
    [[nodiscard]] Motion motion() const { return m_motion; }

private:
    Motion m_motion = Motion::full;
};

// How long a movement of `widget` takes, in milliseconds; 0 where nothing should move.
[[nodiscard]] int animationDuration(const QWidget& widget);

} // namespace korvan
