// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

#include <QObject>
#include <filesystem>
#include <functional>
#include <string>

namespace korvan {

// The helper that runs a script in a terminal: beside the program when it runs where it was built,
// below libexec when it is installed. `applicationFolder` is where the program lies.
[[nodiscard]] std::filesystem::path
helperProgramPath(const std::filesystem::path& applicationFolder);

// Opens scripts in new windows of whichever terminal the desktop has.
//
// The application "Terminal" stands for all of them; there is no other. They are tried in order,
// until the helper has started in one: see TerminalStarter. Terminals outlive the program, and are
// waited for as long as this object lives, so that none is left behind as a zombie.
class DesktopWorkspace final : public Workspace {
public:
    // `helperProgram` is korvan-run-script. `activationToken` gives a new token of the desktop's,
    // with which a window that the user asked for just now comes to the front, or nothing.
    explicit DesktopWorkspace(std::filesystem::path helperProgram,
                              std::function<std::string()> activationToken = {});

    // Answers no when something is missing that the terminal itself would not report (the script,
    // its interpreter, the helper, a display), or when no terminal can be started.
    [[nodiscard]] bool openFile(const std::filesystem::path& path, std::string_view application,
                                std::function<void()> refusedLater) override;

private:
    std::filesystem::path m_helperProgram;
    std::function<std::string()> m_activationToken;
    QObject m_attempts; // the parent of those that are under way
};

} // namespace korvan
