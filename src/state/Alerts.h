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

    // The button that goes on with what cannot be undone, beside "Abbrechen". An alert without it
    // only tells something, and has the button "OK".
    std::string_view destructiveButton = {};
    void (ContentView::*confirm)() = nullptr;
    void (ContentView::*cancel)() = nullptr; // for every other way of closing it

    [[nodiscard]] bool isConfirmation() const { return confirm != nullptr; }
};

// The four confirmations, and last, since it may come while another is shown, the error alert.
[[nodiscard]] const std::array<Alert, 5>& alerts();

} // namespace korvan
