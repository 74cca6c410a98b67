// SPDX-License-Identifier: MIT
#include "ui/main/AlertSheet.h"

#include "support/Widgets.h"

#include <QScrollBar>
#include <QTextEdit>

namespace korvan {

using Role = AlertSheet::Role;

TEST(AlertSheet, DestroysWhenAskedToAndNeverOnReturn) {
    const std::tuple<const char*, Qt::Key, int> cases[] = {
        {"Löschen", Qt::Key_Return, QDialog::Rejected},
        {"Abbrechen", Qt::Key_Return, QDialog::Rejected},
        {"Löschen", Qt::Key_Enter, QDialog::Rejected},
        {"Löschen", Qt::Key_Escape, QDialog::Rejected},
        {"Löschen", Qt::Key_Space, QDialog::Accepted}};
    for (const auto& [focused, key, result] : cases) {
        AlertSheet sheet("Titel", "Text",
                         {{"Löschen", Role::destructive}, {"Abbrechen", Role::cancel}}, nullptr);
        sheet.setResult(-1);
        activate(sheet);
        QAbstractButton* button = buttonOf(sheet, focused);
        button->setFocus();
        QTest::keyClick(button, key);
        EXPECT_FALSE(sheet.isVisible());
        EXPECT_EQ(sheet.result(), result) << focused << key;
    }
}

TEST(AlertSheet, ShowsAnyMessageAsPlainTextWithinItsSize) {
    AlertSheet sheet("Fehler", "<b>kein</b> Platz", {{"OK", Role::standard}}, nullptr);
    activate(sheet);
    const auto* message = sheet.findChild<QTextEdit*>();
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
    // No line is cut through, at the top or at the bottom, and nothing is under the bar.
    const auto* bar = message->verticalScrollBar();
    const QRect view = message->viewport()->geometry();
    message->verticalScrollBar()->setValue(100);
    EXPECT_EQ(message->cursorRect(message->cursorForPosition({9, 1})).top(), 0);
    EXPECT_EQ(view.height() % QFontMetrics(message->font()).lineSpacing(), 0);
    EXPECT_EQ(bar->mapTo(message, QPoint()).x() - view.right() - 1, 8);
    EXPECT_EQ(sheet.grab().toImage().pixelColor(bar->mapTo(&sheet, QPoint(1, 1))),
              sheet.palette().color(QPalette::Window));
}

} // namespace korvan
