#include "linux/atomic_file.h"

#include "linux/obstructed_file_system.h"
#include "posix/temporary_directory.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace voltmere {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class AtomicFileTest : public testing::Test {
protected:
    static fs::perms permissionsOf(const fs::path& path) { return fs::status(path).permissions(); }

    TemporaryDirectory directory;
    const fs::path file = directory / "file";
};

TEST_F(AtomicFileTest, ReadsAWholeFile)
{
    const std::string text = std::string("a\0b\r\n", 5) + std::string(100000, 'x');
    writeFile(file, text);

    EXPECT_EQ(readTextFile(file).text, text);
    EXPECT_FALSE(readTextFile(file).error);
}

TEST_F(AtomicFileTest, WhatIsMissingOrNoFileReadsAsEmptyAndHoldsNobodyUp)
{
    writeFile(file, "text");
    ASSERT_EQ(::mkfifo((directory / "fifo").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", directory / "zero");
    fs::create_symlink(directory / "gone", directory / "dangling");

    for (const char* const name :
         {"missing", "no/where", "file/below a file", "fifo", "zero", "dangling"}) {
        EXPECT_EQ(readTextFile(directory / name).text, "") << name;
        EXPECT_FALSE(readTextFile(directory / name).error) << name;
    }
}

TEST_F(AtomicFileTest, ADirectoryOrAFileBeyondAMebibyteIsNotRead)
{
    EXPECT_EQ(readTextFile(directory.path()).error, std::errc::is_a_directory);
    writeFile(file, "");
    fs::resize_file(file, 1 << 20);
    EXPECT_FALSE(readTextFile(file).error);
    fs::resize_file(file, (1 << 20) + 1);

    EXPECT_EQ(readTextFile(file).error, std::errc::file_too_large);
    EXPECT_EQ(readTextFile(file).text, "");
}

TEST_F(AtomicFileTest, ANewFileIsReadableByAllAndAnOldOneKeepsItsPermissions)
{
    EXPECT_FALSE(replaceTextFile(file, "text"));
    EXPECT_EQ(readFile(file), "text");
    EXPECT_EQ(permissionsOf(file), fs::perms{0644});

    fs::permissions(file, fs::perms{0640});
    EXPECT_FALSE(replaceTextFile(file, "after"));
    EXPECT_EQ(readFile(file), "after");
    EXPECT_EQ(permissionsOf(file), fs::perms{0640});
    EXPECT_THAT(directory.files(), ElementsAre("file"));
}

TEST_F(AtomicFileTest, WhoeverHasTheOldFileOpenSeesAllOfIt)
{
    writeFile(file, "before");
    std::ifstream reader(file);

    EXPECT_FALSE(replaceTextFile(file, ""));

    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "before");
}

TEST_F(AtomicFileTest, ALinkToAFileStaysAndOneToADeviceIsReplaced)
{
    writeFile(directory / "kept" / "file", "before");
    fs::create_symlink("kept/file", directory / "link");
    fs::create_symlink("/dev/null", directory / "mask");

    EXPECT_FALSE(replaceTextFile(directory / "link", "after"));
    EXPECT_FALSE(replaceTextFile(directory / "mask", "after"));

    EXPECT_TRUE(fs::is_symlink(directory / "link"));
    EXPECT_EQ(readFile(directory / "kept" / "file"), "after");
    EXPECT_FALSE(fs::is_symlink(directory / "mask"));
    EXPECT_EQ(readFile(directory / "mask"), "after");
}

TEST_F(AtomicFileTest, ADirectoryIsNotReplaced)
{
    writeFile(file / "below", "kept");

    EXPECT_EQ(replaceTextFile(file, "text"), std::errc::is_a_directory);

    EXPECT_EQ(readFile(file / "below"), "kept");
    EXPECT_THAT(directory.files(), ElementsAre("file"));
}

TEST_F(AtomicFileTest, AFullDiskLeavesTheOldFile)
{
    const std::string text(100, 'x');
    writeFile(file, "before");
    for (const rlim_t room : {0, 1, 99}) {
        std::error_code error;
        {
            const FileSizeLimit limit(room);
            error = replaceTextFile(file, text);
        }
        EXPECT_EQ(error, std::errc::file_too_large) << room;
        EXPECT_EQ(readFile(file), "before") << room;
        EXPECT_THAT(directory.files(), ElementsAre("file")) << room;
    }
}

TEST_F(AtomicFileTest, AReadOnlyDirectoryLeavesTheOldFile)
{
    writeFile(file, "before");
    {
        const ReadOnlyDirectory readOnly(directory.path());
        EXPECT_EQ(replaceTextFile(file, "after"), std::errc::permission_denied);
    }
    EXPECT_EQ(readFile(file), "before");
    EXPECT_THAT(directory.files(), ElementsAre("file"));
}

TEST_F(AtomicFileTest, NewDirectoriesAreTheirOwnersAlone)
{
    fs::create_directory(directory / "a");
    fs::permissions(directory / "a", fs::perms{0755});
    fs::create_symlink("a", directory / "link");

    EXPECT_FALSE(makePrivateDirectory(directory / "link" / "b" / "c"));

    EXPECT_EQ(permissionsOf(directory / "a"), fs::perms{0755});
    EXPECT_EQ(permissionsOf(directory / "a" / "b"), fs::perms{0700});
    EXPECT_EQ(permissionsOf(directory / "a" / "b" / "c"), fs::perms{0700});
}

TEST_F(AtomicFileTest, WhatIsInTheWayOfADirectoryIsNamed)
{
    writeFile(file, "kept");
    fs::create_symlink("gone", directory / "dangling");

    for (const fs::path& obstacle : {file, file / "below", directory / "dangling"}) {
        EXPECT_EQ(makePrivateDirectory(obstacle), std::errc::not_a_directory) << obstacle;
    }
    EXPECT_EQ(readFile(file), "kept");
}

} // namespace
} // namespace voltmere
