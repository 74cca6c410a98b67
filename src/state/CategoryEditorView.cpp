// SPDX-License-Identifier: MIT
#include "state/CategoryEditorView.h"

#include "model/Text.h"

namespace korvan {

CategoryEditorView::CategoryEditorView(SSHCategory draft, std::function<void()> onCancel,
                                       std::function<void(const SSHCategory&)> onSave)
    : RecordEditor(std::move(onCancel), std::move(onSave)), category(std::move(draft)) {}

std::string_view CategoryEditorView::editorTitle() const {
    return isBlank(category.name) ? "Neue Kategorie" : "Kategorie bearbeiten";
}

std::optional<CategoryEditorView::Problem> CategoryEditorView::problem() const {
    if (isBlank(category.name)) return Problem{EditorField::name, "Bitte einen Namen angeben."};
    return std::nullopt;
}

} // namespace korvan
