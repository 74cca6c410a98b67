// SPDX-License-Identifier: MIT
#include "ui/main/ContentWindow.h"

#include "app/AboutView.h"
#include "app/ProgramBundle.h"
#include "support/Examples.h"
#include "support/MemoryKeyValueStore.h"
#include "support/RecordingDesktop.h"
#include "support/Widgets.h"
#include "ui/main/ContentSplitter.h"
#include "ui/main/ProfileTable.h"
#include "ui/main/SnippetRow.h"

#include <QAccessible>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
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
    ContentSplitter& splitter() const { return *window.findChild<ContentSplitter*>(); }
    ColumnWidths columns() const {
        const QList<int> sizes = splitter().sizes();
        return {sizes[0], sizes[1], sizes[2]};
    }
    void resize(int width) {
        window.resize(width, 700);
        settle();
    }
    void clickAt(QPoint position, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, keys, position);
        settle();
    }

    void drag(int divider, int distance) {
        auto* handle = splitter().handle(divider);
        QTest::mousePress(handle, Qt::LeftButton);
        QTest::mouseMove(handle, handle->rect().center() + QPoint(distance, 0));
        QTest::mouseRelease(handle, Qt::LeftButton);
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
    QTest::keyClick(&window, Qt::Key_D, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr) << "the menu";
    QApplication::activePopupWidget()->close();
    for (auto isShown : {&ContentView::showEditor, &ContentView::showCategoryEditor,
                         &ContentView::showSnippetEditor, &ContentView::showError,
                         &ContentView::showDeleteConfirm, &ContentView::showAbout}) {
        state.*isShown = true;
        settle();
        const auto* sheet = QApplication::activeModalWidget();
        ASSERT_NE(sheet, nullptr);
        expectNames(*QAccessible::queryAccessibleInterface(const_cast<QWidget*>(sheet)), "sheet");
        EXPECT_TRUE(
            std::ranges::any_of(sheet->findChildren<QPushButton*>(), &QPushButton::isDefault));
        EXPECT_TRUE(isShown != &ContentView::showAbout || sheet->size() == QSize(640, 520));
        state.*isShown = false;
        settle();
    }
    state.openAbout();
    EXPECT_TRUE(state.showAbout);
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

TEST_F(ContentWindowTest, SharesItsWidthByTheSameRuleWhateverItWasBefore) {
    for (const int width : {1440, 1062, 1900, 1366, 1440}) {
        resize(width);
        EXPECT_EQ(columns(), columnWidths(width - 2, 1, 200, {})) << width;
    }
    drag(1, -900), drag(2, 900); // as far as they go
    EXPECT_EQ(columns(), (ColumnWidths{200, 898, 340}));
    resize(1900);
    drag(1, 900), drag(2, -900);
    EXPECT_EQ(columns(), (ColumnWidths{380, 958, 560}));
    for (const int panel : {0, 560}) {
        state.toggleSnippets();
        EXPECT_TRUE(QTest::qWaitFor([&] { return columns().panel == panel; }));
    }
}

TEST_F(ContentWindowTest, StaysOnTheScreenDownToItsLeastWidth) {
    const auto shrinksTo = [&](const ColumnWidths& least) {
        return QTest::qWaitFor([&] { return resize(0), columns() == least; });
    };
    EXPECT_TRUE(shrinksTo({200, 520, 340}));
    EXPECT_EQ(buttonOf(window, "Über")->text(), "");
    EXPECT_EQ(buttonOf(window, "Befehle aus")->text(), "Befehle aus") << "it tells a state";
    click(buttonOf(window, "Befehle aus"));
    EXPECT_TRUE(shrinksTo({240, 739, 0}));
    click(buttonOf(window, "Befehle ein"));
    window.move(1920, 0); // to the screen that is 800 wide; the frame takes 4
    window.setScreen(QGuiApplication::screenAt({1920, 0}));
    EXPECT_TRUE(shrinksTo({200, 254, 340}));
}

} // namespace korvan
