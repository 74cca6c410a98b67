// SPDX-License-Identifier: MIT
#include "ui/main/AlertSheet.h"

#include "ui/style/Accessibility.h"
#include "ui/style/Controls.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QWheelEvent>
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
constexpr int kRingRoom = 6;   // between the message and its ring of focus, the ring included
constexpr int kBarSpacing = 8; // between the message and its scroll bar

Label* makeHeading(const QString& title) {
    auto* heading = new Label(title, TextStyle::headline);
    heading->setWordWrap(true); // where texts are large
    heading->setContentsMargins(kRingRoom, 0, kRingRoom, 0);
    return heading;
}

} // namespace

// The message. An editor and not a label, since it breaks lines inside of words, such as long
// paths, and scrolls. It scrolls by whole lines of one height, so that none is cut through.
class AlertText final : public QTextEdit {
public:
    explicit AlertText(const QString& name) {
        setReadOnly(true);
        setAccessibleName(name);
        viewport()->setAutoFillBackground(false);
        document()->setDocumentMargin(0);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
            verticalScrollBar()->setValue((value + m_line / 2) / m_line * m_line);
        });
    }

    void setMessage(const QString& message) {
        setPlainText(message);
        layOut();
    }

protected:
    void changeEvent(QEvent* event) override {
        QTextEdit::changeEvent(event);
        if (event->type() == QEvent::FontChange) layOut();
    }

    // Adds up the turns of devices that turn by less than a line at a time.
    void wheelEvent(QWheelEvent* event) override {
        constexpr int notch = 120;
        m_turned += event->angleDelta().y() * QApplication::wheelScrollLines();
        const int lines = m_turned / notch;
        m_turned -= lines * notch;
        verticalScrollBar()->setValue(verticalScrollBar()->value() - lines * m_line);
        event->accept();
    }

private:
    void layOut() {
        m_line = QFontMetrics(font()).lineSpacing();
        QTextBlockFormat lines;
        lines.setLineHeight(m_line, QTextBlockFormat::FixedHeight);
        QTextCursor all(document());
        all.select(QTextCursor::Document);
        all.mergeBlockFormat(lines);
        // Measures a copy: before it is shown, the editor breaks lines at a width of its own.
        const std::unique_ptr<QTextDocument> copy(document()->clone());
        copy->setTextWidth(kWidth - 2 * kPadding);
        const int needed = static_cast<int>(std::ceil(copy->size().height()));
        const int most = kMaximumMessageHeight / m_line * m_line;
        const bool scrolls = needed > most;
        const int inner = kRingRoom - frameWidth();
        setViewportMargins(inner, inner, scrolls ? kBarSpacing : inner, inner);
        setFixedHeight(std::min(needed, most) + 2 * kRingRoom);
        verticalScrollBar()->setSingleStep(m_line);
        // A stop for the Tab key only where there is something to scroll.
        setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::ClickFocus);
    }

    int m_line = 1;   // height of a line
    int m_turned = 0; // by the wheel, less than a line
};

AlertSheet::AlertSheet(const QString& title, const QString& message,
                       const std::vector<Button>& buttons, QWidget* parent)
    : QDialog(parent), m_message(new AlertText(title)) {
    setSheetTitle(*this, title);
    auto* stack = new QVBoxLayout(this);
    stack->setSizeConstraint(QLayout::SetFixedSize);
    // The message is wider than the others by the room for its ring.
    constexpr int side = kPadding - kRingRoom;
    stack->setContentsMargins(side, kPadding, side, kPadding);
    stack->setSpacing(0);
    stack->addStrut(kWidth - 2 * side);
    stack->addWidget(makeHeading(title));
    stack->addSpacing(kTitleSpacing - kRingRoom);
    setMessage(message);
    stack->addWidget(m_message);
    stack->addSpacing(kButtonRowSpacing - kRingRoom);
    addButtons(*stack, buttons);
}

void AlertSheet::addButtons(QBoxLayout& stack, const std::vector<Button>& buttons) {
    auto* row = new QHBoxLayout;
    stack.addLayout(row);
    row->setContentsMargins(kRingRoom, 0, kRingRoom, 0);
    row->setSpacing(kButtonSpacing);
    row->addStretch();
    QPushButton* defaultButton = nullptr;
    for (const Button& each : buttons) {
        QPushButton* button = makeButton(each);
        row->addWidget(button);
        if (each.role == Role::cancel || (each.role == Role::standard && !defaultButton))
            defaultButton = button;
    }
    if (!defaultButton) return;
    defaultButton->setDefault(true);
    defaultButton->setFocus();
}

QPushButton* AlertSheet::makeButton(const Button& description) {
    const auto& [label, role] = description;
    QPushButton* button =
        role == Role::destructive ? makeDestructiveButton(label) : new QPushButton(label);
    button->setAutoDefault(false);
    button->setMinimumWidth(kMinimumButtonWidth);
    button->installEventFilter(this);
    const DialogCode result = role == Role::cancel ? Rejected : Accepted;
    connect(button, &QPushButton::clicked, this, [this, result] { done(result); });
    return button;
}

void AlertSheet::setMessage(const QString& message) {
    if (accessibleDescription() == message && !m_message->document()->isEmpty()) return;
    setAccessibleDescription(message); // read out when the alert opens
    m_message->setMessage(message);
}

// On some desktops Return presses the button that has the focus. Here it goes to the dialog, which
// presses the default button.
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
