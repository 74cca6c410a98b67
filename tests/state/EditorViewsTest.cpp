// SPDX-License-Identifier: MIT
#include "state/EditorViews.h"

#include "support/Examples.h"

#include <gtest/gtest.h>

namespace korvan {

namespace {

// Puts what an editor hands back into `records`.
auto into(auto& records) {
    return [&records](const auto& record) { records.push_back(record); };
}

using Answer = std::pair<std::string, std::optional<EditorField>>;

// What `editor` says after trying to save, and of which field; nothing when it saved.
Answer commit(auto& editor) {
    editor.commit();
    return {editor.validationError.value_or(""), editor.invalidField};
}

} // namespace

TEST(ProfileEditorView, NamesTheFirstThingThatIsWrongUntilTheNextTry) {
    std::vector<SSHProfile> saved;
    ProfileEditorView editor(
        with(SSHProfile(), &SSHProfile::name, " \u3000\n"), {}, [] {}, into(saved));
    SSHProfile& profile = editor.profile;
    EXPECT_EQ(commit(editor), Answer("Bitte einen Namen angeben.", EditorField::name));
    EXPECT_EQ(editor.editorTitle(), "Neues SSH Profil");
    profile.name = " x";
    EXPECT_EQ(editor.editorTitle(), "SSH Profil bearbeiten");
    EXPECT_EQ(editor.validationError, "Bitte einen Namen angeben.");
    editor.fieldEdited(EditorField::host);
    EXPECT_EQ(editor.invalidField, EditorField::name);
    editor.fieldEdited(EditorField::name);
    EXPECT_EQ(editor.invalidField, std::nullopt);
    EXPECT_EQ(commit(editor), Answer("Bitte IP/Host angeben.", EditorField::host));
    profile.host = "h";
    EXPECT_EQ(commit(editor), Answer("Bitte Benutzername angeben.", EditorField::user));
    profile.user = "u";
    for (const std::int64_t port : std::initializer_list<std::int64_t>{0, -1, 65536, INT64_MAX}) {
        profile.port = port;
        EXPECT_EQ(commit(editor),
                  Answer("Port muss zwischen 1 und 65535 liegen.", EditorField::port));
    }
    EXPECT_TRUE(saved.empty());
    profile.port = 65535;
    EXPECT_EQ(commit(editor), Answer());
    EXPECT_EQ(saved, std::vector{profile});
}

TEST(ProfileEditorView, TakesTextThatIsNoIntegerForPortZero) {
    ProfileEditorView editor(exampleProfile(), {}, [] {}, [](const SSHProfile&) {});
    const std::pair<std::string, std::int64_t> cases[] = {
        {"22", 22}, {" 022\n", 22}, {"-5", -5},  {"9223372036854775807", INT64_MAX},
        {"", 0},    {" ", 0},       {"22a", 0},  {"9223372036854775808", 0},
        {"2 2", 0}, {"22.0", 0},    {"0x16", 0},
    };
    for (const auto& [text, port] : cases) {
        editor.profile.port = 2222;
        editor.setPortText(text);
        EXPECT_EQ(editor.profile.port, port) << text;
    }
}

TEST(CategoryEditorView, WantsANameAndHandsItBackAsTyped) {
    std::vector<SSHCategory> saved;
    CategoryEditorView editor({exampleId(5), "\t "}, [] {}, into(saved));
    EXPECT_EQ(editor.editorTitle(), "Neue Kategorie");
    EXPECT_EQ(commit(editor), Answer("Bitte einen Namen angeben.", EditorField::name));
    editor.category.name = " Zuhause ";
    EXPECT_EQ(editor.editorTitle(), "Kategorie bearbeiten");
    EXPECT_EQ(commit(editor), Answer());
    editor.commit(); // a second Return before the sheet has gone
    EXPECT_EQ(saved, (std::vector{SSHCategory{exampleId(5), " Zuhause "}}));
}

TEST(SnippetEditorView, WantsATitleThenATemplateAndNoHint) {
    std::vector<CommandSnippet> saved;
    SnippetEditorView editor(CommandSnippet(), [] {}, into(saved));
    EXPECT_EQ(editor.editorTitle(), "Neuer Befehl");
    EXPECT_EQ(commit(editor), Answer("Bitte einen Titel angeben.", EditorField::title));
    editor.snippet.title = "Titel";
    EXPECT_EQ(editor.editorTitle(), "Befehl bearbeiten");
    editor.snippet.commandTemplate = "\n \n";
    EXPECT_EQ(commit(editor), Answer("Bitte einen Befehl angeben.", EditorField::commandTemplate));
    editor.snippet.commandTemplate = "\nuptime\ndf\n";
    EXPECT_EQ(commit(editor), Answer());
    EXPECT_EQ(saved.at(0).commandTemplate, "\nuptime\ndf\n");
}

} // namespace korvan
