// SPDX-License-Identifier: MIT
#pragma once

#include "platform/BundleInformation.h"

#include <string>

namespace korvan {

// The version, build number and identifier that this program was built with.
[[nodiscard]] BundleInformation programBundle();

// The version line of the About window: version, build number and identifier. Each is "?" where it
// is missing; so are the first two where their value is not a text.
[[nodiscard]] std::string versionText(const BundleInformation& bundle);

} // namespace korvan
