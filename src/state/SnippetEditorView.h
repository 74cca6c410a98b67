// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"
#include "state/RecordEditor.h"

#include <string_view>

namespace korvan {

// One opening of the command editor.
class SnippetEditorView final : public RecordEditor<CommandSnippet> {
public:
    SnippetEditorView(CommandSnippet snippet, std::function<void()> onCancel,
                      std::function<void(const CommandSnippet&)> onSave);

    CommandSnippet snippet;

    [[nodiscard]] std::string_view editorTitle() const;

private:
    [[nodiscard]] const CommandSnippet& record() const override { return snippet; }
    [[nodiscard]] std::optional<Problem> problem() const override;
};

} // namespace korvan
