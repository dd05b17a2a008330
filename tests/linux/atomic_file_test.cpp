#include "linux/atomic_file.h"

#include "linux/obstructed_file_system.h"
#include "posix/temporary_directory.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

#include <algorithm>
#include <vector>

namespace voltmere {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class AtomicFileTest : public testing::Test {
protected:
    std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(directory.path())) {
            found.push_back(entry.path().filename());
        }
        std::sort(found.begin(), found.end());
        return found;
    }

    static fs::perms permissionsOf(const fs::path& path) { return fs::status(path).permissions(); }

    TemporaryDirectory directory;
};

TEST_F(AtomicFileTest, ReadsAWholeFile)
{
    const std::string text = std::string("a\0b\r\n", 5) + std::string(100000, 'x');
    writeFile(directory / "file", text);

    const TextFile found = readTextFile(directory / "file");

    EXPECT_EQ(found.text, text);
    EXPECT_TRUE(found.exists);
    EXPECT_FALSE(found.isLink);
    EXPECT_FALSE(found.error);
}

TEST_F(AtomicFileTest, AMissingFileIsNoFailure)
{
    writeFile(directory / "file", "");

    for (const fs::path& path :
         {directory / "missing", directory / "no" / "where", directory / "file" / "below a file"}) {
        const TextFile found = readTextFile(path);
        EXPECT_FALSE(found.exists) << path;
        EXPECT_FALSE(found.isLink) << path;
        EXPECT_FALSE(found.error) << path;
    }
}

TEST_F(AtomicFileTest, ADirectoryCannotBeReadAsAFile)
{
    const TextFile found = readTextFile(directory.path());

    EXPECT_TRUE(found.exists);
    EXPECT_EQ(found.error, std::errc::is_a_directory);
}

TEST_F(AtomicFileTest, AFileBeyondAMebibyteIsNotRead)
{
    writeFile(directory / "file", "");
    fs::resize_file(directory / "file", 1 << 20);
    EXPECT_FALSE(readTextFile(directory / "file").error);
    fs::resize_file(directory / "file", (1 << 20) + 1);

    EXPECT_EQ(readTextFile(directory / "file").error, std::errc::file_too_large);
    EXPECT_EQ(readTextFile(directory / "file").text, "");
}

TEST_F(AtomicFileTest, WhatIsNoFileReadsAsEmptyAndHoldsNobodyUp)
{
    ASSERT_EQ(::mkfifo((directory / "fifo").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", directory / "zero");
    fs::create_symlink(directory / "gone", directory / "dangling");

    for (const char* const name : {"fifo", "zero", "dangling"}) {
        const TextFile found = readTextFile(directory / name);
        EXPECT_TRUE(found.exists) << name;
        EXPECT_EQ(found.text, "") << name;
        EXPECT_FALSE(found.error) << name;
    }
}

TEST_F(AtomicFileTest, ANewFileIsReadableByAll)
{
    EXPECT_FALSE(replaceTextFile(directory / "file", "text"));

    EXPECT_EQ(readFile(directory / "file"), "text");
    EXPECT_EQ(permissionsOf(directory / "file"), fs::perms{0644});
    EXPECT_THAT(names(), ElementsAre("file"));
}

TEST_F(AtomicFileTest, AFileKeepsItsPermissions)
{
    writeFile(directory / "file", "before");
    fs::permissions(directory / "file", fs::perms{0640});

    EXPECT_FALSE(replaceTextFile(directory / "file", "after"));

    EXPECT_EQ(readFile(directory / "file"), "after");
    EXPECT_EQ(permissionsOf(directory / "file"), fs::perms{0640});
}

TEST_F(AtomicFileTest, WhoeverHasTheOldFileOpenSeesAllOfIt)
{
    writeFile(directory / "file", "before");
    std::ifstream reader(directory / "file");

    EXPECT_FALSE(replaceTextFile(directory / "file", ""));

    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "before");
}

TEST_F(AtomicFileTest, ALinkStaysAndItsFileIsReplaced)
{
    writeFile(directory / "kept" / "file", "before");
    fs::create_symlink("kept/file", directory / "link");

    EXPECT_FALSE(replaceTextFile(directory / "link", "after"));

    EXPECT_TRUE(fs::is_symlink(directory / "link"));
    EXPECT_EQ(readFile(directory / "kept" / "file"), "after");
}

TEST_F(AtomicFileTest, ALinkToADeviceIsReplacedItself)
{
    fs::create_symlink("/dev/null", directory / "link");

    EXPECT_FALSE(replaceTextFile(directory / "link", "after"));

    EXPECT_FALSE(fs::is_symlink(directory / "link"));
    EXPECT_EQ(readFile(directory / "link"), "after");
}

TEST_F(AtomicFileTest, ADirectoryIsNotReplaced)
{
    writeFile(directory / "file" / "below", "kept");

    EXPECT_EQ(replaceTextFile(directory / "file", "text"), std::errc::is_a_directory);

    EXPECT_EQ(readFile(directory / "file" / "below"), "kept");
    EXPECT_THAT(names(), ElementsAre("file"));
}

TEST_F(AtomicFileTest, AFullDiskLeavesTheOldFile)
{
    const std::string text(100, 'x');
    writeFile(directory / "file", "before");
    for (const rlim_t room : {0, 1, 99}) {
        std::error_code error;
        {
            const FileSizeLimit limit(room);
            error = replaceTextFile(directory / "file", text);
        }
        EXPECT_EQ(error, std::errc::file_too_large) << room;
        EXPECT_EQ(readFile(directory / "file"), "before") << room;
        EXPECT_THAT(names(), ElementsAre("file")) << room;
    }
}

TEST_F(AtomicFileTest, AReadOnlyDirectoryLeavesTheOldFile)
{
    writeFile(directory / "file", "before");
    {
        const ReadOnlyDirectory readOnly(directory.path());
        EXPECT_EQ(replaceTextFile(directory / "file", "after"), std::errc::permission_denied);
    }
    EXPECT_EQ(readFile(directory / "file"), "before");
    EXPECT_THAT(names(), ElementsAre("file"));
}

TEST_F(AtomicFileTest, NewDirectoriesAreTheirOwnersAlone)
{
    EXPECT_FALSE(makePrivateDirectory(directory / "a" / "b"));

    EXPECT_EQ(permissionsOf(directory / "a"), fs::perms{0700});
    EXPECT_EQ(permissionsOf(directory / "a" / "b"), fs::perms{0700});
}

TEST_F(AtomicFileTest, ADirectoryThatIsThereStaysAsItIs)
{
    fs::create_directory(directory / "a");
    fs::permissions(directory / "a", fs::perms{0755});
    fs::create_symlink("a", directory / "link");

    EXPECT_FALSE(makePrivateDirectory(directory / "a"));
    EXPECT_FALSE(makePrivateDirectory(directory / "link"));

    EXPECT_EQ(permissionsOf(directory / "a"), fs::perms{0755});
}

TEST_F(AtomicFileTest, WhatIsInTheWayOfADirectoryIsNamed)
{
    writeFile(directory / "file", "kept");
    fs::create_symlink("gone", directory / "dangling");

    EXPECT_EQ(makePrivateDirectory(directory / "file"), std::errc::not_a_directory);
    EXPECT_EQ(makePrivateDirectory(directory / "file" / "below"), std::errc::not_a_directory);
    EXPECT_EQ(makePrivateDirectory(directory / "dangling"), std::errc::not_a_directory);
    EXPECT_EQ(readFile(directory / "file"), "kept");
}

} // namespace
} // namespace voltmere
