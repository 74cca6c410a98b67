// SPDX-License-Identifier: MIT
#pragma once

#include "platform/MainQueue.h"

#include <QObject>

namespace korvan {

// Timers of Qt's event loop. What is still waiting when this object ends is dropped.
class DesktopMainQueue final : public MainQueue {
public:
    void runAfter(std::chrono::milliseconds delay, std::function<void()> task) override;

private:
    QObject m_context;
};

} // namespace korvan
