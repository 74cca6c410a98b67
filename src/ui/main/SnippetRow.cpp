// SPDX-License-Identifier: MIT
#include "ui/main/SnippetRow.h"

#include "desktop/QtText.h"
#include "ui/style/Controls.h"
#include "ui/style/Drawing.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <limits>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLineSpacing = 6;
constexpr int kPadding = 4; // above and below
constexpr int kInset = 8;   // to the left and right
constexpr int kButtonSize = 24;
constexpr int kButtonSpacing = 4;
constexpr int kButtonPadding = 4; // above and below a button's text
constexpr int kMostCommandLines = 2;
constexpr int kMostOtherLines = 3;                 // of a title, and of a hint
constexpr std::size_t kMostKnownHeights = 1 << 17; // those of 100,000 commands

QFont titleFont() {
    QFont font = fontFor(TextStyle::subheadline);
    font.setBold(true);
    return font;
}

QFont commandFont() { return fontFor(TextStyle::caption, FontDesign::monospaced); }

// The width of a button with this text alone.
int copyButtonWidth() {
    QPushButton button(u"Copy"_s);
    button.setFont(fontFor(TextStyle::subheadline));
    return button.sizeHint().width();
}

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

// Whether an accented letter begins at this byte.
bool isAccented(const std::string& text, std::size_t i) {
    return text[i] == kLead && i + 1 < text.size() &&
           (static_cast<unsigned char>(text[i + 1]) & 0xC0) == 0x80;
}

// How many characters a text has that consists of visible ASCII and accented letters; nothing for
// any other.
std::optional<std::size_t> plainLength(const std::string& text) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < text.size(); ++i, ++length) {
        const bool isPlain = text[i] >= ' ' && text[i] < 0x7F;
        if (isAccented(text, i))
            ++i;
        else if (!isPlain)
            return std::nullopt;
    }
    return length;
}

} // namespace

SnippetRowMetrics::Paragraph::Paragraph(const QFont& font, int width, QString (*shown)(QString))
    : m_font(font), m_width(std::max(width, 1)), m_shown(shown),
      m_lineHeight(QFontMetrics(font).lineSpacing()) {
    // Every other letter has a byte from 0x80 to 0xBF, which makes its text infinitely wide.
    m_advances.fill(std::numeric_limits<float>::infinity());
    const QFontMetricsF metrics(font);
    for (char16_t letter = u' '; letter <= kLastLetter; ++letter)
        if (letter < 0x7F || letter >= kFirstLetter)
            m_advances[letter] = static_cast<float>(metrics.horizontalAdvance(QChar(letter)));
}

float SnippetRowMetrics::Paragraph::advanceOf(const std::string& text) const {
    float advance = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto letter = static_cast<unsigned char>(text[i]);
        // The second byte of an accented letter is its code but for one bit.
        if (isAccented(text, i)) letter = static_cast<unsigned char>(text[++i] | 0x40);
        advance += m_advances[letter];
    }
    return advance;
}

int SnippetRowMetrics::Paragraph::heightOf(const std::string& text) const {
    // Most texts have one line, and need not be laid out to see that.
    constexpr float kerning = 1.05F; // moves letters apart, too
    if (advanceOf(text) * kerning <= static_cast<float>(m_width)) return m_lineHeight;
    if (const auto known = m_knownHeights.find(text); known != m_knownHeights.end())
        return known->second;
    const int height = shownHeight(m_shown(toQString(text)), m_font, m_width, kMostOtherLines);
    if (m_knownHeights.size() == kMostKnownHeights) m_knownHeights.clear();
    m_knownHeights.emplace(text, height);
    return height;
}

SnippetRowMetrics::SnippetRowMetrics(int width)
    : m_width(width), m_textWidth(std::max(width - 2 * kInset, 1)), m_copyWidth(copyButtonWidth()),
      m_buttonHeight(
          std::max(QFontMetrics(titleFont()).height() + 2 * kButtonPadding, kButtonSize)),
      m_title(titleFont(), m_textWidth - m_copyWidth - 2 * m_buttonHeight - 3 * kButtonSpacing,
              onOneLine),
      m_hint(fontFor(TextStyle::caption2), m_textWidth, [](QString text) { return text; }),
      m_commandFont(commandFont()), m_commandLineHeight(QFontMetrics(m_commandFont).lineSpacing()),
      m_characterWidth(QFontMetricsF(m_commandFont).horizontalAdvance(u'0')) {}

bool SnippetRowMetrics::hasEvenLetters() const {
    if (!m_hasEvenLetters) {
        const QString letters = accentedLetters();
        m_hasEvenLetters = qFuzzyCompare(QFontMetricsF(m_commandFont).horizontalAdvance(letters),
                                         m_characterWidth * static_cast<double>(letters.size()));
    }
    return *m_hasEvenLetters;
}

int SnippetRowMetrics::commandHeight(const std::string& command) const {
    // All that matters is whether one line is enough. In a monospaced font the length of a text
    // tells that, so that hardly any text is laid out.
    const auto length = plainLength(command);
    if (length && (*length == command.size() || hasEvenLetters())) {
        const bool hasOneLine = static_cast<double>(*length) * m_characterWidth <= m_textWidth;
        return (hasOneLine ? 1 : kMostCommandLines) * m_commandLineHeight;
    }
    return shownHeight(toQString(command), m_commandFont, m_textWidth, kMostCommandLines);
}

int SnippetRowMetrics::titleHeight(const CommandSnippet& snippet) const {
    return std::max(m_title.heightOf(snippet.title), m_buttonHeight);
}

int SnippetRowMetrics::hintHeight(const CommandSnippet& snippet) const {
    return snippet.hint.empty() ? 0 : m_hint.heightOf(snippet.hint);
}

