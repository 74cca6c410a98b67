// SPDX-License-Identifier: MIT
//
// Nothing is lost, whatever happens in the middle of a change.
#include "actions/BackupFile.h"
#include "desktop/SqliteKeyValueStore.h"
#include "model/RecordList.h"
#include "model/SeedData.h"
#include "store/RecordStore.h"
#include "support/Examples.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <random>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>

namespace korvan {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// What the three lists and the exported file hold; a hash stands for all bytes.
using State = std::array<std::size_t, 4>;
constexpr std::size_t kExport = 3;

std::size_t hashOf(const std::string& bytes) { return std::hash<std::string>{}(bytes); }

fs::path databaseIn(const fs::path& folder) { return folder / "data" / "defaults.sqlite3"; }
fs::path exportIn(const fs::path& folder) { return folder / "backup.json"; }

State stateOf(const fs::path& folder) {
    SqliteKeyValueStore database(databaseIn(folder));
    const auto list = [&](const char* key) {
        return hashOf(database.dataForKey(key).value().value_or(""));
    };
    return {list("ssh_profiles_v3"), list("ssh_categories_v1"), list("ssh_snippets_v1"),
            hashOf(textOf(exportIn(folder)))};
}

State stateWith(const std::vector<SSHProfile>& profiles, const std::vector<SSHCategory>& categories,
                const std::vector<CommandSnippet>& snippets) {
    return {hashOf(encodeList(profiles)), hashOf(encodeList(categories)),
            hashOf(encodeList(snippets)),
            hashOf(writeBackup(makeBackup(profiles, snippets, categories, {})))};
}

// How many times the usual amount of work is asked for.
const char* const kAskedFor = std::getenv("KORVAN_TORTURE");
const int kFactor = kAskedFor ? std::atoi(kAskedFor) : 1;

SSHProfile largeProfile(int number) {
    const auto letter = static_cast<char>('a' + number % 26);
    return with(exampleProfile(number), &SSHProfile::password, std::string(150'000, letter));
}

// What a child says before and after a change.
struct Note {
    std::size_t place, hash;
    bool isDone;
};

enum class Work { changes, imports };

[[noreturn]] void changeUntilKilled(const fs::path& folder, int pipe, Work work) {
    SqliteKeyValueStore database(databaseIn(folder));
    SSHStore profiles(database);
    CategoryStore categories(database);
    SnippetStore snippets(database);
    const auto tell = [&](std::size_t place, bool isDone) {
        const auto all =
            stateWith(profiles.profiles(), categories.categories(), snippets.snippets());
        const Note note{place, all.at(place), isDone};
        if (::write(pipe, &note, sizeof note) != sizeof note) std::abort();
    };
    for (std::size_t place = 0; place < kExport; ++place)
        tell(place, true); // the examples are there
    [[maybe_unused]] const std::array observed = {
        profiles.observe([&] { tell(0, false); }), // before it is written
        categories.observe([&] { tell(1, false); }), snippets.observe([&] { tell(2, false); })};
    for (int number = 0;; ++number) {
        if (work == Work::imports) {
            const SSHCategory category = exampleCategory(number);
            const CommandSnippet snippet = with(exampleSnippet(), &CommandSnippet::id, category.id);
            replaceAll(profiles, snippets, categories,
                       makeBackup({largeProfile(number)}, {snippet}, {category}, {}));
            for (std::size_t place = 0; place < kExport; ++place)
                tell(place, true);
            continue;
        }
        const bool isLong = profiles.profiles().size() > 12;
        isLong ? profiles.replaceAll({exampleProfile(number)}) : profiles.add(largeProfile(number));
        tell(0, true);
        categories.add(exampleCategory(number));
        tell(1, true);
        const CommandSnippet& snippet = snippets.snippets()[0];
        snippets.update(with(snippet, &CommandSnippet::title, std::to_string(number)));
        tell(2, true);
        tell(kExport, false);
        const auto backup =
            makeBackup(profiles.profiles(), snippets.snippets(), categories.categories(), {});
        if (!writeBackupFile(exportIn(folder), backup)) std::abort();
        tell(kExport, true);
    }
}

bool knowsNamelessFiles(const fs::path& folder) {
    const int file = ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    return file >= 0 && ::close(file) == 0;
}

TEST(Torture, AKillLosesNothingThatWasAcknowledgedAndLeavesNoMixture) {
    std::mt19937 random{std::random_device{}()};
    std::optional<TemporaryFolder> folder;
    int changes = 0;
    std::ptrdiff_t leftovers = 0;
    for (int kill = 0; kill < 100 * kFactor; ++kill) {
        const Work work = kill % 2 == 0 ? Work::changes : Work::imports;
        if (kill % 10 == 0) folder.emplace(); // the making of the database is interrupted too
        State before = stateOf(folder->path());
        State after = stateWith({sampleProfile()}, {defaultCategory()}, defaultSnippets());
        for (std::size_t i = 0; i < after.size(); ++i)
            if (i == kExport || before[i] != hashOf("")) after[i] = before[i];
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
        const pid_t child = ::fork();
        if (child == 0) changeUntilKilled(folder->path(), pipe[1], work);
        ::close(pipe[1]);
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 60'000));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "it gave up before";
        for (Note note{}; ::read(pipe[0], &note, sizeof note) == sizeof note;) {
            (note.isDone ? before : after).at(note.place) = note.hash;
            changes += note.isDone ? 1 : 0;
        }
        ::close(pipe[0]);
        const State found = stateOf(folder->path());
        for (std::size_t i = 0; i < found.size(); ++i)
            EXPECT_TRUE(found[i] == before[i] || found[i] == after[i]) << kill << ", " << i;
        const auto isAll = [&](const State& state) {
            return std::equal(found.begin(), found.begin() + kExport, state.begin());
        };
        const bool isSeeded = std::ranges::count(before, hashOf("")) < 2; // maybe no export
        EXPECT_TRUE(work != Work::imports || !isSeeded || isAll(before) || isAll(after)) << kill;
        if (kill % 10 == 9)
            leftovers += std::ranges::count_if(
                fs::directory_iterator(folder->path()), [](const fs::path& file) {
                    return file.filename().string().starts_with(".korvan-");
                });
    }
    std::printf("%d changes acknowledged, %td files left behind\n", changes, leftovers);
    EXPECT_GT(changes, 0);
    // A name lasts for less than the blink of an eye.
    EXPECT_TRUE(leftovers <= kFactor || !knowsNamelessFiles(folder->path()));
}

// What `work` prints; kept in memory, since just then there may be no file to be written.
std::string printedBy(const std::function<void()>& work) {
    char* text = nullptr;
    std::size_t length = 0;
    std::FILE* before = std::exchange(stdout, ::open_memstream(&text, &length));
    work();
    std::fclose(std::exchange(stdout, before));
    const std::unique_ptr<char, decltype(&std::free)> owner(text, &std::free);
    return {text, length};
}

// Changes a list and exports it while something is in the way, and again when it is gone. Gives the
// number of changes that failed.
int failuresWith(const fs::path& folder, const std::function<void()>& raise,
                 const std::function<void()>& remove) {
    static int number = 0;
    SqliteKeyValueStore database(databaseIn(folder), 100ms);
    SSHStore profiles(database);
    Result<> exported;
    State wanted;
    const auto change = [&] {
        profiles.replaceAll({largeProfile(++number)});
        exported = writeBackupFile(exportIn(folder), makeBackup(profiles.profiles(), {}, {}, {}));
        wanted = stateWith(profiles.profiles(), {}, {});
        wanted[1] = wanted[2] = hashOf(""); // never written
    };
    EXPECT_EQ(printedBy(change), "");
    const State old = wanted;
    EXPECT_EQ(stateOf(folder), old);

    raise();
    const std::string lines = printedBy(change);
    const bool isExported = exported.has_value();
    remove();
    if (!lines.empty()) wanted[0] = old[0];
    if (!isExported) wanted[kExport] = old[kExport];
    EXPECT_EQ(stateOf(folder), wanted) << lines;
    EXPECT_TRUE(lines.empty() || lines.starts_with("Profile save error: Die Daten")) << lines;
    EXPECT_LE(std::ranges::count(lines, '\n'), 1) << lines;
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2) << "something is left behind";

    EXPECT_EQ(printedBy(change), "") << "all is well again";
    EXPECT_EQ(stateOf(folder), wanted);
    return (lines.empty() ? 0 : 1) + (isExported ? 0 : 1);
}

// Lets each write in turn be the one for which there is no room any more.
void runOutOfRoom(const fs::path& folder, const std::function<void(std::size_t)>& limit,
                  const std::function<void()>& remove) {
    int failures = 0;
    std::size_t room = 0;
    for (int more = 1; more > 0 && !testing::Test::HasFailure(); room += 8192)
        failures += more = failuresWith(folder, [&] { limit(room); }, remove);
    std::printf("%d changes failed, all went well with %zu bytes\n", failures, room - 8192);
    EXPECT_GT(failures, 30);
}

TEST(Torture, AFileThatMayNotGrowIsLeftAsItWas) {
    std::signal(SIGXFSZ, SIG_IGN);
    const TemporaryFolder folder;
    const auto setLimit = [](rlim_t bytes) {
        const rlimit limit{bytes, RLIM_INFINITY};
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    };
    runOutOfRoom(folder.path(), setLimit, [&] { setLimit(RLIM_INFINITY); });
}

// Whether this process may mount now, unseen by all others. Root may also where the kernel allows
// no user namespace, as in a changed root folder.
bool canMount() {
    const uid_t user = ::getuid();
    const gid_t group = ::getgid();
    if (user == 0)
        return ::unshare(CLONE_NEWNS) == 0 &&
               ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
    std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    return true;
}

TEST(Torture, AFullOrReadOnlyDiskIsLeftAsItWas) {
    const TemporaryFolder folder;
    const fs::path& disk = folder.path();
    if (!canMount()) GTEST_SKIP() << "no mounts of our own here";
    ASSERT_EQ(::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=3m"), 0);
    const fs::path ballast = disk / "data" / "ballast";
    const auto fill = [&](std::size_t room) {
        std::ofstream(ballast) << std::string(4 << 20, 'x'); // as far as it goes
        fs::resize_file(ballast, fs::file_size(ballast) - std::min(room, fs::file_size(ballast)));
    };
    runOutOfRoom(disk, fill, [&] { fs::remove(ballast); });

    const State old = stateOf(disk);
    ASSERT_EQ(::mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    SqliteKeyValueStore database(databaseIn(disk));
    SSHStore profiles(database);
    EXPECT_TRUE(printedBy([&] { profiles.add({}); }).starts_with("Profile save error: "));
    EXPECT_EQ(writeBackupFile(exportIn(disk), exampleBackup()).error().code, EROFS);
    ASSERT_EQ(::mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT, nullptr), 0);
    EXPECT_EQ(stateOf(disk), old);
    EXPECT_EQ(printedBy([&] { profiles.add({}); }), "");
    EXPECT_EQ(stateOf(disk)[0], hashOf(encodeList(profiles.profiles())));
    ::umount2(disk.c_str(), MNT_DETACH);
}

TEST(Torture, ADiskThatIsGoneForAWhileComesBackAsItWas) {
    const TemporaryFolder folder;
    const fs::path disk = folder.path() / "disk";
    const fs::path away = folder.path() / "away";
    fs::create_directory(disk);
    const auto takeAway = [&] { fs::rename(disk, away), std::ofstream{disk}; };
    const auto bringBack = [&] { fs::remove(disk), fs::rename(away, disk); };
    EXPECT_EQ(failuresWith(disk, takeAway, bringBack), 2);
}

// A list that shows whose it is, and whether it is whole.
std::string listOf(std::size_t writer, int number) {
    const std::string name = std::to_string(writer) + " " + std::to_string(number);
    const SSHCategory category{exampleId(number), name + std::string(4000, '.')};
    return encodeList(std::vector(static_cast<std::size_t>(number % 20 + 1), category));
}

TEST(Torture, NoWriterGivesUpAndNoReaderSeesHalfAChangeOfFourProcesses) {
    const TemporaryFolder folder;
    const fs::path path = databaseIn(folder.path());
    const std::array<std::string_view, 5> keys = {"0", "1", "2", "3", "all"};
    const int changes = 250 * kFactor;
    const auto write = [&](std::size_t writer) {
        SqliteKeyValueStore database(path, 10s); // a busy disk alone may take two
        bool isWritten = true;
        for (int number = 0; number < changes && isWritten; ++number) {
            const std::string list = listOf(writer, number);
            isWritten = database.setValues({{keys.at(writer), list}, {"all", list}}).has_value();
        }
        return isWritten;
    };
    for (std::size_t writer = 0; writer < 4; ++writer)
        if (::fork() == 0) ::_exit(write(writer) ? 0 : 1);
    SqliteKeyValueStore database(path);
    std::array<int, 4> lastSeen{};
    int lists = 0;
    for (int running = 4; running > 0; ++lists) {
        int status = 0;
        running -= ::waitpid(-1, &status, WNOHANG) > 0 ? 1 : 0;
        EXPECT_EQ(status, 0) << "a writer gave up";
        const auto found = database.dataForKeys(keys);
        const auto& data = found[4].value();
        if (!data) continue;
        std::size_t writer = 0;
        int number = 0;
        const auto list = decodeList<SSHCategory>(*data, "").value();
        ASSERT_EQ(std::sscanf(list.at(0).name.c_str(), "%zu %d", &writer, &number), 2);
        EXPECT_TRUE(*data == listOf(writer, number));
        EXPECT_TRUE(found.at(writer).value() == data) << "half a change";
        int& last = lastSeen.at(writer);
        EXPECT_GE(number, std::exchange(last, number)) << "an older list came back";
    }
    for (std::size_t writer = 0; writer < 4; ++writer)
        EXPECT_EQ(database.dataForKey(keys.at(writer)), listOf(writer, changes - 1));
    std::printf("%d changes, read %d times meanwhile\n", 4 * changes, lists);
}

} // namespace
} // namespace korvan
