// SPDX-License-Identifier: MIT
#include "app/ReplaceQuestion.h"

#include "ui/main/AlertSheet.h"

namespace korvan {

using namespace Qt::StringLiterals;

bool mayReplace(QWidget* window, const QString& title, const QString& fileName) {
    AlertSheet question(u"Datei ersetzen?"_s, u"„%1“ ist bereits vorhanden."_s.arg(fileName),
                        {{u"Ersetzen"_s, AlertSheet::Role::destructive},
                         {u"Abbrechen"_s, AlertSheet::Role::cancel}},
                        window);
    question.setWindowTitle(title);
    return question.exec() == QDialog::Accepted;
}

} // namespace korvan
