// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clipboard.h"

namespace korvan {

// The clipboard that Ctrl+V pastes, not the one of the middle mouse button. Wayland takes a text
// only while an input event is handled.
class DesktopClipboard final : public Clipboard {
public:
    void setText(const std::string& text) override;
};

} // namespace korvan
