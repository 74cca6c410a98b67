// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/ContentView.h"

#include <QMainWindow>

namespace korvan {

class CategorySidebar;
class CommandDatabasePanel;
class ContentSplitter;
class HeaderBar;
class ProfileTable;
class Toast;

// A main window: draws a ContentView, which must outlive it, and turns what the user does into that
// state's actions. However much changes at once, it is drawn anew once, on the next turn of the
// event loop.
class ContentWindow final : public QMainWindow {
    Q_OBJECT

public:
    explicit ContentWindow(ContentView& view);
    ~ContentWindow() override;

Q_SIGNALS:
    void newWindowRequested();
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeMenu();
    void makeContent();
    void refreshSoon();
    void refresh();

    ContentView& m_view;
    HeaderBar* m_header = nullptr;
    CategorySidebar* m_sidebar = nullptr;
    ProfileTable* m_table = nullptr;
    CommandDatabasePanel* m_panel = nullptr;
    ContentSplitter* m_splitter = nullptr;
    Toast* m_toast = nullptr;
    bool m_isStale = false;
    Subscription m_subscription; // the last: nothing is called once the rest has gone
};

} // namespace korvan
