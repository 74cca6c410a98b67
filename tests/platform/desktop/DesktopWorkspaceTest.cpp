// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopWorkspace.h"

#include "platform/desktop/Terminals.h"
#include "support/TemporaryFolder.h"

#include <QApplication>
#include <QElapsedTimer>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvan {
namespace {

namespace fs = std::filesystem;

bool happens(const std::function<bool()>& condition, int milliseconds = 5000) {
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < milliseconds; ::usleep(2000)) {
        QCoreApplication::processEvents();
        if (condition()) return true;
    }
    return false;
}

// A desktop whose only terminals are small scripts of the test's own.
class Workspaces : public testing::Test {
protected:
    Workspaces() {
        static int count = 0;
        static QApplication application(count, nullptr);
        fs::create_directory(folder.path() / "bin");
        ::setenv("PATH", (folder.path() / "bin").c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
        ::setenv("DISPLAY", ":0", 1);
        ::setenv("XDG_CURRENT_DESKTOP", "", 1);
        ::unsetenv("WAYLAND_DISPLAY");
        program("my helper", "echo \"$# $1\" > '" + trace.string() + "'; exec \"$1\"");
        program("script", "exit 0");
    }

    std::string program(const std::string& name, const std::string& lines) {
        const auto path = folder.file(name, "#!/bin/sh\n" + lines + "\n");
        fs::permissions(path, fs::perms(0755));
        return path;
    }

    bool open() {
        return workspace->openFile(folder.path() / "script", "Terminal", [this] { ++refusals; });
    }

    TemporaryFolder folder;
    fs::path trace = folder.path() / "trace";
    std::optional<DesktopWorkspace> workspace{folder.path() / "my helper"};
    int refusals = 0;
};

TEST_F(Workspaces, HandEachTerminalTwoPlainWordsInItsOwnForm) {
    ::setenv("WAYLAND_DISPLAY", "wayland-0", 1);
    for (const std::string form :
         {"xdg-terminal-exec", "x-terminal-emulator -e", "gnome-terminal --", "konsole -e",
          "xfce4-terminal -x", "mate-terminal -x", "lxterminal -e", "tilix -e", "terminator -x",
          "qterminal -e", "sakura -e", "xterm -e", "kitty", "alacritty -e", "foot",
          "wezterm start --"}) {
        const auto end = std::min(form.find(' '), form.size());
        // Takes its options and then words that a shell may take apart again, as some do.
        const std::string terminal = program(
            "bin/" + form.substr(0, end), "for option in " + form.substr(end) +
                                              "; do [ \"$1\" = $option ] || exit 1; shift; done\n"
                                              "eval exec $*");
        ASSERT_TRUE(open()) << form;
        ASSERT_TRUE(happens([&] { return textOf(trace).ends_with("\n"); })) << form;
        EXPECT_EQ(textOf(trace), "1 " + (folder.path() / "script\n").string());
        fs::remove(trace);
        fs::remove(terminal);
    }
    EXPECT_FALSE(happens([&] { return refusals > 0; }, 100));
}

TEST_F(Workspaces, PreferTheUsersTerminalThenTheSystemsThenTheDesktops) {
    for (const char* name : {"xterm", "foot", "konsole", "mate-terminal", "gnome-terminal.wrapper"})
        program(std::string("bin/") + name, "");
    TerminalEnvironment environment = TerminalEnvironment::current();
    const auto order = [&] {
        std::string names;
        for (const auto& command : terminalCommands(environment, {"words"}))
            names += fs::path(command.front()).filename().string() + " ";
        return names;
    };
    EXPECT_EQ(order(), "konsole mate-terminal xterm ");
    environment.currentDesktop = "X-None:MATE";
    environment.waylandDisplay = "wayland-0";
    EXPECT_EQ(order(), "mate-terminal konsole foot xterm ");
    const fs::path choice = folder.path() / "bin" / "x-terminal-emulator";
    fs::create_symlink("gnome-terminal.wrapper", choice);
    EXPECT_EQ(order(), "x-terminal-emulator mate-terminal konsole foot xterm ");
    program("bin/gnome-terminal", "");
    program("bin/xdg-terminal-exec", "");
    EXPECT_EQ(order(), "xdg-terminal-exec gnome-terminal mate-terminal konsole foot xterm ");
    environment.display = environment.waylandDisplay = "";
    EXPECT_EQ(order(), "");
}

TEST_F(Workspaces, GoOnToTheNextTerminalAfterAnEarlyFailureOnly) {
    const std::string note = " >> '" + trace.string() + "'";
    program("bin/gnome-terminal", "echo 1" + note + "; exit 1");
    program("bin/konsole", "echo 2" + note + "; kill -9 $$");
    const std::string last = program("bin/xterm", "echo 3" + note + "; /bin/sleep 0.5; exit 1");
    ASSERT_TRUE(open());
    ASSERT_TRUE(happens([&] { return textOf(trace) == "1\n2\n3\n"; })) << textOf(trace);
    siginfo_t child{};
    const auto hasChild = [&] {
        return ::waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == 0;
    };
    EXPECT_TRUE(hasChild());
    EXPECT_TRUE(happens([&] { return !hasChild(); })) << "a zombie stays";
    EXPECT_EQ(refusals, 0) << "a late failure is not the terminal's";

    fs::remove(last);
    ASSERT_TRUE(open()) << "the answer does not wait";
    EXPECT_TRUE(happens([&] { return refusals > 0; }));
    ASSERT_TRUE(open());
    workspace.reset();
    EXPECT_FALSE(happens([&] { return refusals > 1; }, 400)) << "told twice, or by the dead";
}

TEST_F(Workspaces, AnswerNoWhereATerminalWouldFailSilently) {
    EXPECT_FALSE(open()) << "no terminal";
    program("bin/xterm", "");
    EXPECT_TRUE(open());
    EXPECT_FALSE(workspace->openFile(folder.path() / "script", "Editor", [] {}));
    EXPECT_FALSE(workspace->openFile(folder.path() / "none", "Terminal", [] {}));
    ::unsetenv("DISPLAY");
    EXPECT_FALSE(open()) << "no display";
    ::setenv("DISPLAY", ":0", 1);
    fs::permissions(folder.file("script", "#!/no/such/shell\n"), fs::perms(0755));
    EXPECT_FALSE(open()) << "no interpreter";
    program("script", "");
    fs::remove(folder.path() / "my helper");
    EXPECT_FALSE(open()) << "no helper";
}

struct Turn {
    std::string_view shown; // after this, and a while in which nothing may end,
    std::string_view typed; // this is typed
};

// All that the helper shows in a terminal of its own, running a script of these lines.
std::string shownWith(const std::string& lines, const std::vector<Turn>& turns) {
    const TemporaryFolder folder;
    const auto script = folder.file("a script", "#!/bin/sh\n" + lines);
    fs::permissions(script, fs::perms(0755));
    int terminal = -1;
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) ::execl(KORVAN_RUN_SCRIPT, KORVAN_RUN_SCRIPT, script.c_str(), nullptr);

