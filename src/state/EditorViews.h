// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"
#include "model/SSHCategory.h"
#include "model/SSHProfile.h"
#include "platform/FilePanels.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvan {

// The fields of the editors that a save can fail for.
enum class EditorField { name, host, user, port, title, commandTemplate };

// What the editors of all records have in common. An editor works on its own copy of a record,
// checks it when the user saves, and hands it back once. It is made anew each time a sheet opens.
class EditorView {
public:
    EditorView(const EditorView&) = delete;
    EditorView& operator=(const EditorView&) = delete;
    virtual ~EditorView() = default;

    std::optional<std::string> validationError; // of the last failed save; typing leaves it
    std::optional<EditorField> invalidField;    // what the message is about, until it is edited

    // The user has changed the content of `field`.
    void fieldEdited(EditorField field);

    // Whether the record may be saved. Sets or clears the message and its field.
    bool validate();

    // Hands the record, exactly as edited, to `onSave` if it passes the check. Only the first
    // time: a second Return before the sheet has gone must not add the record twice.
    void commit();

    // Calls `onCancel`. Hands nothing back.
    void cancel() { m_onCancel(); }

    // In words for the user. Follows what is typed.
    [[nodiscard]] virtual std::string_view editorTitle() const = 0;

protected:
    struct Problem {
        EditorField field;
        std::string message; // in words for the user
    };

    explicit EditorView(std::function<void()> onCancel) : m_onCancel(std::move(onCancel)) {}

private:
    // The first thing that keeps the record from being saved.
    [[nodiscard]] virtual std::optional<Problem> problem() const = 0;

    // Passes the record to `onSave`.
    virtual void handBack() = 0;

    std::function<void()> m_onCancel;
    bool m_isHandedBack = false;
};

// The profile editor.
class ProfileEditorView final : public EditorView {
public:
    ProfileEditorView(SSHProfile profile, std::vector<SSHCategory> categories,
                      std::function<void()> onCancel,
                      std::function<void(const SSHProfile&)> onSave);

    SSHProfile profile; // the text fields write straight into it
    bool showPassword = false;

    // All that the user can choose from, in their order.
    [[nodiscard]] const std::vector<SSHCategory>& categories() const { return m_categories; }

    // Takes over the text of the port field. Text that is no integer of 64 bits becomes port 0,
    // which does not pass the check. So the previous port is never saved by mistake.
    void setPortText(std::string_view text);

    // Asks for a key file with the open panel, and waits for the answer. Returns whether a file was
    // chosen; otherwise nothing changes.
    bool chooseIdentityFile(FilePanels& filePanels);
    void clearIdentityFile() { profile.identityFile.clear(); }

    [[nodiscard]] std::string_view editorTitle() const override;

private:
    [[nodiscard]] std::optional<Problem> problem() const override;
    void handBack() override { m_onSave(profile); }

    std::vector<SSHCategory> m_categories;
    std::function<void(const SSHProfile&)> m_onSave;
};

// The category editor.
class CategoryEditorView final : public EditorView {
public:
    CategoryEditorView(SSHCategory category, std::function<void()> onCancel,
                       std::function<void(const SSHCategory&)> onSave);

    SSHCategory category;

    [[nodiscard]] std::string_view editorTitle() const override;

private:
    [[nodiscard]] std::optional<Problem> problem() const override;
    void handBack() override { m_onSave(category); }

    std::function<void(const SSHCategory&)> m_onSave;
};

// The command editor.
class SnippetEditorView final : public EditorView {
public:
    SnippetEditorView(CommandSnippet snippet, std::function<void()> onCancel,
                      std::function<void(const CommandSnippet&)> onSave);

    CommandSnippet snippet;

    [[nodiscard]] std::string_view editorTitle() const override;

private:
    [[nodiscard]] std::optional<Problem> problem() const override;
    void handBack() override { m_onSave(snippet); }

    std::function<void(const CommandSnippet&)> m_onSave;
};

} // namespace korvan
