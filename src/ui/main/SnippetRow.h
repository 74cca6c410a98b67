// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"
#include "state/ContentView.h"

#include <QFont>
#include <QWidget>
#include <array>
#include <optional>
#include <string>
#include <unordered_map>

class QPushButton;
class QToolButton;

namespace korvan {

class ElidedLabel;

// The heights of a command's row, worked out from text and fonts alone, so that a list can be laid
// out without making a widget for each row. They are right until the fonts change.
class SnippetRowMetrics final {
public:
    // `width` is that of the whole row.
    explicit SnippetRowMetrics(int width);

    // The height of a row without its command: the part that no profile changes.
    [[nodiscard]] int heightWithoutCommand(const CommandSnippet& snippet) const;

    // The height of `command`, which is what the snippet expands to: one line or two, since the
    // rest is cut.
    [[nodiscard]] int commandHeight(const std::string& command) const;

    [[nodiscard]] int titleHeight(const CommandSnippet& snippet) const;
    [[nodiscard]] int hintHeight(const CommandSnippet& snippet) const;

    [[nodiscard]] int width() const { return m_width; }
    [[nodiscard]] int copyWidth() const { return m_copyWidth; }
    // Of all three buttons.
    [[nodiscard]] int buttonHeight() const { return m_buttonHeight; }

private:
    // A text in lines that are broken between words.
    class Paragraph final {
    public:
        // `shown` makes of a text what is shown of it.
        Paragraph(const QFont& font, int width, QString (*shown)(QString));

        [[nodiscard]] int heightOf(const std::string& text) const;

    private:
        // How wide a text is on one line, but for kerning. Infinite for a text with other letters
        // than visible ASCII and accented ones.
        [[nodiscard]] float advanceOf(const std::string& text) const;

        QFont m_font;
        int m_width;
        QString (*m_shown)(QString);
        int m_lineHeight;
        std::array<float, 256> m_advances; // of each letter of Latin-1
        // Of the texts that had to be laid out. Most of them come again with the next change.
        mutable std::unordered_map<std::string, int> m_knownHeights;
    };

    // Whether the accented letters of the command's font are there and as wide as all others.
    [[nodiscard]] bool hasEvenLetters() const;

    int m_width;
    int m_textWidth;
    int m_copyWidth;
    int m_buttonHeight;
    Paragraph m_title;
    Paragraph m_hint;
    QFont m_commandFont;
    int m_commandLineHeight;
    double m_characterWidth;                      // of the command's font, for ASCII
    mutable std::optional<bool> m_hasEvenLetters; // empty until it is needed
};

// One command as the user sees it: title, what it expands to, and its buttons. A click anywhere
// else on it copies, as its button does. The list uses it again for another command. The state must
// outlive it.
class SnippetRow final : public QWidget {
    Q_OBJECT

public:
    explicit SnippetRow(ContentView& state, QWidget* parent);

    // Shows `snippet`, expanded for `profile`.
    void show(const CommandSnippet& snippet, const SSHProfile* profile,
              const SnippetRowMetrics& metrics);

    // Whether this is the row that the keyboard is on. Only its buttons are reached by Tab.
    void setCurrent(bool isCurrent);

    // Whether the list shows where the keyboard is.
    void setMarked(bool isMarked);
    [[nodiscard]] bool isMarked() const { return m_isMarked; }

    // Whether the pointer is on the row. The row sees by itself when the pointer moves; the list
    // tells it when the row does.
    void setHovered(bool isHovered);

    // Whether it is the last row. All others have a line below them.
    void setLast(bool isLast);

    void copy();

Q_SIGNALS:
    // The pointer went down on the row, or on one of its buttons.
    void pressed();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place(const SnippetRowMetrics& metrics, int commandHeight);
    void setPressed(bool isPressed);

    ContentView& m_state;
    CommandSnippet m_snippet;
    ElidedLabel* m_title;
    ElidedLabel* m_command;
    ElidedLabel* m_hint;
    QPushButton* m_copyButton;
    QToolButton* m_editButton;
    QToolButton* m_deleteButton;
    bool m_isMarked = false;
    bool m_isHovered = false;
    bool m_isPressed = false;
    bool m_isLast = false;
};

} // namespace korvan
