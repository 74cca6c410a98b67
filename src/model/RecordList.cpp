// SPDX-License-Identifier: MIT
#include "model/RecordList.h"

#include "model/JsonReader.h"
#include "model/JsonWriter.h"

namespace korvan {

template <class Record>
std::string encodeList(const std::vector<Record>& records) {
    JsonWriter writer(JsonForm::compact);
    json::writeValue(writer, records);
    return writer.take();
}

template <class Record>
Result<std::vector<Record>> decodeList(const std::string& json, std::string_view listName,
                                       std::size_t expectedCount) {
    std::vector<Record> records;
    records.reserve(expectedCount + expectedCount / 8); // others may have added some
    JsonReader reader(json);
    if (reader.read(records)) return records;
    const std::string why = reader.failure();
    return failure("Decoding", 1, std::string(listName) + (why.starts_with('[') ? "" : ": ") + why);
}

template std::string encodeList(const std::vector<SSHProfile>&);
template std::string encodeList(const std::vector<SSHCategory>&);
template std::string encodeList(const std::vector<CommandSnippet>&);

template Result<std::vector<SSHProfile>> decodeList(const std::string&, std::string_view,
                                                    std::size_t);
template Result<std::vector<SSHCategory>> decodeList(const std::string&, std::string_view,
                                                     std::size_t);
template Result<std::vector<CommandSnippet>> decodeList(const std::string&, std::string_view,
                                                        std::size_t);

} // namespace korvan
