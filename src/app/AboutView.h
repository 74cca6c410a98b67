// SPDX-License-Identifier: MIT
#pragma once

#include "platform/BundleInformation.h"

#include <QDialog>

namespace korvan {

// What the program is, who made it and what to know before using it.
class AboutView final : public QDialog {
    Q_OBJECT

public:
    AboutView(const BundleInformation& bundle, QWidget* parent);

private:
    [[nodiscard]] QLayout* makeHeader(const BundleInformation& bundle);
};

} // namespace korvan
