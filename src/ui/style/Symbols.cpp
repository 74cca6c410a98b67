// SPDX-License-Identifier: MIT
#include "ui/style/Symbols.h"

#include <QFile>
#include <QFontInfo>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>
#include <utility>

// Without this the linker drops the resources, since they are in a static library. The macro must
// be used outside of any namespace.
static void initializeResources() {
    Q_INIT_RESOURCE(symbols);
    Q_INIT_RESOURCE(icon);
}

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

// Draws an icon from its SVG file. Reads the file only for a drawing that is not in the cache yet.
// The toolkit's own engine would search all image plug-ins at each start.
class DrawingEngine : public QIconEngine {
public:
    explicit DrawingEngine(QString path) : m_path(std::move(path)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto ratio = painter->device()->devicePixelRatioF();
        auto pixmap = drawing((QSizeF(rect.size()) * ratio).toSize(), mode);
        pixmap.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect.topLeft(), pixmap);
    }

    // The size is in device pixels. `scaledPixmap` is not overridden, since its size depends on the
    // toolkit's version. The toolkit's own calls this function with device pixels in all versions.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        return drawing(size, mode);
    }

    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    bool isNull() override { return !QFile::exists(m_path); }
    QString iconName() override { return {}; }
    [[nodiscard]] QIconEngine* clone() const override { return new DrawingEngine(*this); }

protected:
    // The colour of the whole drawing, or transparent to keep the drawing's own colours. Called at
    // each painting, so that an icon follows the palette.
    [[nodiscard]] virtual QColor tint(QIcon::Mode) const { return Qt::transparent; }

private:
    [[nodiscard]] QPixmap drawing(const QSize& size, QIcon::Mode mode) const {
        const auto color = tint(mode);
        const auto key = u"korvan:%1:%2:%3x%4"_s.arg(m_path, color.name(QColor::HexArgb))
                             .arg(size.width())
                             .arg(size.height());
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap)) return pixmap;
        pixmap = QPixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        const int side = std::min(size.width(), size.height());
        QSvgRenderer(m_path).render(&painter, QRectF((size.width() - side) / 2.0,
                                                     (size.height() - side) / 2.0, side, side));
        if (color.alpha() > 0) {
            painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
            painter.fillRect(pixmap.rect(), color);
        }
        painter.end();
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

    QString m_path;
};

class SymbolEngine final : public DrawingEngine {
public:
    SymbolEngine(const QString& path, SemanticColor color) : DrawingEngine(path), m_color(color) {}

    [[nodiscard]] QIconEngine* clone() const override { return new SymbolEngine(*this); }

protected:
    [[nodiscard]] QColor tint(QIcon::Mode mode) const override {
        auto palette = QGuiApplication::palette();
        palette.setCurrentColorGroup(mode == QIcon::Disabled ? QPalette::Disabled
                                                             : QPalette::Active);
        return mode == QIcon::Selected ? palette.color(QPalette::HighlightedText)
                                       : colorFor(m_color, palette);
    }

private:
    SemanticColor m_color;
};

} // namespace

QIcon symbol(const QString& identifier, SemanticColor color) {
    initializeResources();
    const auto path = u":/symbols/%1.svg"_s.arg(identifier);
    return QFile::exists(path) ? QIcon(new SymbolEngine(path, color)) : QIcon();
}

int symbolSize() {
    constexpr int usual = 16;
    const int text = QFontInfo(QGuiApplication::font()).pixelSize();
    return std::max(usual, qRound(1.2 * text));
}

QIcon applicationIcon() {
    initializeResources();
    return QIcon(new DrawingEngine(u":/icons/lumera.Korvan.svg"_s));
}

} // namespace korvan
