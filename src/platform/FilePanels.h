// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace korvan {

struct SavePanel {
    std::string title;
    std::string proposedName;
    std::string fileType; // the ending of the name, without the dot; added to a name without it
};

struct OpenPanel {
    std::string title;
    std::vector<std::string> fileTypes; // endings without the dot; empty allows any file
};

// The desktop's dialogs for choosing a file. Both run modally. A dialog that fails answers as if
// the user had cancelled.
class FilePanels {
public:
    virtual ~FilePanels() = default;

    // The absolute path that the user chose to write to; nothing when they cancelled. If a file is
    // there, they have agreed to replace it.
    [[nodiscard]] virtual std::optional<std::filesystem::path>
    runSavePanel(const SavePanel& panel) = 0;

    // The absolute path of an existing file; nothing when the user cancelled.
    [[nodiscard]] virtual std::optional<std::filesystem::path>
    runOpenPanel(const OpenPanel& panel) = 0;
};

} // namespace korvan
