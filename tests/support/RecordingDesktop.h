// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clipboard.h"
#include "platform/Desktop.h"
#include "platform/FilePanels.h"
#include "platform/MainQueue.h"
#include "platform/Workspace.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace korvan {

class RecordingClipboard final : public Clipboard {
public:
    std::vector<std::string> texts;

    void setText(const std::string& text) override { texts.push_back(text); }
};

// Answers as it is told, and removes the files that it was handed when it ends.
class RecordingWorkspace final : public Workspace {
public:
    ~RecordingWorkspace() override {
        std::error_code ignored;
        for (const std::filesystem::path& path : paths)
            std::filesystem::remove(path, ignored);
    }

    bool accepts = true;
    std::vector<std::filesystem::path> paths;
    std::string application;
    std::function<void()> refusedLater;

    bool openFile(const std::filesystem::path& path, std::string_view with,
                  std::function<void()> refused) override {
        paths.push_back(path);
        application = with;
        refusedLater = std::move(refused);
        return accepts;
    }
};

// Panels whose user has decided beforehand.
class PreparedFilePanels final : public FilePanels {
public:
    std::optional<std::filesystem::path> answer;
    OpenPanel openPanel;

    std::optional<std::filesystem::path> runSavePanel(const SavePanel&) override { return answer; }
    std::optional<std::filesystem::path> runOpenPanel(const OpenPanel& panel) override {
        openPanel = panel;
        return answer;
    }
};

// An event loop whose time passes only when it is told to.
class ManualMainQueue final : public MainQueue {
public:
    void runAfter(std::chrono::milliseconds delay, std::function<void()> task) override {
        m_tasks.emplace(m_now + delay, std::move(task));
    }

    void advance(std::chrono::milliseconds time) {
        m_now += time;
        while (!m_tasks.empty() && m_tasks.begin()->first <= m_now)
            m_tasks.extract(m_tasks.begin()).mapped()();
    }

private:
    std::chrono::milliseconds m_now{0};
    std::multimap<std::chrono::milliseconds, std::function<void()>> m_tasks;
};

struct RecordingDesktop {
    RecordingClipboard clipboard;
    RecordingWorkspace workspace;
    PreparedFilePanels filePanels;
    ManualMainQueue mainQueue;
    std::chrono::system_clock::time_point now = std::chrono::system_clock::from_time_t(0);

    Desktop desktop() {
        return {clipboard, workspace, filePanels, mainQueue, [this] { return now; }};
    }
};

} // namespace korvan
