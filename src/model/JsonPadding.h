// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace korvan {

// How many bytes behind the end of a text the JSON parser may look at. It ignores what they hold.
inline constexpr std::size_t kJsonPadding = 64;

// Reserves memory for a text of `size` bytes that JsonReader can then read in place. JsonReader
// reads any other text, too, but from a copy, which takes up to a fifth of the time. So the
// functions that read from the disk call this first. It only saves time; nothing requires it.
inline void reserveForJson(std::string& text, std::size_t size) {
    text.reserve(size + kJsonPadding);
}

} // namespace korvan
