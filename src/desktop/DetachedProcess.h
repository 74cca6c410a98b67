// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace korvan {

// Starts a program as if the desktop had: in a session of its own, without input or output, no
// signals blocked or ignored, and without what was in the environment for this program alone.
// `command` begins with the path of an executable. `activationToken` lets its window come to the
// front; it may be empty.
//
// Gives the child, which the caller waits for, or 0 when it cannot be started.
[[nodiscard]] pid_t startDetached(std::vector<std::string> command,
                                  std::string_view activationToken);

} // namespace korvan
