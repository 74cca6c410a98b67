// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace korvan {

// What decides which terminals can be had. Each field is the variable of that name, empty when it
// is not set.
struct TerminalEnvironment {
    std::string path;           // PATH
    std::string currentDesktop; // XDG_CURRENT_DESKTOP
    std::string display;        // DISPLAY
    std::string waylandDisplay; // WAYLAND_DISPLAY

    [[nodiscard]] static TerminalEnvironment current();
};

// The beginnings of command lines that run what is appended to them in a new terminal window, the
// preferred one first: the user's own choice, that of the system, that of the desktop, then any.
// The first word of each is the absolute path of an executable that is there now. Empty when there
// is no display.
//
// Terminals differ in how they take a command apart, so what is appended must be free of blanks,
// quotes and whatever else a shell would look at.
[[nodiscard]] std::vector<std::vector<std::string>>
terminalCommands(const TerminalEnvironment& environment);

} // namespace korvan
