// Runs the built program. The tools that it reads are synthetic.

#include "tests/app/program_fixture.h"
#include "tests/linux/fake_bus_service.h"
#include "tests/linux/private_bus.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QJsonArray>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace voltmere {
namespace {

using testing::IsEmpty;

/// The other end of the program's standard output, as the bar in front of it has it.
class Reader {
public:
    explicit Reader(const std::filesystem::path& path)
    {
        EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0) << path;
        descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        EXPECT_GE(descriptor, 0) << path;
    }

    ~Reader() { goAway(); }

    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    void goAway()
    {
        if (descriptor >= 0) {
            ::close(descriptor);
            descriptor = -1;
        }
    }

    std::string readLine()
    {
        std::string line;
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                char character = 0;
                while (!line.ends_with('\n') && ::read(descriptor, &character, 1) == 1) {
                    line += character;
                }
                return line.ends_with('\n');
            },
            60'000));
        return line;
    }

    /// What was printed beyond the lines that were read.
    std::string rest() const
    {
        std::string text(4096, '\0');
        text.resize(static_cast<std::size_t>(
            std::max<ssize_t>(0, ::read(descriptor, text.data(), text.size()))));
        return text;
    }

private:
    int descriptor = -1;
};

class WatchCommandTest : public ProgramTest {
protected:
    ~WatchCommandTest() override
    {
        watch.kill();
        watch.waitForFinished();
    }

    void startWatch(const QStringList& more = {})
    {
        watch.setStandardOutputFile(QString::fromStdString(output()));
        start(watch, withTools({"--watch"}) + more);
    }

    std::filesystem::path output() const { return directory / "output"; }

    std::string firstLine() { return reader.readLine(); }

    bool ends()
    {
        return QTest::qWaitFor([this] { return watch.state() == QProcess::NotRunning; }, 60'000);
    }

    Reader reader{output()};
    QProcess watch;
};

TEST_F(WatchCommandTest, PrintsOneJsonObjectAsTheListDoesAndOnceUntilItChanges)
{
    makeTools();
    startWatch();
    const std::string line = firstLine();

    EXPECT_EQ(line, run(withTools({"--list", "--json"})).output);
    EXPECT_EQ(parsed(line).value("status"), QJsonValue("Low battery: Mouse of Ann 14%"));
    EXPECT_EQ(parsed(line).value("devices").toArray().size(), 3);
    EXPECT_EQ(watch.state(), QProcess::Running);
    watch.terminate();
    EXPECT_TRUE(ends());
    EXPECT_EQ(reader.rest(), "") << "the same line again";
}

TEST_F(WatchCommandTest, WithoutPeripheralsThereIsALineAllTheSame)
{
    startWatch();

    EXPECT_EQ(parsed(firstLine()).value("devices"), QJsonValue(QJsonArray()));
}

TEST_F(WatchCommandTest, UsesTheUsersThresholdAndLanguage)
{
    makeTools();
    writeFile(settings(), R"({"threshold": 50, "language": "zh"})");
    startWatch();

    EXPECT_EQ(parsed(firstLine()).value("status"),
              QJsonValue("电量偏低：Mouse of Ann 14%、Magic Trackpad 45%"));
}

TEST_F(WatchCommandTest, ADamagedSettingsFileIsLeftAlone)
{
    makeTools();
    const std::string damaged = "{\"threshold\": 50, \"lang";
    writeFile(settings(), damaged);
    startWatch();

    EXPECT_EQ(parsed(firstLine()).value("threshold"), QJsonValue(20));
    EXPECT_EQ(readFile(settings()), damaged);
    EXPECT_EQ(watch.readAllStandardError().count("damaged"), 1);
}

TEST_F(WatchCommandTest, ForWaybarTheLineHasItsKeys)
{
    makeTools();
    startWatch({"--format", "waybar"});
    const QJsonObject line = parsed(firstLine());

    EXPECT_EQ(line.keys(), (QStringList{"alt", "class", "percentage", "text", "tooltip"}));
    EXPECT_EQ(line.value("text"), QJsonValue("14%"));
}

TEST_F(WatchCommandTest, EndsWhenNobodyReadsAnyMore)
{
    makeTools();
    startWatch();
    firstLine();
    reader.goAway();

    ASSERT_TRUE(ends());
    EXPECT_EQ(watch.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(watch.exitCode(), 0);
    EXPECT_EQ(watch.readAllStandardError().toStdString(), "");
}

TEST_F(WatchCommandTest, EndsAlsoWhileAToolHangs)
{
    const std::string itself = tools() / "ioreg";
    writeProgram(itself, "#!/bin/sh\nwhile [ -e '" + itself + "' ]; do sleep 0.05; done\n");
    startWatch();
    reader.goAway();

    ASSERT_TRUE(ends());
    EXPECT_EQ(watch.exitCode(), 0);
}

TEST_F(WatchCommandTest, ALineThatCannotBeWrittenEndsItWithAnError)
{
    makeTools();
    const Outcome outcome = run(withTools({"--watch"}), "/dev/full");

    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, testing::MatchesRegex("voltmere: [^\n]+\n"));
}

/// The timers of a process.
int timersOf(qint64 process)
{
    int count = 0;
    const std::string place = "/proc/" + std::to_string(process) + "/fdinfo";
    for (const auto& descriptor : std::filesystem::directory_iterator(place)) {
        count += readFile(descriptor.path()).find("clockid:") == std::string::npos ? 0 : 1;
    }
    return count;
}

TEST_F(WatchCommandTest, NeverAlerts)
{
    makeTools();
    PrivateBus bus;
    variables["DBUS_SESSION_BUS_ADDRESS"] = bus.busAddress().toStdString();
    FakeBusService daemon(bus.connect(), "/org/freedesktop/Notifications",
                          [](const QDBusMessage& call) { return call.createReply(1U); });
    daemon.appear("org.freedesktop.Notifications");
    startWatch();
    EXPECT_EQ(parsed(firstLine()).value("status"), QJsonValue("Low battery: Mouse of Ann 14%"));
    EXPECT_EQ(timersOf(watch.processId()), 1) << "it waits for more than the next check";
    reader.goAway();
    ASSERT_TRUE(ends());

    EXPECT_THAT(daemon.calls, IsEmpty());
    EXPECT_EQ(watch.readAllStandardError().toStdString(), "");
}

} // namespace
} // namespace voltmere
