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

// Writes JSON text piece by piece. The solidus is escaped, and text outside ASCII stays UTF-8. A
// byte that is not part of valid UTF-8 becomes U+FFFD, so that the text can always be read again.
// The caller must call the functions in an order that makes one JSON value.
class JsonWriter final {
public:
    explicit JsonWriter(JsonForm form) : m_form(form) {}

    [[nodiscard]] JsonForm form() const { return m_form; }

    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }

    // Starts a member of the open object; the caller writes its value next. `key` is written as it
    // is, without escapes.
    void key(std::string_view key);

    // Starts an element of the open array; the caller writes it next.
    void element() { separate(); }

    void value(std::string_view text);
    void value(const std::string& text) { value(std::string_view(text)); }
    void value(std::int64_t number);
    void value(const Uuid& uuid);

    // The number of bytes written so far.
    [[nodiscard]] std::size_t length() const { return m_text.size(); }

    // Reserves memory for about `length` more bytes, so that the text is not moved while it grows.
    void expect(std::size_t length) { m_text.reserve(m_text.size() + length + length / 16); }

    // Hands over the text written so far. The writer is empty afterwards.
    [[nodiscard]] std::string take() { return std::exchange(m_text, {}); }

private:
    void open(char bracket);
    void close(char bracket);
    void separate();
    void breakLine();

    std::string m_text;
    std::size_t m_depth = 0;
    JsonForm m_form;
    bool m_isFirst = true;
};

namespace json {

// The positions of a record's fields, in the order of their sorted keys.
template <class Record>
constexpr auto sortedFields() {
    std::array<std::size_t, kKeys<Record>.size()> order{};
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::ranges::sort(order, {}, [](std::size_t i) { return kKeys<Record>[i]; });
    return order;
}

template <class Record>
void writeRecord(JsonWriter& writer, const Record& record);

template <class Value>
void writeValue(JsonWriter& writer, const Value& value) {
    writer.value(value);
}

template <class Record>
void writeValue(JsonWriter& writer, const std::vector<Record>& records) {
    constexpr std::size_t sampleSize = 64; // records that tell how long the others will be
    const std::size_t start = writer.length();
    writer.beginArray();
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (i == sampleSize)
            writer.expect((writer.length() - start) / sampleSize * (records.size() - i));
        writer.element();
        writeRecord(writer, records[i]);
    }
    writer.endArray();
}

template <class Value>
void writeMember(JsonWriter& writer, std::string_view key, const Value& value) {
    writer.key(key);
    writeValue(writer, value);
}

// An absent value is left out, not written as null.
template <class Value>
void writeMember(JsonWriter& writer, std::string_view key, const std::optional<Value>& value) {
    if (value) writeMember(writer, key, *value);
}

template <class Record>
void writeRecord(JsonWriter& writer, const Record& record) {
    const auto write = [&](const auto& field) {
        writeMember(writer, field.key, record.*field.member);
    };
    writer.beginObject();
    [&]<std::size_t... place>(std::index_sequence<place...>) {
        if (writer.form() == JsonForm::compact)
            (write(std::get<place>(kFields<Record>)), ...);
        else
            (write(std::get<sortedFields<Record>()[place]>(kFields<Record>)), ...);
    }(std::make_index_sequence<kKeys<Record>.size()>());
    writer.endObject();
}

} // namespace json

} // namespace korvan
