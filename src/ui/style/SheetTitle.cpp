// SPDX-License-Identifier: MIT
#include "ui/style/SheetTitle.h"

#include <QDialog>

namespace korvan {

void setSheetTitle(QDialog& sheet, const QString& title) {
    sheet.setWindowTitle(QStringLiteral("Korvan"));
    sheet.setWindowRole(title);
    sheet.setAccessibleName(title);
}

} // namespace korvan
