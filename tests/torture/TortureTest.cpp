// SPDX-License-Identifier: MIT
//
// Nothing is lost, whatever happens in the middle of a change.
#include "torture/Torture.h"

#include "actions/BackupFile.h"
#include "model/RecordList.h"
#include "platform/desktop/SqliteKeyValueStore.h"
#include "store/RecordStore.h"
#include "support/Examples.h"
#include "support/TemporaryFolder.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sched.h>
#include <sqlite3.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>

namespace korvan {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr std::array<std::string_view, 3> kKeys = {"ssh_profiles_v3", "ssh_categories_v1",
                                                   "ssh_snippets_v1"};
constexpr std::size_t kExport = kKeys.size();

// The bytes of the three lists and of the exported file; each is empty when it is absent.
using State = std::array<std::string, kExport + 1>;

fs::path databaseIn(const fs::path& folder) { return folder / "data" / "defaults.sqlite3"; }
fs::path exportIn(const fs::path& folder) { return folder / "backup.json"; }

template <class Record>
void expectWhole(const std::string& json) {
    EXPECT_TRUE(json.empty() || decodeList<Record>(json, "list"));
}

State stateOf(const fs::path& folder) {
    SqliteKeyValueStore database(databaseIn(folder));
    State state;
    for (std::size_t i = 0; i < kKeys.size(); ++i) {
        const auto data = database.dataForKey(kKeys[i]);
        EXPECT_TRUE(data) << data.error().localizedDescription;
        if (data) state[i] = data->value_or("");
    }
    state[kExport] = textOf(exportIn(folder));
    expectWhole<SSHProfile>(state[0]);
    expectWhole<SSHCategory>(state[1]);
    expectWhole<CommandSnippet>(state[2]);
    EXPECT_TRUE(state[kExport].empty() || readBackup(state[kExport], {}));
    return state;
}

SSHProfile largeProfile(int number) {
    const auto letter = static_cast<char>('a' + number % 26);
    return with(exampleProfile(number), &SSHProfile::password, std::string(150'000, letter));
}

// Kills

// What a child says before and after a change. The hash stands for all bytes.
struct Note {
    std::size_t place, hash;
    bool isDone;
};

class NotingStore final : public KeyValueStore {
public:
    NotingStore(KeyValueStore& real, int pipe) : m_real(real), m_pipe(pipe) {}

    Result<std::optional<std::string>> dataForKey(std::string_view key) override {
        return m_real.dataForKey(key);
    }
    Result<> setData(std::string_view key, std::string_view data) override {
        const auto place = static_cast<std::size_t>(std::ranges::find(kKeys, key) - kKeys.begin());
        return note(place, data, [&] { return m_real.setData(key, data); });
    }
    Result<> preserve(std::string_view) override { std::abort(); } // nothing was ever damaged

    Result<> note(std::size_t place, std::string_view data, const std::function<Result<>()>& work) {
        Note note{place, std::hash<std::string_view>{}(data), false};
        if (::write(m_pipe, &note, sizeof note) != sizeof note) std::abort();
        if (!work()) std::abort();
        note.isDone = true;
        if (::write(m_pipe, &note, sizeof note) != sizeof note) std::abort();
        return {};
    }

private:
    KeyValueStore& m_real;
    int m_pipe;
};

bool changeForEver(const fs::path& folder, int pipe) {
    SqliteKeyValueStore database(databaseIn(folder));
    NotingStore noting(database, pipe);
    SSHStore profiles(noting);
    CategoryStore categories(noting);
    SnippetStore snippets(noting);
    for (int number = 0;; ++number) {
        profiles.add(number % 3 == 0 ? largeProfile(number) : exampleProfile(number));
        if (profiles.profiles().size() > 12) profiles.replaceAll({exampleProfile(number)});
        categories.add(exampleCategory(number));
        if (categories.categories().size() > 50) categories.remove(categories.categories()[25]);
        snippets.update(
            with(snippets.snippets()[0], &CommandSnippet::title, std::to_string(number)));
        const KorvanBackup backup =
            makeBackup(profiles.profiles(), snippets.snippets(), categories.categories(), {});
        const auto written = noting.note(kExport, writeBackup(backup),
                                         [&] { return writeBackupFile(exportIn(folder), backup); });
        if (!written) return false;
    }
}

TEST(Torture, AKillLosesNothingThatWasAcknowledged) {
    std::mt19937 random{std::random_device{}()};
    std::optional<TemporaryFolder> folder;
    std::size_t changes = 0;
    std::size_t interrupted = 0;
    for (int kill = 0; kill < 100 * scale(); ++kill) {
        if (kill % 10 == 0) folder.emplace(); // the making of the database is interrupted too
        std::array<std::size_t, kExport + 1> before{};
        std::ranges::transform(stateOf(folder->path()), before.begin(), std::hash<std::string>{});
        auto after = before;
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
        const pid_t child = startChild([&] { return changeForEver(folder->path(), pipe[1]); });
        ::close(pipe[1]);
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 60'000));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "it gave up before";
        for (Note note{}; ::read(pipe[0], &note, sizeof note) == sizeof note;) {
            (note.isDone ? before : after)[note.place] = note.hash;
            changes += note.isDone ? 1 : 0;
        }
        ::close(pipe[0]);
        const State found = stateOf(folder->path());
        for (std::size_t i = 0; i < found.size(); ++i) {
            const std::size_t hash = std::hash<std::string>{}(found[i]);
            EXPECT_TRUE(hash == before[i] || hash == after[i]) << "kill " << kill << ", " << i;
            interrupted += before[i] != after[i] ? 1 : 0;
        }
    }
    std::printf("%zu changes acknowledged, %zu interrupted\n", changes, interrupted);
    EXPECT_GT(changes, 0U);
    EXPECT_GT(interrupted, 0U);
}

// Writes that fail

// What `work` prints; kept in memory, since just then there may be no file to be written.
std::string printedBy(const std::function<void()>& work) {
    char* text = nullptr;
    std::size_t length = 0;
    std::FILE* before = std::exchange(stdout, ::open_memstream(&text, &length));
    work();
    std::fclose(std::exchange(stdout, before));
    const std::string printed(text, length);
    std::free(text);
    return printed;
}

// Changes a list and exports while something is in the way, and again when it is gone. Gives the
// number of changes that failed.
int failuresWith(const fs::path& folder, const std::function<void()>& raise,
                 const std::function<void()>& remove) {
    static int number = 0;
    SqliteKeyValueStore database(databaseIn(folder), 100ms);
    SSHStore profiles(database);
    Result<> exported;
    const auto change = [&] {
        profiles.replaceAll({largeProfile(++number)});
        exported = writeBackupFile(exportIn(folder), makeBackup(profiles.profiles(), {}, {}, {}));
    };
    const auto state = [&] {
        return State{encodeList(profiles.profiles()), "", "",
                     writeBackup(makeBackup(profiles.profiles(), {}, {}, {}))};
    };
    EXPECT_EQ(printedBy(change), "");
    const State old = state();
    EXPECT_TRUE(exported && stateOf(folder) == old);

    raise();
    const std::string lines = printedBy(change);
    remove();
    State expected = state();
    if (!lines.empty()) expected[0] = old[0];
    if (!exported) expected[kExport] = old[kExport];
    EXPECT_TRUE(stateOf(folder) == expected) << lines;
    EXPECT_TRUE(lines.empty() || lines.starts_with("Profile save error: Die Daten")) << lines;
    EXPECT_LE(std::ranges::count(lines, '\n'), 1) << lines;
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2) << "something is left behind";
    const int failures = (lines.empty() ? 0 : 1) + (exported ? 0 : 1);

    EXPECT_EQ(printedBy(change), "") << "all is well again";
    EXPECT_TRUE(exported && stateOf(folder) == state());
    return failures;
}

// Lets each write in turn be the one for which there is no room any more.
void runOutOfRoom(const fs::path& folder, const std::function<void(std::size_t)>& limit,
                  const std::function<void()>& remove) {
    int failures = 0;
    for (std::size_t room = 0;; room += 8192) {
        SCOPED_TRACE(room);
        const int more = failuresWith(folder, [&] { limit(room); }, remove);
        failures += more;
        if (more == 0 || testing::Test::HasFailure()) break;
    }
    std::printf("%d changes failed\n", failures);
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

TEST(Torture, AFullOrReadOnlyDiskIsLeftAsItWas) {
    const TemporaryFolder folder;
    const fs::path disk = folder.file("disk", "");
    fs::remove(disk);
    fs::create_directory(disk);
    const int privately = ::getuid() == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER;
    const std::string user = "0 " + std::to_string(::getuid()) + " 1";
    if (::unshare(privately) != 0) GTEST_SKIP() << "no mounts of our own here";
    if ((privately & CLONE_NEWUSER) != 0) std::ofstream("/proc/self/uid_map") << user;
    ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
    if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=3m") != 0) GTEST_SKIP() << "no mounts";
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
    EXPECT_TRUE(stateOf(disk) == old);
    EXPECT_EQ(printedBy([&] { profiles.add({}); }), "");
    EXPECT_EQ(stateOf(disk)[0], encodeList(profiles.profiles()));
    ::umount2(disk.c_str(), MNT_DETACH);
}

TEST(Torture, ADiskThatIsGoneForAWhileComesBackAsItWas) {
    const TemporaryFolder folder;
    const fs::path disk = folder.path() / "disk";
    const fs::path away = folder.path() / "away";
    fs::create_directory(disk);
    EXPECT_EQ(failuresWith(
                  disk,
                  [&] {
                      fs::rename(disk, away);
                      std::ofstream{disk};
                  },
                  [&] { fs::remove(disk), fs::rename(away, disk); }),
              2);
}

// Several processes

// A list that shows whose it is, and whether it is whole.
std::string listOf(int writer, int number) {
    const std::string name = std::to_string(writer) + " " + std::to_string(number);
    const auto count = static_cast<std::size_t>(number % 20 + 1);
    return encodeList(
        std::vector(count, SSHCategory{exampleId(number), name + std::string(4000, '.')}));
}

TEST(Torture, NoWriterGivesUpAndNoReaderSeesHalfAListOfFourProcesses) {
    const TemporaryFolder folder;
    const fs::path path = databaseIn(folder.path());
    const int changes = 250 * scale();
    std::map<pid_t, int> writers;
    for (int writer = 0; writer < 4; ++writer) {
        const pid_t child = startChild([&] {
            SqliteKeyValueStore database(path);
            for (int number = 0; number < changes; ++number) {
                const std::string key = number % 2 == 0 ? "all" : std::to_string(writer);
                const auto written = database.setData(key, listOf(writer, number));
                if (!written) std::puts(written.error().localizedDescription.c_str());
                if (!written) return std::fflush(stdout) != 0;
            }
            return true;
        });
        writers[child] = writer;
    }
    SqliteKeyValueStore database(path);
    std::array<int, 4> lastSeen{};
    std::size_t lists = 0;
    for (std::size_t running = writers.size(); running > 0;) {
        const auto data = database.dataForKey("all");
        ASSERT_TRUE(data) << data.error().localizedDescription;
        if (*data) {
            int writer = 0;
            int number = 0;
            const auto name = decodeList<SSHCategory>(**data, "list").value().at(0).name;
            ASSERT_EQ(std::sscanf(name.c_str(), "%d %d", &writer, &number), 2);
            EXPECT_TRUE(**data == listOf(writer, number));
            int& last = lastSeen.at(static_cast<std::size_t>(writer));
            EXPECT_GE(number, std::exchange(last, number)) << "an older list came back";
            ++lists;
        }
        int status = 0;
        if (::waitpid(-1, &status, WNOHANG) <= 0) continue;
        EXPECT_EQ(status, 0) << "a writer gave up";
        --running;
    }
    for (int writer = 0; writer < 4; ++writer)
        EXPECT_EQ(database.dataForKey(std::to_string(writer)), listOf(writer, changes - 1));
    std::printf("%d changes, %zu lists read meanwhile\n", 4 * changes, lists);
}

} // namespace
} // namespace korvan
