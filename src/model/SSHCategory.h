// SPDX-License-Identifier: MIT
#pragma once

#include "model/Record.h"
#include "model/Uuid.h"

#include <cstddef>
#include <functional>
#include <string>

namespace korvan {

// A group of profiles, made by the user.
struct SSHCategory {
    Uuid id = Uuid::random();
    std::string name;

    friend bool operator==(const SSHCategory& left, const SSHCategory& right);
};

template <>
inline constexpr auto kFields<SSHCategory> =
    std::tuple(Field("id", &SSHCategory::id), Field("name", &SSHCategory::name));

inline bool operator==(const SSHCategory& left, const SSHCategory& right) {
    return fieldsAreEqual(left, right);
}

} // namespace korvan

template <>
struct std::hash<korvan::SSHCategory> {
    std::size_t operator()(const korvan::SSHCategory& category) const {
        const std::size_t id = std::hash<korvan::Uuid>{}(category.id);
        const std::size_t name = std::hash<std::string>{}(korvan::canonicalForm(category.name));
        return id * 31 + name;
    }
};
