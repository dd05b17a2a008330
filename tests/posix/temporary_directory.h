#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

namespace voltmere {

/// A directory for one test, removed with all that is in it.
class TemporaryDirectory {
public:
    TemporaryDirectory()
    {
        std::string pattern = std::filesystem::temp_directory_path() / "voltmere-test-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), "mkdtemp");
        }
        directory = pattern;
    }

    ~TemporaryDirectory()
    {
        std::error_code ignored;
        std::filesystem::remove_all(directory, ignored);
    }

    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& path() const { return directory; }

    std::filesystem::path operator/(const std::string& name) const { return directory / name; }

    /// The names of the files in it, sorted.
    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(directory)) {
            names.push_back(entry.path().filename());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::filesystem::path directory;
};

/// Writes a file and the directories above it.
inline void writeFile(const std::filesystem::path& path, const std::string& content)
{
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << content;
    file.close();
    ASSERT_TRUE(file.good()) << path;
}

/// Writes a file that can be run.
inline void writeProgram(const std::filesystem::path& path, const std::string& content)
{
    writeFile(path, content);
    std::filesystem::permissions(path, std::filesystem::perms{0755});
}

inline std::string readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace voltmere
