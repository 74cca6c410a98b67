// SPDX-License-Identifier: MIT
#pragma once

#include "model/KorvanBackup.h"

#include <cstdio>
#include <string>
#include <type_traits>
#include <utility>

// Complete records to begin with; a test changes the one field that it is about.
namespace korvan {

inline Uuid exampleId(int number) {
    std::array<char, Uuid::kTextLength + 1> text{};
    std::snprintf(text.data(), text.size(), "0A0B0C0D-0000-4000-8000-%012d", number % 1'000'000);
    return Uuid::parse(text.data()).value();
}

inline SSHCategory exampleCategory(int number = 2) {
    return {.id = exampleId(number), .name = "Büro"};
}

inline SSHProfile exampleProfile(int number = 1) {
    return {.id = exampleId(number),
            .name = "Drucker \"Süd\"",
            .host = "10.0.0.7",
            .user = "pi",
            .port = 2222,
            .identityFile = "/Users/pi/.ssh/id_ed25519",
            .password = "geheim",
            .extraArgs = "-o StrictHostKeyChecking=no",
            .categoryId = exampleCategory().id};
}

inline CommandSnippet exampleSnippet(int number = 3) {
    return {.id = exampleId(number),
            .title = "Ping Host",
            .commandTemplate = "ping -c 4 {HOST}",
            .hint = "4 Pakete senden"};
}

inline KorvanBackup exampleBackup() {
    return makeBackup({exampleProfile()}, {exampleSnippet()}, {exampleCategory()},
                      std::chrono::system_clock::from_time_t(1'000'000'000));
}

// `record` with another value in one field.
template <class Record, class Value>
Record with(Record record, Value Record::* member, std::type_identity_t<Value> value) {
    record.*member = std::move(value);
    return record;
}

// `text` with the first `part` replaced.
inline std::string replaced(std::string text, std::string_view part, std::string_view by) {
    return text.replace(text.find(part), part.size(), by);
}

} // namespace korvan
