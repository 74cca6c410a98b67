// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/DesktopFilePanels.h"
#include "desktop/DesktopWorkspace.h"
#include "desktop/QtDesktop.h"
#include "platform/Desktop.h"

#include <QObject>
#include <filesystem>
#include <memory>
#include <vector>

namespace korvan {

// The application. Owns its windows and the interfaces to the desktop that they share. Needs a
// QApplication.
//
// Each window has its own state, stores and connection to the database. Windows share data only
// through the database file.
class TavrelApp final : public QObject {
    Q_OBJECT

public:
    // `helperProgram` runs a command in a terminal and keeps the terminal's window open when the
    // command fails.
    TavrelApp(std::filesystem::path database, const std::filesystem::path& helperProgram,
              DesktopFilePanels::Source filePanels);
    ~TavrelApp() override;

    // Opens a new window. `activationToken` lets it come to the front of other programs' windows;
    // with an empty one the desktop decides.
    void openWindow(const QString& activationToken = {});

private:
    struct OpenWindow;

    void forgetWindow(const OpenWindow* window);

    std::filesystem::path m_database;
    DesktopClipboard m_clipboard;
    DesktopWorkspace m_workspace;
    DesktopFilePanels m_filePanels;
    DesktopMainQueue m_mainQueue;
    Desktop m_desktop;
    std::vector<std::unique_ptr<OpenWindow>> m_openWindows;
};

} // namespace korvan
