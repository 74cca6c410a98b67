// SPDX-License-Identifier: MIT
#include "model/KorvanBackup.h"

#include "model/JsonReader.h"
#include "model/JsonWriter.h"
#include "model/SeedData.h"

#include <array>
#include <ctime>
#include <utility>

namespace korvan {

namespace {

std::string iso8601(std::chrono::system_clock::time_point time) {
    const std::time_t seconds =
        std::chrono::system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(time));
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    std::array<char, 32> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &utc);
    return {text.data(), length};
}

std::unexpected<Error> wrongFormat() {
    return failure("Import", 1, "Unbekanntes Backup-Format oder falsche Version.");
}

std::unexpected<Error> unreadable() {
    return failure("Import", 2,
                   "Backup konnte nicht gelesen werden (weder V1 noch V2). Datei ist evtl. "
                   "beschädigt.");
}

KorvanBackup converted(KorvanBackupV1&& old, const std::vector<SSHCategory>& currentCategories) {
    KorvanBackup backup;
    backup.format = std::move(old.format);
    backup.createdAtISO8601 = std::move(old.createdAtISO8601);
    backup.profiles = std::move(old.profiles);
    backup.snippets = std::move(old.snippets);
    backup.categories = currentCategories;
    if (backup.categories.empty()) backup.categories.push_back(defaultCategory());
    return backup;
}

} // namespace

KorvanBackup makeBackup(std::vector<SSHProfile> profiles, std::vector<CommandSnippet> snippets,
                        std::vector<SSHCategory> categories,
                        std::chrono::system_clock::time_point time) {
    KorvanBackup backup;
    backup.createdAtISO8601 = iso8601(time);
    backup.profiles = std::move(profiles);
    backup.snippets = std::move(snippets);
    backup.categories = std::move(categories);
    return backup;
}

std::string writeBackup(const KorvanBackup& backup) {
    JsonWriter writer(JsonForm::prettySorted);
    json::writeRecord(writer, backup);
    return writer.take();
}

Result<KorvanBackup> readBackup(const std::string& bytes,
                                const std::vector<SSHCategory>& currentCategories) {
    JsonReader reader(bytes);

    // Version 2 first: its documents have all keys of version 1, too, and would be read as that.
    if (KorvanBackup backup; reader.read(backup)) {
        if (backup.format != backupFormatId || backup.version != 2) return wrongFormat();
        return backup;
    }
    if (KorvanBackupV1 old; reader.read(old)) {
        if (old.format != backupFormatId || old.version != 1) return wrongFormat();
        return converted(std::move(old), currentCategories);
    }
    return unreadable();
}

} // namespace korvan
