// SPDX-License-Identifier: MIT
#include "ui/main/AlertSheet.h"

#include "ui/style/Controls.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTextDocument>
#include <QTextEdit>
#include <algorithm>
#include <cmath>
#include <memory>

namespace korvan {

namespace {

constexpr int kWidth = 420;
constexpr int kPadding = 22;
constexpr int kTitleSpacing = 8;
constexpr int kButtonRowSpacing = 20;
constexpr int kButtonSpacing = 10;
constexpr int kMinimumButtonWidth = 96;
constexpr int kMaximumMessageHeight = 260;

} // namespace

AlertSheet::AlertSheet(const QString& title, const QString& message,
                       const std::vector<Button>& buttons, QWidget* parent)
    : QDialog(parent), m_message(new QTextEdit) {
    setWindowTitle(title);
    auto* stack = new QVBoxLayout(this);
    stack->setSizeConstraint(QLayout::SetFixedSize);
    stack->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    stack->setSpacing(0);
    stack->addStrut(kWidth - 2 * kPadding);
    stack->addWidget(new Label(title, TextStyle::headline));
    stack->addSpacing(kTitleSpacing);

    // An editor instead of a label: it breaks lines inside of words, such as long paths, and
    // scrolls.
    m_message->setReadOnly(true);
    m_message->setAccessibleName(title);
    m_message->setFrameShape(QFrame::NoFrame);
    m_message->viewport()->setAutoFillBackground(false);
    m_message->document()->setDocumentMargin(0);
    m_message->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMessage(message);
    stack->addWidget(m_message);
    stack->addSpacing(kButtonRowSpacing);

    auto* row = new QHBoxLayout;
    row->setSpacing(kButtonSpacing);
    row->addStretch();
    QPushButton* defaultButton = nullptr;
    for (const Button& each : buttons) {
        QPushButton* button = each.role == Role::destructive ? makeDestructiveButton(each.label)
                                                             : new QPushButton(each.label);
        button->setAutoDefault(false);
        button->setMinimumWidth(kMinimumButtonWidth);
        button->installEventFilter(this);
        const bool accepts = each.role != Role::cancel;
        connect(button, &QPushButton::clicked, this,
                [this, accepts] { done(accepts ? Accepted : Rejected); });
        if (each.role == Role::cancel || (each.role == Role::standard && !defaultButton))
            defaultButton = button;
        row->addWidget(button);
    }
    stack->addLayout(row);
    if (defaultButton) {
        defaultButton->setDefault(true);
        defaultButton->setFocus();
    }
}

void AlertSheet::setMessage(const QString& message) {
    if (accessibleDescription() == message && !m_message->document()->isEmpty()) return;
    setAccessibleDescription(message); // read out when the alert opens
    m_message->setPlainText(message);
    // Measured in a copy: before it is shown, the editor breaks its lines at a width of its own.
    const std::unique_ptr<QTextDocument> copy(m_message->document()->clone());
    copy->setTextWidth(kWidth - 2 * kPadding);
    const int height = static_cast<int>(std::ceil(copy->size().height()));
    m_message->setFixedHeight(std::min(height, kMaximumMessageHeight));
    // A stop for the Tab key only where there is something to scroll.
    m_message->setFocusPolicy(height > kMaximumMessageHeight ? Qt::StrongFocus : Qt::ClickFocus);
}

// Some desktops let Return press the button that has the focus. Here it goes to the dialog, which
// presses the default one.
bool AlertSheet::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            event->ignore();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace korvan
