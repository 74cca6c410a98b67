// SPDX-License-Identifier: MIT
#pragma once

#include "model/Error.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvan {

// Where the lists are kept between runs: bytes under a key. Several processes, and several windows
// of one, may use the same place at once; each object belongs to one of them.
class KeyValueStore {
public:
    KeyValueStore() = default;
    KeyValueStore(const KeyValueStore&) = delete;
    KeyValueStore& operator=(const KeyValueStore&) = delete;
    virtual ~KeyValueStore() = default;

    // The bytes under `key`, best with room for kJsonPadding; nothing when the key is absent or its
    // value is no data value. Fails when the place cannot be read just now, in which case there may
    // well be a value.
    [[nodiscard]] virtual Result<std::optional<std::string>> dataForKey(std::string_view key) = 0;

    // Puts `data` under `key`, in place of any earlier value. On success the value is durable; on
    // failure the earlier one is untouched. An earlier one that is no data value is put aside
    // first, as by `preserve`. Fails while the last dataForKey for this key failed: what could not
    // be read is never overwritten.
    [[nodiscard]] virtual Result<> setData(std::string_view key, std::string_view data) = 0;

    // Puts a copy of the value under `key` aside, where this program never looks but a person can.
    // Does nothing when there is no value. Called before data that nobody could decode is replaced.
    [[nodiscard]] virtual Result<> preserve(std::string_view key) = 0;
};

} // namespace korvan
