// SPDX-License-Identifier: MIT
#include "state/ProfileSelection.h"

#include <unordered_set>
#include <utility>

namespace korvan {

ProfileSelection::ProfileSelection(std::vector<Uuid> ids) : m_ids(std::move(ids)) {
    std::unordered_set<Uuid> seen;
    std::erase_if(m_ids, [&](const Uuid& id) { return !seen.insert(id).second; });
}

ProfileSelection ProfileSelection::changedTo(std::vector<Uuid> selected) const {
    const std::unordered_set<Uuid> wanted(selected.begin(), selected.end());
    std::vector<Uuid> ids = m_ids;
    std::erase_if(ids, [&](const Uuid& id) { return !wanted.contains(id); });
    ids.insert(ids.end(), selected.begin(), selected.end());
    return ProfileSelection(std::move(ids));
}

} // namespace korvan
