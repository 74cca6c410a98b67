// SPDX-License-Identifier: MIT
#include "desktop/DesktopWorkspace.h"

#include "desktop/TerminalStarter.h"
#include "desktop/Terminals.h"
#include "platform/ChildProcess.h"

#include <algorithm>
#include <fstream>
#include <utility>

namespace korvan {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHelperName = "korvan-run-script";

// Whether the program that a script names in its first line is there. Without it, most terminals
// look as if all were well. The script need not be executable, and its folder may be mounted
// "noexec": the helper only reads it.
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

    // Deletes itself when it is done, or is deleted with m_starters.
    auto* starter = new TerminalStarter(terminalCommands(TerminalEnvironment::current()),
                                        {m_helperProgram, path, m_activationToken},
                                        std::move(refusedLater), &m_starters);
    if (starter->startNext()) return true;
    delete starter;
    return false;
}

} // namespace korvan
