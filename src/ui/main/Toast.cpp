// SPDX-License-Identifier: MIT
#include "ui/main/Toast.h"

#include "desktop/QtText.h"
#include "ui/style/Accessibility.h"
#include "ui/style/Controls.h"
#include "ui/style/Drawing.h"
#include "ui/style/KorvanStyle.h"
#include "ui/style/Symbols.h"
#include "ui/style/UserText.h"

#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QPainter>
#include <algorithm>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPartSpacing = 10;
constexpr int kSidePadding = 12;
constexpr int kTopPadding = 10;
constexpr int kMargin = 12; // keeps the note off the window's edges
constexpr int kCornerRadius = 12;
constexpr float kBackgroundOpacity = 0.94F;

} // namespace

Toast::Toast(ContentView& state, QWidget* parent)
    : QWidget(parent), m_state(state), m_symbol(new QLabel), m_text(new ElidedLabel) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    makeAnnouncer(*this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kShadow + kSidePadding, kShadow + kTopPadding,
                               kShadow + kSidePadding, kShadow + kTopPadding);
    layout->setSpacing(kPartSpacing);
    layout->addWidget(m_symbol);
    layout->addWidget(m_text, 1);
    tintSymbol();

    auto* effect = new QGraphicsOpacityEffect(this);
    effect->setOpacity(0);
    setGraphicsEffect(effect);
    connect(&m_fade, &QVariantAnimation::valueChanged, effect,
            [effect](const QVariant& value) { effect->setOpacity(value.toDouble()); });
    connect(&m_fade, &QVariantAnimation::finished, this, [this] { setVisible(m_isShown); });
    hide();
    parent->installEventFilter(this);
}

void Toast::refresh() {
    const QString text = onOneLine(toQString("In Zwischenablage: " + *m_state.lastCopiedText));
    const bool isNews = m_state.showCopiedToast && (!m_isShown || m_text->text() != text);
    if (m_state.showCopiedToast) m_text->setText(text);
    if (isNews) announce(*this, text);
    if (m_isShown != m_state.showCopiedToast) {
        m_isShown = m_state.showCopiedToast;
        fadeTo(m_isShown ? 1 : 0);
    }
    if (!isNews) return;
    place();
    raise();
}

void Toast::fadeTo(double opacity) {
    m_fade.stop();
    const auto* effect = static_cast<QGraphicsOpacityEffect*>(graphicsEffect());
    m_fade.setStartValue(effect->opacity());
    m_fade.setEndValue(opacity);
    m_fade.setDuration(animationDuration(*this));
    setVisible(true);
    m_fade.start();
}

void Toast::place() {
    const QRect area = parentWidget()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    // As wide as the text needs. One that is too long for the window is cut.
    const int wanted = m_text->fontMetrics().horizontalAdvance(m_text->text()) + 1 + symbolSize() +
                       kPartSpacing + 2 * kSidePadding;
    const QSize size(std::min(wanted, area.width()), sizeHint().height() - 2 * kShadow);
    const QRect body =
        QStyle::alignedRect(layoutDirection(), Qt::AlignHCenter | Qt::AlignBottom, size, area);
    setGeometry(body.adjusted(-kShadow, -kShadow, kShadow, kShadow));
}

bool Toast::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && m_isShown) place();
    return QWidget::eventFilter(watched, event);
}

void Toast::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body =
        onPixels(painter, QRectF(rect()).adjusted(kShadow, kShadow, -kShadow, -kShadow));
    drawShadow(painter, body, kCornerRadius, palette());
    QColor background = palette().color(QPalette::Window);
    background = isDark(palette()) ? background.lighter(150) : background;
    background.setAlphaF(kBackgroundOpacity);
    const double line = lineWidth(painter);
    painter.setBrush(background);
    painter.setPen(QPen(colorFor(SemanticColor::border, palette()), line));
    painter.drawPath(
        smoothRectangle(body.adjusted(line / 2, line / 2, -line / 2, -line / 2), kCornerRadius));
}

void Toast::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) tintSymbol();
}

void Toast::tintSymbol() {
    m_symbol->setPixmap(symbol(u"checkmark.circle.fill"_s, SemanticColor::green)
                            .pixmap(QSize(symbolSize(), symbolSize()), devicePixelRatioF()));
}

} // namespace korvan
