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

// The version, build number and identifier that this program was built with.
[[nodiscard]] BundleInformation programBundle();

// The version line of the About window: version, build number and identifier. Each is "?" where it
// is missing; so are the first two where their value is not a text.
[[nodiscard]] std::string versionText(const BundleInformation& bundle);

} // namespace korvan
