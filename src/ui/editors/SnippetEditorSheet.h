// SPDX-License-Identifier: MIT
#pragma once

#include "ui/editors/EditorSheet.h"
#include "ui/editors/SnippetEditorView.h"

class QBoxLayout;
class QPlainTextEdit;

namespace korvan {

// Draws a SnippetEditorView, which it owns.
class SnippetEditorSheet final : public EditorSheet {
    Q_OBJECT

public:
    SnippetEditorSheet(SnippetEditorView view, QWidget* parent);

private:
    [[nodiscard]] std::string_view editorTitle() const override { return m_view.editorTitle(); }
    [[nodiscard]] Validation& validation() override { return m_view; }
    void commit() override { m_view.commit(); }
    void cancel() override { m_view.cancel(); }

    QPlainTextEdit* makeTemplateEditor(const QString& label);

    SnippetEditorView m_view;
};

} // namespace korvan
