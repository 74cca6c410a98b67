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

// A plain text in one of our styles and colours. Follows the application's palette and font.
class Label : public QLabel {
    Q_OBJECT

public:
    explicit Label(const QString& text, TextStyle style = TextStyle::body,
                   SemanticColor color = SemanticColor::primary, QWidget* parent = nullptr);

    void setBold();
    void setDesign(FontDesign design);

protected:
    [[nodiscard]] FontDesign design() const { return m_design; }
    bool event(QEvent* event) override;

private:
    void restyle();
    void recolor();

    TextStyle m_style;
    SemanticColor m_color;
    FontDesign m_design = FontDesign::standard;
    bool m_isBold = false;
};

// A text of at most `lines` lines, as high as those that it needs. A text that does not fit ends in
// an ellipsis and is shown whole in a tooltip. Screen readers always get the whole text. The label
// never widens its window.
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

// Gives `widget` a font in one of our styles. The font follows the desktop's from then on.
void setTextStyle(QWidget& widget, TextStyle style, FontDesign design = FontDesign::standard);

// Each make... function returns a new widget without a parent. Add it to a layout of a widget,
// which then owns it.

// A push button with a symbol before its label, both in `color`.
[[nodiscard]] QPushButton* makeButton(const QString& symbolIdentifier, const QString& label,
                                      SemanticColor color = SemanticColor::primary);

// A push button with a red label. Do not make it a dialog's default button, which is filled.
[[nodiscard]] QPushButton* makeDestructiveButton(const QString& label);

// A flat button that looks like a link: only its label, in the accent colour.
[[nodiscard]] QPushButton* makeLinkButton(const QString& label);

// A flat button that shows only a symbol. The tooltip is also its accessible name.
[[nodiscard]] QToolButton* makeSymbolButton(const QString& symbolIdentifier, const QString& tooltip,
                                            SemanticColor color = SemanticColor::primary);

// A line between two regions, one logical pixel thick.
[[nodiscard]] QWidget* makeSeparator(Qt::Orientation orientation);

// The colour of a button's label, as set by the functions above. KorvanStyle asks for it.
[[nodiscard]] SemanticColor buttonColor(const QWidget& button);

// Marks a field whose content is invalid: KorvanStyle draws its border in red.
void setInvalid(QWidget& field, bool isInvalid);
[[nodiscard]] bool isInvalid(const QObject* field);

} // namespace korvan
