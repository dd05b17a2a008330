#include "posix/process_runner.h"

#include "posix/file_descriptor.h"
#include "tests/fakes/recording_log.h"
#include "tests/posix/temporary_directory.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <functional>
#include <thread>

namespace voltmere {
namespace {

using namespace std::chrono_literals;
using ErrorOutput = ProcessRequest::ErrorOutput;

constexpr const char* testChild = VOLTMERE_TEST_CHILD;
constexpr std::size_t kibibyte = 1024;

/// Long enough for anything that ends by itself, however busy the machine is.
constexpr auto generousLimit = 60s;

std::string numberedLines(std::size_t size)
{
    std::string text;
    while (text.size() < size) {
        text += std::to_string(text.size()) + '\n';
    }
    text.resize(size);
    return text;
}

ProcessRequest request(std::vector<std::string> arguments,
                       ErrorOutput errorOutput = ErrorOutput::inherited)
{
    return {.executable = testChild,
            .arguments = std::move(arguments),
            .errorOutput = errorOutput,
            .limit = generousLimit};
}

ProcessRequest requestOf(const std::string& executable)
{
    ProcessRequest made = request({}, ErrorOutput::swallowed);
    made.executable = executable;
    return made;
}

std::size_t openDescriptors()
{
    const std::filesystem::directory_iterator descriptors("/dev/fd");
    return static_cast<std::size_t>(std::distance(begin(descriptors), end(descriptors)));
}

TEST(FileDescriptorTest, NumberZeroIsClosedLikeAnyOther)
{
    const int saved = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 3);
    EXPECT_TRUE(FileDescriptor(STDIN_FILENO));
    EXPECT_EQ(::fcntl(STDIN_FILENO, F_GETFD), -1);
    ::dup2(saved, STDIN_FILENO);
    ::close(saved);
}

/// A FIFO that tells whether another process still holds its write end.
class LifeLine {
public:
    explicit LifeLine(const std::filesystem::path& path)
        : name(path)
    {
        EXPECT_EQ(::mkfifo(name.c_str(), 0600), 0);
        readEnd = FileDescriptor(::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
        EXPECT_TRUE(readEnd);
    }

    const std::string& path() const { return name; }

    /// Takes what was written into it.
    std::string take()
    {
        std::string text(64, '\0');
        const ssize_t count = ::read(readEnd.get(), text.data(), text.size());
        text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return text;
    }

    bool isHeld() { return !isLetGoWithin(0ms); }

    /// Waits until nobody holds the write end.
    bool isLetGoWithin(std::chrono::milliseconds limit)
    {
        pollfd poll{readEnd.get(), 0, 0};
        return ::poll(&poll, 1, static_cast<int>(limit.count())) == 1 &&
            (poll.revents & POLLHUP) != 0;
    }

private:
    std::string name;
    FileDescriptor readEnd;
};

/// Puts a file in place of one of this process's own descriptors.
class RedirectedDescriptor {
public:
    RedirectedDescriptor(int descriptor, const std::filesystem::path& path, int flags)
        : descriptor(descriptor)
        , saved(::fcntl(descriptor, F_DUPFD_CLOEXEC, 3))
    {
        const FileDescriptor file(::open(path.c_str(), flags | O_CLOEXEC, 0600));
        EXPECT_TRUE(file) << path;
        ::dup2(file.get(), descriptor);
    }

    ~RedirectedDescriptor() { ::dup2(saved.get(), descriptor); }

    RedirectedDescriptor(const RedirectedDescriptor&) = delete;
    RedirectedDescriptor& operator=(const RedirectedDescriptor&) = delete;

private:
    int descriptor;
    FileDescriptor saved;
};

/// Ignores a signal meanwhile.
class IgnoredSignal {
public:
    explicit IgnoredSignal(int number)
        : number(number)
        , previous(std::signal(number, SIG_IGN))
    {
    }

    ~IgnoredSignal() { std::signal(number, previous); }

