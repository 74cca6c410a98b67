// SPDX-License-Identifier: MIT
#include "platform/desktop/SqliteKeyValueStore.h"

#include "model/JsonPadding.h"
#include "platform/Files.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
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

// The time between two attempts. SQLite's own waiting sleeps for up to 100 ms each time, and so
// hardly ever meets the moment between two changes of somebody who makes many.
constexpr std::chrono::milliseconds kPause(1);

// How long a file is left to others between two changes of one's own. Whoever waits only asks every
// kPause, so without it he who makes many changes at once would keep all others out.
constexpr std::chrono::milliseconds kRest(3);

// Large pages, since a value is written whole and may have megabytes; they count only before the
// first table is made. Debian's SQLite would also write zeros over all that a value took before,
// which doubles what a change costs and hides little: earlier values stand in the log as well.
// The log is moved into the database and begun again every 128 pages: seldom, since a change that
// does so takes twice as long. It keeps its 8 MB then, since finding them anew takes time, too.
constexpr const char* kWritingSettings = "PRAGMA page_size = 65536;"
                                         "PRAGMA journal_mode = WAL;"
                                         "PRAGMA synchronous = FULL;"
                                         "PRAGMA secure_delete = FAST;"
                                         "PRAGMA wal_autocheckpoint = 128;"
                                         "PRAGMA journal_size_limit = 8388608;";

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

// The name under which SQLite opens a file that it may neither change nor lock.
std::string immutableName(const fs::path& path) {
    std::string name = "file:";
    for (const char character : path.string()) {
        constexpr std::string_view kDigits = "0123456789ABCDEF";
        if (std::string_view("%?#").find(character) == std::string_view::npos) {
            name += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            name.append({'%', kDigits[byte / 16], kDigits[byte % 16]});
        }
    }
    return name + "?immutable=1";
}

bool mayWrite(const fs::path& path) { return ::access(path.c_str(), W_OK) == 0; }

fs::path homeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home == '/') return home;
    std::array<char, 16384> texts{};
    passwd entry{};
    passwd* found = nullptr;
    ::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found);
    return found && found->pw_dir && *found->pw_dir == '/' ? found->pw_dir : "/";
}

// One SQL statement, from its preparation to its end.
class Statement final {
public:
    Statement(sqlite3* connection, const char* text)
        : m_code(sqlite3_prepare_v2(connection, text, -1, &m_statement, nullptr)) {}
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(m_statement); }

    // What is bound must outlive the statement.
    Statement& bindText(int place, std::string_view text) {
        if (m_code == SQLITE_OK)
            m_code = sqlite3_bind_text64(m_statement, place, text.data(), text.size(),
                                         SQLITE_STATIC, SQLITE_UTF8);
        return *this;
    }
    Statement& bindData(int place, std::string_view data) {
        const char* bytes = data.empty() ? "" : data.data(); // a null pointer would bind NULL
        if (m_code == SQLITE_OK)
            m_code = sqlite3_bind_blob64(m_statement, place, bytes, data.size(), SQLITE_STATIC);
        return *this;
    }

    // Whether there is a next row.
    [[nodiscard]] bool step() {
        if (m_code != SQLITE_OK) return false;
        const int code = sqlite3_step(m_statement);
        if (code != SQLITE_DONE && code != SQLITE_ROW) m_code = code;
        return code == SQLITE_ROW;
    }

    // SQLITE_OK unless something failed.
    [[nodiscard]] int code() const { return m_code; }

    [[nodiscard]] int run() {
        while (step()) {
        }
        return m_code;
    }

    [[nodiscard]] std::int64_t number(int column) const {
        return sqlite3_column_int64(m_statement, column);
    }

private:
    sqlite3_stmt* m_statement = nullptr;
    int m_code;
};

// Reads a value into `data` itself; a statement would put it together in memory of its own first.
int readValue(sqlite3* connection, std::int64_t row, std::string& data) {
    sqlite3_blob* value = nullptr;
    int code = sqlite3_blob_open(connection, "main", "defaults", "value", row, 0, &value);
    if (code == SQLITE_OK) {
        const int size = sqlite3_blob_bytes(value);
        data.reserve(static_cast<std::size_t>(size) + kJsonPadding);
        data.resize_and_overwrite(static_cast<std::size_t>(size),
                                  [&](char* bytes, std::size_t length) {
                                      code = sqlite3_blob_read(value, bytes, size, 0);
                                      return length;
                                  });
    }
    sqlite3_blob_close(value);
    return code;
}

} // namespace

