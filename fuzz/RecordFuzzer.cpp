// SPDX-License-Identifier: MIT
//
// Records with any bytes in their texts, written and read again.
#include "Fuzz.h"
#include "model/RecordList.h"

#include <utility>

namespace korvan::fuzz {

namespace {

template <class Record>
std::vector<Record> mendedRecords(std::vector<Record> records) {
    for (Record& record : records)
        record = mendedRecord(std::move(record));
    return records;
}

template <class Record>
void writeList(const std::vector<Record>& records) {
    const std::string json = encodeList(records);
    require(isValidUtf8(json), "a written list is UTF-8");
    require(areSame(decodeList<Record>(json, "list").value(), mendedRecords(records)),
            "a list reads back mended and not otherwise changed");
}

} // namespace

} // namespace korvan::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    using namespace korvan;
    using namespace korvan::fuzz;
    Source source(bytes, length);
    KorvanBackup backup;
    backup.createdAtISO8601 = source.text();
    backup.categories = source.records<SSHCategory>(2);
    backup.snippets = source.records<CommandSnippet>(2);
    backup.profiles = source.records<SSHProfile>(70); // beyond the sample that sizes the rest
    writeList(backup.categories);
    writeList(backup.snippets);
    writeList(backup.profiles);

    const std::string json = writeBackup(backup);
    require(isValidUtf8(json), "a written backup is UTF-8");
    const KorvanBackup read = readBackup(json, {}).value();
    require(read.createdAtISO8601 == mended(backup.createdAtISO8601) &&
                areSame(read.profiles, mendedRecords(backup.profiles)) &&
                areSame(read.snippets, mendedRecords(backup.snippets)) &&
                areSame(read.categories, mendedRecords(backup.categories)),
            "a backup reads back mended and not otherwise changed");
    return 0;
}
