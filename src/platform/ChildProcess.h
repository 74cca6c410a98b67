// SPDX-License-Identifier: MIT
#pragma once

#include "model/Error.h"

#include <filesystem>
#include <string>
#include <vector>

namespace korvan {

// How a child process ended.
struct ChildEnd {
    int status = 0;            // its exit status, or the number of the signal that ended it
    std::string standardError; // everything it wrote there
};

// Runs `executable` with `arguments`, no shell in between, and waits until it has ended. Standard
// input and output are inherited; standard error is collected while the child runs, so that a
// talkative child never blocks. Fails, with an error of the domain "POSIX", when it cannot be
// started.
[[nodiscard]] Result<ChildEnd> runChild(const std::filesystem::path& executable,
                                        const std::vector<std::string>& arguments);

} // namespace korvan
