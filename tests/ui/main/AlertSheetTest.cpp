// SPDX-License-Identifier: MIT
#include "ui/main/AlertSheet.h"

#include "support/Widgets.h"

#include <QScrollBar>
#include <QTextEdit>
#include <gtest/gtest.h>

namespace korvan {

namespace {

using Role = AlertSheet::Role;

AlertSheet& shown(AlertSheet& sheet) {
    activate(sheet);
    return sheet;
}

} // namespace

TEST(AlertSheet, NeverDestroysOnReturn) {
    for (const auto& [focused, key] :
         {std::pair("Löschen", Qt::Key_Return), std::pair("Abbrechen", Qt::Key_Return),
          std::pair("Löschen", Qt::Key_Enter), std::pair("Löschen", Qt::Key_Escape)}) {
        AlertSheet sheet("Titel", "Text",
                         {{"Löschen", Role::destructive}, {"Abbrechen", Role::cancel}}, nullptr);
        sheet.setResult(QDialog::Accepted);
        QAbstractButton* button = buttonOf(shown(sheet), focused);
        button->setFocus();
        QTest::keyClick(button, key);
        EXPECT_FALSE(sheet.isVisible());
        EXPECT_EQ(sheet.result(), QDialog::Rejected);
    }
}

TEST(AlertSheet, DestroysWhenAskedTo) {
    AlertSheet sheet("Titel", "Text", {{"Löschen", Role::destructive}, {"Abbrechen", Role::cancel}},
                     nullptr);
    QTest::keyClick(buttonOf(shown(sheet), "Löschen"), Qt::Key_Space);
    EXPECT_EQ(sheet.result(), QDialog::Accepted);
}

TEST(AlertSheet, ShowsAnyMessageAsPlainTextWithinItsSize) {
    AlertSheet sheet("Fehler", "<b>kein</b> Platz", {{"OK", Role::standard}}, nullptr);
    const auto* message = shown(sheet).findChild<QTextEdit*>();
    EXPECT_EQ(message->toPlainText(), "<b>kein</b> Platz");
    const int height = sheet.height();
    sheet.setMessage(
        QStringLiteral("Zwei Zeilen sind nichts, was gerollt werden müsste. ").repeated(2));
    EXPECT_TRUE(QTest::qWaitFor([&] { return sheet.height() > height; }));
    EXPECT_FALSE(message->verticalScrollBar()->isVisible());
    sheet.setMessage(QString(5000, u'x'));
    EXPECT_TRUE(QTest::qWaitFor([&] { return sheet.height() > height; }));
    EXPECT_LT(sheet.height(), 500);
    EXPECT_EQ(sheet.width(), 420);
}

} // namespace korvan
