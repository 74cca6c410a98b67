// SPDX-License-Identifier: MIT
#include "ui/style/Dimming.h"

#include "ui/style/Colors.h"
#include "ui/style/KorvanStyle.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>

namespace korvan {

namespace {

constexpr int kMilliseconds = 150;
constexpr double kDarkness = 0.2;
constexpr double kDarknessOfDark = 0.4; // of a dark window, where 0.2 would not be seen

} // namespace

void Dimming::set(QWidget& window, State state) {
    auto* dimming = window.findChild<Dimming*>(QString(), Qt::FindDirectChildrenOnly);
    if (!dimming && state == State::clear) return;
    if (!dimming) dimming = new Dimming(window);
    dimming->fadeTo(state == State::dimmed ? 1 : 0);
}

Dimming::Dimming(QWidget& window) : QWidget(&window) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    window.installEventFilter(this);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, [this](const QVariant& share) {
        m_share = share.toDouble();
        update();
    });
    connect(&m_fade, &QVariantAnimation::finished, this, [this] { setVisible(m_share > 0); });
}

void Dimming::fadeTo(double share) {
    m_fade.stop();
    m_fade.setStartValue(m_share);
    m_fade.setEndValue(share);
    m_fade.setDuration(std::min(animationDuration(*this), kMilliseconds));
    setGeometry(parentWidget()->rect());
    raise();
    show();
    m_fade.start();
}

bool Dimming::eventFilter(QObject* window, QEvent* event) {
    if (event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(window, event);
}

void Dimming::paintEvent(QPaintEvent*) {
    QColor shade(Qt::black);
    shade.setAlphaF(
        static_cast<float>(m_share * (isDark(palette()) ? kDarknessOfDark : kDarkness)));
    QPainter(this).fillRect(rect(), shade);
}

} // namespace korvan
