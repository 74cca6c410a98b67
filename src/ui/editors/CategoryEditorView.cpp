// SPDX-License-Identifier: MIT
#include "ui/editors/CategoryEditorView.h"

#include "model/Text.h"

#include <utility>

namespace korvan {

CategoryEditorView::CategoryEditorView(SSHCategory draft, std::function<void()> onCancel,
                                       std::function<void(const SSHCategory&)> onSave)
    : category(std::move(draft)), m_onCancel(std::move(onCancel)), m_onSave(std::move(onSave)) {}

std::string_view CategoryEditorView::editorTitle() const {
    return isBlank(category.name) ? "Neue Kategorie" : "Kategorie bearbeiten";
}

bool CategoryEditorView::validate() {
    validationError = std::nullopt;
    if (isBlank(category.name)) validationError = "Bitte einen Namen angeben.";
    return !validationError;
}

void CategoryEditorView::commit() {
    if (!validate()) return;
    if (const auto onSave = std::exchange(m_onSave, nullptr)) onSave(category);
}

} // namespace korvan
