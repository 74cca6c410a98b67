// SPDX-License-Identifier: MIT
#include "ui/main/Alerts.h"

#include "support/Examples.h"
#include "support/MemoryKeyValueStore.h"
#include "support/RecordingDesktop.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace korvan {

namespace {

std::string shownMessage(const ContentView& state) {
    const auto shown =
        std::ranges::find_if(alerts(), [&](const Alert& each) { return *(state.*each.isShown); });
    return shown == alerts().end() ? "" : shown->message(state);
}

} // namespace

TEST(Alerts, NameWhatWouldBeDeleted) {
    RecordingDesktop desktop;
    MemoryKeyValueStore values;
    ContentView state(values, desktop.desktop());
    state.store.add(exampleProfile());
    state.selectProfile(exampleProfile());
    state.requestDeleteProfile();
    EXPECT_EQ(shownMessage(state), "„Drucker \"Süd\"“ wird entfernt.");
    state.deleteCandidate = std::nullopt;
    EXPECT_EQ(shownMessage(state), "Eintrag wird entfernt.");
    state.cancelDeleteProfile();

    state.requestDeleteCategory(exampleCategory());
    EXPECT_EQ(shownMessage(state), "„Büro“ wird gelöscht. Betroffene Profile werden auf „Ohne "
                                   "Kategorie“ gesetzt.");
    state.cancelDeleteCategory();

    state.requestDeleteSnippet(exampleSnippet());
    EXPECT_EQ(shownMessage(state), "„Ping Host“ wird entfernt.");
}

} // namespace korvan
