// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"
#include "model/SSHCategory.h"
#include "model/SSHProfile.h"

#include <vector>

// What an empty list is filled with. Each is made once per run, the first time it is needed, so
// that all windows of one run seed the same ids.
namespace korvan {

[[nodiscard]] const SSHProfile& sampleProfile();
[[nodiscard]] const SSHCategory& defaultCategory();
[[nodiscard]] const std::vector<CommandSnippet>& defaultSnippets();

} // namespace korvan
