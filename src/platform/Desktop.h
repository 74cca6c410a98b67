// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace korvan {

class Clipboard;
class FilePanels;
class MainQueue;
class Workspace;

// What a window needs of the desktop. Every part must outlive the window.
struct Desktop {
    Clipboard& clipboard;
    Workspace& workspace;
    FilePanels& filePanels;
    MainQueue& mainQueue;
    std::function<std::chrono::system_clock::time_point()> now = std::chrono::system_clock::now;
};

} // namespace korvan
