// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopFilePanels.h"

#include "support/TemporaryFolder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>
#include <gtest/gtest.h>

namespace korvan {
namespace {

TEST(DesktopFilePanels, AskBeforeTheNameThatGotItsEndingReplacesAFile) {
    int count = 0;
    const QApplication application(count, nullptr);
    const TemporaryFolder folder;
    const auto old = folder.file("old.json", "{}").string();
    const auto without = old.substr(0, old.size() - 5);

    // Types a name into each file panel, and presses a button of each question in turn.
    QStringList names;
    QStringList answers;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, &application, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        if (auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
            if (names.isEmpty()) return dialog->reject();
            name->setText(names.takeFirst());
            return dialog->accept();
        }
        const QString answer = answers.takeFirst();
        for (auto* button : dialog->findChildren<QAbstractButton*>())
            if (button->text() == answer) return button->click();
    });
    user.start(10);
    const auto choose = [&](const std::string& name, const QStringList& replies) {
        names = {QString::fromStdString(name)};
        answers = replies;
        return DesktopFilePanels().runSavePanel({"Export", "proposed.json", "json"}).value_or("");
    };
    EXPECT_EQ(choose(without, {QStringLiteral("Abbrechen")}), "");
    EXPECT_EQ(choose(without, {QStringLiteral("Ersetzen")}), old);
    EXPECT_EQ(choose(without + "er", {}), without + "er.json");
    EXPECT_TRUE(answers.isEmpty());
    names = {QString::fromStdString(folder.path()), QString::fromStdString(old)};
    EXPECT_EQ(DesktopFilePanels().runOpenPanel({"Import", {"json"}}), old);
}

} // namespace
} // namespace korvan
