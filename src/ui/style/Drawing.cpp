// SPDX-License-Identifier: MIT
#include "ui/style/Drawing.h"

#include "ui/style/Colors.h"

#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace korvan {

namespace {

// A line inside of `rect`, which the painter's brush fills.
void drawRing(QPainter& painter, const QRectF& rect, const QColor& color, double width,
              double radius) {
    painter.setPen(QPen(color, width));
    const double half = width / 2;
    painter.drawRoundedRect(onPixels(painter, rect).adjusted(half, half, -half, -half),
                            radius - half, radius - half);
}

} // namespace

PainterState::PainterState(QPainter& painter) : m_painter(painter) {
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing);
}

PainterState::~PainterState() { m_painter.restore(); }

double lineWidth(const QPainter& painter, double logicalPixels) {
    const double ratio = painter.deviceTransform().m11();
    constexpr double rounding = 1e-6;
    return std::max(std::floor(logicalPixels * ratio + rounding), 1.0) / ratio;
}

QRectF onPixels(const QPainter& painter, const QRectF& rect) {
    const auto toDevice = painter.deviceTransform();
    const auto inDevice = toDevice.mapRect(rect);
    // Rounds halves up, also for negative numbers, so that edges side by side are rounded alike.
    const auto nearest = [](double edge) { return std::floor(edge + 0.5); };
    const QPointF topLeft(nearest(inDevice.left()), nearest(inDevice.top()));
    const QPointF bottomRight(nearest(inDevice.right()), nearest(inDevice.bottom()));
    return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

void drawLine(QPainter& painter, const QRectF& rect, Qt::Edge edge, const QColor& color) {
    auto line = onPixels(painter, rect);
    const double width = lineWidth(painter);
    switch (edge) {
    case Qt::TopEdge: line.setHeight(width); break;
    case Qt::LeftEdge: line.setWidth(width); break;
    case Qt::RightEdge: line.setLeft(line.right() - width); break;
    case Qt::BottomEdge: line.setTop(line.bottom() - width); break;
    }
    painter.fillRect(line, color);
}

void drawRounded(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& border,
                 double radius) {
    const PainterState state(painter);
    painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    if (border.isValid()) return drawRing(painter, rect, border, lineWidth(painter), radius);
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(onPixels(painter, rect), radius, radius);
}

QPainterPath smoothRectangle(const QRectF& rect, double radius) {
    // How far from its tip a corner begins, and how far its two handles are. An arc would begin at
    // one radius. The middle of the curve is that of the arc.
    const double begin = std::min(1.53 * radius, std::min(rect.width(), rect.height()) / 2);
    const double handle = (8 * (1 - std::numbers::sqrt2 / 2) * radius - begin) / 3;
    const std::array tips{rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft()};
    const std::array ways{QPointF(1, 0), QPointF(0, 1), QPointF(-1, 0), QPointF(0, -1)};
    QPainterPath path(tips[0] + begin * ways[0]);
    for (const std::size_t corner : {1U, 2U, 3U, 0U}) {
        const QPointF& tip = tips[corner];
        const QPointF& in = ways[(corner + 3) % 4];
        const QPointF& out = ways[corner];
        path.lineTo(tip - begin * in);
        path.cubicTo(tip - handle * in, tip + handle * out, tip + begin * out);
    }
    path.closeSubpath();
    return path;
}

bool showsKeyboardFocus(const QWidget& widget) {
    return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void drawFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette, double radius,
                   RingGround ground) {
    const PainterState state(painter);
    painter.setBrush(Qt::NoBrush);
    const auto color = ground == RingGround::plain
                           ? colorFor(SemanticColor::focus, palette)
                           : textOn(palette.color(QPalette::Highlight), palette);
    drawRing(painter, rect, color, lineWidth(painter, 2), radius);
}

void drawShadow(QPainter& painter, const QRectF& body, double radius, const QPalette& palette) {
    const PainterState state(painter);
    painter.setPen(Qt::NoPen);
    // Many thin layers make the shadow fade. On a dark ground each must be stronger to be seen.
    painter.setBrush(QColor(0, 0, 0, isDark(palette) ? 8 : 3));
    constexpr int fall = 2; // the light comes from above
    for (int width = kShadow - fall; width > 0; --width) {
        const auto layer = body.adjusted(-width, fall - width, width, fall + width);
        painter.drawRoundedRect(layer, radius + width, radius + width);
    }
}

QColor washColor(const QPalette& palette, Wash wash) {
    const bool isStrong = isHighContrast(palette);
    auto color = palette.color(QPalette::Active, QPalette::WindowText);
    switch (wash) {
    case Wash::none: color.setAlphaF(0); break;
    case Wash::hovered: color.setAlphaF(isStrong ? 0.15F : 0.05F); break;
    case Wash::hoveredInTable: color.setAlphaF(isStrong ? 0.12F : 0.04F); break;
    case Wash::pressed: color.setAlphaF(isStrong ? 0.3F : 0.12F); break;
    }
    return color;
}

void drawRowWash(QPainter& painter, const QRect& rect, const QPalette& palette, Wash wash) {
    if (wash != Wash::none) drawRounded(painter, rect, washColor(palette, wash), {}, kSmallRadius);
}

} // namespace korvan
