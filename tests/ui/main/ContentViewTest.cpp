// SPDX-License-Identifier: MIT
#include "ui/main/ContentView.h"

#include "model/RecordList.h"
#include "model/SeedData.h"
#include "support/Examples.h"
#include "support/MemoryKeyValueStore.h"
#include "support/RecordingDesktop.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace korvan {

namespace {

using namespace std::chrono_literals;

// A window with the profiles 11, 12 (both in the example category) and 13 (in none), one category
// and one command.
struct Window {
    Window() {
        memory.values = {
            {"ssh_profiles_v3",
             encodeList<SSHProfile>({exampleProfile(11), exampleProfile(12), uncategorized()})},
            {"ssh_categories_v1", encodeList<SSHCategory>({exampleCategory()})},
            {"ssh_snippets_v1", encodeList<CommandSnippet>({exampleSnippet()})},
        };
        view.emplace(memory, desktop.desktop());
    }

    static SSHProfile uncategorized() {
        return with(exampleProfile(13), &SSHProfile::categoryId, std::nullopt);
    }

    MemoryKeyValueStore memory;
    RecordingDesktop desktop;
    std::optional<ContentView> view;
};

class ContentViewTest : public testing::Test {
protected:
    std::vector<Uuid> profileIds() {
        std::vector<Uuid> ids;
        for (const SSHProfile& profile : view.store.profiles())
            ids.push_back(profile.id);
        return ids;
    }

    std::vector<Uuid> ids(std::initializer_list<int> numbers) {
        std::vector<Uuid> ids;
        for (const int number : numbers)
            ids.push_back(exampleId(number));
        return ids;
    }

    void expectError(const std::string& text) {
        EXPECT_TRUE(view.showError);
        EXPECT_EQ(*view.errorText, text);
        EXPECT_FALSE(view.showCopiedToast);
    }

    Window window;
    ContentView& view = *window.view;
};

using BackupActions = ContentViewTest;

} // namespace

TEST_F(ContentViewTest, DoesNothingWithoutASelectedProfile) {
    for (const auto& selection :
         {ProfileSelection(), ProfileSelection{exampleId(99), exampleId(11)}}) {
        view.selection = selection;
        view.editProfile();
        view.requestDeleteProfile();
        view.connectSelectedProfile();
        view.copySSHCommand();
    }
    EXPECT_FALSE(view.showEditor || view.showDeleteConfirm || view.showError ||
                 view.showCopiedToast);
    EXPECT_TRUE(window.desktop.workspace.paths.empty() && window.desktop.clipboard.texts.empty());
}

TEST_F(ContentViewTest, WorksOnTheProfileThatWasSelectedFirst) {
    view.selection = ProfileSelection{exampleId(12), exampleId(11)};
    view.selection = view.selection->changedTo(ids({11, 13, 12}));
    EXPECT_EQ(view.selection->ids(), ids({12, 11, 13}));
    view.editProfile();
    EXPECT_EQ(view.editorDraft->id, exampleId(12));
    view.requestDeleteProfile();
    EXPECT_EQ((*view.deleteCandidate)->id, exampleId(12));
    view.selectProfile(exampleProfile(13));
    EXPECT_EQ(*view.selection, ProfileSelection{exampleId(13)});
}

TEST_F(ContentViewTest, OpensAFreshEditorForANewProfile) {
    view.chooseCategoryFilter(CategoryFilter::category(exampleCategory().id));
    const Uuid session = view.editorSessionID;
    view.newProfile();
    const SSHProfile draft = view.editorDraft;
    EXPECT_TRUE(view.showEditor);
    EXPECT_FALSE(view.editorIsEdit);
    EXPECT_NE(*view.editorSessionID, session);
    EXPECT_EQ(draft, with(SSHProfile(), &SSHProfile::id, draft.id));
    EXPECT_EQ(draft.port, 22);
    view.newProfile();
    EXPECT_NE(view.editorDraft->id, draft.id);
    view.saveProfile(exampleProfile(14));
    EXPECT_EQ(profileIds(), ids({11, 12, 13, 14}));
    EXPECT_FALSE(view.showEditor);
    EXPECT_EQ(*view.selection, ProfileSelection());
}

