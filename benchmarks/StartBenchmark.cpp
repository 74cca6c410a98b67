// SPDX-License-Identifier: MIT
//
// Starts programs by turns and measures from their start to the moment when the X server shows
// their first window, and the most memory that they ever had.
//
//     korvan_start_benchmark [ROUNDS]
//
// It needs an X display without a window manager, so that nobody comes between, and a session bus:
//
//     dbus-run-session -- xvfb-run --auto-servernum korvan_start_benchmark
//
// Programs that are not installed are left out. Each has a home folder of its own.
#include "Samples.h"
#include "Timings.h"
#include "desktop/SqliteKeyValueStore.h"
#include "model/RecordList.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace korvan {

namespace {

namespace fs = std::filesystem;

constexpr int kRounds = 21;
constexpr double kPatience = 20'000; // milliseconds until a window must be there
constexpr unsigned kPause = 300'000; // microseconds in which it paints, too

[[noreturn]] void giveUp(const std::string& why) {
    std::fprintf(stderr, "nothing is measured: %s\n", why.c_str());
    std::exit(EXIT_FAILURE);
}

// Sees when the X server shows a window.
class Screen final {
public:
    Screen() : m_connection(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(m_connection) != 0) giveUp("no X display");
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        xcb_change_window_attributes(m_connection, screen->root, XCB_CW_EVENT_MASK, &events);
        xcb_flush(m_connection);
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen() { xcb_disconnect(m_connection); }

    // Forgets what was shown until now.
    void clear() {
        while (nextIsShown()) {
        }
    }

    // Waits until a window that is large enough for a main window is shown; false when it takes
    // too long.
    [[nodiscard]] bool waitForWindow() {
        const Stopwatch stopwatch;
        while (stopwatch.milliseconds() < kPatience) {
            while (const auto window = nextIsShown())
                if (*window) return true;
            pollfd file{xcb_get_file_descriptor(m_connection), POLLIN, 0};
            ::poll(&file, 1, 100);
        }
        return false;
    }

private:
    // Takes the next event: whether it shows a main window. Nothing when there is no event yet.
    std::optional<bool> nextIsShown() {
        const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event(
            xcb_poll_for_event(m_connection), &std::free);
        if (!event) return std::nullopt;
        constexpr std::uint8_t sentByProgram = 0x80;
        if ((event->response_type & ~sentByProgram) != XCB_MAP_NOTIFY) return false;
        const auto* shown = reinterpret_cast<const xcb_map_notify_event_t*>(event.get());
        const std::unique_ptr<xcb_get_geometry_reply_t, decltype(&std::free)> geometry(
            xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, shown->window),
                                   nullptr),
            &std::free);
        return geometry && geometry->width >= 200 && geometry->height >= 100;
    }

    xcb_connection_t* m_connection;
};

// One program to be started, and what was seen of it.
struct Program {
    std::string name;
    std::vector<std::string> command;
    fs::path home;
    std::vector<double> times{};
    std::vector<double> memory{}; // in megabytes
};

pid_t start(const Program& program) {
    const pid_t child = ::fork();
    if (child != 0) return child;
    ::setenv("HOME", program.home.c_str(), 1);
    for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        ::unsetenv(name);
    const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (int file = 0; nowhere >= 0 && file < 3; ++file)
        ::dup2(nowhere, file);
    std::vector<char*> words;
    words.reserve(program.command.size() + 1);
    for (const std::string& word : program.command)
        words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    ::execv(words.front(), words.data());
    ::_exit(127);
}

void measure(Program& program, Screen& screen, bool counts) {
    screen.clear();
    const Stopwatch stopwatch;
    const pid_t child = start(program);
    const bool isShown = screen.waitForWindow();
    const double time = stopwatch.milliseconds();
    ::usleep(kPause);
    ::kill(child, SIGTERM);
    int status = 0;
    rusage usage{};
    while (::wait4(child, &status, 0, &usage) < 0 && errno == EINTR) {
    }
    if (!isShown) giveUp(program.name + " shows no window");
    if (!counts) return;
    program.times.push_back(time);
    program.memory.push_back(static_cast<double>(usage.ru_maxrss) / 1024);
}

