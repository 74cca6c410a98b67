// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace korvan {

// What decides which terminals can be started. Each field is an environment variable, empty when it
// is not set.
struct TerminalEnvironment {
    std::string path;           // PATH
    std::string currentDesktop; // XDG_CURRENT_DESKTOP
    std::string display;        // DISPLAY
    std::string waylandDisplay; // WAYLAND_DISPLAY

    [[nodiscard]] static TerminalEnvironment current();
};

// The beginnings of command lines: each runs what is appended to it in a new terminal window. The
// user's choice comes first, then the system's, the desktop's, and all others. The first word is
// the absolute path of an executable. Empty when there is no display or no terminal.
//
// Terminals differ in how they take a command apart. So what is appended must be free of blanks,
// quotes and other characters that mean something to a shell.
[[nodiscard]] std::vector<std::vector<std::string>>
terminalCommands(const TerminalEnvironment& environment);

} // namespace korvan
