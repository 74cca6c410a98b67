// SPDX-License-Identifier: MIT
#include "desktop/SqliteFile.h"

#include "desktop/SqliteStatement.h"
#include "platform/Files.h"

#include <QByteArray>
#include <cerrno>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace korvan {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::string_view kCannotRead = "Die gespeicherten Daten konnten nicht gelesen werden";
constexpr std::string_view kCannotWrite = "Die Daten konnten nicht gespeichert werden";
constexpr std::string_view kCannotCreate = "Die Datenbank konnte nicht angelegt werden";

// The time between two attempts. SQLite's own waiting sleeps for up to 100 ms, and so mostly misses
// the moments between the changes of a program that makes many.
constexpr std::chrono::milliseconds kPause(1);

// How long this object waits between two of its changes. Others ask only every kPause, so a program
// that makes many changes without a rest would keep them out.
constexpr std::chrono::milliseconds kRest(3);

// The pages are large since a value is written whole and may have megabytes. That has an effect
// only before the first table is made.
// Debian's SQLite also writes zeros over the pages of an earlier value, unless told otherwise. That
// doubles the cost of a change and hides little: earlier values are in the log as well.
// The log is moved into the database every 128 pages: seldom, since such a change takes twice as
// long. The file of the log keeps its 8 MB then, since allocating them again takes time, too.
constexpr const char* kWritingSettings = "PRAGMA page_size = 65536;"
                                         "PRAGMA journal_mode = WAL;"
                                         "PRAGMA synchronous = FULL;"
                                         "PRAGMA secure_delete = FAST;"
                                         "PRAGMA wal_autocheckpoint = 128;"
                                         "PRAGMA journal_size_limit = 8388608;";

// How long tidying waits for others.
constexpr std::chrono::milliseconds kTidyingPatience(20);

// The database's user_version while nothing in it is left of deleted values.
constexpr std::int64_t kTidy = 1;

std::string_view reasonFor(int code) {
    if (code == SQLITE_CANTOPEN_ISDIR) return "Das ist ein Ordner";
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return "Ein anderes Programm hält die Datei gesperrt";
    case SQLITE_NOTADB: return "Das ist keine Datenbank";
    case SQLITE_CORRUPT: return "Die Datenbank ist beschädigt";
    case SQLITE_READONLY: return "Die Datei ist schreibgeschützt";
    case SQLITE_CANTOPEN: return "Die Datei lässt sich nicht öffnen";
    case SQLITE_PERM: return "Keine Berechtigung";
    case SQLITE_FULL: return "Auf dem Datenträger ist kein Platz mehr";
    case SQLITE_TOOBIG: return "Die Daten sind zu groß";
    case SQLITE_NOMEM: return "Nicht genug Speicher";
    case SQLITE_IOERR: return "Ein-/Ausgabefehler";
    default: return "Die Datenbank hat nicht die erwartete Form";
    }
}

// The name with which SQLite opens a file without changing or locking it.
std::string immutableName(const fs::path& path) {
    const auto bytes = QByteArray::fromStdString(path.string());
    return "file:" + bytes.toPercentEncoding("/").toStdString() + "?immutable=1";
}

bool mayWrite(const fs::path& path) { return ::access(path.c_str(), W_OK) == 0; }

// The number that answers `question`; 0 when there is none.
std::int64_t numberOf(sqlite3* connection, const char* question) {
    Statement answer(connection, question);
    return answer.step() ? answer.number(0) : 0;
}

// SQLite calls this while others hold the file, again and again until it returns 0. `deadline` is
// SqliteFile::m_deadline.
int waitForOthers(void* deadline, int /*calls*/) {
    if (Clock::now() >= *static_cast<const Clock::time_point*>(deadline)) return 0;
    std::this_thread::sleep_for(kPause);
    return 1;
}

bool isTidy(sqlite3* connection) { return numberOf(connection, "PRAGMA user_version") == kTidy; }

} // namespace

SqliteFile::SqliteFile(fs::path path, std::chrono::milliseconds wait)
    : m_path(std::move(path)), m_wait(wait) {}

SqliteFile::~SqliteFile() { disconnect(); }

Result<> SqliteFile::read(const Work& work) {
    if (isAbsent()) return {};
    auto done = attempt(kCannotRead, [&](sqlite3* connection) {
        int code = execute("BEGIN");
        if (code == SQLITE_OK) code = work(connection);
        return code == SQLITE_OK ? execute("COMMIT") : code;
    });
    // SQLite would keep two megabytes of what was read, and nobody reads it again soon.
    if (m_connection) sqlite3_db_release_memory(m_connection);
    return done;
}

Result<> SqliteFile::write(const Work& work) {
    if (auto created = createIfAbsent(); !created) return created;
    std::this_thread::sleep_until(m_lastChange + kRest);
    auto done = attempt(kCannotWrite, [&](sqlite3* connection) {
        int code = prepareForWriting();
        // The lock for writing comes first: a transaction that has read already cannot wait for it.
        if (code == SQLITE_OK) code = execute("BEGIN IMMEDIATE");
        if (code == SQLITE_OK && isTidy(connection)) code = execute("PRAGMA user_version = 0");
        if (code == SQLITE_OK) code = work(connection);
        return code == SQLITE_OK ? execute("COMMIT") : code; // disconnecting rolls back
    });
    m_lastChange = Clock::now();
    return done;
}

