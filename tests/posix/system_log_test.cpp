#include "posix/system_log.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

TEST(SystemLogTest, ALineIsPlainTextUnderTheProgramsName)
{
    testing::internal::CaptureStderr(); // which the log writes to as well
    PosixSystemLog().write("Mouse \x1B[31m of %s Ann");
    const std::string written = testing::internal::GetCapturedStderr();

    EXPECT_THAT(written, testing::StartsWith("voltmere"));
    EXPECT_THAT(written, testing::HasSubstr(": Mouse  [31m of %s Ann\n"));
}

} // namespace
} // namespace voltmere
