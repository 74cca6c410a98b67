// SPDX-License-Identifier: MIT
//
// The order of the house (see ARCHITECTURE.md), read from the include lines of the sources.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvan {
namespace {

namespace fs = std::filesystem;

// Each source file under src/ with what its include lines name.
std::map<std::string, std::vector<std::string>> readIncludes() {
    std::map<std::string, std::vector<std::string>> includes;
    const std::regex includeLine(R"(\s*#\s*include\s*[<"]([^>"]+)[>"].*)");
    for (const auto& entry : fs::recursive_directory_iterator(KORVAN_SOURCE_FOLDER)) {
        const fs::path& path = entry.path();
        if (path.extension() != ".h" && path.extension() != ".cpp") continue;
        auto& names = includes[path.lexically_relative(KORVAN_SOURCE_FOLDER).generic_string()];
        std::ifstream file(path);
        std::smatch match;
        for (std::string line; std::getline(file, line);)
            if (std::regex_match(line, match, includeLine)) names.push_back(match[1]);
    }
    return includes;
}

class Layers : public testing::Test {
protected:
    // How high in the house a file stands, 0 if nowhere.
    static int floorOf(std::string_view file) {
        static constexpr std::pair<std::string_view, int> kFloors[] = {
            {"model/", 1},   {"store/", 2},    {"platform/", 3},   {"actions/", 4}, {"state/", 5},
            {"desktop/", 6}, {"ui/style/", 7}, {"ui/editors/", 8}, {"ui/main/", 9}, {"app/", 10}};
        for (const auto& [folder, floor] : kFloors)
            if (file.starts_with(folder)) return floor;
        return 0;
    }

    static constexpr int kPlatform = 3;
    static constexpr int kLastWithoutQt = 5;

    using Seen = std::map<std::string, std::string>;

    // Everything that `file` includes, by whatever way, and which file it is that names it.
    Seen seenFrom(const std::string& file, Seen seen = {}) const {
        const auto includes = allIncludes.find(file);
        if (includes == allIncludes.end()) return seen; // not ours
        for (const std::string& name : includes->second)
            if (seen.emplace(name, file).second) seen = seenFrom(name, std::move(seen));
        return seen;
    }

    const std::map<std::string, std::vector<std::string>> allIncludes = readIncludes();
};

TEST_F(Layers, NoIncludePointsUp) {
    ASSERT_GT(allIncludes.size(), 50U) << "the sources are not where the build says";
    for (const auto& [file, names] : allIncludes) {
        EXPECT_NE(floorOf(file), 0) << file << " stands on no floor";
        for (const std::string& name : names) {
            EXPECT_LE(floorOf(name), floorOf(file)) << file << " includes " << name;
            EXPECT_FALSE(fs::exists((fs::path(KORVAN_SOURCE_FOLDER) / file).replace_filename(name)))
                << file << " does not name " << name << " from src/, so no test here sees it";
        }
    }
}

TEST_F(Layers, ViewsAndDesktopDoNotKnowEachOther) {
    for (const auto& [file, names] : allIncludes) {
        for (const std::string& name : names) {
            if (file.starts_with("ui/")) {
                EXPECT_TRUE(!name.starts_with("desktop/") || name == "desktop/QtText.h")
                    << file << " includes " << name;
            } else if (file.starts_with("desktop/")) {
                EXPECT_TRUE(name.starts_with("desktop/") || floorOf(name) <= kPlatform)
                    << file << " includes " << name;
            }
        }
    }
}

TEST_F(Layers, WhatNeedsNoScreenSeesNeitherQtNorTheDatabase) {
    for (const auto& [file, names] : allIncludes) {
        if (floorOf(file) > kLastWithoutQt) continue;
        for (const auto& [name, by] : seenFrom(file))
            EXPECT_FALSE(name.starts_with('Q') || name.starts_with("qt") || name == "sqlite3.h")
                << file << " sees " << name << " through " << by;
    }
}

TEST_F(Layers, NoFileSeesItself) {
    for (const auto& [file, names] : allIncludes) {
        Seen seen = seenFrom(file);
        EXPECT_FALSE(seen.contains(file)) << file << " through " << seen[file];
    }
}

} // namespace
} // namespace korvan
