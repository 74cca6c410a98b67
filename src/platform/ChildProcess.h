// SPDX-License-Identifier: MIT
#pragma once

#include "model/Error.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace korvan {

// Whether `path` is a regular file that this process may execute.
[[nodiscard]] bool isExecutable(const std::filesystem::path& path);

// How a child process ended.
struct ChildEnd {
    int status = 0;            // its exit status, or the number of the signal that ended it
    std::string standardError; // everything it wrote there
};

// Runs `executable` with `arguments`, without a shell, and waits until it has ended. Standard input
// and output are inherited. Standard error is collected while the child runs, so it never blocks
// the child. Fails, with an error of the domain "POSIX", when the program cannot be started.
[[nodiscard]] Result<ChildEnd> runChild(const std::filesystem::path& executable,
                                        const std::vector<std::string>& arguments);

// Starts a program as the desktop would: in a session of its own, without input or output, with no
// signals blocked or ignored, and without the variables that the desktop set for this program.
// `command` begins with the path of an executable. `activationToken` lets the program's window come
// to the front; it may be empty.
//
// Returns the child, which the caller must wait for, or 0 when it cannot be started.
[[nodiscard]] pid_t startDetached(std::vector<std::string> command,
                                  std::string_view activationToken);

} // namespace korvan
