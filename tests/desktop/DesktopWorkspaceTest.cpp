// SPDX-License-Identifier: MIT
#include "desktop/DesktopWorkspace.h"

#include "desktop/ScriptTicket.h"
#include "desktop/Terminals.h"
#include "support/TemporaryFolder.h"

#include <QApplication>
#include <QTest>
#include <chrono>
#include <gtest/gtest.h>
#include <map>
#include <pty.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace korvan {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using QTest::qWaitFor;

// A desktop whose only terminals are small scripts. Those that it is made with tell their names.
class FakeDesktop final {
public:
    explicit FakeDesktop(const std::map<std::string, std::string>& terminals = {}) {
        fs::create_directory(folder.path() / "bin");
        fs::create_directory(folder.path() / "actual");
        fs::create_directory_symlink("actual", run);
        for (const char* tool : {"env", "readlink", "rm", "rmdir", "sleep"})
            fs::create_symlink(fs::path("/bin") / tool, folder.path() / "bin" / tool);
        fs::copy_file(KORVAN_RUN_SCRIPT, helper);
        for (const auto& [name, lines] : terminals)
            terminal(name, "echo " + name + note + "\n" + lines);
    }

    void terminal(const std::string& name, const std::string& lines) const {
        fs::permissions(folder.file("bin/" + name, "#!/bin/sh\n" + lines + "\n"), fs::perms(0755));
    }

    bool open() {
        ::setenv("PATH", (folder.path() / "bin").c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", run.c_str(), 1);
        return workspace->openFile(script, "Terminal", [this] { ++refusals; });
    }

    [[nodiscard]] std::string traced() const { return textOf(trace); }
    bool leaves(const std::string& text, std::chrono::milliseconds within = 20s) {
        return qWaitFor([&] { return traced() == text && fs::is_empty(run); },
                        static_cast<int>(within.count()));
    }

    TemporaryFolder folder;
    fs::path trace = folder.path() / "trace";
    fs::path run = folder.path() / "run"; // where the program may leave things
    fs::path helper = folder.path() / "my helper";
    // Not executable, as nothing is in a /tmp that is mounted noexec.
    fs::path script =
        folder.file("my script", "#! /bin/sh -e\necho ran >>'" + trace.string() + "'\nfalse\n");
    std::string note = " >>'" + trace.string() + "'";
    std::optional<DesktopWorkspace> workspace{std::in_place, helper,
                                              [] { return std::string("fresh"); }};
    int refusals = 0;
};

class Workspaces : public testing::Test {
protected:
    Workspaces() {
        static int count = 0;
        static QApplication application(count, nullptr);
        ::setenv("DISPLAY", ":0", 1);
        ::setenv("XDG_CURRENT_DESKTOP", "", 1);
        ::unsetenv("WAYLAND_DISPLAY");
    }
    ~Workspaces() override { ::setenv("PATH", searchPath.c_str(), 1); }

