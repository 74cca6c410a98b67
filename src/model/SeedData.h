// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"
#include "model/SSHCategory.h"
#include "model/SSHProfile.h"

#include <vector>

// What an empty list is filled with. Each record is made only once in a run, so that all windows
// fill their lists with the same ids.
namespace korvan {

[[nodiscard]] const SSHProfile& sampleProfile();
[[nodiscard]] const SSHCategory& defaultCategory();
[[nodiscard]] const std::vector<CommandSnippet>& defaultSnippets();

} // namespace korvan
