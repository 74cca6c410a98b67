// SPDX-License-Identifier: MIT
#include "ui/main/ContentWindow.h"

#include "ui/main/CategorySidebar.h"
#include "ui/main/CommandDatabasePanel.h"
#include "ui/main/ContentSplitter.h"
#include "ui/main/HeaderBar.h"
#include "ui/main/Presentations.h"
#include "ui/main/ProfileTable.h"
#include "ui/main/Toast.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kMinimumSplit(980, 520);
constexpr QSize kIdealSize(1460, 820);
constexpr int kTableWidth = 760;

} // namespace

ContentWindow::ContentWindow(ContentView& view, FilePanels& filePanels,
                             std::function<QDialog*(QWidget* parent)> makeAbout)
    : m_view(view), m_presentations(std::make_unique<Presentations>(view, filePanels,
                                                                    std::move(makeAbout), this)) {
    setWindowTitle(u"Korvan"_s);
    makeMenu();
    makeContent();
    resize(kIdealSize.boundedTo(screen()->availableSize() * 0.95));
    refresh();
    m_subscription = m_view.observe([this] { refreshSoon(); });
}

ContentWindow::~ContentWindow() = default;

void ContentWindow::makeMenu() {
    QMenu* file = menuBar()->addMenu(u"Datei"_s);
    file->addAction(u"Neues Fenster"_s, QKeySequence(Qt::CTRL | Qt::Key_N), this,
                    &ContentWindow::newWindowRequested);
    file->addAction(u"Fenster schließen"_s, QKeySequence(Qt::CTRL | Qt::Key_W), this,
                    &ContentWindow::close);
    file->addSeparator();
    file->addAction(u"Beenden"_s, QKeySequence(Qt::CTRL | Qt::Key_Q), qApp,
                    &QApplication::closeAllWindows);
}

void ContentWindow::makeContent() {
    m_header = new HeaderBar(m_view);
    m_sidebar = new CategorySidebar(m_view);
    m_table = new ProfileTable(m_view);
    m_panel = new CommandDatabasePanel(m_view);
    m_splitter = new ContentSplitter(m_table, m_panel);

    m_split = new QSplitter(Qt::Horizontal);
    m_split->setChildrenCollapsible(false);
    m_split->addWidget(m_sidebar);
    m_split->addWidget(m_splitter);
    m_split->setStretchFactor(0, 0);
    m_split->setStretchFactor(1, 1);
    m_split->setSizes(
        {CategorySidebar::kIdealWidth, kTableWidth + CommandDatabasePanel::kIdealWidth});

    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    layout->addWidget(m_split, 1);
    setCentralWidget(content);
    m_table->setFocus();
    m_toast = new Toast(m_view, content);
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
    m_split->setMinimumSize(leastSplit());
    m_splitter->setPanel(m_view.showSnippets ? ContentSplitter::Panel::shown
                                             : ContentSplitter::Panel::hidden);
    m_toast->refresh();
    m_presentations->refresh();
}

// A window of the least width has no room for the panel at its least width.
QSize ContentWindow::leastSplit() const {
    const int withoutPanel =
        m_sidebar->minimumWidth() + m_split->handleWidth() + m_table->minimumWidth();
    const int panel = m_splitter->handleWidth() + CommandDatabasePanel::kMinimumWidth;
    const int needed = withoutPanel + (m_view.showSnippets ? panel : 0);
    return {std::max(kMinimumSplit.width(), needed), kMinimumSplit.height()};
}

void ContentWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    Q_EMIT closed();
}

} // namespace korvan
