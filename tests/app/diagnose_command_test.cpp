// Runs the built program. The tools and the kernel's entries that it reads are synthetic.

#include "devices/device_reader.h"
#include "tests/app/program_fixture.h"
#include "tests/linux/fake_bus_service.h"
#include "tests/linux/private_bus.h"
#include "tests/linux/sysfs_fixture.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDBusVariant>
#include <QTest>

namespace voltmere {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

class DiagnoseCommandTest : public ProgramTest {
protected:
    Outcome diagnoseTools(const QStringList& more = {}) const
    {
        return run(withTools({"--diagnose"}) + more);
    }

    Outcome diagnoseSysfs(const QStringList& more = {}) const
    {
        return run(QStringList{"--diagnose", "--sysfs", QString::fromStdString(sysfs.root())} +
                   more);
    }

    /// The report while services that this test plays answer it.
    std::string reportOnBus(const PrivateBus& bus)
    {
        variables["DBUS_SESSION_BUS_ADDRESS"] = bus.busAddress().toStdString();
        QProcess program;
        start(program, withTools({"--diagnose"}));
        EXPECT_TRUE(QTest::qWaitFor([&program] { return program.state() == QProcess::NotRunning; },
                                    60'000));
        EXPECT_EQ(program.exitCode(), 0);
        return program.readAllStandardOutput().toStdString();
    }

    SysfsFixture sysfs;
};

TEST_F(DiagnoseCommandTest, SaysWhatWasFound)
{
    makeTools();
    const Outcome outcome = diagnoseTools();

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    for (const char* const line :
         {"voltmere +[0-9]+\\.[0-9]+\\.[0-9]+\n", "XDG_CURRENT_DESKTOP [^ ]", "\nLANG +[^ ]",
          "Qt +6\\.", "source +tools\n", "Bluetooth names +1\n", "entries +4\n",
          "settings +settings.json: not there", "session bus +missing", "system bus +missing",
          "tray +no StatusNotifier host", "entry 1 +product 804, level 45: shown\n",
          "entry 3 +product 803, level 14: shown\n",
          "entry 4 +product 612, level 50: skipped: product is not in the catalogue\n"}) {
        EXPECT_THAT(outcome.output, ContainsRegex(line));
    }
    for (const char* const service :
         {"notifications", "settings portal", "running instance", "BlueZ"}) {
        EXPECT_THAT(outcome.output, Not(ContainsRegex("\n" + std::string(service) + " +")));
    }
}

TEST_F(DiagnoseCommandTest, NamesAndAddressesAreLeftOut)
{
    makeTools();
    writeFile(settings(), "{}");
    const Outcome outcome = diagnoseTools();

    for (const char* const personal :
         {"Ann", "02-00-5e", "02:00:5E", "02:00:5e", "00:53", "Magic"}) {
        EXPECT_THAT(outcome.output, Not(HasSubstr(personal)));
    }
    EXPECT_THAT(outcome.output, Not(HasSubstr(configuration().string())));
    EXPECT_THAT(outcome.output, Not(HasSubstr(home().string())));
    EXPECT_THAT(outcome.output, ContainsRegex("settings +settings.json: 2 bytes\n"));
}

TEST_F(DiagnoseCommandTest, NamesAndAddressesAreGivenOnRequest)
{
    makeTools();
    const Outcome outcome = diagnoseTools({"--verbose"});

    EXPECT_THAT(outcome.output, HasSubstr("address 02-00-5e-00-53-01, name Mouse of Ann\n"));
    EXPECT_THAT(outcome.output, HasSubstr("address 02-00-5e-00-53-04, name none\n"));
    EXPECT_THAT(outcome.output, HasSubstr(settings().string()));
}

TEST_F(DiagnoseCommandTest, TheKernelsNamesAndAddressesAreLeftOutToo)
{
    sysfs.add(sysfsMouse());
    const std::string brief = diagnoseSysfs().output;
    const std::string verbose = diagnoseSysfs({"--verbose"}).output;

    EXPECT_THAT(brief, ContainsRegex("source +sysfs\n"));
    EXPECT_THAT(brief, ContainsRegex("entry 1 +product 617, level 37: shown\n"));
    EXPECT_THAT(brief, Not(HasSubstr("Ann")));
    EXPECT_THAT(brief, Not(HasSubstr("02:00:5e")));
    EXPECT_THAT(verbose,
                HasSubstr("from hid-02:00:5e:00:53:01-battery, address 02:00:5e:00:53:01, "
                          "name Mouse of Ann\n"));
}

TEST_F(DiagnoseCommandTest, EveryReasonToSkipAnEntryIsNamed)
{
    writeProgram(tools() / "ioreg",
                 printing(registryEntry(803, 14, "a") + registryEntry(803, 15, "b") +
                          registryEntry(612, 50, "c") +
                          "+-o X\n    {\n      \"BatteryPercent\" = 5\n    }\n"
                          "+-o X\n    {\n      \"ProductID\" = 805\n    }\n"));
    const std::string report = diagnoseTools({"--verbose"}).output;

    for (const SkipReason reason : {SkipReason::noLevel, SkipReason::noProduct,
                                    SkipReason::unknownProduct, SkipReason::modelAlreadyListed}) {
        EXPECT_THAT(report, HasSubstr("skipped: " + std::string(description(reason)) + '\n'));
    }
    EXPECT_THAT(report, ContainsRegex("product unknown, level 5: skipped: reports no product"));
    EXPECT_THAT(report, ContainsRegex("product 805, level none: skipped: reports no level"));
    EXPECT_THAT(report, HasSubstr(", address none, name none\n"));
}

TEST_F(DiagnoseCommandTest, TheReasonsOfTheKernelsEntriesAreNamed)
{
    SysfsEntry other = sysfsMouse("hid-a-battery");
    other.hidId = "0005:0000046D:00000269";
    SysfsEntry odd = sysfsMouse("hid-b-battery");
    odd.hidId = "nonsense";
    SysfsEntry silent = sysfsMouse("hid-c-battery");
    silent.capacity = "full\n";
    for (const SysfsEntry& entry : {other, odd, silent}) {
        sysfs.add(entry);
    }
    const std::string report = diagnoseSysfs().output;

    EXPECT_THAT(report, ContainsRegex("entry 1 .*: skipped: another maker's device\n"));
    EXPECT_THAT(report, ContainsRegex("entry 2 .*: skipped: its HID_ID cannot be read\n"));
    EXPECT_THAT(report, ContainsRegex("entry 3 .*: skipped: reports no level\n"));
}

TEST_F(DiagnoseCommandTest, ControlCharactersDoNotReachTheTerminal)
{
    makeTools();
    writeProgram(tools() / "system_profiler",
                 printing("          \x1B[31mred\u009B\u202E:\n"
                          "              Address: 02:00:5E:00:53:01\n"));
    variables["XDG_CURRENT_DESKTOP"] = "a\x1B[2Jb\nc";
    for (const QStringList& more : {QStringList(), QStringList("--verbose")}) {
        const std::string report = diagnoseTools(more).output;
        EXPECT_THAT(report, Not(HasSubstr("\x1B")));
        EXPECT_THAT(report, Not(HasSubstr("\u009B")));
        EXPECT_THAT(report, Not(HasSubstr("\u202E")));
        EXPECT_THAT(report, HasSubstr("a [2Jb c\n"));
    }
    EXPECT_THAT(diagnoseTools({"--verbose"}).output, HasSubstr("name  [31mred \n"));
}

TEST_F(DiagnoseCommandTest, ADamagedSettingsFileIsSaidAndLeftAlone)
{
    writeFile(settings(), "{\"threshold\": 30,");
    EXPECT_THAT(diagnoseTools().output, ContainsRegex("settings +settings.json: 17 bytes, not a"));
    EXPECT_EQ(readFile(settings()), "{\"threshold\": 30,");
}

TEST_F(DiagnoseCommandTest, TheDesktopsServicesAreNamed)
{
    PrivateBus bus;
    const std::string bare = reportOnBus(bus);
    EXPECT_THAT(bare, ContainsRegex("session bus +present\n"));
    EXPECT_THAT(bare, ContainsRegex("tray +no StatusNotifier host"));
    EXPECT_THAT(bare, ContainsRegex("notifications +not running"));
    EXPECT_THAT(bare, ContainsRegex("settings portal +not running"));
    EXPECT_THAT(bare, ContainsRegex("running instance +none\n"));

    bool hasHost = true;
    FakeBusService tray(bus.connect(), "/StatusNotifierWatcher",
                        [&hasHost](const QDBusMessage& call) {
                            EXPECT_EQ(call.member(), "Get");
                            return call.createReply(QVariant::fromValue(QDBusVariant(hasHost)));
                        });
    tray.appear("org.kde.StatusNotifierWatcher");
    FakeBusService daemon(
        bus.connect(), "/org/freedesktop/Notifications", [](const QDBusMessage& call) {
            return call.createReply(QVariantList{"daemon\x1B", "maker", "1.2", "1.2"});
        });
    daemon.appear("org.freedesktop.Notifications");
    daemon.appear("org.freedesktop.portal.Desktop");
    daemon.appear("org.voltmere.Voltmere");
    const std::string full = reportOnBus(bus);
    EXPECT_THAT(full, ContainsRegex("tray +StatusNotifier host registered\n"));
    EXPECT_THAT(full, ContainsRegex("notifications +daemon  1.2\n"));
    EXPECT_THAT(full, ContainsRegex("settings portal +present\n"));
    EXPECT_THAT(full, ContainsRegex("running instance +present\n"));

    hasHost = false;
    EXPECT_THAT(reportOnBus(bus), ContainsRegex("tray +no StatusNotifier host"));
}

TEST_F(DiagnoseCommandTest, AServiceThatDoesNotAnswerHoldsTheReportUpForASecondAtMost)
{
    PrivateBus bus;
    FakeBusService daemon(bus.connect(), "/org/freedesktop/Notifications",
                          [](const QDBusMessage&) { return std::nullopt; });
    daemon.appear("org.freedesktop.Notifications");

    EXPECT_THAT(reportOnBus(bus),
                ContainsRegex("notifications +running, but it does not say what it is\n"));
}

} // namespace
} // namespace voltmere
