// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace korvan {

// How every control is drawn: flat and calm, on any desktop alike, with that desktop's palette and
// font. Set once, on the application.
class KorvanStyle final : public QProxyStyle {
    Q_OBJECT

public:
    KorvanStyle();
};

} // namespace korvan
