// SPDX-License-Identifier: MIT
#include "desktop/QtDesktop.h"

#include "desktop/QtText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTimer>
#include <utility>

namespace korvan {

void DesktopClipboard::setText(const std::string& text) {
    QGuiApplication::clipboard()->setText(toQString(text), QClipboard::Clipboard);
}

void DesktopMainQueue::runAfter(std::chrono::milliseconds delay, std::function<void()> task) {
    QTimer::singleShot(delay, Qt::PreciseTimer, &m_context, std::move(task));
}

} // namespace korvan
