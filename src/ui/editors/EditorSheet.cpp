// SPDX-License-Identifier: MIT
#include "ui/editors/EditorSheet.h"

#include "platform/desktop/QtText.h"
#include "ui/style/Controls.h"
#include "ui/style/Notice.h"

#include <QFormLayout>
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
    makeNotice(*m_message);
    m_message->hide();
    m_stack->addWidget(m_message);

    auto* buttons = new QHBoxLayout;
    auto* cancelButton = new QPushButton(QStringLiteral("Abbrechen"));
    auto* saveButton = new QPushButton(QStringLiteral("Speichern"));
    saveButton->setDefault(true);
    connect(cancelButton, &QPushButton::clicked, this, &EditorSheet::reject);
    connect(saveButton, &QPushButton::clicked, this, &EditorSheet::save);
    buttons->addWidget(cancelButton);
    buttons->addStretch();
    buttons->addWidget(saveButton);
    m_stack->addLayout(buttons);

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
    connect(field, &QLineEdit::textChanged, this, [this, &value](const QString& text) {
        value = fromQString(text);
        refresh();
    });
    return field;
}

void EditorSheet::refresh() {
    const QString title = toQString(editorTitle());
    if (windowTitle() != title) {
        setWindowTitle(title);
        m_title->setText(title);
    }
    const QString message = toQString(validationError().value_or(""));
    if (m_message->text() != message) {
        m_message->setText(message);
        m_message->setAccessibleName(message);
        m_message->setVisible(!message.isEmpty());
    }
}

void EditorSheet::save() {
    if (m_hasEnded) return;
    m_hasEnded = true; // before the callback: whatever it does, nothing is saved a second time
    const bool wasShown = m_message->isVisible();
    commit();
    refresh();
    m_hasEnded = !validationError();
    if (m_hasEnded) return accept();
    if (wasShown) announce(*m_message, m_message->text()); // it speaks for itself when it comes
}

void EditorSheet::reject() {
    if (m_hasEnded) return;
    m_hasEnded = true;
    cancel();
    QDialog::reject();
}

} // namespace korvan
