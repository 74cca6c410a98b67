// SPDX-License-Identifier: MIT
//
// What is on the disk when the power fails. This program has its own fsync and its like, which
// SQLite calls, too, so it knows what was made durable, and when.
#include "desktop/SqliteKeyValueStore.h"
#include "platform/Files.h"
#include "support/TemporaryFolder.h"

#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <list>
#include <map>
#include <optional>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace korvan {
namespace {

namespace fs = std::filesystem;

fs::path databaseIn(const fs::path& folder) { return folder / "a" / "b" / "defaults.sqlite3"; }

// What a person would find: the lists, short, and the exported file.
std::string stateOf(const fs::path& folder) {
    std::string state;
    sqlite3* database = nullptr;
    const auto add = [](void* text, int, char** columns, char**) {
        static_cast<std::string*>(text)->append(columns[0]).append(" ");
        return 0;
    };
    if (fs::exists(databaseIn(folder))) {
        sqlite3_open(databaseIn(folder).c_str(), &database);
        sqlite3_exec(database,
                     "SELECT * FROM pragma_quick_check WHERE quick_check <> 'ok'; "
                     "SELECT key || length(value) || CAST(substr(value, 1, 1) AS TEXT) "
                     "FROM defaults ORDER BY key",
                     add, &state, nullptr);
        sqlite3_close(database);
    }
    return state + textOf(folder / "export.json");
}

// A folder on a disk that may forget what was not synced. Whenever something is synced, renamed,
// removed or cut short, and when a change is acknowledged, it looks at what might be there after a
// cut: the names of the files as they were synced or as they are, the bytes of each likewise.
class Disk final {
public:
    explicit Disk(int leftOut = -1) : m_leftOut(leftOut) {
        m_names[inodeOf(path())] = {};
        watching = this;
    }
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;
    ~Disk() {
        watching = nullptr;
        for (const auto& [inode, file] : m_files)
            ::close(file.descriptor);
    }

    static Disk* current() { return watching; }
    [[nodiscard]] const fs::path& path() const { return m_folder.path(); }

    // Runs `change`. A cut of power meanwhile leaves the earlier state or the new one, and one
    // after it the new one.
    void run(const std::string& name, const std::function<bool()>& change) {
        m_isWatching = true;
        EXPECT_TRUE(change()) << name;
        m_isWatching = false;
        const std::string before = std::exchange(m_state, stateOf(path()));
        require(name, before);
        look();
        require("after " + name, m_state);
    }

    void synced(int descriptor) {
        if (!m_isWatching || syncs++ == m_leftOut) return;
        struct stat status{};
        ::fstat(descriptor, &status);
        if (S_ISDIR(status.st_mode)) {
            m_names[status.st_ino] = namesIn("/proc/self/fd/" + std::to_string(descriptor));
        } else {
            const auto [file, isNew] = m_files.try_emplace(status.st_ino);
            if (isNew) file->second.descriptor = ::dup(descriptor); // no other gets its inode
            file->second.bytes = bytesOf(file->second);
        }
        changes();
    }

    // Something is about to change, or has just been synced.
    void changes() {
        if (m_isWatching) look();
    }

    int syncs = 0;
    std::vector<std::string> losses;

private:
    // As it was last synced. The descriptor stays open: closing it would drop SQLite's locks.
    struct File {
        int descriptor;
        std::string bytes;
    };

    static ino_t inodeOf(const fs::path& path) {
        struct stat status{};
        return ::lstat(path.c_str(), &status) == 0 ? status.st_ino : 0;
    }

    static std::map<std::string, ino_t> namesIn(const fs::path& folder) {
        std::map<std::string, ino_t> names;
        for (const auto& entry : fs::directory_iterator(folder))
            if (!entry.path().string().ends_with("-shm")) // made anew after a cut
                names[entry.path().filename()] = inodeOf(entry.path());
        return names;
    }

    static std::string bytesOf(const File& file) {
        struct stat status{};
        ::fstat(file.descriptor, &status);
        std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
        return ::pread(file.descriptor, bytes.data(), bytes.size(), 0) < 0 ? "unread" : bytes;
    }

