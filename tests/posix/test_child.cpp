// The child of the process runner's tests. Its first argument says how it behaves.

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Arguments = std::vector<std::string>;

/// A child that is forgotten by a failing test ends by itself.
constexpr unsigned lifeOfAForgottenChild = 120;

void writeAll(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count <= 0) {
            ::_exit(99);
        }
        text.remove_prefix(static_cast<std::size_t>(count));
    }
}

/// A text of the given size in which each line tells its place.
std::string numberedLines(std::size_t size)
{
    std::string text;
    text.reserve(size + 24);
    while (text.size() < size) {
        text += std::to_string(text.size()) + '\n';
    }
    text.resize(size);
    return text;
}

[[noreturn]] void hang()
{
    ::alarm(lifeOfAForgottenChild);
    for (;;) {
        ::pause();
    }
}

/// Starts a child of its own that holds the FIFO at `path` open for ever. Returns once it does.
pid_t startHolder(const std::string& path)
{
    int ready[2];
    if (::pipe(ready) != 0) {
        ::_exit(98);
    }
    const pid_t pid = ::fork();
    if (pid == 0) {
        const int fifo = ::open(path.c_str(), O_WRONLY);
        writeAll(fifo, "held");
        writeAll(ready[1], "x");
        hang();
    }
    char byte = 0;
    if (::read(ready[0], &byte, 1) != 1) {
        ::_exit(97);
    }
    return pid;
}

void listArguments(const Arguments& arguments)
{
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        writeAll(STDOUT_FILENO, arguments[i] + '\0');
    }
}

void listDescriptors()
{
    DIR* const directory = ::opendir("/dev/fd");
    std::vector<int> descriptors;
    while (const dirent* entry = ::readdir(directory)) {
        const std::string name = entry->d_name;
        if (name.find_first_not_of("0123456789") == std::string::npos &&
            std::stoi(name) != ::dirfd(directory)) {
            descriptors.push_back(std::stoi(name));
        }
    }
    ::closedir(directory);
    std::sort(descriptors.begin(), descriptors.end());
    for (const int descriptor : descriptors) {
        writeAll(STDOUT_FILENO, std::to_string(descriptor) + ' ');
    }
}

void listSignals()
{
    sigset_t blocked;
    ::sigprocmask(SIG_BLOCK, nullptr, &blocked);
    for (int number = 1; number < 32; ++number) {
        struct sigaction action { };
        ::sigaction(number, nullptr, &action);
        if (action.sa_handler == SIG_IGN) {
            writeAll(STDOUT_FILENO, "ignored " + std::to_string(number) + '\n');
        }
        if (sigismember(&blocked, number) == 1) {
            writeAll(STDOUT_FILENO, "blocked " + std::to_string(number) + '\n');
        }
    }
    writeAll(STDOUT_FILENO, "end\n");
}

[[noreturn]] void dieBySignal()
{
    const rlimit noDump{0, 0};
    ::setrlimit(RLIMIT_CORE, &noDump);
    ::raise(SIGKILL);
    ::_exit(96);
}

/// Stays open until the other side of the FIFO is opened, then leaves a mark.
void closeOutputAndLiveOn(const std::string& fifo, const std::string& mark)
{
    ::close(STDOUT_FILENO);
    ::alarm(lifeOfAForgottenChild);
    ::close(::open(fifo.c_str(), O_RDONLY));
    ::close(::open(mark.c_str(), O_WRONLY | O_CREAT, 0600));
}

int behave(const Arguments& arguments)
{
    const std::string& mode = arguments.at(0);
    if (mode == "write") {
        writeAll(STDOUT_FILENO, numberedLines(std::stoul(arguments.at(1))));
    } else if (mode == "complain") {
        writeAll(STDERR_FILENO, numberedLines(std::stoul(arguments.at(1))));
        writeAll(STDOUT_FILENO, "done");
    } else if (mode == "exit") {
        writeAll(STDOUT_FILENO, arguments.at(2));
        return std::stoi(arguments.at(1));
    } else if (mode == "hang") {
        ::signal(SIGTERM, SIG_IGN);
        ::signal(SIGINT, SIG_IGN);
        ::signal(SIGHUP, SIG_IGN);
        writeAll(STDOUT_FILENO, "before\nand a part of");
        hang();
    } else if (mode == "hang-in-line") {
        writeAll(STDOUT_FILENO, "\"BatteryPercent\" = 10");
        writeAll(::open(arguments.at(1).c_str(), O_WRONLY), "written");
        hang();
    } else if (mode == "hang-with-child") {
        writeAll(STDOUT_FILENO, std::to_string(startHolder(arguments.at(1))) + '\n');
        hang();
    } else if (mode == "leave-child") {
        writeAll(STDOUT_FILENO, std::to_string(startHolder(arguments.at(1))));
    } else if (mode == "close-output") {
        writeAll(STDOUT_FILENO, "early");
        closeOutputAndLiveOn(arguments.at(1), arguments.at(2));
    } else if (mode == "die") {
        writeAll(STDOUT_FILENO, "last words");
        dieBySignal();
    } else if (mode == "arguments") {
        listArguments(arguments);
    } else if (mode == "descriptors") {
        listDescriptors();
    } else if (mode == "signals") {
        listSignals();
    } else if (mode == "group") {
        writeAll(STDOUT_FILENO, ::getpgrp() == ::getpid() ? "own" : "inherited");
    } else if (mode == "echo-input") {
        char buffer[256];
        const ssize_t count = ::read(STDIN_FILENO, buffer, sizeof buffer);
        writeAll(STDOUT_FILENO,
                 std::string_view(buffer, count > 0 ? static_cast<std::size_t>(count) : 0));
    } else if (mode == "environment") {
        const char* const value = std::getenv(arguments.at(1).c_str());
        writeAll(STDOUT_FILENO, value == nullptr ? "unset" : value);
    } else {
        return 95;
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    return behave(Arguments(argv + 1, argv + argc));
}
