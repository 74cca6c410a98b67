// SPDX-License-Identifier: MIT
#pragma once

#include "model/Error.h"

#include <filesystem>
#include <string>
#include <string_view>

// Whole files and folders. Errors are of the domain "POSIX", their code is errno, and their
// description is a German sentence that names the file.
namespace korvan {

// The error for errno `code` and `path`. `what` says what was tried, as in "Die Datei konnte nicht
// gelesen werden".
[[nodiscard]] Error posixError(int code, std::string_view what, const std::filesystem::path& path);

// The bytes of a regular file. Fails for anything else (a folder, a pipe, a device) without waiting
// for it.
[[nodiscard]] Result<std::string> readFile(const std::filesystem::path& path);

// Writes `bytes` to the file at `path`. At every moment, even after a loss of power, either the
// earlier file is there or the new one, whole. Only its owner can read and write a new file; a
// replaced file keeps its mode; a symbolic link stays, and the file that it points to is replaced.
//
// Fails when something other than a regular file is at `path`. After a failure the earlier file is
// untouched, and no other file is left behind.
[[nodiscard]] Result<> writeFileAtomically(const std::filesystem::path& path,
                                           std::string_view bytes);

// Creates the folder and those above it that are missing, for their owner alone. Succeeds when the
// folder exists already.
[[nodiscard]] Result<> createFolder(const std::filesystem::path& path);

} // namespace korvan
