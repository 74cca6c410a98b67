// SPDX-License-Identifier: MIT
#include "actions/TerminalLauncher.h"

#include "model/Uuid.h"
#include "platform/ChildProcess.h"
#include "support/RecordingDesktop.h"
#include "support/TemporaryFolder.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace korvan {

namespace {

struct Launch {
    TemporaryFolder folder;
    RecordingWorkspace workspace;
    TerminalLauncher launcher{workspace, folder.path()};

    Result<> open() {
        return launcher.openInTerminal("ssh -p 22 u@h", [](const Error&) {});
    }
};

} // namespace

TEST(TerminalScript, ShowsTheCommandEscapedAndRunsItUnchanged) {
    EXPECT_EQ(terminalScript(R"(ssh -i "/k/Jürgens \$k" `u`@h -o "x\\y")"),
              R"(#!/bin/zsh
set -e
cd ~
clear
echo "▶)"
              "\uFE0E"
              R"( ssh -i \"/k/Jürgens \\$k\" `u`@h -o \"x\\\\y\""
echo ""
ssh -i "/k/Jürgens \$k" `u`@h -o "x\\y"
echo ""
echo "⏎ Enter zum Schließen…"
read)");
    EXPECT_EQ(terminalScript("a\xff"), terminalScript("a\uFFFD"));
}

TEST(TerminalLauncher, HandsAnExecutablePrivateScriptToTheTerminal) {
    Launch launch;
    const mode_t before = ::umask(022);
    ASSERT_TRUE(launch.open());
    ASSERT_TRUE(launch.open());
    ::umask(before);
    EXPECT_EQ(launch.workspace.application, "Terminal");
    ASSERT_EQ(launch.workspace.paths.size(), 2U);
    EXPECT_NE(launch.workspace.paths[0], launch.workspace.paths[1]);
    for (const std::filesystem::path& path : launch.workspace.paths) {
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
    EXPECT_EQ(launch.open().error(),
              (Error{"TerminalLauncher", -128, "Terminal konnte das Script nicht öffnen."}));
    EXPECT_TRUE(std::filesystem::exists(launch.workspace.paths.at(0)));
    std::filesystem::remove_all(launch.folder.path());
    EXPECT_EQ(launch.open().error().code, ENOENT);
    EXPECT_EQ(launch.workspace.paths.size(), 1U) << "there is no script to open";
}

TEST(TerminalLauncher, PassesOnWhatChmodComplainsAbout) {
    const TemporaryFolder folder;
    const std::string missing = folder.path() / "fehlt";
    const auto chmod = runChild("/bin/chmod", {"+x", missing}).value();
    EXPECT_TRUE(chmod.standardError.ends_with("\n"));
    EXPECT_EQ(TerminalLauncher::makeExecutable(missing).error(),
              (Error{"TerminalLauncher", 1, chmod.standardError}));
    ::setenv("LD_PRELOAD", "/\xff", 1); // the loader complains in these bytes, too
    EXPECT_EQ(TerminalLauncher::makeExecutable(missing).error(),
              (Error{"TerminalLauncher", 1, "chmod failed"}));
    ::unsetenv("LD_PRELOAD");
}

TEST(TerminalLauncher, OpensNoScriptThatItCouldNotMakeExecutable) {
    Launch launch;
    rlimit limit{};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    const int next = ::open("/", O_RDONLY);
    ::close(next);
    // One file may be open, as for writing the script; the child's pipe needs two.
    const rlimit low{static_cast<rlim_t>(next) + 1, limit.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &low);
    const auto opened = launch.open();
    ::setrlimit(RLIMIT_NOFILE, &limit);
    EXPECT_EQ(opened.error().code, EMFILE);
    EXPECT_TRUE(launch.workspace.paths.empty());
    EXPECT_EQ(launch.folder.entryCount(), 1);
}

} // namespace korvan