TEST_F(ContentViewTest, SavesAnEditedProfileInItsPlaceWhateverElseChanged) {
    view.selectProfile(exampleProfile(12));
    view.editProfile();
    EXPECT_TRUE(view.editorIsEdit);
    const SSHProfile edited = with(*view.editorDraft, &SSHProfile::name, "Neu");
    view.store.update(with(exampleProfile(12), &SSHProfile::host, "inzwischen"));
    view.saveProfile(edited);
    EXPECT_EQ(view.store.profiles()[1], edited);

    view.editProfile();
    view.store.remove(edited);
    view.saveProfile(edited);
    EXPECT_EQ(profileIds(), ids({11, 13})) << "what is gone does not come back";
    EXPECT_FALSE(view.showEditor);
    EXPECT_EQ(*view.selection, ProfileSelection{exampleId(12)});
}

TEST_F(ContentViewTest, DeletesAProfileOnlyWhenConfirmedAndUnchanged) {
    view.selectProfile(exampleProfile(12));
    view.requestDeleteProfile();
    EXPECT_TRUE(view.showDeleteConfirm);
    view.cancelDeleteProfile();
    EXPECT_FALSE(view.showDeleteConfirm || view.deleteCandidate->has_value());

    view.requestDeleteProfile();
    view.store.update(with(exampleProfile(12), &SSHProfile::password, "anders"));
    view.confirmDeleteProfile();
    EXPECT_EQ(profileIds(), ids({11, 12, 13}));

    view.requestDeleteProfile();
    view.confirmDeleteProfile();
    EXPECT_EQ(profileIds(), ids({11, 13}));
    EXPECT_FALSE(view.showDeleteConfirm || view.deleteCandidate->has_value());
    EXPECT_EQ(*view.selection, ProfileSelection{exampleId(12)});
    EXPECT_EQ(view.selectedProfile(), nullptr);
}

TEST_F(ContentViewTest, ReloadsAllThreeStoresWithoutSeedingOrSaving) {
    ContentView other(window.memory, window.desktop.desktop());
    view.selectProfile(exampleProfile(12));
    other.store.replaceAll({});
    other.categoryStore.add(exampleCategory(9));
    other.snippetStore.add(exampleSnippet(10));
    window.memory.writtenKeys.clear();
    view.reloadAll();
    EXPECT_TRUE(view.store.profiles().empty());
    EXPECT_EQ(view.categoryStore.categories().size(), 2U);
    EXPECT_EQ(view.snippetStore.snippets().size(), 2U);
    EXPECT_TRUE(window.memory.writtenKeys.empty());
    EXPECT_EQ(*view.selection, ProfileSelection{exampleId(12)});
}

TEST_F(ContentViewTest, AddsOrUpdatesCategoriesAndCommandsAsTheEditorWasOpened) {
    view.renameCategory(exampleCategory());
    EXPECT_EQ(**view.editingCategory, exampleCategory());
    view.saveCategory(with(exampleCategory(), &SSHCategory::name, "Keller"));
    EXPECT_EQ(view.categoryStore.categories().at(0).name, "Keller");
    EXPECT_FALSE(view.showCategoryEditor);
    EXPECT_TRUE(view.editingCategory->has_value()) << "stays until the next opening";
    view.newCategory();
    view.saveCategory(exampleCategory(9));
    EXPECT_EQ(view.categoryStore.categories().front(), exampleCategory(9));

    view.editSnippet(exampleSnippet());
    view.saveSnippet(with(exampleSnippet(), &CommandSnippet::hint, ""));
    EXPECT_EQ(view.snippetStore.snippets().at(0).hint, "");
    EXPECT_FALSE(view.showSnippetEditor);
    EXPECT_TRUE(view.editingSnippet->has_value());
    view.newSnippet();
    EXPECT_TRUE(view.showSnippetEditor);
    view.saveSnippet(exampleSnippet(10));
    EXPECT_EQ(view.snippetStore.snippets().front(), exampleSnippet(10));
}

