// SPDX-License-Identifier: MIT
#include "ui/style/Lines.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace korvan {

double lineWidth(const QPainter& painter, double logicalPixels) {
    const double ratio = painter.deviceTransform().m11();
    constexpr double rounding = 1e-6;
    return std::max(std::floor(logicalPixels * ratio + rounding), 1.0) / ratio;
}

QRectF onPixels(const QPainter& painter, const QRectF& rect) {
    const auto toDevice = painter.deviceTransform();
    const auto inDevice = toDevice.mapRect(rect);
    // Halves upwards, also left of the origin: what lies side by side is rounded alike.
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

} // namespace korvan
