// SPDX-License-Identifier: MIT
#pragma once

#include "model/Error.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvan {

// Where the lists are kept between runs: bytes under a key. Several processes, and several windows
// of one process, may use the same place at once. Each window has an object of its own.
class KeyValueStore {
public:
    // Nothing when the key is absent, or when its value is of another type than bytes.
    using Data = std::optional<std::string>;

    struct Value {
        std::string_view key;
        std::string data;
        bool isExample = false; // what the program fills an empty list with; nobody would miss it
    };

    virtual ~KeyValueStore() = default;

    // The bytes under each of `keys`, in that order, all as they were at one moment. The result of
    // a key is an error when it cannot be read just now; there may still be a value.
    [[nodiscard]] virtual std::vector<Result<Data>>
    dataForKeys(std::span<const std::string_view> keys) = 0;

    // Puts all of `values` under their keys in one transaction: at every moment, either all of them
    // are stored or all of the earlier values.
    //
    // On success they are durable. On failure the earlier values are untouched, and the store may
    // try to write the new ones again later. Fails for a key whose last reading failed, unless the
    // stored value is one that this object has seen: a value that nobody has seen is never
    // overwritten.
    //
    // An earlier value of another type than bytes is put aside first: the program never reads it
    // again, but a person can.
    [[nodiscard]] virtual Result<> setValues(std::vector<Value> values) = 0;

    // Marks the value that was last read under `key` as one that could not be decoded. It is put
    // aside when another value takes its place.
    virtual void preserve(std::string_view key) = 0;

    // The same for one key.
    [[nodiscard]] Result<Data> dataForKey(std::string_view key) {
        return std::move(dataForKeys(std::span(&key, 1)).front());
    }
    [[nodiscard]] Result<> setData(std::string_view key, std::string data) {
        std::vector<Value> values(1);
        values.front() = {key, std::move(data)};
        return setValues(std::move(values));
    }
};

} // namespace korvan
