// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/Colors.h"
#include "ui/style/TextStyles.h"

#include <QLabel>
#include <QPushButton>
#include <QString>
#include <QToolButton>

namespace korvan {

// A text in one of our styles and colours; follows the palette and the desktop's font.
class Label : public QLabel {
    Q_OBJECT

public:
    explicit Label(const QString& text, TextStyle style = TextStyle::body,
                   SemanticColor color = SemanticColor::primary, QWidget* parent = nullptr);

    // Bold whatever the style says.
    void setBold();
    void setDesign(FontDesign design);

protected:
    void changeEvent(QEvent* event) override;

private:
    void restyle();

    TextStyle m_style;
    SemanticColor m_color;
    FontDesign m_design = FontDesign::standard;
    bool m_isBold = false;
};

// A text of at most `lines` lines; what does not fit ends in an ellipsis. Its size hint never
// forces a window wider. A screen reader reads the whole text.
class ElidedLabel final : public Label {
    Q_OBJECT

public:
    explicit ElidedLabel(TextStyle style = TextStyle::body,
                         SemanticColor color = SemanticColor::primary, int lines = 1,
                         QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_lines;
};

// A push button that shows a symbol and then its label. `color` is that of both.
[[nodiscard]] QPushButton* makeButton(const QString& symbolIdentifier, const QString& label,
                                      SemanticColor color = SemanticColor::primary);

// A button that shows a symbol alone. Its tooltip is its accessible name, too.
[[nodiscard]] QToolButton* makeSymbolButton(const QString& symbolIdentifier, const QString& tooltip,
                                            SemanticColor color = SemanticColor::primary);

// A line between two regions, one logical pixel thick.
[[nodiscard]] QWidget* makeSeparator(Qt::Orientation orientation);

} // namespace korvan
