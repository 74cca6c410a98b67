// SPDX-License-Identifier: MIT
#include "ui/editors/SnippetEditorView.h"

#include "model/Text.h"

#include <utility>

namespace korvan {

SnippetEditorView::SnippetEditorView(CommandSnippet draft, std::function<void()> onCancel,
                                     std::function<void(const CommandSnippet&)> onSave)
    : snippet(std::move(draft)), m_onCancel(std::move(onCancel)), m_onSave(std::move(onSave)) {}

std::string_view SnippetEditorView::editorTitle() const {
    return isBlank(snippet.title) ? "Neuer Befehl" : "Befehl bearbeiten";
}

bool SnippetEditorView::validate() {
    validationError = std::nullopt;
    if (isBlank(snippet.title))
        validationError = "Bitte einen Titel angeben.";
    else if (isBlank(snippet.commandTemplate))
        validationError = "Bitte einen Befehl angeben.";
    return !validationError;
}

void SnippetEditorView::commit() {
    if (!validate()) return;
    if (const auto onSave = std::exchange(m_onSave, nullptr)) onSave(snippet);
}

} // namespace korvan
