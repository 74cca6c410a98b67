// SPDX-License-Identifier: MIT
#include "state/ColumnWidths.h"

#include <algorithm>
#include <cmath>

namespace korvan {

namespace {

// Like std::clamp, but `least` wins where it is above `greatest`.
int between(int least, int width, int greatest) {
    return std::max(least, std::min(width, greatest));
}

} // namespace

ColumnWidths columnWidths(int room, double panelShare, int leastSidebar,
                          const DraggedWidths& dragged) {
    const auto shown = [panelShare](int width) {
        return static_cast<int>(std::lround(panelShare * width));
    };
    const int besideSidebar = kLeastTableWidth + shown(kLeastPanelWidth);
    const int sidebar = between(leastSidebar, dragged.sidebar, room - besideSidebar);
    const int panel =
        shown(between(kLeastPanelWidth, dragged.panel, room - sidebar - dragged.table));
    return {sidebar, std::max(0, room - sidebar - panel), panel};
}

DraggedWidths withPanelDraggedTo(int panel, int beside, DraggedWidths dragged) {
    dragged.panel = between(kLeastPanelWidth, panel, beside - kLeastTableWidth);
    dragged.table = std::min(DraggedWidths().table, beside - dragged.panel);
    return dragged;
}

} // namespace korvan
