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

// Values in memory. Fails on demand, and keeps its promises when it does.
class MemoryKeyValueStore final : public KeyValueStore {
public:
    std::map<std::string, std::string, std::less<>> values;
    std::vector<std::string> preserved;
    std::vector<std::string> writtenKeys; // of the writes that succeeded, in their order
    bool readingFails = false;
    bool writingFails = false;
    bool preservingFails = false;
    std::function<void()> onWrite = [] {};

    Result<std::optional<std::string>> dataForKey(std::string_view key) override {
        if (readingFails) {
            m_unreadKeys.emplace(key);
            return failure("Memory", 1, "gesperrt");
        }
        m_unreadKeys.erase(std::string(key));
        const auto found = values.find(key);
        if (found == values.end()) return std::nullopt;
        std::string copy;
        copy.reserve(found->second.size() + kJsonPadding);
        copy.append(found->second);
        return copy;
    }

    Result<> setData(std::string_view key, std::string_view data) override {
        if (writingFails || m_unreadKeys.contains(std::string(key)))
            return failure("Memory", 2, "kein Platz");
        values[std::string(key)] = data;
        writtenKeys.emplace_back(key);
        onWrite();
        return {};
    }

    Result<> preserve(std::string_view key) override {
        if (preservingFails) return failure("Memory", 3, "nicht aufgehoben");
        if (const auto found = values.find(key); found != values.end())
            preserved.push_back(found->second);
        return {};
    }

private:
    std::set<std::string> m_unreadKeys;
};

} // namespace korvan
