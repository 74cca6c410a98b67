// SPDX-License-Identifier: MIT
#pragma once

#include <QVariantAnimation>
#include <QWidget>

namespace korvan {

// Darkens a window that waits for its sheet, so that the sheet stands out. Lies over the window,
// which owns it, and fades in and out, or appears at once where motion is reduced.
class Dimming final : public QWidget {
    Q_OBJECT

public:
    enum class State { dimmed, clear };

    // Dims the window or makes it clear again.
    static void set(QWidget& window, State state);

    bool eventFilter(QObject* window, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    explicit Dimming(QWidget& window);

    void fadeTo(double share);

    QVariantAnimation m_fade;
    double m_share = 0; // of the full darkness
};

} // namespace korvan