    // Makes `to` what `from` may be after a cut, with its names as they were synced or as they are;
    // each file that was synced once has its current bytes where its bit is set in `current`.
    void build(const fs::path& to, const fs::path& from, bool isSynced, unsigned current) {
        const auto entries = isSynced ? m_names[inodeOf(from)] : namesIn(from);
        for (const auto& [name, inode] : entries) {
            if (fs::is_directory(from / name)) {
                fs::create_directory(to / name);
                build(to / name, from / name, isSynced, current);
                continue;
            }
            std::ofstream file(to / name, std::ios::binary);
            const auto known = m_files.find(inode);
            if (known == m_files.end()) continue; // was never synced
            const auto place = std::distance(m_files.begin(), known);
            file << (current >> place & 1U ? bytesOf(known->second) : known->second.bytes);
        }
    }

    // Keeps what might be there after a cut. It is read later: here SQLite is at work.
    void look() {
        unsigned changed = 0;
        unsigned bit = 1;
        for (const auto& [inode, file] : m_files) {
            if (bytesOf(file) != file.bytes) changed |= bit;
            bit <<= 1;
        }
        for (const bool isSynced : {true, false}) {
            for (unsigned current = changed;; current = (current - 1) & changed) {
                build(m_cuts.emplace_back().path(), path(), isSynced, current);
                if (current == 0) break;
            }
        }
    }

    // Everything kept since is in one of two states.
    void require(const std::string& when, const std::string& before) {
        for (const TemporaryFolder& cut : m_cuts)
            if (const std::string state = stateOf(cut.path()); state != before && state != m_state)
                losses.push_back(when + ": " + state);
        m_cuts.clear();
    }

    static inline Disk* watching = nullptr;

    TemporaryFolder m_folder;
    int m_leftOut;
    std::map<ino_t, File> m_files;
    std::map<ino_t, std::map<std::string, ino_t>> m_names; // of each folder as it was last synced
    bool m_isWatching = false;
    std::string m_state;
    std::list<TemporaryFolder> m_cuts;
};

void exportTwice(Disk& disk) {
    for (const std::string text : {"first", "second"})
        disk.run("export", [&] {
            return writeFileAtomically(disk.path() / "export.json", text).has_value();
        });
}

// A first start, enough changes for the log to be moved into the database and begun again, an
// import, the closing, and another change.
void changeLists(Disk& disk) {
    std::optional<SqliteKeyValueStore> window(std::in_place, databaseIn(disk.path()));
    const auto set = [&](std::size_t size, char letter) {
        disk.run("change",
                 [&] { return window->setData("a", std::string(size, letter)).has_value(); });
    };
    for (int number = 0; number < 9; ++number)
        set(2'000'000, static_cast<char>('a' + number));
    disk.run("import",
             [&] { return window->setValues({{"a", "A"}, {"b", "B"}, {"c", "C"}}).has_value(); });
    disk.run("closing", [&] { return window.reset(), true; });
    window.emplace(databaseIn(disk.path()));
    set(1, 'z');
}

} // namespace

TEST(PowerLoss, LosesNothingThatWasAcknowledged) {
    Disk disk;
    exportTwice(disk);
    changeLists(disk);
    EXPECT_EQ(disk.losses, std::vector<std::string>{});
}

TEST(PowerLoss, IsNoticedForEachSyncThatIsLeftOut) {
    for (int leftOut = 0; leftOut < 4; ++leftOut) {
        Disk disk(leftOut);
        exportTwice(disk);
        EXPECT_EQ(disk.syncs, 4);
        EXPECT_FALSE(disk.losses.empty()) << leftOut;
    }
}

} // namespace korvan

// What the C library would do but for waiting for a disk, and what the test wants to know.
extern "C" {

int fsync(int descriptor) {
    if (korvan::Disk* disk = korvan::Disk::current()) disk->synced(descriptor);
    return 0;
}

int fdatasync(int descriptor) { return fsync(descriptor); }

int rename(const char* from, const char* to) {
    if (korvan::Disk* disk = korvan::Disk::current()) disk->changes();
    return ::renameat(AT_FDCWD, from, AT_FDCWD, to);
}

int unlink(const char* path) {
    if (korvan::Disk* disk = korvan::Disk::current()) disk->changes();
    return ::unlinkat(AT_FDCWD, path, 0);
}

int ftruncate64(int descriptor, off64_t length) {
    if (korvan::Disk* disk = korvan::Disk::current(); disk && length == 0) disk->changes();
    return static_cast<int>(::syscall(SYS_ftruncate, descriptor, length));
}

} // extern "C"
