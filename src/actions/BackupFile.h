// SPDX-License-Identifier: MIT
#pragma once

#include "model/Error.h"
#include "model/KorvanBackup.h"

#include <filesystem>
#include <vector>

namespace korvan {

// Puts `backup` at `path`, whole or not at all. A new file can be read by its owner alone, since it
// holds passwords.
[[nodiscard]] Result<> writeBackupFile(const std::filesystem::path& path,
                                       const KorvanBackup& backup);

// The document at `path`. Fails when the file cannot be read (see Files.h) or holds no backup (see
// readBackup).
[[nodiscard]] Result<KorvanBackup>
readBackupFile(const std::filesystem::path& path,
               const std::vector<SSHCategory>& currentCategories);

} // namespace korvan
