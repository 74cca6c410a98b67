// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopWorkspace.h"

#include "platform/desktop/TerminalAttempt.h"
#include "platform/desktop/Terminals.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <unistd.h>
#include <utility>

namespace korvan {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHelperName = "korvan-run-script";

bool isExecutable(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored) && ::access(path.c_str(), X_OK) == 0;
}

// Whether the program that a script names in its first line is there. With it missing, most
// terminals look as if all were well.
bool hasInterpreter(const fs::path& script) {
    std::ifstream file(script);
    std::string line;
    if (!std::getline(file, line) || !line.starts_with("#!")) return false;
    const auto begin = std::min(line.find_first_not_of(" \t", 2), line.size());
    const auto end = line.find_first_of(" \t", begin);
    return isExecutable(line.substr(begin, end - begin));
}

// Whether every terminal and wrapper leaves `path` alone.
bool isPlain(const std::string& path) {
    constexpr std::string_view kPlain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-+";
    return path.find_first_not_of(kPlain) == std::string::npos;
}

// A new folder for its owner alone, whose path is plain; empty when there can be none.
fs::path makeLinkFolder() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    for (const std::string parent : {runtime ? runtime : "", "/tmp"}) {
        std::string name = parent + "/korvan-XXXXXX";
        if (parent.starts_with('/') && isPlain(parent) && ::mkdtemp(name.data())) return name;
    }
    return {};
}

} // namespace

fs::path helperProgramPath(const fs::path& applicationFolder) {
    fs::path beside = applicationFolder / kHelperName;
    if (isExecutable(beside)) return beside;
    return (applicationFolder / ".." / "libexec" / "korvan" / kHelperName).lexically_normal();
}

DesktopWorkspace::DesktopWorkspace(fs::path helperProgram)
    : m_helperProgram(std::move(helperProgram)) {}

bool DesktopWorkspace::openFile(const std::string& path, std::string_view application,
                                std::function<void()> refusedLater) {
    if (application != "Terminal") return false;
    if (!isExecutable(m_helperProgram) || !isExecutable(path) || !hasInterpreter(path))
        return false;
    const auto helper = plainPath(m_helperProgram);
    const auto script = plainPath(path);
    if (!helper || !script) return false;

    auto commands = terminalCommands(TerminalEnvironment::current(), {*helper, *script});
    // It ends by itself, or with m_attempts.
    auto* attempt = new TerminalAttempt(std::move(commands), std::move(refusedLater), &m_attempts);
    if (attempt->start()) return true;
    delete attempt;
    return false;
}

// The path, or that of a link to it when terminals might take it apart. A link stays when the
// program ends: the terminal may only then come to open it.
std::optional<std::string> DesktopWorkspace::plainPath(const fs::path& path) {
    const fs::path absolute = fs::absolute(path).lexically_normal();
    if (isPlain(absolute.string())) return absolute.string();
    if (m_linkFolder.empty()) m_linkFolder = makeLinkFolder();
    if (m_linkFolder.empty()) return std::nullopt;

    std::error_code error;
    for (int number = 1; number < 1'000'000; ++number) {
        const fs::path link = m_linkFolder / std::to_string(number);
        if (fs::read_symlink(link, error) == absolute) return link.string();
        fs::create_symlink(absolute, link, error);
        if (!error) return link.string();
        if (error != std::errc::file_exists) break;
    }
    return std::nullopt;
}

} // namespace korvan