TEST_F(ContentViewTest, DeletesACommandOnlyWhenConfirmed) {
    view.requestDeleteSnippet(exampleSnippet());
    view.cancelDeleteSnippet();
    EXPECT_FALSE(view.showSnippetDeleteConfirm || view.snippetDeleteCandidate->has_value());
    view.confirmDeleteSnippet(); // without a candidate
    EXPECT_EQ(view.snippetStore.snippets().size(), 1U);
    view.requestDeleteSnippet(exampleSnippet());
    view.confirmDeleteSnippet();
    EXPECT_TRUE(view.snippetStore.snippets().empty());
    EXPECT_FALSE(view.showSnippetDeleteConfirm || view.snippetDeleteCandidate->has_value());
}

TEST_F(ContentViewTest, EmptiesACategoryBeforeItIsDeletedAndResetsItsFilter) {
    view.chooseCategoryFilter(CategoryFilter::category(exampleCategory().id));
    view.selectProfile(exampleProfile(11));
    view.requestDeleteSelectedCategory();
    EXPECT_TRUE(view.showCategoryDeleteConfirm);
    std::string order;
    const Subscription subscription = view.observe([&] {
        if (!view.store.profiles()[1].categoryId && !order.contains('p')) order += 'p';
        if (view.categoryStore.categories().empty() && !order.contains('c')) order += 'c';
        if (*view.categoryFilter == CategoryFilter::all() && !order.contains('f')) order += 'f';
    });
    view.confirmDeleteCategory();
    EXPECT_EQ(order, "pcf");
    EXPECT_EQ(window.memory.writtenKeys,
              (std::vector<std::string>{"ssh_profiles_v3", "ssh_categories_v1"}));
    EXPECT_FALSE(view.showCategoryDeleteConfirm || view.deleteCategoryCandidate->has_value());
    EXPECT_EQ(*view.selection, ProfileSelection{exampleId(11)});
}

TEST_F(ContentViewTest, LeavesAnotherFilterAndACancelledCategoryAlone) {
    view.requestDeleteCategory(exampleCategory());
    view.cancelDeleteCategory();
    view.confirmDeleteCategory();
    EXPECT_EQ(view.categoryStore.categories().size(), 1U);
    EXPECT_TRUE(window.memory.writtenKeys.empty());
    view.chooseCategoryFilter(CategoryFilter::uncategorized());
    view.renameSelectedCategory();
    view.requestDeleteSelectedCategory();
    EXPECT_FALSE(view.showCategoryEditor || view.showCategoryDeleteConfirm);
    view.requestDeleteCategory(exampleCategory());
    view.confirmDeleteCategory();
    EXPECT_EQ(*view.categoryFilter, CategoryFilter::uncategorized());
}

