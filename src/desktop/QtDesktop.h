// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clipboard.h"
#include "platform/MainQueue.h"

#include <QObject>

// The parts of a desktop that Qt offers in the same way on all of them.
namespace korvan {

// The clipboard that Ctrl+V pastes, not the one of the middle mouse button. Wayland takes a text
// only while an input event is handled.
class DesktopClipboard final : public Clipboard {
public:
    void setText(const std::string& text) override;
};

// Timers of Qt's event loop. What still waits when this object ends is never run.
class DesktopMainQueue final : public MainQueue {
public:
    void runAfter(std::chrono::milliseconds delay, std::function<void()> task) override;

private:
    QObject m_context;
};

} // namespace korvan
