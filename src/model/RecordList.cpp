// SPDX-License-Identifier: MIT
#include "model/RecordList.h"

#include "model/JsonReader.h"
#include "model/JsonWriter.h"

namespace korvan {

template <class Record>
std::string encodeList(const std::vector<Record>& records) {
    JsonWriter writer(JsonForm::compact);
    json::writeValue(writer, records, JsonForm::compact);
    return writer.take();
}

template <class Record>
Result<std::vector<Record>> decodeList(const std::string& json, std::string_view listName) {
    simdjson::dom::parser parser;
    std::vector<Record> records;
    json::Failure why;
    const auto root = json::parse(parser, json, why);
    if (root && json::readValue(*root, records, why)) return records;
    why.isInside(listName);
    return failure("Decoding", 1, why.description());
}

template std::string encodeList(const std::vector<SSHProfile>&);
template std::string encodeList(const std::vector<SSHCategory>&);
template std::string encodeList(const std::vector<CommandSnippet>&);

template Result<std::vector<SSHProfile>> decodeList(const std::string&, std::string_view);
template Result<std::vector<SSHCategory>> decodeList(const std::string&, std::string_view);
template Result<std::vector<CommandSnippet>> decodeList(const std::string&, std::string_view);

} // namespace korvan
