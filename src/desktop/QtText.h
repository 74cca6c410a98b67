// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <string_view>

// Text is UTF-8 in std::string below the views and QString inside of Qt. It changes here.
namespace korvan {

[[nodiscard]] inline QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::string fromQString(const QString& text) {
    return text.toUtf8().toStdString();
}

} // namespace korvan
