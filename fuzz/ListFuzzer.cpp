// SPDX-License-Identifier: MIT
//
// Any bytes as a stored list.
#include "Fuzz.h"
#include "model/JsonPadding.h"
#include "model/RecordList.h"

namespace korvan::fuzz {

namespace {

template <class Record>
void readList(const std::string& json) {
    std::string roomy = json; // the parser reads this one in place, and the other from a copy
    reserveForJson(roomy, json.size());
    const auto records = decodeList<Record>(json, "list");
    const auto again = decodeList<Record>(roomy, "list");
    require(records.has_value() == again.has_value(), "room behind the text changes nothing");
    if (!records) {
        require(records.error() == again.error(), "nor does it change the error");
        require(records.error().localizedDescription.starts_with("list"), "errors name the list");
        return;
    }
    require(isJson(json), "only JSON is read");
    const std::string written = encodeList(*records);
    require(areSame(decodeList<Record>(written, "list").value(), *records),
            "what was read is written so that it reads the same");
    require(encodeList(*again) == written, "writing has one form");
}

} // namespace

} // namespace korvan::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    using namespace korvan;
    const std::string json(reinterpret_cast<const char*>(bytes), length);
    fuzz::readList<SSHProfile>(json);
    fuzz::readList<SSHCategory>(json);
    fuzz::readList<CommandSnippet>(json);
    return 0;
}
