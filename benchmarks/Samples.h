// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"
#include "model/SSHCategory.h"
#include "model/SSHProfile.h"

#include <cstddef>
#include <vector>

// Records as people have them, the same in every run. The first ones of a longer list are those of
// a shorter one.
namespace korvan::samples {

// Some names with umlauts, most keys in the home folder, some with extra arguments, a password note
// or one of the categories of makeCategories.
[[nodiscard]] std::vector<SSHProfile> makeProfiles(std::size_t count);

// Most with one of the four tokens, some with a hint, one in ten with umlauts, some too long for
// one line.
[[nodiscard]] std::vector<CommandSnippet> makeSnippets(std::size_t count);

[[nodiscard]] std::vector<SSHCategory> makeCategories(std::size_t count);

} // namespace korvan::samples
