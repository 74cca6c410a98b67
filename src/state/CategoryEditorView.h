// SPDX-License-Identifier: MIT
#pragma once

#include "model/SSHCategory.h"
#include "state/RecordEditor.h"

#include <string_view>

namespace korvan {

// One opening of the category editor.
class CategoryEditorView final : public RecordEditor<SSHCategory> {
public:
    CategoryEditorView(SSHCategory category, std::function<void()> onCancel,
                       std::function<void(const SSHCategory&)> onSave);

    SSHCategory category;

    [[nodiscard]] std::string_view editorTitle() const;

private:
    [[nodiscard]] const SSHCategory& record() const override { return category; }
    [[nodiscard]] std::optional<Problem> problem() const override;
};

} // namespace korvan
