// SPDX-License-Identifier: MIT
#include "ui/main/ContentWindow.h"

#include "app/AboutView.h"
#include "app/ProgramBundle.h"
#include "support/Examples.h"
#include "support/MemoryKeyValueStore.h"
#include "support/RecordingDesktop.h"
#include "support/Widgets.h"
#include "ui/main/CommandDatabasePanel.h"
#include "ui/main/ProfileTable.h"
#include "ui/main/SnippetRow.h"

#include <QAccessible>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QScrollBar>
#include <gtest/gtest.h>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

class ContentWindowTest : public testing::Test {
protected:
    ContentWindowTest() {
        state.categoryStore.replaceAll({exampleCategory()});
        state.store.replaceAll({exampleProfile(11), exampleProfile(12),
                                with(exampleProfile(13), &SSHProfile::categoryId, {})});
        activate(window);
        settle();
    }

    static void settle() { QCoreApplication::processEvents(); }

    // The middle of the first column, or `distance` beside it: there is text on the left only.
    QPoint nameOf(int row, int distance = -60) const {
        const QModelIndex cell = table().model()->index(row, 0);
        return table().visualRect(cell).center() + QPoint(distance, 0);
    }
    ProfileTable& table() const { return *window.findChild<ProfileTable*>(); }
    QListView& sidebar() const { return *named<QListView>(window, "Kategorien"); }
    std::vector<Uuid> selected() const { return state.selection->ids(); }

    void clickAt(QPoint position, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, keys, position);
        settle();
    }

    RecordingDesktop desktop;
    MemoryKeyValueStore values;
    ContentView state{values, desktop.desktop()};
    ContentWindow window{state, desktop.filePanels, [](QWidget* parent) -> QDialog* {
                             return new AboutView(programBundle(), parent);
                         }};
};

// Every control that a screen reader stops at says what it is.
void expectNames(QAccessibleInterface& item, const std::string& path) {
    const QAccessible::State state = item.state();
    if (state.invisible) return;
    const std::string name = item.text(QAccessible::Name).toStdString();
    const std::string here = path + " > " + std::to_string(item.role()) + " '" + name + "'";
    const bool isControl =
        state.focusable || item.role() == QAccessible::Button || item.role() == QAccessible::List ||
        item.role() == QAccessible::EditableText || item.role() == QAccessible::Table;
    const bool isCell = item.role() == QAccessible::Cell || item.role() == QAccessible::Row;
    EXPECT_TRUE(!isControl || isCell || !name.empty()) << here;
    for (int i = 0; i < item.childCount(); ++i)
        if (QAccessibleInterface* child = item.child(i)) expectNames(*child, here);
}

} // namespace

TEST_F(ContentWindowTest, NamesEveryControlInTheWindowAndItsSheets) {
    expectNames(*QAccessible::queryAccessibleInterface(&window), "window");
    for (auto isShown : {&ContentView::showEditor, &ContentView::showCategoryEditor,
                         &ContentView::showSnippetEditor, &ContentView::showAbout,
                         &ContentView::showError, &ContentView::showDeleteConfirm}) {
        state.*isShown = true;
        settle();
        const auto* sheet = QApplication::activeModalWidget();
        ASSERT_NE(sheet, nullptr);
        expectNames(*QAccessible::queryAccessibleInterface(const_cast<QWidget*>(sheet)), "sheet");
        state.*isShown = false;
        settle();
    }
}

TEST_F(ContentWindowTest, SelectsAndConnectsByTheTextOfARow) {
    clickAt(nameOf(1));
    EXPECT_EQ(selected(), std::vector{exampleId(12)});
    clickAt(nameOf(0), Qt::ControlModifier);
    EXPECT_EQ(selected(), (std::vector{exampleId(12), exampleId(11)}));
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, nameOf(2, 60));
    EXPECT_TRUE(desktop.workspace.paths.empty());
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, nameOf(2));
    EXPECT_EQ(selected(), std::vector{exampleId(13)});
    EXPECT_EQ(desktop.workspace.paths.size(), 1U);
}

TEST_F(ContentWindowTest, LeavesTheSelectionToTheUserWhateverTheListDoes) {
    clickAt(nameOf(1));
    state.requestDeleteProfile();
    state.confirmDeleteProfile();
    settle();
    EXPECT_EQ(selected(), std::vector{exampleId(12)});
    EXPECT_FALSE(buttonOf(window, "Verbinden")->isEnabled());
    // The row at the deleted one's place was never selected: a click on it must count.
    clickAt(nameOf(1));
    EXPECT_EQ(selected(), std::vector{exampleId(13)});
    EXPECT_TRUE(buttonOf(window, "Verbinden")->isEnabled());
}

