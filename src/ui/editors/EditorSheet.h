// SPDX-License-Identifier: MIT
#pragma once

#include "state/Validation.h"

#include <QDialog>
#include <QString>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class QBoxLayout;
class QFormLayout;
class QLineEdit;
class QPushButton;

namespace korvan {

class Label;

// What the three editors have in common: a title that follows the typing, a form, the message of
// the last failed save, and the buttons. Escape cancels.
//
// Return saves wherever the keyboard is, be it on the button that cancels. Only a text of several
// lines takes it for itself, and a button that belongs to a field is pressed by it.
//
// A subclass owns the editor's state and draws its fields; this class shows the rest of it. The
// sheet closes itself once, after exactly one of commit (successful) and cancel. What those call
// must not delete the sheet at once.
class EditorSheet : public QDialog {
    Q_OBJECT

public:
    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    // `padding` on all four sides is part of `width`; the height follows from the content.
    EditorSheet(int width, int padding, QWidget* parent);

    // Rows come in reading order, and then `complete` once.
    // Where other controls stand beside a row's field, `row` holds them all.
    void addRow(const QString& label, QWidget* field, QLayout* row = nullptr);
    void addWideRow(QLayout* content);
    void complete(QWidget* firstField);

    // A field that writes what is typed into `value`, which must live as long as the sheet. A text
    // that was not changed stays as it is, to the byte.
    [[nodiscard]] QLineEdit* makeTextField(const QString& label, std::string& value);

    // Where the user is led when a save fails for `field`. The caller tells of its changes by
    // fieldEdited, unless it is one of makeTextField.
    void setWidget(EditorField field, QWidget* widget);

    // The user has changed the content of `widget`.
    void fieldEdited(const QWidget* widget);

    // Draws the state. Touches only what differs.
    virtual void refresh();

private:
    [[nodiscard]] virtual std::string_view editorTitle() const = 0;
    [[nodiscard]] virtual Validation& validation() = 0;
    virtual void commit() = 0;
    virtual void cancel() = 0;

    void save();
    void markInvalidField();
    void goToInvalidField();

    QBoxLayout* m_stack;
    Label* m_title;
    QFormLayout* m_form;
    Label* m_message;
    QPushButton* m_cancelButton = nullptr;
    QPushButton* m_saveButton = nullptr;
    std::vector<std::pair<EditorField, QWidget*>> m_fields;
    bool m_hasEnded = false;
};

} // namespace korvan
