// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

// What comes up by itself, without the keyboard going there: a screen reader would be silent about
// it.
namespace korvan {

// From now on `widget` is a notice to assistive tools. While it is made, before it is shown.
void makeNotice(QWidget& widget);

// Has the screen reader speak `text`, which is what the notice now says. Again, if it has before.
void announce(QWidget& notice, const QString& text);

} // namespace korvan
