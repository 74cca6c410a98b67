// SPDX-License-Identifier: MIT
#include "state/SnippetEditorView.h"

#include "model/Text.h"

namespace korvan {

SnippetEditorView::SnippetEditorView(CommandSnippet draft, std::function<void()> onCancel,
                                     std::function<void(const CommandSnippet&)> onSave)
    : RecordEditor(std::move(onCancel), std::move(onSave)), snippet(std::move(draft)) {}

std::string_view SnippetEditorView::editorTitle() const {
    return isBlank(snippet.title) ? "Neuer Befehl" : "Befehl bearbeiten";
}

std::optional<SnippetEditorView::Problem> SnippetEditorView::problem() const {
    if (isBlank(snippet.title)) return Problem{EditorField::title, "Bitte einen Titel angeben."};
    if (isBlank(snippet.commandTemplate))
        return Problem{EditorField::commandTemplate, "Bitte einen Befehl angeben."};
    return std::nullopt;
}

} // namespace korvan
