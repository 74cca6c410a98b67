// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

class QPoint;
class QRect;
class QWidget;

// How the program shows texts that users have typed, whatever they contain. All lengths are in
// logical pixels.
namespace korvan {

// `text` with a space for each line break and each other control character.
[[nodiscard]] QString onOneLine(QString text);

// How a text is shown in a limited number of lines.
struct ShownText {
    QStringList lines;  // at least one, which may be empty
    int height = 0;     // of all lines, in the fonts that they really need
    bool isCut = false; // whether text is left out
};

// `text`, broken into at most `lines` lines of at most `width`. The last line ends in an ellipsis
// when more would follow.
[[nodiscard]] ShownText shownText(const QString& text, const QFont& font, int width, int lines);

// The height that shownText returns, with less work.
[[nodiscard]] int shownHeight(const QString& text, const QFont& font, int width, int lines);

// The argument for QWidget::setToolTip that shows `text` as it is written: without markup, with its
// own line breaks, and with long lines broken. Empty for an empty text. A text that is higher than
// half of the screen ends in an ellipsis.
[[nodiscard]] QString toolTipFor(const QString& text);

// Shows `text` like that at once, in `font`, beside the pointer at `globalPosition`, until the
// pointer leaves `area` of `widget`. Never higher than the room on the screen.
void showToolTip(QPoint globalPosition, const QString& text, const QFont& font, QWidget& widget,
                 const QRect& area);

} // namespace korvan
