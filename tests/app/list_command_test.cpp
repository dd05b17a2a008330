// Runs the built program. The tools and the kernel's entries that it reads are synthetic.

#include "tests/app/program_fixture.h"
#include "tests/linux/sysfs_fixture.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QJsonArray>

#include <algorithm>

namespace voltmere {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ListCommandTest : public ProgramTest {
protected:
    Outcome listWithTools(const QStringList& more = {})
    {
        return run(QStringList{"--list", "--tools", QString::fromStdString(tools())} + more);
    }

    static QStringList names(const QJsonObject& reading)
    {
        QStringList names;
        for (const QJsonValue device : reading.value("devices").toArray()) {
            names.append(device.toObject().value("name").toString());
        }
        return names;
    }
};

TEST_F(ListCommandTest, PrintsATable)
{
    makeTools();
    const Outcome outcome = listWithTools();

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output,
              "LEVEL  STATE  NAME\n"
              "  14%  low    Mouse of Ann\n"
              " 100%  ok     Magic Keyboard 数字键盘版\n"
              "  45%  ok     Magic Trackpad\n");
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(ListCommandTest, PrintsTheSameTableInEveryLocale)
{
    makeTools();
    const std::string expected = listWithTools().output;

    for (const char* const other : {"C", "POSIX", "zh_CN.UTF-8", "no_such_locale"}) {
        locale = other;
        EXPECT_EQ(listWithTools().output, expected) << other;
    }
}

TEST_F(ListCommandTest, PrintsOneJsonObject)
{
    makeTools();
    const Outcome outcome = listWithTools({"--json"});
    const QJsonObject reading = parsed(outcome.output);

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(std::count(outcome.output.begin(), outcome.output.end(), '\n'), 1);
    EXPECT_EQ(outcome.output.back(), '\n');
    EXPECT_EQ(reading.value("source"), QJsonValue("tools"));
    EXPECT_EQ(reading.value("threshold"), QJsonValue(20));
    EXPECT_EQ(reading.value("status"), QJsonValue("Low battery: Mouse of Ann 14%"));
    EXPECT_EQ(names(reading),
              (QStringList{"Mouse of Ann", "Magic Keyboard 数字键盘版", "Magic Trackpad"}));
    EXPECT_EQ(reading.value("devices").toArray().at(0),
              QJsonValue(QJsonObject{{"id", 803},
                                     {"name", "Mouse of Ann"},
                                     {"level", 14},
                                     {"symbol", "magicmouse"},
                                     {"order", 0},
                                     {"low", true}}));
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

TEST_F(ListCommandTest, UsesTheUsersThresholdAndLanguage)
{
    makeTools();
    writeFile(settings(), R"({"threshold": 50, "language": "zh"})");
    const QJsonObject reading = parsed(listWithTools({"--json"}).output);

    EXPECT_EQ(reading.value("threshold"), QJsonValue(50));
    EXPECT_EQ(reading.value("status"),
              QJsonValue("电量偏低：Mouse of Ann 14%、Magic Trackpad 45%"));
}

TEST_F(ListCommandTest, TheLanguageOfTheEnvironmentIsTheStatuss)
{
    makeTools();
    locale = "zh_CN.UTF-8";

    EXPECT_EQ(parsed(listWithTools({"--json"}).output).value("status"),
              QJsonValue("电量偏低：Mouse of Ann 14%"));
}

TEST_F(ListCommandTest, LeavesNothingBehind)
{
    makeTools();

    EXPECT_EQ(listWithTools().status, 0);

    EXPECT_FALSE(std::filesystem::exists(configuration()));
    EXPECT_TRUE(std::filesystem::is_empty(home()));
}

TEST_F(ListCommandTest, AnEmptyToolsDirectoryIsAnEmptyListWithoutFallback)
{
    std::filesystem::create_directories(tools());
    const Outcome table = listWithTools();
    const Outcome json = listWithTools({"--json"});

    EXPECT_EQ(table.status, 0);
    EXPECT_EQ(table.output, "No peripherals found\n");
    EXPECT_THAT(table.errors, HasSubstr("ioreg cannot be started (No such file or directory)\n"));
    EXPECT_EQ(json.status, 0);
    EXPECT_EQ(parsed(json.output).value("source"), QJsonValue("tools"));
    EXPECT_EQ(parsed(json.output).value("devices"), QJsonValue(QJsonArray()));
    EXPECT_EQ(parsed(json.output).value("status"), QJsonValue("No peripherals found"));
}

TEST_F(ListCommandTest, AMissingToolsDirectoryIsAnEmptyList)
{
    const Outcome outcome = listWithTools();

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "No peripherals found\n");
}

TEST_F(ListCommandTest, WithoutTheProfilerTheCatalogueNamesTheDevices)
{
    makeTools();
    std::filesystem::remove(tools() / "system_profiler");

    EXPECT_EQ(names(parsed(listWithTools({"--json"}).output)).first(), "Magic Mouse");
}

TEST_F(ListCommandTest, AToolThatFailsIsReadAllTheSame)
{
    makeTools();
    writeProgram(tools() / "ioreg",
                 printing(registryEntry(803, 14, "x")) + "echo complaint >&2\nexit 3\n");
    const Outcome outcome = listWithTools();

    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("  14%  low    Magic Mouse\n"));
    EXPECT_EQ(outcome.errors, "complaint\n");
}

