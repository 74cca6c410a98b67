// SPDX-License-Identifier: MIT
#include "ui/style/UserText.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <QTextLayout>
#include <QToolTip>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

// For a tooltip: the toolkit adds a margin of eight at each side.
constexpr int kTipWidth = 480 - 2 * 8 - 4;
constexpr int kTipDistance = 48; // room for the frame of the tooltip and for the pointer
// More than any label can show. The time to lay out a text grows with its whole length.
constexpr qsizetype kMostCharacters = 6000;

bool isControl(QChar character) {
    const auto category = character.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

bool isLineBreak(QChar character) {
    return QStringView(u"\n\v\f\r\u0085\u2028\u2029").contains(character);
}

// Replaces all line breaks by the same character, and control characters by visible ones.
QString withVisibleControls(QString text) {
    text.replace(u"\r\n"_s, u"\n"_s);
    for (QChar& character : text) {
        const char16_t code = character.unicode();
        if (isLineBreak(character))
            character = QChar::LineSeparator;
        else if (code < 0x20 && code != u'\t')
            character = QChar(u'\u2400' + code); // the visible sign for it
        else if (isControl(character) && code != u'\t')
            character = QChar::ReplacementCharacter;
    }
    return text;
}

// Lays out a text line by line.
class Lines final {
public:
    Lines(const QString& text, const QFont& font, int width)
        : m_layout(text, font), m_width(width), m_leading(QFontMetricsF(font).leading()) {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        m_layout.setTextOption(option);
        m_layout.beginLayout();
    }
    ~Lines() { m_layout.endLayout(); }
    Lines(const Lines&) = delete;
    Lines& operator=(const Lines&) = delete;

    // The last line is wider, since the ellipsis may come in the middle of a word.
    enum class Place { any, last };
    [[nodiscard]] QTextLine next(Place place = Place::any) {
        QTextLine line = m_layout.createLine();
        if (line.isValid()) {
            line.setLineWidth(place == Place::last ? 2 * m_width : m_width);
            m_height += line.height() + (m_count++ > 0 ? m_leading : 0);
        }
        return line;
    }

    // The height of the lines so far.
    [[nodiscard]] double height() const { return m_height; }

private:
    QTextLayout m_layout;
    int m_width;
    double m_leading;
    double m_height = 0;
    int m_count = 0;
};

// The text for a label, where a tab is a space.
QString prepared(const QString& text) {
    return withVisibleControls(text.left(kMostCharacters)).replace(u'\t', u' ');
}

// The lines of a tooltip, as many as fit into `mostHeight`.
QStringList tipLines(const QString& text, const QFont& font, int mostHeight) {
    const QString whole = withVisibleControls(text.left(kMostCharacters));
    QStringList shown;
    Lines lines(whole, font, kTipWidth);
    for (QTextLine line = lines.next(); line.isValid(); line = lines.next()) {
        if (lines.height() > mostHeight && !shown.isEmpty()) {
            shown.last() = u"…"_s;
            return shown;
        }
        QString part = whole.mid(line.textStart(), line.textLength());
        if (part.endsWith(QChar::LineSeparator))
            part.chop(1);
        else // spaces at the break would widen the tooltip
            while (part.endsWith(u"  "))
                part.chop(1);
        shown.append(part);
    }
    if (text.size() > kMostCharacters) shown.last() += u'…';
    return shown;
}

// The lines as markup. The toolkit would guess whether a plain text is markup.
QString markup(const QStringList& lines, const QFont& font) {
    QStringList families;
    for (const QString& family : font.families())
        families.append(u'\'' + QString(family).remove(u'\'') + u'\'');
    QStringList escaped;
    for (const QString& line : lines)
        escaped.append(line.toHtmlEscaped());
    return u"<div style=\"white-space:pre; font-family:%1; font-size:%2pt\">%3</div>"_s.arg(
        families.join(u',').toHtmlEscaped(), QString::number(QFontInfo(font).pointSizeF()),
        escaped.join(u"<br>"));
}

} // namespace

QString onOneLine(QString text) {
    text.replace(u"\r\n"_s, u" "_s);
    for (QChar& character : text)
        if (isControl(character)) character = u' ';
    return text;
}

ShownText shownText(const QString& text, const QFont& font, int width, int lines) {
    const QString whole = prepared(text);
    ShownText shown;
    Lines layout(whole, font, width);
    qsizetype begin = 0;
    while (shown.lines.size() + 1 < lines) {
        const QTextLine line = layout.next();
        if (!line.isValid()) break;
        begin = line.textStart() + line.textLength();
        shown.lines.append(
            whole.mid(line.textStart(), line.textLength()).remove(QChar::LineSeparator));
    }
    if (shown.lines.size() < lines && (begin < whole.size() || shown.lines.isEmpty())) {
        (void)layout.next(Lines::Place::last);
        const QString rest = whole.mid(begin);
        const auto end = rest.indexOf(QChar::LineSeparator);
        const QString last = end < 0 ? rest : rest.left(end) + u'…';
        shown.lines.append(QFontMetrics(font).elidedText(last, Qt::ElideRight, width));
        shown.isCut = shown.lines.last() != rest;
    }
    shown.height = static_cast<int>(std::ceil(layout.height()));
    return shown;
}

int shownHeight(const QString& text, const QFont& font, int width, int lines) {
    Lines layout(prepared(text), font, width);
    for (int line = 1; line <= lines; ++line)
        if (!layout.next(line == lines ? Lines::Place::last : Lines::Place::any).isValid()) break;
    return static_cast<int>(std::ceil(layout.height()));
}

QString toolTipFor(const QString& text) {
    if (text.isEmpty()) return {};
    const QFont font = QToolTip::font();
    const int room = QGuiApplication::primaryScreen()->availableSize().height() / 2;
    return markup(tipLines(text, font, room - kTipDistance), font);
}

void showToolTip(QPoint globalPosition, const QString& text, const QFont& font, QWidget& widget,
                 const QRect& area) {
    const QScreen* screen = QGuiApplication::screenAt(globalPosition);
    const QRect room = (screen ? screen : widget.screen())->availableGeometry();
    // Below the pointer or above it: a tooltip under the pointer would hide itself.
    const int height =
        std::max(room.bottom() - globalPosition.y(), globalPosition.y() - room.top());
    QToolTip::showText(globalPosition, markup(tipLines(text, font, height - kTipDistance), font),
                       &widget, area);
}

} // namespace korvan
