// SPDX-License-Identifier: MIT
#include "state/ContentView.h"

#include "model/SeedData.h"
#include "state/Alerts.h"
#include "support/Examples.h"
#include "support/MemoryKeyValueStore.h"
#include "support/RecordingDesktop.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace korvan {

namespace {

using namespace std::chrono_literals;

// A window with the profiles 11, 12 (both in the example category) and 13 (in none), one category
// and one command.
class ContentViewTest : public testing::Test {
protected:
    ContentViewTest() {
        fill();
        memory.writtenKeys.clear();
    }

    void fill() {
        view.store.replaceAll({exampleProfile(11), exampleProfile(12),
                               with(exampleProfile(13), &SSHProfile::categoryId, {})});
        view.categoryStore.replaceAll({exampleCategory()});
        view.snippetStore.replaceAll({exampleSnippet()});
    }

    std::vector<Uuid> profileIds() {
        std::vector<Uuid> ids(view.store.profiles().size());
        std::ranges::transform(view.store.profiles(), ids.begin(), &SSHProfile::id);
        return ids;
    }

    static std::vector<Uuid> ids(std::initializer_list<int> numbers) {
        std::vector<Uuid> ids(numbers.size());
        std::ranges::transform(numbers, ids.begin(), exampleId);
        return ids;
    }

    void import(const SSHProfile& first, std::vector<SSHCategory> categories) {
        view.pendingImportBackup =
            makeBackup({first, exampleProfile(12)}, {}, std::move(categories), {});
        view.confirmImport();
    }

    void expectError(const std::string& text) {
        EXPECT_TRUE(view.showError);
        EXPECT_EQ(*view.errorText, text);
        EXPECT_FALSE(view.showCopiedToast || view.showImportConfirm);
    }

    TemporaryFolder folder;
    MemoryKeyValueStore memory;
    RecordingDesktop desktop;
    std::optional<ContentView> window{std::in_place, memory, desktop.desktop()};
    ContentView& view = *window;
    std::optional<std::filesystem::path>& chosenFile = desktop.filePanels.answer;
    const CategoryFilter inCategory = CategoryFilter::category(exampleCategory().id);
};

using BackupActions = ContentViewTest;

} // namespace

TEST_F(ContentViewTest, DoesNothingWithoutASelectedProfileOrCategory) {
    for (const auto& selection : {ProfileSelection(), ProfileSelection(ids({99, 11}))}) {
        view.selection = selection;
        view.editProfile();
        view.requestDeleteProfile();
        view.connectSelectedProfile();
        view.copySSHCommand();
        view.renameSelectedCategory();
        view.requestDeleteSelectedCategory();
    }
    EXPECT_FALSE(view.showEditor || view.showDeleteConfirm || view.showError);
    EXPECT_FALSE(view.showCategoryEditor || view.showCategoryDeleteConfirm);
    EXPECT_TRUE(desktop.workspace.paths.empty() && desktop.clipboard.texts.empty());
}

TEST_F(ContentViewTest, WorksOnTheProfileThatWasSelectedFirst) {
    view.selection = ProfileSelection{exampleId(12), exampleId(11)};
    view.selection = view.selection->changedTo(ids({11, 13, 12}));
    EXPECT_EQ(view.selection->ids(), ids({12, 11, 13}));
    view.editProfile();
    EXPECT_EQ(view.editorDraft->id, exampleId(12));
    view.copySSHCommand();
    EXPECT_EQ(*view.lastCopiedText, "SSH-Befehl");
    view.selectProfile(exampleProfile(13));
    EXPECT_EQ(view.selection->ids(), ids({13}));
}

TEST_F(ContentViewTest, AddsANewProfileWhateverIsFilteredOrSelected) {
    view.chooseCategoryFilter(inCategory);
    view.newProfile();
    const SSHProfile draft = view.editorDraft;
    EXPECT_EQ(draft, with(SSHProfile(), &SSHProfile::id, draft.id));
    view.newProfile();
    EXPECT_NE(view.editorDraft->id, draft.id);
    view.saveProfile(exampleProfile(14));
    EXPECT_EQ(*view.categoryFilter, inCategory);
    view.saveProfile(with(exampleProfile(15), &SSHProfile::categoryId, {}));
    EXPECT_EQ(*view.categoryFilter, CategoryFilter::all()) << "nothing new is hidden";
    EXPECT_EQ(profileIds(), ids({11, 12, 13, 14, 15}));
    EXPECT_EQ(*view.selection, ProfileSelection());
}

