// SPDX-License-Identifier: MIT
#include "ui/main/SnippetRow.h"

#include "platform/desktop/QtText.h"
#include "ui/style/Controls.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLineSpacing = 6;
constexpr int kPadding = 4; // above and below
constexpr int kInset = 8;   // to the left and right
constexpr int kButtonSize = 24;
constexpr int kButtonSpacing = 4;
constexpr int kMostCommandLines = 2;

QFont titleFont() {
    QFont font = fontFor(TextStyle::subheadline);
    font.setBold(true);
    return font;
}

QFont commandFont() { return fontFor(TextStyle::caption, FontDesign::monospaced); }

// The letters of Latin-1 beyond ASCII, umlauts among them. In UTF-8 all of them begin with kLead.
constexpr char16_t kFirstLetter = u'\u00C0';
constexpr char16_t kLastLetter = u'\u00FF';
constexpr char kLead = '\xC3';

QString accentedLetters() {
    QString letters;
    for (char16_t letter = kFirstLetter; letter <= kLastLetter; ++letter)
        letters += QChar(letter);
    return letters;
}

// How many characters a text has that consists of visible ASCII and accented letters; nothing for
// any other.
std::optional<std::size_t> plainLength(const std::string& text) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < text.size(); ++i, ++length) {
        const bool isPlain = text[i] >= ' ' && text[i] < 0x7F;
        const bool isLetter = text[i] == kLead && i + 1 < text.size() &&
                              (static_cast<unsigned char>(text[i + 1]) & 0xC0) == 0x80;
        if (isLetter)
            ++i;
        else if (!isPlain)
            return std::nullopt;
    }
    return length;
}

} // namespace

SnippetRowMetrics::SnippetRowMetrics(int width)
    : m_width(width), m_textWidth(std::max(width - 2 * kInset, 1)),
      m_titleHeight(std::max(QFontMetrics(titleFont()).height(), kButtonSize)),
      m_commandLineHeight(QFontMetrics(commandFont()).lineSpacing()),
      m_hintHeight(QFontMetrics(fontFor(TextStyle::caption2)).height()),
      m_characterWidth(QFontMetricsF(commandFont()).horizontalAdvance(u'0')) {}

bool SnippetRowMetrics::hasEvenLetters() const {
    if (!m_hasEvenLetters) {
        const QString letters = accentedLetters();
        m_hasEvenLetters = qFuzzyCompare(QFontMetricsF(commandFont()).horizontalAdvance(letters),
                                         m_characterWidth * static_cast<double>(letters.size()));
    }
    return *m_hasEvenLetters;
}

int SnippetRowMetrics::commandLines(const std::string& command) const {
    // One line or more is all that matters, so that hardly any text has to be laid out: in a
    // monospaced font the width of a text follows from its length.
    const auto length = plainLength(command);
    if (length && (*length == command.size() || hasEvenLetters()))
        return static_cast<double>(*length) * m_characterWidth <= m_textWidth ? 1
                                                                              : kMostCommandLines;
    if (command.find('\n') != std::string::npos) return kMostCommandLines;
    const double width = QFontMetricsF(commandFont()).horizontalAdvance(toQString(command));
    return width <= m_textWidth ? 1 : kMostCommandLines;
}

int SnippetRowMetrics::heightOf(const CommandSnippet& snippet, const std::string& command) const {
    const int lines = commandLines(command);
    const int hint = snippet.hint.empty() ? 0 : kLineSpacing + m_hintHeight;
    return 2 * kPadding + m_titleHeight + kLineSpacing + lines * m_commandLineHeight + hint;
}

