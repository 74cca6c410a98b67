// SPDX-License-Identifier: MIT
#include "ui/main/ProfileTable.h"

#include "ui/style/TextStyles.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <unordered_set>
#include <vector>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

struct ColumnLimits {
    int minimum;
    int ideal;
    int maximum;
};

constexpr int kNoMaximum = 1 << 20;
constexpr std::array<ColumnLimits, ProfileTableModel::columnTotal> kColumns = {{
    {160, 220, kNoMaximum}, // name
    {180, 260, kNoMaximum}, // host
    {60, 70, 90},           // port
    {120, 160, kNoMaximum}, // user
    {90, 110, kNoMaximum},  // password
    {40, 50, 60},           // key
}};

constexpr int kMinimumWidth = 520;
constexpr int kRowPadding = 12; // above and below the text together

const ColumnLimits& limitsOf(int column) { return kColumns[static_cast<std::size_t>(column)]; }

} // namespace

ProfileTable::ProfileTable(ContentView& view, QWidget* parent)
    : QTableView(parent), m_view(view), m_model(view) {
    configure();
    restyle();
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { takeOverSelection(); });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { limitColumn(column, width); });
    showSelection();
}

void ProfileTable::configure() {
    setModel(&m_model);
    setAccessibleName(u"Profile"_s);
    setMinimumWidth(kMinimumWidth);
    setFrameShape(QFrame::NoFrame);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* header = horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionsClickable(false);
    // One minimum for all columns is all that a header knows; limitColumn does the rest.
    header->setMinimumSectionSize(std::ranges::min(kColumns, {}, &ColumnLimits::minimum).minimum);
    for (int column = 0; column < ProfileTableModel::columnTotal; ++column)
        setColumnWidth(column, limitsOf(column).ideal);
}

void ProfileTable::restyle() {
    m_model.restyle();
    const int text =
        std::max(QFontMetrics(fontFor(TextStyle::body)).height(),
                 QFontMetrics(fontFor(TextStyle::body, FontDesign::monospaced)).height());
    verticalHeader()->setMinimumSectionSize(text);
    verticalHeader()->setDefaultSectionSize(text + kRowPadding);
    viewport()->update();
}

void ProfileTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) restyle();
}

void ProfileTable::refresh() {
    // A reload stays where it was; another filter begins at the top.
    const bool isSameFilter = m_shownFilter == *m_view.categoryFilter;
    const int scrolled = isSameFilter ? verticalScrollBar()->value() : 0;
    m_shownFilter = m_view.categoryFilter;
    bool wasReset = false;
    {
        // A reset empties the table's selection; that is no wish of the user.
        const QScopedValueRollback quiet(m_isShowingSelection, true);
        wasReset = m_model.refresh();
    }
    if (wasReset || m_shownSelection != *m_view.selection) showSelection();
    if (wasReset) {
        updateGeometries();
        verticalScrollBar()->setValue(scrolled);
    }
}

void ProfileTable::showSelection() {
    const QScopedValueRollback quiet(m_isShowingSelection, true);
    m_shownSelection = m_view.selection;
    const std::unordered_set<Uuid> wanted(m_shownSelection.ids().begin(),
                                          m_shownSelection.ids().end());
    QItemSelection rows;
    const int count = wanted.empty() ? 0 : m_model.rowCount();
    for (int row = 0; row < count; ++row) {
        const SSHProfile* profile = m_model.profileAt(row);
        if (!profile || !wanted.contains(profile->id)) continue;
        // One range for neighbours: a thousand single rows would be slow to draw.
        if (!rows.isEmpty() && rows.last().bottom() == row - 1)
            rows.last() = QItemSelectionRange(rows.last().topLeft(),
                                              m_model.index(row, ProfileTableModel::key));
        else
            rows.append(QItemSelectionRange(m_model.index(row, 0),
                                            m_model.index(row, ProfileTableModel::key)));
    }
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    // The keyboard goes on from the row that was selected first.
    if (!rows.isEmpty() && !selectionModel()->isSelected(currentIndex()))
        selectionModel()->setCurrentIndex(rows.first().topLeft(), QItemSelectionModel::NoUpdate);
}

void ProfileTable::takeOverSelection() {
    if (m_isShowingSelection) return;
    std::vector<Uuid> selected;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            if (const SSHProfile* profile = m_model.profileAt(row)) selected.push_back(profile->id);
    m_shownSelection = m_view.selection->changedTo(std::move(selected));
    m_view.selection = m_shownSelection;
}

QRect ProfileTable::textRectOf(const QModelIndex& index) const {
    const QString text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty()) return {};
    const QFontMetrics metrics(index.data(Qt::FontRole).value<QFont>());
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    const QRect cell = visualRect(index).adjusted(margin, 0, -margin, 0);
    const QSize size(std::min(metrics.horizontalAdvance(text), cell.width()), metrics.height());
    return QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, size, cell);
}

const SSHProfile* ProfileTable::profileWithTextAt(QPoint position) const {
    const QModelIndex index = indexAt(position);
    return textRectOf(index).contains(position) ? m_model.profileAt(index.row()) : nullptr;
}

void ProfileTable::mousePressEvent(QMouseEvent* event) {
    QTableView::mousePressEvent(event);
    const bool isPlainClick =
        event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    if (!isPlainClick) return;
    // Not left to the table's own selection: that says nothing where the row is selected already,
    // though the state may still hold the id of a profile that is gone.
    if (const SSHProfile* profile = profileWithTextAt(event->position().toPoint()))
        m_view.selectProfile(*profile);
}

void ProfileTable::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    const SSHProfile* profile = profileWithTextAt(event->position().toPoint());
    if (!profile || event->button() != Qt::LeftButton || event->modifiers() != Qt::NoModifier)
        return;
    m_view.selectProfile(*profile);
    m_view.connect(*profile);
}

void ProfileTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    if (!m_hasUserWidths) fitColumns();
}

// Fills the table's width: every column at its ideal, what is missing taken from all alike down to
// their minimum, what is left over given to those without a maximum.
void ProfileTable::fitColumns() {
    const QScopedValueRollback quiet(m_isFittingColumns, true);
    int ideal = 0;
    int slack = 0;
    int open = 0;
    for (const ColumnLimits& limits : kColumns) {
        ideal += limits.ideal;
        slack += limits.ideal - limits.minimum;
        if (limits.maximum == kNoMaximum) open += limits.ideal;
    }
    int extra = std::max(viewport()->width() - ideal, -slack);
    for (int column = 0; column < ProfileTableModel::columnTotal; ++column) {
        const ColumnLimits& limits = limitsOf(column);
        const bool isOpen = limits.maximum == kNoMaximum;
        int& total = extra < 0 ? slack : open;
        const int part = extra < 0 ? limits.ideal - limits.minimum : isOpen ? limits.ideal : 0;
        // Each takes its share of what is left, so that no pixel is lost by rounding.
        const int share = total > 0 ? extra * part / total : 0;
        setColumnWidth(column, limits.ideal + share);
        extra -= share;
        total -= part;
    }
}

void ProfileTable::limitColumn(int column, int width) {
    if (m_isFittingColumns) return;
    m_hasUserWidths = true;
    const ColumnLimits& limits = limitsOf(column);
    const int allowed = std::clamp(width, limits.minimum, limits.maximum);
    if (allowed != width) horizontalHeader()->resizeSection(column, allowed);
}

} // namespace korvan
