// SPDX-License-Identifier: MIT
#include "ui/main/ProfileTable.h"

#include "state/ColumnWidths.h"
#include "ui/main/ProfileCell.h"
#include "ui/style/Drawing.h"
#include "ui/style/TextStyles.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>
#include <array>
#include <cmath>
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

// The font size that the limits are made for, in pixels; larger text needs wider columns.
constexpr double kUsualText = 14.67;
constexpr int kRowPadding = 12; // above and below the text together

// How much wider than usual the columns are, for a larger text.
double columnScale() {
    return std::max(1.0, QFontInfo(fontFor(TextStyle::body)).pixelSize() / kUsualText);
}

ColumnLimits limitsOf(int column, double scale) {
    const auto scaled = [scale](int width) { return static_cast<int>(std::lround(width * scale)); };
    const ColumnLimits& usual = kColumns[static_cast<std::size_t>(column)];
    return {scaled(usual.minimum), scaled(usual.ideal),
            usual.maximum == kNoMaximum ? kNoMaximum : scaled(usual.maximum)};
}

// Continues the header above the scroll bar.
class HeaderEnd final : public QWidget {
public:
    explicit HeaderEnd(QHeaderView* header) : m_header(header) { follow(); }

    void follow() { setFixedHeight(m_header->height()); }

protected:
    void paintEvent(QPaintEvent*) override {
        QStyleOption option;
        option.initFrom(m_header);
        option.rect = rect();
        QPainter painter(this);
        style()->drawControl(QStyle::CE_HeaderEmptyArea, &option, &painter, m_header);
    }

private:
    QHeaderView* m_header;
};

} // namespace

ProfileTable::ProfileTable(ContentView& state, QWidget* parent)
    : QTableView(parent), m_state(state), m_model(state), m_cell(new ProfileCell(this)) {
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
    setItemDelegate(m_cell);
    viewport()->setAttribute(Qt::WA_Hover);
    setAccessibleName(u"Profile"_s);
    setMinimumWidth(kLeastTableWidth);
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
    auto* end = new HeaderEnd(header);
    addScrollBarWidget(end, Qt::AlignTop);
    connect(header, &QHeaderView::geometriesChanged, end, &HeaderEnd::follow);
}

void ProfileTable::restyle() {
    m_model.restyle();
    m_columnScale = columnScale();
    const int text =
        std::max(QFontMetrics(fontFor(TextStyle::body)).height(),
                 QFontMetrics(fontFor(TextStyle::body, FontDesign::monospaced)).height());
    verticalHeader()->setMinimumSectionSize(text);
    verticalHeader()->setDefaultSectionSize(text + kRowPadding);
    // A header knows only one minimum for all columns. limitColumn() does the rest.
    horizontalHeader()->setMinimumSectionSize(
        limitsOf(ProfileTableModel::key, m_columnScale).minimum);
    if (!m_hasUserWidths) fitColumns();
    for (int column = 0; m_hasUserWidths && column < ProfileTableModel::columnTotal; ++column)
        limitColumn(column, columnWidth(column));
    viewport()->update();
}

void ProfileTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) restyle();
}

void ProfileTable::refresh() {
    // A reload stays where it was; another filter begins at the top.
    const bool isSameFilter = m_shownFilter == *m_state.categoryFilter;
    const int scrolled = isSameFilter ? verticalScrollBar()->value() : 0;
    m_shownFilter = m_state.categoryFilter;
    const int current = currentIndex().row();
    bool wasReset = false;
    {
        // A reset empties the table's selection. The user did not ask for that.
        const QScopedValueRollback quiet(m_isShowingSelection, true);
        wasReset = m_model.refresh();
    }
    if (wasReset || m_shownSelection != *m_state.selection) showSelection();
    if (wasReset) {
        // The keyboard goes on from where it was.
        if (current >= 0 && !currentIndex().isValid())
            selectionModel()->setCurrentIndex(
                m_model.index(std::min(current, m_model.rowCount() - 1), 0),
                QItemSelectionModel::NoUpdate);
        updateGeometries();
        verticalScrollBar()->setValue(scrolled);
    }
}

void ProfileTable::showSelection() {
    const QScopedValueRollback quiet(m_isShowingSelection, true);
    m_shownSelection = m_state.selection;
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
    m_shownSelection = m_state.selection->changedTo(std::move(selected));
    m_state.selection = m_shownSelection;
}

const SSHProfile* ProfileTable::profileWithTextAt(QPoint position) const {
    const QModelIndex index = indexAt(position);
    const bool isText = m_cell->textRect(visualRect(index), index).contains(position);
    return isText ? m_model.profileAt(index.row()) : nullptr;
}

void ProfileTable::mousePressEvent(QMouseEvent* event) {
    QTableView::mousePressEvent(event);
    const bool isPlainClick =
        event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    if (!isPlainClick) return;
    if (!indexAt(event->position().toPoint()).isValid()) {
        clearSelection();
        m_state.selection = ProfileSelection(); // drops the ids of profiles that are gone, too
        return;
    }
    // The table says nothing when the row is selected already. But the state may still hold the id
    // of a profile that is gone, and that one must go.
    if (const SSHProfile* profile = profileWithTextAt(event->position().toPoint()))
        m_state.selectProfile(*profile);
}

