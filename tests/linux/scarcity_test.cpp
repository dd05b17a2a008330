#include "linux/atomic_file.h"
#include "linux/sysfs_battery_source.h"
#include "posix/process_runner.h"
#include "posix/system_log.h"
#include "tests/fakes/recording_log.h"
#include "tests/linux/few_descriptors.h"
#include "tests/linux/sysfs_fixture.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace voltmere {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

// What the program does where the system has nothing left to give.

ProcessRequest childThatSays(const std::string& text, ProcessRequest::ErrorOutput errors)
{
    return {.executable = VOLTMERE_TEST_CHILD,
            .arguments = {"exit", "0", text},
            .errorOutput = errors,
            .limit = std::chrono::seconds(60)};
}

std::size_t descriptorsInUse()
{
    std::size_t count = 0;
    for (int descriptor = 0; descriptor < 64; ++descriptor) {
        count += ::fcntl(descriptor, F_GETFD) >= 0 ? 1 : 0;
    }
    return count;
}

TEST(ScarcityTest, WithoutFileDescriptorsAToolWroteNothingAndNothingLeaks)
{
    RecordingLog log;
    PosixProcessRunner runner(log);
    const std::size_t before = descriptorsInUse();
    for (const auto errors :
         {ProcessRequest::ErrorOutput::inherited, ProcessRequest::ErrorOutput::swallowed}) {
        for (std::size_t left = 0; left < 10; ++left) {
            std::string output;
            {
                const FewDescriptors scarcity(left);
                output = runner.run(childThatSays("x", errors));
            }
            EXPECT_THAT(output, AnyOf("", "x")) << left;
            EXPECT_TRUE(left > 0 || output.empty());
            EXPECT_EQ(descriptorsInUse(), before) << left;
        }
        EXPECT_EQ(runner.run(childThatSays("x", errors)), "x");
    }
    EXPECT_THAT(log.lines, Contains(HasSubstr("(Too many open files)")));
    EXPECT_THAT(log.lines, Not(Contains(HasSubstr("(Bad file descriptor)"))));
}

TEST(ScarcityTest, WithoutFileDescriptorsTheKernelsEntriesComeBackLater)
{
    SysfsFixture fixture;
    fixture.add(sysfsMouse());
    SysfsBatterySource source(fixture.root());
    ASSERT_THAT(source.readEntries(), SizeIs(1));
    {
        const FewDescriptors scarcity(0);
        EXPECT_TRUE(source.readEntries().empty());
    }
    EXPECT_TRUE(source.readEntries().at(0).level);
}

TEST(ScarcityTest, WithoutFileDescriptorsAFileIsNeitherReadNorHarmed)
{
    const TemporaryDirectory directory;
    writeFile(directory / "file", "old");
    {
        const FewDescriptors scarcity(0);
        EXPECT_TRUE(readTextFile(directory / "file").error);
        EXPECT_TRUE(replaceTextFile(directory / "file", "new"));
    }
    EXPECT_EQ(readFile(directory / "file"), "old");
}

TEST(ScarcityTest, WithoutFileDescriptorsALineForTheLogDoesNoHarm)
{
    PosixSystemLog log;
    testing::internal::CaptureStderr();
    {
        const FewDescriptors scarcity(0);
        log.write("Voltmere: a line of a test");
    }
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("Voltmere: a line of a test"));
}

/// What a process that may start no other one gets from the runner: 0 when it is nothing.
int outcomeWhereForkIsRefused()
{
    if (::geteuid() == 0 && ::setresuid(65534, 65534, 65534) != 0) {
        return 2;
    }
    const rlimit none{0, 0};
    if (::setrlimit(RLIMIT_NPROC, &none) != 0) {
        return 3;
    }
    if (const pid_t child = ::fork(); child == 0) {
        ::_exit(0);
    } else if (child > 0) {
        return 4;
    }
    RecordingLog log;
    PosixProcessRunner runner(log);
    const auto errors = ProcessRequest::ErrorOutput::swallowed;
    return runner.run(childThatSays("x", errors)).empty() ? 0 : 5;
}

TEST(ScarcityTest, WhereForkIsRefusedAToolWroteNothing)
{
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::_exit(outcomeWhereForkIsRefused());
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

} // namespace
} // namespace voltmere
