// SPDX-License-Identifier: MIT
#include "platform/desktop/SqliteKeyValueStore.h"

#include "store/RecordStore.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvan {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr std::string_view kProfiles = "ssh_profiles_v3";

// A database in a folder of its own, and another program's way into it.
class SqliteStore : public testing::Test {
protected:
    ~SqliteStore() override { sqlite3_close(m_other); }

    // The first column of the last row that the other program gets as the answer.
    std::string ask(const std::string& sql) {
        if (!m_other) sqlite3_open(m_path.c_str(), &m_other);
        std::string answer = "nothing";
        const auto take = [](void* to, int, char** columns, char**) {
            *static_cast<std::string*>(to) = columns[0] ? columns[0] : "NULL";
            return 0;
        };
        const int code = sqlite3_exec(m_other, sql.c_str(), take, &answer, nullptr);
        return code == SQLITE_OK ? answer : sqlite3_errmsg(m_other);
    }

    // What a profile store prints that starts on the database and gets one profile more.
    static std::string printed(KeyValueStore& keyValueStore) {
        testing::internal::CaptureStdout();
        SSHStore profiles(keyValueStore);
        profiles.add({});
        EXPECT_EQ(profiles.profiles().size(), 2U) << "the list works in memory";
        return testing::internal::GetCapturedStdout();
    }

    // The name of each file beside the database, and its bytes.
    [[nodiscard]] std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> found;
        for (const auto& entry : fs::directory_iterator(m_path.parent_path()))
            found[entry.path().filename()] = entry.is_directory() ? "" : textOf(entry.path());
        return found;
    }

    TemporaryFolder m_folder;
    fs::path m_path = m_folder.path() / "data 100%?" / "korvan" / "defaults.sqlite3";
    SqliteKeyValueStore m_store{m_path, 200ms};
    sqlite3* m_other = nullptr;
};

// Starts `work` in a process of its own; the answer waits for its end.
std::function<bool()> inChild(const std::function<bool()>& work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work() ? 0 : 1);
    return [child, status = -1]() mutable { return ::waitpid(child, &status, 0) > 0 && !status; };
}

TEST_F(SqliteStore, KeepsThreePrivateListsFromTheFirstStartOn) {
    EXPECT_EQ(m_store.dataForKey(kProfiles), std::nullopt);
    EXPECT_FALSE(fs::exists(m_path.parent_path())) << "reading makes nothing";
    const SSHStore profiles(m_store);
    const CategoryStore categories(m_store);
    const SnippetStore snippets(m_store);
    for (const char* ending : {"", "-wal", "-shm"})
        EXPECT_EQ(modeOf(m_path.string() + ending), 0600U) << ending;
    EXPECT_EQ(modeOf(m_path.parent_path()), 0700U);
    EXPECT_EQ(ask("SELECT group_concat(key || typeof(value)) FROM "
                  "(SELECT * FROM defaults ORDER BY key)"),
              "ssh_categories_v1blob,ssh_profiles_v3blob,ssh_snippets_v1blob");
    EXPECT_EQ(ask("PRAGMA page_size") + ask("PRAGMA journal_mode"), "65536wal");
    SqliteKeyValueStore next(m_path);
    EXPECT_EQ(SSHStore(next).profiles(), profiles.profiles());
    EXPECT_EQ(SnippetStore(next).snippets(), snippets.snippets());
}

TEST_F(SqliteStore, TakesAnotherTypeForNothingAndPutsDamagedDataAside) {
    ASSERT_TRUE(m_store.setData(kProfiles, std::string_view("[{\0", 3)));
    EXPECT_TRUE(printed(m_store).starts_with("Profile load error: "));
    EXPECT_EQ(ask("SELECT key || hex(value) FROM damaged"), "ssh_profiles_v35B7B00");
    EXPECT_EQ(ask("SELECT at LIKE '____-__-__T__:__:__Z' AND "
                  "abs(julianday('now') - julianday(at)) < 0.01 FROM damaged"),
              "1");
    ask("UPDATE defaults SET value = '[{'");
    EXPECT_EQ(printed(m_store), "");
    EXPECT_EQ(ask("SELECT typeof(value) FROM defaults"), "blob");
    EXPECT_EQ(ask("SELECT count(*) FROM damaged"), "1");
}

