// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace korvan {

// The desktop's clipboard.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    // Replaces what the clipboard holds by `text`, as plain text. When the desktop refuses, nothing
    // happens and nobody is told.
    virtual void setText(const std::string& text) = 0;
};

} // namespace korvan
