// SPDX-License-Identifier: MIT
#pragma once

#include "model/Record.h"
#include "model/Uuid.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace korvan {

enum class JsonForm {
    compact,      // no white space, keys in the order of the fields
    prettySorted, // two spaces an indent, a line for each member and element, keys sorted
};

// Writes JSON text piece by piece. The solidus is escaped and text outside ASCII stays UTF-8; a
// byte that is no part of valid UTF-8 becomes U+FFFD, so that what is written can always be read.
// The caller calls the functions in an order that makes a JSON value.
class JsonWriter final {
public:
    explicit JsonWriter(JsonForm form) : m_isPretty(form == JsonForm::prettySorted) {}

    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }

    // The next member of the object that is open; its value comes next. `key` needs no escapes.
    void key(std::string_view key);

    // The next element of the array that is open comes next.
    void element() { separate(); }

    void value(std::string_view text);
    void value(const std::string& text) { value(std::string_view(text)); }
    void value(std::int64_t number);
    void value(const Uuid& uuid);

    [[nodiscard]] std::size_t length() const { return m_text.size(); }

    // Makes room for about so much more text, so that what is written need not be moved again.
    void expect(std::size_t length) { m_text.reserve(m_text.size() + length + length / 16); }

    // The text written so far; the writer is empty afterwards.
    [[nodiscard]] std::string take() { return std::exchange(m_text, {}); }

private:
    void open(char bracket);
    void close(char bracket);
    void separate();
    void breakLine();

    std::string m_text;
    std::size_t m_depth = 0;
    bool m_isPretty;
    bool m_isFirst = true;
};

namespace json {

// The places of a record's fields in the order of their sorted keys.
template <class Record>
constexpr auto sortedFields() {
    constexpr std::size_t count = std::tuple_size_v<decltype(kFields<Record>)>;
    const auto keys =
        std::apply([](const auto&... field) { return std::array{field.key...}; }, kFields<Record>);
    std::array<std::size_t, count> order{};
    for (std::size_t i = 0; i < count; ++i)
        order[i] = i;
    std::ranges::sort(order, {}, [&](std::size_t i) { return keys[i]; });
    return order;
}

template <class Record>
void writeRecord(JsonWriter& writer, const Record& record, JsonForm form);

template <class Value>
void writeValue(JsonWriter& writer, const Value& value, JsonForm) {
    writer.value(value);
}

template <class Record>
void writeValue(JsonWriter& writer, const std::vector<Record>& records, JsonForm form) {
    constexpr std::size_t sampleSize = 64; // enough to tell how long the others will be
    const std::size_t start = writer.length();
    writer.beginArray();
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (i == sampleSize)
            writer.expect((writer.length() - start) / sampleSize * (records.size() - i));
        writer.element();
        writeRecord(writer, records[i], form);
    }
    writer.endArray();
}

template <class Value>
void writeMember(JsonWriter& writer, std::string_view key, const Value& value, JsonForm form) {
    writer.key(key);
    writeValue(writer, value, form);
}

// What is absent is left out, never written as null.
template <class Value>
void writeMember(JsonWriter& writer, std::string_view key, const std::optional<Value>& value,
                 JsonForm form) {
    if (value) writeMember(writer, key, *value, form);
}

template <class Record>
void writeRecord(JsonWriter& writer, const Record& record, JsonForm form) {
    const auto write = [&](const auto& field) {
        writeMember(writer, field.key, record.*field.member, form);
    };
    constexpr auto count = std::tuple_size_v<decltype(kFields<Record>)>;
    writer.beginObject();
    [&]<std::size_t... place>(std::index_sequence<place...>) {
        if (form == JsonForm::compact)
            (write(std::get<place>(kFields<Record>)), ...);
        else
            (write(std::get<sortedFields<Record>()[place]>(kFields<Record>)), ...);
    }(std::make_index_sequence<count>());
    writer.endObject();
}

} // namespace json

} // namespace korvan
