// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace korvan {

// One opening of the command editor, on the same pattern as ProfileEditorView.
class SnippetEditorView final {
public:
    SnippetEditorView(CommandSnippet snippet, std::function<void()> onCancel,
                      std::function<void(const CommandSnippet&)> onSave);

    CommandSnippet snippet;
    std::optional<std::string> validationError;

    [[nodiscard]] std::string_view editorTitle() const;

    bool validate();
    void commit();
    void cancel() { m_onCancel(); }

private:
    std::function<void()> m_onCancel;
    std::function<void(const CommandSnippet&)> m_onSave;
};

} // namespace korvan
