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
// Each call waits for its turn, at most for the time given. Whatever else is wrong with the file
// (not readable, read-only, no database at all), it is left as it is and the call fails with a
// German description. A failure is forgotten at once, so a call succeeds as soon as the cause is
// gone. Errors are of the domain "SQLite", their code is SQLite's extended result code.
class SqliteFile final {
public:
    // Part of a transaction on the open database; answers SQLite's result code. May run more than
    // once, when others were in the way.
    using Work = std::function<int(sqlite3*)>;

    // Opens nothing yet. `path` is absolute; `wait` is how long one call waits for others.
    SqliteFile(std::filesystem::path path, std::chrono::milliseconds wait);
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;
    ~SqliteFile();

    // Runs `work`, which sees the database as it is at one moment. Without a file it succeeds and
    // runs nothing.
    [[nodiscard]] Result<> read(const Work& work);

    // Runs `work` in one durable transaction. Makes the file, and its folder, when there is none,
    // for their owner alone.
    [[nodiscard]] Result<> write(const Work& work);

    // Takes what was deleted out of the file and its log. Hardly waits: where others are at work
    // just now, it is left to the last who closes. To be called when no more is to be written.
    void tidy();

    // Ends the connection, so that the next call begins with a new one.
    void disconnect();

    // What SQLite's result code `code` means just now; `what` says what was tried.
    [[nodiscard]] Error errorNow(std::string_view what, int code) const;

private:
    // Connects first when needed, and begins anew while others are in the way and time is left.
    // After a failure nothing stays open.
    [[nodiscard]] Result<> attempt(std::string_view what, const Work& work);

    [[nodiscard]] bool isAbsent() const;
    [[nodiscard]] Result<> createIfAbsent();
    [[nodiscard]] int connect();
    [[nodiscard]] int prepareForWriting();
    int execute(const char* statements);

    std::filesystem::path m_path;
    std::chrono::milliseconds m_wait;
    std::chrono::steady_clock::time_point m_deadline;     // until when the current call waits
    std::chrono::steady_clock::time_point m_lastVainWait; // when it ended
    std::chrono::steady_clock::time_point m_lastChange;   // of this object

    sqlite3* m_connection = nullptr;
    dev_t m_device = 0; // of the file that the connection is to
    ino_t m_inode = 0;
    bool m_isSnapshot = false; // the connection does not see changes of others
    bool m_isPreparedForWriting = false;
};

} // namespace korvan