void SqliteFile::tidy() {
    if (isAbsent()) return;
    m_deadline = Clock::now() + kTidyingPatience;
    if (connect() != SQLITE_OK || m_isSnapshot) return disconnect();
    const bool isEmpty = numberOf(m_connection, "PRAGMA page_count") == 0;
    if (isEmpty || isTidy(m_connection) || prepareForWriting() != SQLITE_OK) return;
    // First the whole database is written anew, without what was deleted; by way of memory, since
    // a temporary file would leave it on the disk. Then the log is emptied. The mark comes last: if
    // a step fails or the program ends, the next object to tidy does it all again.
    if (execute("PRAGMA temp_store = MEMORY; VACUUM") == SQLITE_OK &&
        sqlite3_wal_checkpoint_v2(m_connection, nullptr, SQLITE_CHECKPOINT_TRUNCATE, nullptr,
                                  nullptr) == SQLITE_OK)
        execute("PRAGMA user_version = 1");
}

Result<> SqliteFile::attempt(std::string_view what, const Work& work) {
    // Does not wait again right after a call timed out: a new window reads once and writes the
    // examples three times, and would open late by all four waits.
    const bool mayWait = Clock::now() >= m_lastVainWait + m_wait;
    m_deadline = Clock::now() + (mayWait ? m_wait : std::chrono::milliseconds(0));
    while (true) {
        int code = connect();
        if (code == SQLITE_OK) code = work(m_connection);
        if (code == SQLITE_OK) {
            if (m_isSnapshot) disconnect();
            return {};
        }
        const Error error = errorNow(what, code);
        disconnect();
        // SQLite itself does not wait where that could be a deadlock, as when two processes create
        // the database at the same time.
        const bool isBusy = (code & 0xff) == SQLITE_BUSY;
        if (!isBusy || Clock::now() >= m_deadline) {
            if (isBusy && mayWait) m_lastVainWait = Clock::now();
            return std::unexpected(error);
        }
        std::this_thread::sleep_for(kPause);
    }
}

bool SqliteFile::isAbsent() const {
    struct stat status{};
    return ::lstat(m_path.c_str(), &status) != 0 && errno == ENOENT;
}

Result<> SqliteFile::createIfAbsent() {
    if (!isAbsent()) return {};
    if (const auto created = createFolder(m_path.parent_path()); !created)
        return failure("SQLite", SQLITE_CANTOPEN, created.error().localizedDescription);
    // Not by SQLite, which would let others read the file. Creates new files only: closing any
    // descriptor of an open database would drop SQLite's locks on it.
    const int file = ::open(m_path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file >= 0) ::close(file);
    if (file >= 0 || errno == EEXIST) return {}; // another process may have been quicker
    return failure("SQLite", SQLITE_CANTOPEN,
                   posixError(errno, kCannotCreate, m_path).localizedDescription);
}

int SqliteFile::connect() {
    struct stat status{};
    const bool isThere = ::stat(m_path.c_str(), &status) == 0;
    const bool isSame = isThere && status.st_dev == m_device && status.st_ino == m_inode;
    if (m_connection && isSame) return SQLITE_OK;
    if (m_connection) disconnectFromLostFile();
    if (isThere && !S_ISREG(status.st_mode))
        return S_ISDIR(status.st_mode) ? SQLITE_CANTOPEN_ISDIR : SQLITE_CANTOPEN;
    m_device = status.st_dev;
    m_inode = status.st_ino;
    m_isSnapshot = isThere && canOnlyBeSnapshot();
    return open();
}

// The log beside a file that was moved away or replaced belongs to the new file now. So closing
// must neither apply nor remove it.
void SqliteFile::disconnectFromLostFile() {
    int yes = 1;
    sqlite3_file_control(m_connection, "main", SQLITE_FCNTL_PERSIST_WAL, &yes);
    sqlite3_db_config(m_connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    disconnect();
}

// Where SQLite may not write, it cannot make the log that it needs even for reading, or it leaves
// an empty one that nobody removes. As long as there is no log, the file alone is the database.
bool SqliteFile::canOnlyBeSnapshot() const {
    const auto hasCompanion = [&](const char* ending) {
        std::error_code ignored;
        return fs::exists(m_path.string() + ending, ignored);
    };
    return (!mayWrite(m_path) || !mayWrite(m_path.parent_path())) && !hasCompanion("-wal") &&
           !hasCompanion("-journal");
}

int SqliteFile::open() {
    m_isPreparedForWriting = false;
    const std::string name = m_isSnapshot ? immutableName(m_path) : m_path.string();
    const int access =
        m_isSnapshot ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE;
    const int code =
        sqlite3_open_v2(name.c_str(), &m_connection, access | SQLITE_OPEN_EXRESCODE, nullptr);
    if (code == SQLITE_OK) sqlite3_busy_handler(m_connection, waitForOthers, &m_deadline);
    return code;
}

int SqliteFile::prepareForWriting() {
    if (m_isPreparedForWriting) return SQLITE_OK;
    const int code = execute(kWritingSettings);
    m_isPreparedForWriting = code == SQLITE_OK;
    return code;
}

void SqliteFile::disconnect() { sqlite3_close(std::exchange(m_connection, nullptr)); }

int SqliteFile::execute(const char* statements) {
    return sqlite3_exec(m_connection, statements, nullptr, nullptr, nullptr);
}

Error SqliteFile::errorNow(std::string_view what, int code) const {
    const char* original = m_connection ? sqlite3_errmsg(m_connection) : sqlite3_errstr(code);
    return {"SQLite", code,
            std::string(what) + ": " + std::string(reasonFor(code)) + " („" + m_path.string() +
                "“; " + original + ")."};
}

} // namespace korvan
