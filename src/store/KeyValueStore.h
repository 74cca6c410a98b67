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
// of one, may use the same place at once; each object belongs to one of them.
class KeyValueStore {
public:
    // Nothing when the key is absent or its value is no data value.
    using Data = std::optional<std::string>;

    struct Value {
        std::string_view key;
        std::string data;
    };

    virtual ~KeyValueStore() = default;

    // The bytes under each of `keys`, in that order, all as they were at one moment. The result of
    // a key is an error when it cannot be read just now; there may be a value all the same.
    [[nodiscard]] virtual std::vector<Result<Data>>
    dataForKeys(std::span<const std::string_view> keys) = 0;

    // Puts all of `values` under their keys in one transaction: at every moment all of them are
    // there or all of the earlier ones. On success they are durable; on failure the earlier ones
    // are untouched, and these may be tried again later. An earlier one that is no data value is
    // put aside, where this program never looks but a person can. Fails for a key whose last
    // reading failed, unless what stands there was seen before: what nobody has seen is never
    // overwritten.
    [[nodiscard]] virtual Result<> setValues(std::vector<Value> values) = 0;

    // Has the value that was last read under `key` put aside when another takes its place. For data
    // that could not be decoded.
    virtual void preserve(std::string_view key) = 0;

    // The same two for one key.
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
