// SPDX-License-Identifier: MIT
#include "ui/main/SnippetList.h"

#include "model/CommandSnippet.h"
#include "ui/main/SnippetRow.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyleOptionFrame>
#include <algorithm>
#include <utility>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kScrollStep = 24;

} // namespace

SnippetList::SnippetList(ContentView& state, QWidget* parent)
    : QAbstractScrollArea(parent), m_state(state) {
    installAccessibility();
    setObjectName(u"commands"_s);
    setAccessibleName(u"Befehle"_s);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Always there: a bar that comes and goes would change every row's width.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    verticalScrollBar()->setSingleStep(kScrollStep);
}

SnippetList::~SnippetList() = default;

SnippetList::Stage SnippetList::stage() const {
    if (m_shown.revision != m_state.snippetStore.revision()) return Stage::stale;
    return m_tops.empty() ? Stage::listed : Stage::laidOut;
}

void SnippetList::refresh() {
    Shown wanted{m_state.snippetStore.revision(), m_state.snippetSearch, std::nullopt};
    if (const SSHProfile* profile = m_state.selectedProfile()) wanted.profile = *profile;
    if (m_shown == wanted) return;
    const bool isSameSearch = m_shown.search == wanted.search;
    if (m_shown.revision != wanted.revision) m_heightsWithoutCommand.clear();
    m_shown = std::move(wanted);
    m_snippets = m_state.filteredSnippets();
    const std::size_t last = m_snippets.empty() ? 0 : m_snippets.size() - 1;
    m_current.row = isSameSearch ? std::min(m_current.row, last) : 0;
    layOut();
    if (!isSameSearch) verticalScrollBar()->setValue(0);
}

void SnippetList::layOut() {
    m_tops.clear();
    // A stale list is laid out by the refresh that is on its way, a hidden one when it is shown:
    // until then its width is not the one that it will have.
    if (stage() == Stage::stale || !isVisible() || !m_mayLayOut) return;
    if (!m_metrics || m_metrics->width() != viewport()->width()) {
        m_metrics = std::make_unique<SnippetRowMetrics>(viewport()->width());
        m_heightsWithoutCommand.clear();
    }
    m_heightsWithoutCommand.resize(m_state.snippetStore.snippets().size());
    CommandExpansion expansion(m_shown.profile ? &*m_shown.profile : nullptr);
    m_tops.reserve(m_snippets.size() + 1);
    m_tops.push_back(0);
    for (const CommandSnippet* snippet : m_snippets)
        m_tops.push_back(m_tops.back() + heightWithoutCommand(*snippet) +
                         m_metrics->commandHeight(expansion.of(*snippet)));
    showPart(Content::changed);
}

int SnippetList::heightWithoutCommand(const CommandSnippet& snippet) {
    const auto place = static_cast<std::size_t>(&snippet - m_state.snippetStore.snippets().data());
    std::uint16_t& height = m_heightsWithoutCommand[place];
    if (height == 0) height = static_cast<std::uint16_t>(m_metrics->heightWithoutCommand(snippet));
    return height;
}

void SnippetList::fit() {
    // The heights of all rows follow from the width alone.
    if (stage() == Stage::laidOut && m_metrics->width() == viewport()->width())
        showPart(Content::same);
    else
        layOut();
}

void SnippetList::showPart(Content content) {
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, m_tops.back() - viewport()->height()));
    showVisibleRows(content);
}

std::size_t SnippetList::rowAt(int y) const {
    const auto next = std::upper_bound(m_tops.begin(), m_tops.end(), y);
    const auto row = next == m_tops.begin() ? 0 : next - m_tops.begin() - 1;
    return static_cast<std::size_t>(row);
}

void SnippetList::showVisibleRows(Content content) {
    if (stage() != Stage::laidOut) return;
    const int scrolled = verticalScrollBar()->value();
    const std::size_t first = rowAt(scrolled);
    const std::size_t last =
        std::min(rowAt(scrolled + viewport()->height()) + 1, m_snippets.size());
    std::erase_if(m_rows, [&](const auto& entry) {
        const bool isGone = entry.first < first || entry.first >= last;
        if (isGone) m_spareRows.push_back(entry.second);
        return isGone;
    });
    const SSHProfile* profile = m_shown.profile ? &*m_shown.profile : nullptr;
    for (std::size_t place = first; place < last; ++place) {
        const QRect where(0, m_tops[place] - scrolled, viewport()->width(),
                          m_tops[place + 1] - m_tops[place]);
        SnippetRow*& row = m_rows[place];
        const bool isNew = row == nullptr;
        if (isNew) row = takeSpareRow();
        row->setGeometry(where);
        row->setLast(place + 1 == m_snippets.size());
        if (isNew || content == Content::changed)
            row->show(*m_snippets[place], profile, *m_metrics);
    }
    for (SnippetRow* spare : m_spareRows) {
        // The keyboard stays in the list when the row that it was on is scrolled away.
        if (spare->isAncestorOf(QApplication::focusWidget())) setFocus();
        spare->hide();
    }
    markCurrentRow();
    showHover();
}

