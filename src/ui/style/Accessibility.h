// SPDX-License-Identifier: MIT
#pragma once

class QDialog;
class QString;
class QWidget;

// What windows tell assistive tools, such as a screen reader, beyond what the toolkit tells them.
namespace korvan {

// Names a sheet that shows its title itself: `title` to assistive tools and, as the window's role,
// to the window manager. The title bar names the program instead, like that of the main window.
void setSheetTitle(QDialog& sheet, const QString& title);

// Makes `widget` a notification: a message that appears without getting the keyboard focus, so that
// a screen reader would skip it. Call this before the widget is shown for the first time.
void makeAnnouncer(QWidget& widget);

// Lets a screen reader speak `text`, which the announcer shows now, even if it is the same text as
// before. A hidden announcer is spoken as soon as it is shown.
void announce(QWidget& announcer, const QString& text);

} // namespace korvan
