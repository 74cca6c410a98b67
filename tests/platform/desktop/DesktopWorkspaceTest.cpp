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
        fs::create_directory(m_folder.path() / "bin");
        ::setenv("PATH", (m_folder.path() / "bin").c_str(), 1);
        ::setenv("DISPLAY", ":0", 1);
        ::setenv("XDG_CURRENT_DESKTOP", "", 1);
        ::unsetenv("WAYLAND_DISPLAY");
        program("my helper", "echo \"$# $0 $1\" > '" + m_trace.string() + "'; exec \"$1\"");
        program("script", "exit 0");
    }

    std::string program(const std::string& name, const std::string& lines) {
        const auto path = m_folder.file(name, "#!/bin/sh\n" + lines + "\n");
        fs::permissions(path, fs::perms(0755));
        return path;
    }

    bool open() {
        return m_workspace->openFile(m_folder.path() / "script", "Terminal",
                                     [this] { ++m_refusals; });
    }

    TemporaryFolder m_folder;
    fs::path m_trace = m_folder.path() / "trace";
    std::optional<DesktopWorkspace> m_workspace{m_folder.path() / "my helper"};
    int m_refusals = 0;
};

TEST_F(Workspaces, HandEachTerminalTwoPlainWordsInItsOwnForm) {
    const std::vector<std::vector<std::string>> forms{{"xdg-terminal-exec"},
                                                      {"x-terminal-emulator", "-e"},
                                                      {"gnome-terminal", "--"},
                                                      {"konsole", "-e"},
                                                      {"xfce4-terminal", "-x"},
                                                      {"mate-terminal", "-x"},
                                                      {"lxterminal", "-e"},
                                                      {"tilix", "-e"},
                                                      {"terminator", "-x"},
                                                      {"qterminal", "-e"},
                                                      {"sakura", "-x"},
                                                      {"xterm", "-e"},
                                                      {"kitty"},
                                                      {"alacritty", "-e"},
                                                      {"foot"},
                                                      {"wezterm", "start", "--"}};
    ::setenv("WAYLAND_DISPLAY", "wayland-0", 1);
    for (const auto& form : forms) {
        // Takes its options and then words that a shell may take apart again, as some do.
        std::string lines;
        for (std::size_t i = 1; i < form.size(); ++i)
            lines += "[ \"$1\" = " + form[i] + " ] || exit 1; shift; ";
        const std::string terminal = program("bin/" + form.front(), lines + "eval exec $*");
        ASSERT_TRUE(open()) << form.front();
        ASSERT_TRUE(happens([&] { return textOf(m_trace).ends_with("\n"); })) << form.front();
        EXPECT_TRUE(textOf(m_trace).starts_with("1 /")) << textOf(m_trace);
        EXPECT_TRUE(textOf(m_trace).ends_with((m_folder.path() / "script").string() + "\n"));
        fs::remove(m_trace);
        fs::remove(terminal);
    }
    EXPECT_FALSE(happens([&] { return m_refusals > 0; }, 100));
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
    const fs::path choice = m_folder.path() / "bin" / "x-terminal-emulator";
    fs::create_symlink("gnome-terminal.wrapper", choice);
    EXPECT_EQ(order(), "x-terminal-emulator mate-terminal konsole foot xterm ");
    program("bin/gnome-terminal", "");
    program("bin/xdg-terminal-exec", "");
    EXPECT_EQ(order(), "xdg-terminal-exec gnome-terminal mate-terminal konsole foot xterm ");
    environment.display = environment.waylandDisplay = "";
    EXPECT_EQ(order(), "");
}

TEST_F(Workspaces, GoOnToTheNextTerminalAfterAnEarlyFailureOnly) {
    const std::string trace = " >> '" + m_trace.string() + "'";
    program("bin/gnome-terminal", "echo 1" + trace + "; exit 1");
    program("bin/konsole", "echo 2" + trace + "; kill -9 $$");
    const std::string last = program("bin/xterm", "echo 3" + trace + "; /bin/sleep 0.5; exit 1");
    ASSERT_TRUE(open());
    ASSERT_TRUE(happens([&] { return textOf(m_trace) == "1\n2\n3\n"; })) << textOf(m_trace);
    const auto hasChild = [] {
        siginfo_t child{};
        return ::waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == 0;
    };
    EXPECT_TRUE(hasChild());
    EXPECT_TRUE(happens([&] { return !hasChild(); })) << "a zombie stays";
    EXPECT_EQ(m_refusals, 0) << "a late failure is not the terminal's";

    fs::remove(last);
    ASSERT_TRUE(open()) << "the answer does not wait";
    EXPECT_TRUE(happens([&] { return m_refusals > 0; }));
    EXPECT_FALSE(happens([&] { return m_refusals > 1; }, 100));
    ASSERT_TRUE(open());
    m_workspace.reset();
    EXPECT_FALSE(happens([&] { return m_refusals > 1; }, 400)) << "nobody is left to tell";
    while (::waitpid(-1, nullptr, 0) > 0) {
    }
}