TEST_F(ContentViewTest, SavesAnEditedProfileInItsPlaceWhateverElseChanged) {
    view.selectProfile(exampleProfile(12));
    view.editProfile();
    const SSHProfile edited = with(*view.editorDraft, &SSHProfile::name, "Neu");
    view.store.update(with(exampleProfile(12), &SSHProfile::host, "inzwischen"));
    view.saveProfile(edited);
    EXPECT_EQ(view.store.profiles()[1], edited);

    view.editProfile();
    view.store.remove(edited);
    view.saveProfile(edited);
    EXPECT_EQ(profileIds(), ids({11, 13})) << "what is gone does not come back";
    EXPECT_FALSE(view.showEditor);
    EXPECT_EQ(view.selection->ids(), ids({12}));
}

TEST_F(ContentViewTest, DeletesOnlyWhatIsStillAsItWasWhenTheUserWasAsked) {
    view.selectProfile(exampleProfile(12));
    view.requestDeleteProfile();
    view.store.update(with(exampleProfile(12), &SSHProfile::password, "anders"));
    view.confirmDeleteProfile();
    EXPECT_EQ(profileIds(), ids({11, 12, 13}));
    view.requestDeleteProfile();
    view.confirmDeleteProfile();
    EXPECT_EQ(profileIds(), ids({11, 13}));
    EXPECT_FALSE(view.showDeleteConfirm || view.deleteCandidate->has_value());
    EXPECT_EQ(view.selection->ids(), ids({12}));
}

TEST_F(ContentViewTest, AddsOrUpdatesCategoriesAndCommandsAsTheEditorWasOpened) {
    view.chooseCategoryFilter(inCategory);
    view.renameSelectedCategory();
    EXPECT_TRUE(view.showCategoryEditor);
    view.saveCategory(with(exampleCategory(), &SSHCategory::name, "Keller"));
    EXPECT_EQ(view.categoryStore.categories().at(0).name, "Keller");
    view.newCategory();
    view.saveCategory(exampleCategory(9));
    EXPECT_EQ(view.categoryStore.categories().front(), exampleCategory(9));

    view.editSnippet(exampleSnippet());
    view.saveSnippet(with(exampleSnippet(), &CommandSnippet::hint, ""));
    EXPECT_EQ(view.snippetStore.snippets().at(0).hint, "");
    view.newSnippet();
    view.saveSnippet(exampleSnippet(10));
    EXPECT_EQ(view.snippetStore.snippets().front(), exampleSnippet(10));
    EXPECT_FALSE(view.showCategoryEditor || view.showSnippetEditor);
}

TEST_F(ContentViewTest, EmptiesACategoryBeforeItIsDeletedAndLeavesAnotherFilterThanIt) {
    view.chooseCategoryFilter(CategoryFilter::uncategorized());
    view.requestDeleteCategory(exampleCategory());
    view.confirmDeleteCategory();
    EXPECT_EQ(memory.writtenKeys,
              (std::vector<std::string>{"ssh_profiles_v3", "ssh_categories_v1"}));
    EXPECT_EQ(view.store.profiles()[1].categoryId, std::nullopt);
    EXPECT_TRUE(view.categoryStore.categories().empty());
    EXPECT_EQ(*view.categoryFilter, CategoryFilter::uncategorized());
    EXPECT_FALSE(view.showCategoryDeleteConfirm || view.deleteCategoryCandidate->has_value());
}

