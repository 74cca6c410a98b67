// SPDX-License-Identifier: MIT
#include "model/JsonReader.h"

namespace korvan::json {

std::optional<simdjson::dom::element> parse(simdjson::dom::parser& parser, const std::string& text,
                                            Failure& failure) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    const std::size_t start = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    const bool needsCopy = text.capacity() - text.size() < simdjson::SIMDJSON_PADDING;
    simdjson::dom::element root;
    const simdjson::error_code error =
        parser.parse(text.data() + start, text.size() - start, needsCopy).get(root);
    if (error == simdjson::SUCCESS) return root;
    failure.reason = std::string("not valid JSON: ") + simdjson::error_message(error);
    return std::nullopt;
}

bool readValue(simdjson::dom::element element, std::string& value, Failure& failure) {
    std::string_view text;
    if (element.get_string().get(text) != simdjson::SUCCESS) {
        failure.reason = "expected a string";
        return false;
    }
    value = text; // valid UTF-8: the parser refuses all else, escapes of lone surrogates included
    return true;
}

bool readValue(simdjson::dom::element element, std::int64_t& value, Failure& failure) {
    if (element.get_int64().get(value) == simdjson::SUCCESS) return true;
    failure.reason = "expected an integer of 64 bits";
    return false;
}

bool readValue(simdjson::dom::element element, Uuid& value, Failure& failure) {
    std::string_view text;
    const bool isText = element.get_string().get(text) == simdjson::SUCCESS;
    const std::optional<Uuid> uuid = isText ? Uuid::parse(text) : std::nullopt;
    if (!uuid) {
        failure.reason = "expected a UUID";
        return false;
    }
    value = *uuid;
    return true;
}

} // namespace korvan::json
