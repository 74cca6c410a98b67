// SPDX-License-Identifier: MIT
#pragma once

#include "state/ContentView.h"

#include <QWidget>

class QLayout;
class QLineEdit;

namespace korvan {

class ElidedLabel;
class Label;
class SnippetList;

// The column of commands: search field, the profile they are filled from, and the list. The state
// must outlive it.
class CommandDatabasePanel final : public QWidget {
    Q_OBJECT

public:
    explicit CommandDatabasePanel(ContentView& state, QWidget* parent = nullptr);

    void refresh();

private:
    QWidget* makeHeader();
    QLayout* makeInfoLine();

    ContentView& m_state;
    QLineEdit* m_search;
    ElidedLabel* m_activeProfile;
    Label* m_tip;
    SnippetList* m_list;
};

} // namespace korvan
