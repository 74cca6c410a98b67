// SPDX-License-Identifier: MIT
#include "state/ColumnWidths.h"

#include <gtest/gtest.h>

namespace korvan {

using Widths = ColumnWidths;

TEST(ColumnWidths, LetThePanelGiveWayThenTheTableThenTheSidebarThenTheTable) {
    const Widths cases[] = {{240, 1878, 440}, {240, 760, 440}, {240, 760, 439}, {240, 760, 340},
                            {240, 759, 340},  {240, 520, 340}, {239, 520, 340}, {200, 520, 340},
                            {200, 258, 340},  {200, 0, 340}};
    for (const Widths& each : cases)
        EXPECT_EQ(columnWidths(each.sidebar + each.table + each.panel, 1, 200, {}), each);
    EXPECT_EQ(columnWidths(979, 0, 200, {}), (Widths{240, 739, 0}));
    EXPECT_EQ(columnWidths(1060, 0.5, 200, {}), (Widths{240, 650, 170})) << "on its way";
}

TEST(ColumnWidths, KeepWhatTheUserDraggedAndOnlyThat) {
    EXPECT_EQ(columnWidths(2000, 1, 200, {380, 760, 560}), (Widths{380, 1060, 560}));
    // Where there was less room than the panel asks for; and then back.
    const auto wider = withPanelDraggedTo(500, 1124, {});
    for (const int table : {624, 1160, 624})
        EXPECT_EQ(columnWidths(740 + table, 1, 200, wider), (Widths{240, table, 500}));
    EXPECT_EQ(columnWidths(1264, 1, 200, wider), (Widths{240, 624, 400}));
    const auto back = withPanelDraggedTo(350, 1124, wider);
    EXPECT_EQ(columnWidths(1345, 1, 200, back), (Widths{240, 760, 345}));
    EXPECT_EQ(withPanelDraggedTo(560, 900, {}).panel, 380) << "no further than the table goes";
}

} // namespace korvan
