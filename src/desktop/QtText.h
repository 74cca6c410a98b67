// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <string_view>

// Converts between UTF-8 in std::string, which is used below the views, and Qt's QString.
namespace korvan {

[[nodiscard]] inline QString toQString(std::string_view text) { return QString::fromUtf8(text); }

[[nodiscard]] inline std::string fromQString(const QString& text) {
    return text.toUtf8().toStdString();
}

} // namespace korvan
