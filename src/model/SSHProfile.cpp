// SPDX-License-Identifier: MIT
#include "model/SSHProfile.h"

#include "model/Text.h"

#include <string_view>

namespace korvan {

namespace {

std::string withEscapedQuotes(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        if (character == '"') escaped += '\\';
        escaped += character;
    }
    return escaped;
}

} // namespace

std::string SSHProfile::target() const { return user + "@" + host; }

std::string SSHProfile::sshCommand() const {
    std::string command = "ssh -p " + std::to_string(port);
    if (const std::string_view path = trimmed(identityFile); !path.empty())
        command += " -i \"" + withEscapedQuotes(path) + "\"";
    if (const std::string_view args = trimmed(extraArgs); !args.empty())
        command.append(" ").append(args);
    return command + " " + target();
}

} // namespace korvan
