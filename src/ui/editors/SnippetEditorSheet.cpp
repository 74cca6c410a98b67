// SPDX-License-Identifier: MIT
#include "ui/editors/SnippetEditorSheet.h"

#include "desktop/QtText.h"
#include "ui/style/Controls.h"
#include "ui/style/Drawing.h"

#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <utility>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 680;
constexpr int kPadding = 16;
constexpr int kTemplateSpacing = 6;
constexpr int kTemplateHeight = 120;
constexpr int kFrameRadius = 8;
constexpr float kFrameOpacity = 0.25F;

// The rounded frame around the template editor. Like the frame of a line edit, it shows whether the
// editor has the focus, and whether its content is invalid.
class TemplateFrame final : public QWidget {
public:
    explicit TemplateFrame(QWidget* content) : m_content(content) {
        content->installEventFilter(this);
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(4, 4, 4, 4); // keeps the text clear of the corners
        layout->addWidget(content);
    }

    bool eventFilter(QObject* content, QEvent* event) override {
        const auto type = event->type();
        if (type == QEvent::FocusIn || type == QEvent::FocusOut ||
            type == QEvent::DynamicPropertyChange)
            update();
        return QWidget::eventFilter(content, event);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        // As thick as the line around every other field.
        const double width = lineWidth(painter, m_content->hasFocus() ? 2 : 1);
        painter.setPen(QPen(lineColor(), width));
        painter.setBrush(palette().base());
        const double inset = width / 2;
        painter.drawPath(
            smoothRectangle(onPixels(painter, rect()).adjusted(inset, inset, -inset, -inset),
                            kFrameRadius - inset));
    }

private:
    [[nodiscard]] QColor lineColor() const {
        if (isInvalid(m_content)) return colorFor(SemanticColor::red, palette());
        if (m_content->hasFocus()) return colorFor(SemanticColor::focus, palette());
        QColor color = colorFor(SemanticColor::secondary, palette());
        if (!isHighContrast(palette())) color.setAlphaF(kFrameOpacity);
        return color;
    }

    QWidget* m_content;
};

// The text of a document, with "\n" as line breaks. Unlike toPlainText, keeps no-break spaces.
QString textOf(const QTextDocument& document) {
    QString text = document.toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    text.replace(QChar::LineSeparator, u'\n');
    return text;
}

} // namespace

SnippetEditorSheet::SnippetEditorSheet(std::unique_ptr<SnippetEditorView> state, QWidget* parent)
    : EditorSheet(*state, kWidth, kPadding, parent), m_state(std::move(state)) {
    const QString titleLabel = u"Titel"_s;
    QLineEdit* title = makeTextField(titleLabel, m_state->snippet.title);
    addRow(titleLabel, title);
    setWidget(EditorField::title, title);
    const QString hintLabel = u"Hinweis (optional)"_s;
    addRow(hintLabel, makeTextField(hintLabel, m_state->snippet.hint));

    const QString templateLabel = u"Befehl (Template)"_s;
    auto* block = new QVBoxLayout;
    block->setSpacing(kTemplateSpacing);
    block->addWidget(new Label(templateLabel, TextStyle::subheadline, SemanticColor::secondary));
    block->addWidget(new TemplateFrame(makeTemplateEditor(templateLabel)));
    block->addWidget(new Label(u"Platzhalter: {HOST} {USER} {PORT} {TARGET}"_s, TextStyle::caption,
                               SemanticColor::secondary));
    addWideRow(block);
    complete(title);
}

QPlainTextEdit* SnippetEditorSheet::makeTemplateEditor(const QString& label) {
    auto* editor = new QPlainTextEdit;
    editor->setAccessibleName(label);
    setTextStyle(*editor, TextStyle::body, FontDesign::monospaced);
    editor->setFrameShape(QFrame::NoFrame);
    editor->setFixedHeight(kTemplateHeight);
    editor->setTabChangesFocus(true);
    editor->setPlainText(toQString(m_state->snippet.commandTemplate));
    // The document changes line breaks. While it shows the text that it was given, also after an
    // undo, the template stays as it was, byte by byte.
    connect(editor, &QPlainTextEdit::textChanged, this,
            [this, editor, shown = textOf(*editor->document()),
             given = m_state->snippet.commandTemplate] {
                const QString text = textOf(*editor->document());
                m_state->snippet.commandTemplate = text == shown ? given : fromQString(text);
                fieldEdited(editor);
            });
    setWidget(EditorField::commandTemplate, editor);
    return editor;
}

} // namespace korvan
