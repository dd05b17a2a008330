#include "linux/ending_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace voltmere {

namespace {

constexpr std::array endingSignals{SIGTERM, SIGINT, SIGHUP};

/// A handler may do little more than write to a descriptor that it knows.
volatile std::sig_atomic_t wakeDescriptor = -1;

extern "C" void wakeEventLoop(int /*number*/)
{
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(wakeDescriptor, "", 1);
    errno = error;
}

void handle(void (*handler)(int), int flags)
{
    struct sigaction action { };
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    for (const int number : endingSignals) {
        struct sigaction present { };
        ::sigaction(number, nullptr, &present);
        // Who starts a program under nohup wants it to survive the terminal.
        if (present.sa_handler != SIG_IGN) {
            ::sigaction(number, &action, nullptr);
        }
    }
}

} // namespace

EndingSignals::EndingSignals(std::function<void()> end)
    : end(std::move(end))
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        return;
    }
    readEnd = FileDescriptor(ends[0]);
    writeEnd = FileDescriptor(ends[1]);
    for (const int descriptor : ends) {
        ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
        ::fcntl(descriptor, F_SETFL, O_NONBLOCK);
    }
    notifier.emplace(readEnd.get(), QSocketNotifier::Read);
    QObject::connect(&*notifier, &QSocketNotifier::activated, &*notifier, [this] {
        notifier->setEnabled(false);
        this->end();
    });
    wakeDescriptor = writeEnd.get();
    handle(&wakeEventLoop, static_cast<int>(SA_RESTART | SA_RESETHAND));
}

EndingSignals::~EndingSignals()
{
    if (notifier) {
        handle(SIG_DFL, 0);
    }
}

} // namespace voltmere
