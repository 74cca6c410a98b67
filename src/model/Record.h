// SPDX-License-Identifier: MIT
#pragma once

#include "model/Text.h"

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

// The fields of a record in their own order: a tuple of Field, specialised beside each record. It
// alone says what is written, read and compared; a field that is missing here does not exist.
// A field whose type is std::optional may be absent, all others are required.
template <class Record>
inline constexpr auto kFields = std::tuple<>();

template <class Value>
bool valuesAreEqual(const Value& left, const Value& right) {
    return left == right;
}

inline bool valuesAreEqual(const std::string& left, const std::string& right) {
    return canonicallyEqual(left, right);
}

// Whether two records are equal in every field, texts under canonical equivalence.
template <class Record>
bool fieldsAreEqual(const Record& left, const Record& right) {
    return std::apply(
        [&](const auto&... field) {
            return (valuesAreEqual(left.*field.member, right.*field.member) && ...);
        },
        kFields<Record>);
}

} // namespace korvan