fs::path defaultDatabasePath() {
    const char* configured = std::getenv("XDG_DATA_HOME");
    const fs::path data =
        configured && *configured == '/' ? fs::path(configured) : homeFolder() / ".local" / "share";
    return data / "korvan" / "defaults.sqlite3";
}

SqliteKeyValueStore::SqliteKeyValueStore(fs::path path, std::chrono::milliseconds wait)
    : m_path(std::move(path)), m_wait(wait) {}

SqliteKeyValueStore::~SqliteKeyValueStore() { disconnect(); }

Result<std::optional<std::string>> SqliteKeyValueStore::dataForKey(std::string_view key) {
    std::optional<std::string> data;
    const auto done = read([&] {
        // A database without the table holds nothing. Only this answer says so for certain: the
        // failure to use the table may as well be that of reading the file.
        Statement table(m_connection,
                        "SELECT 1 FROM sqlite_schema WHERE name = 'defaults' COLLATE NOCASE");
        if (!table.step()) return table.code();
        // The statement lives on while the value is read, or another process could change it now.
        Statement value(m_connection,
                        "SELECT rowid FROM defaults WHERE key = ?1 AND typeof(value) = 'blob'");
        if (!value.bindText(1, key).step()) return value.code();
        return readValue(m_connection, value.number(0), data.emplace());
    });
    if (!done) {
        m_unreadKeys.insert_or_assign(std::string(key), done.error());
        return std::unexpected(done.error());
    }
    if (const auto found = m_unreadKeys.find(key); found != m_unreadKeys.end())
        m_unreadKeys.erase(found);
    return data;
}

Result<> SqliteKeyValueStore::setData(std::string_view key, std::string_view data) {
    if (const auto found = m_unreadKeys.find(key); found != m_unreadKeys.end())
        return std::unexpected(found->second);
    return write([&] {
        // What is no data value was no list to whoever read it, so nobody has put it aside.
        if (const int code = putAside(key, "typeof(value) <> 'blob'"); code != SQLITE_OK)
            return code;
        return Statement(m_connection, "INSERT INTO defaults(key, value) VALUES(?1, ?2) "
                                       "ON CONFLICT(key) DO UPDATE SET value = excluded.value")
            .bindText(1, key)
            .bindData(2, data)
            .run();
    });
}

Result<> SqliteKeyValueStore::preserve(std::string_view key) {
    return write([&] { return putAside(key, "true"); });
}

int SqliteKeyValueStore::putAside(std::string_view key, const std::string& condition) {
    const std::string rows = " FROM defaults WHERE key = ?1 AND " + condition;
    Statement value(m_connection, ("SELECT 1" + rows).c_str());
    if (!value.bindText(1, key).step()) return value.code();
    const int code = execute("CREATE TABLE IF NOT EXISTS damaged(key TEXT, value, at TEXT)");
    if (code != SQLITE_OK) return code;
    return Statement(m_connection, ("INSERT INTO damaged(key, value, at) SELECT key, value, "
                                    "strftime('%Y-%m-%dT%H:%M:%SZ', 'now')" +
                                    rows)
                                       .c_str())
        .bindText(1, key)
        .run();
}

Result<> SqliteKeyValueStore::read(const Work& work) {
    if (isAbsent()) return {};
    auto done = attempt(kCannotRead, work);
    // Nobody reads a list twice soon, and SQLite would keep two megabytes of it.
    if (m_connection) sqlite3_db_release_memory(m_connection);
    return done;
}

Result<> SqliteKeyValueStore::write(const Work& work) {
    if (auto created = createIfAbsent(); !created) return created;
    std::this_thread::sleep_until(m_lastChange + kRest);
    auto done = attempt(kCannotWrite, [&] {
        int code = prepareForWriting();
        // The right to write comes first: a transaction that read before could not wait for it.
        if (code == SQLITE_OK) code = execute("BEGIN IMMEDIATE");
        if (code == SQLITE_OK)
            code = execute("CREATE TABLE IF NOT EXISTS defaults(key TEXT PRIMARY KEY, value)");
        if (code == SQLITE_OK) code = work();
        if (code == SQLITE_OK) code = execute("COMMIT");
        return code; // closing the connection rolls back
    });
    m_lastChange = Clock::now();
    return done;
}

