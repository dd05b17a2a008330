#pragma once

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

namespace voltmere {

/// Takes the right to write into a directory away from this process. The superuser, whom
/// permissions do not stop, acts as another user meanwhile.
class ReadOnlyDirectory {
public:
    explicit ReadOnlyDirectory(const std::filesystem::path& directory)
        : directory(directory)
        , isSuperuser(::geteuid() == 0)
    {
        std::filesystem::permissions(directory, std::filesystem::perms{0555});
        if (isSuperuser) {
            for (auto above = directory; above != std::filesystem::temp_directory_path();
                 above = above.parent_path()) {
                EXPECT_EQ(::chown(above.c_str(), anotherUser, anotherUser), 0) << above;
            }
            EXPECT_EQ(::seteuid(anotherUser), 0);
        }
    }

    ~ReadOnlyDirectory()
    {
        if (isSuperuser) {
            EXPECT_EQ(::seteuid(0), 0);
        }
        std::filesystem::permissions(directory, std::filesystem::perms{0755});
    }

    ReadOnlyDirectory(const ReadOnlyDirectory&) = delete;
    ReadOnlyDirectory& operator=(const ReadOnlyDirectory&) = delete;

private:
    static constexpr uid_t anotherUser = 65534;

    std::filesystem::path directory;
    bool isSuperuser;
};

/// Lets no file grow beyond a size, as on a disk that is full then.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t size)
        : previousAction(std::signal(SIGXFSZ, SIG_IGN))
    {
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &previousLimit), 0);
        const rlimit limit{size, previousLimit.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }

    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &previousLimit);
        std::signal(SIGXFSZ, previousAction);
    }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*previousAction)(int);
    rlimit previousLimit{};
};

} // namespace voltmere
