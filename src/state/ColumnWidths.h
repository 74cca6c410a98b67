// SPDX-License-Identifier: MIT
#pragma once

namespace korvan {

// How the room in a window is shared among its three columns, in logical pixels and without the
// dividers between them.
struct ColumnWidths {
    int sidebar = 0;
    int table = 0;
    int panel = 0;

    friend bool operator==(const ColumnWidths&, const ColumnWidths&) = default;
};

// How wide the user dragged the columns, or what a window begins with. The panel leaves the table
// at least `table`, which is less once the user has dragged the panel further.
struct DraggedWidths {
    int sidebar = 240;
    int table = 760;
    int panel = 440;
};

inline constexpr int kLeastTableWidth = 520;
inline constexpr int kLeastPanelWidth = 340;
inline constexpr int kGreatestPanelWidth = 560;

// The widths in a window with this room. They follow from the arguments alone, not from an earlier
// size. Where room is short, the panel gives way first, then the table, then the sidebar, each down
// to its least width. Where even that is too much, the table alone gets less. What is left over
// goes to the table.
//
// `panelShare` is how much of the panel can be seen, from 0 to 1. The least width of the sidebar
// depends on the font.
[[nodiscard]] ColumnWidths columnWidths(int room, double panelShare, int leastSidebar,
                                        const DraggedWidths& dragged);

// What `dragged` becomes when the user drags the panel to the width `panel`. `beside` is the room
// for table and panel together.
[[nodiscard]] DraggedWidths withPanelDraggedTo(int panel, int beside, DraggedWidths dragged);

} // namespace korvan
