// SPDX-License-Identifier: MIT
#pragma once

#include "ui/editors/EditorSheet.h"

#include <memory>

namespace korvan {

// Draws a CategoryEditorView, which it owns.
class CategoryEditorSheet final : public EditorSheet {
    Q_OBJECT

public:
    CategoryEditorSheet(std::unique_ptr<CategoryEditorView> state, QWidget* parent);

private:
    std::unique_ptr<CategoryEditorView> m_state;
};

} // namespace korvan
