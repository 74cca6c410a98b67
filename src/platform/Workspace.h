// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

namespace korvan {

// The desktop's way to open a file with another program.
class Workspace {
public:
    virtual ~Workspace() = default;

    // Hands the file at `path` to `application`, without waiting for it. Answers whether something
    // was started that may take the file.
    //
    // Some programs fail only a moment after they were started. When that happens after the answer
    // was yes and nothing else takes the file either, `refusedLater` is called, once, from the
    // event loop. It is not called after the answer was no.
    [[nodiscard]] virtual bool openFile(const std::filesystem::path& path,
                                        std::string_view application,
                                        std::function<void()> refusedLater) = 0;
};

} // namespace korvan
