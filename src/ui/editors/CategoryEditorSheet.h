// SPDX-License-Identifier: MIT
#pragma once

#include "ui/editors/CategoryEditorView.h"
#include "ui/editors/EditorSheet.h"

namespace korvan {

// Draws a CategoryEditorView, which it owns.
class CategoryEditorSheet final : public EditorSheet {
    Q_OBJECT

public:
    CategoryEditorSheet(CategoryEditorView view, QWidget* parent);

private:
    [[nodiscard]] std::string_view editorTitle() const override { return m_view.editorTitle(); }
    [[nodiscard]] Validation& validation() override { return m_view; }
    void commit() override { m_view.commit(); }
    void cancel() override { m_view.cancel(); }

    CategoryEditorView m_view;
};

} // namespace korvan