void ProfileTable::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    const SSHProfile* profile = profileWithTextAt(event->position().toPoint());
    if (!profile || event->button() != Qt::LeftButton || event->modifiers() != Qt::NoModifier)
        return;
    m_state.selectProfile(*profile);
    m_state.connect(*profile);
}

// The keyboard moves by rows: Home and End go to the first and the last one.
QModelIndex ProfileTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int column = std::max(currentIndex().column(), 0);
    if (action == MoveHome) return m_model.index(0, column);
    if (action == MoveEnd) return m_model.index(m_model.rowCount() - 1, column);
    return QTableView::moveCursor(action, modifiers);
}

void ProfileTable::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const int row = isPlain && !selectionModel()->hasSelection() ? firstRowFor(event->key()) : -1;
    if (row < 0) return QTableView::keyPressEvent(event);
    selectionModel()->setCurrentIndex(m_model.index(row, 0), QItemSelectionModel::ClearAndSelect |
                                                                 QItemSelectionModel::Rows);
}

// Where nothing is selected, an arrow begins with the row that has the keyboard, not with the next.
int ProfileTable::firstRowFor(int key) const {
    const int last = m_model.rowCount() - 1;
    switch (key) {
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
    case Qt::Key_Space: return std::min(std::max(currentIndex().row(), 0), last);
    case Qt::Key_Home: return std::min(0, last);
    case Qt::Key_End: return last;
    default: return -1;
    }
}

void ProfileTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!showsKeyboardFocus(*this)) return;
    QPainter painter(viewport());
    const QModelIndex current = currentIndex();
    if (!current.isValid()) return drawFocusRing(painter, viewport()->rect(), palette(), 0);
    // Around what can be seen of the row, so that the ring is closed.
    const QRect row = visualRect(current.siblingAtColumn(0))
                          .united(visualRect(current.siblingAtColumn(ProfileTableModel::key)));
    const QRect shown(std::max(row.left(), 0), row.top(),
                      std::min(row.right() + 1, viewport()->width()) - std::max(row.left(), 0),
                      row.height());
    // In a selected row the ring has the colour of the text. At the edge it would only make the row
    // look smaller.
    if (selectionModel()->isSelected(current))
        drawFocusRing(painter, shown.adjusted(2, 2, -2, -2), palette(), kSmallRadius,
                      RingGround::selection);
    else
        drawFocusRing(painter, shown, palette(), kSmallRadius);
}

// The ring is around the whole row.
void ProfileTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    updateRow(previous.row());
    updateRow(current.row());
}

void ProfileTable::updateRow(int row) {
    if (row >= 0)
        viewport()->update(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
}

void ProfileTable::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    viewport()->update(); // all selected rows, not the current one alone
}

void ProfileTable::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    viewport()->update();
}

bool ProfileTable::viewportEvent(QEvent* event) {
    const bool isDone = QTableView::viewportEvent(event);
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove)
        showHoverAt(static_cast<QHoverEvent*>(event)->position().toPoint());
    if (event->type() == QEvent::HoverLeave) showHoverAt({-1, -1});
    return isDone;
}

void ProfileTable::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (m_cell->hoveredRow() >= 0) showHoverAt(viewport()->mapFromGlobal(QCursor::pos()));
}

void ProfileTable::showHoverAt(QPoint position) {
    const int row = viewport()->rect().contains(position) ? indexAt(position).row() : -1;
    if (row == m_cell->hoveredRow()) return;
    updateRow(m_cell->hoveredRow());
    updateRow(row);
    m_cell->setHoveredRow(row);
}

void ProfileTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    if (!m_hasUserWidths) fitColumns();
}

// Fills the table's width. Each column begins at its ideal. What is missing is taken from all, down
// to their minimum; what is left over goes to those without a maximum.
void ProfileTable::fitColumns() {
    const QScopedValueRollback quiet(m_isFittingColumns, true);
    int ideal = 0;
    int slack = 0;
    int open = 0;
    for (int column = 0; column < ProfileTableModel::columnTotal; ++column) {
        const ColumnLimits limits = limitsOf(column, m_columnScale);
        ideal += limits.ideal;
        slack += limits.ideal - limits.minimum;
        if (limits.maximum == kNoMaximum) open += limits.ideal;
    }
    int extra = std::max(viewport()->width() - ideal, -slack);
    for (int column = 0; column < ProfileTableModel::columnTotal; ++column) {
        const ColumnLimits limits = limitsOf(column, m_columnScale);
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
    const ColumnLimits limits = limitsOf(column, m_columnScale);
    const int allowed = std::clamp(width, limits.minimum, limits.maximum);
    if (allowed != width) horizontalHeader()->resizeSection(column, allowed);
}

} // namespace korvan
