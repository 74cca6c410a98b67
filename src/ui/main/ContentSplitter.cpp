// SPDX-License-Identifier: MIT
#include "ui/main/ContentSplitter.h"

#include "ui/main/CommandDatabasePanel.h"
#include "ui/style/KorvanStyle.h"

#include <QResizeEvent>
#include <algorithm>

namespace korvan {

namespace {

constexpr int kMinimum = CommandDatabasePanel::kMinimumWidth;
constexpr int kMaximum = CommandDatabasePanel::kMaximumWidth;

// Holds the panel at its left edge and lets what does not fit be cut off.
class ClippingFrame final : public QWidget {
public:
    explicit ClippingFrame(QWidget* panel) : m_panel(panel) {
        panel->setParent(this);
        setMinimumWidth(kMinimum);
        setMaximumWidth(kMaximum);
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {CommandDatabasePanel::kIdealWidth, m_panel->sizeHint().height()};
    }

protected:
    void resizeEvent(QResizeEvent*) override {
        m_panel->setGeometry(0, 0, std::max(width(), kMinimum), height());
    }

private:
    QWidget* m_panel;
};

} // namespace

ContentSplitter::ContentSplitter(QWidget* table, QWidget* panel, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent), m_frame(new ClippingFrame(panel)), m_panel(panel),
      m_panelWidth(CommandDatabasePanel::kIdealWidth) {
    addWidget(table);
    addWidget(m_frame);
    setChildrenCollapsible(false);
    connect(&m_slide, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& width) { setPanelWidth(width.toInt()); });
    connect(&m_slide, &QVariantAnimation::finished, this, &ContentSplitter::endSlide);
}

int ContentSplitter::availableWidth() const { return width() - handleWidth(); }

void ContentSplitter::setPanel(Panel state) {
    if (state == m_state) return;
    const bool isSliding = m_slide.state() == QAbstractAnimation::Running;
    if (state == Panel::hidden && !isSliding) m_panelWidth = m_frame->width();
    m_state = state;
    slideTo(state == Panel::shown ? m_panelWidth : 0);
}

void ContentSplitter::slideTo(int width) {
    m_slide.stop();
    const int start = m_frame->isVisible() ? m_frame->width() : 0;
    const int duration = isVisible() ? animationDuration(*this) : 0;
    m_frame->setMinimumWidth(0);
    m_frame->setVisible(true);
    if (duration == 0) {
        setPanelWidth(width);
        return endSlide();
    }
    setPanelWidth(start);
    m_slide.setStartValue(start);
    m_slide.setEndValue(width);
    m_slide.setDuration(duration);
    m_slide.setEasingCurve(QEasingCurve::InOutQuad);
    m_slide.start();
}

void ContentSplitter::setPanelWidth(int width) { setSizes({availableWidth() - width, width}); }

void ContentSplitter::endSlide() {
    m_frame->setVisible(m_state == Panel::shown);
    m_frame->setMinimumWidth(kMinimum);
}

void ContentSplitter::resizeEvent(QResizeEvent* event) {
    const int before = m_frame->width();
    const int change = event->size().width() - event->oldSize().width();
    QSplitter::resizeEvent(event);
    if (m_slide.state() == QAbstractAnimation::Running || m_frame->isHidden()) {
        return;
    }
    // What happens before the window is there says nothing of what the user wants.
    const int wanted = isVisible() ? before + change : m_panelWidth;
    const int most = std::max(availableWidth() - widget(0)->minimumWidth(), kMinimum);
    setPanelWidth(std::clamp(wanted, kMinimum, std::min(kMaximum, most)));
}

} // namespace korvan
