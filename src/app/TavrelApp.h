// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/DesktopClipboard.h"
#include "desktop/DesktopFilePanels.h"
#include "desktop/DesktopMainQueue.h"
#include "desktop/DesktopWorkspace.h"
#include "platform/Desktop.h"

#include <QObject>
#include <filesystem>
#include <memory>
#include <vector>

namespace korvan {

// The application: its windows, and what they share of the desktop. Needs a QApplication.
//
// Each window has a state, stores and a connection to the database of its own; windows share data
// only through the file.
class TavrelApp final : public QObject {
    Q_OBJECT

public:
    // `helperProgram` keeps a terminal's window open after a failed command.
    TavrelApp(std::filesystem::path database, const std::filesystem::path& helperProgram,
              DesktopFilePanels::Source filePanels);
    ~TavrelApp() override;

    // The window may come to the front of those of other programs by `activationToken`, which says
    // for what the user did it opens; without one, the desktop decides.
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