    std::string searchPath = std::getenv("PATH");
};

TEST_F(Workspaces, HandEachTerminalTwoPlainWordsInItsOwnForm) {
    FakeDesktop desktop;
    ::setenv("WAYLAND_DISPLAY", "wayland-0", 1);
    const std::pair<std::string, std::string> forms[] = {
        {"", "xdg-terminal-exec kitty foot"},
        {"--", "ptyxis kgx gnome-terminal cosmic-term"},
        {"-e", "x-terminal-emulator konsole lxterminal tilix qterminal sakura xterm alacritty "
               "ghostty rio"},
        {"-x", "xfce4-terminal mate-terminal terminator"},
        {"start --", "wezterm"}};
    for (const auto& [options, terminals] : forms) {
        std::istringstream names(terminals);
        for (std::string name; names >> name;) {
            // Takes its options and then words that a shell may take apart again, as some do.
            desktop.terminal(name, "for option in " + options +
                                       "; do [ \"$1\" = $option ] || exit 1; shift; done\n"
                                       "[ $# -eq 2 ] || exit 1; eval exec $*");
            ASSERT_TRUE(desktop.open()) << name;
            ASSERT_TRUE(desktop.leaves("ran\n")) << name;
            fs::remove(desktop.trace);
            fs::remove(desktop.folder.path() / "bin" / name);
        }
    }
    EXPECT_FALSE(qWaitFor([&] { return desktop.refusals > 0; }, 100));
}

TEST_F(Workspaces, PreferTheUsersTerminalThenTheSystemsThenTheDesktops) {
    FakeDesktop desktop({{"xterm", ""}, {"foot", ""}, {"konsole", ""}, {"mate-terminal", ""}});
    desktop.terminal("gnome-terminal.wrapper", "");
    TerminalEnvironment environment = TerminalEnvironment::current();
    environment.path = desktop.folder.path() / "bin";
    const auto order = [&] {
        std::string names;
        for (const auto& command : terminalCommands(environment))
            names += fs::path(command.front()).filename().string() + " ";
        return names;
    };
    EXPECT_EQ(order(), "konsole mate-terminal xterm ");
    environment.currentDesktop = "X-None:MATE";
    environment.waylandDisplay = "wayland-0";
    EXPECT_EQ(order(), "mate-terminal konsole foot xterm ");
    const fs::path choice = desktop.folder.path() / "bin" / "x-terminal-emulator";
    fs::create_symlink("gnome-terminal.wrapper", choice);
    EXPECT_EQ(order(), "x-terminal-emulator mate-terminal konsole foot xterm ");
    desktop.terminal("gnome-terminal", "");
    desktop.terminal("xdg-terminal-exec", "");
    EXPECT_EQ(order(), "xdg-terminal-exec gnome-terminal mate-terminal konsole foot xterm ");
    fs::remove(choice);
    desktop.terminal("kgx", "");
    desktop.terminal("ptyxis", "");
    environment.currentDesktop = "Unity:GNOME";
    EXPECT_TRUE(order().starts_with("xdg-terminal-exec gnome-terminal ptyxis kgx konsole "));
    environment.currentDesktop = "ubuntu:GNOME";
    EXPECT_TRUE(order().starts_with("xdg-terminal-exec ptyxis kgx gnome-terminal konsole "));
    environment.display = environment.waylandDisplay = "";
    EXPECT_EQ(order(), "");
}

TEST_F(Workspaces, TellATerminalThatFailsFromASessionThatDoes) {
    FakeDesktop desktop({{"gnome-terminal", "exit 1"},
                         {"konsole", "kill -9 $$"},
                         {"xterm", "shift; \"$@\"; exit 1"}});
    ASSERT_TRUE(desktop.open());
    EXPECT_TRUE(desktop.leaves("gnome-terminal\nkonsole\nxterm\nran\n")) << desktop.traced();
    siginfo_t child{};
    EXPECT_TRUE(qWaitFor([&] {
        return ::waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) != 0;
    })) << "a zombie stays";
    EXPECT_EQ(desktop.refusals, 0);
}

// A terminal that ends well and leaves the window to another process, which takes so long.
std::string handsOver(const std::string& seconds) {
    return "shift; { sleep " + seconds + "; \"$@\"; echo later >>${0%/bin/*}/trace; } & exit 0";
}

// Real times, all at once.
TEST_F(Workspaces, WaitForASlowTerminalAndForNoOtherAndOpenOneWindow) {
    const std::string works = "shift; exec \"$@\"";
    FakeDesktop late({{"gnome-terminal", "sleep 1.5; exit 1"}, {"xterm", works}});
    FakeDesktop none({{"konsole", "sleep 0.5; exit 1"}, {"xterm", "sleep 0.5; exit 1"}});
    FakeDesktop slow({{"gnome-terminal", "sleep 8; " + works}, {"xterm", works}});
    FakeDesktop lost({{"konsole", "exit 0"}, {"xterm", works}});
    FakeDesktop soon({{"konsole", handsOver("3")}, {"xterm", works}});
    FakeDesktop over({{"konsole", handsOver("7")}, {"xterm", works}});
    for (FakeDesktop* desktop : {&late, &none, &slow, &lost, &soon, &over})
        ASSERT_TRUE(desktop->open()) << "the answer does not wait";
    EXPECT_TRUE(none.leaves("konsole\nxterm\n")) << none.traced();
    EXPECT_TRUE(late.leaves("gnome-terminal\nxterm\nran\n")) << late.traced();
    EXPECT_EQ(lost.traced(), "konsole\n") << "an error status is not waited for";
    EXPECT_TRUE(lost.leaves("konsole\nxterm\nran\n")) << lost.traced();
    EXPECT_TRUE(soon.leaves("konsole\nran\nlater\n")) << soon.traced();
    EXPECT_TRUE(over.leaves("konsole\nxterm\nran\nlater\n")) << over.traced();
    EXPECT_TRUE(slow.leaves("gnome-terminal\nran\n")) << slow.traced();
    EXPECT_EQ(late.refusals + slow.refusals + lost.refusals + soon.refusals + over.refusals, 0);
    EXPECT_EQ(none.refusals, 1);
}

// As the server of a terminal that runs already.
TEST_F(Workspaces, OpenInAProcessThatInheritsNothingEvenAfterTheProgramHasEnded) {
    FakeDesktop desktop;
    desktop.terminal("gnome-terminal", "shift; { sleep 0.5; exec env -i \"$@\" <&- >&- 2>&-; } &");
    ASSERT_TRUE(desktop.open());
    desktop.workspace.reset();
    EXPECT_TRUE(desktop.leaves("ran\n")) << desktop.traced();
}

