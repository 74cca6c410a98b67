// SPDX-License-Identifier: MIT
#include "desktop/SqliteKeyValueStore.h"

#include "store/RecordStore.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <thread>
#include <unistd.h>

namespace korvan {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr std::string_view kProfiles = "ssh_profiles_v3";
constexpr std::array<std::string_view, 3> kKeys = {"a", "b", "c"};

// The same data under three keys.
std::vector<KeyValueStore::Value> valuesOf(const std::string& data) {
    return {{"a", data}, {"b", data}, {"c", data}};
}

// A database in a folder of its own, and another program's way into it.
class SqliteStore : public testing::Test {
protected:
    ~SqliteStore() override { sqlite3_close(otherProgram); }

    // The first column of the last row that the other program gets as the answer.
    std::string ask(const std::string& sql) {
        if (!otherProgram) sqlite3_open(databaseFile.c_str(), &otherProgram);
        std::string answer = "nothing";
        const auto take = [](void* to, int, char** columns, char**) {
            *static_cast<std::string*>(to) = columns[0] ? columns[0] : "NULL";
            return 0;
        };
        const int code = sqlite3_exec(otherProgram, sql.c_str(), take, &answer, nullptr);
        return code == SQLITE_OK ? answer : sqlite3_errmsg(otherProgram);
    }

    // All values in the order of their keys, as the other program sees them.
    std::string valuesNow() {
        return ask("SELECT coalesce(group_concat(CAST(value AS TEXT), ''), '') FROM "
                   "(SELECT value FROM defaults ORDER BY key)");
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
        for (const auto& entry : fs::directory_iterator(databaseFile.parent_path()))
            found[entry.path().filename()] = entry.is_directory() ? "" : textOf(entry.path());
        return found;
    }

