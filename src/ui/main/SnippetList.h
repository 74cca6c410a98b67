// SPDX-License-Identifier: MIT
#pragma once

#include "state/ContentView.h"

#include <QAbstractScrollArea>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvan {

class SnippetRow;
class SnippetRowMetrics;

// The commands that the search finds, one row each. Rows are widgets only while they can be seen,
// so the list stays quick however long it is. The state must outlive it.
//
// By keyboard the list is one stop: arrows, page keys, Home and End move from row to row, Return
// and Space copy, Tab goes on to the buttons of the row and then leaves.
class SnippetList final : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit SnippetList(ContentView& state, QWidget* parent = nullptr);
    ~SnippetList() override;

    // Follows the state. A hidden list lays its rows out once it is shown.
    void refresh();

    // The rows that can be seen, from top to bottom.
    [[nodiscard]] std::vector<SnippetRow*> visibleRows() const;
    // The row that the keyboard is on, null when the keyboard is elsewhere.
    [[nodiscard]] SnippetRow* markedRow() const;

protected:
    void initStyleOption(QStyleOptionFrame* option) const override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // Presents lists and rows to assistive tools as a list and its items: Qt knows this only of its
    // own lists. Needed once, does no harm again. Stands in SnippetListAccessibility.cpp.
    static void installAccessibility();

    // How much is known, from nothing to all.
    enum class Stage {
        stale,   // The store has changed since the last refresh, so m_snippets points to nothing.
        listed,  // m_snippets holds the commands to show. Their places are not known: the list is
                 // hidden, or a new window has not made room for it.
        laidOut, // m_tops holds their places, m_rows those that can be seen.
    };
    [[nodiscard]] Stage stage() const;

    // What the list was last made from.
    struct Shown {
        std::uint64_t revision = ~std::uint64_t{0}; // none, until the first refresh
        std::string search;
        std::optional<SSHProfile> profile;

        friend bool operator==(const Shown&, const Shown&) = default;
    };

    // The row that keys work on. It is marked while the list has the focus, but not after a click:
    // then the next key marks it.
    struct Current {
        std::size_t row = 0;
        bool isMarked = false;
    };

    // Whether rows that stay in sight may have another content.
    enum class Content { same, changed };

    // Takes the list from listed to laidOut if it is shown. Needed when the commands, the profile
    // or the width changed.
    void layOut();
    // Follows a change of the list's size.
    void fit();
    [[nodiscard]] int heightWithoutCommand(const CommandSnippet& snippet);
    void showPart(Content content);
    // Makes, moves and lets go of rows so that those which can be seen are there.
    void showVisibleRows(Content content);
    [[nodiscard]] SnippetRow* takeSpareRow();
    [[nodiscard]] std::size_t rowAt(int y) const;
    void showHover();
    void moveTo(std::ptrdiff_t row);
    void markCurrentRow();
    // Tells a screen reader where the keyboard is in the list.
    void announceCurrentRow();

    ContentView& m_state;
    Shown m_shown;
    std::vector<const CommandSnippet*> m_snippets;
    bool m_mayLayOut = false; // a moment after it was first shown, and from then on
    std::unique_ptr<SnippetRowMetrics> m_metrics; // of the width that was last laid out
    // Of each of the store's commands, 0 where it is not known. Depends on metrics and revision.
    std::vector<std::uint16_t> m_heightsWithoutCommand;
    std::vector<int> m_tops; // of each row, and the bottom of the last; empty until it is laid out
    std::map<std::size_t, SnippetRow*> m_rows; // by place
    std::vector<SnippetRow*> m_spareRows;      // hidden, to be used again
    Current m_current;
};

} // namespace korvan
