// SPDX-License-Identifier: MIT
#include "desktop/SqliteKeyValueStore.h"

#include "desktop/SqliteStatement.h"
#include "model/JsonPadding.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <pwd.h>
#include <sqlite3.h>
#include <unistd.h>
#include <utility>

namespace korvan {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kCannotRead = "Die gespeicherten Daten konnten nicht gelesen werden";

fs::path homeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home == '/') return home;
    std::array<char, 16384> texts{};
    passwd entry{};
    passwd* found = nullptr;
    ::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found);
    return found && found->pw_dir && *found->pw_dir == '/' ? found->pw_dir : "/";
}

// Reads a value directly into `data`; a statement would first put it together in memory of its own.
int readValue(sqlite3* connection, std::int64_t row, std::string& data) {
    sqlite3_blob* value = nullptr;
    int code = sqlite3_blob_open(connection, "main", "defaults", "value", row, 0, &value);
    if (code == SQLITE_OK) {
        const int size = sqlite3_blob_bytes(value);
        reserveForJson(data, static_cast<std::size_t>(size));
        data.resize_and_overwrite(static_cast<std::size_t>(size),
                                  [&](char* bytes, std::size_t length) {
                                      code = sqlite3_blob_read(value, bytes, size, 0);
                                      return length;
                                  });
    }
    sqlite3_blob_close(value);
    return code;
}

// Reads the value under `key`, if there is one.
int readData(sqlite3* connection, std::string_view key, std::optional<std::string>& data) {
    data.reset();
    // A database without the table holds nothing. Only this answer says so for certain: when the
    // next statement fails, the reason may also be that the file cannot be read.
    Statement table(connection,
                    "SELECT 1 FROM sqlite_schema WHERE name = 'defaults' COLLATE NOCASE");
    if (!table.step()) return table.code();
    Statement value(connection,
                    "SELECT rowid FROM defaults WHERE key = ?1 AND typeof(value) = 'blob'");
    if (!value.bindText(1, key).step()) return value.code();
    return readValue(connection, value.number(0), data.emplace());
}

// Makes the table `damaged` where it is not there yet.
int makeDamaged(sqlite3* connection) {
    return Statement(connection, "CREATE TABLE IF NOT EXISTS damaged(key TEXT, value, at TEXT)")
        .run();
}

// The start of an INSERT into `damaged`. The caller appends the key and the value to select.
constexpr std::string_view kPutAside = "INSERT INTO damaged(at, key, value) "
                                       "SELECT strftime('%Y-%m-%dT%H:%M:%SZ', 'now'), ";

// Copies the value under `key` into the table `damaged` if the SQL condition holds for it.
int putAside(sqlite3* connection, std::string_view key, const std::string& condition) {
    const std::string rows = "key, value FROM defaults WHERE key = ?1 AND " + condition;
    Statement value(connection, ("SELECT " + rows).c_str());
    if (!value.bindText(1, key).step()) return value.code();
    if (const int code = makeDamaged(connection); code != SQLITE_OK) return code;
    return Statement(connection, (std::string(kPutAside) + rows).c_str()).bindText(1, key).run();
}

int putData(sqlite3* connection, std::string_view key, std::string_view data) {
    return Statement(connection, "INSERT INTO defaults(key, value) VALUES(?1, ?2) "
                                 "ON CONFLICT(key) DO UPDATE SET value = excluded.value")
        .bindText(1, key)
        .bindData(2, data)
        .run();
}

} // namespace

fs::path defaultDatabasePath() {
    const char* configured = std::getenv("XDG_DATA_HOME");
    const fs::path data =
        configured && *configured == '/' ? fs::path(configured) : homeFolder() / ".local" / "share";
    return data / "korvan" / "defaults.sqlite3";
}

SqliteKeyValueStore::SqliteKeyValueStore(fs::path path, std::chrono::milliseconds wait)
    : m_file(std::move(path), wait) {}

SqliteKeyValueStore::~SqliteKeyValueStore() {
    writeWaiting();
    writeAside();
    m_file.tidy();
}