    std::string shown;
    char byte = 0;
    for (const Turn& turn : turns) {
        while (shown.find(turn.shown) == std::string::npos && ::read(terminal, &byte, 1) == 1)
            shown += byte;
        ::usleep(200'000);
        EXPECT_EQ(::waitpid(child, nullptr, WNOHANG), 0) << "ended early: " << shown;
        EXPECT_GT(::write(terminal, turn.typed.data(), turn.typed.size()), 0);
    }
    while (::read(terminal, &byte, 1) == 1)
        shown += byte;
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    ::close(terminal);
    return shown;
}

TEST(RunScript, WaitsForEnterAfterAFailureOnly) {
    EXPECT_EQ(shownWith("echo all well", {}), "all well\r\n");
    constexpr std::string_view kMessage = "Beendet mit Status 255. Enter zum Schließen …\r\n";
    const std::string shown =
        shownWith("stty raw -echo; echo asks; read answer; /bin/sleep 0.5; exit 255",
                  {{"asks", "answer\ntoo early\n\n"}, {kMessage, "x"}, {"", "\r"}});
    EXPECT_TRUE(shown.ends_with(std::string(kMessage) + "x\r\n")) << shown;
}

TEST(RunScript, SurvivesTheInterruptThatEndsTheScript) {
    shownWith("echo runs; exec /bin/sleep 60",
              {{"runs", "\x03"}, {"Beendet mit Status 130.", "\x03\x1c"}, {"", "\r"}});
}

} // namespace
} // namespace korvan
