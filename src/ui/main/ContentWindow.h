// SPDX-License-Identifier: MIT
#pragma once

#include "state/ContentView.h"

#include <QMainWindow>
#include <functional>
#include <memory>

class QDialog;

namespace korvan {

class CategorySidebar;
class CommandDatabasePanel;
class ContentSplitter;
class Dialogs;
class HeaderBar;
class ProfileTable;
class Toast;

// A main window: draws a ContentView and turns what the user does into that state's actions. The
// state and the file panels must outlive it. However much changes at once, it is drawn anew once,
// on the next turn of the event loop.
class ContentWindow final : public QMainWindow {
    Q_OBJECT

public:
    // `makeAbout` makes the sheet that shows what the program is.
    ContentWindow(ContentView& state, FilePanels& filePanels,
                  std::function<QDialog*(QWidget* parent)> makeAbout);
    ~ContentWindow() override;

Q_SIGNALS:
    void newWindowRequested();
    void closed();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void makeMenu();
    void makeContent();
    void refreshSoon();
    void refresh();
    [[nodiscard]] QSize leastContent() const;

    ContentView& m_state;
    HeaderBar* m_header = nullptr;
    CategorySidebar* m_sidebar = nullptr;
    ProfileTable* m_table = nullptr;
    CommandDatabasePanel* m_panel = nullptr;
    ContentSplitter* m_splitter = nullptr;
    Toast* m_toast = nullptr;
    std::unique_ptr<Dialogs> m_dialogs;
    bool m_isStale = false;
    Subscription m_subscription; // last, so that it ends first
};

} // namespace korvan