TEST_F(ListCommandTest, TheProfilersComplaintsAreSwallowed)
{
    makeTools();
    writeProgram(tools() / "system_profiler", "#!/bin/sh\necho complaint >&2\n");

    EXPECT_EQ(listWithTools().errors, "");
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
    sysfs.add({.name = "hid-02:00:5e:00:53:01-battery",
               .capacity = "9\n",
               .hidId = "0005:0000004C:00000269",
               .hidName = "Ann\u2019s #1 mouse",
               .hidUniq = "02:00:5e:00:53:01"});
    sysfs.add({.name = "hid-02:00:5e:00:53:02-battery-144",
               .capacity = "80\n",
               .hidId = "0005:0000004C:00000267",
               .hidName = "Desk",
               .hidUniq = "02:00:5e:00:53:02"});
    sysfs.add({.name = "hid-02:00:5e:00:53:03-battery",
               .capacity = "80\n",
               .hidId = "0005:0000046D:00000267",
               .hidName = "Other",
               .hidUniq = "02:00:5e:00:53:03"});
    const QString root = QString::fromStdString(sysfs.root());

    const Outcome table = run({"--list", "--sysfs", root});
    const Outcome json = run({"--list", "--json", "--sysfs", root});

    EXPECT_EQ(table.status, 0);
    EXPECT_EQ(table.output,
              "LEVEL  STATE  NAME\n"
              "   9%  low    Ann\u2019s #1 mouse\n"
              "  80%  ok     Desk\n");
    EXPECT_EQ(table.errors, "");
    EXPECT_EQ(json.status, 0);
    EXPECT_EQ(parsed(json.output).value("source"), QJsonValue("sysfs"));
    EXPECT_EQ(names(parsed(json.output)), (QStringList{"Ann\u2019s #1 mouse", "Desk"}));
}

TEST_F(ListCommandTest, AnEmptySysfsTreeIsAnEmptyList)
{
    const SysfsFixture sysfs;
    const Outcome outcome =
        run({"--list", "--json", "--sysfs", QString::fromStdString(sysfs.root())});

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(parsed(outcome.output).value("source"), QJsonValue("sysfs"));
    EXPECT_EQ(parsed(outcome.output).value("devices"), QJsonValue(QJsonArray()));
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

TEST_F(ListCommandTest, WrongUsageIsExplainedOnStandardError)
{
    for (const QStringList& words :
         {QStringList{"--bogus"}, QStringList{"--json"}, QStringList{"word"},
          QStringList{"--tools"}, QStringList{"--list", "--sysfs="},
          QStringList{"--list", "--demo", "--tools", "x"}}) {
        const Outcome outcome = run(words);
        const std::string joined = words.join(' ').toStdString();

        EXPECT_EQ(outcome.status, 2) << joined;
        EXPECT_EQ(outcome.output, "") << joined;
        EXPECT_THAT(outcome.errors, StartsWith("voltmere: ")) << joined;
        EXPECT_THAT(outcome.errors, HasSubstr("Usage: ")) << joined;
        EXPECT_THAT(outcome.errors, HasSubstr("--list")) << joined;
    }
}

TEST_F(ListCommandTest, ErrorTextsArePlain)
{
    const Outcome positional = run({"--list", "wo\x1B[31mrd\u202E"});
    const Outcome option = run({"--bog\x1B[31mus"});

    EXPECT_EQ(positional.status, 2);
    EXPECT_THAT(positional.errors, StartsWith("voltmere: Unexpected argument 'wo"));
    EXPECT_THAT(positional.errors, Not(HasSubstr("\x1B")));
    EXPECT_THAT(positional.errors, Not(HasSubstr("\u202E")));
    EXPECT_EQ(option.status, 2);
    EXPECT_THAT(option.errors, Not(HasSubstr("\x1B")));
    EXPECT_THAT(option.errors, Not(HasSubstr("<html")));
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
    const Outcome outcome =
        run({"--list", "--tools", QString::fromStdString(tools())}, "/dev/full");

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
        const Outcome outcome =
            run({"--list", "--json", "--tools", QString::fromStdString(tools())});

        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(parsed(outcome.output)["devices"].toArray().size(), 3);
        EXPECT_EQ(parsed(outcome.output)["threshold"], 20);
    }
}

} // namespace
} // namespace voltmere
