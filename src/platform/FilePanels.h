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
    std::string fileType; // the ending of the name, without the dot; one without it gets it
};

struct OpenPanel {
    std::string title;
    std::vector<std::string> fileTypes; // endings without the dot; none means any file
};

// The desktop's dialogs for choosing a file. Both run modally.
class FilePanels {
public:
    virtual ~FilePanels() = default;

    // The absolute path that the user chose to write to, nothing when they cancelled. They have
    // agreed to replacing a file that is there.
    [[nodiscard]] virtual std::optional<std::filesystem::path>
    runSavePanel(const SavePanel& panel) = 0;

    // The absolute path of one existing file, nothing when the user cancelled.
    [[nodiscard]] virtual std::optional<std::filesystem::path>
    runOpenPanel(const OpenPanel& panel) = 0;
};

} // namespace korvan
