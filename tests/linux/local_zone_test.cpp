// The zone of the machine, which it keeps in a file. The test has a machine of its own for that: a
// child whose root is a directory of the test.

#include "posix/calendar.h"
#include "tests/fakes/time_zones.h"
#include "tests/posix/temporary_directory.h"

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace voltmere {
namespace {

constexpr int refused = 77;

/// A zone file of one type of local time, so many seconds ahead of universal time.
std::string zoneFile(int secondsAhead)
{
    const auto bigEndian = [](int number) {
        std::string bytes;
        for (const unsigned shift : {24U, 16U, 8U, 0U}) {
            bytes += static_cast<char>(static_cast<unsigned>(number) >> shift & 0xFFU);
        }
        return bytes;
    };
    std::string file = "TZif" + std::string(16, '\0'); // the first version of the format
    for (const int count : {0, 0, 0, 0, 1, 4}) {       // one type, and four bytes of its name
        file += bigEndian(count);
    }
    return file + bigEndian(secondsAhead) + std::string(2, '\0') + std::string("ZZZ\0", 4);
}

/// Replaces the zone of the machine in one step, as its administrator's tools do.
void setZone(const std::string& etc, int secondsAhead)
{
    writeFile(etc + "/localtime.new", zoneFile(secondsAhead));
    std::filesystem::rename(etc + "/localtime.new", etc + "/localtime");
}

int hourAtNoon()
{
    return PosixCalendar().localTime(universalTime(2026, 7, 1, 12, 0)).hour;
}

/// What a process with a root of its own gets from the calendar: 0 when it follows the zone.
int outcomeOfAChange(const std::filesystem::path& root)
{
    const bool mayChangeRoot = ::geteuid() == 0 || ::unshare(CLONE_NEWUSER) == 0;
    if (!mayChangeRoot || ::chroot(root.c_str()) != 0 || ::chdir("/") != 0) {
        return refused;
    }
    ::unsetenv("TZ");
    setZone("/etc", 3600);
    if (hourAtNoon() != 13) {
        return 1;
    }
    setZone("/etc", -7200);
    return hourAtNoon() == 10 ? 0 : 2;
}

TEST(LocalZoneTest, AChangeOfTheMachinesZoneIsSeenAtOnceWhereTheUserHasNone)
{
    const TemporaryDirectory root;
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::_exit(outcomeOfAChange(root.path()));
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == refused) {
        GTEST_SKIP() << "this machine lets no process have a root of its own";
    }
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

} // namespace
} // namespace voltmere
