// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace korvan {

// A fresh folder that goes, with everything in it, when this object ends.
class TemporaryFolder final {
public:
    TemporaryFolder() {
        std::string name = std::filesystem::temp_directory_path() / "korvan-test-XXXXXX";
        if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        m_path = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    // Makes the file `name` here and gives its path.
    [[nodiscard]] std::filesystem::path file(std::string_view name, std::string_view text) const {
        const auto path = m_path / name;
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }

    [[nodiscard]] std::ptrdiff_t entryCount() const {
        return std::distance(std::filesystem::directory_iterator(m_path), {});
    }

private:
    std::filesystem::path m_path;
};

inline std::string textOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline unsigned modeOf(const std::filesystem::path& path) {
    struct stat status{};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

} // namespace korvan
