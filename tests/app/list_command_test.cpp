// Runs the built program. The tools and the kernel's entries that it reads are synthetic.

#include "tests/app/program_fixture.h"
#include "tests/linux/sysfs_fixture.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QJsonArray>

#include <algorithm>
#include <map>

namespace voltmere {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ListCommandTest : public ProgramTest {
protected:
    Outcome listWithTools(const QStringList& more = {})
    {
        return run(withTools({"--list"}) + more);
    }

    QJsonObject readWithTools() { return parsed(listWithTools({"--json"}).output); }

    static QStringList names(const QJsonObject& reading)
    {
        QStringList names;
        for (const QJsonValue device : reading.value("devices").toArray()) {
            names.append(device.toObject().value("name").toString());
        }
        return names;
    }
};

TEST_F(ListCommandTest, PrintsTheSameTableInEveryLocaleAndLeavesNothingBehind)
{
    makeTools();
    for (const char* const any : {"C.UTF-8", "C", "POSIX", "zh_CN.UTF-8", "no_such_locale"}) {
        locale = any;
        const Outcome outcome = listWithTools();
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.output,
                  "LEVEL  STATE  NAME\n"
                  "  14%  low    Mouse of Ann\n"
                  " 100%  ok     Magic Keyboard 数字键盘版\n"
                  "  45%  ok     Magic Trackpad\n")
            << any;
        if (locale == "C.UTF-8") { // Qt complains of others
            EXPECT_EQ(outcome.errors, "");
        }
    }
    EXPECT_FALSE(std::filesystem::exists(configuration()));
    EXPECT_TRUE(std::filesystem::is_empty(home()));
}

TEST_F(ListCommandTest, PrintsOneJsonObject)
{
    makeTools();
    const Outcome outcome = listWithTools({"--json"});
    const QJsonObject reading = parsed(outcome.output);

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output.find('\n'), outcome.output.size() - 1);
    EXPECT_EQ(reading.value("source"), QJsonValue("tools"));
    EXPECT_EQ(reading.value("threshold"), QJsonValue(20));
    EXPECT_EQ(reading.value("status"), QJsonValue("Low battery: Mouse of Ann 14%"));
    EXPECT_EQ(names(reading),
              (QStringList{"Mouse of Ann", "Magic Keyboard 数字键盘版", "Magic Trackpad"}));
}

TEST_F(ListCommandTest, RunsTheToolsWithTheirArguments)
{
    const std::string record = directory / "record";
    const std::string script = "#!/bin/sh\necho \"${0##*/} $#: $*\" >> '" + record + "'\n";
    writeProgram(tools() / "ioreg", script);
    writeProgram(tools() / "system_profiler", script);

    EXPECT_EQ(listWithTools().status, 0);

    EXPECT_EQ(readFile(record),
              "system_profiler 1: SPBluetoothDataType\n"
              "ioreg 4: -r -c AppleDeviceManagementHIDEventService -l\n");
}

TEST_F(ListCommandTest, UsesTheUsersThresholdAndLanguageAndElseThatOfTheEnvironment)
{
    makeTools();
    locale = "zh_CN.UTF-8";
    EXPECT_EQ(readWithTools().value("status"), QJsonValue("电量偏低：Mouse of Ann 14%"));
    locale = "C.UTF-8";
    writeFile(settings(), R"({"threshold": 50, "language": "zh"})");
    const QJsonObject reading = readWithTools();

    EXPECT_EQ(reading.value("threshold"), QJsonValue(50));
    EXPECT_EQ(reading.value("status"),
              QJsonValue("电量偏低：Mouse of Ann 14%、Magic Trackpad 45%"));
}

TEST_F(ListCommandTest, AMissingToolsDirectoryIsAnEmptyList)
{
    for (int run = 0; run < 2; ++run) {
        const Outcome table = listWithTools();
        EXPECT_EQ(table.status, 0);
        EXPECT_EQ(table.output, "No peripherals found\n");
        EXPECT_THAT(table.errors,
                    HasSubstr("ioreg cannot be started (No such file or directory)\n"));
        EXPECT_EQ(readWithTools().value("source"), QJsonValue("tools"));
        EXPECT_EQ(readWithTools().value("devices"), QJsonValue(QJsonArray()));
        std::filesystem::create_directories(tools()); // and then an empty one
    }
}

