// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

#include <QObject>
#include <filesystem>
#include <functional>
#include <string>

namespace korvan {

// The path of the helper that runs a script in a terminal: beside the program in a build folder,
// below libexec when installed. `applicationFolder` is the program's. The helper may be missing.
[[nodiscard]] std::filesystem::path
helperProgramPath(const std::filesystem::path& applicationFolder);

// Opens scripts in new windows of the terminals that the desktop has.
//
// The only application is "Terminal", which stands for all terminals. They are tried in order until
// one has started the helper: see TerminalStarter. Terminals may outlive the program. While this
// object lives, it waits for those that end, so that none is left behind as a zombie.
class DesktopWorkspace final : public Workspace {
public:
    // `helperProgram` is korvan-run-script. `activationToken` makes a new token with which a window
    // comes to the front that the user has just asked for; the token may be empty.
    explicit DesktopWorkspace(std::filesystem::path helperProgram,
                              std::function<std::string()> activationToken = {});

    // Returns false when something is missing whose absence a terminal would not report (the
    // script, its interpreter, the helper, a display), or when no terminal can be started.
    [[nodiscard]] bool openFile(const std::filesystem::path& path, std::string_view application,
                                std::function<void()> refusedLater) override;

private:
    std::filesystem::path m_helperProgram;
    std::function<std::string()> m_activationToken;
    QObject m_starters; // the parent of every TerminalStarter that is still at work
};

} // namespace korvan
