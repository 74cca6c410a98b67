// SPDX-License-Identifier: MIT
#include "desktop/DesktopClipboard.h"

#include "desktop/QtText.h"

#include <QClipboard>
#include <QGuiApplication>

namespace korvan {

void DesktopClipboard::setText(const std::string& text) {
    QGuiApplication::clipboard()->setText(toQString(text), QClipboard::Clipboard);
}

} // namespace korvan
