// SPDX-License-Identifier: MIT
#pragma once

#include "model/Text.h"

#include <array>
#include <string>
#include <string_view>
#include <tuple>

namespace korvan {

// One field of a record: its key in JSON and the member that holds it.
template <class Record, class Value>
struct Field {
    std::string_view key;
    Value Record::* member;
};

template <class Record, class Value>
Field(const char*, Value Record::*) -> Field<Record, Value>;

// The fields of a record in their own order: a tuple of Field, specialised beside each record.
// Writing, reading and comparing go by this tuple alone, so each of a record's fields must be in
// it. A field of type std::optional may be absent; all others are required.
template <class Record>
inline constexpr auto kFields = std::tuple<>();

// The keys of the fields, in the same order.
template <class Record>
inline constexpr auto kKeys =
    std::apply([](const auto&... field) { return std::array{field.key...}; }, kFields<Record>);

template <class Value>
bool valuesAreEqual(const Value& left, const Value& right) {
    return left == right;
}

inline bool valuesAreEqual(const std::string& left, const std::string& right) {
    return canonicallyEqual(left, right);
}

// Whether two records are equal in every field. Texts are compared by canonicallyEqual.
template <class Record>
bool fieldsAreEqual(const Record& left, const Record& right) {
    return std::apply(
        [&](const auto&... field) {
            return (valuesAreEqual(left.*field.member, right.*field.member) && ...);
        },
        kFields<Record>);
}

} // namespace korvan
