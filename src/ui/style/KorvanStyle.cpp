// SPDX-License-Identifier: MIT
#include "ui/style/KorvanStyle.h"

namespace korvan {

KorvanStyle::KorvanStyle() : QProxyStyle(QStringLiteral("fusion")) {}

} // namespace korvan
