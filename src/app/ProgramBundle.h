// SPDX-License-Identifier: MIT
#pragma once

#include "platform/BundleInformation.h"

namespace korvan {

// What this program knows of itself: version, build number and identifier, as it was built.
[[nodiscard]] BundleInformation programBundle();

} // namespace korvan
