// SPDX-License-Identifier: MIT
#include "ui/main/Presentations.h"

#include "support/Examples.h"
#include "support/MemoryKeyValueStore.h"
#include "support/RecordingDesktop.h"
#include "support/Widgets.h"

#include <QDialog>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace korvan {

namespace {

class PresentationsTest : public testing::Test {
protected:
    PresentationsTest() { activate(window); }

    // What is shown above all others, null when nothing is.
    QDialog* dialog() {
        presentations.refresh();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const auto dialogs = window.findChildren<QDialog*>();
        return dialogs.empty() ? nullptr : dialogs.back();
    }

    RecordingDesktop desktop;
    MemoryKeyValueStore values;
    ContentView state{values, desktop.desktop()};
    QWidget window;
    Presentations presentations{state, desktop.filePanels,
                                [](QWidget* parent) { return new QDialog(parent); }, &window};
};

} // namespace

TEST_F(PresentationsTest, ShowEachDialogWhileItsFieldIsTrue) {
    for (auto isShown :
         {&ContentView::showEditor, &ContentView::showCategoryEditor,
          &ContentView::showSnippetEditor, &ContentView::showAbout, &ContentView::showError,
          &ContentView::showDeleteConfirm, &ContentView::showCategoryDeleteConfirm,
          &ContentView::showSnippetDeleteConfirm, &ContentView::showImportConfirm}) {
        EXPECT_EQ(dialog(), nullptr);
        state.*isShown = true;
        ASSERT_NE(dialog(), nullptr);
        state.*isShown = false;
        EXPECT_EQ(dialog(), nullptr);
        state.*isShown = true;
        EXPECT_EQ(dialog()->windowModality(), Qt::WindowModal);
        QTest::keyClick(dialog(), Qt::Key_Escape);
        EXPECT_FALSE(*(state.*isShown));
    }
}

TEST_F(PresentationsTest, RunTheActionThatTheUserChose) {
    state.store.replaceAll({exampleProfile()});
    state.selectProfile(exampleProfile());
    state.requestDeleteProfile();
    dialog()->close();
    EXPECT_EQ(*state.deleteCandidate, std::nullopt);
    EXPECT_EQ(state.store.profiles().size(), 1U);

    state.requestDeleteCategory(exampleCategory());
    EXPECT_EQ(dialog()->accessibleName(), "Kategorie wirklich löschen?");
    EXPECT_EQ(dialog()->windowTitle(), "Korvan") << "it shows its title itself";
    QTest::keyClick(dialog(), Qt::Key_Escape);
    EXPECT_EQ(*state.deleteCategoryCandidate, std::nullopt);

    state.pendingImportBackup = exampleBackup();
    state.showImportConfirm = true;
    click(buttonOf(*dialog(), "Ersetzen (empfohlen)"));
    EXPECT_EQ(state.snippetStore.snippets(), exampleBackup().snippets);
}

TEST_F(PresentationsTest, BeginAFreshEditorForEachSession) {
    state.store.replaceAll({exampleProfile()});
    state.selectProfile(exampleProfile());
    state.editProfile();
    QTest::keyClicks(named<QLineEdit>(*dialog(), "Name"), "x");
    state.newProfile();
    EXPECT_EQ(named<QLineEdit>(*dialog(), "Name")->text(), "");
}

TEST_F(PresentationsTest, PutAnErrorAboveAnOpenSheet) {
    state.newProfile();
    QDialog* editor = dialog();
    state.errorText = "Eins";
    state.showError = true;
    EXPECT_EQ(dialog()->accessibleDescription(), "Eins");
    state.errorText = "Zwei";
    EXPECT_EQ(dialog()->accessibleDescription(), "Zwei");
    QTest::keyClick(dialog(), Qt::Key_Return);
    EXPECT_FALSE(state.showError);
    EXPECT_EQ(dialog(), editor);
}

} // namespace korvan
