// SPDX-License-Identifier: MIT
#pragma once

#include "platform/BundleInformation.h"

#include <string>

namespace korvan {

// The version line of the About window: version, build number and identifier, each "?" when it is
// missing, or for the first two no text.
[[nodiscard]] std::string versionText(const BundleInformation& bundle);

} // namespace korvan
