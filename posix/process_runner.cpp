#include "posix/process_runner.h"

#include "posix/file_descriptor.h"

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iterator>
#include <system_error>
#include <thread>

extern char** environ; // NOLINT(readability-redundant-declaration): not every system declares it

namespace voltmere {

namespace {

/// Both ends of a pipe, closed on exec. The read end never blocks.
struct Pipe {
    FileDescriptor readEnd;
    FileDescriptor writeEnd;
};

#ifdef F_SETPIPE_SZ
bool openPipe(int (&ends)[2])
{
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        return false;
    }
    // 1 MiB is the kernel's default limit for users without privileges. Where an administrator
    // lowered it, the call fails and the pipe keeps its usual 64 KiB.
    ::fcntl(ends[1], F_SETPIPE_SZ, 1 << 20);
    return true;
}
#else
// POSIX_SPAWN_CLOEXEC_DEFAULT keeps the pipe from a child that another thread starts in between.
bool openPipe(int (&ends)[2])
{
    return ::pipe(ends) == 0 && ::fcntl(ends[0], F_SETFD, FD_CLOEXEC) == 0 &&
        ::fcntl(ends[1], F_SETFD, FD_CLOEXEC) == 0;
}
#endif

/// A pipe of 1 MiB on Linux, or of the usual size where that is refused; without ends if the system
/// refuses a pipe.
Pipe openLargePipe()
{
    int ends[2] = {-1, -1};
    const bool open = openPipe(ends);
    Pipe pipe{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
    if (!open || ::fcntl(ends[0], F_SETFL, O_NONBLOCK) != 0) {
        return {};
    }
    return pipe;
}

/// How a child is started: which of its descriptors are redirected, a process group of its own, and
/// no signal blocked or ignored. It gets the standard descriptors and no others.
class SpawnSettings {
public:
    SpawnSettings()
    {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawnattr_init(&attributes);
        sigset_t signals;
        sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&attributes, &signals);
        sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes, &signals);
        int flags = POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
#ifdef POSIX_SPAWN_CLOEXEC_DEFAULT
        flags |= POSIX_SPAWN_CLOEXEC_DEFAULT;
#endif
        ::posix_spawnattr_setflags(&attributes, static_cast<short>(flags));
    }

    ~SpawnSettings()
    {
        ::posix_spawnattr_destroy(&attributes);
        ::posix_spawn_file_actions_destroy(&actions);
    }

    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    void redirect(int descriptor, const Pipe& pipe)
    {
        ::posix_spawn_file_actions_adddup2(&actions, pipe.writeEnd.get(), descriptor);
    }

    void inherit([[maybe_unused]] int descriptor)
    {
#ifdef POSIX_SPAWN_CLOEXEC_DEFAULT
        ::posix_spawn_file_actions_addinherit_np(&actions, descriptor);
#endif
    }

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

/// A list of texts in the form of argv. The system never writes to the texts.
std::vector<char*> pointersTo(const std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    std::transform(texts.begin(), texts.end(), std::back_inserter(pointers),
                   [](const std::string& text) { return const_cast<char*>(text.c_str()); });
    pointers.push_back(nullptr);
    return pointers;
}

/// Waits until the child, the leader of its group, has exited, and reaps it. A child that is still
/// running after `limit` is killed with its group, and the result is false.
bool exitsWithin(std::chrono::milliseconds limit, pid_t pid)
{
    constexpr std::chrono::milliseconds interval(5);
    const auto deadline = std::chrono::steady_clock::now() + limit;
    for (;;) {
        if (::waitpid(pid, nullptr, WNOHANG) != 0) {
            return true;
        }
        if (std::chrono::steady_clock::now() >= deadline) {
            break;
        }
        std::this_thread::sleep_for(interval);
    }
    ::kill(-pid, SIGKILL);
    ::waitpid(pid, nullptr, 0);
    return false;
}

/// The present content of the pipe. Does not wait for a process that still holds the write end.
std::string readAvailable(const Pipe& pipe)
{
    std::string output;
    std::array<char, 65536> buffer{};
    ssize_t count = 0;
    while ((count = ::read(pipe.readEnd.get(), buffer.data(), buffer.size())) > 0) {
        output.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return output;
}

std::string wholeLines(std::string text)
{
    const std::size_t end = text.rfind('\n');
    text.resize(end == std::string::npos ? 0 : end);
    return text;
}

} // namespace

PosixProcessRunner::PosixProcessRunner(SystemLog& log)
    : log(log)
{
    for (char* const* variable = environ; *variable != nullptr; ++variable) {
        environment.emplace_back(*variable);
    }
}

std::string PosixProcessRunner::run(const ProcessRequest& request)
{
    const bool swallows = request.errorOutput == ProcessRequest::ErrorOutput::swallowed;
    const Pipe output = openLargePipe();
    if (!output.writeEnd) {
        reportFailure(request.executable, errno);
        return {};
    }
    const Pipe complaints = openLargePipe();
    SpawnSettings settings;
    settings.inherit(STDIN_FILENO);
    settings.redirect(STDOUT_FILENO, output);
    if (swallows) {
        settings.redirect(STDERR_FILENO, complaints);
    } else {
        settings.inherit(STDERR_FILENO);
    }

    std::vector<std::string> words{request.executable};
    words.insert(words.end(), request.arguments.begin(), request.arguments.end());
    pid_t pid{};
    const int error =
        ::posix_spawn(&pid, request.executable.c_str(), &settings.actions, &settings.attributes,
                      pointersTo(words).data(), pointersTo(environment).data());
    if (error != 0) {
        reportFailure(request.executable, error);
        return {};
    }
    const bool whole = exitsWithin(request.limit, pid);
    std::string text = readAvailable(output);
    return whole ? text : wholeLines(std::move(text));
}

void PosixProcessRunner::reportFailure(const std::string& executable, int error)
{
    const std::lock_guard lock(logGuard);
    log.report(executable + " cannot be started", std::generic_category().message(error));
}

bool PosixProcessRunner::isExecutable(const std::string& path) const
{
    struct stat status { };
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
        ::access(path.c_str(), X_OK) == 0;
}

} // namespace voltmere
