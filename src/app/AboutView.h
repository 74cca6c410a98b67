// SPDX-License-Identifier: MIT
#pragma once

#include "app/ProgramBundle.h"

#include <QDialog>

namespace korvan {

// The About window: what the program is, who made it and what to know before using it. `bundle` is
// only read by the constructor.
class AboutView final : public QDialog {
    Q_OBJECT

public:
    AboutView(const BundleInformation& bundle, QWidget* parent);

private:
    [[nodiscard]] QLayout* makeHeader(const BundleInformation& bundle);
};

} // namespace korvan
