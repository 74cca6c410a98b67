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

// Runs commands in new terminal windows, by way of script files that it writes and never removes.
// The workspace must outlive it.
class TerminalLauncher final {
public:
    // Scripts go to /private/tmp where that folder exists, and to /tmp elsewhere.
    explicit TerminalLauncher(Workspace& workspace);

    TerminalLauncher(Workspace& workspace, std::filesystem::path scriptFolder);

    // Writes the script for `command`, makes it executable and hands it to the terminal; does not
    // wait for either of the latter. Fails as Files.h has it when the script cannot be written,
    // as makeExecutable does, and with the domain "TerminalLauncher" and code -128 when no terminal
    // takes it; `failedLater` is called with that same error, from the event loop, when the
    // terminal turns out only after the return not to have taken it.
    [[nodiscard]] Result<> openInTerminal(std::string_view command,
                                          std::function<void(const Error&)> failedLater);

    // Runs "/bin/chmod +x" on the file. When chmod answers with an error status, that is the code,
    // and the description is what chmod wrote to its standard error.
    [[nodiscard]] static Result<> makeExecutable(const std::filesystem::path& path);

private:
    Workspace& m_workspace;
    std::filesystem::path m_scriptFolder;
};

} // namespace korvan
