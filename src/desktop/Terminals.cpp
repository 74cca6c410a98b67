// SPDX-License-Identifier: MIT
#include "desktop/Terminals.h"

#include "platform/ChildProcess.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <ranges>
#include <string_view>

namespace korvan {

namespace {

namespace fs = std::filesystem;

struct Terminal {
    std::string_view program;
    std::array<std::string_view, 2> options; // go before the command; empty ones are left out
    std::string_view desktops = {};          // those whose own terminal it is, between colons
};

// The user's choice, on newer systems. It takes the command alone.
constexpr Terminal kUsersChoice{"xdg-terminal-exec", {}};
// The system's choice. Every terminal that it may lead to understands -e.
constexpr Terminal kSystemsChoice{"x-terminal-emulator", {"-e"}};

// Each terminal with the options that keep the words of the command apart. They are tried in this
// order, the desktop's own ones first. xterm comes late since it suits every desktop least. rio
// comes last since Debian has another program of that name, which only prints its options.
constexpr std::string_view kGnome = ":GNOME:GNOME-Classic:GNOME-Flashback:";
constexpr std::array kTerminals{
    Terminal{"ptyxis", {"--"}, kGnome},
    Terminal{"kgx", {"--"}, kGnome},
    Terminal{"gnome-terminal",
             {"--"},
             ":GNOME:GNOME-Classic:GNOME-Flashback:Unity:X-Cinnamon:"
             "Budgie:"},
    Terminal{"konsole", {"-e"}, ":KDE:"},
    Terminal{"xfce4-terminal", {"-x"}, ":XFCE:"},
    Terminal{"mate-terminal", {"-x"}, ":MATE:"},
    Terminal{"lxterminal", {"-e"}, ":LXDE:"},
    Terminal{"qterminal", {"-e"}, ":LXQt:"},
    Terminal{"cosmic-term", {"--"}, ":COSMIC:"},
    Terminal{"tilix", {"-e"}},
    Terminal{"terminator", {"-x"}},
    Terminal{"sakura", {"-e"}},
    Terminal{"kitty", {}},
    Terminal{"alacritty", {"-e"}},
    Terminal{"ghostty", {"-e"}},
    Terminal{"foot", {}},
    Terminal{"wezterm", {"start", "--"}},
    Terminal{"xterm", {"-e"}},
    Terminal{"rio", {"-e"}},
};

std::string valueOf(const char* variable) {
    const char* value = std::getenv(variable);
    return value ? value : "";
}

std::vector<std::string_view> parts(std::string_view list) {
    std::vector<std::string_view> found;
    for (const auto part : list | std::views::split(':'))
        if (!part.empty()) found.emplace_back(part.begin(), part.end());
    return found;
}

std::optional<fs::path> findProgram(std::string_view searchPath, std::string_view name) {
    for (const std::string_view folder : parts(searchPath)) {
        // A relative folder would depend on where the program was started.
        fs::path path = fs::path(folder) / name;
        if (path.is_absolute() && isExecutable(path)) return path;
    }
    return std::nullopt;
}

const Terminal* knownTerminal(std::string_view program) {
    const auto found = std::ranges::find(kTerminals, program, &Terminal::program);
    return found == kTerminals.end() ? nullptr : &*found;
}

// The terminal that the system's choice leads to, if it is in the table: its own options are safer.
// Debian puts wrappers before some terminals, as `gnome-terminal.wrapper`, which take words apart.
const Terminal* targetOf(const fs::path& systemsChoice) {
    std::error_code error;
    const fs::path target = fs::canonical(systemsChoice, error);
    if (error) return nullptr;
    const bool isWrapper = target.extension() == ".wrapper";
    return knownTerminal((isWrapper ? target.stem() : target.filename()).string());
}

// Collects the command lines, each program once.
class Commands final {
public:
    explicit Commands(const TerminalEnvironment& environment) : m_environment(environment) {}

    void add(const Terminal& terminal) {
        if (terminal.program == "foot" && m_environment.waylandDisplay.empty()) return;
        const auto program = findProgram(m_environment.path, terminal.program);
        if (!program) return;
        std::vector<std::string> command{program->string()};
        for (const std::string_view option : terminal.options)
            if (!option.empty()) command.emplace_back(option);
        if (std::ranges::find(commands, command) == commands.end())
            commands.push_back(std::move(command));
    }

    std::vector<std::vector<std::string>> commands;

private:
    const TerminalEnvironment& m_environment;
};

} // namespace

TerminalEnvironment TerminalEnvironment::current() {
    return {valueOf("PATH"), valueOf("XDG_CURRENT_DESKTOP"), valueOf("DISPLAY"),
            valueOf("WAYLAND_DISPLAY")};
}

std::vector<std::vector<std::string>> terminalCommands(const TerminalEnvironment& environment) {
    if (environment.display.empty() && environment.waylandDisplay.empty()) return {};
    Commands found(environment);
    found.add(kUsersChoice);
    if (const auto choice = findProgram(environment.path, kSystemsChoice.program)) {
        const Terminal* target = targetOf(*choice);
        const bool isFound = target && findProgram(environment.path, target->program);
        found.add(isFound ? *target : kSystemsChoice);
    }
    for (const std::string_view desktop : parts(environment.currentDesktop)) {
        const std::string name = std::string(":").append(desktop).append(":");
        for (const Terminal& terminal : kTerminals)
            if (terminal.desktops.find(name) != std::string_view::npos) found.add(terminal);
    }
    for (const Terminal& terminal : kTerminals)
        found.add(terminal);
    return std::move(found.commands);
}

} // namespace korvan
