// SPDX-License-Identifier: MIT
#pragma once

#include "model/Record.h"
#include "model/Uuid.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <simdjson.h>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace korvan {

template <class Member>
inline constexpr bool isOptional = false;
template <class Value>
inline constexpr bool isOptional<std::optional<Value>> = true;

// Reads records from JSON. Only the few files that read whole documents include this, since the
// parser's header is large.
//
// The parser goes through the text once and keeps only the places of its tokens in memory, no
// document. It checks only what it is asked for. So the reader asks for everything: it reads even
// the values that no record knows, and skips them.
class JsonReader final {
public:
    // `text` must outlive the reader. It is read in place if reserveForJson was called for it, and
    // otherwise from a copy.
    explicit JsonReader(const std::string& text);

    // Reads the whole text into `value`, a record or a vector of records. On failure the answer is
    // false, `value` is half read, and failure() tells why. May be called again, for another type
    // too.
    //
    // Ignores a byte order mark, and unknown keys with whatever JSON they hold, up to 500 levels
    // deep. A key may stand twice: each value must have the right type, and the last one counts.
    // A number is an integer when its value is one, as in 22.0.
    //
    // Counts the elements first and reserves memory for them, unless the vector has capacity.
    // Counting takes a tenth of the time, so a caller that knows the number should reserve.
    template <class Value>
    [[nodiscard]] bool read(Value& value);

    // Where and why the last reading failed, as in `[1].host: expected a string`.
    [[nodiscard]] std::string failure() const;

private:
    using Object = simdjson::simdjson_result<simdjson::ondemand::object>;
    using Array = simdjson::simdjson_result<simdjson::ondemand::array>;
    using JsonValue = simdjson::ondemand::value;

    // A field of a record without the type of its member, so that all fields fit in one array.
    template <class Record>
    struct FieldReader {
        bool isRequired;
        bool (*read)(JsonReader&, JsonValue&, Record&);
    };

    template <class Record, std::size_t place>
    static constexpr FieldReader<Record> fieldReader();
    template <class Record>
    static constexpr auto fieldReaders();
    template <class Record>
    static constexpr std::size_t leastLength();

    // Each function below that answers a bool reads all of its value. False means that it could
    // not, and that the reason is noted.

    bool start(simdjson::ondemand::document& document);
    // The outermost value is asked of the document: nothing else checks that the text ends with the
    // bracket that belongs to the first.
    template <class Record>
    bool readRoot(simdjson::ondemand::document& document, Record& record) {
        return readRecord(document.get_object(), record);
    }
    template <class Record>
    bool readRoot(simdjson::ondemand::document& document, std::vector<Record>& records) {
        return readRecords(document.get_array(), records);
    }
    bool end(simdjson::ondemand::document& document);

    template <class Record>
    bool readRecord(Object result, Record& record);
    template <class Record>
    bool readRecords(Array result, std::vector<Record>& records);

    template <class Record>
    bool readValue(JsonValue& json, std::vector<Record>& records) {
        return readRecords(json.get_array(), records);
    }
    template <class Value>
    bool readValue(JsonValue& json, std::optional<Value>& value);
    bool readValue(JsonValue& json, std::string& value);
    bool readValue(JsonValue& json, Uuid& value);
    bool readValue(JsonValue& json, std::int64_t& value);

    // Reads a value that no record knows. `depth` counts the unknown values around it.
    bool skip(JsonValue& json, int depth);
    bool skipArray(JsonValue& json, int depth);
    bool skipObject(JsonValue& json, int depth);

    // Sets `place` to the index of the member's key in `keys`, or to keys.size(). False when the
    // key is not valid JSON.
    bool findKey(simdjson::ondemand::field& member, std::span<const std::string_view> keys,
                 std::size_t& place);

    // A string without its escapes. Valid until the next call.
    simdjson::simdjson_result<std::string_view> unescape(JsonValue& json);

    // A number as it is written; nothing when `json` is none.
    static std::optional<std::string_view> number(JsonValue& json);

    // Whether the parser answered without `error`. Otherwise notes that the text is not JSON, or,
    // when only the type is wrong, what was `expected`.
    bool isRead(simdjson::error_code error, std::string_view expected) {
        return !error || fail(error, expected);
    }
    // Note the reason and return false.
    bool fail(simdjson::error_code error, std::string_view expected);
    bool fail(std::string_view reason);
    // Put the name of what is around it before `m_place`, and return false.
    bool failInside(std::string_view outer);
    bool failInElement(std::size_t index);