    TemporaryFolder folder;
    fs::path databaseFile = folder.path() / "data 100%?" / "korvan" / "defaults.sqlite3";
    SqliteKeyValueStore keyValueStore{databaseFile, 200ms};
    sqlite3* otherProgram = nullptr;
};

TEST_F(SqliteStore, KeepsThreePrivateListsFromTheFirstStartOn) {
    EXPECT_EQ(keyValueStore.dataForKey(kProfiles), std::nullopt);
    EXPECT_FALSE(fs::exists(databaseFile.parent_path())) << "reading makes nothing";
    const SSHStore profiles(keyValueStore);
    const CategoryStore categories(keyValueStore);
    const SnippetStore snippets(keyValueStore);
    for (const char* ending : {"", "-wal", "-shm"})
        EXPECT_EQ(modeOf(databaseFile.string() + ending), 0600U) << ending;
    EXPECT_EQ(modeOf(databaseFile.parent_path()), 0700U);
    EXPECT_EQ(ask("SELECT group_concat(key || typeof(value)) FROM "
                  "(SELECT * FROM defaults ORDER BY key)"),
              "ssh_categories_v1blob,ssh_profiles_v3blob,ssh_snippets_v1blob");
    SqliteKeyValueStore next(databaseFile);
    EXPECT_EQ(SnippetStore(next).snippets(), snippets.snippets());
}

TEST_F(SqliteStore, TakesAnotherTypeForNothingAndPutsDamagedDataAside) {
    ASSERT_TRUE(keyValueStore.setData(kProfiles, std::string("[{\0", 3)));
    EXPECT_TRUE(printed(keyValueStore).starts_with("Profile load error: "));
    EXPECT_EQ(ask("SELECT key || hex(value) FROM damaged"), "ssh_profiles_v35B7B00");
    EXPECT_EQ(ask("SELECT at LIKE '____-__-__T__:__:__Z' AND "
                  "abs(julianday('now') - julianday(at)) < 0.01 FROM damaged"),
              "1");
    // As one statement of a person's makes them, without a line but not without a trace.
    ask("UPDATE defaults SET value = replace(value, '[', '{')");
    const std::string changed = ask("SELECT value FROM defaults");
    EXPECT_EQ(printed(keyValueStore), "");
    EXPECT_EQ(ask("SELECT typeof(value) FROM defaults"), "blob");
    EXPECT_EQ(ask("SELECT typeof(value) || value FROM damaged"), "text" + changed);
    keyValueStore.preserve(kProfiles); // until another window has repaired it
    ASSERT_TRUE(keyValueStore.dataForKey(kProfiles) && keyValueStore.setData(kProfiles, "[]"));
    EXPECT_EQ(ask("SELECT count(*) FROM damaged"), "2");
}

TEST_F(SqliteStore, LeavesADatabaseThatItCannotUseAsItWas) {
    ASSERT_TRUE(SqliteKeyValueStore(databaseFile).setData(kProfiles, "[]"));
    const fs::path aside = folder.path() / "aside";
    const auto replaceBy = [&](const std::string& bytes) {
        fs::rename(databaseFile, aside);
        std::ofstream(databaseFile) << bytes;
    };
    const auto bringBack = [&] { fs::remove(databaseFile), fs::rename(aside, databaseFile); };
    const auto unlock = [&] { sqlite3_close(std::exchange(otherProgram, nullptr)); };
    const struct {
        std::function<void()> raise, remove;
        int code;
    } obstacles[] = {
        {[&] { replaceBy("Dear diary, " + std::string(5000, 'x')); }, bringBack, SQLITE_NOTADB},
        {[&] { replaceBy("x\n"); }, bringBack, SQLITE_NOTADB},
        {[&] { fs::rename(databaseFile, aside), fs::create_directory(databaseFile); }, bringBack,
         SQLITE_CANTOPEN_ISDIR},
        {[&] { ask("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE"); }, unlock, SQLITE_BUSY},
        {[&] { ask("PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE"); }, unlock, SQLITE_BUSY},
    };
    for (const auto& obstacle : obstacles) {
        SCOPED_TRACE(obstacle.code);
        SqliteKeyValueStore store(databaseFile, 50ms);
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

TEST_F(SqliteStore, WaitsForOneWhoHoldsTheFileForLessThanTheUsualWait) {
    SqliteKeyValueStore window(databaseFile);
    ASSERT_TRUE(window.setData("key", ""));
    ask("BEGIN IMMEDIATE");
    const auto start = std::chrono::steady_clock::now();
    std::thread holder([this] { std::this_thread::sleep_for(1s), ask("ROLLBACK"); });
    EXPECT_TRUE(window.setData("key", "waited"));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 900ms) << "nobody had to wait";
    holder.join();
}

TEST_F(SqliteStore, TriesAgainWhatItCouldNotWriteUnlessSomebodyElseWasQuicker) {
    using Step = std::function<void(SqliteKeyValueStore&)>;
    const auto fails = [&](const std::vector<KeyValueStore::Value>& values) {
        return [this, values](SqliteKeyValueStore& window) {
            ask("BEGIN IMMEDIATE");
            EXPECT_EQ(window.setValues(values).error().code, SQLITE_BUSY);
            ask("ROLLBACK");
        };
    };
    const auto sets = [](const char* key, const char* data) {
        return [=](SqliteKeyValueStore& window) { EXPECT_TRUE(window.setData(key, data)); };
    };
    const auto reads = [](const char* data) {
        return [=](SqliteKeyValueStore& window) { EXPECT_EQ(window.dataForKey("a"), data); };
    };
    const Step other = [&](auto&) { ask("UPDATE defaults SET value = x'39' WHERE key = 'a'"); };
    const auto refused = [&](const Step& step) {
        return [this, step](SqliteKeyValueStore& window) {
            fs::rename(databaseFile, folder.path() / "aside"), fs::create_directory(databaseFile);
            step(window);
            fs::remove(databaseFile), fs::rename(folder.path() / "aside", databaseFile);
        };
    };
    const Step isRefused = refused([](auto& window) { EXPECT_FALSE(window.dataForKey("a")); });
    const Step isStored = [&](auto&) {
        ask("INSERT INTO defaults VALUES('ssh_profiles_v3', x'2D')");
    };
    const Step failsUnread = [](auto& window) { EXPECT_FALSE(window.setData("a", "1")); };
    const Step gone = [&](auto&) { ask("DELETE FROM defaults"); };
    const struct {
        std::vector<Step> steps;
        std::string before, after; // the window is closed: what stands under the three keys
        std::string aside = {};
    } cases[] = {
        {{fails({{"a", "1"}})}, "000", "100"},
        {{fails({{"a", "1"}}), sets("b", "2")}, "120", "120"},
        {{fails({{"a", "1"}}), fails({{"b", "2"}}), sets("c", "3")}, "123", "123"},
        {{fails({{"a", "1"}}), sets("a", "2")}, "200", "200"},
        {{fails({{"a", "1"}}), other}, "900", "900"},
        {{fails({{"a", "1"}}), other, reads("9"), sets("b", "2")}, "920", "920"},
        {{fails({{"a", "1"}}), reads("1"), reads("1")}, "000", "100"},
        {{fails(valuesOf("1")), other, sets("c", "3")}, "913", "913"},
        {{fails(valuesOf("1")), fails({{"c", "3"}})}, "000", "113"},
        {{fails({{"a", "1"}}), gone}, "", "1"},
        {{isRefused, sets("a", "1")}, "100", "100"},
        {{isRefused, other, failsUnread}, "900", "900", "1"},
        {{isRefused, other, failsUnread, reads("9"), sets("a", "2")}, "200", "200", "1"},
        {{isRefused, reads("0"), other, sets("a", "2")}, "200", "200"},
        {{isRefused, [&](auto&) { ask("UPDATE defaults SET value = x'31'"); }, sets("a", "1")},
         "111",
         "111"},
        {{isStored, refused([](auto& window) { SSHStore profiles(window); })}, "000-", "000-"},
    };
    for (std::size_t number = 0; const auto& [steps, before, after, aside] : cases) {
        SCOPED_TRACE(number++);
        ASSERT_TRUE(keyValueStore.setValues(valuesOf("0")));
        ask("CREATE TABLE IF NOT EXISTS damaged(key TEXT, value, at TEXT)");
        std::optional<SqliteKeyValueStore> window(std::in_place, databaseFile, 0ms);
        EXPECT_EQ(window->dataForKeys(kKeys)[0], "0");
        for (const Step& step : steps)
            step(*window);
        EXPECT_EQ(valuesNow(), before);
        window.reset();
        EXPECT_EQ(valuesNow(), after);
        EXPECT_EQ(ask("SELECT coalesce(group_concat(CAST(value AS TEXT), ''), '') FROM damaged"),
                  aside);
        ask("DROP TABLE damaged");
    }
}

TEST_F(SqliteStore, LeavesNothingOfWhatWasDeletedOnceItIsClosed) {
    const std::string note(20, 'x');
    const std::string longNote(300'000, 'x');
    const auto hasNote = [&](const auto& file) { return file.second.contains(note); };
    const auto isThere = [&] { return std::ranges::any_of(files(), hasNote); };
    const auto run = [&](const std::function<void()>& end) {
        std::optional<SqliteKeyValueStore> window(std::in_place, databaseFile);
        for (const std::string& text : {longNote, note, longNote, std::string(250'000, '-')})
            EXPECT_TRUE(window->setData("a", text));
        EXPECT_TRUE(isThere());
        end();
        const auto start = std::chrono::steady_clock::now();
        window.reset();
        EXPECT_LT(std::chrono::steady_clock::now() - start, 1s) << "nobody is waited for";
    };
    const std::function<void()> ends[] = {
        [] {}, [&] { ask("SELECT 1 FROM defaults"); },           // another is there, but at rest
        [&] { ask("BEGIN; SELECT value FROM defaults"); },       // reads for a long time
        [&] { ask("BEGIN IMMEDIATE; SELECT 1 FROM defaults"); }, // writes
    };
    for (std::size_t i = 0; i < std::size(ends); ++i) {
        SCOPED_TRACE(i);
        run(ends[i]);
        EXPECT_EQ(isThere(), i >= 2);
        sqlite3_close(std::exchange(otherProgram, nullptr));
        EXPECT_EQ(SqliteKeyValueStore(databaseFile).dataForKey("b"), std::nullopt);
        EXPECT_FALSE(isThere());
        EXPECT_EQ(files().size(), 1U) << "no log stays";
    }
    EXPECT_EXIT(run([] { ::_exit(0); }), testing::ExitedWithCode(0), ""); // killed
    EXPECT_TRUE(isThere());
    EXPECT_EQ(SqliteKeyValueStore(databaseFile).dataForKey("a"), std::string(250'000, '-'));
    EXPECT_FALSE(isThere());
}

TEST_F(SqliteStore, ReadsADatabaseThatItMayNotWrite) {
    ASSERT_TRUE(SqliteKeyValueStore(databaseFile).setData(kProfiles, "[]"));
    fs::permissions(databaseFile, fs::perms(0444));
    fs::permissions(databaseFile.parent_path(), fs::perms(0555));
    fs::permissions(databaseFile.parent_path().parent_path(), fs::perms(0755));
    fs::permissions(folder.path(), fs::perms(0755));
    const auto before = files();
    const auto tryBoth = [&] {
        const bool isRoot = ::getuid() == 0 && ::setuid(65534) != 0; // who may write
        const auto set = keyValueStore.setData("another key", "");
        ::_exit(isRoot || set || set.error().code != SQLITE_READONLY ||
                keyValueStore.dataForKey(kProfiles) != "[]");
    };
    EXPECT_EXIT(tryBoth(), testing::ExitedWithCode(0), "");
    EXPECT_TRUE(files() == before);
    fs::permissions(databaseFile.parent_path(), fs::perms(0755));
}

TEST_F(SqliteStore, SharesItsFileWithAnotherWindowAndNoticesANewOne) {
    SqliteKeyValueStore window(databaseFile);
    ASSERT_TRUE(keyValueStore.setData("key", "first"));
    ASSERT_TRUE(window.setData("key", ""));
    EXPECT_EQ(keyValueStore.dataForKey("key"), "") << "an empty value is a value";
    fs::rename(databaseFile, folder.path() / "old"); // without its log, as a person would
    EXPECT_EQ(keyValueStore.dataForKey("key"), std::nullopt);
    ASSERT_TRUE(keyValueStore.setData("key", "third"));
    EXPECT_EQ(window.dataForKey("key"), "third");
    EXPECT_EQ(ask("PRAGMA integrity_check"), "ok");
}

} // namespace
} // namespace korvan
