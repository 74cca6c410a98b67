// SPDX-License-Identifier: MIT
#include "ui/main/ContentWindow.h"

#include "ui/main/CategorySidebar.h"
#include "ui/main/CommandDatabasePanel.h"
#include "ui/main/ContentSplitter.h"
#include "ui/main/Dialogs.h"
#include "ui/main/HeaderBar.h"
#include "ui/main/ProfileTable.h"
#include "ui/main/Toast.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kLeastContent(980, 520); // below the header
constexpr QSize kIdealSize(1460, 820);

} // namespace

ContentWindow::ContentWindow(ContentView& state, FilePanels& filePanels,
                             std::function<QDialog*(QWidget* parent)> makeAbout)
    : m_state(state),
      m_dialogs(std::make_unique<Dialogs>(state, filePanels, std::move(makeAbout), this)) {
    setWindowTitle(u"Korvan"_s);
    makeMenu();
    makeContent();
    resize(kIdealSize.boundedTo(screen()->availableSize() * 0.95));
    refresh();
    m_subscription = m_state.observe([this] { refreshSoon(); });
}

ContentWindow::~ContentWindow() = default;

void ContentWindow::makeMenu() {
    QMenu* file = menuBar()->addMenu(u"&Datei"_s);
    file->addAction(u"&Neues Fenster"_s, QKeySequence(Qt::CTRL | Qt::Key_N), this,
                    &ContentWindow::newWindowRequested);
    file->addAction(u"&Fenster schließen"_s, QKeySequence(Qt::CTRL | Qt::Key_W), this,
                    &ContentWindow::close);
    file->addSeparator();
    file->addAction(u"&Beenden"_s, QKeySequence(Qt::CTRL | Qt::Key_Q), qApp,
                    &QApplication::closeAllWindows);
}

void ContentWindow::makeContent() {
    m_header = new HeaderBar(m_state);
    m_sidebar = new CategorySidebar(m_state);
    m_table = new ProfileTable(m_state);
    m_panel = new CommandDatabasePanel(m_state);
    m_splitter = new ContentSplitter(m_sidebar, m_table, m_panel);

    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    layout->addWidget(m_splitter, 1);
    setCentralWidget(content);
    m_table->setFocus();
    m_toast = new Toast(m_state, content);
}

void ContentWindow::refreshSoon() {
    if (m_isStale) return;
    m_isStale = true;
    QMetaObject::invokeMethod(this, &ContentWindow::refresh, Qt::QueuedConnection);
}

void ContentWindow::refresh() {
    m_isStale = false;
    m_header->refresh();
    m_sidebar->refresh();
    m_table->refresh();
    m_panel->refresh();
    m_splitter->setPanel(m_state.showSnippets ? ContentSplitter::Panel::shown
                                              : ContentSplitter::Panel::hidden);
    m_splitter->setLeastSize(leastContent());
    m_toast->refresh();
    m_dialogs->refresh();
}

// No wider than the screen: what is beyond its edge cannot be reached.
QSize ContentWindow::leastContent() const {
    const int screenWidth = screen()->availableSize().width() - (frameSize() - size()).width();
    const int needed = std::max(kLeastContent.width(), m_splitter->leastWidth());
    return {std::min(needed, screenWidth), kLeastContent.height()};
}

void ContentWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    connect(windowHandle(), &QWindow::screenChanged, this, &ContentWindow::refreshSoon,
            Qt::UniqueConnection);
}

void ContentWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    Q_EMIT closed();
}

} // namespace korvan
