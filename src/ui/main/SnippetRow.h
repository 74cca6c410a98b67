// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"
#include "ui/main/ContentView.h"

#include <QWidget>
#include <vector>

class QPushButton;
class QToolButton;

namespace korvan {

class ElidedLabel;

// The heights of a command's row, worked out from text and fonts alone, so that a list can be laid
// out without making a widget for each row.
class SnippetRowMetrics final {
public:
    // `width` is that of the whole row.
    explicit SnippetRowMetrics(int width);

    // `command` is what the snippet expands to.
    [[nodiscard]] int heightOf(const CommandSnippet& snippet, const std::string& command) const;

    // How many lines the command takes, one or two; what needs more is cut.
    [[nodiscard]] int commandLines(const std::string& command) const;

    [[nodiscard]] int width() const { return m_width; }
    [[nodiscard]] int titleHeight() const { return m_titleHeight; }
    [[nodiscard]] int commandLineHeight() const { return m_commandLineHeight; }
    [[nodiscard]] int hintHeight() const { return m_hintHeight; }

private:
    // Whether the command's font has accented letters, and as wide as all others.
    [[nodiscard]] bool hasEvenLetters() const;

    int m_width;
    int m_textWidth;
    int m_titleHeight;
    int m_commandLineHeight;
    int m_hintHeight;
    double m_characterWidth;                      // of the command's font, for ASCII
    mutable std::optional<bool> m_hasEvenLetters; // nothing until it is asked
};

// One command as the user sees it: title, what it expands to, and its buttons. A click anywhere
// else on it copies, as its button does. Used again for another command as the list scrolls. The
// state must outlive it.
class SnippetRow final : public QWidget {
    Q_OBJECT

public:
    explicit SnippetRow(ContentView& view, QWidget* parent);

    // Shows `snippet`, expanded for `profile`.
    void show(const CommandSnippet& snippet, const SSHProfile* profile,
              const SnippetRowMetrics& metrics);

    // Whether this is the row that the keyboard is on. Only its buttons are reached by Tab.
    void setCurrent(bool isCurrent);

    // Whether the list shows where the keyboard is.
    void setMarked(bool isMarked);
    [[nodiscard]] bool isMarked() const { return m_isMarked; }

    void copy();

Q_SIGNALS:
    // The pointer went down on the row, or on one of its buttons.
    void pressed();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place(const SnippetRowMetrics& metrics, int commandLines);

    ContentView& m_view;
    CommandSnippet m_snippet;
    ElidedLabel* m_title;
    ElidedLabel* m_command;
    ElidedLabel* m_hint;
    QPushButton* m_copyButton;
    QToolButton* m_editButton;
    QToolButton* m_deleteButton;
    bool m_isMarked = false;
};

} // namespace korvan
