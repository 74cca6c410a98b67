// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

class QPoint;
class QRect;
class QWidget;

// Texts that people have typed, whatever is in them, as they are shown.
namespace korvan {

// `text` with a blank for each line break and each other control character.
[[nodiscard]] QString onOneLine(QString text);

// How a text is shown in a limited number of lines.
struct ShownText {
    QStringList lines; // at least one, which may be empty
    int height = 0;    // of all lines, as the fonts that they really need ask for
    bool isCut = false;
};

// `text` broken into at most `lines` lines of at most `width` logical pixels, the last one with an
// ellipsis when more would follow.
[[nodiscard]] ShownText shownText(const QString& text, const QFont& font, int width, int lines);

// The same text's height alone, with less work.
[[nodiscard]] int shownHeight(const QString& text, const QFont& font, int width, int lines);

// What QWidget::setToolTip takes to show `text` as it is written: nothing in it is markup, its
// lines stay, and long ones are broken. Empty for an empty text.
[[nodiscard]] QString toolTipFor(const QString& text);

// Shows `text` like that beside the pointer, in `font`, as long as the pointer is in `area` of
// `widget`. Never larger than the screen has room.
void showToolTip(QPoint globalPosition, const QString& text, const QFont& font, QWidget& widget,
                 const QRect& area);

} // namespace korvan
