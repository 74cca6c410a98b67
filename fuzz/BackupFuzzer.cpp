// SPDX-License-Identifier: MIT
//
// Any bytes as a backup file.
#include "Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    using namespace korvan;
    using fuzz::require;
    const std::string json(reinterpret_cast<const char*>(bytes), length);
    const auto backup = readBackup(json, {});
    if (!backup) {
        const Error& error = backup.error();
        require(error.domain == "Import" && (error.code == 1 || error.code == 2),
                "an import fails in one of two ways");
        return 0;
    }
    require(fuzz::isJson(json), "only JSON is read");
    require(backup->format == backupFormatId && backup->version == 2, "older ones are converted");
    const std::string written = writeBackup(*backup);
    const KorvanBackup again = readBackup(written, {}).value();
    require(fuzz::areSame(again.profiles, backup->profiles) &&
                fuzz::areSame(again.snippets, backup->snippets) &&
                fuzz::areSame(again.categories, backup->categories) &&
                again.createdAtISO8601 == backup->createdAtISO8601,
            "what was imported is exported so that it imports the same");
    require(writeBackup(again) == written, "writing has one form");
    return 0;
}
