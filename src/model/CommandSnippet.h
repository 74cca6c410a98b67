// SPDX-License-Identifier: MIT
#pragma once

#include "model/Record.h"
#include "model/SSHProfile.h"
#include "model/Uuid.h"

#include <array>
#include <string>
#include <string_view>

namespace korvan {

// A template of a shell command, in which {HOST}, {USER}, {PORT} and {TARGET} stand for what a
// profile holds.
struct CommandSnippet {
    Uuid id = Uuid::random();
    std::string title;
    std::string commandTemplate;
    std::string hint; // a short explanation, may be empty

    // The template filled from `profile`, or as it is without one.
    [[nodiscard]] std::string expandedCommand(const SSHProfile* profile) const;

    friend bool operator==(const CommandSnippet& left, const CommandSnippet& right);
};

template <>
inline constexpr auto kFields<CommandSnippet> =
    std::tuple(Field("id", &CommandSnippet::id), Field("title", &CommandSnippet::title),
               Field("commandTemplate", &CommandSnippet::commandTemplate),
               Field("hint", &CommandSnippet::hint));

inline bool operator==(const CommandSnippet& left, const CommandSnippet& right) {
    return fieldsAreEqual(left, right);
}

// Fills command templates from one profile. A whole list of commands is expanded whenever the
// selection changes, so one object does them all and reuses its memory.
class CommandExpansion final {
public:
    // Without a profile the templates stay as they are.
    explicit CommandExpansion(const SSHProfile* profile);

    // The command that the snippet's template makes. Valid until the next call, and while the
    // snippet exists and is not changed.
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