TEST_F(Workspaces, GiveATerminalNothingThatWasMeantForTheProgram) {
    for (const char* name : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID", "DBUS_STARTER_ADDRESS",
                             "GIO_LAUNCHED_DESKTOP_FILE_PID", "GIO_KEPT"})
        ::setenv(name, "ours", 1);
    FakeDesktop desktop;
    desktop.terminal("xterm", "read -r pid name state parent group session rest </proc/$$/stat\n"
                              "[ $session = $$ ] || exit 1\n"
                              "echo $(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2) "
                              "$XDG_ACTIVATION_TOKEN $DESKTOP_STARTUP_ID $DBUS_STARTER_ADDRESS "
                              "$GIO_LAUNCHED_DESKTOP_FILE_PID $GIO_KEPT" +
                                  desktop.note + "; shift; exec \"$@\"");
    ASSERT_TRUE(desktop.open());
    EXPECT_TRUE(desktop.leaves("/dev/null /dev/null /dev/null fresh fresh ours\nran\n"))
        << desktop.traced();
}

TEST_F(Workspaces, AnswerNoWhereATerminalWouldFailSilently) {
    FakeDesktop desktop;
    EXPECT_FALSE(desktop.open()) << "no terminal";
    desktop.terminal("xterm", "");
    EXPECT_TRUE(desktop.open());
    EXPECT_FALSE(desktop.workspace->openFile(desktop.script, "Editor", [] {}));
    EXPECT_FALSE(desktop.workspace->openFile("/no/script", "Terminal", [] {}));
    ::unsetenv("DISPLAY");
    EXPECT_FALSE(desktop.open()) << "no display";
    ::setenv("DISPLAY", ":0", 1);
    std::ofstream(desktop.script) << "#!/no/such/shell\n";
    EXPECT_FALSE(desktop.open()) << "no interpreter";
    std::ofstream(desktop.script) << "#!/bin/sh\n";
    fs::remove(desktop.helper);
    EXPECT_FALSE(desktop.open()) << "no helper";
}

// In /tmp, whose names everybody may use once they are free.
TEST_F(Workspaces, AreNotFooledByAFolderInThePlaceOfTheirOwn) {
    FakeDesktop desktop;
    ::setenv("XDG_RUNTIME_DIR", desktop.run.c_str(), 1);
    const auto ticket = ScriptTicket::make(desktop.helper, desktop.script);
    const std::string word = ticket->words()[1];
    const fs::path folder = fs::path(word).parent_path();
    EXPECT_EQ(modeOf(folder), 0700U);
    const auto runsNothing = [&] {
        return std::system((KORVAN_RUN_SCRIPT " " + word).c_str()) == 0 && desktop.traced().empty();
    };
    const fs::path bin = desktop.folder.path() / "bin";
    ::setenv("PATH", bin.c_str(), 1);
    fs::rename(bin / "rm", desktop.folder.path() / "rm");
    EXPECT_TRUE(runsNothing()) << "when the program was faster";
    fs::rename(desktop.folder.path() / "rm", bin / "rm");
    const fs::path moved = desktop.folder.path() / "moved";
    fs::rename(folder, moved);
    fs::create_symlink(moved, folder);
    EXPECT_TRUE(runsNothing()) << "by way of a link";
    fs::remove(folder);
    fs::create_directory(folder);
    fs::create_symlink(desktop.script, word);
    if (::geteuid() == 0) {
        EXPECT_EQ(::chown(folder.c_str(), 1, 1), 0);
        EXPECT_TRUE(runsNothing()) << "in another user's folder";
    }
    fs::remove(moved / "script"); // as the helper does
    EXPECT_FALSE(ticket->withdraw());
    EXPECT_TRUE(fs::is_symlink(word));
}

// What is shown first and then, after a while in which nothing may end, typed.
using Turn = std::pair<std::string_view, std::string_view>;

// All that the helper shows in a terminal of its own, running a script of these lines.
std::string shownWith(const std::string& lines, const std::vector<Turn>& turns) {
    const TemporaryFolder folder;
    const auto ticket =
        ScriptTicket::make(KORVAN_RUN_SCRIPT, folder.file("a script", "#!/bin/sh\n" + lines));
    const std::string word = ticket->words()[1];
    int terminal = -1;
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) ::execl(KORVAN_RUN_SCRIPT, KORVAN_RUN_SCRIPT, word.c_str(), nullptr);

    std::string shown;
    char byte = 0;
    for (const auto& [before, typed] : turns) {
        while (shown.find(before) == std::string::npos && ::read(terminal, &byte, 1) == 1)
            shown += byte;
        ::usleep(200'000);
        EXPECT_EQ(::waitpid(child, nullptr, WNOHANG), 0) << "ended early: " << shown;
        EXPECT_GT(::write(terminal, typed.data(), typed.size()), 0);
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
