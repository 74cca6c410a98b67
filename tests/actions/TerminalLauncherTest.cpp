// SPDX-License-Identifier: MIT
#include "actions/TerminalLauncher.h"

#include "model/Uuid.h"
#include "platform/ChildProcess.h"
#include "support/RecordingDesktop.h"
#include "support/TemporaryFolder.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace korvan {

namespace {

struct Launch {
    TemporaryFolder folder;
    RecordingWorkspace workspace;
    TerminalLauncher launcher{workspace, folder.path()};
    std::vector<Error> laterErrors;

    Result<> open(std::string_view command) {
        return launcher.openInTerminal(
            command, [this](const Error& error) { laterErrors.push_back(error); });
    }
};

const Error kRefused{"TerminalLauncher", -128, "Terminal konnte das Script nicht öffnen."};

} // namespace

TEST(TerminalScript, ShowsTheCommandEscapedAndRunsItUnchanged) {
    EXPECT_EQ(terminalScript(R"(ssh -i "/k/Jürgens \$k" `u`@h -o "x\\y")"),
              "#!/bin/zsh\n"
              "set -e\n"
              "cd ~\n"
              "clear\n"
              "echo \"\xE2\x96\xB6\xEF\xB8\x8E "
              R"(ssh -i \"/k/Jürgens \\$k\" `u`@h -o \"x\\\\y\"")"
              "\n"
              "echo \"\"\n"
              R"(ssh -i "/k/Jürgens \$k" `u`@h -o "x\\y")"
              "\n"
              "echo \"\"\n"
              "echo \"\xE2\x8F\x8E Enter zum Schlie\xC3\x9F"
              "en\xE2\x80\xA6\"\n"
              "read");
}

TEST(TerminalScript, RunsInItsShellUntilTheFirstFailure) {
    if (!std::filesystem::exists("/bin/zsh")) GTEST_SKIP() << "needs zsh";
    const TemporaryFolder folder;
    const auto outputOf = [&](std::string_view command) {
        const auto script = folder.file("skript", terminalScript(command)).string();
        const auto output = folder.path() / "ausgabe";
        const std::string line = "echo | TERM=xterm LC_ALL=C HOME=/ zsh \"$0\" >\"$1\" 2>&1";
        EXPECT_TRUE(runChild("/bin/sh", {"-c", line, script, output}));
        const std::string text = textOf(output);
        return text.substr(text.find("\u25B6"));
    };
    EXPECT_EQ(outputOf(R"(printf '%s|' "ä b" "$PWD")"),
              "\u25B6\uFE0E printf '%s|' \"ä b\" \"/\"\n\nä b|/|\n\u23CE Enter zum Schließen…\n");
    EXPECT_EQ(outputOf("false"), "\u25B6\uFE0E false\n\n");
}

TEST(TerminalLauncher, HandsAnExecutablePrivateScriptToTheTerminal) {
    Launch launch;
    const mode_t before = ::umask(022);
    ASSERT_TRUE(launch.open("ssh -p 22 u@h"));
    ASSERT_TRUE(launch.open("ssh -p 22 u@h"));
    ::umask(before);
    EXPECT_EQ(launch.workspace.application, "Terminal");
    ASSERT_EQ(launch.workspace.paths.size(), 2U);
    EXPECT_NE(launch.workspace.paths[0], launch.workspace.paths[1]);
    for (const std::filesystem::path path : launch.workspace.paths) {
        EXPECT_EQ(path.parent_path(), launch.folder.path());
        const std::string name = path.filename();
        const auto uuid = Uuid::parse(std::string_view(name).substr(7, Uuid::kTextLength));
        EXPECT_EQ(name, "Korvan_" + uuid.value_or(Uuid()).text() + ".command");
        EXPECT_EQ(textOf(path), terminalScript("ssh -p 22 u@h"));
        EXPECT_EQ(modeOf(path), 0711U) << "others may run it, but nobody may read it";
    }
    EXPECT_EQ(launch.folder.entryCount(), 2);
}

TEST(TerminalLauncher, SaysWhenTheTerminalRefusesAndLeavesTheScript) {
    Launch launch;
    launch.workspace.accepts = false;
    EXPECT_EQ(launch.open("ssh u@h").error(), kRefused);
    EXPECT_TRUE(std::filesystem::exists(launch.workspace.paths.at(0)));
    EXPECT_TRUE(launch.laterErrors.empty());

    launch.workspace.accepts = true;
    EXPECT_TRUE(launch.open("ssh u@h"));
    EXPECT_TRUE(launch.laterErrors.empty());
    launch.workspace.refusedLater();
    EXPECT_EQ(launch.laterErrors, std::vector{kRefused});
}

TEST(TerminalLauncher, DoesNotAskTheTerminalWhenTheScriptCannotBeWritten) {
    Launch launch;
    std::filesystem::remove(launch.folder.path());
    const auto opened = launch.open("ssh u@h");
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().domain, "POSIX");
    EXPECT_EQ(opened.error().code, ENOENT);
    EXPECT_TRUE(launch.workspace.paths.empty());
}

TEST(TerminalLauncher, PassesOnWhatChmodComplainsAbout) {
    const TemporaryFolder folder;
    const std::string missing = folder.path() / "fehlt";
    const Error error = TerminalLauncher::makeExecutable(missing).error();
    EXPECT_EQ(error.domain, "TerminalLauncher");
    EXPECT_EQ(error.code, 1);
    EXPECT_EQ(error.localizedDescription,
              runChild("/bin/chmod", {"+x", missing}).value().standardError);
    EXPECT_TRUE(error.localizedDescription.ends_with("\n"));
}

} // namespace korvan