TEST_F(ListCommandTest, WithoutTheProfilerTheCatalogueNamesTheDevices)
{
    makeTools();
    std::filesystem::remove(tools() / "system_profiler");

    EXPECT_EQ(names(readWithTools()).first(), "Magic Mouse");
}

TEST_F(ListCommandTest, AToolThatFailsIsReadAllTheSameAndTheProfilersComplaintsAreSwallowed)
{
    writeProgram(tools() / "ioreg",
                 printing(registryEntry(803, 14, "x")) + "echo complaint >&2\nexit 3\n");
    writeProgram(tools() / "system_profiler", "#!/bin/sh\necho swallowed >&2\n");
    const Outcome outcome = listWithTools();

    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("  14%  low    Magic Mouse\n"));
    EXPECT_EQ(outcome.errors, "complaint\n");
}

TEST_F(ListCommandTest, OutputThatIsNoUtf8IsAnEmptyList)
{
    writeProgram(tools() / "ioreg", printing(registryEntry(803, 14, "\xFF")));

    EXPECT_EQ(listWithTools().output, "No peripherals found\n");
}

TEST_F(ListCommandTest, NamesDoNotCommandTheTerminal)
{
    makeTools();
    writeProgram(tools() / "system_profiler",
                 printing("          \x1B[31mred\u009B\u202E:\n"
                          "              Address: 02:00:5E:00:53:01\n"));

    EXPECT_THAT(listWithTools().output, HasSubstr(" [31mred "));
    EXPECT_THAT(listWithTools({"--json"}).output, HasSubstr("\\u001b[31mred\\u009b\\u202e"));
}

TEST_F(ListCommandTest, TheToolsDirectoryMayHaveAnyName)
{
    makeTools();
    for (const char* const name : {"with blank 'and' \"quotes\"", "数字", "$HOME", "-x"}) {
        std::filesystem::rename(tools(), directory / name);
        for (const char* const any : {"C", "C.UTF-8"}) {
            locale = any;
            const Outcome outcome =
                run({"--list", "--tools", QString::fromStdString(directory / name)});
            EXPECT_THAT(outcome.output, HasSubstr("Mouse of Ann")) << name << ' ' << any;
        }
        std::filesystem::rename(directory / name, tools());
    }
}

#ifdef __linux__

TEST_F(ListCommandTest, ReadsTheKernelsEntries)
{
    SysfsFixture sysfs;
    const QStringList words{"--list", "--sysfs", QString::fromStdString(sysfs.root())};
    EXPECT_EQ(run(words).output, "No peripherals found\n");
    sysfs.add(sysfsMouse());
    SysfsEntry other = sysfsMouse("hid-02:00:5e:00:53:03-battery");
    other.hidId = "0005:0000046D:00000267";
    sysfs.add(other);

    const Outcome table = run(words);
    EXPECT_EQ(table.status, 0);
    EXPECT_EQ(table.output, "LEVEL  STATE  NAME\n  37%  ok     Mouse of Ann\n");
    EXPECT_EQ(table.errors, "");
    const QJsonObject json = parsed(run(words + QStringList("--json")).output);
    EXPECT_EQ(json.value("source"), QJsonValue("sysfs"));
    EXPECT_EQ(names(json), QStringList("Mouse of Ann"));
}

#endif

TEST_F(ListCommandTest, ADemonstrationShowsSimulatedPeripherals)
{
    writeFile(settings(), R"({"threshold": 50})");
    const Outcome outcome = run({"--list", "--json", "--demo"});
    const QJsonObject reading = parsed(outcome.output);

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(reading.value("source"), QJsonValue("tools"));
    EXPECT_EQ(reading.value("threshold"), QJsonValue(20)) << "the user's settings were used";
    EXPECT_EQ(names(reading), (QStringList{"Mouse of Ann", "Desk keyboard", "Magic Trackpad"}));
    EXPECT_EQ(readFile(settings()), R"({"threshold": 50})");
}

