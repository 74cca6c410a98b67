// SPDX-License-Identifier: MIT
#pragma once

#include "model/Uuid.h"

#include <initializer_list>
#include <optional>
#include <vector>

namespace korvan {

// The set of selected profiles, by id, in the order in which they were selected. It may hold ids of
// profiles that are gone.
class ProfileSelection final {
public:
    ProfileSelection() = default;

    // Keeps each id once, at its first place.
    ProfileSelection(std::initializer_list<Uuid> ids) : ProfileSelection(std::vector<Uuid>(ids)) {}
    explicit ProfileSelection(std::vector<Uuid> ids);

    [[nodiscard]] const std::vector<Uuid>& ids() const { return m_ids; }

    // The one that was selected first.
    [[nodiscard]] std::optional<Uuid> first() const {
        return m_ids.empty() ? std::nullopt : std::optional(m_ids.front());
    }

    // What this becomes when exactly `selected` are selected: ids that stay keep their order, new
    // ones follow in theirs.
    [[nodiscard]] ProfileSelection changedTo(std::vector<Uuid> selected) const;

    friend bool operator==(const ProfileSelection&, const ProfileSelection&) = default;

private:
    std::vector<Uuid> m_ids;
};

} // namespace korvan
