// SPDX-License-Identifier: MIT
#pragma once

#include "model/Error.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <string_view>
#include <sys/types.h>

struct sqlite3;

namespace korvan {

// A database file that several objects and processes use at once, and transactions on it.
//
// Each call waits until others have finished, but not longer than the time given. When anything
// else is wrong (the file is not readable, read-only or no database), the call fails and leaves the
// file as it is. Each call begins anew, so it succeeds as soon as the cause is gone. Errors are of
// the domain "SQLite"; their code is SQLite's extended result code, their description German.
class SqliteFile final {
public:
    // Part of a transaction on the open database. Returns SQLite's result code. Runs again when
    // others were in the way.
    using Work = std::function<int(sqlite3*)>;

    // Opens nothing yet. `path` is absolute; `wait` is how long one call waits for others.
    SqliteFile(std::filesystem::path path, std::chrono::milliseconds wait);
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;
    ~SqliteFile();

    // Runs `work`, which sees the database as it was at one moment. When there is no file, succeeds
    // without running it.
    [[nodiscard]] Result<> read(const Work& work);

    // Runs `work` in one durable transaction. First creates the file and its folder if they are
    // missing, for their owner alone.
    [[nodiscard]] Result<> write(const Work& work);

    // Removes what is left of deleted values from the file and its log. Call it after the last
    // write. Hardly waits: while others use the file, does nothing and leaves it to them.
    void tidy();

    // Ends the connection, so that the next call begins with a new one.
    void disconnect();

    // The error for SQLite's result code `code`, right after the call that returned it; `what` says
    // what was tried.
    [[nodiscard]] Error errorNow(std::string_view what, int code) const;

private:
    // Connects if needed and runs `work`; tries again while others are in the way and time is left.
    // After a failure, the connection is closed.
    [[nodiscard]] Result<> attempt(std::string_view what, const Work& work);

    [[nodiscard]] bool isAbsent() const;
    [[nodiscard]] Result<> createIfAbsent();
    [[nodiscard]] int connect(); // to the file that is there now; SQLite's result code
    void disconnectFromLostFile();
    [[nodiscard]] bool canOnlyBeSnapshot() const;
    [[nodiscard]] int open();
    [[nodiscard]] int prepareForWriting();
    int execute(const char* statements);

    std::filesystem::path m_path;
    std::chrono::milliseconds m_wait;
    std::chrono::steady_clock::time_point m_deadline;     // until when the current call waits
    std::chrono::steady_clock::time_point m_lastVainWait; // when the last vain wait ended
    std::chrono::steady_clock::time_point m_lastChange;   // when this object last wrote

    sqlite3* m_connection = nullptr;
    dev_t m_device = 0; // with m_inode, the file that is connected
    ino_t m_inode = 0;
    bool m_isSnapshot = false; // the connection does not see the changes of others
    bool m_isPreparedForWriting = false;
};

} // namespace korvan
