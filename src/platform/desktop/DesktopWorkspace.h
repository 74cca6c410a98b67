// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

#include <QObject>
#include <filesystem>
#include <optional>
#include <string>

namespace korvan {

// The helper that runs a script in a terminal: beside the program when it runs where it was built,
// below libexec when it is installed. `applicationFolder` is where the program lies.
[[nodiscard]] std::filesystem::path
helperProgramPath(const std::filesystem::path& applicationFolder);

// Opens scripts in new windows of whichever terminal the desktop has.
//
// The application "Terminal" stands for all of them; there is no other. They are tried in order. A
// terminal that ends with an error status in its first moments has not taken the script, and the
// next one is started from the event loop; a later or a good end means nothing, since many hand
// over to a process that runs already. Terminals outlive the program, and are waited for as long as
// this object lives, so that none is left behind as a zombie.
class DesktopWorkspace final : public Workspace {
public:
    // `helperProgram` is run with the script's path; see korvan-run-script.
    explicit DesktopWorkspace(std::filesystem::path helperProgram);

    // Answers no when something is missing that the terminal itself would not report (the script,
    // its interpreter, the helper, a display), or when no terminal can be started.
    [[nodiscard]] bool openFile(const std::string& path, std::string_view application,
                                std::function<void()> refusedLater) override;

private:
    [[nodiscard]] std::optional<std::string> plainPath(const std::filesystem::path& path);

    std::filesystem::path m_helperProgram;
    std::filesystem::path m_linkFolder; // empty until it is needed
    QObject m_attempts;                 // the parent of those that are under way
};

} // namespace korvan
