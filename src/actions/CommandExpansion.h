// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"
#include "model/SSHProfile.h"

#include <array>
#include <string>
#include <string_view>

namespace korvan {

// Fills command templates from one profile. A list of commands is laid out anew at every change of
// the selection; one expansion for all of them keeps its memory from one command to the next.
class CommandExpansion final {
public:
    // Without a profile the templates stay as they are.
    explicit CommandExpansion(const SSHProfile* profile);

    // The command that the snippet's template makes. Valid until the next call, and only as long as
    // the snippet is there unchanged.
    [[nodiscard]] const std::string& of(const CommandSnippet& snippet);

private:
    struct Replacement {
        std::string_view token;
        std::string value;
    };

    void replace(const Replacement& replacement);

    bool m_hasProfile;
    std::array<Replacement, 4> m_replacements;
    std::string m_command;
    std::string m_spare;
};

} // namespace korvan
