// SPDX-License-Identifier: MIT
#pragma once

#include "model/Error.h"

#include <filesystem>
#include <string>
#include <string_view>

// Whole files and folders. Errors are of the domain "POSIX", their code is errno, and their
// description is a German sentence that names the file.
namespace korvan {

// The error that errno `code` means for `path`; `what` says what was tried, as in "Die Datei
// konnte nicht gelesen werden".
[[nodiscard]] Error posixError(int code, std::string_view what, const std::filesystem::path& path);

// The bytes of a regular file. Fails for anything else (a folder, a pipe, a device) without waiting
// for it.
[[nodiscard]] Result<std::string> readFile(const std::filesystem::path& path);

// Puts `bytes` at `path` so that at every moment, a loss of power included, either the earlier file
// is there or the new one, whole. A new file can be read and written by its owner alone; a replaced
// one keeps its mode; a symbolic link keeps pointing where it points. Refuses to replace anything
// but a regular file. On failure nothing is left behind.
[[nodiscard]] Result<> writeFileAtomically(const std::filesystem::path& path,
                                           std::string_view bytes);

// Makes the folder and those above it, as far as they are missing, for their owner alone.
[[nodiscard]] Result<> createFolder(const std::filesystem::path& path);

} // namespace korvan
