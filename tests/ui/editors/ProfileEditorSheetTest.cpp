// SPDX-License-Identifier: MIT
#include "ui/editors/ProfileEditorSheet.h"

#include "support/Examples.h"
#include "support/RecordingDesktop.h"
#include "support/Widgets.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

namespace korvan {

namespace {

class ProfileEditorSheetTest : public testing::Test {
protected:
    QDialog& open(const SSHProfile& draft) {
        sheet = std::make_unique<ProfileEditorSheet>(
            ProfileEditorView(
                draft, {exampleCategory()}, [this] { ++cancels; },
                [this](const SSHProfile& profile) { saved.push_back(profile); }),
            filePanels, nullptr);
        activate(*sheet);
        return *sheet;
    }

    QLineEdit* field(std::string_view name) { return named<QLineEdit>(*sheet, name); }
    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    PreparedFilePanels filePanels;
    std::unique_ptr<ProfileEditorSheet> sheet;
    std::vector<SSHProfile> saved;
    int cancels = 0;
};

// What a screen reader calls it: its label, or itself.
std::string spokenName(QWidget* widget) {
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
    const auto labels = spoken->relations(QAccessible::Label);
    return fromQString((labels.empty() ? spoken : labels[0].first)->text(QAccessible::Name));
}

} // namespace

TEST_F(ProfileEditorSheetTest, FollowsTheTypingWithItsTitleAndTheValuesOfItsFields) {
    QDialog& dialog = open(with(exampleProfile(), &SSHProfile::name, ""));
    EXPECT_EQ(dialog.width(), 740);
    EXPECT_EQ(dialog.accessibleName(), "Neues SSH Profil");
    QTest::keyClicks(QApplication::focusWidget(), "web");
    EXPECT_EQ(dialog.accessibleName(), "SSH Profil bearbeiten");
    for (const auto* name : {"Name", "IP / Host", "Benutzername", "Passwort (nur Notizfeld)",
                             "Extra SSH-Args (optional)"})
        field(name)->setText(name);
    press(Qt::Key_Return);
    QTest::keyClick(&dialog, Qt::Key_Return);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    const SSHProfile expected{exampleId(1),
                              "Name",
                              "IP / Host",
                              "Benutzername",
                              2222,
                              exampleProfile().identityFile,
                              "Passwort (nur Notizfeld)",
                              "Extra SSH-Args (optional)",
                              exampleCategory().id};
    EXPECT_EQ(saved, std::vector{expected});
    EXPECT_EQ(cancels, 0);
}

TEST_F(ProfileEditorSheetTest, StaysOpenWithTheMessageOfAFailedSave) {
    QDialog& dialog = open(exampleProfile());
    const int height = dialog.height();
    const QString message = "Port muss zwischen 1 und 65535 liegen.";
    QLineEdit* port = field("Port");
    const auto edge = [port] { return port->grab().toImage().pixelColor(1, port->height() / 2); };
    port->setText("22x");
    click(buttonOf(dialog, "Speichern"));
    EXPECT_EQ(port->selectedText(), "22x");
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.height() > height; }));
    EXPECT_NE(named<QLabel>(dialog, fromQString(message)), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), port);
    EXPECT_EQ(port->accessibleDescription(), message);
    EXPECT_GT(edge().red(), 2 * edge().blue());
    press(Qt::Key_2);
    EXPECT_LT(edge().red(), edge().blue());
    EXPECT_EQ(port->accessibleDescription(), "");
    EXPECT_NE(named<QLabel>(dialog, fromQString(message)), nullptr) << "until the next try";
    press(Qt::Key_Escape);
    EXPECT_EQ(cancels, 1);
    EXPECT_FALSE(dialog.isVisible() || !saved.empty());
}

TEST_F(ProfileEditorSheetTest, WalksInReadingOrderAndSavesOnReturnUnlessItPressesAButton) {
    int tabs = 0;
    for (const auto* name : {"Name", "IP / Host", "Benutzername", "Port", "Kategorie",
                             "Passwort (nur Notizfeld)", "Anzeigen", "Auswählen…", "Key entfernen",
                             "Extra SSH-Args (optional)", "Abbrechen", "Speichern"}) {
        open(exampleProfile());
        for (int tab = 0; tab < tabs; ++tab)
            press(Qt::Key_Tab);
        EXPECT_EQ(spokenName(QApplication::focusWidget()), name);
        EXPECT_TRUE(qobject_cast<QPushButton*>(buttonOf(*sheet, "Speichern"))->isDefault());
        press(tabs % 2 ? Qt::Key_Return : Qt::Key_Enter);
        EXPECT_EQ(sheet->isVisible(), 6 <= tabs && tabs <= 8) << name;
        ++tabs;
    }
    EXPECT_EQ(saved.size(), 9U);
    EXPECT_EQ(filePanels.openPanel.title, "SSH Key auswählen");
    open(exampleProfile());
    QTest::keyClick(buttonOf(*sheet, "Abbrechen"), Qt::Key_Space);
    EXPECT_EQ(cancels, 1);
}

TEST_F(ProfileEditorSheetTest, HandsBackUnchangedWhatNobodyEdited) {
    SSHProfile draft = exampleProfile();
    draft.name = " a\nb\r\u2028\u2029" + std::string("\0c ", 3);
    draft.extraArgs = std::string(40'000, 'x') + "\t\u00a0";
    draft.categoryId = exampleId(99); // that no category has
    open(draft);
    EXPECT_EQ(named<QComboBox>(*sheet, "Kategorie")->currentText(), "");
    click(buttonOf(*sheet, "Speichern"));
    open(draft);
    QTest::keyClick(named<QComboBox>(*sheet, "Kategorie"), Qt::Key_End);
    click(buttonOf(*sheet, "Speichern"));
    const auto categorized = with(draft, &SSHProfile::categoryId, exampleCategory().id);
    EXPECT_EQ(saved, (std::vector{draft, categorized}));
}

TEST_F(ProfileEditorSheetTest, ShowsAndHidesThePasswordInPlace) {
    open(exampleProfile());
    QLineEdit* password = field("Passwort (nur Notizfeld)");
    password->setCursorPosition(2);
    EXPECT_FALSE(password->displayText().contains("geheim"));
    QTest::keyClick(buttonOf(*sheet, "Anzeigen"), Qt::Key_Space);
    EXPECT_EQ(password->displayText(), "geheim");
    EXPECT_EQ(password->cursorPosition(), 2);
    click(buttonOf(*sheet, "Verbergen"));
    EXPECT_FALSE(password->displayText().contains("geheim"));
}

TEST_F(ProfileEditorSheetTest, ShowsTheKeyFileThatIsChosen) {
    open(with(exampleProfile(), &SSHProfile::identityFile, ""));
    EXPECT_FALSE(buttonOf(*sheet, "Key entfernen")->isEnabled());
    filePanels.answer = " ";
    click(buttonOf(*sheet, "Auswählen…"));
    EXPECT_NE(QApplication::focusWidget(), buttonOf(*sheet, "Auswählen…")) << "Return saves now";
    filePanels.answer = std::nullopt; // cancelled
    click(buttonOf(*sheet, "Auswählen…"));
    EXPECT_EQ(field("Key-Datei")->text(), " ");
    click(buttonOf(*sheet, "Key entfernen"));
    EXPECT_EQ(field("Key-Datei")->text(), "");
    EXPECT_TRUE(filePanels.openPanel.fileTypes.empty());
}

} // namespace korvan