int SnippetRowMetrics::heightWithoutCommand(const CommandSnippet& snippet) const {
    const int hint = snippet.hint.empty() ? 0 : kLineSpacing + hintHeight(snippet);
    return 2 * kPadding + titleHeight(snippet) + kLineSpacing + hint;
}

SnippetRow::SnippetRow(ContentView& state, QWidget* parent)
    : QWidget(parent), m_state(state),
      m_title(
          new ElidedLabel(TextStyle::subheadline, SemanticColor::primary, kMostOtherLines, this)),
      m_command(
          new ElidedLabel(TextStyle::caption, SemanticColor::secondary, kMostCommandLines, this)),
      m_hint(new ElidedLabel(TextStyle::caption2, SemanticColor::secondary, kMostOtherLines, this)),
      m_copyButton(new QPushButton(u"Copy"_s, this)),
      m_editButton(makeSymbolButton(u"pencil"_s, u"Bearbeiten"_s)),
      m_deleteButton(makeSymbolButton(u"trash"_s, u"Löschen"_s, SemanticColor::red)) {
    m_title->setBold();
    m_command->setDesign(FontDesign::monospaced);
    m_command->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setTextStyle(*m_copyButton, TextStyle::subheadline);
    m_editButton->setParent(this);
    m_deleteButton->setParent(this);
    connect(m_copyButton, &QPushButton::clicked, this, &SnippetRow::copy);
    connect(m_editButton, &QToolButton::clicked, this, [this] { m_state.editSnippet(m_snippet); });
    connect(m_deleteButton, &QToolButton::clicked, this,
            [this] { m_state.requestDeleteSnippet(m_snippet); });
    connect(m_copyButton, &QPushButton::pressed, this, &SnippetRow::pressed);
    connect(m_editButton, &QToolButton::pressed, this, &SnippetRow::pressed);
    connect(m_deleteButton, &QToolButton::pressed, this, &SnippetRow::pressed);
    setCurrent(false);
}

void SnippetRow::show(const CommandSnippet& snippet, const SSHProfile* profile,
                      const SnippetRowMetrics& metrics) {
    m_snippet = snippet;
    const std::string command = snippet.expandedCommand(profile);
    const QString title = onOneLine(toQString(snippet.title));
    m_title->setText(title);
    m_command->setText(toQString(command));
    m_hint->setText(toQString(snippet.hint));
    m_hint->setVisible(!snippet.hint.empty());
    setAccessibleName(title);
    setAccessibleDescription(toQString(command));
    // All rows have the same three buttons. Only the title tells them apart.
    m_copyButton->setAccessibleName(u"Copy: "_s + title);
    m_editButton->setAccessibleName(u"Bearbeiten: "_s + title);
    m_deleteButton->setAccessibleName(u"Löschen: "_s + title);
    place(metrics, metrics.commandHeight(command));
    QWidget::show();
}

void SnippetRow::place(const SnippetRowMetrics& metrics, int commandHeight) {
    const int titleHeight = metrics.titleHeight(m_snippet);
    const int size = metrics.buttonHeight();
    const int buttonTop = kPadding + (titleHeight - size) / 2;
    int right = width() - kInset;
    for (QWidget* button : std::initializer_list<QWidget*>{m_deleteButton, m_editButton}) {
        button->setGeometry(right - size, buttonTop, size, size);
        right -= size + kButtonSpacing;
    }
    m_copyButton->setGeometry(right - metrics.copyWidth(), buttonTop, metrics.copyWidth(), size);
    right -= metrics.copyWidth() + kButtonSpacing;

    int top = kPadding;
    const int textWidth = width() - 2 * kInset;
    m_title->setGeometry(kInset, top, std::max(right - kInset, 0), titleHeight);
    top += titleHeight + kLineSpacing;
    m_command->setGeometry(kInset, top, textWidth, commandHeight);
    top += commandHeight + kLineSpacing;
    m_hint->setGeometry(kInset, top, textWidth, metrics.hintHeight(m_snippet));
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

void SnippetRow::setHovered(bool isHovered) {
    if (m_isHovered == isHovered) return;
    m_isHovered = isHovered;
    update();
}

void SnippetRow::setPressed(bool isPressed) {
    if (m_isPressed == isPressed) return;
    m_isPressed = isPressed;
    update();
}

void SnippetRow::setLast(bool isLast) {
    if (m_isLast == isLast) return;
    m_isLast = isLast;
    update();
}

void SnippetRow::enterEvent(QEnterEvent*) { setHovered(true); }

void SnippetRow::leaveEvent(QEvent*) { setHovered(false); }

void SnippetRow::mousePressEvent(QMouseEvent* event) {
    setPressed(event->button() == Qt::LeftButton);
    Q_EMIT pressed();
}

void SnippetRow::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton))
        setPressed(rect().contains(event->position().toPoint()));
}

void SnippetRow::mouseReleaseEvent(QMouseEvent* event) {
    setPressed(false);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) copy();
}

void SnippetRow::copy() { m_state.copySnippet(m_snippet); }

void SnippetRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect row = rect().adjusted(0, 0, 0, -1); // above the line
    const Wash wash = m_isPressed ? Wash::pressed : m_isHovered ? Wash::hovered : Wash::none;
    drawRowWash(painter, row, palette(), wash);
    if (!m_isLast)
        drawLine(painter, rect().adjusted(kInset, 0, -kInset, 0), Qt::BottomEdge,
                 colorFor(SemanticColor::separator, palette()));
    if (m_isMarked) drawFocusRing(painter, row, palette(), kSmallRadius);
}

} // namespace korvan