    simdjson::ondemand::parser m_parser;
    std::string m_copy; // of a text that cannot be read in place
    simdjson::padded_string_view m_text;
    std::unique_ptr<std::uint8_t[]> m_unescaped;
    std::size_t m_unescapedSize = 0;
    std::string m_place; // of the failure, as in `[1].host`; built from the inside out
    std::string m_reason;
};

template <class Value>
bool JsonReader::read(Value& value) {
    simdjson::ondemand::document document;
    return start(document) && readRoot(document, value) && end(document);
}

template <class Value>
bool JsonReader::readValue(JsonValue& json, std::optional<Value>& value) {
    bool isNull = false;
    if (!isRead(json.is_null().get(isNull), "expected null")) return false;
    if (!isNull) return readValue(json, value.emplace());
    value.reset();
    return true;
}

template <class Record, std::size_t place>
constexpr JsonReader::FieldReader<Record> JsonReader::fieldReader() {
    constexpr auto field = std::get<place>(kFields<Record>);
    using Member = std::remove_cvref_t<decltype(std::declval<Record&>().*field.member)>;
    return {!isOptional<Member>, [](JsonReader& reader, JsonValue& json, Record& record) {
                return reader.readValue(json, record.*std::get<place>(kFields<Record>).member);
            }};
}

template <class Record>
constexpr auto JsonReader::fieldReaders() {
    return []<std::size_t... place>(std::index_sequence<place...>) {
        return std::array{fieldReader<Record, place>()...};
    }(std::make_index_sequence<kKeys<Record>.size()>());
}

// How many bytes a record has at least: its braces, and for each required field the key, two
// quotes, a colon, a comma and one byte of the value.
template <class Record>
constexpr std::size_t JsonReader::leastLength() {
    constexpr auto readers = fieldReaders<Record>();
    std::size_t length = 2;
    for (std::size_t i = 0; i < readers.size(); ++i)
        length += readers[i].isRequired ? kKeys<Record>[i].size() + 5 : 0;
    return length;
}

template <class Record>
bool JsonReader::readRecord(Object result, Record& record) {
    static constexpr auto readers = fieldReaders<Record>();
    static constexpr auto keys = kKeys<Record>;
    if (!isRead(result.error(), "expected an object")) return false;
    simdjson::ondemand::object object = result.value_unsafe();
    std::array<bool, readers.size()> isPresent{};
    std::size_t place = 0;
    for (auto member : object) {
        if (!isRead(member.error(), {})) return false;
        // Not copied: that would take a tenth of the time.
        simdjson::ondemand::field&& field = std::move(member).value_unsafe();
        // Keys mostly come in the order of the fields.
        const bool isExpected = place < keys.size() && field.key() == keys[place];
        if (!isExpected && !findKey(field, keys, place)) return false;
        if (place == readers.size()) {
            if (!skip(field.value(), 0)) return false;
            continue;
        }
        if (!readers[place].read(*this, field.value(), record)) return failInside(keys[place]);
        isPresent[place] = true;
        ++place;
    }
    for (std::size_t i = 0; i < readers.size(); ++i) {
        if (isPresent[i] || !readers[i].isRequired) continue;
        fail("required key is missing");
        return failInside(keys[i]);
    }
    return true;
}

template <class Record>
bool JsonReader::readRecords(Array result, std::vector<Record>& records) {
    if (!isRead(result.error(), "expected an array")) return false;
    simdjson::ondemand::array array = result.value_unsafe();
    records.clear();
    if (records.capacity() == 0) {
        std::size_t count = 0;
        if (!isRead(array.count_elements().get(count), {})) return false;
        // No more than fit into the text: a hostile list of digits must not reserve memory for as
        // many records.
        records.reserve(std::min(count, m_text.size() / leastLength<Record>()));
    }
    for (auto element : array) {
        if (!isRead(element.error(), {})) return false;
        // With a zero id: the default draws a random one, which is overwritten at once.
        if (readRecord(element.get_object(), records.emplace_back(Uuid()))) continue;
        return failInElement(records.size() - 1);
    }
    return true;
}

} // namespace korvan
