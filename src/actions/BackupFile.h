// SPDX-License-Identifier: MIT
#pragma once

#include "model/Error.h"
#include "model/KorvanBackup.h"

#include <filesystem>
#include <vector>

namespace korvan {

// Writes `backup` to the file at `path`, whole or not at all; fails as writeFileAtomically does.
// Only its owner can read a new file, since it holds passwords.
[[nodiscard]] Result<> writeBackupFile(const std::filesystem::path& path,
                                       const KorvanBackup& backup);

// The document in the file at `path`. Fails when the file cannot be read (see readFile) or holds no
// backup (see readBackup).
[[nodiscard]] Result<KorvanBackup>
readBackupFile(const std::filesystem::path& path,
               const std::vector<SSHCategory>& currentCategories);

} // namespace korvan