    IgnoredSignal(const IgnoredSignal&) = delete;
    IgnoredSignal& operator=(const IgnoredSignal&) = delete;

private:
    int number;
    void (*previous)(int);
};

class PosixProcessRunnerTest : public testing::Test {
protected:
    /// What this process itself was handed at its start is not the runner's to close.
    static void SetUpTestSuite()
    {
        std::vector<int> descriptors;
        for (const auto& entry : std::filesystem::directory_iterator("/dev/fd")) {
            descriptors.push_back(std::stoi(entry.path().filename().string()));
        }
        for (const int descriptor : descriptors) {
            if (descriptor > STDERR_FILENO) {
                ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
            }
        }
    }

    void TearDown() override
    {
        errno = 0;
        EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a child was left behind";
        EXPECT_EQ(errno, ECHILD);
    }

    /// What a child wrote that was ended at its limit. The limit grows until `isEnough`: how long
    /// that takes is the machine's affair.
    std::string outputOfEnded(const std::vector<std::string>& arguments,
                              const std::function<bool(const std::string&)>& isEnough)
    {
        std::string output;
        ProcessRequest ended = request(arguments);
        ended.limit = 250ms;
        do {
            output = runner.run(ended);
            ended.limit *= 2;
        } while (!isEnough(output) && ended.limit < generousLimit);
        return output;
    }

    std::string outputOfEnded(const std::vector<std::string>& arguments, std::size_t enough = 1)
    {
        return outputOfEnded(arguments,
                             [enough](const std::string& text) { return text.size() >= enough; });
    }

