// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/SqliteFile.h"
#include "store/KeyValueStore.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvan {

// $XDG_DATA_HOME/korvan/defaults.sqlite3. When XDG_DATA_HOME is not an absolute path,
// ~/.local/share takes its place.
[[nodiscard]] std::filesystem::path defaultDatabasePath();

// The key-value store in an SQLite database, the file `defaults.sqlite3`:
//
//     defaults(key TEXT PRIMARY KEY, value)   a BLOB is a data value; a value of any other type
//                                             counts as nothing stored
//     damaged(key TEXT, value, at TEXT)       what was put aside, and when (ISO 8601, UTC); the
//                                             program never reads it
//
// The file and its folder are created, for their owner alone, when the first value is written.
// Errors are those of SqliteFile.
//
// Values that could not be written wait. They are tried again with the next change of any key and
// when this object ends, and those that were set together are written together. Until then, reading
// gives the waiting value. A waiting value is dropped when somebody else has changed its key. If
// the last reading of that key failed, as at a start that met a lock, it is put aside instead: it
// is the only copy of what the user did. Examples are always dropped.
//
// When this object ends, it removes what is left of deleted values from the files.
class SqliteKeyValueStore final : public KeyValueStore {
public:
    // Opens nothing yet. `path` is absolute; `wait` is how long one call waits for others.
    explicit SqliteKeyValueStore(std::filesystem::path path,
                                 std::chrono::milliseconds wait = std::chrono::seconds(2));
    ~SqliteKeyValueStore() override;

    [[nodiscard]] std::vector<Result<Data>>
    dataForKeys(std::span<const std::string_view> keys) override;
    [[nodiscard]] Result<> setValues(std::vector<Value> values) override;
    void preserve(std::string_view key) override;

private:
    // Tells whether a stored value is still the same; empty when nothing is stored.
    using Fingerprint = std::optional<std::size_t>;
    static Fingerprint fingerprintOf(const Data& data) {
        return data ? Fingerprint(std::hash<std::string>{}(*data)) : std::nullopt;
    }

    // What this object knows about a key.
    struct Known {
        Fingerprint seen;               // what it last read or wrote
        std::optional<Error> readError; // of the last reading
        bool isDamaged = false;         // see preserve
        bool isOvertaken = false;       // the last writing found another value than `seen`

        // Whether `stored` may be overwritten, since this object has seen it.
        [[nodiscard]] bool allows(const Fingerprint& stored) const {
            return !stored || stored == seen;
        }
    };

    struct Pending {
        std::string data;
        bool isExample = false;
        bool hasWaited = false;
    };

    // Values by their keys, to be written in one transaction.
    using Batch = std::map<std::string, Pending, std::less<>>;

    // Notes what was read. Puts the value that waits to be written into `found`, if there is one.
    void noteRead(const std::string& key, Result<Data>& found);
    [[nodiscard]] Result<> write(const Batch& batch);
    void writeWaiting();
    void writeAside();

    SqliteFile m_file;
    std::map<std::string, Known, std::less<>> m_known;
    std::vector<Batch> m_waiting;
    std::map<std::string, std::string, std::less<>> m_aside; // what is to be put aside, by its key
};

} // namespace korvan
