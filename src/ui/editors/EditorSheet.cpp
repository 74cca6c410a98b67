// SPDX-License-Identifier: MIT
#include "ui/editors/EditorSheet.h"

#include "desktop/QtText.h"
#include "ui/style/Accessibility.h"
#include "ui/style/Controls.h"

#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>
#include <limits>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kStackSpacing = 14;
constexpr int kRowSpacing = 10;
constexpr int kLabelSpacing = 12;

} // namespace

EditorSheet::EditorSheet(EditorView& editor, int width, int padding, QWidget* parent)
    : QDialog(parent), m_editor(editor), m_stack(new QVBoxLayout(this)),
      m_title(new Label(QString(), TextStyle::title2)), m_form(new QFormLayout),
      m_message(new Label(QString(), TextStyle::callout, SemanticColor::red)) {
    // The layout sets the size in one step whenever the content changes. The strut sets the width.
    m_stack->setSizeConstraint(QLayout::SetFixedSize);
    m_stack->setContentsMargins(padding, padding, padding, padding);
    m_stack->setSpacing(kStackSpacing);
    m_stack->addStrut(width - 2 * padding);

    m_stack->addWidget(m_title);
    m_form->setContentsMargins(0, 0, 0, 0);
    m_form->setVerticalSpacing(kRowSpacing);
    m_form->setHorizontalSpacing(kLabelSpacing);
    m_form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_stack->addLayout(m_form);
}

void EditorSheet::addRow(const QString& label, QWidget* field, QLayout* row) {
    auto* rowLabel = new QLabel(label);
    rowLabel->setBuddy(field); // a combo box names only its choice, not what it is for
    // As high as its row. The form layout puts a lower label a little above the middle.
    rowLabel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    if (row)
        m_form->addRow(rowLabel, row);
    else
        m_form->addRow(rowLabel, field);
}

void EditorSheet::addWideRow(QLayout* content) { m_form->addRow(content); }

void EditorSheet::complete(QWidget* firstField) {
    makeAnnouncer(*m_message);
    m_message->hide();
    m_stack->addWidget(m_message);

    auto* buttons = new QHBoxLayout;
    m_cancelButton = new QPushButton(u"Abbrechen"_s);
    m_saveButton = new QPushButton(u"Speichern"_s);
    connect(m_cancelButton, &QPushButton::clicked, this, &EditorSheet::reject);
    connect(m_saveButton, &QPushButton::clicked, this, &EditorSheet::save);
    buttons->addWidget(m_cancelButton);
    buttons->addStretch();
    buttons->addWidget(m_saveButton);
    m_stack->addLayout(buttons);

    // A large font must not widen the sheet.
    for (auto* field : findChildren<QLineEdit*>())
        field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    // Otherwise a button that has the focus becomes the default one.
    for (auto* button : findChildren<QPushButton*>())
        button->setAutoDefault(button == m_saveButton);
    m_saveButton->setDefault(true);
    for (auto* widget : findChildren<QWidget*>())
        if (qobject_cast<QAbstractButton*>(widget) || qobject_cast<QComboBox*>(widget) ||
            qobject_cast<QLineEdit*>(widget))
            widget->installEventFilter(this);

    firstField->setFocus();
    refresh();
}

QLineEdit* EditorSheet::makeTextField(const QString& label, std::string& value) {
    auto* field = new QLineEdit;
    field->setAccessibleName(label);
    field->setMaxLength(std::numeric_limits<int>::max());
    field->setText(toQString(value));
    // Connected last, so that only the user's changes are taken over. textEdited would miss those
    // that come from assistive tools.
    connect(field, &QLineEdit::textChanged, this, [this, field, &value](const QString& text) {
        value = fromQString(text);
        fieldEdited(field);
        refresh();
    });
    return field;
}

void EditorSheet::setWidget(EditorField field, QWidget* widget) {
    m_fields.emplace_back(field, widget);
}

void EditorSheet::fieldEdited(const QWidget* widget) {
    for (const auto& [field, its] : m_fields)
        if (its == widget) m_editor.fieldEdited(field);
    markInvalidField();
}

void EditorSheet::refresh() {
    const QString title = toQString(m_editor.editorTitle());
    if (m_title->text() != title) {
        setSheetTitle(*this, title);
        m_title->setText(title);
    }
    const QString message = toQString(m_editor.validationError.value_or(""));
    if (m_message->text() != message) {
        m_message->setText(message);
        m_message->setAccessibleName(message);
        m_message->setVisible(!message.isEmpty());
    }
    markInvalidField();
}

// The message becomes the field's description, so that a screen reader speaks it there.
void EditorSheet::markInvalidField() {
    for (const auto& [field, widget] : m_fields) {
        const bool isMarked = m_editor.invalidField == field;
        if (isInvalid(widget) == isMarked) continue;
        setInvalid(*widget, isMarked);
        widget->setAccessibleDescription(isMarked ? m_message->text() : QString());
    }
}

void EditorSheet::goToInvalidField() {
    for (const auto& [field, widget] : m_fields)
        // As by the Tab key, which selects the content of a line edit.
        if (m_editor.invalidField == field) widget->setFocus(Qt::TabFocusReason);
}

void EditorSheet::save() {
    if (m_hasEnded) return;
    m_hasEnded = true; // before the callback, so that nothing is saved twice
    const bool wasShown = m_message->isVisible();
    m_editor.commit();
    refresh();
    m_hasEnded = !m_editor.validationError;
    if (m_hasEnded) return accept();
    if (wasShown) announce(*m_message, m_message->text()); // a new message is spoken anyway
    goToInvalidField();
}

// On some desktops Return presses the button that has the focus, and a picker takes it for the
// first letter of a choice.
bool EditorSheet::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto* press = static_cast<QKeyEvent*>(event);
    if (press->key() != Qt::Key_Return && press->key() != Qt::Key_Enter)
        return QDialog::eventFilter(watched, event);
    if (press->isAutoRepeat()) return true;
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (button && button != m_cancelButton && button != m_saveButton)
        button->click();
    else
        save();
    return true;
}

void EditorSheet::reject() {
    if (m_hasEnded) return;
    m_hasEnded = true;
    m_editor.cancel();
    QDialog::reject();
}

} // namespace korvan
