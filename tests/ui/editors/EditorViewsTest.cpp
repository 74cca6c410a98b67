// SPDX-License-Identifier: MIT
#include "support/Examples.h"
#include "support/RecordingDesktop.h"
#include "ui/editors/CategoryEditorView.h"
#include "ui/editors/ProfileEditorView.h"
#include "ui/editors/SnippetEditorView.h"

#include <gtest/gtest.h>

namespace korvan {

namespace {

// An opening of an editor, and what it handed back.
template <class Record>
struct Callbacks {
    std::vector<Record> saved;
    int cancels = 0;

    std::function<void()> onCancel() {
        return [this] { ++cancels; };
    }
    std::function<void(const Record&)> onSave() {
        return [this](const Record& record) { saved.push_back(record); };
    }
};

struct ProfileOpening : Callbacks<SSHProfile> {
    explicit ProfileOpening(const SSHProfile& draft = exampleProfile())
        : editor(draft, {exampleCategory()}, onCancel(), onSave()) {}

    // What the editor says after trying to save; empty when it saved.
    std::string messageOfCommit() {
        editor.commit();
        return editor.validationError.value_or("");
    }

    ProfileEditorView editor;
};

} // namespace

TEST(ProfileEditorView, NamesTheFirstThingThatIsWrong) {
    ProfileOpening opening(with(SSHProfile(), &SSHProfile::port, 0));
    SSHProfile& profile = opening.editor.profile;
    EXPECT_EQ(opening.messageOfCommit(), "Bitte einen Namen angeben.");
    profile.name = " \u3000\n";
    EXPECT_EQ(opening.messageOfCommit(), "Bitte einen Namen angeben.");
    profile.name = "Server";
    EXPECT_EQ(opening.messageOfCommit(), "Bitte IP/Host angeben.");
    profile.host = "h";
    EXPECT_EQ(opening.messageOfCommit(), "Bitte Benutzername angeben.");
    profile.user = "u";
    for (const std::int64_t port : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{65536},
                                    std::numeric_limits<std::int64_t>::max()}) {
        profile.port = port;
        EXPECT_EQ(opening.messageOfCommit(), "Port muss zwischen 1 und 65535 liegen.");
    }
    EXPECT_TRUE(opening.saved.empty());
    profile.port = 65535;
    EXPECT_EQ(opening.messageOfCommit(), "");
    EXPECT_EQ(opening.saved.size(), 1U);
}

TEST(ProfileEditorView, HandsBackTheProfileAsTypedAndOnlyOnce) {
    ProfileOpening opening(with(exampleProfile(), &SSHProfile::categoryId, exampleId(77)));
    opening.editor.profile.name = " Server ";
    opening.editor.profile.port = 1;
    opening.editor.commit();
    opening.editor.commit(); // a second Return before the sheet has gone
    EXPECT_EQ(opening.saved, std::vector{opening.editor.profile});
    EXPECT_EQ(opening.saved.at(0).name, " Server ");
    EXPECT_EQ(opening.saved.at(0).categoryId, exampleId(77));
}

TEST(ProfileEditorView, KeepsItsMessageWhileTheUserTypes) {
    ProfileOpening opening(SSHProfile{});
    opening.editor.commit();
    EXPECT_EQ(opening.editor.editorTitle(), "Neues SSH Profil");
    opening.editor.profile.name = " x";
    EXPECT_EQ(opening.editor.editorTitle(), "SSH Profil bearbeiten");
    EXPECT_EQ(opening.editor.validationError, "Bitte einen Namen angeben.");
    opening.editor.cancel();
    EXPECT_EQ(opening.cancels, 1);
    EXPECT_TRUE(opening.saved.empty());
}

TEST(ProfileEditorView, TakesTextThatIsNoIntegerForPortZero) {
    ProfileOpening opening;
    const struct {
        std::string text;
        std::int64_t port;
    } cases[] = {
        {"22", 22}, {" 022\n", 22}, {"-5", -5},  {"9223372036854775807", INT64_MAX},
        {"", 0},    {" ", 0},       {"22a", 0},  {"9223372036854775808", 0},
        {"2 2", 0}, {"22.0", 0},    {"0x16", 0},
    };
    for (const auto& [text, port] : cases) {
        opening.editor.profile.port = 2222;
        opening.editor.setPortText(text);
        EXPECT_EQ(opening.editor.profile.port, port) << text;
    }
}

TEST(ProfileEditorView, ChoosesAndClearsTheKeyFile) {
    ProfileOpening opening;
    PreparedFilePanels panels;
    opening.editor.chooseIdentityFile(panels);
    EXPECT_EQ(opening.editor.profile.identityFile, exampleProfile().identityFile);
    EXPECT_EQ(panels.openPanel.title, "SSH Key auswählen");
    EXPECT_TRUE(panels.openPanel.fileTypes.empty());
    panels.answer = "/keys/neu";
    opening.editor.chooseIdentityFile(panels);
    EXPECT_EQ(opening.editor.profile.identityFile, "/keys/neu");
    opening.editor.clearIdentityFile();
    EXPECT_EQ(opening.editor.profile.identityFile, "");
}

TEST(CategoryEditorView, WantsANameAndHandsItBackAsTyped) {
    Callbacks<SSHCategory> callbacks;
    CategoryEditorView editor({exampleId(5), "\t "}, callbacks.onCancel(), callbacks.onSave());
    EXPECT_EQ(editor.editorTitle(), "Neue Kategorie");
    editor.commit();
    EXPECT_EQ(editor.validationError, "Bitte einen Namen angeben.");
    editor.category.name = " Zuhause ";
    EXPECT_EQ(editor.editorTitle(), "Kategorie bearbeiten");
    editor.commit();
    editor.commit();
    EXPECT_EQ(editor.validationError, std::nullopt);
    EXPECT_EQ(callbacks.saved, (std::vector{SSHCategory{exampleId(5), " Zuhause "}}));
    editor.cancel();
    EXPECT_EQ(callbacks.cancels, 1);
}

TEST(SnippetEditorView, WantsATitleThenATemplateAndNoHint) {
    Callbacks<CommandSnippet> callbacks;
    SnippetEditorView editor(CommandSnippet(), callbacks.onCancel(), callbacks.onSave());
    EXPECT_EQ(editor.editorTitle(), "Neuer Befehl");
    editor.commit();
    EXPECT_EQ(editor.validationError, "Bitte einen Titel angeben.");
    editor.snippet.title = "Titel";
    EXPECT_EQ(editor.editorTitle(), "Befehl bearbeiten");
    editor.snippet.commandTemplate = "\n \n";
    editor.commit();
    EXPECT_EQ(editor.validationError, "Bitte einen Befehl angeben.");
    editor.snippet.commandTemplate = "\nuptime\ndf\n";
    editor.commit();
    editor.commit();
    EXPECT_EQ(editor.validationError, std::nullopt);
    EXPECT_EQ(callbacks.saved, std::vector{editor.snippet});
    EXPECT_EQ(editor.snippet.commandTemplate, "\nuptime\ndf\n");
}

} // namespace korvan
