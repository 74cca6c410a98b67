// SPDX-License-Identifier: MIT
#include "actions/TerminalLauncher.h"

#include "model/Text.h"
#include "model/Uuid.h"
#include "platform/ChildProcess.h"
#include "platform/Files.h"

#include <utility>

namespace korvan {

namespace {

constexpr std::string_view kDomain = "TerminalLauncher";
constexpr std::string_view kTerminal = "Terminal";

// The script: these three pieces, with the command's echo form and the command between them.
constexpr std::string_view kBeforeEcho = "#!/bin/zsh\n"
                                         "set -e\n"
                                         "cd ~\n"
                                         "clear\n"
                                         "echo \"▶\uFE0E ";
constexpr std::string_view kBeforeCommand = "\"\necho \"\"\n";
constexpr std::string_view kAfterCommand = "\necho \"\"\n"
                                           "echo \"⏎ Enter zum Schließen…\"\n"
                                           "read";

// `command` as it stands between the double quotes of echo. Dollar signs and back quotes are not
// escaped, so the shell replaces them as it does when it runs the command.
std::string echoForm(std::string_view command) {
    std::string form;
    for (const char character : command) {
        if (character == '\\' || character == '"') form += '\\';
        form += character;
    }
    return form;
}

std::filesystem::path defaultScriptFolder() {
    const std::filesystem::path folder = "/private/tmp";
    std::error_code ignored;
    return std::filesystem::is_directory(folder, ignored) ? folder : "/tmp";
}

Error refused() { return {std::string(kDomain), -128, "Terminal konnte das Script nicht öffnen."}; }

} // namespace

std::string terminalScript(std::string_view command) {
    std::string valid;
    appendValidUtf8(valid, command);
    std::string script(kBeforeEcho);
    return script.append(echoForm(valid))
        .append(kBeforeCommand)
        .append(valid)
        .append(kAfterCommand);
}

TerminalLauncher::TerminalLauncher(Workspace& workspace)
    : TerminalLauncher(workspace, defaultScriptFolder()) {}

TerminalLauncher::TerminalLauncher(Workspace& workspace, std::filesystem::path scriptFolder)
    : m_workspace(workspace), m_scriptFolder(std::move(scriptFolder)) {}

Result<> TerminalLauncher::openInTerminal(std::string_view command,
                                          std::function<void(const Error&)> failedLater) {
    const auto path = m_scriptFolder / ("Korvan_" + Uuid::random().text() + ".command");
    if (auto written = writeFileAtomically(path, terminalScript(command)); !written) return written;
    if (auto made = makeExecutable(path); !made) return made;
    const auto refusedLater = [failedLater = std::move(failedLater)] { failedLater(refused()); };
    if (!m_workspace.openFile(path, kTerminal, refusedLater)) return std::unexpected(refused());
    return {};
}

Result<> TerminalLauncher::makeExecutable(const std::filesystem::path& path) {
    const auto chmod = runChild("/bin/chmod", {"+x", path.string()});
    if (!chmod) return std::unexpected(chmod.error());
    if (chmod->status == 0) return {};
    std::string description;
    appendValidUtf8(description, chmod->standardError);
    if (description != chmod->standardError) description = "chmod failed";
    return failure(std::string(kDomain), chmod->status, std::move(description));
}

} // namespace korvan