SnippetRow::SnippetRow(ContentView& view, QWidget* parent)
    : QWidget(parent), m_view(view),
      m_title(new ElidedLabel(TextStyle::subheadline, SemanticColor::primary, 1, this)),
      m_command(
          new ElidedLabel(TextStyle::caption, SemanticColor::secondary, kMostCommandLines, this)),
      m_hint(new ElidedLabel(TextStyle::caption2, SemanticColor::secondary, 1, this)),
      m_copyButton(new QPushButton(u"Copy"_s, this)),
      m_editButton(makeSymbolButton(u"pencil"_s, u"Bearbeiten"_s)),
      m_deleteButton(makeSymbolButton(u"trash"_s, u"Löschen"_s, SemanticColor::red)) {
    m_title->setBold();
    m_command->setDesign(FontDesign::monospaced);
    setTextStyle(*m_copyButton, TextStyle::subheadline);
    m_editButton->setParent(this);
    m_deleteButton->setParent(this);
    connect(m_copyButton, &QPushButton::clicked, this, &SnippetRow::copy);
    connect(m_editButton, &QToolButton::clicked, this, [this] { m_view.editSnippet(m_snippet); });
    connect(m_deleteButton, &QToolButton::clicked, this,
            [this] { m_view.requestDeleteSnippet(m_snippet); });
    connect(m_copyButton, &QPushButton::pressed, this, &SnippetRow::pressed);
    connect(m_editButton, &QToolButton::pressed, this, &SnippetRow::pressed);
    connect(m_deleteButton, &QToolButton::pressed, this, &SnippetRow::pressed);
    setCurrent(false);
}

void SnippetRow::show(const CommandSnippet& snippet, const SSHProfile* profile,
                      const SnippetRowMetrics& metrics) {
    m_snippet = snippet;
    const std::string command = snippet.expandedCommand(profile);
    const QString title = toQString(snippet.title);
    m_title->setText(title);
    m_command->setText(toQString(command));
    m_hint->setText(toQString(snippet.hint));
    m_hint->setVisible(!snippet.hint.empty());
    setAccessibleName(title);
    setAccessibleDescription(toQString(command));
    // All rows have the same three buttons: without the title nobody could tell them apart.
    m_copyButton->setAccessibleName(u"Copy: "_s + title);
    m_editButton->setAccessibleName(u"Bearbeiten: "_s + title);
    m_deleteButton->setAccessibleName(u"Löschen: "_s + title);
    place(metrics, metrics.commandLines(command));
    QWidget::show();
}

void SnippetRow::place(const SnippetRowMetrics& metrics, int commandLines) {
    int right = width() - kInset;
    const int copyWidth = m_copyButton->sizeHint().width();
    for (QWidget* button : std::initializer_list<QWidget*>{m_deleteButton, m_editButton}) {
        button->setGeometry(right - kButtonSize, kPadding, kButtonSize, metrics.titleHeight());
        right -= kButtonSize + kButtonSpacing;
    }
    m_copyButton->setGeometry(right - copyWidth, kPadding, copyWidth, metrics.titleHeight());
    right -= copyWidth + kButtonSpacing;

    int top = kPadding;
    const int textWidth = width() - 2 * kInset;
    m_title->setGeometry(kInset, top, std::max(right - kInset, 0), metrics.titleHeight());
    top += metrics.titleHeight() + kLineSpacing;
    const int commandHeight = commandLines * metrics.commandLineHeight();
    m_command->setGeometry(kInset, top, textWidth, commandHeight);
    top += commandHeight + kLineSpacing;
    m_hint->setGeometry(kInset, top, textWidth, metrics.hintHeight());
}

void SnippetRow::setCurrent(bool isCurrent) {
    const Qt::FocusPolicy policy = isCurrent ? Qt::StrongFocus : Qt::ClickFocus;
    m_copyButton->setFocusPolicy(policy);
    m_editButton->setFocusPolicy(policy);
    m_deleteButton->setFocusPolicy(policy);
}

void SnippetRow::setMarked(bool isMarked) {
    if (m_isMarked == isMarked) return;
    m_isMarked = isMarked;
    update();
}

void SnippetRow::mousePressEvent(QMouseEvent*) { Q_EMIT pressed(); }

void SnippetRow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) copy();
}

void SnippetRow::copy() { m_view.copySnippet(m_snippet); }

void SnippetRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor line = colorFor(SemanticColor::separator, palette());
    painter.fillRect(QRect(kInset, height() - 1, width() - 2 * kInset, 1), line);
    if (!m_isMarked) return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colorFor(SemanticColor::accent, palette()));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 5, 5);
}

} // namespace korvan