TEST_F(ContentViewTest, UnselectsWhatIsHiddenAndShowsAllOnceTheFiltersCategoryIsGone) {
    const SSHProfile moved = with(exampleProfile(11), &SSHProfile::categoryId, {});
    ContentView other(memory, desktop.desktop());
    other.requestDeleteCategory(exampleCategory());
    const std::pair<std::function<void()>, bool> cases[] = {
        {[&] { view.selection = ProfileSelection(ids({13, 99, 12})); }, true},
        {[&] { view.editProfile(), view.saveProfile(moved); }, true},
        {[&] { other.store.update(moved), view.reloadAll(); }, true},
        {[&] { import(moved, {exampleCategory(9), exampleCategory()}); }, true},
        {[&] { import(exampleProfile(11), {exampleCategory(9)}); }, false},
        {[&] { view.requestDeleteSelectedCategory(), view.confirmDeleteCategory(); }, false},
        {[&] { other.confirmDeleteCategory(), view.reloadAll(); }, false}};
    for (const auto& [change, hides] : cases) {
        fill();
        view.chooseCategoryFilter(inCategory);
        EXPECT_EQ(view.filteredProfiles(), (std::vector<std::size_t>{0, 1}));
        view.selection = ProfileSelection(ids({11, 99, 12}));
        change();
        EXPECT_EQ(view.selection->ids(), hides ? ids({99, 12}) : ids({11, 99, 12}));
        EXPECT_EQ(*view.categoryFilter, hides ? inCategory : CategoryFilter::all());
    }
}

TEST_F(ContentViewTest, AsksInTheseWords) {
    view.errorText = "Kaputt";
    view.deleteCandidate = exampleProfile();
    view.deleteCategoryCandidate = exampleCategory();
    view.snippetDeleteCandidate = exampleSnippet();
    std::string words;
    for (const Alert& each : alerts())
        (words += each.title)
            .append("|" + each.message(view) + "|")
            .append(each.destructiveButton) += '\n';
    EXPECT_EQ(words, R"(Profil wirklich löschen?|„Drucker "Süd"“ wird entfernt.|Löschen
Kategorie wirklich löschen?|„Büro“ wird gelöscht. Betroffene Profile werden auf „Ohne Kategorie“ gesetzt.|Löschen
Befehl wirklich löschen?|„Ping Host“ wird entfernt.|Löschen
Import aus Datei|Beim Import werden vorhandene Profile, Kategorien und Befehle ersetzt. Fortfahren?|Ersetzen (empfohlen)
Fehler|Kaputt|
)");
}

TEST_F(ContentViewTest, FiltersCommandsByTitleTemplateAndHint) {
    view.snippetStore.replaceAll(defaultSnippets());
    const std::pair<std::string, std::size_t> cases[] = {{"  \n", 7},          {" PING ", 1},
                                                         {"{host}", 3},        {"netzPFAD", 1},
                                                         {"ssh verbinden", 2}, {"nirgends", 0}};
    for (const auto& [query, count] : cases) {
        view.snippetSearch = query;
        EXPECT_EQ(view.filteredSnippets().size(), count) << query;
    }
}

TEST_F(ContentViewTest, HidesTheToastAMomentAfterItBecameVisible) {
    view.copyToClipboard("a", "erste");
    desktop.mainQueue.advance(500ms);
    view.copyToClipboard("b", "zweite"); // changes the text and not the time
    EXPECT_EQ(*view.lastCopiedText, "zweite");
    for (const auto rest : {699ms, 1199ms}) {
        desktop.mainQueue.advance(rest);
        EXPECT_TRUE(view.showCopiedToast);
        desktop.mainQueue.advance(1ms);
        EXPECT_FALSE(view.showCopiedToast);
        view.copyToClipboard("c", "dritte");
    }
}

TEST_F(ContentViewTest, ConnectsThroughTheTerminalAndShowsARefusalAtOnceOrLater) {
    const std::string error = "Terminal konnte das Script nicht öffnen.";
    view.selectProfile(exampleProfile(11));
    view.connectSelectedProfile();
    EXPECT_EQ(desktop.workspace.paths.size(), 1U);
    EXPECT_FALSE(view.showError);
    desktop.workspace.refusedLater();
    expectError(error);
    view.showError = false;
    desktop.workspace.accepts = false;
    view.connect(exampleProfile(13));
    expectError(error);
}

TEST_F(ContentViewTest, MayEndBeforeTheWorkThatWasPutOff) {
    view.connect(exampleProfile(11));
    view.copyToClipboard("a", "a");
    window.reset();
    desktop.workspace.refusedLater();
    desktop.mainQueue.advance(2s);
}

