// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QString>
#include <vector>

class QBoxLayout;
class QPushButton;

namespace korvan {

class AlertText;

// A short message with a title and some buttons, in the order given.
//
// Return never destroys. Whichever button has the focus, it presses the cancel button or, where
// there is none, the first standard one. The dialog ends accepted by a button that does not cancel,
// and rejected in every other way.
class AlertSheet final : public QDialog {
    Q_OBJECT

public:
    enum class Role { standard, destructive, cancel };

    struct Button {
        QString label;
        Role role;
    };

    AlertSheet(const QString& title, const QString& message, const std::vector<Button>& buttons,
               QWidget* parent);

    // Shows `message` as plain text, whatever is in it. What is too long scrolls.
    void setMessage(const QString& message);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addButtons(QBoxLayout& stack, const std::vector<Button>& buttons);
    [[nodiscard]] QPushButton* makeButton(const Button& description);

    AlertText* m_message;
};

} // namespace korvan
