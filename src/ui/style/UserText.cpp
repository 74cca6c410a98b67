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
#include <limits>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

// Of a tool tip: the toolkit adds a margin of eight at each side.
constexpr int kTipWidth = 480 - 2 * 8 - 4;
constexpr int kTipDistance = 48; // room for its frame, and for the pointer
// More can be seen in no label; laying out a text takes as long as all of it is.
constexpr qsizetype kMostCharacters = 6000;

bool isControl(QChar character) {
    const auto category = character.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

bool isLineBreak(QChar character) {
    switch (character.unicode()) {
    case u'\n':
    case u'\v':
    case u'\f':
    case u'\r':
    case u'\u0085':
    case u'\u2028':
    case u'\u2029': return true;
    default: return false;
    }
}

// One kind of line break, and a sign for what has no look of its own.
QString withVisibleControls(QString text) {
    text.replace(u"\r\n"_s, u"\n"_s);
    for (QChar& character : text) {
        const char16_t code = character.unicode();
        if (isLineBreak(character))
            character = QChar::LineSeparator;
        else if (code < 0x20 && code != u'\t')
            character = QChar(u'\u2400' + code); // its picture
        else if (isControl(character) && code != u'\t')
            character = QChar::ReplacementCharacter;
    }
    return text;
}

// The lines of a text as they are laid out, from the first on.
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

    // What is cut off at the end of a line may reach further than its last whole word.
    enum class Place { any, last };
    [[nodiscard]] QTextLine next(Place place = Place::any) {
        QTextLine line = m_layout.createLine();
        if (line.isValid()) {
            line.setLineWidth(place == Place::last ? 2 * m_width : m_width);
            m_height += line.height() + (m_count++ > 0 ? m_leading : 0);
        }
        return line;
    }

    // Of the lines so far.
    [[nodiscard]] double height() const { return m_height; }

private:
    QTextLayout m_layout;
    int m_width;
    double m_leading;
    double m_height = 0;
    int m_count = 0;
};

// As a label shows it: a tabulator has no stops there.
QString prepared(const QString& text) {
    return withVisibleControls(text.left(kMostCharacters)).replace(u'\t', u' ');
}

// A text's lines as they stand in a tool tip, as many as `mostHeight` has room for.
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
        else // the blanks at which it was broken would stand beyond the width
            while (part.endsWith(u"  "))
                part.chop(1);
        shown.append(part);
    }
    if (text.size() > kMostCharacters) shown.last() += u'…';
    return shown;
}

// Markup, since the toolkit would guess from the text whether it is that.
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
    // Below the pointer or above it: a tip under the pointer would hide itself.
    const int height =
        std::max(room.bottom() - globalPosition.y(), globalPosition.y() - room.top());
    QToolTip::showText(globalPosition, markup(tipLines(text, font, height - kTipDistance), font),
                       &widget, area);
}

} // namespace korvan