// In a process of its own: what a program's parent once had counts as that program's memory.
void inAnotherProcess(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        std::_Exit(EXIT_SUCCESS);
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child || status != 0) giveUp("no data could be made");
}

void fillKorvan(const fs::path& home, std::size_t count) {
    SqliteKeyValueStore values(home / ".local" / "share" / "korvan" / "defaults.sqlite3");
    const bool isFilled =
        values.setData("ssh_profiles_v3", encodeList(samples::makeProfiles(count))) &&
        values.setData("ssh_snippets_v1", encodeList(samples::makeSnippets(count))) &&
        values.setData("ssh_categories_v1", encodeList(samples::makeCategories(10)));
    if (!isFilled) std::_Exit(EXIT_FAILURE);
}

void fillRemmina(const fs::path& home, std::size_t count) {
    const fs::path folder = home / ".local" / "share" / "remmina";
    fs::create_directories(folder);
    for (const SSHProfile& profile : samples::makeProfiles(count))
        std::ofstream(folder / (profile.id.text() + ".remmina"))
            << "[remmina]\nprotocol=SSH\nname=" << profile.name << "\nserver=" << profile.host
            << ":" << profile.port << "\nusername=" << profile.user << "\ngroup=\n";
}

std::vector<Program> makePrograms(const fs::path& folder, const fs::path& homes) {
    const auto home = [&](const std::string& name) {
        fs::create_directories(homes / name);
        return homes / name;
    };
    std::vector<Program> programs;
    programs.push_back({"a bare Qt window", {folder / "korvan_bare_window"}, home("bare")});
    programs.push_back(
        {"reference: the same widgets", {folder / "korvan_reference_window"}, home("reference")});
    for (const std::size_t count : {1U, 1'000U, 10'000U, 100'000U}) {
        const std::string number = std::to_string(count);
        programs.push_back({"Korvan, " + number + " profiles and commands",
                            {folder.parent_path() / "korvan"},
                            home("korvan" + number)});
        inAnotherProcess([&] { fillKorvan(programs.back().home, count); });
    }
    const fs::path remmina = "/usr/bin/remmina";
    if (!fs::exists(remmina)) return programs;
    for (const std::size_t count : {0U, 1'000U}) {
        const std::string number = std::to_string(count);
        programs.push_back(
            {"Remmina, " + number + " profiles", {remmina}, home("remmina" + number)});
        inAnotherProcess([&] { fillRemmina(programs.back().home, count); });
    }
    return programs;
}

void print(const std::vector<Program>& programs) {
    const double time = median(programs[1].times);
    const double memory = median(programs[1].memory);
    std::puts("| program | window after, ms | least | beside the reference | memory, MB | beside "
              "the reference |\n|---|---|---|---|---|---|");
    for (const Program& program : programs)
        std::printf("| %s | %.1f | %.1f | %.2f | %.1f | %.2f |\n", program.name.c_str(),
                    median(program.times), std::ranges::min(program.times),
                    median(program.times) / time, median(program.memory),
                    median(program.memory) / memory);
}

int run(const char* self, int rounds) {
    const TemporaryFolder homes;
    std::vector<Program> programs = makePrograms(fs::canonical(self).parent_path(), homes.path());
    Screen screen;
    for (int round = -1; round < rounds; ++round) // the first only warms up
        for (Program& program : programs)
            measure(program, screen, round >= 0);
    print(programs);
    return EXIT_SUCCESS;
}

} // namespace

} // namespace korvan

int main(int argc, char** argv) {
    return korvan::run(argv[0], argc > 1 ? std::max(std::atoi(argv[1]), 1) : korvan::kRounds);
}