std::vector<Result<KeyValueStore::Data>>
SqliteKeyValueStore::dataForKeys(std::span<const std::string_view> keys) {
    std::vector<Result<Data>> found(keys.size());
    bool hasFailed = false;
    const auto done = m_file.read([&](sqlite3* connection) {
        hasFailed = false;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            Data data;
            const int code = readData(connection, keys[i], data);
            if ((code & 0xff) == SQLITE_BUSY) return code; // all keys are tried again
            hasFailed = hasFailed || code != SQLITE_OK;
            if (code == SQLITE_OK)
                found[i] = std::move(data);
            else
                found[i] = std::unexpected(m_file.errorNow(kCannotRead, code));
        }
        return SQLITE_OK;
    });
    if (hasFailed) m_file.disconnect();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (!done) found[i] = std::unexpected(done.error());
        noteRead(std::string(keys[i]), found[i]);
    }
    writeAside();
    return found;
}

void SqliteKeyValueStore::noteRead(const std::string& key, Result<Data>& found) {
    Known& known = m_known[key];
    const bool wasUnknown = known.readError.has_value();
    known.readError.reset();
    if (!found) {
        known.readError = found.error();
        return;
    }
    const Fingerprint stored = fingerprintOf(*found);
    for (Batch& waiting : m_waiting) {
        const auto own = waiting.find(key);
        if (own == waiting.end()) continue;
        if (known.allows(stored)) {
            found = own->second.data; // newer than what is stored
            return;
        }
        if (wasUnknown && !own->second.isExample) m_aside[key] = std::move(own->second.data);
        waiting.erase(own);
    }
    known.seen = stored;
    known.isDamaged = false;
}

Result<> SqliteKeyValueStore::setValues(std::vector<Value> values) {
    Batch batch;
    for (Value& value : values)
        batch.insert_or_assign(std::string(value.key),
                               Pending{std::move(value.data), value.isExample});
    // Values that wait together with one of these are written together with it.
    std::erase_if(m_waiting, [&](Batch& waiting) {
        if (std::ranges::none_of(batch,
                                 [&](const auto& entry) { return waiting.contains(entry.first); }))
            return false;
        batch.merge(waiting); // new values win
        return true;
    });
    if (auto written = write(batch); !written) {
        for (auto& [key, pending] : batch)
            pending.hasWaited = true;
        m_waiting.push_back(std::move(batch));
        return written;
    }
    writeWaiting();
    writeAside();
    return {};
}

void SqliteKeyValueStore::writeWaiting() {
    std::erase_if(m_waiting,
                  [&](Batch& waiting) { return waiting.empty() || write(waiting).has_value(); });
}

Result<> SqliteKeyValueStore::write(const Batch& batch) {
    std::optional<Error> refusal;
    auto written = m_file.write([&](sqlite3* connection) {
        refusal.reset();
        int code = Statement(connection, "CREATE TABLE IF NOT EXISTS "
                                         "defaults(key TEXT PRIMARY KEY, value)")
                       .run();
        for (const auto& [key, pending] : batch) {
            Known& known = m_known[key];
            known.isOvertaken = false;
            if (code == SQLITE_OK && (pending.hasWaited || known.readError)) {
                Data stored;
                code = readData(connection, key, stored);
                known.isOvertaken = !known.allows(fingerprintOf(stored)) && stored != pending.data;
            }
            if (known.isOvertaken && pending.hasWaited) continue;
            if (known.isOvertaken) refusal = known.readError;
            if (code != SQLITE_OK || refusal) return code != SQLITE_OK ? code : SQLITE_ABORT;
            // Nobody marks a value of another type as damaged, since reading it gives nothing.
            code = putAside(connection, key, known.isDamaged ? "true" : "typeof(value) <> 'blob'");
            if (code == SQLITE_OK) code = putData(connection, key, pending.data);
        }
        return code;
    });
    if (refusal) return std::unexpected(*refusal);
    if (!written) return written;
    for (const auto& [key, pending] : batch) {
        Known& known = m_known[key];
        if (!known.isOvertaken)
            known = Known{.seen = fingerprintOf(pending.data), .readError = {}};
        else if (known.readError && !pending.isExample)
            m_aside[key] = pending.data;
    }
    return {};
}

void SqliteKeyValueStore::writeAside() {
    if (m_aside.empty()) return;
    const auto written = m_file.write([&](sqlite3* connection) {
        int code = makeDamaged(connection);
        for (const auto& [key, data] : m_aside) {
            if (code != SQLITE_OK) break;
            Statement row(connection, (std::string(kPutAside) + "?1, ?2").c_str());
            code = row.bindText(1, key).bindData(2, data).run();
        }
        return code;
    });
    if (written) m_aside.clear();
}

void SqliteKeyValueStore::preserve(std::string_view key) {
    m_known[std::string(key)].isDamaged = true;
}

} // namespace korvan
