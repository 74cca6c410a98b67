// SPDX-License-Identifier: MIT
#pragma once

#include "model/Record.h"
#include "model/SSHProfile.h"
#include "model/Uuid.h"

#include <string>

namespace korvan {

// A template of a shell command, in which {HOST}, {USER}, {PORT} and {TARGET} stand for what a
// profile holds.
struct CommandSnippet {
    Uuid id = Uuid::random();
    std::string title;
    std::string commandTemplate;
    std::string hint; // a short explanation, may be empty

    // The template filled from `profile`, or as it is without one. It stands in
    // actions/CommandLines.cpp.
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

} // namespace korvan
