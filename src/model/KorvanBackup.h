// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"
#include "model/Error.h"
#include "model/SSHCategory.h"
#include "model/SSHProfile.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvan {

inline constexpr std::string_view backupFormatId = "lumera.Korvan.backup";

// The whole data set in one document (version 2).
struct KorvanBackup {
    std::string format{backupFormatId};
    std::int64_t version = 2;
    std::string createdAtISO8601; // kept as it is, never parsed
    std::vector<SSHProfile> profiles;
    std::vector<CommandSnippet> snippets;
    std::vector<SSHCategory> categories;
};

template <>
inline constexpr auto kFields<KorvanBackup> =
    std::tuple(Field("format", &KorvanBackup::format), Field("version", &KorvanBackup::version),
               Field("createdAtISO8601", &KorvanBackup::createdAtISO8601),
               Field("profiles", &KorvanBackup::profiles),
               Field("snippets", &KorvanBackup::snippets),
               Field("categories", &KorvanBackup::categories));

// The older document (version 1), without categories. It is still read but no longer written.
struct KorvanBackupV1 {
    std::string format{backupFormatId};
    std::int64_t version = 1;
    std::string createdAtISO8601;
    std::vector<SSHProfile> profiles;
    std::vector<CommandSnippet> snippets;
};

template <>
inline constexpr auto kFields<KorvanBackupV1> =
    std::tuple(Field("format", &KorvanBackupV1::format), Field("version", &KorvanBackupV1::version),
               Field("createdAtISO8601", &KorvanBackupV1::createdAtISO8601),
               Field("profiles", &KorvanBackupV1::profiles),
               Field("snippets", &KorvanBackupV1::snippets));

// The document of these lists, made at `time`, which is stored in UTC and in whole seconds.
[[nodiscard]] KorvanBackup makeBackup(std::vector<SSHProfile> profiles,
                                      std::vector<CommandSnippet> snippets,
                                      std::vector<SSHCategory> categories,
                                      std::chrono::system_clock::time_point time);

// The bytes of a backup file: pretty-printed JSON with sorted keys.
[[nodiscard]] std::string writeBackup(const KorvanBackup& backup);

// Reads the bytes of a backup file of either version. A document of version 1 gets
// `currentCategories`, or the default category when there are none. Errors are of the domain
// "Import": code 1 for a readable document of another format or version, 2 for any other text.
[[nodiscard]] Result<KorvanBackup> readBackup(const std::string& bytes,
                                              const std::vector<SSHCategory>& currentCategories);

} // namespace korvan
