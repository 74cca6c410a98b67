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

    // Hands the file at `path` to `application` and does not wait for it. Returns whether a program
    // was started that may take the file.
    //
    // Some programs fail only a moment after their start. When that happens after true was
    // returned, and no other program takes the file either, `refusedLater` is called once, from
    // the event loop. It is never called after false was returned.
    [[nodiscard]] virtual bool openFile(const std::filesystem::path& path,
                                        std::string_view application,
                                        std::function<void()> refusedLater) = 0;
};

} // namespace korvan
