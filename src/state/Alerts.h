// SPDX-License-Identifier: MIT
#pragma once

#include "state/ContentView.h"

#include <array>
#include <string>
#include <string_view>

namespace korvan {

// What one of a window's alerts says and does.
struct Alert {
    Observable<bool> ContentView::* isShown;
    std::string_view title;
    std::string (*message)(const ContentView& state);

    // The button that does what cannot be undone; "Abbrechen" stands beside it. An alert without it
    // only says something, and has the button "OK".
    std::string_view destructiveButton = {};
    void (ContentView::*confirm)() = nullptr;
    void (ContentView::*cancel)() = nullptr; // for every other way of closing it

    [[nodiscard]] bool isConfirmation() const { return confirm != nullptr; }
};

// The four confirmations, then the error alert: it may open above one of them.
[[nodiscard]] const std::array<Alert, 5>& alerts();

} // namespace korvan
