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

    void refresh();

    // Those that can be seen, from top to bottom.
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
    static constexpr auto kNoRevision = ~std::uint64_t{0};

    // What the rows were last made from.
    struct Shown {
        std::uint64_t revision = kNoRevision;
        std::string search;
        std::optional<SSHProfile> profile;

        friend bool operator==(const Shown&, const Shown&) = default;
    };

    // Works out where each row is. Needed when the commands, the profile or the width changed.
    void layOut();
    // The height of a row without its command, worked out once.
    [[nodiscard]] int heightWithoutCommand(const CommandSnippet& snippet);
    // Follows a change of the list's size.
    void fit();
    // Makes, moves and lets go of rows so that those which can be seen are there. Rows that stay
    // keep what they show, unless their content may be another.
    enum class Content { same, changed };
    void showVisibleRows(Content content);
    void showPart(Content content);
    void showHover();
    [[nodiscard]] SnippetRow* takeSpareRow();
    void markCurrentRow();
    // Tells a screen reader where the keyboard is in the list.
    void announceCurrentRow();
    void moveTo(std::ptrdiff_t row);
    [[nodiscard]] std::size_t rowAt(int y) const;
    [[nodiscard]] bool isUpToDate() const;
    [[nodiscard]] bool isLaidOut() const; // and every row has its place

    ContentView& m_state;
    Shown m_shown;
    std::vector<const CommandSnippet*> m_snippets; // valid while isUpToDate()
    std::unique_ptr<SnippetRowMetrics> m_metrics;
    bool m_hasPlaces = false; // of the rows: they are laid out
    // Of each of the store's commands, 0 where it is not known. For these metrics and this
    // revision.
    std::vector<std::uint16_t> m_heightsWithoutCommand;
    std::uint64_t m_heightsRevision = kNoRevision;
    std::vector<int> m_tops;                   // of each row, and the bottom of the last
    std::map<std::size_t, SnippetRow*> m_rows; // those that can be seen, by place
    std::vector<SnippetRow*> m_spareRows;
    bool m_wasShown = false;     // and may be laid out
    std::size_t m_current = 0;   // the row that the keyboard is on
    bool m_showsCurrent = false; // since the keyboard was used last
};

} // namespace korvan
