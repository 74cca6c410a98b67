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

TEST_F(ProfileEditorSheetTest, FollowsTheTypingWithItsTitleAndSavesOnReturnOnce) {
    QDialog& dialog = open(with(exampleProfile(), &SSHProfile::name, ""));
    EXPECT_EQ(dialog.width(), 740);
    EXPECT_EQ(dialog.windowTitle(), "Neues SSH Profil");
    QTest::keyClicks(QApplication::focusWidget(), "web");
    EXPECT_EQ(dialog.windowTitle(), "SSH Profil bearbeiten");
    press(Qt::Key_Return);
    QTest::keyClick(&dialog, Qt::Key_Return);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(saved, std::vector{with(exampleProfile(), &SSHProfile::name, "web")});
    EXPECT_EQ(cancels, 0);
}

TEST_F(ProfileEditorSheetTest, StaysOpenWithTheMessageOfAFailedSave) {
    QDialog& dialog = open(exampleProfile());
    const int height = dialog.height();
    field("Port")->selectAll();
    QTest::keyClicks(field("Port"), "22x");
    press(Qt::Key_Return);
    EXPECT_EQ(field("Port")->text(), "22x");
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.height() > height; }));
    const auto labels = dialog.findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) {
        return label->isVisible() && label->text() == "Port muss zwischen 1 und 65535 liegen.";
    }));
    press(Qt::Key_Escape);
    EXPECT_EQ(cancels, 1);
    EXPECT_FALSE(dialog.isVisible() || !saved.empty());
}

TEST_F(ProfileEditorSheetTest, WalksInReadingOrder) {
    open(exampleProfile());
    for (const auto* name : {"Name", "IP / Host", "Benutzername", "Port", "Kategorie",
                             "Passwort (nur Notizfeld)", "Anzeigen", "Auswählen…", "Key entfernen",
                             "Extra SSH-Args (optional)", "Abbrechen", "Speichern"}) {
        EXPECT_EQ(spokenName(QApplication::focusWidget()), name);
        press(Qt::Key_Tab);
    }
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
    filePanels.answer = std::nullopt; // cancelled
    click(buttonOf(*sheet, "Auswählen…"));
    EXPECT_EQ(field("Key-Datei")->text(), " ");
    click(buttonOf(*sheet, "Key entfernen"));
    EXPECT_EQ(field("Key-Datei")->text(), "");
    EXPECT_TRUE(filePanels.openPanel.fileTypes.empty());
}

} // namespace korvan
