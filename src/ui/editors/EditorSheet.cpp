// SPDX-License-Identifier: MIT
#include "ui/editors/EditorSheet.h"

#include "desktop/QtText.h"
#include "ui/style/Accessibility.h"
#include "ui/style/Controls.h"

#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <limits>

namespace korvan {

namespace {

constexpr int kStackSpacing = 14;
constexpr int kRowSpacing = 10;
constexpr int kLabelSpacing = 12;

} // namespace

EditorSheet::EditorSheet(int width, int padding, QWidget* parent)
    : QDialog(parent), m_stack(new QVBoxLayout(this)),
      m_title(new Label(QString(), TextStyle::title2)), m_form(new QFormLayout),
      m_message(new Label(QString(), TextStyle::callout, SemanticColor::red)) {
    // The layout sets the size, in one step, whenever the content changes; the strut is its width.
    m_stack->setSizeConstraint(QLayout::SetFixedSize);
    m_stack->setContentsMargins(padding, padding, padding, padding);
    m_stack->setSpacing(kStackSpacing);
    static_cast<QVBoxLayout*>(m_stack)->addStrut(width - 2 * padding);

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
    rowLabel->setBuddy(field); // a picker's accessible name is its choice: this tells what it is
    // As high as its row: a form layout would put a lower label a little above the middle.
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
    m_cancelButton = new QPushButton(QStringLiteral("Abbrechen"));
    m_saveButton = new QPushButton(QStringLiteral("Speichern"));
    connect(m_cancelButton, &QPushButton::clicked, this, &EditorSheet::reject);
    connect(m_saveButton, &QPushButton::clicked, this, &EditorSheet::save);
    buttons->addWidget(m_cancelButton);
    buttons->addStretch();
    buttons->addWidget(m_saveButton);
    m_stack->addLayout(buttons);

    // A large font asks for wider fields, but is no reason for a wider sheet.
    for (auto* field : findChildren<QLineEdit*>())
        field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    // Another button with the focus would be the default one otherwise.
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
    // Connected only now: nothing but the user changes the text from here on, be it by keyboard or
    // by an assistive tool, of which textEdited would not know.
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
        if (its == widget) validation().fieldEdited(field);
    markInvalidField();
}

void EditorSheet::refresh() {
    const QString title = toQString(editorTitle());
    if (m_title->text() != title) {
        setSheetTitle(*this, title);
        m_title->setText(title);
    }
    const QString message = toQString(validation().validationError.value_or(""));
    if (m_message->text() != message) {
        m_message->setText(message);
        m_message->setAccessibleName(message);
        m_message->setVisible(!message.isEmpty());
    }
    markInvalidField();
}

// A screen reader that comes to the field tells what is wrong with it.
void EditorSheet::markInvalidField() {
    const Validation& state = validation();
    for (const auto& [field, widget] : m_fields) {
        const bool isMarked = state.invalidField == field;
        if (isInvalid(widget) == isMarked) continue;
        setInvalid(*widget, isMarked);
        widget->setAccessibleDescription(isMarked ? m_message->text() : QString());
    }
}

void EditorSheet::goToInvalidField() {
    for (const auto& [field, widget] : m_fields)
        // As if the Tab key led there: what is in a field of one line is ready to be replaced.
        if (validation().invalidField == field) widget->setFocus(Qt::TabFocusReason);
}

void EditorSheet::save() {
    if (m_hasEnded) return;
    m_hasEnded = true; // before the callback: whatever it does, nothing is saved a second time
    const bool wasShown = m_message->isVisible();
    commit();
    refresh();
    m_hasEnded = !validation().validationError;
    if (m_hasEnded) return accept();
    if (wasShown) announce(*m_message, m_message->text()); // it speaks for itself when it comes
    goToInvalidField();
}

// Some desktops let Return press the button that has the focus, and a picker would take it for the
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
    cancel();
    QDialog::reject();
}

} // namespace korvan
