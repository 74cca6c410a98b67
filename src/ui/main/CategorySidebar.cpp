// SPDX-License-Identifier: MIT
#include "ui/main/CategorySidebar.h"

#include "desktop/QtText.h"
#include "ui/main/CategoryList.h"
#include "ui/main/ColumnHeading.h"
#include "ui/style/Controls.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QVBoxLayout>
#include <algorithm>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPadding = 12;
constexpr int kSpacing = 10;
constexpr int kHeadingSpacing = 4;
constexpr int kMinimumWidth = 200;
constexpr int kMaximumWidth = 380;

} // namespace

CategorySidebar::CategorySidebar(ContentView& state, QWidget* parent)
    : QWidget(parent), m_state(state), m_model(new CategoryListModel(state, this)),
      m_list(new CategoryList) {
    setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    layout->setSpacing(kSpacing);
    m_heading = makeHeading();
    layout->addWidget(m_heading);
    fitWidth();

    m_list->setModel(m_model);
    m_list->setItemDelegate(new FilterRowDelegate(*m_model, m_list));
    m_list->setAccessibleName(u"Kategorien"_s);
    m_list->installEventFilter(this);
    m_list->viewport()->installEventFilter(this);
    connect(m_list, &QListView::clicked, this, &CategorySidebar::chooseRow);
    layout->addWidget(m_list, 1);
    refresh();
}

ColumnHeading* CategorySidebar::makeHeading() {
    QToolButton* add = makeSymbolButton(u"plus"_s, u"Kategorie hinzufügen"_s);
    m_renameButton = makeSymbolButton(u"pencil"_s, u"Kategorie umbenennen"_s);
    m_deleteButton = makeSymbolButton(u"trash"_s, u"Kategorie löschen"_s, SemanticColor::red);
    connect(add, &QToolButton::clicked, this, [this] { m_state.newCategory(); });
    connect(m_renameButton, &QToolButton::clicked, this,
            [this] { m_state.renameSelectedCategory(); });
    connect(m_deleteButton, &QToolButton::clicked, this,
            [this] { m_state.requestDeleteSelectedCategory(); });
    return new ColumnHeading(u"Kategorien"_s, kHeadingSpacing,
                             {add, m_renameButton, m_deleteButton});
}

// The whole heading can be read in large text, too.
void CategorySidebar::fitWidth() {
    const int least = std::max(kMinimumWidth, m_heading->idealWidth() + 2 * kPadding);
    setMaximumWidth(std::max(kMaximumWidth, least));
    setMinimumWidth(least);
}

bool CategorySidebar::event(QEvent* event) {
    const bool isDone = QWidget::event(event);
    // After a change of font this event comes last, when the heading has the new one.
    if (event->type() == QEvent::LayoutRequest) fitWidth();
    return isDone;
}

void CategorySidebar::refresh() {
    const int current = m_list->currentIndex().row();
    m_model->refresh();
    // A list that was filled anew has lost the row that the keyboard was on.
    if (current >= 0 && !m_list->currentIndex().isValid())
        m_list->setCurrentIndex(m_model->index(std::min(current, m_model->rowCount() - 1)));
    const bool hasCategory = m_state.selectedCategory() != nullptr;
    m_renameButton->setEnabled(hasCategory);
    m_deleteButton->setEnabled(hasCategory);
}

void CategorySidebar::chooseRow(const QModelIndex& index) {
    if (const auto filter = m_model->filterAt(index.row())) m_state.chooseCategoryFilter(*filter);
}

void CategorySidebar::openMenu(const QModelIndex& index, QPoint globalPosition) {
    const SSHCategory* category = m_model->categoryAt(index.row());
    if (!category) return;
    // A copy, since the list may change before the user has chosen.
    const SSHCategory chosen = *category;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName(toQString(chosen.name));
    connect(menu->addAction(u"Umbenennen…"_s), &QAction::triggered, this,
            [this, chosen] { m_state.renameCategory(chosen); });
    connect(menu->addAction(u"Löschen…"_s), &QAction::triggered, this,
            [this, chosen] { m_state.requestDeleteCategory(chosen); });
    menu->popup(globalPosition);
}

void CategorySidebar::openMenuOfCurrentRow() {
    const QModelIndex index = m_list->currentIndex();
    openMenu(index, m_list->viewport()->mapToGlobal(m_list->visualRect(index).bottomLeft()));
}

bool CategorySidebar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ContextMenu) {
        const auto* menu = static_cast<QContextMenuEvent*>(event);
        const bool isByKey = menu->reason() == QContextMenuEvent::Keyboard;
        // The list and its viewport both see the event. The mouse's position is in the viewport.
        if (!isByKey && watched != m_list->viewport()) return false;
        if (isByKey)
            openMenuOfCurrentRow();
        else
            openMenu(m_list->indexAt(menu->pos()), menu->globalPos());
        return true;
    }
    if (watched == m_list && event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        const int key = press->key();
        // For keyboards without a menu key, which is the only one that the toolkit knows.
        if (key == Qt::Key_F10 && press->modifiers() == Qt::ShiftModifier) {
            openMenuOfCurrentRow();
            return true;
        }
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
            chooseRow(m_list->currentIndex());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace korvan
