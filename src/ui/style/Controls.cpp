// SPDX-License-Identifier: MIT
#include "ui/style/Controls.h"

#include "ui/style/Drawing.h"
#include "ui/style/Symbols.h"

#include <QApplication>
#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace korvan {

namespace {

constexpr auto kButtonColor = "korvanButtonColor";
constexpr auto kIsInvalid = "korvanIsInvalid";

class Separator final : public QWidget {
public:
    explicit Separator(Qt::Orientation orientation)
        : m_edge(orientation == Qt::Horizontal ? Qt::BottomEdge : Qt::RightEdge) {
        if (orientation == Qt::Horizontal)
            setFixedHeight(1);
        else
            setFixedWidth(1);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        drawLine(painter, rect(), m_edge, colorFor(SemanticColor::separator, palette()));
    }

private:
    Qt::Edge m_edge;
};

void setButtonColor(QPushButton& button, SemanticColor color) {
    button.setProperty(kButtonColor, static_cast<int>(color));
}

// Renews the font of a widget that has one of our styles.
class FontFollower final : public QObject {
public:
    FontFollower(QWidget& widget, TextStyle style, FontDesign design)
        : QObject(&widget), m_style(style), m_design(design) {
        widget.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ApplicationFontChange)
            static_cast<QWidget*>(watched)->setFont(fontFor(m_style, m_design));
        return QObject::eventFilter(watched, event);
    }

private:
    TextStyle m_style;
    FontDesign m_design;
};

} // namespace

Label::Label(const QString& text, TextStyle style, SemanticColor color, QWidget* parent)
    : QLabel(text, parent), m_style(style), m_color(color) {
    setTextFormat(Qt::PlainText);
    // Also inside of a list, where a label would have another role. This is the one that recolor
    // sets.
    setForegroundRole(QPalette::WindowText);
    restyle();
    recolor();
}

void Label::setBold() {
    m_isBold = true;
    restyle();
}

void Label::setDesign(FontDesign design) {
    m_design = design;
    restyle();
}

// Not in changeEvent, which is not called when the application's font changes.
bool Label::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange) restyle();
    if (event->type() == QEvent::PaletteChange) recolor();
    return QLabel::event(event);
}

void Label::restyle() {
    auto font = fontFor(m_style, m_design);
    if (m_isBold) font.setBold(true);
    setFont(font);
}

// Uses the application's palette, since the parent may not have it yet: a change reaches the
// widgets in no fixed order. Setting the label's palette leads back here, so it is set only if it
// differs.
void Label::recolor() {
    if (m_color == SemanticColor::primary) return;
    auto surroundings = QApplication::palette();
    QPalette own;
    bool differs = false;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        surroundings.setCurrentColorGroup(group);
        const QColor color = colorFor(m_color, surroundings);
        own.setColor(group, QPalette::WindowText, color);
        differs |= palette().color(group, QPalette::WindowText) != color;
    }
    if (differs) setPalette(own);
}

ElidedLabel::ElidedLabel(TextStyle style, SemanticColor color, int lines, QWidget* parent)
    : Label({}, style, color, parent), m_lines(lines) {
    // The height of several lines depends on the width. The base class tells layouts so only with
    // word wrap.
    setSizePolicy(QSizePolicy::Preferred, lines > 1 ? QSizePolicy::Preferred : QSizePolicy::Fixed);
    setWordWrap(lines > 1);
}

QSize ElidedLabel::sizeHint() const {
    const auto size = fontMetrics().size(0, text());
    return {size.width() + 1, shownHeight(text(), font(), size.width() + 1, m_lines)};
}

QSize ElidedLabel::minimumSizeHint() const {
    const auto metrics = fontMetrics();
    return {metrics.horizontalAdvance(u'…'), metrics.lineSpacing()};
}

int ElidedLabel::heightForWidth(int width) const {
    return shownHeight(text(), font(), width, m_lines);
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && shown(width()).isCut) {
        // Code keeps its font, which shows the difference between similar characters.
        const auto isCode = design() == FontDesign::monospaced;
        showToolTip(static_cast<QHelpEvent*>(event)->globalPos(), text(),
                    isCode ? font() : QToolTip::font(), *this, rect());
        return true;
    }
    return Label::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const auto alignment = QStyle::visualAlignment(layoutDirection(), this->alignment());
    painter.drawText(contentsRect(), static_cast<int>(alignment) | Qt::TextIncludeTrailingSpaces,
                     shown(contentsRect().width()).lines.join(u'\n'));
}

ShownText ElidedLabel::shown(int width) const { return shownText(text(), font(), width, m_lines); }

void setTextStyle(QWidget& widget, TextStyle style, FontDesign design) {
    widget.setFont(fontFor(style, design));
    new FontFollower(widget, style, design);
}

QPushButton* makeButton(const QString& symbolIdentifier, const QString& label,
                        SemanticColor color) {
    auto* button = new QPushButton(symbol(symbolIdentifier, color), label);
    setButtonColor(*button, color);
    return button;
}

QPushButton* makeDestructiveButton(const QString& label) {
    auto* button = new QPushButton(label);
    setButtonColor(*button, SemanticColor::red);
    return button;
}

QPushButton* makeLinkButton(const QString& label) {
    auto* button = new QPushButton(label);
    button->setFlat(true);
    button->setAutoDefault(false);
    button->setCursor(Qt::PointingHandCursor);
    setButtonColor(*button, SemanticColor::accent);
    return button;
}

QToolButton* makeSymbolButton(const QString& symbolIdentifier, const QString& tooltip,
                              SemanticColor color) {
    auto* button = new QToolButton;
    button->setIcon(symbol(symbolIdentifier, color));
    button->setAutoRaise(true);
    button->setToolTip(tooltip);
    button->setAccessibleName(tooltip);
    return button;
}

QWidget* makeSeparator(Qt::Orientation orientation) { return new Separator(orientation); }

SemanticColor buttonColor(const QWidget& button) {
    return static_cast<SemanticColor>(button.property(kButtonColor).toInt());
}

void setInvalid(QWidget& field, bool isInvalid) {
    field.setProperty(kIsInvalid, isInvalid);
    field.update();
}

bool isInvalid(const QObject* field) { return field && field->property(kIsInvalid).toBool(); }

} // namespace korvan
