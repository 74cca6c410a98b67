// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/Colors.h"
#include "ui/style/TextStyles.h"
#include "ui/style/UserText.h"

#include <QLabel>
#include <QPushButton>
#include <QString>
#include <QToolButton>

namespace korvan {

// A text in one of our styles and colours; follows the application's palette and
// font.
class Label : public QLabel {
    Q_OBJECT

public:
    explicit Label(const QString& text, TextStyle style = TextStyle::body,
                   SemanticColor color = SemanticColor::primary, QWidget* parent = nullptr);

    // Bold whatever the style says.
    void setBold();
    void setDesign(FontDesign design);
    [[nodiscard]] FontDesign design() const { return m_design; }

protected:
    bool event(QEvent* event) override;

private:
    void restyle();
    void recolor();

    TextStyle m_style;
    SemanticColor m_color;
    FontDesign m_design = FontDesign::standard;
    bool m_isBold = false;
};

// A text of at most `lines` lines, and as high as those that it needs; what does not fit ends in an
// ellipsis. It never forces a window wider. A screen reader reads the whole text, and so does a
// pointer that rests on a text that was cut.
class ElidedLabel final : public Label {
    Q_OBJECT

public:
    explicit ElidedLabel(TextStyle style = TextStyle::body,
                         SemanticColor color = SemanticColor::primary, int lines = 1,
                         QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] ShownText shown(int width) const;

    int m_lines;
};

// `widget` has a font in one of our styles from now on, also after the desktop's font has changed.
void setTextStyle(QWidget& widget, TextStyle style, FontDesign design = FontDesign::standard);

// A push button that shows a symbol and then its label. `color` is that of both.
[[nodiscard]] QPushButton* makeButton(const QString& symbolIdentifier, const QString& label,
                                      SemanticColor color = SemanticColor::primary);

// A push button whose label is red. Never a dialog's default button, so it has no fill of its own.
[[nodiscard]] QPushButton* makeDestructiveButton(const QString& label);

// A button drawn as a link: its label alone, in the accent colour.
[[nodiscard]] QPushButton* makeLinkButton(const QString& label);

// A button that shows a symbol alone. Its tooltip is its accessible name, too.
[[nodiscard]] QToolButton* makeSymbolButton(const QString& symbolIdentifier, const QString& tooltip,
                                            SemanticColor color = SemanticColor::primary);

// The colour of a button's label, as its maker set it. KorvanStyle draws by it.
[[nodiscard]] SemanticColor buttonColor(const QWidget& button);

// Marks a field whose content is refused: it is drawn with a red border from now on, or no longer.
void setInvalid(QWidget& field, bool isInvalid);
[[nodiscard]] bool isInvalid(const QObject* field);

// A line between two regions, one logical pixel thick.
[[nodiscard]] QWidget* makeSeparator(Qt::Orientation orientation);

} // namespace korvan
