// SPDX-License-Identifier: MIT
#include "ui/main/CategoryList.h"

#include "desktop/QtText.h"
#include "ui/style/Colors.h"
#include "ui/style/Drawing.h"
#include "ui/style/Symbols.h"
#include "ui/style/TextStyles.h"
#include "ui/style/UserText.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <algorithm>
#include <utility>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRowPadding = 4;
constexpr int kRowInset = 10;   // to the left and right of the content
constexpr int kHeadingGap = 12; // above the section's heading
constexpr float kHighlightOpacity = 0.15F;

// The side of the mark, a little smaller than the symbols of buttons.
int markSize() { return symbolSize() * 7 / 8; }

QFont fontOf(bool isHeading) {
    QFont font = fontFor(isHeading ? TextStyle::subheadline : TextStyle::body);
    font.setBold(isHeading);
    return font;
}

} // namespace

CategoryListModel::CategoryListModel(const ContentView& state, QObject* parent)
    : QAbstractListModel(parent), m_state(state), m_rows(makeRows()),
      m_revision(state.categoryStore.revision()), m_shownFilter(state.categoryFilter) {}

std::vector<CategoryListModel::Row> CategoryListModel::makeRows() const {
    std::vector<Row> rows;
    rows.push_back({u"Alle"_s, CategoryFilter::all()});
    rows.push_back({u"Ohne Kategorie"_s, CategoryFilter::uncategorized()});
    rows.push_back({u"Eigene Kategorien"_s, std::nullopt});
    for (const SSHCategory& category : m_state.categoryStore.categories())
        rows.push_back({toQString(category.name), CategoryFilter::category(category.id)});
    return rows;
}

void CategoryListModel::refresh() {
    const std::uint64_t revision = m_state.categoryStore.revision();
    if (m_revision == revision && m_shownFilter == m_state.categoryFilter) return;
    m_shownFilter = m_state.categoryFilter;
    if (m_revision == revision) {
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
        return;
    }
    m_revision = revision;
    std::vector<Row> rows = makeRows();
    const bool sameFilters = std::ranges::equal(rows, m_rows, {}, &Row::filter, &Row::filter);
    if (!sameFilters) beginResetModel();
    m_rows = std::move(rows);
    if (!sameFilters)
        endResetModel();
    else
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

std::optional<CategoryFilter> CategoryListModel::filterAt(int row) const {
    if (row < 0 || row >= rowCount()) return std::nullopt;
    return m_rows[static_cast<std::size_t>(row)].filter;
}

const SSHCategory* CategoryListModel::categoryAt(int row) const {
    const auto filter = filterAt(row);
    const auto id = filter ? filter->categoryId() : std::nullopt;
    return id ? m_state.categoryStore.find(*id) : nullptr;
}

bool CategoryListModel::isMarked(int row) const {
    const auto filter = filterAt(row);
    return filter && *filter == *m_state.categoryFilter;
}

int CategoryListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant CategoryListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole: return onOneLine(row.title);
    case kWrittenText: return row.title;
    case Qt::AccessibleDescriptionRole:
        return isMarked(index.row()) ? u"Aktiver Filter"_s : QString();
    default: return {};
    }
}

