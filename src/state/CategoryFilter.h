// SPDX-License-Identifier: MIT
#pragma once

#include "model/SSHProfile.h"
#include "model/Uuid.h"

#include <cstddef>
#include <functional>
#include <optional>

namespace korvan {

// Which profiles the user looks at: all, those without a category, or those of one.
class CategoryFilter final {
public:
    enum class Case { all, uncategorized, category };

    static CategoryFilter all() { return {Case::all, {}}; }
    static CategoryFilter uncategorized() { return {Case::uncategorized, {}}; }
    static CategoryFilter category(const Uuid& id) { return {Case::category, id}; }

    [[nodiscard]] Case which() const { return m_case; }

    // The category's id; nothing for the other two cases.
    [[nodiscard]] std::optional<Uuid> categoryId() const {
        return m_case == Case::category ? std::optional(m_id) : std::nullopt;
    }

    [[nodiscard]] bool admits(const SSHProfile& profile) const {
        switch (m_case) {
        case Case::all: return true;
        case Case::uncategorized: return !profile.categoryId;
        case Case::category: return profile.categoryId == m_id;
        }
        return false;
    }

    friend bool operator==(const CategoryFilter&, const CategoryFilter&) = default;

private:
    CategoryFilter(Case which, const Uuid& id) : m_case(which), m_id(id) {}

    Case m_case;
    Uuid m_id; // zero unless the case is category, so that equal filters are equal in every member
};

} // namespace korvan

template <>
struct std::hash<korvan::CategoryFilter> {
    std::size_t operator()(const korvan::CategoryFilter& filter) const noexcept {
        const auto id = filter.categoryId();
        return static_cast<std::size_t>(filter.which()) * 31 +
               (id ? std::hash<korvan::Uuid>{}(*id) : 0);
    }
};
