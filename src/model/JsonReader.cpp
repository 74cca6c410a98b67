// SPDX-License-Identifier: MIT
#include "model/JsonReader.h"

#include "model/JsonPadding.h"

#include <charconv>
#include <system_error>

namespace korvan {

namespace {

using simdjson::error_code;

// How deep an unknown value may nest. Each level takes a part of the stack.
constexpr int kGreatestDepth = 500;

constexpr std::string_view kAnyValue = "expected a value";

// Removes the digits at the front of `text`. False when there are none.
bool takeDigits(std::string_view& text) {
    const auto count = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(count);
    return count > 0;
}

// Removes the first character of `text` if it is one of `characters`. False when it is not.
bool takeAny(std::string_view& text, std::string_view characters) {
    if (text.empty() || !characters.contains(text.front())) return false;
    text.remove_prefix(1);
    return true;
}

// Whether `text` is a JSON number, of any size.
bool isNumber(std::string_view text) {
    takeAny(text, "-");
    if (!takeAny(text, "0") && !takeDigits(text)) return false;
    if (takeAny(text, ".") && !takeDigits(text)) return false;
    if (takeAny(text, "eE")) {
        takeAny(text, "+-");
        if (!takeDigits(text)) return false;
    }
    return text.empty();
}

// The exact value of a JSON number if it is an integer of 64 bits: 22 for "22.0" and "2.2e1".
std::optional<std::int64_t> integerValue(std::string_view number) {
    const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
    std::string digits(number.substr(0, mark));
    if (digits.find_first_of("123456789") == std::string::npos) return 0;
    // The value is `digits` times ten to the power of `exponent`.
    std::int64_t exponent = 0;
    if (mark < number.size()) {
        const bool hasPlus = number[mark + 1] == '+';
        const char* begin = number.data() + mark + (hasPlus ? 2 : 1);
        const auto end = number.data() + number.size();
        if (std::from_chars(begin, end, exponent).ec != std::errc()) return std::nullopt;
        // No text is long enough for more zeros, and a greater exponent could overflow below.
        constexpr std::int64_t kMostZeros = 1'000'000'000'000;
        if (exponent < -kMostZeros || exponent > kMostZeros) return std::nullopt;
    }
    if (const std::size_t point = digits.find('.'); point != std::string::npos) {
        digits.erase(point, 1);
        exponent -= static_cast<std::int64_t>(digits.size() - point);
    }
    for (; exponent < 0 && digits.back() == '0'; ++exponent)
        digits.pop_back();
    constexpr std::int64_t kMostDigits = 19; // of 64 bits
    if (exponent < 0 || exponent > kMostDigits) return std::nullopt;
    digits.append(static_cast<std::size_t>(exponent), '0');
    std::int64_t value = 0;
    const auto end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, value);
    return error == std::errc() && rest == end ? std::optional(value) : std::nullopt;
}

} // namespace

static_assert(kJsonPadding >= simdjson::SIMDJSON_PADDING);

JsonReader::JsonReader(const std::string& text) {
    const std::string* source = &text;
    if (text.capacity() - text.size() < kJsonPadding) {
        reserveForJson(m_copy, text.size());
        m_copy = text;
        source = &m_copy;
    }
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    const std::size_t start = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    m_text = simdjson::padded_string_view(source->data() + start, source->size() - start,
                                          source->capacity() - start);
}

std::string JsonReader::failure() const {
    return m_place.empty() ? m_reason : m_place + ": " + m_reason;
}

bool JsonReader::start(simdjson::ondemand::document& document) {
    m_place.clear();
    return isRead(m_parser.iterate(m_text).get(document), {});
}

bool JsonReader::end(simdjson::ondemand::document& document) {
    const bool isAtEnd = document.current_location().error() == simdjson::OUT_OF_BOUNDS;
    return isAtEnd || fail(simdjson::TRAILING_CONTENT, {});
}

bool JsonReader::fail(std::string_view reason) {
    m_reason = reason;
    return false;
}

bool JsonReader::fail(error_code error, std::string_view expected) {
    if (error == simdjson::INCORRECT_TYPE) return fail(expected);
    return fail(std::string("not valid JSON: ") + simdjson::error_message(error));
}

bool JsonReader::failInside(std::string_view outer) {
    const bool needsDot = !m_place.empty() && m_place.front() != '[';
    m_place = std::string(outer) + (needsDot ? "." : "") + m_place;
    return false;
}

bool JsonReader::failInElement(std::size_t index) {
    std::string element(1, '[');
    return failInside(element.append(std::to_string(index)).append("]"));
}

