// Runs the built program where there is no tray yet.

#include "tests/app/program_fixture.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using testing::HasSubstr;
using testing::Not;

class NoTrayTest : public ProgramTest {
protected:
    NoTrayTest() { variables["QT_QPA_PLATFORM"] = "offscreen"; }

    ~NoTrayTest() override
    {
        program.kill();
        program.waitForFinished();
    }

    /// What the program and its tools have said when they have said `text`.
    std::string saidUntil(const std::string& text)
    {
        std::string said;
        program.setReadChannel(QProcess::StandardError);
        while (said.find(text) == std::string::npos && program.waitForReadyRead(60'000)) {
            said += program.readAllStandardError().toStdString();
        }
        EXPECT_THAT(said, HasSubstr(text));
        return said;
    }

    QProcess program;
};

TEST_F(NoTrayTest, TheFirstCheckIsTakenWhileTheProgramStillWaitsForATray)
{
    writeProgram(tools() / "ioreg", "#!/bin/sh\necho 'the levels are read' >&2\n");
    start(program, {"--tools", QString::fromStdString(tools())});

    EXPECT_THAT(saidUntil("the levels are read\n"), Not(HasSubstr("this desktop has no tray yet")));
}

} // namespace
} // namespace voltmere