TEST_F(ContentViewTest, UnselectsTheProfilesThatAFilterHides) {
    view.selection = ProfileSelection{exampleId(13), exampleId(99), exampleId(12), exampleId(11)};
    view.chooseCategoryFilter(CategoryFilter::category(exampleCategory().id));
    EXPECT_EQ(view.filteredProfiles(), (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(view.selection->ids(), ids({99, 12, 11}));
    view.chooseCategoryFilter(CategoryFilter::uncategorized());
    EXPECT_EQ(view.filteredProfiles(), std::vector<std::size_t>{2});
    EXPECT_EQ(view.selection->ids(), ids({99}));
    view.chooseCategoryFilter(CategoryFilter::all());
    EXPECT_EQ(view.filteredProfiles().size(), 3U);
    EXPECT_TRUE(window.memory.writtenKeys.empty());
}

TEST_F(ContentViewTest, FiltersCommandsByTitleTemplateAndHintInStoreOrder) {
    view.snippetStore.replaceAll(defaultSnippets());
    const auto countOf = [&](const std::string& query) {
        view.snippetSearch = query;
        return view.filteredSnippets().size();
    };
    EXPECT_EQ(countOf("  \n"), 7U);
    EXPECT_EQ(countOf(" PING "), 1U);
    EXPECT_EQ(countOf("{host}"), 3U);
    EXPECT_EQ(countOf("netzPFAD"), 1U);
    EXPECT_EQ(countOf("nirgends"), 0U);
    view.snippetSearch = "ssh verbinden";
    EXPECT_EQ(view.filteredSnippets(),
              (std::vector{&view.snippetStore.snippets()[2], &view.snippetStore.snippets()[3]}));
}

TEST_F(ContentViewTest, CopiesTheCommandOfTheSelectedProfile) {
    view.copySnippet(exampleSnippet());
    view.selectProfile(exampleProfile(12));
    view.copySnippet(exampleSnippet());
    EXPECT_EQ(*view.lastCopiedText, "Ping Host");
    view.copySSHCommand();
    EXPECT_EQ(*view.lastCopiedText, "SSH-Befehl");
    EXPECT_EQ(window.desktop.clipboard.texts,
              (std::vector<std::string>{"ping -c 4 {HOST}", "ping -c 4 10.0.0.7",
                                        exampleProfile(12).sshCommand()}));
}

TEST_F(ContentViewTest, HidesTheToastAMomentAfterItBecameVisible) {
    ManualMainQueue& queue = window.desktop.mainQueue;
    view.copyToClipboard("a", "erste");
    queue.advance(500ms);
    view.copyToClipboard("b", "zweite"); // changes the text and not the time
    EXPECT_EQ(*view.lastCopiedText, "zweite");
    queue.advance(699ms);
    EXPECT_TRUE(view.showCopiedToast);
    queue.advance(1ms);
    EXPECT_FALSE(view.showCopiedToast);
    EXPECT_EQ(*view.lastCopiedText, "zweite");
    view.copyToClipboard("c", "dritte");
    queue.advance(1199ms);
    EXPECT_TRUE(view.showCopiedToast);
    queue.advance(1ms);
    EXPECT_FALSE(view.showCopiedToast);
}

TEST_F(ContentViewTest, ConnectsThroughTheTerminalAndShowsARefusalAtOnceOrLater) {
    RecordingWorkspace& workspace = window.desktop.workspace;
    view.selectProfile(exampleProfile(11));
    view.connectSelectedProfile();
    EXPECT_EQ(textOf(workspace.paths.at(0)), terminalScript(exampleProfile(11).sshCommand()));
    EXPECT_FALSE(view.showError);
    workspace.refusedLater();
    expectError("Terminal konnte das Script nicht öffnen.");
    view.showError = false;
    workspace.accepts = false;
    view.connect(exampleProfile(13));
    expectError("Terminal konnte das Script nicht öffnen.");
}

TEST_F(ContentViewTest, MayEndBeforeTheWorkThatWasPutOff) {
    view.connect(exampleProfile(11));
    view.copyToClipboard("a", "a");
    window.view.reset();
    window.desktop.workspace.refusedLater();
    window.desktop.mainQueue.advance(2s);
    SUCCEED() << "neither reached into the window that is gone";
}

TEST_F(ContentViewTest, HasTheTextInPlaceWhenItShowsAnError) {
    std::vector<std::string> seen;
    const Subscription subscription = view.observe([&] {
        if (view.showError) seen.push_back(view.errorText);
    });
    window.desktop.workspace.accepts = false;
    view.connect(exampleProfile(11));
    EXPECT_EQ(seen, std::vector<std::string>{"Terminal konnte das Script nicht öffnen."});
}

TEST_F(BackupActions, ExportTheStoresAndNameTheToast) {
    const TemporaryFolder folder;
    PreparedFilePanels& panels = window.desktop.filePanels;
    view.exportBackup();
    EXPECT_FALSE(view.showCopiedToast || view.showError) << "cancelled";
    EXPECT_EQ(panels.savePanel.title, "Korvan Export");
    EXPECT_EQ(panels.savePanel.proposedName, "Korvan_Backup.json");
    EXPECT_EQ(panels.savePanel.fileType, "json");

    panels.answer = folder.file("Sicherung.json", "älter");
    window.desktop.now += 1h;
    view.exportBackup();
    EXPECT_EQ(textOf(*panels.answer),
              writeBackup(makeBackup(view.store.profiles(), view.snippetStore.snippets(),
                                     view.categoryStore.categories(),
                                     std::chrono::system_clock::from_time_t(3600))));
    EXPECT_TRUE(view.showCopiedToast);
    EXPECT_EQ(*view.lastCopiedText, "Export gespeichert");
    EXPECT_TRUE(window.desktop.clipboard.texts.empty());
    window.desktop.mainQueue.advance(1200ms);
    EXPECT_FALSE(view.showCopiedToast);
}

TEST_F(BackupActions, LeaveAnExistingTargetWhenTheExportFails) {
    const TemporaryFolder folder;
    window.desktop.filePanels.answer = folder.file("Datei", "Text") / "x.json";
    view.exportBackup();
    expectError("Export fehlgeschlagen: Die Datei konnte nicht geschrieben werden: Ein Teil des "
                "Pfades ist kein Ordner („" +
                *window.desktop.filePanels.answer + "“).");
    EXPECT_EQ(textOf(folder.path() / "Datei"), "Text");
    EXPECT_EQ(*view.lastCopiedText, "");
}

TEST_F(BackupActions, ReplaceAllThreeListsOnceConfirmed) {
    const TemporaryFolder folder;
    const KorvanBackup backup =
        makeBackup({exampleProfile(1)}, {exampleSnippet(20), exampleSnippet(21)}, {}, {});
    window.desktop.filePanels.answer = folder.file("s.json", writeBackup(backup));
    view.selectProfile(exampleProfile(12));
    view.importBackup();
    EXPECT_EQ(window.desktop.filePanels.openPanel.title, "Korvan Import");
    EXPECT_EQ(window.desktop.filePanels.openPanel.fileTypes, std::vector<std::string>{"json"});
    EXPECT_TRUE(view.showImportConfirm);
    EXPECT_TRUE(window.memory.writtenKeys.empty());
    view.confirmImport();
    EXPECT_EQ(view.store.profiles(), backup.profiles) << "its category is not in the file";
    EXPECT_EQ(view.snippetStore.snippets(), backup.snippets);
    EXPECT_TRUE(view.categoryStore.categories().empty());
    EXPECT_EQ(
        window.memory.writtenKeys,
        (std::vector<std::string>{"ssh_profiles_v3", "ssh_snippets_v1", "ssh_categories_v1"}));
    EXPECT_FALSE(view.showImportConfirm || view.pendingImportBackup->has_value() ||
                 view.showCopiedToast);
    EXPECT_EQ(*view.selection, ProfileSelection{exampleId(12)});
    view.confirmImport();
    EXPECT_EQ(window.memory.writtenKeys.size(), 3U);
}

TEST_F(BackupActions, ChangeNothingWhenTheImportIsCancelledOrFails) {
    const TemporaryFolder folder;
    std::optional<std::string>& answer = window.desktop.filePanels.answer;
    answer = folder.file("s.json", writeBackup(exampleBackup()));
    const auto before = window.memory.values;
    view.importBackup();
    view.cancelImport();
    EXPECT_FALSE(view.showImportConfirm || view.pendingImportBackup->has_value());

    window.desktop.filePanels.answer = folder.file("t.json", "Kein JSON");
    view.importBackup();
    expectError("Import fehlgeschlagen: Backup konnte nicht gelesen werden (weder V1 noch V2). "
                "Datei ist evtl. beschädigt.");
    window.desktop.filePanels.answer = folder.path();
    view.importBackup();
    expectError(
        "Import fehlgeschlagen: Die Datei konnte nicht gelesen werden: Das ist ein Ordner („" +
        *answer + "“).");
    window.desktop.filePanels.answer = std::nullopt;
    view.importBackup();
    EXPECT_FALSE(view.showImportConfirm || view.pendingImportBackup->has_value());
    EXPECT_EQ(window.memory.values, before);
    EXPECT_EQ(profileIds(), ids({11, 12, 13}));
}

TEST_F(BackupActions, LetTheOtherListsProceedWhenOneCannotBeSaved) {
    view.pendingImportBackup = exampleBackup();
    window.memory.onWrite = [&] {
        window.memory.writingFails = window.memory.writtenKeys.size() == 1;
    };
    testing::internal::CaptureStdout();
    view.confirmImport();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Snippet save error: kein Platz\nCategory save error: kein Platz\n");
    EXPECT_EQ(view.snippetStore.snippets(), exampleBackup().snippets);
    EXPECT_EQ(view.categoryStore.categories(), exampleBackup().categories);
    EXPECT_FALSE(view.showError);
}

} // namespace korvan
