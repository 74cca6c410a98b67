// SPDX-License-Identifier: MIT
#include "ui/editors/CategoryEditorSheet.h"

#include <QLineEdit>
#include <utility>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 520;
constexpr int kPadding = 22;

} // namespace

CategoryEditorSheet::CategoryEditorSheet(std::unique_ptr<CategoryEditorView> state, QWidget* parent)
    : EditorSheet(*state, kWidth, kPadding, parent), m_state(std::move(state)) {
    const QString label = u"Name"_s;
    QLineEdit* name = makeTextField(label, m_state->category.name);
    addRow(label, name);
    setWidget(EditorField::name, name);
    complete(name);
}

} // namespace korvan
