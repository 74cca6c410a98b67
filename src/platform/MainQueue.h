// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace korvan {

// Work for later on the thread of the user interface.
class MainQueue {
public:
    virtual ~MainQueue() = default;

    // Runs `task` once, from the event loop, when `delay` is over. What the task works on may be
    // gone by then; the task must check that. Never runs it when the queue ends first.
    virtual void runAfter(std::chrono::milliseconds delay, std::function<void()> task) = 0;
};

} // namespace korvan
