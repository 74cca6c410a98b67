// SPDX-License-Identifier: MIT
#include "desktop/DesktopWorkspace.h"

#include "desktop/TerminalStarter.h"
#include "desktop/Terminals.h"

#include <algorithm>
#include <fstream>
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
// terminals look as if all were well. The script itself need not be executable, and where it lies
// nothing may be: the helper only reads it.
bool hasInterpreter(const fs::path& script) {
    std::ifstream file(script);
    std::string line;
    if (!std::getline(file, line) || !line.starts_with("#!")) return false;
    const auto begin = std::min(line.find_first_not_of(" \t", 2), line.size());
    const auto end = line.find_first_of(" \t", begin);
    return isExecutable(line.substr(begin, end - begin));
}

} // namespace

fs::path helperProgramPath(const fs::path& applicationFolder) {
    fs::path beside = applicationFolder / kHelperName;
    if (isExecutable(beside)) return beside;
    return (applicationFolder / ".." / "libexec" / "korvan" / kHelperName).lexically_normal();
}

DesktopWorkspace::DesktopWorkspace(fs::path helperProgram,
                                   std::function<std::string()> activationToken)
    : m_helperProgram(std::move(helperProgram)), m_activationToken(std::move(activationToken)) {}

bool DesktopWorkspace::openFile(const fs::path& path, std::string_view application,
                                std::function<void()> refusedLater) {
    if (application != "Terminal") return false;
    if (!isExecutable(m_helperProgram) || !hasInterpreter(path)) return false;

    // It ends by itself, or with m_attempts.
    auto* attempt = new TerminalStarter(terminalCommands(TerminalEnvironment::current()),
                                        {m_helperProgram, path, m_activationToken},
                                        std::move(refusedLater), &m_attempts);
    if (attempt->start()) return true;
    delete attempt;
    return false;
}

} // namespace korvan
