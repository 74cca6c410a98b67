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

} // namespace

// The message. An editor instead of a label: it breaks lines inside of words, such as long paths,
// and scrolls. By whole lines, all of one height, so that none is ever cut through.
class AlertText final : public QTextEdit {
public:
    explicit AlertText(const QString& name) {
        setReadOnly(true);
        setAccessibleName(name);
        viewport()->setAutoFillBackground(false);
        document()->setDocumentMargin(0);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
            verticalScrollBar()->setValue(qRound(double(value) / m_line) * m_line);
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

    // Some devices turn by less than a line at a time.
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
        // Measured in a copy: before it is shown, the editor breaks its lines at a width of its
        // own.
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

    int m_line = 1;   // the height of each
    int m_turned = 0; // of the wheel, what is not a line yet
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
    auto* heading = new Label(title, TextStyle::headline);
    heading->setWordWrap(true); // where texts are large
    heading->setContentsMargins(kRingRoom, 0, kRingRoom, 0);
    stack->addWidget(heading);
    stack->addSpacing(kTitleSpacing - kRingRoom);
    setMessage(message);
    stack->addWidget(m_message);
    stack->addSpacing(kButtonRowSpacing - kRingRoom);

    auto* row = new QHBoxLayout;
    row->setContentsMargins(kRingRoom, 0, kRingRoom, 0);
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
    m_message->setMessage(message);
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
