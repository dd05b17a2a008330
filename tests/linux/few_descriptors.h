#pragma once

#include "posix/file_descriptor.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <vector>

namespace voltmere {

/// Takes every file descriptor of this process but a few.
class FewDescriptors {
public:
    explicit FewDescriptors(std::size_t left)
    {
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &previous), 0);
        const rlimit limit{64, previous.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
        for (int taken = ::dup(STDERR_FILENO); taken >= 0; taken = ::dup(STDERR_FILENO)) {
            held.emplace_back(taken);
        }
        EXPECT_EQ(errno, EMFILE);
        EXPECT_GT(held.size(), left);
        held.resize(held.size() - left);
    }

    ~FewDescriptors() { ::setrlimit(RLIMIT_NOFILE, &previous); }

    FewDescriptors(const FewDescriptors&) = delete;
    FewDescriptors& operator=(const FewDescriptors&) = delete;

private:
    rlimit previous{};
    std::vector<FileDescriptor> held;
};

} // namespace voltmere