// Scrolling moves rows under a pointer that rests.
void SnippetList::showHover() {
    const QPoint pointer = viewport()->mapFromGlobal(QCursor::pos());
    for (const auto& [place, row] : m_rows)
        row->setHovered(viewport()->underMouse() && row->geometry().contains(pointer));
}

SnippetRow* SnippetList::takeSpareRow() {
    if (!m_spareRows.empty()) {
        SnippetRow* row = m_spareRows.back();
        m_spareRows.pop_back();
        return row;
    }
    auto* row = new SnippetRow(m_state, viewport());
    // The keyboard goes on from where the pointer was.
    connect(row, &SnippetRow::pressed, this, [this, row] {
        const auto shown = std::ranges::find(m_rows, row, &decltype(m_rows)::value_type::second);
        if (shown != m_rows.end()) m_current.row = shown->first;
        m_current.isMarked = false;
        markCurrentRow();
    });
    return row;
}

void SnippetList::markCurrentRow() {
    for (const auto& [place, row] : m_rows) {
        row->setCurrent(place == m_current.row);
        row->setMarked(place == m_current.row && m_current.isMarked);
    }
}

std::vector<SnippetRow*> SnippetList::visibleRows() const {
    std::vector<SnippetRow*> rows;
    rows.reserve(m_rows.size());
    for (const auto& [place, row] : m_rows)
        rows.push_back(row);
    return rows;
}

SnippetRow* SnippetList::markedRow() const {
    const auto row = m_rows.find(m_current.row);
    return m_current.isMarked && row != m_rows.end() ? row->second : nullptr;
}

void SnippetList::announceCurrentRow() {
    SnippetRow* row = markedRow();
    if (!row) return;
    QAccessibleEvent focus(row, QAccessible::Focus);
    QAccessible::updateAccessibility(&focus);
}

void SnippetList::moveTo(std::ptrdiff_t row) {
    if (m_snippets.empty() || stage() != Stage::laidOut) return;
    const auto last = static_cast<std::ptrdiff_t>(m_snippets.size()) - 1;
    m_current.row = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(row, 0, last));
    QScrollBar* bar = verticalScrollBar();
    const int top = m_tops[m_current.row];
    const int bottom = m_tops[m_current.row + 1];
    if (top < bar->value())
        bar->setValue(top);
    else if (bottom > bar->value() + viewport()->height())
        bar->setValue(bottom - viewport()->height());
    markCurrentRow();
    // Queued: when the list gets the focus, Qt announces the list itself right after this.
    QMetaObject::invokeMethod(this, &SnippetList::announceCurrentRow, Qt::QueuedConnection);
}

void SnippetList::keyPressEvent(QKeyEvent* event) {
    m_current.isMarked = true;
    const auto current = static_cast<std::ptrdiff_t>(m_current.row);
    switch (event->key()) {
    case Qt::Key_Up: return moveTo(current - 1);
    case Qt::Key_Down: return moveTo(current + 1);
    case Qt::Key_Home: return moveTo(0);
    case Qt::Key_End: return moveTo(static_cast<std::ptrdiff_t>(m_snippets.size()));
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
        if (stage() != Stage::laidOut) return;
        const int way =
            event->key() == Qt::Key_PageUp ? -viewport()->height() : viewport()->height();
        return moveTo(static_cast<std::ptrdiff_t>(rowAt(std::max(m_tops[m_current.row] + way, 0))));
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (stage() != Stage::stale && m_current.row < m_snippets.size())
            m_state.copySnippet(*m_snippets[m_current.row]);
        return;
    default: QAbstractScrollArea::keyPressEvent(event);
    }
}

// The row shows the focus. A ring around the list would be a second one.
void SnippetList::initStyleOption(QStyleOptionFrame* option) const {
    QAbstractScrollArea::initStyleOption(option);
    if (!m_snippets.empty()) option->state &= ~QStyle::State_HasFocus;
}

void SnippetList::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    fit();
}

void SnippetList::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    if (m_mayLayOut) return fit();
    // A new window does not wait for its commands: their rows are made while the desktop makes room
    // for it.
    const auto beginLayingOut = [this] {
        m_mayLayOut = true;
        fit();
    };
    QMetaObject::invokeMethod(this, beginLayingOut, Qt::QueuedConnection);
}

void SnippetList::scrollContentsBy(int, int) { showVisibleRows(Content::same); }

void SnippetList::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    // After a click nobody has to be told where the keyboard is.
    m_current.isMarked = event->reason() != Qt::MouseFocusReason;
    if (m_current.isMarked) moveTo(static_cast<std::ptrdiff_t>(m_current.row));
}

void SnippetList::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    m_current.isMarked = false;
    markCurrentRow();
}

void SnippetList::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
    m_metrics.reset();
    layOut();
}

} // namespace korvan
