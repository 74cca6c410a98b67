// SPDX-License-Identifier: MIT
#include "actions/BackupFile.h"

#include "platform/Files.h"

namespace korvan {

Result<> writeBackupFile(const std::filesystem::path& path, const KorvanBackup& backup) {
    return writeFileAtomically(path, writeBackup(backup));
}

Result<KorvanBackup> readBackupFile(const std::filesystem::path& path,
                                    const std::vector<SSHCategory>& currentCategories) {
    const auto bytes = readFile(path);
    if (!bytes) return std::unexpected(bytes.error());
    return readBackup(*bytes, currentCategories);
}

} // namespace korvan
