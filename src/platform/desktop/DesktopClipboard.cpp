// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopClipboard.h"

#include "platform/desktop/QtText.h"

#include <QClipboard>
#include <QGuiApplication>

namespace korvan {

void DesktopClipboard::setText(const std::string& text) {
    QGuiApplication::clipboard()->setText(toQString(text), QClipboard::Clipboard);
}

} // namespace korvan