TEST_F(Workspaces, AnswerNoWhereATerminalWouldFailSilently) {
    EXPECT_FALSE(open()) << "no terminal";
    program("bin/xterm", "");
    EXPECT_TRUE(open());
    EXPECT_FALSE(m_workspace->openFile(m_folder.path() / "script", "Finder", [] {}));
    EXPECT_FALSE(m_workspace->openFile(m_folder.path() / "none", "Terminal", [] {}));
    ::unsetenv("DISPLAY");
    EXPECT_FALSE(open()) << "no display";
    ::setenv("DISPLAY", ":0", 1);
    fs::permissions(m_folder.file("script", "#!/no/such/shell\n"), fs::perms(0755));
    EXPECT_FALSE(open()) << "no interpreter";
    program("script", "");
    fs::remove(m_folder.path() / "my helper");
    EXPECT_FALSE(open()) << "no helper";
}

// The helper in a terminal of the test's own.
class RunScript : public testing::Test {
protected:
    void start(std::string_view lines) {
        const auto script = m_folder.file("a script", "#!/bin/sh\n" + std::string(lines));
        fs::permissions(script, fs::perms(0755));
        m_child = ::forkpty(&m_terminal, nullptr, nullptr, nullptr);
        if (m_child == 0) ::execl(KORVAN_RUN_SCRIPT, KORVAN_RUN_SCRIPT, script.c_str(), nullptr);
    }

    // Reads until `text` was shown, or everything.
    bool shows(std::string_view text) {
        char byte = 0;
        while (m_shown.find(text) == std::string::npos && ::read(m_terminal, &byte, 1) == 1)
            m_shown += byte;
        return m_shown.find(text) != std::string::npos;
    }

    bool staysAfter(std::string_view keys) {
        EXPECT_EQ(::write(m_terminal, keys.data(), keys.size()), std::ssize(keys));
        ::usleep(100'000);
        return ::waitpid(m_child, nullptr, WNOHANG) == 0;
    }

    bool endsWellAfter(std::string_view keys) {
        EXPECT_EQ(::write(m_terminal, keys.data(), keys.size()), std::ssize(keys));
        int status = -1;
        EXPECT_FALSE(shows("what is never shown"));
        ::waitpid(m_child, &status, 0);
        ::close(m_terminal);
        return status == 0;
    }

    TemporaryFolder m_folder;
    std::string m_shown;
    int m_terminal = -1;
    pid_t m_child = 0;
};

TEST_F(RunScript, ClosesAfterSuccessAndWaitsForEnterAfterFailure) {
    start("echo all well");
    EXPECT_TRUE(endsWellAfter(""));
    EXPECT_EQ(m_shown, "all well\r\n");

    start("stty raw -echo; echo asks; read answer; /bin/sleep 0.3; exit 255");
    ASSERT_TRUE(shows("asks"));
    EXPECT_TRUE(staysAfter("answer\ntoo early\n\n"));
    ASSERT_TRUE(shows("Beendet mit Status 255. Enter zum Schließen …"));
    EXPECT_TRUE(staysAfter("x"));
    EXPECT_TRUE(endsWellAfter("\r"));
}

TEST_F(RunScript, SurvivesTheInterruptThatEndsTheScript) {
    start("echo runs; exec /bin/sleep 60");
    ASSERT_TRUE(shows("runs"));
    EXPECT_TRUE(staysAfter("\x03"));
    ASSERT_TRUE(shows("Beendet mit Status 130."));
    EXPECT_TRUE(staysAfter("\x03\x1c"));
    EXPECT_TRUE(endsWellAfter("\r"));
}

} // namespace
} // namespace korvan
