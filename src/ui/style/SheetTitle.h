// SPDX-License-Identifier: MIT
#pragma once

class QDialog;
class QString;

namespace korvan {

// Names a sheet that shows its title itself: `title` to assistive tools and, as the window's role,
// to the window manager. Its title bar names the program instead, as the bar of the main window
// does.
void setSheetTitle(QDialog& sheet, const QString& title);

} // namespace korvan
