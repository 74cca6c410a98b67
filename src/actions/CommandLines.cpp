// SPDX-License-Identifier: MIT
//
// The command lines that records stand for. They are members of the records, and stand here because
// they are what the program does with a record rather than what a record is.
#include "model/CommandSnippet.h"
#include "model/SSHProfile.h"
#include "model/Text.h"

#include <string_view>

namespace korvan {

namespace {

void replaceAll(std::string& text, std::string_view token, std::string_view value) {
    std::size_t at = text.find(token);
    if (at == std::string::npos) return;
    std::string replaced;
    std::size_t start = 0;
    for (; at != std::string::npos; at = text.find(token, start)) {
        replaced.append(text, start, at - start).append(value);
        start = at + token.size();
    }
    text = replaced.append(text, start);
}

} // namespace

std::string SSHProfile::target() const { return user + "@" + host; }

std::string SSHProfile::sshCommand() const {
    std::string command = "ssh -p " + std::to_string(port);
    if (const std::string_view path = trimmed(identityFile); !path.empty()) {
        std::string escaped(path);
        replaceAll(escaped, "\"", "\\\"");
        command += " -i \"" + escaped + "\"";
    }
    if (const std::string_view args = trimmed(extraArgs); !args.empty())
        command.append(" ").append(args);
    return command + " " + target();
}

std::string CommandSnippet::expandedCommand(const SSHProfile* profile) const {
    std::string command = commandTemplate;
    if (!profile) return command;
    // One after the other over the growing text, so that a token inside a value that was put in
    // earlier is replaced too. Users rely on it, to keep a {USER} in the host for instance.
    replaceAll(command, "{HOST}", profile->host);
    replaceAll(command, "{USER}", profile->user);
    replaceAll(command, "{PORT}", std::to_string(profile->port));
    replaceAll(command, "{TARGET}", profile->target());
    return command;
}

} // namespace korvan
