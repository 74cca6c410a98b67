// SPDX-License-Identifier: MIT
#include "ui/editors/CategoryEditorSheet.h"

#include <QLineEdit>
#include <utility>

namespace korvan {

namespace {

constexpr int kWidth = 520;
constexpr int kPadding = 22;

} // namespace

CategoryEditorSheet::CategoryEditorSheet(CategoryEditorView state, QWidget* parent)
    : EditorSheet(kWidth, kPadding, parent), m_state(std::move(state)) {
    const QString label = QStringLiteral("Name");
    QLineEdit* name = makeTextField(label, m_state.category.name);
    addRow(label, name);
    setWidget(EditorField::name, name);
    complete(name);
}

} // namespace korvan
