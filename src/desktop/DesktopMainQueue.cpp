// SPDX-License-Identifier: MIT
#include "desktop/DesktopMainQueue.h"

#include <QTimer>
#include <utility>

namespace korvan {

void DesktopMainQueue::runAfter(std::chrono::milliseconds delay, std::function<void()> task) {
    QTimer::singleShot(delay, Qt::PreciseTimer, &m_context, std::move(task));
}

} // namespace korvan
