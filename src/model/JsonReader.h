// SPDX-License-Identifier: MIT
#pragma once

#include "model/Record.h"
#include "model/Uuid.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <simdjson.h>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

// Reads records from parsed JSON. Included by the few files that read whole documents, since the
// parser's header is large.
namespace korvan::json {

// Where and why a value could not be read. The place is made from the inside out, on the way back
// from the failure: `host`, then `[1].host`, then `profiles[1].host`.
struct Failure {
    std::string place;
    std::string reason;

    void isInside(std::string_view outer) {
        const bool needsDot = !place.empty() && place.front() != '[';
        place = std::string(outer) + (needsDot ? "." : "") + place;
    }

    void isInElement(std::size_t index) {
        std::string element(1, '[');
        isInside(element.append(std::to_string(index)).append("]"));
    }

    [[nodiscard]] std::string description() const {
        return place.empty() ? reason : place + ": " + reason;
    }
};

// Parses `text` with `parser`, which owns the result. A byte order mark is skipped. Copies nothing
// when `text` has room for the parser's padding behind its end.
[[nodiscard]] std::optional<simdjson::dom::element>
parse(simdjson::dom::parser& parser, const std::string& text, Failure& failure);

// Each overload of readValue assigns `value` from `element`, or returns false and says why.
[[nodiscard]] bool readValue(simdjson::dom::element element, std::string& value, Failure& failure);
[[nodiscard]] bool readValue(simdjson::dom::element element, std::int64_t& value, Failure& failure);
[[nodiscard]] bool readValue(simdjson::dom::element element, Uuid& value, Failure& failure);

template <class Value>
[[nodiscard]] bool readValue(simdjson::dom::element element, std::optional<Value>& value,
                             Failure& failure) {
    if (!element.is_null()) return readValue(element, value.emplace(), failure);
    value.reset();
    return true;
}

template <class Record>
[[nodiscard]] bool readValue(simdjson::dom::element element, std::vector<Record>& records,
                             Failure& failure);

template <class Member>
inline constexpr bool isOptional = false;
template <class Value>
inline constexpr bool isOptional<std::optional<Value>> = true;

// What reading needs to know of a field once its type is forgotten.
template <class Record>
struct FieldReader {
    std::string_view key;
    bool isRequired;
    bool (*read)(simdjson::dom::element, Record&, Failure&);
};

template <class Record, std::size_t place>
constexpr FieldReader<Record> fieldReader() {
    constexpr auto field = std::get<place>(kFields<Record>);
    using Member = std::remove_cvref_t<decltype(std::declval<Record&>().*field.member)>;
    return {field.key, !isOptional<Member>,
            [](simdjson::dom::element element, Record& record, Failure& failure) {
                return readValue(element, record.*std::get<place>(kFields<Record>).member, failure);
            }};
}

template <class Record>
inline constexpr auto kFieldReaders = []<std::size_t... place>(std::index_sequence<place...>) {
    return std::array{fieldReader<Record, place>()...};
}(std::make_index_sequence<std::tuple_size_v<decltype(kFields<Record>)>>());

// The place of the field named `key`, or the number of fields. The search begins at `expected`, and
// so ends at once where the keys come in their own order.
template <class Record>
std::size_t placeOf(std::string_view key, std::size_t expected) {
    constexpr auto& readers = kFieldReaders<Record>;
    for (std::size_t i = 0; i < readers.size(); ++i) {
        const std::size_t place = (expected + i) % readers.size();
        if (readers[place].key == key) return place;
    }
    return readers.size();
}

// Assigns the fields of `record` from an object. Unknown keys are ignored; of a repeated key the
// last value counts. On failure `record` is left half read.
template <class Record>
[[nodiscard]] bool readRecord(simdjson::dom::element element, Record& record, Failure& failure) {
    constexpr auto& readers = kFieldReaders<Record>;
    simdjson::dom::object object;
    if (element.get_object().get(object) != simdjson::SUCCESS) {
        failure.reason = "expected an object";
        return false;
    }
    std::array<bool, readers.size()> isPresent{};
    std::size_t expected = 0;
    for (const auto& [key, value] : object) {
        const std::size_t place = placeOf<Record>(key, expected);
        if (place == readers.size()) continue;
        if (!readers[place].read(value, record, failure)) {
            failure.isInside(readers[place].key);
            return false;
        }
        isPresent[place] = true;
        expected = place + 1;
    }
    for (std::size_t place = 0; place < readers.size(); ++place) {
        if (isPresent[place] || !readers[place].isRequired) continue;
        failure = {std::string(readers[place].key), "required key is missing"};
        return false;
    }
    return true;
}

template <class Record>
[[nodiscard]] bool readValue(simdjson::dom::element element, std::vector<Record>& records,
                             Failure& failure) {
    simdjson::dom::array array;
    if (element.get_array().get(array) != simdjson::SUCCESS) {
        failure.reason = "expected an array";
        return false;
    }
    records.clear();
    records.reserve(array.size());
    for (const simdjson::dom::element item : array) {
        // With an id in place, or each element would draw a random one only to lose it.
        if (readRecord(item, records.emplace_back(Uuid()), failure)) continue;
        failure.isInElement(records.size() - 1);
        return false;
    }
    return true;
}

} // namespace korvan::json