    TemporaryDirectory directory;
    RecordingLog log;
    PosixProcessRunner runner{log};
};

TEST_F(PosixProcessRunnerTest, ReturnsWhatTheChildWroteHoweverItEnded)
{
    EXPECT_EQ(runner.run(request({"exit", "0", "hello\n"})), "hello\n");
    EXPECT_EQ(runner.run(request({"exit", "0", ""})), "");
    EXPECT_EQ(runner.run(request({"exit", "3", "all the same"})), "all the same");
    EXPECT_EQ(runner.run(request({"die"})), "last words");
    errno = EINTR; // of before
    EXPECT_EQ(runner.run(request({"exit", "0", "hello\n"})), "hello\n");
}

TEST_F(PosixProcessRunnerTest, HoldsNineHundredKibibytesOfOutputAndOfSwallowedComplaints)
{
    const std::string size = std::to_string(900 * kibibyte);

    EXPECT_TRUE(runner.run(request({"write", size})) == numberedLines(900 * kibibyte));
    EXPECT_EQ(runner.run(request({"complain", size}, ErrorOutput::swallowed)), "done");
}

TEST_F(PosixProcessRunnerTest, OnlyInheritedComplaintsReachOurOwnErrorOutput)
{
    const auto errors = directory / "errors";
    {
        const RedirectedDescriptor redirected(STDERR_FILENO, errors, O_WRONLY | O_CREAT);
        EXPECT_EQ(runner.run(request({"complain", "50"}, ErrorOutput::swallowed)), "done");
        EXPECT_EQ(runner.run(request({"complain", "100"})), "done");
    }
    EXPECT_EQ(readFile(errors), numberedLines(100));
}

TEST_F(PosixProcessRunnerTest, TheChildReadsOurOwnInput)
{
    writeFile(directory / "input", "from the parent");
    const RedirectedDescriptor redirected(STDIN_FILENO, directory / "input", O_RDONLY);

    EXPECT_EQ(runner.run(request({"echo-input"})), "from the parent");
}

TEST_F(PosixProcessRunnerTest, AChildThatWritesMoreThanThePipeHoldsIsEndedAtTheLimit)
{
    const std::size_t size = 4096 * kibibyte;

    const std::string output = outputOfEnded({"write", std::to_string(size)}, 64 * kibibyte);

    EXPECT_GE(output.size(), 64 * kibibyte);
    EXPECT_LT(output.size(), size);
    EXPECT_TRUE(output == numberedLines(output.size()));
    EXPECT_TRUE((output + '\n') == numberedLines(output.size() + 1)) << "the last line is cut";
}

TEST_F(PosixProcessRunnerTest, OfAChildThatNeverExitsTheWholeLinesUntilTheLimitCount)
{
    EXPECT_EQ(outputOfEnded({"hang"}), "before");
}

TEST_F(PosixProcessRunnerTest, OfATextThatTheLimitCutInItsFirstLineNothingCounts)
{
    LifeLine lifeLine(directory / "fifo");

    std::string held;
    const std::string output =
        outputOfEnded({"hang-in-line", lifeLine.path()}, [&](const std::string&) {
            held = lifeLine.take();
            return !held.empty();
        });

    EXPECT_EQ(held, "written");
    EXPECT_EQ(output, "");
}

TEST_F(PosixProcessRunnerTest, TheChildsOwnChildIsEndedWithIt)
{
    LifeLine lifeLine(directory / "fifo");

    const std::string output = outputOfEnded({"hang-with-child", lifeLine.path()});

    EXPECT_THAT(lifeLine.take(), testing::EndsWith("held"));
    EXPECT_THAT(output, testing::MatchesRegex("[0-9]+"));
    EXPECT_TRUE(lifeLine.isLetGoWithin(10s));
}

TEST_F(PosixProcessRunnerTest, WaitingForAChildTakesNextToNoProcessorTime)
{
    const auto began = std::chrono::steady_clock::now();
    const std::clock_t used = std::clock();
    outputOfEnded({"hang"});
    const std::chrono::duration<double> lasted = std::chrono::steady_clock::now() - began;

    EXPECT_LT(static_cast<double>(std::clock() - used) / CLOCKS_PER_SEC, lasted.count() / 4);
}

TEST_F(PosixProcessRunnerTest, AChildThatClosedItsOutputIsWaitedForAllTheSame)
{
    const std::string fifo = directory / "fifo";
    const auto mark = directory / "mark";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::thread opener([&fifo] { ::close(::open(fifo.c_str(), O_WRONLY | O_CLOEXEC)); });

    EXPECT_EQ(runner.run(request({"close-output", fifo, mark})), "early");

    EXPECT_TRUE(std::filesystem::exists(mark));
    opener.join();
}

TEST_F(PosixProcessRunnerTest, AGrandchildThatHoldsThePipeHoldsNobodyUp)
{
    LifeLine lifeLine(directory / "fifo");

    const std::string output = runner.run(request({"leave-child", lifeLine.path()}));

    EXPECT_EQ(lifeLine.take(), "held");
    EXPECT_TRUE(lifeLine.isHeld());
    ASSERT_THAT(output, testing::MatchesRegex("[0-9]+"));
    EXPECT_EQ(::kill(std::stoi(output), SIGKILL), 0);
    EXPECT_TRUE(lifeLine.isLetGoWithin(10s));
}

TEST_F(PosixProcessRunnerTest, WhatCannotBeStartedWroteNothing)
{
    writeFile(directory / "plain", "#!/bin/sh\necho started\n");
    writeProgram(directory / "no-format", "echo started\n");
    writeProgram(directory / "no-interpreter", "#!/nonexistent/interpreter\n");

    for (const char* const name : {"missing", "plain", "no-format", "no-interpreter", "."}) {
        EXPECT_EQ(runner.run(requestOf(directory / name)), "") << name;
    }
    for (const char* const searched : {"", "echo"}) {
        EXPECT_EQ(runner.run(requestOf(searched)), "") << searched;
    }
}

TEST_F(PosixProcessRunnerTest, AProgramThatCannotBeStartedLeavesOneLineInTheLog)
{
    const std::string missing = directory / "missing";
    runner.run(requestOf(missing));
    runner.run(requestOf(missing));
    runner.run(requestOf(directory.path()));

    EXPECT_THAT(log.lines,
                testing::ElementsAre("Voltmere: " + missing +
                                         " cannot be started (No such file or directory)",
                                     testing::HasSubstr("(Permission denied)")));
}

TEST_F(PosixProcessRunnerTest, ArgumentsArriveAsTheyAre)
{
    const std::vector<std::string> arguments{
        "two words",       "'single' \"double\"", "",        "$HOME `id` $(id) ; | & > <",
        "back\\slash *?~", "line\nfeed\ttab",     "数字键盘"};
    std::string expected;
    for (const std::string& argument : arguments) {
        expected += argument + '\0';
    }
    std::vector<std::string> words{"arguments"};
    words.insert(words.end(), arguments.begin(), arguments.end());

    EXPECT_EQ(runner.run(request(words)), expected);
}

TEST_F(PosixProcessRunnerTest, TheChildHasTheEnvironmentThatWasThereAtFirst)
{
    const ProcessRequest ask = request({"environment", "VOLTMERE_TEST_VARIABLE"});
    ::setenv("VOLTMERE_TEST_VARIABLE", "handed down", 1);
    PosixProcessRunner later(log);
    ::unsetenv("VOLTMERE_TEST_VARIABLE");

    EXPECT_EQ(runner.run(ask), "unset");
    EXPECT_EQ(later.run(ask), "handed down");
}

TEST_F(PosixProcessRunnerTest, ToolsStartWhileTheMainThreadChangesTheEnvironment)
{
    std::atomic<bool> ended = false;
    std::thread readings([&] {
        for (int i = 0; i < 50; ++i) {
            EXPECT_EQ(runner.run(request({"exit", "0", "hello"})), "hello");
        }
        ended = true;
    });
    for (int i = 0; !ended; ++i) {
        ::setenv("VOLTMERE_TEST_VARIABLE", std::string(std::size_t(i % 100), 'x').c_str(), 1);
        ::unsetenv("VOLTMERE_TEST_VARIABLE");
    }
    readings.join();
}

TEST_F(PosixProcessRunnerTest, TheChildHasAGroupOfItsOwnAndTheStandardDescriptorsOnly)
{
    EXPECT_EQ(runner.run(request({"group"})), "own");
    EXPECT_EQ(runner.run(request({"descriptors"})), "0 1 2 ");
    EXPECT_EQ(runner.run(request({"descriptors"}, ErrorOutput::swallowed)), "0 1 2 ");
}

TEST_F(PosixProcessRunnerTest, TheChildStartsWithDefaultSignals)
{
    const IgnoredSignal pipe(SIGPIPE);
    const IgnoredSignal hangup(SIGHUP);
    sigset_t blocked;
    sigset_t previous;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigaddset(&blocked, SIGCHLD);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &previous);

