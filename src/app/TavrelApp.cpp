// SPDX-License-Identifier: MIT
#include "app/TavrelApp.h"

#include "app/AboutView.h"
#include "app/Activation.h"
#include "app/ProgramBundle.h"
#include "app/ReplaceQuestion.h"
#include "platform/desktop/SqliteKeyValueStore.h"
#include "ui/main/ContentView.h"
#include "ui/main/ContentWindow.h"

#include <utility>

namespace korvan {

// A window and what it stands on, in the order in which they come; they go the other way round.
struct TavrelApp::Scene {
    Scene(const std::filesystem::path& database, const Desktop& desktop)
        : keyValueStore(database), view(keyValueStore, desktop),
          window(view, desktop.filePanels, [](QWidget* parent) -> QDialog* {
              return new AboutView(programBundle(), parent);
          }) {}

    SqliteKeyValueStore keyValueStore;
    ContentView view;
    ContentWindow window;
};

TavrelApp::TavrelApp(std::filesystem::path database, const std::filesystem::path& helperProgram,
                     DesktopFilePanels::Source filePanels)
    : m_database(std::move(database)), m_workspace(helperProgram),
      m_filePanels(mayReplace, filePanels),
      m_desktop{m_clipboard, m_workspace, m_filePanels, m_mainQueue} {}

TavrelApp::~TavrelApp() = default;

void TavrelApp::openWindow(const QString& activationToken) {
    const auto& scene = m_scenes.emplace_back(std::make_unique<Scene>(m_database, m_desktop));
    const Scene* opened = scene.get();
    connect(&scene->window, &ContentWindow::newWindowRequested, this, [this] { openWindow(); });
    // Queued: the window is still in use while it says that it closes.
    connect(
        &scene->window, &ContentWindow::closed, this, [this, opened] { closeScene(opened); },
        Qt::QueuedConnection);
    showInFront(scene->window, activationToken);
}

void TavrelApp::closeScene(const Scene* scene) {
    std::erase_if(m_scenes, [scene](const auto& entry) { return entry.get() == scene; });
}

} // namespace korvan
