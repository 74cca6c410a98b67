// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

// Messages that appear without the keyboard focus going there: a screen reader would skip them.
namespace korvan {

// Makes `widget` a notification to assistive tools. Call this before it is shown first.
void makeAnnouncer(QWidget& widget);

// Has the screen reader speak `text`, which the announcer now shows, also when it is the same text
// as before. A hidden announcer is spoken once it is shown.
void announce(QWidget& announcer, const QString& text);

} // namespace korvan
