// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QString>
#include <vector>

namespace korvan {

class AlertText;

// A short message with a title and some buttons, in the order given.
//
// Return never destroys: it presses the cancel button, or the only one where there is none,
// whichever button has the focus. Ends accepted by a button other than the cancel one, and rejected
// in every other way.
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
    AlertText* m_message;
};

} // namespace korvan
