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
// It has three groups of fields: the data, the user's choices, and what is being shown. Anyone
// may read them. The actions change them, and so does a view where it says so at the field. Every
// change notifies the observers: an assignment, even of an equal value, and a change of a store.
//
// No action works on a profile that the user cannot see. Whatever hides a profile (another filter,
// another category of the profile, an import) takes its id out of `selection`. A filter whose
// category is gone becomes `all`. Both hold before any other observer is called, and in an action
// of several steps once it ends. `selection` may keep the id of a profile that no longer exists.
//
// Records in here are copies. The stores find them again by id or by equality, so that an action
// which comes late (after a reload, say) changes what was meant or nothing. The key-value store and
// all of the desktop must outlive this object.
class ContentView final {
public:
    // Begins with the stored lists, all three as they were at one moment: nothing selected, all
    // profiles listed, the commands shown, no dialog open. RecordStore says what a list that cannot
    // be read leads to.
    ContentView(KeyValueStore& keyValueStore, const Desktop& desktop);
    ContentView(const ContentView&) = delete;
    ContentView& operator=(const ContentView&) = delete;
    ~ContentView() = default;

    // Calls `observer` after each change of a field or a store, until the subscription ends.
    [[nodiscard]] Subscription observe(std::function<void()> observer) {
        return m_observers.observe(std::move(observer));
    }

private:
    ObserverList m_observers; // before the fields, which refer to it

public:
    // --- The data ---

    // The lists as this window last read or changed them. What other windows change comes with
    // reloadAll().
    SSHStore store;
    CategoryStore categoryStore;
    SnippetStore snippetStore;

    // --- The user's choices ---

    // The selected profiles. The table writes it.
    Observable<ProfileSelection> selection{m_observers};
    // Which profiles the table lists.
    Observable<CategoryFilter> categoryFilter{m_observers, CategoryFilter::all()};
    // Which commands are listed: those with this text in them. The search field writes it.
    Observable<std::string> snippetSearch{m_observers};
    // Whether the column of commands is shown. Its hide button clears this.
    Observable<bool> showSnippets{m_observers, true};

    // --- What is being shown ---
    //
    // A dialog is open while its flag is true. An action sets what the dialog is about, then the
    // flag. When the user closes it, its view clears the flag or calls the action that cancels,
    // which does nothing else.

    // The profile editor works on a copy of the draft. Each opening has a session id of its own:
    // the editor may close and open again before a view looks at the flag, which then is true as
    // before. A view that shows an editor of another session closes it and opens a new one.
    Observable<bool> showEditor{m_observers, false};
    Observable<SSHProfile> editorDraft{m_observers};
    Observable<bool> editorIsEdit{m_observers, false}; // the draft is a profile of the store
    Observable<Uuid> editorSessionID{m_observers, Uuid::random()};

    // The editors of a category and of a command. They begin empty where there is no record.
    Observable<bool> showCategoryEditor{m_observers, false};
    Observable<std::optional<SSHCategory>> editingCategory{m_observers};
    Observable<bool> showSnippetEditor{m_observers, false};
    Observable<std::optional<CommandSnippet>> editingSnippet{m_observers};

    // The questions whether a record is to be deleted, and whether a backup replaces all lists.
    Observable<bool> showDeleteConfirm{m_observers, false};
    Observable<std::optional<SSHProfile>> deleteCandidate{m_observers};
    Observable<bool> showCategoryDeleteConfirm{m_observers, false};
    Observable<std::optional<SSHCategory>> deleteCategoryCandidate{m_observers};
    Observable<bool> showSnippetDeleteConfirm{m_observers, false};
    Observable<std::optional<CommandSnippet>> snippetDeleteCandidate{m_observers};
    Observable<bool> showImportConfirm{m_observers, false};
    Observable<std::optional<KorvanBackup>> pendingImportBackup{m_observers};

    // What failed last, in words for the user.
    Observable<bool> showError{m_observers, false};
    Observable<std::string> errorText{m_observers};

    // The toast: what was copied or saved. Disappears 1.2 seconds after it appeared, even if more
    // is copied meanwhile.
    Observable<bool> showCopiedToast{m_observers, false};
    Observable<std::string> lastCopiedText{m_observers};

    Observable<bool> showAbout{m_observers, false};

    // --- What follows from these fields ---

    // The profile that all actions on one profile work on: the one selected first. Null when
    // nothing is selected or no profile has that id. Valid until the store changes.
    [[nodiscard]] const SSHProfile* selectedProfile() const;

    // The category that the filter names, null when it names none. Valid until the store changes.
    [[nodiscard]] const SSHCategory* selectedCategory() const;

