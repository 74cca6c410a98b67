// SPDX-License-Identifier: MIT
#include "ui/main/ContentSplitter.h"

#include "ui/style/KorvanStyle.h"

#include <QEvent>
#include <algorithm>

namespace korvan {

namespace {

// Holds the panel at its left edge and cuts off what does not fit.
class ClippingFrame final : public QWidget {
public:
    explicit ClippingFrame(QWidget* panel) : m_panel(panel) {
        panel->setParent(this);
        setMinimumWidth(kLeastPanelWidth);
        setMaximumWidth(kGreatestPanelWidth);
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {DraggedWidths().panel, m_panel->sizeHint().height()};
    }

protected:
    void resizeEvent(QResizeEvent*) override {
        m_panel->setGeometry(0, 0, std::max(width(), kLeastPanelWidth), height());
    }

private:
    QWidget* m_panel;
};

} // namespace

ContentSplitter::ContentSplitter(QWidget* sidebar, QWidget* table, QWidget* panel, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent), m_sidebar(sidebar), m_table(table),
      m_frame(new ClippingFrame(panel)) {
    setChildrenCollapsible(false);
    addWidget(m_sidebar);
    addWidget(m_table);
    addWidget(m_frame);
    connect(this, &QSplitter::splitterMoved, this, [this](int, int divider) { dragged(divider); });
    connect(&m_slide, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& share) { setPanelShare(share.toDouble()); });
    connect(&m_slide, &QVariantAnimation::finished, this, &ContentSplitter::endSlide);
}

void ContentSplitter::setPanel(Panel state) {
    if (state == m_state) return;
    m_state = state;
    m_slide.stop();
    const double share = state == Panel::shown ? 1 : 0;
    const int duration = isVisible() ? animationDuration(*this) : 0;
    m_frame->setMinimumWidth(0);
    m_frame->setVisible(true);
    if (duration == 0) {
        setPanelShare(share);
        return endSlide();
    }
    m_slide.setStartValue(m_panelShare);
    m_slide.setEndValue(share);
    m_slide.setDuration(duration);
    m_slide.setEasingCurve(QEasingCurve::InOutQuad);
    m_slide.start();
}

void ContentSplitter::setPanelShare(double share) {
    m_panelShare = share;
    arrange();
}

void ContentSplitter::endSlide() {
    m_frame->setVisible(m_state == Panel::shown);
    m_frame->setMinimumWidth(kLeastPanelWidth);
    arrange();
}

int ContentSplitter::leastWidth() const {
    const int withoutPanel = m_sidebar->minimumWidth() + handleWidth() + kLeastTableWidth;
    return m_state == Panel::shown ? withoutPanel + handleWidth() + kLeastPanelWidth : withoutPanel;
}

void ContentSplitter::setLeastSize(QSize size) {
    const int missing = std::max(0, leastWidth() - size.width());
    m_table->setMinimumWidth(std::max(1, kLeastTableWidth - missing));
    setMinimumSize(size);
}

int ContentSplitter::room() const {
    return width() - handleWidth() * (m_frame->isHidden() ? 1 : 2);
}

void ContentSplitter::arrange() {
    const auto widths = columnWidths(room(), m_panelShare, m_sidebar->minimumWidth(), m_dragged);
    const QList<int> wanted{widths.sidebar, widths.table, widths.panel};
    if (sizes() != wanted) setSizes(wanted);
}

// A divider pushes the next one when the column between them has its least width. Only the first
// was dragged.
void ContentSplitter::dragged(int divider) {
    if (divider == indexOf(m_table))
        m_dragged.sidebar = m_sidebar->width();
    else
        m_dragged = withPanelDraggedTo(m_frame->width(), room() - m_sidebar->width(), m_dragged);
    arrange();
}

// The toolkit shares the room in its own way when the limits of a column change, with another font
// for example.
bool ContentSplitter::event(QEvent* event) {
    const bool isHandled = QSplitter::event(event);
    if (event->type() == QEvent::LayoutRequest) arrange();
    return isHandled;
}

void ContentSplitter::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    arrange();
}

} // namespace korvan
