// SPDX-License-Identifier: MIT
#include "state/ContentView.h"

#include "actions/BackupFile.h"
#include "model/Text.h"
#include "platform/Clipboard.h"
#include "platform/FilePanels.h"
#include "platform/MainQueue.h"

#include <unordered_set>
#include <utility>

namespace korvan {

namespace {

constexpr std::chrono::milliseconds kToastDuration{1200};
constexpr std::string_view kBackupFileType = "json";

} // namespace

ContentView::ContentView(KeyValueStore& keyValueStore, const Desktop& desktop)
    : ContentView(keyValueStore, StoredLists(keyValueStore), desktop) {}

ContentView::ContentView(KeyValueStore& keyValueStore, StoredLists stored, const Desktop& desktop)
    : store(keyValueStore, std::move(stored.profiles)),
      categoryStore(keyValueStore, std::move(stored.categories)),
      snippetStore(keyValueStore, std::move(stored.snippets)), m_desktop(desktop),
      m_terminalLauncher(desktop.workspace),
      m_ownSubscription(m_observers.observe([this] { forgetWhatIsHidden(); })),
      m_storeSubscriptions{store.observe([this] { m_observers.notify(); }),
                           categoryStore.observe([this] { m_observers.notify(); }),
                           snippetStore.observe([this] { m_observers.notify(); })} {}

void ContentView::forgetWhatIsHidden() {
    if (m_runningActions > 0) return;
    if (categoryFilter->categoryId() && !selectedCategory()) categoryFilter = CategoryFilter::all();
    unselectHiddenProfiles();
}

void ContentView::unselectHiddenProfiles() {
    if (*categoryFilter == CategoryFilter::all() || selection->ids().empty()) return;
    std::vector<Uuid> ids = selection->ids();
    // Of profiles with the same id the first one counts, as it does for the actions.
    std::unordered_set<Uuid> open(ids.begin(), ids.end());
    std::unordered_set<Uuid> hidden;
    for (const SSHProfile& profile : store.profiles()) {
        if (open.empty()) break;
        if (open.erase(profile.id) > 0 && !categoryFilter->admits(profile))
            hidden.insert(profile.id);
    }
    if (std::erase_if(ids, [&](const Uuid& id) { return hidden.contains(id); }) > 0)
        selection = ProfileSelection(std::move(ids));
}

const SSHProfile* ContentView::selectedProfile() const {
    const auto id = selection->first();
    return id ? store.find(*id) : nullptr;
}

const SSHCategory* ContentView::selectedCategory() const {
    const auto id = categoryFilter->categoryId();
    return id ? categoryStore.find(*id) : nullptr;
}

std::vector<const CommandSnippet*> ContentView::filteredSnippets() const {
    TextSearch search(*snippetSearch);
    std::vector<const CommandSnippet*> found;
    for (const CommandSnippet& snippet : snippetStore.snippets())
        if (search.isFoundIn(snippet.title) || search.isFoundIn(snippet.commandTemplate) ||
            search.isFoundIn(snippet.hint))
            found.push_back(&snippet);
    return found;
}

std::vector<std::size_t> ContentView::filteredProfiles() const {
    const std::vector<SSHProfile>& profiles = store.profiles();
    std::vector<std::size_t> admitted;
    admitted.reserve(profiles.size());
    for (std::size_t i = 0; i < profiles.size(); ++i)
        if (categoryFilter->admits(profiles[i])) admitted.push_back(i);
    return admitted;
}

void ContentView::newProfile() { beginProfileEditor(SSHProfile(), false); }

void ContentView::editProfile() {
    if (const SSHProfile* profile = selectedProfile()) beginProfileEditor(*profile, true);
}

void ContentView::beginProfileEditor(SSHProfile draft, bool isEdit) {
    editorDraft = std::move(draft);
    editorIsEdit = isEdit;
    editorSessionID = Uuid::random();
    showEditor = true;
}

void ContentView::saveProfile(const SSHProfile& profile) {
    if (editorIsEdit) {
        store.update(profile);
    } else {
        store.add(profile);
        // A new profile that is hidden would look lost.
        if (!categoryFilter->admits(profile)) categoryFilter = CategoryFilter::all();
    }
    showEditor = false;
}

void ContentView::requestDeleteProfile() {
    const SSHProfile* profile = selectedProfile();
    if (!profile) return;
    deleteCandidate = *profile;
    showDeleteConfirm = true;
}

void ContentView::confirmDeleteProfile() {
    if (const auto& profile = *deleteCandidate) store.remove(*profile);
    cancelDeleteProfile();
}

void ContentView::cancelDeleteProfile() {
    deleteCandidate = std::nullopt;
    showDeleteConfirm = false;
}

void ContentView::connect(const SSHProfile& profile) {
    const auto failedLater = [self = std::weak_ptr(m_self)](const Error& error) {
        if (const auto window = self.lock()) (*window)->showFailure("", error);
    };
    const auto opened = m_terminalLauncher.openInTerminal(profile.sshCommand(), failedLater);
    if (!opened) showFailure("", opened.error());
}

void ContentView::connectSelectedProfile() {
    if (const SSHProfile* profile = selectedProfile()) connect(*profile);
}

void ContentView::copySSHCommand() {
    if (const SSHProfile* profile = selectedProfile())
        copyToClipboard(profile->sshCommand(), "SSH-Befehl");
}

void ContentView::selectProfile(const SSHProfile& profile) {
    selection = ProfileSelection{profile.id};
}

void ContentView::reloadAll() {
    const Action action(*this);
    loadAll(store, snippetStore, categoryStore);
}

void ContentView::chooseCategoryFilter(const CategoryFilter& filter) { categoryFilter = filter; }

void ContentView::newCategory() {
    editingCategory = std::nullopt;
    showCategoryEditor = true;
}

void ContentView::renameCategory(const SSHCategory& category) {
    editingCategory = category;
    showCategoryEditor = true;
}

void ContentView::saveCategory(const SSHCategory& category) {
    if (*editingCategory)
        categoryStore.update(category);
    else
        categoryStore.add(category);
    showCategoryEditor = false;
}

void ContentView::requestDeleteCategory(const SSHCategory& category) {
    deleteCategoryCandidate = category;
    showCategoryDeleteConfirm = true;
}

void ContentView::confirmDeleteCategory() {
    if (const std::optional<SSHCategory> category = *deleteCategoryCandidate) {
        const Action action(*this);
        // The profiles first: if the program ends in between, none names a category that is gone.
        store.clearCategory(category->id);
        categoryStore.remove(*category);
        if (*categoryFilter == CategoryFilter::category(category->id))
            categoryFilter = CategoryFilter::all();
    }
    cancelDeleteCategory();
}

void ContentView::cancelDeleteCategory() {
    deleteCategoryCandidate = std::nullopt;
    showCategoryDeleteConfirm = false;
}

void ContentView::renameSelectedCategory() {
    if (const SSHCategory* category = selectedCategory()) renameCategory(*category);
}

void ContentView::requestDeleteSelectedCategory() {
    if (const SSHCategory* category = selectedCategory()) requestDeleteCategory(*category);
}

void ContentView::newSnippet() {
    editingSnippet = std::nullopt;
    showSnippetEditor = true;
}

void ContentView::editSnippet(const CommandSnippet& snippet) {
    editingSnippet = snippet;
    showSnippetEditor = true;
}

void ContentView::saveSnippet(const CommandSnippet& snippet) {
    if (*editingSnippet)
        snippetStore.update(snippet);
    else
        snippetStore.add(snippet);
    showSnippetEditor = false;
}

void ContentView::requestDeleteSnippet(const CommandSnippet& snippet) {
    snippetDeleteCandidate = snippet;
    showSnippetDeleteConfirm = true;
}

void ContentView::confirmDeleteSnippet() {
    if (const auto& snippet = *snippetDeleteCandidate) snippetStore.remove(*snippet);
    cancelDeleteSnippet();
}

void ContentView::cancelDeleteSnippet() {
    snippetDeleteCandidate = std::nullopt;
    showSnippetDeleteConfirm = false;
}

void ContentView::copySnippet(const CommandSnippet& snippet) {
    copyToClipboard(snippet.expandedCommand(selectedProfile()), snippet.title);
}

void ContentView::toggleSnippets() { showSnippets = !showSnippets; }

void ContentView::copyToClipboard(const std::string& text, std::string_view label) {
    m_desktop.clipboard.setText(text);
    showToast(label);
}

void ContentView::showToast(std::string_view label) {
    lastCopiedText = std::string(label);
    // While it is shown it keeps its time: only its text changes.
    if (showCopiedToast) return;
    showCopiedToast = true;
    m_desktop.mainQueue.runAfter(kToastDuration, [self = std::weak_ptr(m_self)] {
        if (const auto window = self.lock()) (*window)->showCopiedToast = false;
    });
}

void ContentView::exportBackup() {
    const auto path = m_desktop.filePanels.runSavePanel(
        {"Korvan Export", "Korvan_Backup.json", std::string(kBackupFileType)});
    if (!path) return;
    const KorvanBackup backup = makeBackup(store.profiles(), snippetStore.snippets(),
                                           categoryStore.categories(), m_desktop.now());
    const auto written = writeBackupFile(*path, backup);
    if (!written) return showFailure("Export fehlgeschlagen: ", written.error());
    showToast("Export gespeichert");
}

void ContentView::importBackup() {
    const auto path =
        m_desktop.filePanels.runOpenPanel({"Korvan Import", {std::string(kBackupFileType)}});
    if (!path) return;
    auto backup = readBackupFile(*path, categoryStore.categories());
    if (!backup) return showFailure("Import fehlgeschlagen: ", backup.error());
    pendingImportBackup = std::move(*backup);
    showImportConfirm = true;
}

void ContentView::confirmImport() {
    // Moved out, not copied: the document may be large.
    if (std::optional<KorvanBackup> backup = pendingImportBackup.exchange(std::nullopt)) {
        const Action action(*this);
        replaceAll(store, snippetStore, categoryStore, std::move(*backup));
    }
    showImportConfirm = false;
}

void ContentView::cancelImport() {
    pendingImportBackup = std::nullopt;
    showImportConfirm = false;
}

void ContentView::openAbout() { showAbout = true; }

void ContentView::showFailure(std::string_view prefix, const Error& error) {
    errorText = std::string(prefix) + error.localizedDescription;
    showError = true;
}

} // namespace korvan
