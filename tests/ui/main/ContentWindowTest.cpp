// SPDX-License-Identifier: MIT
#include "ui/main/ContentWindow.h"

#include "support/WindowTest.h"
#include "ui/main/ContentSplitter.h"
#include "ui/main/Toast.h"
#include "ui/style/Colors.h"

#include <QAccessible>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScreen>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

class ContentWindowTest : public WindowTest {
protected:
    // What is shown above all others, null when nothing is.
    static QWidget* dialog() {
        settle();
        return QApplication::activeModalWidget();
    }
    // The middle of the first column, or `distance` beside it: there is text on the left only.
    QPoint nameOf(int row, int distance = -60) const {
        return middleOf(table, row) + QPoint(distance, 0);
    }
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
        QTest::mouseClick(table.viewport(), Qt::LeftButton, keys, position);
        settle();
    }
    void drag(int divider, int distance) {
        auto* handle = splitter().handle(divider);
        QTest::mousePress(handle, Qt::LeftButton);
        QTest::mouseMove(handle, handle->rect().center() + QPoint(distance, 0));
        QTest::mouseRelease(handle, Qt::LeftButton);
        settle();
    }
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

TEST_F(ContentWindowTest, NamesEveryControlAndShowsEachDialogWhileItsFieldIsTrue) {
    expectNames(*QAccessible::queryAccessibleInterface(&window), "window");
    QTest::keyClick(&window, Qt::Key_D, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr) << "the menu";
    QApplication::activePopupWidget()->close();
    for (auto isShown :
         {&ContentView::showEditor, &ContentView::showCategoryEditor,
          &ContentView::showSnippetEditor, &ContentView::showAbout, &ContentView::showError,
          &ContentView::showDeleteConfirm, &ContentView::showCategoryDeleteConfirm,
          &ContentView::showSnippetDeleteConfirm, &ContentView::showImportConfirm}) {
        state.*isShown = true;
        ASSERT_NE(dialog(), nullptr);
        EXPECT_EQ(dialog()->windowModality(), Qt::WindowModal);
        expectNames(*QAccessible::queryAccessibleInterface(dialog()), "sheet");
        EXPECT_TRUE(
            std::ranges::any_of(dialog()->findChildren<QPushButton*>(), &QPushButton::isDefault));
        state.*isShown = false;
        EXPECT_EQ(dialog(), nullptr);
        state.*isShown = true;
        QTest::keyClick(dialog(), Qt::Key_Escape);
        EXPECT_FALSE(*(state.*isShown));
        EXPECT_EQ(dialog(), nullptr);
    }
    state.openAbout();
    EXPECT_EQ(dialog()->size(), QSize(640, 520));
    QTest::keyClick(dialog(), Qt::Key_Return);
    EXPECT_FALSE(state.showAbout);
}

TEST_F(ContentWindowTest, RunsTheActionThatTheUserChoseInASheet) {
    state.requestDeleteCategory(exampleCategory());
    EXPECT_EQ(dialog()->accessibleName(), "Kategorie wirklich löschen?");
    EXPECT_EQ(dialog()->windowTitle(), "Korvan") << "it shows its title itself";
    dialog()->close();
    EXPECT_EQ(*state.deleteCategoryCandidate, std::nullopt);
    EXPECT_EQ(state.categoryStore.categories().size(), 1U);

    state.pendingImportBackup = exampleBackup();
    state.showImportConfirm = true;
    click(buttonOf(*dialog(), "Ersetzen (empfohlen)"));
    EXPECT_EQ(state.store.profiles(), exampleBackup().profiles);
}

TEST_F(ContentWindowTest, BeginsAFreshEditorForEachSessionAndPutsErrorsAboveIt) {
    state.selectProfile(exampleProfile(11));
    state.editProfile();
    QTest::keyClicks(named<QLineEdit>(*dialog(), "Name"), "x");
    state.newProfile();
    QWidget* editor = dialog();
    EXPECT_EQ(named<QLineEdit>(*editor, "Name")->text(), "");
    for (const auto* error : {"Eins", "Zwei"}) {
        state.errorText = error;
        state.showError = true;
        EXPECT_EQ(dialog()->accessibleDescription(), error);
    }
    QTest::keyClick(dialog(), Qt::Key_Return);
    EXPECT_FALSE(state.showError);
    EXPECT_EQ(dialog(), editor);
}

TEST_F(ContentWindowTest, ShowsAToastOnOneLineThatGoes) {
    auto& toast = *window.findChild<Toast*>();
    const auto darkest = [&toast] {
        const QImage image = toast.parentWidget()->grab(toast.geometry()).toImage();
        double most = 0;
        for (int x = 0; x < image.width(); ++x)
            most = std::max(most, contrast(image.pixelColor(x, image.height() / 2), Qt::white));
        return most;
    };
    state.copyToClipboard("ls", "Ping");
    settle();
    const int height = toast.height();
    EXPECT_TRUE(QTest::qWaitFor([&] { return darkest() > 10; })) << "once it has faded in";
    state.copyToClipboard("ls", "Ping\r\nHost\v\u0085?");
    settle();
    EXPECT_EQ(toast.height(), height);
    EXPECT_EQ(toast.accessibleName(), "In Zwischenablage: Ping Host  ?");
    state.showCopiedToast = false;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !toast.isVisible() && darkest() < 2; }));
}

TEST_F(ContentWindowTest, SelectsAndConnectsByTheTextOfARow) {
    clickAt(nameOf(1));
    EXPECT_EQ(selected(), std::vector{exampleId(12)});
    clickAt(nameOf(0), Qt::ControlModifier);
    EXPECT_EQ(selected(), (std::vector{exampleId(12), exampleId(11)}));
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, nameOf(2, 60));
    EXPECT_TRUE(desktop.workspace.paths.empty());
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, nameOf(2));
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
    state.store.replaceAll(std::vector(500, exampleProfile()));
    settle();
    table.verticalScrollBar()->setValue(4000);
    table.setColumnWidth(0, 333);
    state.store.add(exampleProfile(600));
    settle();
    EXPECT_EQ(table.verticalScrollBar()->value(), 4000);
    EXPECT_EQ(table.columnWidth(0), 333);
}

TEST_F(ContentWindowTest, FiltersByClickAndByKeyAndOpensAMenuByKey) {
    QTest::mouseClick(sidebar.viewport(), Qt::LeftButton, {}, middleOf(sidebar, 3));
    settle();
    EXPECT_EQ(table.model()->rowCount(), 2);
    EXPECT_TRUE(buttonOf(window, "Kategorie löschen")->isEnabled());
    sidebar.setFocus();
    QTest::keyClick(&sidebar, Qt::Key_Up); // past the heading
    QTest::keyClick(&sidebar, Qt::Key_Return);
    settle();
    EXPECT_EQ(*state.categoryFilter, CategoryFilter::uncategorized());
    EXPECT_EQ(table.model()->rowCount(), 1);
    EXPECT_FALSE(buttonOf(window, "Kategorie löschen")->isEnabled());
    sidebar.setCurrentIndex(sidebar.model()->index(3, 0));
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&sidebar, &byKey);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions().at(0)->text(), u"Umbenennen…"_s);
    menu->actions().at(1)->trigger();
    menu->close();
    EXPECT_TRUE(state.showCategoryDeleteConfirm);
}

TEST_F(ContentWindowTest, SearchesAndCopiesWithFewRowsForManyCommands) {
    std::vector snippets(10'000, exampleSnippet());
    snippets[9876].title = "9876";
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