TEST_F(ListCommandTest, ADemonstrationWithoutItsToolsNamesThemInOneLine)
{
    namespace files = std::filesystem;
    files::copy_file(executable, directory / "voltmere");
    executable = directory / "voltmere";
    const files::path demo = directory / "share" / "voltmere" / "demo";
    const std::string rest = " in " + demo.string() + "; install the program again\n";

    for (const char* const action : {"--list", "--watch", "--diagnose", "--panel"}) {
        const Outcome outcome = run({"--demo", action});
        EXPECT_EQ(outcome.status, 1) << action;
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.errors, "voltmere: --demo needs ioreg and system_profiler" + rest);
    }
    EXPECT_EQ(run({"--demo", "--help"}).status, 0);
    EXPECT_EQ(run({"--demo", "--version"}).status, 0);
    writeProgram(demo / "ioreg", printing(""));
    EXPECT_EQ(run({"--demo", "--list"}).errors, "voltmere: --demo needs system_profiler" + rest);
}

TEST_F(ListCommandTest, WrongUsageIsExplainedOnStandardErrorAsPlainText)
{
    const std::map<QString, std::string> complaints{
        {"--bog\x1B[31mus", "Unknown option"},
        {"--json", "--json goes with --list."},
        {"wo\x1B[31mrd\u202E", "Unexpected argument 'wo"},
        {"--tools", "--tools needs a value."}};
    for (const auto& [word, complaint] : complaints) {
        const Outcome outcome = run({word});

        EXPECT_EQ(outcome.status, 2) << complaint;
        EXPECT_EQ(outcome.output, "") << complaint;
        EXPECT_THAT(outcome.errors, StartsWith("voltmere: " + complaint));
        EXPECT_THAT(outcome.errors, HasSubstr("\nUsage: ")) << complaint;
        EXPECT_THAT(outcome.errors, Not(HasSubstr("\x1B"))) << complaint;
        EXPECT_THAT(outcome.errors, Not(HasSubstr("\u202E"))) << complaint;
    }
}

TEST_F(ListCommandTest, HelpAndVersionAreAnswers)
{
    const Outcome help = run({"--help"});
    const Outcome version = run({"--version"});

    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.output, HasSubstr("--list"));
    EXPECT_EQ(help.errors, "");
    EXPECT_EQ(version.status, 0);
    EXPECT_THAT(version.output, testing::MatchesRegex("voltmere [0-9]+\\.[0-9]+\\.[0-9]+\n"));
    EXPECT_EQ(version.errors, "");
}

TEST_F(ListCommandTest, ADamagedSettingsFileIsLeftAloneAndTheDefaultsAreUsed)
{
    const std::string damaged = "{\"threshold\": 50, \"lang";
    makeTools();
    writeFile(settings(), damaged);
    const Outcome outcome = listWithTools({"--json"});

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(parsed(outcome.output).value("threshold"), QJsonValue(20));
    EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), 1) << outcome.errors;
    EXPECT_THAT(outcome.errors, HasSubstr(settings().string()));
    EXPECT_EQ(readFile(settings()), damaged);
    const QDir folder(QString::fromStdString(settings().parent_path()));
    EXPECT_EQ(folder.entryList(QDir::Files), QStringList("settings.json"));
}

#ifdef __linux__

TEST_F(ListCommandTest, OutputThatCannotBeWrittenIsAnErrorAndSaysSo)
{
    makeTools();
    const Outcome outcome = run(withTools({"--list"}), "/dev/full");

    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, testing::MatchesRegex("voltmere: [^\n]+\n"));
}

#endif

TEST_F(ListCommandTest, WithoutAHomeThereIsAReadingAllTheSame)
{
    makeTools();
    for (const char* const nowhere : {"", "/nonexistent/home", "relative"}) {
        SCOPED_TRACE(nowhere);
        variables = {{"HOME", nowhere}, {"XDG_CONFIG_HOME", nowhere}, {"XDG_RUNTIME_DIR", ""}};
        const Outcome outcome = listWithTools({"--json"});

        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(parsed(outcome.output)["devices"].toArray().size(), 3);
        EXPECT_EQ(parsed(outcome.output)["threshold"], 20);
    }
}

} // namespace
} // namespace voltmere
