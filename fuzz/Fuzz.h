// SPDX-License-Identifier: MIT
#pragma once

#include "model/KorvanBackup.h"
#include "model/Text.h"

#include <cstdio>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>
#include <simdjson.h>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

// What the fuzzers share: each feeds arbitrary bytes to a few functions and requires what must hold
// for any.
namespace korvan::fuzz {

inline void require(bool isTrue, const char* claim) {
    if (isTrue) return;
    std::fprintf(stderr, "does not hold: %s\n", claim);
    std::abort();
}

inline std::string mended(std::string_view text) {
    std::string valid;
    appendValidUtf8(valid, text);
    return valid;
}

// Judged by somebody else's rules for UTF-8.
inline bool isValidUtf8(std::string_view text) {
    return simdjson::validate_utf8(text.data(), text.size());
}

// Judged by a parser that builds the whole document. It has no form for numbers above 64 bits,
// which under keys that nobody knows are none of our business.
inline bool isJson(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    simdjson::dom::parser parser;
    const auto error = parser.parse(text.data(), text.size()).error();
    return error == simdjson::SUCCESS || error == simdjson::NUMBER_ERROR;
}

inline void mend(std::string& text) { text = mended(text); }

template <class Value>
void mend(Value&) {}

// What `record` is to be when it has been written and read.
template <class Record>
Record mendedRecord(Record record) {
    std::apply([&](const auto&... field) { (mend(record.*field.member), ...); }, kFields<Record>);
    return record;
}

// Byte by byte, which is more than the equality of records asks for.
template <class Record>
bool isSame(const Record& left, const Record& right) {
    return std::apply(
        [&](const auto&... field) { return (... && (left.*field.member == right.*field.member)); },
        kFields<Record>);
}

template <class Record>
bool areSame(const std::vector<Record>& left, const std::vector<Record>& right) {
    return std::ranges::equal(left, right, isSame<Record>);
}

// Draws records from the bytes of the fuzzer. Each text of `bytes` ends in a backslash and a space.
class Source final {
public:
    Source(const std::uint8_t* bytes, std::size_t length) : m_bytes(bytes, length) {}

    std::string text() { return m_bytes.ConsumeRandomLengthString(); }
    std::string rest() { return m_bytes.ConsumeRemainingBytesAsString(); }
    std::int64_t number() { return m_bytes.ConsumeIntegral<std::int64_t>(); }

    // As many records as the bytes suffice for.
    template <class Record>
    std::vector<Record> records(std::size_t most) {
        std::vector<Record> drawn;
        while (drawn.size() < most && m_bytes.remaining_bytes() > 0) {
            Record& record = drawn.emplace_back(Uuid());
            std::apply([&](const auto&... field) { (draw(record.*field.member), ...); },
                       kFields<Record>);
        }
        return drawn;
    }

private:
    void draw(std::string& value) { value = text(); }
    void draw(std::int64_t& value) { value = number(); }
    void draw(Uuid& value) {
        const auto bytes = m_bytes.ConsumeBytes<char>(Uuid::kTextLength);
        value = Uuid::parse({bytes.data(), bytes.size()}).value_or(Uuid());
    }
    void draw(std::optional<Uuid>& value) {
        if (m_bytes.ConsumeBool()) draw(value.emplace());
    }

    FuzzedDataProvider m_bytes;
};

} // namespace korvan::fuzz
