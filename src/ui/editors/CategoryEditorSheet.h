// SPDX-License-Identifier: MIT
#pragma once

#include "state/CategoryEditorView.h"
#include "ui/editors/EditorSheet.h"

namespace korvan {

// Draws a CategoryEditorView, which it owns.
class CategoryEditorSheet final : public EditorSheet {
    Q_OBJECT

public:
    CategoryEditorSheet(CategoryEditorView state, QWidget* parent);

private:
    [[nodiscard]] std::string_view editorTitle() const override { return m_state.editorTitle(); }
    [[nodiscard]] Validation& validation() override { return m_state; }
    void commit() override { m_state.commit(); }
    void cancel() override { m_state.cancel(); }

    CategoryEditorView m_state;
};

} // namespace korvan
