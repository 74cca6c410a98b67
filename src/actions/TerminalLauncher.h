// SPDX-License-Identifier: MIT
#pragma once

#include "model/Error.h"
#include "platform/Workspace.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace korvan {

// The text of the zsh script that shows `command`, runs it, and waits for Enter.
[[nodiscard]] std::string terminalScript(std::string_view command);

// Runs commands in new terminal windows. Writes a script file for each and never removes it.
// The workspace must outlive it.
class TerminalLauncher final {
public:
    // Scripts go to /private/tmp where that folder exists, and to /tmp elsewhere.
    explicit TerminalLauncher(Workspace& workspace);

    TerminalLauncher(Workspace& workspace, std::filesystem::path scriptFolder);

    // Writes the script for `command`, makes it executable and hands it to a terminal. Does not
    // wait for the terminal or the command.
    //
    // Fails as writeFileAtomically or makeExecutable do, and with the domain "TerminalLauncher" and
    // code -128 when no terminal takes the script. When that shows only after success was returned,
    // `failedLater` is called with the same error, from the event loop.
    [[nodiscard]] Result<> openInTerminal(std::string_view command,
                                          std::function<void(const Error&)> failedLater);

    // Runs "/bin/chmod +x" on the file. Fails as runChild does, or when chmod ends with an error
    // status: that is the code then, and what chmod wrote to its standard error the description.
    [[nodiscard]] static Result<> makeExecutable(const std::filesystem::path& path);

private:
    Workspace& m_workspace;
    std::filesystem::path m_scriptFolder;
};

} // namespace korvan
