// SPDX-License-Identifier: MIT
#pragma once

#include "state/SnippetEditorView.h"
#include "ui/editors/EditorSheet.h"

class QBoxLayout;
class QPlainTextEdit;

namespace korvan {

// Draws a SnippetEditorView, which it owns.
class SnippetEditorSheet final : public EditorSheet {
    Q_OBJECT

public:
    SnippetEditorSheet(SnippetEditorView state, QWidget* parent);

private:
    [[nodiscard]] std::string_view editorTitle() const override { return m_state.editorTitle(); }
    [[nodiscard]] Validation& validation() override { return m_state; }
    void commit() override { m_state.commit(); }
    void cancel() override { m_state.cancel(); }

    QPlainTextEdit* makeTemplateEditor(const QString& label);

    SnippetEditorView m_state;
};

} // namespace korvan
