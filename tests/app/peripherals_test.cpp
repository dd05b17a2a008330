#include "app/peripherals.h"

#include "tests/platform/temporary_directory.h"

#include <gtest/gtest.h>

namespace voltmere {
namespace {

class PeripheralsTest : public testing::Test {
protected:
    Peripherals make() const { return Peripherals(commandLine, directory / "system"); }

    void install(const std::string& place) const
    {
        writeProgram(directory / place / "ioreg", "#!/bin/sh\n");
    }

    TemporaryDirectory directory;
    CommandLine commandLine;
};

TEST_F(PeripheralsTest, TheSystemsOwnEntriesAreReadWhereThereIsNoRegistryTool)
{
    EXPECT_EQ(make().choose().label, "sysfs");
}

TEST_F(PeripheralsTest, TheToolsAreReadAsLongAsTheRegistryToolCanBeRun)
{
    Peripherals peripherals = make();
    ASSERT_EQ(peripherals.choose().label, "sysfs");
    install("system");
    EXPECT_EQ(peripherals.choose().label, "tools");

    std::filesystem::permissions(directory / "system" / "ioreg", std::filesystem::perms{0600});
    EXPECT_EQ(peripherals.choose().label, "sysfs");
}

TEST_F(PeripheralsTest, ToolsThatAreNamedAreReadEvenIfTheyAreNotThere)
{
    commandLine.toolsDirectory = QString::fromStdString(directory / "named");

    EXPECT_EQ(make().choose().label, "tools");
}

TEST_F(PeripheralsTest, EntriesThatAreNamedAreReadEvenBesideTheTools)
{
    install("system");
    commandLine.sysfsRoot = QString::fromStdString(directory / "named");

    EXPECT_EQ(make().choose().label, "sysfs");
}

TEST_F(PeripheralsTest, ADemonstrationReadsItsOwnTools)
{
    commandLine.demo = true;

    EXPECT_EQ(make().choose().label, "tools");
}

} // namespace
} // namespace voltmere