// Keys

bool JsonReader::findKey(simdjson::ondemand::field& member, std::span<const std::string_view> keys,
                         std::size_t& place) {
    const auto placeOf = [keys](const auto& key) {
        const auto found = std::ranges::find_if(keys, [&](auto each) { return key == each; });
        return static_cast<std::size_t>(found - keys.begin());
    };
    const simdjson::ondemand::raw_json_string written = member.key();
    place = placeOf(written);
    if (place < keys.size()) return true;
    // A known key may be written with escapes, and an unknown one must be valid, too.
    std::string_view unescaped;
    if (!isRead(member.unescaped_key().get(unescaped), {})) return false;
    place = placeOf(unescaped);
    return true;
}

// Text

simdjson::simdjson_result<std::string_view> JsonReader::unescape(JsonValue& json) {
    // The token reaches to the next one. The text with its quotes is no longer than that.
    const std::size_t size = json.raw_json_token().size() + simdjson::SIMDJSON_PADDING;
    simdjson::ondemand::raw_json_string escaped;
    if (const auto error = json.get_raw_json_string().get(escaped)) return error;
    if (size > m_unescapedSize) {
        m_unescaped = std::make_unique_for_overwrite<std::uint8_t[]>(2 * size);
        m_unescapedSize = 2 * size;
    }
    std::uint8_t* out = m_unescaped.get();
    return m_parser.unescape(escaped, out);
}

bool JsonReader::readValue(JsonValue& json, std::string& value) {
    std::string_view text;
    if (!isRead(unescape(json).get(text), "expected a string")) return false;
    value = text; // valid UTF-8: the parser refuses anything else, lone surrogates included
    return true;
}

bool JsonReader::readValue(JsonValue& json, Uuid& value) {
    constexpr std::string_view expected = "expected a UUID";
    std::string_view text;
    if (!isRead(unescape(json).get(text), expected)) return false;
    const std::optional<Uuid> uuid = Uuid::parse(text);
    if (!uuid) return fail(expected);
    value = *uuid;
    return true;
}

// Numbers

std::optional<std::string_view> JsonReader::number(JsonValue& json) {
    std::string_view token = json.raw_json_token(); // with the white space behind it
    token = token.substr(0, token.find_last_not_of(" \t\n\r") + 1);
    return isNumber(token) ? std::optional(token) : std::nullopt;
}

bool JsonReader::readValue(JsonValue& json, std::int64_t& value) {
    if (json.get_int64().get(value) == simdjson::SUCCESS) return true;
    const auto written = number(json);
    const auto integer = written ? integerValue(*written) : std::nullopt;
    if (!integer) return fail("expected an integer of 64 bits");
    value = *integer;
    return true;
}

// Unknown values

bool JsonReader::skip(JsonValue& json, int depth) {
    using Type = simdjson::ondemand::json_type;
    Type type{};
    if (!isRead(json.type().get(type), kAnyValue)) return false;
    switch (type) {
    case Type::array: return skipArray(json, depth);
    case Type::object: return skipObject(json, depth);
    case Type::string: return isRead(unescape(json).error(), kAnyValue);
    // The parser itself refuses numbers that are too large for its types.
    case Type::number: return number(json) || fail(simdjson::NUMBER_ERROR, kAnyValue);
    case Type::boolean: return isRead(json.get_bool().error(), kAnyValue);
    default: break;
    }
    // Null, or no value at all: newer versions of the parser have a type for that.
    bool isNull = false;
    if (!isRead(json.is_null().get(isNull), kAnyValue)) return false;
    return isNull || fail(simdjson::N_ATOM_ERROR, kAnyValue);
}

bool JsonReader::skipArray(JsonValue& json, int depth) {
    if (depth == kGreatestDepth) return fail(simdjson::DEPTH_ERROR, kAnyValue);
    for (auto element : json.get_array()) {
        if (!isRead(element.error(), kAnyValue)) return false;
        JsonValue value = element.value_unsafe();
        if (!skip(value, depth + 1)) return false;
    }
    return true;
}

bool JsonReader::skipObject(JsonValue& json, int depth) {
    if (depth == kGreatestDepth) return fail(simdjson::DEPTH_ERROR, kAnyValue);
    for (auto member : json.get_object()) {
        if (!isRead(member.error(), kAnyValue)) return false;
        simdjson::ondemand::field&& field = std::move(member).value_unsafe();
        if (!isRead(field.unescaped_key().error(), kAnyValue)) return false;
        if (!skip(field.value(), depth + 1)) return false;
    }
    return true;
}

} // namespace korvan
