// SPDX-License-Identifier: MIT
#include "model/JsonReader.h"

#include "model/JsonPadding.h"

namespace korvan {

namespace {

// Deeper nesting is refused, since what is unknown is read by functions that call themselves.
constexpr int kGreatestDepth = 200;

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
    return json.get_int64().get(value) == simdjson::SUCCESS ||
           fail("expected an integer of 64 bits");
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

bool JsonReader::drop(JsonValue& json, int depth) {
    constexpr std::string_view reason = "expected a value";
    if (depth > kGreatestDepth) return fail(simdjson::DEPTH_ERROR, reason);
    simdjson::ondemand::json_type type{};
    if (const auto error = json.type().get(type)) return fail(error, reason);
    simdjson::error_code error = simdjson::SUCCESS;
    bool isNull = true;
    switch (type) {
    case simdjson::ondemand::json_type::array:
        for (auto element : json.get_array()) {
            if (element.error()) return fail(element.error(), reason);
            JsonValue inner = element.value_unsafe();
            if (!drop(inner, depth + 1)) return false;
        }
        break;
    case simdjson::ondemand::json_type::object:
        for (auto member : json.get_object()) {
            if (member.error()) return fail(member.error(), reason);
            simdjson::ondemand::field&& field = std::move(member).value_unsafe();
            error = field.unescaped_key().error();
            if (error) return fail(error, reason);
            if (!drop(field.value(), depth + 1)) return false;
        }
        break;
    case simdjson::ondemand::json_type::string: error = text(json).error(); break;
    case simdjson::ondemand::json_type::number: error = json.get_double().error(); break;
    case simdjson::ondemand::json_type::boolean: error = json.get_bool().error(); break;
    // null, and what begins like no value: newer versions of the parser have a kind for it.
    default: error = json.is_null().get(isNull); break;
    }
    if (!isNull) error = simdjson::N_ATOM_ERROR;
    return !error || fail(error, reason);
}

} // namespace korvan
