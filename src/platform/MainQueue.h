// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace korvan {

// Work for later on the thread of the user interface.
class MainQueue {
public:
    virtual ~MainQueue() = default;

    // Runs `task` once from the event loop when `delay` is over. The task must bear that whatever
    // it works on has ended meanwhile.
    virtual void runAfter(std::chrono::milliseconds delay, std::function<void()> task) = 0;
};

} // namespace korvan
