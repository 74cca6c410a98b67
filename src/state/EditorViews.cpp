// SPDX-License-Identifier: MIT
#include "state/EditorViews.h"

#include "model/Text.h"

#include <charconv>
#include <utility>

namespace korvan {

namespace {

constexpr std::int64_t kLowestPort = 1;
constexpr std::int64_t kHighestPort = 65535;

} // namespace

void EditorView::fieldEdited(EditorField field) {
    if (invalidField == field) invalidField.reset();
}

bool EditorView::validate() {
    const std::optional<Problem> found = problem();
    validationError = found ? std::optional(found->message) : std::nullopt;
    invalidField = found ? std::optional(found->field) : std::nullopt;
    return !found;
}

void EditorView::commit() {
    if (!validate() || m_isHandedBack) return;
    m_isHandedBack = true; // before the callback, which may lead back here
    handBack();
}

ProfileEditorView::ProfileEditorView(SSHProfile draft, std::vector<SSHCategory> categories,
                                     std::function<void()> onCancel,
                                     std::function<void(const SSHProfile&)> onSave)
    : EditorView(std::move(onCancel)), profile(std::move(draft)),
      m_categories(std::move(categories)), m_onSave(std::move(onSave)) {}

std::string_view ProfileEditorView::editorTitle() const {
    return isBlank(profile.name) ? "Neues SSH Profil" : "SSH Profil bearbeiten";
}

void ProfileEditorView::setPortText(std::string_view text) {
    const std::string_view digits = trimmed(text);
    const char* const begin = digits.data();
    const char* const end = begin + digits.size();
    std::int64_t port = 0;
    const auto result = std::from_chars(begin, end, port);
    profile.port = result.ec == std::errc() && result.ptr == end ? port : 0;
}

bool ProfileEditorView::chooseIdentityFile(FilePanels& filePanels) {
    const auto path = filePanels.runOpenPanel({"SSH Key auswählen", {}});
    if (!path) return false;
    profile.identityFile = path->string();
    return true;
}

std::optional<EditorView::Problem> ProfileEditorView::problem() const {
    if (isBlank(profile.name)) return Problem{EditorField::name, "Bitte einen Namen angeben."};
    if (isBlank(profile.host)) return Problem{EditorField::host, "Bitte IP/Host angeben."};
    if (isBlank(profile.user)) return Problem{EditorField::user, "Bitte Benutzername angeben."};
    if (profile.port < kLowestPort || profile.port > kHighestPort)
        return Problem{EditorField::port, "Port muss zwischen 1 und 65535 liegen."};
    return std::nullopt;
}

CategoryEditorView::CategoryEditorView(SSHCategory draft, std::function<void()> onCancel,
                                       std::function<void(const SSHCategory&)> onSave)
    : EditorView(std::move(onCancel)), category(std::move(draft)), m_onSave(std::move(onSave)) {}

std::string_view CategoryEditorView::editorTitle() const {
    return isBlank(category.name) ? "Neue Kategorie" : "Kategorie bearbeiten";
}

std::optional<EditorView::Problem> CategoryEditorView::problem() const {
    if (isBlank(category.name)) return Problem{EditorField::name, "Bitte einen Namen angeben."};
    return std::nullopt;
}

SnippetEditorView::SnippetEditorView(CommandSnippet draft, std::function<void()> onCancel,
                                     std::function<void(const CommandSnippet&)> onSave)
    : EditorView(std::move(onCancel)), snippet(std::move(draft)), m_onSave(std::move(onSave)) {}

std::string_view SnippetEditorView::editorTitle() const {
    return isBlank(snippet.title) ? "Neuer Befehl" : "Befehl bearbeiten";
}

std::optional<EditorView::Problem> SnippetEditorView::problem() const {
    if (isBlank(snippet.title)) return Problem{EditorField::title, "Bitte einen Titel angeben."};
    if (isBlank(snippet.commandTemplate))
        return Problem{EditorField::commandTemplate, "Bitte einen Befehl angeben."};
    return std::nullopt;
}

} // namespace korvan
