// SPDX-License-Identifier: MIT
#pragma once

#include "model/Record.h"
#include "model/Uuid.h"

#include <cstdint>
#include <optional>
#include <string>

namespace korvan {

// How to reach one machine by ssh. The record allows any text in any field; only the editor checks
// what the user enters.
struct SSHProfile {
    Uuid id = Uuid::random();
    std::string name;
    std::string host;
    std::string user;
    std::int64_t port = 22;
    std::string identityFile;       // path of the private key; empty means none
    std::string password;           // a note in plain text, never handed to ssh
    std::string extraArgs;          // further words of the command line, used as they stand
    std::optional<Uuid> categoryId; // may name a category that does not exist

    // `user`, an at sign and `host`, as stored.
    [[nodiscard]] std::string target() const;

    // The command line that connects to this profile. The path of the key file stands in double
    // quotes, in which the shell still reads `$`, back quotes and backslashes.
    [[nodiscard]] std::string sshCommand() const;

    friend bool operator==(const SSHProfile& left, const SSHProfile& right);
};

template <>
inline constexpr auto kFields<SSHProfile> =
    std::tuple(Field("id", &SSHProfile::id), Field("name", &SSHProfile::name),
               Field("host", &SSHProfile::host), Field("user", &SSHProfile::user),
               Field("port", &SSHProfile::port), Field("identityFile", &SSHProfile::identityFile),
               Field("password", &SSHProfile::password), Field("extraArgs", &SSHProfile::extraArgs),
               Field("categoryId", &SSHProfile::categoryId));

inline bool operator==(const SSHProfile& left, const SSHProfile& right) {
    return fieldsAreEqual(left, right);
}

} // namespace korvan
