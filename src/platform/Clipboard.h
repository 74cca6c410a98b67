// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace korvan {

// The desktop's clipboard.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    // Replaces whatever the clipboard holds, of any type, by `text` as plain text. A desktop that
    // refuses does so without a word.
    virtual void setText(const std::string& text) = 0;
};

} // namespace korvan