    const std::string output = runner.run(request({"signals"}));
    ::pthread_sigmask(SIG_SETMASK, &previous, nullptr);

    EXPECT_EQ(output, "end\n");
}

TEST_F(PosixProcessRunnerTest, WorksWhereTheParentIgnoresItsChildren)
{
    const IgnoredSignal children(SIGCHLD);

    EXPECT_EQ(runner.run(request({"write", "1000"})), numberedLines(1000));
    EXPECT_EQ(outputOfEnded({"hang"}), "before");
}

TEST_F(PosixProcessRunnerTest, LeavesNoDescriptorOpen)
{
    const std::size_t before = openDescriptors();

    EXPECT_EQ(runner.run(requestOf(directory / "missing")), "");
    EXPECT_EQ(runner.run(request({"complain", "10"}, ErrorOutput::swallowed)), "done");
    EXPECT_EQ(outputOfEnded({"hang"}), "before");

    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(PosixProcessRunnerTest, ManyThreadsGetTheirOwnOutput)
{
    std::vector<std::string> outputs(8);
    std::vector<std::string> descriptors(outputs.size());
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        threads.emplace_back([this, i, &outputs, &descriptors] {
            outputs[i] = runner.run(request({"write", std::to_string(i * 10000)}));
            descriptors[i] = runner.run(request({"descriptors"}));
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        EXPECT_TRUE(outputs[i] == numberedLines(i * 10000)) << i;
        EXPECT_EQ(descriptors[i], "0 1 2 ");
    }
}

TEST_F(PosixProcessRunnerTest, AnExecutableIsARegularFileThatMayBeRun)
{
    writeProgram(directory / "program", "#!/bin/sh\n");
    writeFile(directory / "plain", "text\n");
    std::filesystem::create_symlink(directory / "program", directory / "link");
    std::filesystem::create_symlink(directory / "gone", directory / "dangling");
    ASSERT_EQ(::mkfifo((directory / "fifo").c_str(), 0700), 0);

    EXPECT_TRUE(runner.isExecutable(directory / "program"));
    EXPECT_TRUE(runner.isExecutable(directory / "link"));
    for (const char* const name : {"plain", "missing", "dangling", "fifo", ".", "program/below"}) {
        EXPECT_FALSE(runner.isExecutable(directory / name)) << name;
    }
    EXPECT_FALSE(runner.isExecutable(""));
}

} // namespace
} // namespace voltmere
