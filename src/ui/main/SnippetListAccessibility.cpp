// SPDX-License-Identifier: MIT
#include "ui/main/SnippetList.h"
#include "ui/main/SnippetRow.h"

#include <QAccessibleWidget>
#include <algorithm>

namespace korvan {

namespace {

// The rows that can be seen are the items. The viewport between list and rows is left out.
class ListAccessibility final : public QAccessibleWidget {
public:
    explicit ListAccessibility(SnippetList* list)
        : QAccessibleWidget(list, QAccessible::List), m_list(*list) {}

    [[nodiscard]] int childCount() const override {
        return static_cast<int>(m_list.visibleRows().size());
    }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        const auto rows = m_list.visibleRows();
        const bool isThere = index >= 0 && index < static_cast<int>(rows.size());
        return isThere ? interfaceOf(rows[static_cast<std::size_t>(index)]) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const auto rows = m_list.visibleRows();
        const auto found = std::ranges::find(rows, child->object());
        return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        for (SnippetRow* row : m_list.visibleRows()) {
            auto* item = interfaceOf(row);
            if (item->rect().contains(x, y)) return item;
        }
        return nullptr;
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        SnippetRow* row = m_list.markedRow();
        return row ? interfaceOf(row) : QAccessibleWidget::focusChild();
    }

private:
    [[nodiscard]] static QAccessibleInterface* interfaceOf(SnippetRow* row) {
        return QAccessible::queryAccessibleInterface(row);
    }

    SnippetList& m_list;
};

// A row has the focus while the list has it and the keyboard is on that row. Pressing it copies, as
// a click does.
class RowAccessibility final : public QAccessibleWidget {
public:
    explicit RowAccessibility(SnippetRow* row)
        : QAccessibleWidget(row, QAccessible::ListItem), m_row(*row) {}

    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(m_row.parentWidget()->parentWidget());
    }
    [[nodiscard]] QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.focusable = true;
        state.focused = m_row.isMarked();
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        if (action == pressAction()) m_row.copy();
    }

private:
    SnippetRow& m_row;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    if (auto* list = qobject_cast<SnippetList*>(object)) return new ListAccessibility(list);
    if (auto* row = qobject_cast<SnippetRow*>(object)) return new RowAccessibility(row);
    return nullptr;
}

} // namespace

void SnippetList::installAccessibility() { QAccessible::installFactory(makeInterface); }

} // namespace korvan
