// SPDX-License-Identifier: MIT
#pragma once

#include "model/JsonPadding.h"
#include "store/KeyValueStore.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace korvan {

// Values in memory. Fails on demand.
class MemoryKeyValueStore final : public KeyValueStore {
public:
    std::map<std::string, std::string, std::less<>> values;
    std::vector<std::string> preserved;
    std::vector<std::string> writtenKeys; // of the writes that succeeded, in their order
    std::string calls;                    // a letter for each: r and how many keys, or w likewise
    bool readingFails = false;
    bool writingFails = false;
    std::function<void()> onWrite = [] {};

    std::vector<Result<Data>> dataForKeys(std::span<const std::string_view> keys) override {
        calls += "r" + std::to_string(keys.size());
        std::vector<Result<Data>> found(keys.size());
        for (std::size_t i = 0; i < keys.size(); ++i)
            found[i] = read(keys[i]);
        return found;
    }

    Result<> setValues(std::vector<Value> newValues) override {
        calls += "w" + std::to_string(newValues.size());
        if (writingFails) return failure("Memory", 2, "kein Platz");
        for (Value& value : newValues) {
            const std::string key(value.key);
            if (m_damagedKeys.erase(key) > 0) preserved.push_back(values[key]);
            values[key] = std::move(value.data);
            writtenKeys.push_back(key);
        }
        onWrite();
        return {};
    }

    void preserve(std::string_view key) override { m_damagedKeys.emplace(key); }

private:
    Result<Data> read(std::string_view key) {
        if (readingFails) return failure("Memory", 1, "gesperrt");
        m_damagedKeys.erase(std::string(key));
        const auto found = values.find(key);
        if (found == values.end()) return std::nullopt;
        std::string copy;
        reserveForJson(copy, found->second.size());
        copy.append(found->second);
        return copy;
    }

    std::set<std::string, std::less<>> m_damagedKeys;
};

} // namespace korvan
