// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>

namespace korvan {

// Has Qt show the file panels of the desktop's portal. GNOME and the desktops around it show them
// to every program that way, and Qt has a theme for it, which it uses by itself in sandboxes only.
//
// Exists while the QApplication is made, which then loads that theme if it is installed. Does
// nothing where the user has chosen a theme, or the desktop brings one of its own for Qt.
class FilePortalTheme final {
public:
    FilePortalTheme();
    FilePortalTheme(const FilePortalTheme&) = delete;
    FilePortalTheme& operator=(const FilePortalTheme&) = delete;
    // What is in the environment for Qt is not inherited by what is started from here.
    ~FilePortalTheme();

    // Whether the portal is chosen, here or by the user.
    [[nodiscard]] bool isChosen() const;

private:
    bool m_isOurs = false;
};

// Whether a portal answers that shows file panels. Without one, Qt's dialog would end at once, as
// if the user had cancelled it. Waits for a portal that is being started, some seconds at most.
[[nodiscard]] bool hasFilePortal(const QDBusConnection& bus);

} // namespace korvan