Result<> SqliteKeyValueStore::attempt(std::string_view what, const Work& work) {
    // Who has just waited in vain does not wait again at once: a window reads three lists before it
    // is shown, and would be three times as late.
    const bool mayWait = Clock::now() >= m_lastVainWait + m_wait;
    m_deadline = Clock::now() + (mayWait ? m_wait : std::chrono::milliseconds(0));
    while (true) {
        int code = connect();
        if (code == SQLITE_OK) code = work();
        if (code == SQLITE_OK) {
            if (m_isSnapshot) disconnect();
            return {};
        }
        const Error error = errorNow(what, code);
        disconnect();
        // SQLite does not wait where that could be a deadlock, as when two processes make the
        // database at the same time.
        const bool isBusy = (code & 0xff) == SQLITE_BUSY;
        if (!isBusy || Clock::now() >= m_deadline) {
            if (isBusy && mayWait) m_lastVainWait = Clock::now();
            return std::unexpected(error);
        }
        std::this_thread::sleep_for(kPause);
    }
}

bool SqliteKeyValueStore::isAbsent() const {
    struct stat status{};
    return ::lstat(m_path.c_str(), &status) != 0 && errno == ENOENT;
}

Result<> SqliteKeyValueStore::createIfAbsent() {
    if (!isAbsent()) return {};
    if (const auto created = createFolder(m_path.parent_path()); !created)
        return failure("SQLite", SQLITE_CANTOPEN, created.error().localizedDescription);
    // By hand, since SQLite would let others read it. Only ever a new file: closing a descriptor of
    // one that is in use would drop the locks that SQLite holds on it.
    const int file = ::open(m_path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file >= 0) ::close(file);
    if (file >= 0 || errno == EEXIST) return {}; // another process may have been quicker
    return failure("SQLite", SQLITE_CANTOPEN,
                   posixError(errno, kCannotCreate, m_path).localizedDescription);
}

int SqliteKeyValueStore::connect() {
    struct stat status{};
    const bool isThere = ::stat(m_path.c_str(), &status) == 0;
    const bool isSame = isThere && status.st_dev == m_device && status.st_ino == m_inode;
    if (m_connection && !isSame) {
        // The file was taken away or replaced. The log beside it is the new one's now, so closing
        // must neither apply nor remove it.
        int yes = 1;
        sqlite3_file_control(m_connection, "main", SQLITE_FCNTL_PERSIST_WAL, &yes);
        sqlite3_db_config(m_connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        disconnect();
    }
    if (m_connection) return SQLITE_OK;
    if (isThere && !S_ISREG(status.st_mode))
        return S_ISDIR(status.st_mode) ? SQLITE_CANTOPEN_ISDIR : SQLITE_CANTOPEN;

    // Where SQLite may not make its log, it cannot even read; or it leaves an empty log that nobody
    // removes. As long as there is no log, the file alone is the database.
    const auto hasCompanion = [&](const char* ending) {
        std::error_code ignored;
        return fs::exists(m_path.string() + ending, ignored);
    };
    m_isSnapshot = isThere && (!mayWrite(m_path) || !mayWrite(m_path.parent_path())) &&
                   !hasCompanion("-wal") && !hasCompanion("-journal");
    const std::string name = m_isSnapshot ? immutableName(m_path) : m_path.string();
    const int access =
        m_isSnapshot ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE;
    m_device = status.st_dev;
    m_inode = status.st_ino;
    m_isPreparedForWriting = false;
    const int code =
        sqlite3_open_v2(name.c_str(), &m_connection, access | SQLITE_OPEN_EXRESCODE, nullptr);
    const auto waitForOthers = [](void* deadline, int) {
        if (Clock::now() >= *static_cast<const Clock::time_point*>(deadline)) return 0;
        std::this_thread::sleep_for(kPause);
        return 1;
    };
    if (code == SQLITE_OK) sqlite3_busy_handler(m_connection, waitForOthers, &m_deadline);
    return code;
}

int SqliteKeyValueStore::prepareForWriting() {
    if (m_isPreparedForWriting) return SQLITE_OK;
    const int code = execute(kWritingSettings);
    m_isPreparedForWriting = code == SQLITE_OK;
    return code;
}

void SqliteKeyValueStore::disconnect() { sqlite3_close(std::exchange(m_connection, nullptr)); }

int SqliteKeyValueStore::execute(const char* statements) {
    return sqlite3_exec(m_connection, statements, nullptr, nullptr, nullptr);
}

Error SqliteKeyValueStore::errorNow(std::string_view what, int code) const {
    const char* original = m_connection ? sqlite3_errmsg(m_connection) : sqlite3_errstr(code);
    return {"SQLite", code,
            std::string(what) + ": " + std::string(reasonFor(code)) + " („" + m_path.string() +
                "“; " + original + ")."};
}

} // namespace korvan
