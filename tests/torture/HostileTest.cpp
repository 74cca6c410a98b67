// SPDX-License-Identifier: MIT
//
// Files that somebody made to do harm, or that went wrong in a way that nobody thought of.
#include "torture/Torture.h"

#include "actions/BackupFile.h"
#include "support/Examples.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace korvan {
namespace {

namespace fs = std::filesystem;

struct Cost {
    double seconds;
    std::int64_t peak; // the most memory that was in use at once, in bytes
    std::int64_t code; // of the error, or 0
};

Cost costOfReading(const fs::path& path) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        const auto backup = readBackupFile(path, {});
        ::_exit(backup ? 0 : static_cast<int>(backup.error().code));
    }
    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    EXPECT_TRUE(WIFEXITED(status));
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    return {time.count(), usage.ru_maxrss * 1024, WEXITSTATUS(status)};
}

TEST(Hostile, LargeFilesCostNoMoreThanTheirSizeTellsBefore) {
    const std::size_t size = 20'000'000 * static_cast<std::size_t>(scale());
    const std::string text = writeBackup(exampleBackup());
    const std::size_t from = text.find("    {\n      \"categoryId");
    const std::size_t to = text.find("\n  ],\n  \"snippets");
    const std::string profile = text.substr(from, to - from);
    const std::string head = text.substr(0, from);
    const std::string unknown = text.substr(0, text.size() - 2) + ",\"x\":[";
    const struct {
        std::string name, head, piece, tail;
        std::int64_t code;
    } cases[] = {
        {"profiles", head, profile + ",\n", text.substr(from), 0},
        
        {"one long text", "{\"x\":\"", "geheim/\\u0000", "\"," + text.substr(1), 0},
        {"unknown keys", "{", "\"unbekannt\":\"\",", text.substr(1), 0},
        {"repeated keys", "{", "\"profiles\":[" + profile + "],\"snippets\":[],", text.substr(1), 0},
        {"depth", "{\"x\":", "[", "", 2},
        {"blanks", "", " ", text, 0},
        {"numbers", unknown, "0,", "0]}", 0},
    };
    const TemporaryFolder folder;
    const fs::path path = folder.file("backup.json", text);
    const std::int64_t usual = costOfReading(path).peak;
    for (const auto& [name, start, piece, tail, code] : cases) {
        std::ofstream file(path, std::ios::binary);
        file << start;
        for (std::size_t i = 0; piece.size() * i < size; ++i)
            file << piece;
        file << tail;
        file.close();
        const Cost cost = costOfReading(path);
        const auto bytes = static_cast<double>(fs::file_size(path));
        const double times = static_cast<double>(cost.peak - usual) / bytes;
        std::printf("%s: %.0f MB, %.2f s, %.1f times its size\n", name.c_str(), bytes / 1e6,
                    cost.seconds, times);
        EXPECT_EQ(cost.code, code) << name;
    }
}

} // namespace
} // namespace korvan
