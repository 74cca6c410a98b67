// SPDX-License-Identifier: MIT
#pragma once

#include "ui/editors/EditorSheet.h"

#include <memory>

class QPlainTextEdit;

namespace korvan {

// Draws a SnippetEditorView, which it owns.
class SnippetEditorSheet final : public EditorSheet {
    Q_OBJECT

public:
    SnippetEditorSheet(std::unique_ptr<SnippetEditorView> state, QWidget* parent);

private:
    QPlainTextEdit* makeTemplateEditor(const QString& label);

    std::unique_ptr<SnippetEditorView> m_state;
};

} // namespace korvan
