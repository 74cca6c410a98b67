// SPDX-License-Identifier: MIT
#pragma once

#include "app/AboutView.h"
#include "app/ProgramBundle.h"
#include "support/Examples.h"
#include "support/MemoryKeyValueStore.h"
#include "support/RecordingDesktop.h"
#include "support/Widgets.h"
#include "ui/main/ContentWindow.h"
#include "ui/main/ProfileTable.h"
#include "ui/main/SnippetRow.h"

#include <QListView>
#include <QScrollBar>

namespace korvan {

// A window with the profiles 11, 12 (both in the only category) and 13 (in none) and one command.
class WindowTest : public testing::Test {
protected:
    WindowTest() {
        state.categoryStore.replaceAll({exampleCategory()});
        state.store.replaceAll({exampleProfile(11), exampleProfile(12),
                                with(exampleProfile(13), &SSHProfile::categoryId, {})});
        state.snippetStore.replaceAll({exampleSnippet()});
        activate(window);
        settle();
    }

    static void settle() { QCoreApplication::processEvents(); }

    static QPoint middleOf(const QAbstractItemView& list, int row) {
        return list.visualRect(list.model()->index(row, 0)).center();
    }

    RecordingDesktop desktop;
    MemoryKeyValueStore values;
    ContentView state{values, desktop.desktop()};
    ContentWindow window{state, desktop.filePanels, [](QWidget* parent) -> QDialog* {
                             return new AboutView(programBundle(), parent);
                         }};
    ProfileTable& table = *window.findChild<ProfileTable*>();
    QListView& sidebar = *window.findChild<QListView*>();
};

} // namespace korvan