TEST_F(ContentWindowTest, StaysWhereItWasWhenALongListIsReloaded) {
    std::vector<SSHProfile> profiles;
    for (int i = 0; i < 500; ++i)
        profiles.push_back(exampleProfile(i));
    state.store.replaceAll(profiles);
    settle();
    table().verticalScrollBar()->setValue(4000);
    table().setColumnWidth(0, 333);
    state.store.add(exampleProfile(600));
    settle();
    EXPECT_EQ(table().verticalScrollBar()->value(), 4000);
    EXPECT_EQ(table().columnWidth(0), 333);
    table().setColumnWidth(2, 500);
    EXPECT_EQ(table().columnWidth(2), 90);
}

TEST_F(ContentWindowTest, FiltersByClickAndByKey) {
    const auto rowOf = [&](int row) {
        return sidebar().visualRect(sidebar().model()->index(row, 0));
    };
    QTest::mouseClick(sidebar().viewport(), Qt::LeftButton, {}, rowOf(3).center());
    settle();
    EXPECT_EQ(table().model()->rowCount(), 2);
    EXPECT_TRUE(buttonOf(window, "Kategorie löschen")->isEnabled());
    sidebar().setFocus();
    QTest::keyClick(&sidebar(), Qt::Key_Up); // past the heading
    QTest::keyClick(&sidebar(), Qt::Key_Return);
    settle();
    EXPECT_EQ(*state.categoryFilter, CategoryFilter::uncategorized());
    EXPECT_EQ(table().model()->rowCount(), 1);
    EXPECT_FALSE(buttonOf(window, "Kategorie löschen")->isEnabled());
}

TEST_F(ContentWindowTest, OpensTheMenuOfACategoryByKey) {
    sidebar().setCurrentIndex(sidebar().model()->index(3, 0));
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&sidebar(), &byKey);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions().at(0)->text(), u"Umbenennen…"_s);
    menu->actions().at(1)->trigger();
    menu->close();
    EXPECT_TRUE(state.showCategoryDeleteConfirm);
}

TEST_F(ContentWindowTest, SearchesAndCopiesWithFewRowsForManyCommands) {
    std::vector<CommandSnippet> snippets;
    for (int i = 0; i < 10'000; ++i)
        snippets.push_back(with(exampleSnippet(i), &CommandSnippet::title, std::to_string(i)));
    state.snippetStore.replaceAll(snippets);
    clickAt(nameOf(0));
    EXPECT_LT(window.findChildren<SnippetRow*>().size(), 30);

    auto* search = named<QLineEdit>(window, "Befehle suchen");
    QTest::keyClicks(search, u" 9876 "_s);
    settle();
    auto* row = named<SnippetRow>(window, "9876");
    ASSERT_NE(row, nullptr);
    QTest::mouseClick(row, Qt::LeftButton, {}, QPoint(20, row->height() - 10));
    EXPECT_EQ(desktop.clipboard.texts, std::vector<std::string>{"ping -c 4 10.0.0.7"});
    EXPECT_EQ(*state.lastCopiedText, "9876");
    QTest::keyClick(window.findChild<QWidget*>(u"commands"_s), Qt::Key_Space);
    EXPECT_EQ(desktop.clipboard.texts.size(), 2U);
}

TEST_F(ContentWindowTest, KeepsItsRegionsApartDownToTheLeastWidth) {
    window.resize(0, 0);
    settle();
    EXPECT_EQ(table().width(), 520);
    const auto* panel = window.findChild<CommandDatabasePanel*>();
    EXPECT_GE(panel->width(), 340);
    EXPECT_GT(panel->mapTo(&window, QPoint()).x(), table().mapTo(&window, QPoint()).x() + 519);

    click(buttonOf(window, "Befehle aus"));
    settle();
    EXPECT_FALSE(state.showSnippets);
    EXPECT_NE(buttonOf(window, "Befehle ein"), nullptr);
    const auto shrinksToTheLeast = [&] {
        window.resize(0, 0);
        return window.width() == 980;
    };
    EXPECT_TRUE(QTest::qWaitFor(shrinksToTheLeast, 2000));
    EXPECT_NE(named<QAbstractButton>(window, "Über"), nullptr); // without its label
}

} // namespace korvan
