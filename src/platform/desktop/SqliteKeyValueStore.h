// SPDX-License-Identifier: MIT
#pragma once

#include "store/KeyValueStore.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

struct sqlite3;

namespace korvan {

// $XDG_DATA_HOME/korvan/defaults.sqlite3; without a usable XDG_DATA_HOME, below ~/.local/share.
[[nodiscard]] std::filesystem::path defaultDatabasePath();

// The key-value store in an SQLite database, the file `defaults.sqlite3`:
//
//     defaults(key TEXT PRIMARY KEY, value)   a BLOB is a data value; a value of any other type
//                                             counts as nothing stored
//     damaged(key TEXT, value, at TEXT)       what was put aside, and when (ISO 8601, UTC); the
//                                             program never reads it
//
// Each change is one durable transaction. File and folder are made for their owner alone when the
// first value is written; before that, nothing is there.
//
// Several objects and processes may use one file: each waits for its turn, at most for the time
// given. Whatever else is wrong with the file (not readable, read-only, no database at all), it is
// left as it is and each call fails with a German description. Nothing of that is remembered but
// which keys could not be read, so a call succeeds as soon as the cause is gone.
//
// Errors are of the domain "SQLite", their code is SQLite's extended result code.
class SqliteKeyValueStore final : public KeyValueStore {
public:
    // Opens nothing yet. `path` is absolute; `wait` is how long one call waits for others.
    explicit SqliteKeyValueStore(std::filesystem::path path,
                                 std::chrono::milliseconds wait = std::chrono::seconds(2));
    ~SqliteKeyValueStore() override;

    [[nodiscard]] Result<std::optional<std::string>> dataForKey(std::string_view key) override;
    [[nodiscard]] Result<> setData(std::string_view key, std::string_view data) override;
    [[nodiscard]] Result<> preserve(std::string_view key) override;

private:
    // Part of an operation on the open connection; answers SQLite's result code.
    using Work = std::function<int()>;

    // The two kinds of operation. Both connect first when needed, and begin anew while others are
    // in the way and time is left. After a failure nothing stays open.
    [[nodiscard]] Result<> read(const Work& work);
    [[nodiscard]] Result<> write(const Work& work); // `work` in one transaction
    [[nodiscard]] Result<> attempt(std::string_view what, const Work& work);

    // Copies the value under `key` into the table `damaged` if the SQL condition holds for it. For
    // use within a transaction; answers SQLite's result code.
    [[nodiscard]] int putAside(std::string_view key, const std::string& condition);

    [[nodiscard]] bool isAbsent() const;
    [[nodiscard]] Result<> createIfAbsent();
    [[nodiscard]] int connect();
    [[nodiscard]] int prepareForWriting();
    void disconnect();
    [[nodiscard]] int execute(const char* statements);
    [[nodiscard]] Error errorNow(std::string_view what, int code) const;

    std::filesystem::path m_path;
    std::chrono::milliseconds m_wait;
    std::chrono::steady_clock::time_point m_deadline;       // until when the current call waits
    std::chrono::steady_clock::time_point m_lastVainWait;   // when it ended
    std::chrono::steady_clock::time_point m_lastChange;     // of this object
    std::map<std::string, Error, std::less<>> m_unreadKeys; // whose last read failed, and why

    sqlite3* m_connection = nullptr;
    dev_t m_device = 0; // of the file that the connection is to
    ino_t m_inode = 0;
    bool m_isSnapshot = false; // the connection does not see changes of others
    bool m_isPreparedForWriting = false;
};

} // namespace korvan
