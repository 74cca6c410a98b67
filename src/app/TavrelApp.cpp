// SPDX-License-Identifier: MIT
#include "app/TavrelApp.h"

#include "app/AboutView.h"
#include "app/Activation.h"
#include "app/ProgramBundle.h"
#include "app/ReplaceQuestion.h"
#include "desktop/SqliteKeyValueStore.h"
#include "state/ContentView.h"
#include "ui/main/ContentWindow.h"

#include <utility>

namespace korvan {

// A window and what it needs. Made in this order, destroyed in reverse.
struct TavrelApp::OpenWindow {
    OpenWindow(const std::filesystem::path& database, const Desktop& desktop)
        : keyValueStore(database), state(keyValueStore, desktop),
          window(state, desktop.filePanels, [](QWidget* parent) -> QDialog* {
              return new AboutView(programBundle(), parent);
          }) {}

    SqliteKeyValueStore keyValueStore;
    ContentView state;
    ContentWindow window;
};

TavrelApp::TavrelApp(std::filesystem::path database, const std::filesystem::path& helperProgram,
                     DesktopFilePanels::Source filePanels)
    : m_database(std::move(database)), m_workspace(helperProgram),
      m_filePanels(mayReplace, filePanels),
      m_desktop{m_clipboard, m_workspace, m_filePanels, m_mainQueue} {}

TavrelApp::~TavrelApp() = default;

void TavrelApp::openWindow(const QString& activationToken) {
    OpenWindow* opened =
        m_openWindows.emplace_back(std::make_unique<OpenWindow>(m_database, m_desktop)).get();
    ContentWindow& window = opened->window;
    connect(&window, &ContentWindow::newWindowRequested, this, [this] { openWindow(); });
    // Queued: the window is still in use while it emits `closed`.
    connect(
        &window, &ContentWindow::closed, this, [this, opened] { forgetWindow(opened); },
        Qt::QueuedConnection);
    showInFront(window, activationToken);
}

void TavrelApp::forgetWindow(const OpenWindow* window) {
    std::erase_if(m_openWindows, [window](const auto& entry) { return entry.get() == window; });
}

} // namespace korvan
