// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FilePanels.h"

namespace korvan {

// The file dialogs of the desktop, or Qt's own where it has none, modal over the active window.
//
// Not every desktop's dialog asks before it replaces a file whose ending was added for the user. So
// none is asked to: the question is ours, about the name that is really going to be written.
class DesktopFilePanels final : public FilePanels {
public:
    [[nodiscard]] std::optional<std::string> runSavePanel(const SavePanel& panel) override;
    [[nodiscard]] std::optional<std::string> runOpenPanel(const OpenPanel& panel) override;
};

} // namespace korvan
