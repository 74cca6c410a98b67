// SPDX-License-Identifier: MIT
#include "model/JsonReader.h"

#include "model/JsonPadding.h"

#include <charconv>
#include <system_error>

namespace korvan {

namespace {

// Deeper nesting of what is unknown is refused: it is read by a function that calls itself.
constexpr int kGreatestDepth = 500;

// Takes digits off the front of `text`; false when there is none.
bool takeDigits(std::string_view& text) {
    const auto count = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(count);
    return count > 0;
}

bool takeAny(std::string_view& text, std::string_view characters) {
    if (text.empty() || !characters.contains(text.front())) return false;
    text.remove_prefix(1);
    return true;
}

// Whether `text` is a number as JSON has it, of whatever size.
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

// The exact value of a JSON number, if that is an integer of 64 bits: 22 for "22.0" and "2.2e1".
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
        // Beyond this, no text has the zeros that it would take, and the sum below could overflow.
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
        m_copy.reserve(text.size() + kJsonPadding);
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
    const simdjson::error_code error = m_parser.iterate(m_text).get(document);
    return !error || fail(error, {});
}

bool JsonReader::end(simdjson::ondemand::document& document) {
    const bool isAtEnd = document.current_location().error() == simdjson::OUT_OF_BOUNDS;
    return isAtEnd || fail(simdjson::TRAILING_CONTENT, {});
}

bool JsonReader::fail(std::string_view reason) {
    m_reason = reason;
    return false;
}

bool JsonReader::fail(simdjson::error_code error, std::string_view reason) {
    if (error == simdjson::INCORRECT_TYPE) return fail(reason);
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

simdjson::simdjson_result<std::string_view> JsonReader::text(JsonValue& json) {
    // The token reaches to the next one: as much as the text can be, with its quotes.
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
    std::string_view unescaped;
    if (const auto error = text(json).get(unescaped)) return fail(error, "expected a string");
    value = unescaped; // valid UTF-8: the parser refuses all else, lone surrogates included
    return true;
}

bool JsonReader::readValue(JsonValue& json, std::int64_t& value) {
    if (json.get_int64().get(value) == simdjson::SUCCESS) return true;
    const auto written = number(json);
    const auto integer = written ? integerValue(*written) : std::nullopt;
    if (!integer) return fail("expected an integer of 64 bits");
    value = *integer;
    return true;
}

bool JsonReader::readValue(JsonValue& json, Uuid& value) {
    std::string_view unescaped;
    const auto error = text(json).get(unescaped);
    if (error) return fail(error, "expected a UUID");
    const std::optional<Uuid> uuid = Uuid::parse(unescaped);
    if (!uuid) return fail("expected a UUID");
    value = *uuid;
    return true;
}

std::optional<std::string_view> JsonReader::number(JsonValue& json) {
    std::string_view token = json.raw_json_token(); // with the blanks behind it
    token = token.substr(0, token.find_last_not_of(" \t\n\r") + 1);
    return isNumber(token) ? std::optional(token) : std::nullopt;
}

bool JsonReader::drop(JsonValue& json, int depth) {
    using Type = simdjson::ondemand::json_type;
    constexpr std::string_view reason = "expected a value";
    Type type{};
    if (const auto error = json.type().get(type)) return fail(error, reason);
    const bool nests = type == Type::array || type == Type::object;
    if (nests && depth == kGreatestDepth) return fail(simdjson::DEPTH_ERROR, reason);
    simdjson::error_code error = simdjson::SUCCESS;
    bool isNull = true;
    switch (type) {
    case Type::array:
        for (auto element : json.get_array()) {
            if (element.error()) return fail(element.error(), reason);
            JsonValue inner = element.value_unsafe();
            if (!drop(inner, depth + 1)) return false;
        }
        break;
    case Type::object:
        for (auto member : json.get_object()) {
            if (member.error()) return fail(member.error(), reason);
            simdjson::ondemand::field&& field = std::move(member).value_unsafe();
            error = field.unescaped_key().error();
            if (error) return fail(error, reason);
            if (!drop(field.value(), depth + 1)) return false;
        }
        break;
    case Type::string: error = text(json).error(); break;
    // Not by the parser, which refuses those that are too large for it.
    case Type::number:
        if (!number(json)) error = simdjson::NUMBER_ERROR;
        break;
    case Type::boolean: error = json.get_bool().error(); break;
    // null, and what begins like no value: newer versions of the parser have a kind for it.
    default: error = json.is_null().get(isNull); break;
    }
    if (!isNull) error = simdjson::N_ATOM_ERROR;
    return !error || fail(error, reason);
}

} // namespace korvan