Qt::ItemFlags CategoryListModel::flags(const QModelIndex& index) const {
    if (!filterAt(index.row())) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

CategoryList::CategoryList(QWidget* parent) : QListView(parent) {
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    viewport()->setAttribute(Qt::WA_Hover);
}

// The row shows the focus. A ring around the list would be a second one.
void CategoryList::initStyleOption(QStyleOptionFrame* option) const {
    QListView::initStyleOption(option);
    if (currentIndex().isValid()) option->state &= ~QStyle::State_HasFocus;
}

void CategoryList::keyPressEvent(QKeyEvent* event) {
    QListView::keyPressEvent(event);
    viewport()->update();
}

void CategoryList::mousePressEvent(QMouseEvent* event) {
    const QModelIndex row = indexAt(event->position().toPoint());
    const bool isChosen =
        event->button() == Qt::LeftButton && row.flags().testFlag(Qt::ItemIsEnabled);
    m_pressed = isChosen ? row : QModelIndex();
    m_isOnPressed = m_pressed.isValid();
    QListView::mousePressEvent(event);
    viewport()->update();
}

void CategoryList::mouseMoveEvent(QMouseEvent* event) {
    QListView::mouseMoveEvent(event);
    const bool isOn = m_pressed.isValid() && m_pressed == indexAt(event->position().toPoint());
    if (isOn != m_isOnPressed) viewport()->update();
    m_isOnPressed = isOn;
}

void CategoryList::mouseReleaseEvent(QMouseEvent* event) {
    m_pressed = QModelIndex();
    m_isOnPressed = false;
    QListView::mouseReleaseEvent(event);
    viewport()->update();
}

FilterRowDelegate::FilterRowDelegate(const CategoryListModel& model, QObject* parent)
    : QStyledItemDelegate(parent), m_model(model) {}

// Where a row's title stands. The mark is beside it.
QRect FilterRowDelegate::titleRect(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
    const bool isHeading = !m_model.filterAt(index.row());
    const int mark = m_model.isMarked(index.row()) ? markSize() + kRowInset : 0;
    return option.rect.adjusted(kRowInset, isHeading ? kHeadingGap : 0, -kRowInset - mark, 0);
}

QSize FilterRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
    const bool isHeading = !m_model.filterAt(index.row());
    const QFontMetrics metrics(fontOf(isHeading));
    return {0, metrics.height() + 2 * kRowPadding + (isHeading ? kHeadingGap : 0)};
}

void FilterRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    painter->save();
    const bool isHeading = !m_model.filterAt(index.row());
    const auto* list = qobject_cast<const CategoryList*>(option.widget);
    const QRect title = titleRect(option, index);
    if (m_model.isMarked(index.row())) {
        QColor highlight = colorFor(SemanticColor::accent, option.palette);
        highlight.setAlphaF(kHighlightOpacity);
        painter->fillRect(option.rect, highlight);
        const QRect beside(title.right() + 1 + kRowInset, title.top(), markSize(), title.height());
        symbol(u"checkmark"_s, SemanticColor::secondary)
            .paint(painter, QStyle::alignedRect(option.direction, Qt::AlignCenter,
                                                {markSize(), markSize()}, beside));
    }
    if (!isHeading && list && list->pressedRow() == index)
        drawRowWash(*painter, option.rect, option.palette, Wash::pressed);
    else if (!isHeading && option.state.testFlag(QStyle::State_MouseOver))
        drawRowWash(*painter, option.rect, option.palette, Wash::hovered);
    const QFont font = fontOf(isHeading);
    painter->setFont(font);
    // The option's palette is the disabled one for a heading, since nobody can choose it.
    painter->setPen(colorFor(isHeading ? SemanticColor::secondary : SemanticColor::primary,
                             QGuiApplication::palette()));
    const QString text =
        QFontMetrics(font).elidedText(index.data().toString(), Qt::ElideRight, title.width());
    painter->drawText(title, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);

    // The row that Return would choose.
    if (list && option.state.testFlag(QStyle::State_HasFocus) && showsKeyboardFocus(*list))
        drawFocusRing(*painter, option.rect, option.palette, kSmallRadius);
    painter->restore();
}

bool FilterRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                  const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString written = index.data(CategoryListModel::kWrittenText).toString();
    const QString shown = index.data().toString();
    const QFontMetrics metrics(fontOf(!m_model.filterAt(index.row())));
    const bool isCut = metrics.horizontalAdvance(shown) > titleRect(option, index).width();
    if (isCut || shown != written)
        showToolTip(event->globalPos(), written, QToolTip::font(), *view->viewport(), option.rect);
    else
        QToolTip::hideText();
    return true;
}

} // namespace korvan
