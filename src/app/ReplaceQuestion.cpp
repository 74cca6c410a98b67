// SPDX-License-Identifier: MIT
#include "app/ReplaceQuestion.h"

#include "ui/main/AlertSheet.h"

namespace korvan {

bool mayReplace(QWidget* window, const QString& title, const QString& fileName) {
    AlertSheet question(QStringLiteral("Datei ersetzen?"),
                        QStringLiteral("„%1“ ist bereits vorhanden.").arg(fileName),
                        {{QStringLiteral("Ersetzen"), AlertSheet::Role::destructive},
                         {QStringLiteral("Abbrechen"), AlertSheet::Role::cancel}},
                        window);
    question.setWindowTitle(title);
    return question.exec() == QDialog::Accepted;
}

} // namespace korvan
