// SPDX-License-Identifier: MIT
#include "ui/style/KorvanStyle.h"

#include <QWidget>

namespace korvan {

KorvanStyle::KorvanStyle() : QProxyStyle(QStringLiteral("fusion")) {}

int animationDuration(const QWidget& widget) {
    constexpr int slideMilliseconds = 180;
    const auto* style = qobject_cast<const KorvanStyle*>(widget.style());
    return style && style->motion() == KorvanStyle::Motion::full ? slideMilliseconds : 0;
}

} // namespace korvan
