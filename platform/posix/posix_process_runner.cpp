#include "platform/posix/posix_process_runner.h"

#include "platform/posix/child_process.h"
#include "platform/posix/pipe.h"
#include "platform/posix/spawn_flags.h"

#include <csignal>
#include <spawn.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <optional>

extern char** environ; // NOLINT(readability-redundant-declaration): not every system declares it

namespace voltmere {

namespace {

/// The file actions of a spawn: which of the child's descriptors are redirected.
class FileActions {
public:
    FileActions() { ::posix_spawn_file_actions_init(&actions); }
    ~FileActions() { ::posix_spawn_file_actions_destroy(&actions); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    void redirect(int target, const Pipe& pipe)
    {
        ::posix_spawn_file_actions_adddup2(&actions, pipe.writeEnd.get(), target);
    }

    void keep(int descriptor) { inheritDescriptor(actions, descriptor); }

    const posix_spawn_file_actions_t* get() const { return &actions; }

private:
    posix_spawn_file_actions_t actions{};
};

/// The attributes of a spawn: a process group of its own, and no signal blocked or ignored.
class SpawnAttributes {
public:
    SpawnAttributes()
    {
        ::posix_spawnattr_init(&attributes);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        ::posix_spawnattr_setsigmask(&attributes, &none);
        ::posix_spawnattr_setsigdefault(&attributes, &all);
        ::posix_spawnattr_setpgroup(&attributes, 0);
        constexpr int flags =
            POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
        ::posix_spawnattr_setflags(&attributes, static_cast<short>(flags | closeByDefaultFlag));
    }

    ~SpawnAttributes() { ::posix_spawnattr_destroy(&attributes); }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;

    const posix_spawnattr_t* get() const { return &attributes; }

private:
    posix_spawnattr_t attributes{};
};

std::optional<pid_t> spawn(const ProcessRequest& request, const FileActions& actions)
{
    // The interface takes the arguments as writable for old reasons only; it never writes to them.
    std::vector<char*> arguments{const_cast<char*>(request.executable.c_str())};
    for (const std::string& argument : request.arguments) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);

    const SpawnAttributes attributes;
    pid_t pid = 0;
    if (::posix_spawn(&pid, request.executable.c_str(), actions.get(), attributes.get(),
                      arguments.data(), environ) != 0) {
        return std::nullopt;
    }
    return pid;
}

/// What is in the pipe at this moment. Does not wait for anyone who still holds its write end.
std::string readAvailable(const Pipe& pipe)
{
    std::string output;
    std::array<char, 65536> buffer{};
    for (;;) {
        const ssize_t count = ::read(pipe.readEnd.get(), buffer.data(), buffer.size());
        if (count > 0) {
            output.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            return output;
        }
    }
}

} // namespace

std::string PosixProcessRunner::run(const ProcessRequest& request)
{
    std::optional<Pipe> output = openLargePipe();
    std::optional<Pipe> complaints;
    FileActions actions;
    if (!output) {
        return {};
    }
    actions.redirect(STDOUT_FILENO, *output);
    actions.keep(STDIN_FILENO);
    if (request.errorOutput == ProcessRequest::ErrorOutput::swallowed) {
        complaints = openLargePipe();
        if (!complaints) {
            return {};
        }
        actions.redirect(STDERR_FILENO, *complaints);
    } else {
        actions.keep(STDERR_FILENO);
    }

    const std::optional<pid_t> pid = spawn(request, actions);
    output->writeEnd.reset();
    if (!pid) {
        return {};
    }
    waitForChild(*pid, request.limit);
    return readAvailable(*output);
}

bool PosixProcessRunner::isExecutable(const std::string& path) const
{
    struct stat status { };
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
        ::access(path.c_str(), X_OK) == 0;
}

} // namespace voltmere