TEST_F(SqliteStore, LeavesADatabaseThatItCannotUseAsItWas) {
    ASSERT_TRUE(SqliteKeyValueStore(m_path).setData(kProfiles, "[]"));
    const fs::path aside = m_folder.path() / "aside";
    const auto replaceBy = [&](const std::string& bytes) {
        fs::rename(m_path, aside);
        std::ofstream(m_path) << bytes;
    };
    const auto bringBack = [&] { fs::remove(m_path), fs::rename(aside, m_path); };
    const auto unlock = [&] { sqlite3_close(std::exchange(m_other, nullptr)); };
    const struct {
        std::function<void()> raise, remove;
        int code;
    } obstacles[] = {
        {[&] { replaceBy("Dear diary, " + std::string(5000, 'x')); }, bringBack, SQLITE_NOTADB},
        {[&] { replaceBy("x\n"); }, bringBack, SQLITE_NOTADB},
        {[&] { fs::rename(m_path, aside), fs::create_directory(m_path); }, bringBack,
         SQLITE_CANTOPEN_ISDIR},
        {[&] { ask("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE"); }, unlock, SQLITE_BUSY},
        {[&] { ask("PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE"); }, unlock, SQLITE_BUSY},
    };
    for (const auto& obstacle : obstacles) {
        SCOPED_TRACE(obstacle.code);
        SqliteKeyValueStore store(m_path, 50ms);
        obstacle.raise();
        const auto before = files();
        const std::string lines = printed(store);
        EXPECT_TRUE(lines.starts_with("Profile load error: Die gespeicherten Daten")) << lines;
        EXPECT_EQ(std::ranges::count(lines, '\n'), 3) << lines;
        EXPECT_EQ(store.dataForKey(kProfiles).error().code, obstacle.code);
        EXPECT_EQ(store.setData("another key", "").error().code, obstacle.code);
        EXPECT_TRUE(files() == before);

        obstacle.remove();
        EXPECT_FALSE(store.setData(kProfiles, "not read yet"));
        EXPECT_EQ(store.dataForKey(kProfiles), "[]");
        EXPECT_TRUE(store.setData(kProfiles, "[]"));
    }
}

TEST_F(SqliteStore, ReadsADatabaseThatItMayNotWrite) {
    ASSERT_TRUE(SqliteKeyValueStore(m_path).setData(kProfiles, "[]"));
    const auto setMode = [](const fs::path& path, int mode) {
        fs::permissions(path, static_cast<fs::perms>(mode));
    };
    setMode(m_path, 0444);
    setMode(m_path.parent_path(), 0555);
    setMode(m_path.parent_path().parent_path(), 0755);
    setMode(m_folder.path(), 0755);
    const auto before = files();
    EXPECT_TRUE(inChild([&] {
        if (::getuid() == 0 && ::setuid(65534) != 0) return false; // root may write everything
        const auto set = m_store.setData("another key", "");
        return m_store.dataForKey(kProfiles) == "[]" && !set && set.error().code == SQLITE_READONLY;
    })());
    EXPECT_TRUE(files() == before);
    setMode(m_path.parent_path(), 0755);
}

TEST_F(SqliteStore, SharesItsFileWithAnotherWindowAndNoticesANewOne) {
    SqliteKeyValueStore window(m_path);
    ASSERT_TRUE(m_store.setData("key", "first"));
    ASSERT_TRUE(window.setData("key", ""));
    EXPECT_EQ(m_store.dataForKey("key"), "") << "an empty value is a value";
    fs::rename(m_path, m_folder.path() / "old"); // without its log, as a person would
    EXPECT_EQ(m_store.dataForKey("key"), std::nullopt);
    ASSERT_TRUE(m_store.setData("key", "third"));
    EXPECT_EQ(window.dataForKey("key"), "third");
    EXPECT_EQ(ask("PRAGMA integrity_check"), "ok");
}

} // namespace
} // namespace korvan
