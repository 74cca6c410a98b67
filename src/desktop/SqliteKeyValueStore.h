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
#include <vector>

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
// File and folder are made for their owner alone when the first value is written; before that,
// nothing is there. Errors are those of SqliteFile.
//
// Values that could not be written are tried again, together as they were set: with the next
// change of any key, and when this object ends. Those of keys that somebody else has changed
// meanwhile are dropped. Until then they are what reading gives.
//
// When this object ends, what was deleted is taken out of the files.
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
    // Tells whether a stored value is still the same. Nothing stored has that of an empty optional.
    using Fingerprint = std::optional<std::size_t>;
    static Fingerprint fingerprintOf(const Data& data) {
        return data ? Fingerprint(std::hash<std::string>{}(*data)) : std::nullopt;
    }

    // What this object knows of a key.
    struct Known {
        Fingerprint seen;               // what it last read or wrote
        std::optional<Error> readError; // of the last reading
        bool isDamaged = false;         // see preserve
        bool isOvertaken = false;       // the last writing found another value than `seen`

        // Whether `stored` may be overwritten as something that was seen.
        [[nodiscard]] bool allows(const Fingerprint& stored) const {
            return !stored || stored == seen;
        }
    };

    struct Pending {
        std::string data;
        bool hasWaited = false;
    };

    // Values by their keys, to be written in one transaction.
    using Batch = std::map<std::string, Pending, std::less<>>;

    // Takes in what was read; gives `found` the value that waits to be written instead, if any.
    void noteRead(const std::string& key, Result<Data>& found);
    [[nodiscard]] Result<> write(const Batch& batch);
    void writeWaiting();

    SqliteFile m_file;
    std::map<std::string, Known, std::less<>> m_known;
    std::vector<Batch> m_waiting;
};

} // namespace korvan
