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

// How wide the user dragged the columns, or what a window begins with. The panel stands beside a
// table of at least `table`: less, once the user has widened it where there was less.
struct DraggedWidths {
    int sidebar = 240;
    int table = 760;
    int panel = 440;
};

inline constexpr int kLeastTableWidth = 520;
inline constexpr int kLeastPanelWidth = 340;
inline constexpr int kGreatestPanelWidth = 560;

// The widths in a window with this room. They follow from the arguments alone, so what a window was
// like before changes nothing. Where room is short, the panel gives way first, then the table, then
// the sidebar, each down to its least width, and at last the table alone. What is left over goes to
// the table.
//
// `panelShare` is how much of the panel can be seen, from 0 to 1. The least width of the sidebar
// depends on the font.
[[nodiscard]] ColumnWidths columnWidths(int room, double panelShare, int leastSidebar,
                                        const DraggedWidths& dragged);

// `dragged` once the user has dragged the panel to a width of `panel`, in a window that has the
// room `beside` for table and panel.
[[nodiscard]] DraggedWidths withPanelDraggedTo(int panel, int beside, DraggedWidths dragged);

} // namespace korvan
