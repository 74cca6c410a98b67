// SPDX-License-Identifier: MIT
#include "support/Examples.h"
#include "support/RecordingDesktop.h"
#include "support/Widgets.h"
#include "ui/editors/ProfileEditorSheet.h"
#include "ui/editors/SnippetEditorSheet.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace korvan {

namespace {

class ProfileEditorSheetTest : public testing::Test {
protected:
    QDialog& open(const SSHProfile& draft) {
        sheet = std::make_unique<ProfileEditorSheet>(
            std::make_unique<ProfileEditorView>(
                draft, std::vector{exampleCategory()}, [this] { ++cancels; },
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

class SnippetEditorSheetTest : public testing::Test {
protected:
    QPlainTextEdit& open(const std::string& commandTemplate) {
        sheet = std::make_unique<SnippetEditorSheet>(
            std::make_unique<SnippetEditorView>(
                with(exampleSnippet(), &CommandSnippet::commandTemplate, commandTemplate), [] {},
                [this](const CommandSnippet& snippet) { saved = snippet; }),
            nullptr);
        activate(*sheet);
        auto* editor = named<QPlainTextEdit>(*sheet, "Befehl (Template)");
        editor->setFocus();
        return *editor;
    }

    std::unique_ptr<SnippetEditorSheet> sheet;
    CommandSnippet saved;
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
    SSHProfile expected = exampleProfile();
    expected.name = "Name";
    expected.host = "IP / Host";
    expected.user = "Benutzername";
    expected.password = "Passwort (nur Notizfeld)";
    expected.extraArgs = "Extra SSH-Args (optional)";
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
    EXPECT_EQ(saved, std::vector{draft});
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

TEST_F(SnippetEditorSheetTest, KeepsLineBreaksThatAreTypedAndLeavesTheTemplateByTab) {
    QPlainTextEdit& editor = open("a\u00a0b");
    EXPECT_EQ(sheet->width(), 680);
    EXPECT_GE(editor.height(), 120);
    editor.moveCursor(QTextCursor::End);
    QTest::keyClick(&editor, Qt::Key_Return);
    QTest::keyClick(&editor, Qt::Key_C);
    QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(&editor, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), buttonOf(*sheet, "Abbrechen"));
    click(buttonOf(*sheet, "Speichern"));
    EXPECT_EQ(saved.commandTemplate, "a\u00a0b\nc\n");
}

TEST_F(SnippetEditorSheetTest, HandsBackUnchangedWhatNobodyEdited) {
    const std::string odd = "a\r\nb\rc\u2028d\u2029e\u00a0f" + std::string("\0g", 2);
    for (int time = 0; time < 2; ++time) {
        QPlainTextEdit& editor = open(odd);
        if (time == 1) QTest::keyClick(&editor, Qt::Key_X);
        editor.undo();
        click(buttonOf(*sheet, "Speichern"));
        EXPECT_EQ(saved.commandTemplate, odd);
    }
}

TEST_F(SnippetEditorSheetTest, ShowsTheFocusAndTheErrorOnTheFrameOfTheTemplate) {
    QPlainTextEdit& editor = open(" ");
    const auto edge = [frame = editor.parentWidget()] {
        return frame->grab().toImage().pixelColor(1, frame->height() / 2);
    };
    EXPECT_EQ(edge(), editor.palette().color(QPalette::Highlight));
    auto* hint = named<QLineEdit>(*sheet, "Hinweis (optional)");
    hint->setFocus();
    EXPECT_EQ(edge(), editor.palette().color(QPalette::Base));
    hint->setText("h");
    QTest::keyClick(hint, Qt::Key_Return);
    EXPECT_TRUE(editor.hasFocus() && edge().red() > 2 * edge().blue());
    editor.setPlainText("c");
    EXPECT_EQ(edge(), editor.palette().color(QPalette::Highlight));
    QTest::keyClick(hint, Qt::Key_Return);
    EXPECT_EQ(saved.hint + saved.commandTemplate, "hc");
}

} // namespace korvan
