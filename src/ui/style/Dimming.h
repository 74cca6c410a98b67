// SPDX-License-Identifier: MIT
#pragma once

#include <QVariantAnimation>
#include <QWidget>

namespace korvan {

// Lies over a window that waits for its sheet, and darkens it, so that the sheet stands off. Comes
// and goes within a moment, or at once where nothing should move. The window owns it.
class Dimming final : public QWidget {
    Q_OBJECT

public:
    enum class State { dimmed, clear };

    // Makes one for the window when it is first needed.
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