TEST_F(BackupActions, ExportTheStoresAndNameTheToast) {
    view.exportBackup();
    EXPECT_FALSE(view.showCopiedToast || view.showError) << "cancelled";
    chosenFile = folder.file("Sicherung.json", "älter");
    desktop.now += 1h;
    view.exportBackup();
    EXPECT_EQ(textOf(*chosenFile),
              writeBackup(makeBackup(view.store.profiles(), view.snippetStore.snippets(),
                                     view.categoryStore.categories(), desktop.now)));
    EXPECT_TRUE(view.showCopiedToast);
    EXPECT_EQ(*view.lastCopiedText, "Export gespeichert");
    EXPECT_TRUE(desktop.clipboard.texts.empty());
}

TEST_F(BackupActions, ReplaceAllThreeListsOnceConfirmed) {
    const KorvanBackup backup =
        makeBackup({exampleProfile(1)}, {exampleSnippet(20), exampleSnippet(21)}, {}, {});
    chosenFile = folder.file("s.json", writeBackup(backup));
    view.selectProfile(exampleProfile(12));
    view.importBackup();
    EXPECT_EQ(desktop.filePanels.openPanel.fileTypes, std::vector<std::string>{"json"});
    view.cancelImport();
    EXPECT_FALSE(view.showImportConfirm || view.pendingImportBackup->has_value());
    view.importBackup();
    EXPECT_TRUE(view.showImportConfirm && memory.writtenKeys.empty());
    view.confirmImport();
    EXPECT_EQ(view.store.profiles(), backup.profiles) << "its category is not in the file";
    EXPECT_EQ(view.snippetStore.snippets(), backup.snippets);
    EXPECT_TRUE(view.categoryStore.categories().empty());
    EXPECT_FALSE(view.showImportConfirm || view.showCopiedToast);
    EXPECT_EQ(view.selection->ids(), ids({12}));
    view.confirmImport(); // a second time, of nothing
    EXPECT_EQ(memory.writtenKeys, (std::vector<std::string>{"ssh_profiles_v3", "ssh_snippets_v1",
                                                            "ssh_categories_v1"}));

    // A file of the older version knows no categories.
    const std::string older = replaced(writeBackup(exampleBackup()), " : 2\n", " : 1\n");
    chosenFile = folder.file("s.json", replaced(older, "categories", "unbekannt"));
    view.categoryStore.add(exampleCategory(9));
    view.importBackup();
    view.confirmImport();
    EXPECT_EQ(view.categoryStore.categories(), std::vector{exampleCategory(9)});
    EXPECT_EQ(view.store.profiles(), exampleBackup().profiles);
}

TEST_F(BackupActions, SayWhatFailedAndChangeNothing) {
    const auto before = memory.values;
    view.pendingImportBackup = exampleBackup();
    chosenFile = folder.file("Datei", "Kein JSON") / "x.json";
    view.exportBackup();
    expectError("Export fehlgeschlagen: Die Datei konnte nicht geschrieben werden: Ein Teil des "
                "Pfades ist kein Ordner („" +
                chosenFile->string() + "“).");
    chosenFile = folder.path() / "Datei";
    view.importBackup();
    expectError("Import fehlgeschlagen: Backup konnte nicht gelesen werden (weder V1 noch V2). "
                "Datei ist evtl. beschädigt.");
    chosenFile = folder.path();
    view.importBackup();
    expectError("Import fehlgeschlagen: Die Datei konnte nicht gelesen werden: Das ist ein Ordner "
                "(„" +
                chosenFile->string() + "“).");
    EXPECT_EQ(textOf(folder.path() / "Datei"), "Kein JSON");
    EXPECT_EQ(memory.values, before);
    EXPECT_TRUE(view.pendingImportBackup->has_value()) << "what waits is still there";
}

TEST_F(BackupActions, WriteAllThreeListsAtOnceOrPrintALineForEach) {
    view.pendingImportBackup = exampleBackup();
    memory.calls.clear();
    memory.writingFails = true;
    testing::internal::CaptureStdout();
    view.confirmImport();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Profile save error: kein Platz\n"
                                                      "Snippet save error: kein Platz\n"
                                                      "Category save error: kein Platz\n");
    EXPECT_EQ(view.store.profiles(), exampleBackup().profiles);
    EXPECT_FALSE(view.showError);
    const ContentView another(memory, desktop.desktop());
    memory.values["ssh_profiles_v3"] = "[]";
    view.reloadAll();
    EXPECT_EQ(memory.calls, "w3r3r3") << "read at one moment, too";
    EXPECT_TRUE(view.store.profiles().empty()) << "and not seeded";
}

} // namespace korvan
