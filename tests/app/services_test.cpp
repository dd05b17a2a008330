#include "app/services.h"

#include "tests/fakes/recording_log.h"
#include "tests/posix/temporary_directory.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace voltmere {
namespace {

class PeripheralsTest : public testing::Test {
protected:
    Peripherals make() { return Peripherals(commandLine, log, directory / "system"); }

    void installSystemTools() const { writeProgram(directory / "system" / "ioreg", "#!/bin/sh\n"); }

    TemporaryDirectory directory;
    CommandLine commandLine;
    RecordingLog log;
};

TEST_F(PeripheralsTest, TheToolsAreReadAsLongAsTheRegistryToolCanBeRun)
{
    Peripherals peripherals = make();
    ASSERT_EQ(peripherals.choose().label, "sysfs");
    installSystemTools();
    EXPECT_EQ(peripherals.choose().label, "tools");

    std::filesystem::permissions(directory / "system" / "ioreg", std::filesystem::perms{0600});
    EXPECT_EQ(peripherals.choose().label, "sysfs");
}

TEST_F(PeripheralsTest, EntriesThatAreNamedAreReadEvenBesideTheTools)
{
    installSystemTools();
    commandLine.sysfsRoot = directory / "named";

    EXPECT_EQ(make().choose().label, "sysfs");
}

TEST_F(PeripheralsTest, ToolsThatAreNamedOrDemonstratedAreReadEvenIfTheyAreNotThere)
{
    commandLine.toolsDirectory = directory / "named";
    EXPECT_EQ(make().choose().label, "tools");
    commandLine = {};
    commandLine.demo = true;
    EXPECT_EQ(make().choose().label, "tools");
}

} // namespace
} // namespace voltmere
