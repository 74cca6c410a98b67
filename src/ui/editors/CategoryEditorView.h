// SPDX-License-Identifier: MIT
#pragma once

#include "model/SSHCategory.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace korvan {

// One opening of the category editor, on the same pattern as ProfileEditorView.
class CategoryEditorView final {
public:
    CategoryEditorView(SSHCategory category, std::function<void()> onCancel,
                       std::function<void(const SSHCategory&)> onSave);

    SSHCategory category;
    std::optional<std::string> validationError;

    [[nodiscard]] std::string_view editorTitle() const;

    bool validate();
    void commit();
    void cancel() { m_onCancel(); }

private:
    std::function<void()> m_onCancel;
    std::function<void(const SSHCategory&)> m_onSave;
};

} // namespace korvan
