// SPDX-License-Identifier: MIT
#pragma once

#include "state/CategoryFilter.h"
#include "state/ContentView.h"

#include <QAbstractTableModel>
#include <QFont>
#include <cstdint>
#include <vector>

namespace korvan {

// The profiles that the category filter admits, as rows of a table. Reads the window's state, which
// must outlive it, and never changes it.
class ProfileTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { name, host, port, user, password, key, columnTotal };

    // The role of a text as it is written; the display role has it on one line. Empty for cells
    // that show no text of the user.
    static constexpr int kWrittenText = Qt::UserRole;

    explicit ProfileTableModel(const ContentView& state, QObject* parent = nullptr);

    // Takes over what changed since the last call. Answers whether rows came, went or moved, in
    // which case the model was reset and its views have lost their selection.
    bool refresh();

    // The profile of a row, null when the store no longer has it.
    [[nodiscard]] const SSHProfile* profileAt(int row) const;

    // Takes over the desktop's font and colours after they changed.
    void restyle();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    [[nodiscard]] bool showsTheSameRows(const std::vector<std::size_t>& places) const;
    void assign(std::vector<std::size_t> places);

    const ContentView& m_state;
    std::vector<std::size_t> m_places; // in the store's list, by row
    std::vector<Uuid> m_ids;           // by row
    std::uint64_t m_revision = 0;
    CategoryFilter m_filter = CategoryFilter::all();
    QFont m_bodyFont;
    QFont m_monospacedFont;
};

} // namespace korvan
