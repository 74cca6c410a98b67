// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace korvan {

// How many bytes behind its end the JSON parser may look at, and ignores. A text whose capacity has
// room for them is read in place, any other from a copy.
inline constexpr std::size_t kJsonPadding = 64;

} // namespace korvan
