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

// Reads records from JSON. Included by the few files that read whole documents, since the parser's
// header is large.
//
// The parser goes through the text once and keeps no document in memory, only where its tokens
// begin. It checks no more than what it is asked for, and so everything is asked for: what a record
// does not know is read as well, and dropped.
class JsonReader final {
public:
    // `text` must outlive the reader. It is not copied when it has room for kJsonPadding.
    explicit JsonReader(const std::string& text);

    // Assigns `value`, a record or a vector of records, from the whole text; false when that is not
    // possible, with `value` half read. May be called again, for another type too. Elements are
    // counted before they are read, for a tenth of the time, unless their vector has room already.
    //
    // A byte order mark is ignored. So are unknown keys, whatever JSON is under them, numbers of
    // any size included; 500 levels of nesting are the most there. Of a repeated key each value
    // must have the right type, and the last one counts. A number is an integer when its value
    // is: 22.0.
    template <class Value>
    [[nodiscard]] bool read(Value& value);

    // Where and why the last reading failed, as in `[1].host: expected a string`.
    [[nodiscard]] std::string failure() const;

private:
    using Object = simdjson::simdjson_result<simdjson::ondemand::object>;
    using Array = simdjson::simdjson_result<simdjson::ondemand::array>;
    using JsonValue = simdjson::ondemand::value;

    // What reading needs to know of a field once its type is forgotten.
    template <class Record>
    struct FieldReader {
        std::string_view key;
        bool isRequired;
        bool (*read)(JsonReader&, JsonValue&, Record&);
    };

    template <class Record, std::size_t place>
    static constexpr FieldReader<Record> fieldReader();
    template <class Record>
    static constexpr auto fieldReaders();
    template <class Record>
    static constexpr std::size_t leastLength();

    // Each of these reads all of its value, or says why it cannot and returns false. The outermost
    // one is asked of the document, which alone looks whether the text ends as it begins.
    template <class Record>
    bool readRoot(simdjson::ondemand::document& document, Record& record) {
        return readRecord(document.get_object(), record);
    }
    template <class Record>
    bool readRoot(simdjson::ondemand::document& document, std::vector<Record>& records) {
        return readRecords(document.get_array(), records);
    }
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
    bool readValue(JsonValue& json, std::int64_t& value);
    bool readValue(JsonValue& json, Uuid& value);
    // Reads what nobody knows, which is `depth` levels below the first such value.
    bool drop(JsonValue& json, int depth);

    // The text of a string, until the next one is asked for.
    simdjson::simdjson_result<std::string_view> text(JsonValue& json);

    // A number as it is written; nothing when it is none.
    static std::optional<std::string_view> number(JsonValue& json);

    // Moves `place` to the field that has the key of `member`, or behind the last one. The search
    // begins at `place`, and so ends at once where the keys come in their own order.
    template <class Record>
    simdjson::error_code findField(simdjson::ondemand::field& member, std::size_t& place);

    bool start(simdjson::ondemand::document& document);
    bool end(simdjson::ondemand::document& document);

    bool fail(std::string_view reason);
    // As fail, where `error` may also say that this is no JSON.
    bool fail(simdjson::error_code error, std::string_view reason);
    // Both put `m_place`, made from the inside out, into what is around it, and return false.
    bool failInside(std::string_view outer);
    bool failInElement(std::size_t index);

    simdjson::ondemand::parser m_parser;
    std::string m_copy; // of the text, when it had no room for the padding
    simdjson::padded_string_view m_text;
    std::unique_ptr<std::uint8_t[]> m_unescaped;
    std::size_t m_unescapedSize = 0;
    std::string m_place;
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
    if (const auto error = json.is_null().get(isNull)) return fail(error, "expected null");
    if (!isNull) return readValue(json, value.emplace());
    value.reset();
    return true;
}

template <class Record, std::size_t place>
constexpr JsonReader::FieldReader<Record> JsonReader::fieldReader() {
    constexpr auto field = std::get<place>(kFields<Record>);
    using Member = std::remove_cvref_t<decltype(std::declval<Record&>().*field.member)>;
    return {field.key, !isOptional<Member>,
            [](JsonReader& reader, JsonValue& json, Record& record) {
                return reader.readValue(json, record.*std::get<place>(kFields<Record>).member);
            }};
}

template <class Record>
constexpr auto JsonReader::fieldReaders() {
    return []<std::size_t... place>(std::index_sequence<place...>) {
        return std::array{fieldReader<Record, place>()...};
    }(std::make_index_sequence<std::tuple_size_v<decltype(kFields<Record>)>>());
}

// How many bytes a record needs at least: its braces, and of each required field the key, two
// quotes, a colon, a comma or brace and one more for the value.
template <class Record>
constexpr std::size_t JsonReader::leastLength() {
    std::size_t length = 2;
    for (const auto& field : fieldReaders<Record>())
        length += field.isRequired ? field.key.size() + 5 : 0;
    return length;
}

template <class Record>
simdjson::error_code JsonReader::findField(simdjson::ondemand::field& member, std::size_t& place) {
    static constexpr auto readers = fieldReaders<Record>();
    const simdjson::ondemand::raw_json_string written = member.key();
    for (std::size_t i = 0; i < readers.size(); ++i, ++place) {
        if (place >= readers.size()) place = 0;
        if (written == readers[place].key) return simdjson::SUCCESS;
    }
    std::string_view key; // with its escapes, which no one but a stranger would write
    const simdjson::error_code error = member.unescaped_key().get(key);
    const auto found = std::ranges::find(readers, key, &FieldReader<Record>::key);
    place = static_cast<std::size_t>(found - readers.begin());
    return error;
}

template <class Record>
bool JsonReader::readRecord(Object result, Record& record) {
    static constexpr auto readers = fieldReaders<Record>();
    if (result.error()) return fail(result.error(), "expected an object");
    simdjson::ondemand::object object = result.value_unsafe();
    std::array<bool, readers.size()> isPresent{};
    std::size_t place = 0;
    for (auto member : object) {
        if (member.error()) return fail(member.error(), {});
        // In place: copied, it costs a tenth of the reading.
        simdjson::ondemand::field&& field = std::move(member).value_unsafe();
        if (const auto error = findField<Record>(field, place)) return fail(error, {});
        if (place == readers.size()) {
            if (!drop(field.value(), 0)) return false;
            continue;
        }
        if (!readers[place].read(*this, field.value(), record))
            return failInside(readers[place].key);
        isPresent[place] = true;
        ++place;
    }
    for (place = 0; place < readers.size(); ++place) {
        if (isPresent[place] || !readers[place].isRequired) continue;
        fail("required key is missing");
        return failInside(readers[place].key);
    }
    return true;
}

template <class Record>
bool JsonReader::readRecords(Array result, std::vector<Record>& records) {
    if (result.error()) return fail(result.error(), "expected an array");
    simdjson::ondemand::array array = result.value_unsafe();
    records.clear();
    if (records.capacity() == 0) {
        std::size_t count = 0;
        if (const auto error = array.count_elements().get(count)) return fail(error, {});
        // Not for elements that cannot be records: a list of digits would reserve all there is.
        records.reserve(std::min(count, m_text.size() / leastLength<Record>()));
    }
    for (auto element : array) {
        if (element.error()) return fail(element.error(), {});
        // With an id in place, or each element would draw a random one only to lose it.
        if (readRecord(element.get_object(), records.emplace_back(Uuid()))) continue;
        return failInElement(records.size() - 1);
    }
    return true;
}

} // namespace korvan
