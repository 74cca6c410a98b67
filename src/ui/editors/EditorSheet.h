// SPDX-License-Identifier: MIT
#pragma once

#include "state/EditorViews.h"

#include <QDialog>
#include <string>
#include <utility>
#include <vector>

class QFormLayout;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace korvan {

class Label;

// What the three editors have in common: a title that follows the typing, a form, the message of
// the last failed save, and the buttons. Escape cancels.
//
// Return saves wherever the focus is, even on the cancel button. There are two exceptions: a text
// of several lines takes Return as a line break, and a button that belongs to a field is pressed
// by it.
//
// A subclass owns the editor's state and makes its fields. The sheet closes itself once, after a
// successful save or after cancelling. The callbacks of the state must not delete the sheet at
// once.
class EditorSheet : public QDialog {
    Q_OBJECT

public:
    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    // `editor` is the subclass's state and must live as long as the sheet. `width` and `padding`
    // are in logical pixels; the padding on all four sides is part of the width. The height follows
    // from the content.
    EditorSheet(EditorView& editor, int width, int padding, QWidget* parent);

    // Add the rows in reading order, then call `complete` once. The sheet owns all that is added.
    //
    // Where other controls stand beside a row's field, `row` holds them and the field.
    void addRow(const QString& label, QWidget* field, QLayout* row = nullptr);
    // A row without a label.
    void addWideRow(QLayout* content);
    // Adds the message and the buttons, and gives `firstField` the focus.
    void complete(QWidget* firstField);

    // A field that writes what is typed into `value`, which must live as long as the sheet. A value
    // that the user does not change stays as it is, byte by byte.
    [[nodiscard]] QLineEdit* makeTextField(const QString& label, std::string& value);

    // Gives `widget` the focus and a red border when a save fails for `field`. Unless the widget is
    // made by makeTextField, the subclass reports its changes by fieldEdited.
    void setWidget(EditorField field, QWidget* widget);

    // The user has changed the content of `widget`.
    void fieldEdited(const QWidget* widget);

    // Shows the state. Touches only what differs.
    virtual void refresh();

private:
    void save();
    void markInvalidField();
    void goToInvalidField();

    EditorView& m_editor;
    QVBoxLayout* m_stack;
    Label* m_title;
    QFormLayout* m_form;
    Label* m_message;
    QPushButton* m_cancelButton = nullptr;
    QPushButton* m_saveButton = nullptr;
    std::vector<std::pair<EditorField, QWidget*>> m_fields;
    bool m_hasEnded = false;
};

} // namespace korvan
