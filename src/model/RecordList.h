// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"
#include "model/Error.h"
#include "model/SSHCategory.h"
#include "model/SSHProfile.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The stored form of a list: a compact JSON array of its records, in list order. Both functions
// exist for SSHProfile, SSHCategory and CommandSnippet.
namespace korvan {

template <class Record>
[[nodiscard]] std::string encodeList(const std::vector<Record>& records);

// All records, or the error of the first one that cannot be read. `listName` begins the place that
// the error names, as in `profiles[1].host: required key is missing`. `expectedCount` is a guess at
// the number of records; a good guess makes reading faster.
template <class Record>
[[nodiscard]] Result<std::vector<Record>>
decodeList(const std::string& json, std::string_view listName, std::size_t expectedCount = 0);

} // namespace korvan