    // The commands that the search text finds, in the store's order. Valid until the store changes.
    [[nodiscard]] std::vector<const CommandSnippet*> filteredSnippets() const;

    // The places in the store's list of the profiles that the filter admits, in its order.
    [[nodiscard]] std::vector<std::size_t> filteredProfiles() const;

    // --- Actions on profiles ---
    //
    // Those on the selected profile do nothing when there is none.

    // Opens the editor for a new profile, or for the selected one.
    void newProfile();
    void editProfile();

    // Ends the editor: stores `profile` as a new one or, when it was opened for a stored one, in
    // the place of that; when that is gone, it stores nothing. The filter becomes `all` when it
    // would hide a new profile. The selection stays, but for a profile that is hidden now.
    void saveProfile(const SSHProfile& profile);

    // Asks whether to delete the selected profile.
    void requestDeleteProfile();
    // The answers. Deletes the profile unless it has changed since the question, and selects no
    // other for it.
    void confirmDeleteProfile();
    void cancelDeleteProfile();

    // Opens `profile` in a terminal and does not wait for it. When no terminal takes it, now or
    // later, the error is shown. Nothing else changes.
    void connect(const SSHProfile& profile);
    void connectSelectedProfile();

    // Copies the command line that connects to the selected profile.
    void copySSHCommand();

    // Selects this profile alone.
    void selectProfile(const SSHProfile& profile);

    // Reads all three lists anew, as they are stored at one moment. A list that cannot be read
    // stays as it is. Selection, filter and search stay, within the promises above; so do open
    // dialogs.
    void reloadAll();

    // --- Actions on categories ---

    void chooseCategoryFilter(const CategoryFilter& filter);

    // Opens the editor for a new category, or for this one.
    void newCategory();
    void renameCategory(const SSHCategory& category);

    // Ends the editor: stores `category` as a new one or in its place, as saveProfile does.
    void saveCategory(const SSHCategory& category);

    // Asks whether to delete the category.
    void requestDeleteCategory(const SSHCategory& category);
    // The answers. Takes all profiles out of the category, then deletes it unless it has changed
    // since the question. The profiles stay; a filter for it becomes `all`.
    void confirmDeleteCategory();
    void cancelDeleteCategory();

    // The same for the category that the filter names. They do nothing when it names none.
    void renameSelectedCategory();
    void requestDeleteSelectedCategory();

    // --- Actions on commands ---

    // Opens the editor for a new command, or for this one.
    void newSnippet();
    void editSnippet(const CommandSnippet& snippet);

    // Ends the editor: stores `snippet` as a new one or in its place, as saveProfile does.
    void saveSnippet(const CommandSnippet& snippet);

    // Asks whether to delete the command.
    void requestDeleteSnippet(const CommandSnippet& snippet);
    // The answers. Deletes the command unless it has changed since the question.
    void confirmDeleteSnippet();
    void cancelDeleteSnippet();

    // Copies the command, filled from the selected profile, or as it is written without one.
    void copySnippet(const CommandSnippet& snippet);

    // Shows or hides the column of commands. The search stays.
    void toggleSnippets();

    // Puts `text` on the clipboard and shows the note, which names it `label`.
    void copyToClipboard(const std::string& text, std::string_view label);

    // --- Backup ---
    //
    // The first two ask for a file and do nothing when the user cancels. When the file cannot be
    // written or read (see BackupFile.h), the error is shown and nothing else changes.

    // Writes all three lists into a file and shows the note.
    void exportBackup();

    // Reads a file and asks whether it is to replace all three lists.
    void importBackup();
    // The answers. Replaces the lists in one transaction; RecordStore says what holds when writing
    // fails.
    void confirmImport();
    void cancelImport();

    // --- The program ---

    void openAbout();

private:
    // Lives as long as an action of several steps. Only its end knows what they hide together.
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

    ContentView(KeyValueStore& keyValueStore, StoredLists stored, const Desktop& desktop);

    // Keeps the promise about hidden profiles, after each change that is no part of an Action.
    void forgetWhatIsHidden();
    void unselectHiddenProfiles();

    void beginProfileEditor(SSHProfile draft, bool isEdit);
    void showToast(std::string_view label);
    void showFailure(std::string_view prefix, const Error& error);

    Desktop m_desktop;
    TerminalLauncher m_terminalLauncher;
    int m_runningActions = 0;
    // The first observer, so that all others see what it leaves.
    Subscription m_ownSubscription;
    std::array<Subscription, 3> m_storeSubscriptions;
    // Ends with this object: work that was put off finds it gone and does nothing.
    std::shared_ptr<ContentView*> m_self = std::make_shared<ContentView*>(this);
};

} // namespace korvan
