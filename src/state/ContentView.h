// SPDX-License-Identifier: MIT
#pragma once

#include "actions/TerminalLauncher.h"
#include "model/CommandSnippet.h"
#include "model/KorvanBackup.h"
#include "model/SSHCategory.h"
#include "model/SSHProfile.h"
#include "model/Uuid.h"
#include "platform/Desktop.h"
#include "state/CategoryFilter.h"
#include "state/Observable.h"
#include "state/ProfileSelection.h"
#include "store/RecordStore.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvan {

// The state of one main window and everything that can be done in it, without a screen.
//
// Fields may be read by anyone. They are changed by the actions below, and by whatever shows them:
// a dialog that closes clears its flag, the search field writes `snippetSearch`, the table
// writes `selection`. Every change notifies the observers, the stores' changes included.
//
// Nothing works on a profile that the user cannot see: whatever hides one takes its id out of
// `selection`. Ids that no profile has may stay. A filter whose category is gone becomes `all`.
// Both hold before any other observer is called; in an action of several steps, once it ends.
//
// Records in here are copies; they are found again in the stores by id or by equality. Needs the
// key-value store and the desktop to outlive it.
class ContentView final {
public:
    ContentView(KeyValueStore& keyValueStore, const Desktop& desktop);
    ContentView(const ContentView&) = delete;
    ContentView& operator=(const ContentView&) = delete;
    ~ContentView() = default;

    // Calls `observer` after each change of anything here.
    [[nodiscard]] Subscription observe(std::function<void()> observer) {
        return m_observers.observe(std::move(observer));
    }

private:
    ObserverList m_observers; // before the fields, which refer to it

public:
    SSHStore store;
    CategoryStore categoryStore;
    SnippetStore snippetStore;
    Observable<bool> showEditor{m_observers, false};
    Observable<bool> showDeleteConfirm{m_observers, false};
    Observable<std::optional<SSHProfile>> deleteCandidate{m_observers};
    Observable<ProfileSelection> selection{m_observers};
    Observable<CategoryFilter> categoryFilter{m_observers, CategoryFilter::all()};
    Observable<bool> showCategoryEditor{m_observers, false};
    Observable<std::optional<SSHCategory>> editingCategory{m_observers}; // none: a new one
    Observable<bool> showCategoryDeleteConfirm{m_observers, false};
    Observable<std::optional<SSHCategory>> deleteCategoryCandidate{m_observers};
    Observable<bool> showSnippets{m_observers, true};
    Observable<std::string> snippetSearch{m_observers};
    Observable<bool> showSnippetEditor{m_observers, false};
    Observable<std::optional<CommandSnippet>> editingSnippet{m_observers}; // none: a new one
    Observable<bool> showSnippetDeleteConfirm{m_observers, false};
    Observable<std::optional<CommandSnippet>> snippetDeleteCandidate{m_observers};
    Observable<bool> showError{m_observers, false};
    Observable<std::string> errorText{m_observers};
    Observable<bool> showCopiedToast{m_observers, false};
    Observable<std::string> lastCopiedText{m_observers}; // names what was copied
    Observable<bool> showImportConfirm{m_observers, false};
    Observable<std::optional<KorvanBackup>> pendingImportBackup{m_observers};
    Observable<bool> showAbout{m_observers, false};
    Observable<SSHProfile> editorDraft{m_observers};
    Observable<bool> editorIsEdit{m_observers, false};
    Observable<Uuid> editorSessionID{m_observers, Uuid::random()};

    // The profile that every single-profile action works on: the one selected first. Null when
    // there is none by that id. Valid until the store changes.
    [[nodiscard]] const SSHProfile* selectedProfile() const;

    // The category that the filter names, null when there is none. Valid until the store changes.
    [[nodiscard]] const SSHCategory* selectedCategory() const;

    // The commands that the search text finds, in the store's order. Valid until the store changes.
    [[nodiscard]] std::vector<const CommandSnippet*> filteredSnippets() const;

    // The places in the store's list of the profiles that the filter admits, in its order.
    [[nodiscard]] std::vector<std::size_t> filteredProfiles() const;

    // Profiles. Where an action needs the selected profile and there is none, nothing happens.
    void newProfile();
    void editProfile();
    void saveProfile(const SSHProfile& profile);
    void requestDeleteProfile();
    void confirmDeleteProfile();
    void cancelDeleteProfile();
    void connect(const SSHProfile& profile);
    void connectSelectedProfile();
    void copySSHCommand();
    void selectProfile(const SSHProfile& profile);
    void reloadAll();

    // Categories. The last two work on the category that the filter names, if there is one.
    void chooseCategoryFilter(const CategoryFilter& filter);
    void newCategory();
    void renameCategory(const SSHCategory& category);
    void saveCategory(const SSHCategory& category);
    void requestDeleteCategory(const SSHCategory& category);
    void confirmDeleteCategory();
    void cancelDeleteCategory();
    void renameSelectedCategory();
    void requestDeleteSelectedCategory();

    // Commands.
    void newSnippet();
    void editSnippet(const CommandSnippet& snippet);
    void saveSnippet(const CommandSnippet& snippet);
    void requestDeleteSnippet(const CommandSnippet& snippet);
    void confirmDeleteSnippet();
    void cancelDeleteSnippet();
    void copySnippet(const CommandSnippet& snippet);
    void toggleSnippets();

    // Puts `text` on the clipboard and shows the toast, which names it `label`.
    void copyToClipboard(const std::string& text, std::string_view label);

    // Backup. Both run a file panel; see actions/BackupFile.h for what can fail.
    void exportBackup();
    void importBackup();
    void confirmImport();
    void cancelImport();

    void openAbout();

private:
    // While one lives, an action is in the middle of its changes: what they hide is known at the
    // end.
    class Action final {
    public:
        explicit Action(ContentView& view) : m_view(view) { ++m_view.m_runningActions; }
        ~Action() {
            --m_view.m_runningActions;
            m_view.forgetWhatIsHidden();
        }
        Action(const Action&) = delete;
        Action& operator=(const Action&) = delete;

    private:
        ContentView& m_view;
    };

    void forgetWhatIsHidden();
    void unselectHiddenProfiles();
    ContentView(KeyValueStore& keyValueStore, StoredLists stored, const Desktop& desktop);
    void beginProfileEditor(SSHProfile draft, bool isEdit);
    void showToast(std::string_view label);
    void showFailure(std::string_view prefix, const Error& error);

    Desktop m_desktop;
    TerminalLauncher m_terminalLauncher;
    int m_runningActions = 0;
    Subscription m_ownSubscription; // the first: others see what it leaves
    std::array<Subscription, 3> m_storeSubscriptions;
    // Ends with this object: how work that was put off learns that the window is gone.
    std::shared_ptr<ContentView*> m_self = std::make_shared<ContentView*>(this);
};

} // namespace korvan
