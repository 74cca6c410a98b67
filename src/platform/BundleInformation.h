// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>

namespace korvan {

// What the program knows about itself as a product.
struct BundleInformation {
    using Value = std::variant<std::string, std::int64_t>;

    std::map<std::string, Value, std::less<>> infoDictionary;
    std::optional<std::string> bundleIdentifier;
};

} // namespace korvan
