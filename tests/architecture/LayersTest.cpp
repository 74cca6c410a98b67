// SPDX-License-Identifier: MIT
//
// The order of the house (see ARCHITECTURE.md), read from the include lines of the sources.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <sstream>
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
    // How high in the house a file stands, 0 if nowhere. What implements the desktop stands right
    // below the views, as it may use Qt.
    static int floorOf(std::string_view file) {
        static constexpr std::pair<std::string_view, int> kFloors[] = {
            {"model/", 1},      {"store/", 2},   {"platform/desktop/", kFirstWithQt},
            {"platform/", 3},   {"actions/", 4}, {"ui/style/", 6},
            {"ui/editors/", 7}, {"ui/main/", 8}, {"app/", 9}};
        for (const auto& [folder, floor] : kFloors)
            if (file.starts_with(folder)) return floor;
        return 0;
    }

    using Seen = std::map<std::string, std::string>;

    // Everything that `file` includes, by whatever way, and which file it is that names it.
    Seen seenFrom(const std::string& file, Seen seen = {}) const {
        const auto includes = allIncludes.find(file);
        if (includes == allIncludes.end()) return seen; // not ours
        for (const std::string& name : includes->second)
            if (seen.emplace(name, file).second) seen = seenFrom(name, std::move(seen));
        return seen;
    }

    void expectNeitherQtNorDatabase(const std::string& file) const {
        for (const auto& [name, by] : seenFrom(file))
            EXPECT_FALSE(name.starts_with('Q') || name.starts_with("qt") || name == "sqlite3.h")
                << file << " sees " << name << " through " << by;
    }

    static constexpr int kFirstWithQt = 5;
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
            const bool isDesktops =
                name.starts_with("platform/desktop/") && name != "platform/desktop/QtText.h";
            EXPECT_FALSE(file.starts_with("ui/") && isDesktops) << file << " includes " << name;
            EXPECT_FALSE(file.starts_with("platform/") && name.starts_with("actions/"))
                << file << " includes " << name;
        }
    }
}

TEST_F(Layers, WhatNeedsNoScreenSeesNeitherQtNorTheDatabase) {
    for (const auto& [file, names] : allIncludes)
        if (floorOf(file) < kFirstWithQt) expectNeitherQtNorDatabase(file);
    std::istringstream coreSources(KORVAN_CORE_SOURCES);
    for (std::string file; std::getline(coreSources, file, ':');) {
        ASSERT_TRUE(allIncludes.contains(file)) << file;
        expectNeitherQtNorDatabase(file);
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
