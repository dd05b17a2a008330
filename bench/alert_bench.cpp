// How long the snooze alert takes from the request to its first painted frame, beside an empty
// message box in the same run, and what it leaves behind once it is closed.
//
//   alert_bench                          both times and their ratio, in a warm process
//   alert_bench --first alert            the time of the first window of a process: run it several
//   alert_bench --first message-box      times each, since every run is a process of its own
//   alert_bench --memory                 memory and timers after many alerts
//
// Draws on Qt's offscreen platform unless QT_QPA_PLATFORM says something else. There is no window
// system there, which is most of what a message box costs: compare the two on a desktop
// (QT_QPA_PLATFORM=xcb).

#include "bench/paint_watch.h"
#include "fakes/fake_appearance.h"
#include "linux/run_loop.h"
#include "linux/ui/alert.h"
#include "linux/ui/front_end.h"
#include "snooze/snooze_alert.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMessageBox>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace voltmere {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

/// Does what is left to do after a window was closed.
void finishClosing()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// Shows snooze alerts as the program does, and measures them.
class AlertStage {
public:
    Milliseconds show()
    {
        PaintWatch watch;
        const auto begin = std::chrono::steady_clock::now();
        const BatteryDevice mouse{803, "Magic Mouse", 12, "magicmouse", 0};
        const auto alert = presenter.present(makeAlertContent({mouse}, true, {15, 35}), {});
        watch.wait();
        return std::chrono::steady_clock::now() - begin;
    }

private:
    FakeAppearance appearance;
    QtPointer pointer;
    QtRunLoop runLoop;
    SnoozeAlertPresenter presenter{appearance, pointer, runLoop};
};

Milliseconds showAlert()
{
    static AlertStage stage;
    return stage.show();
}

Milliseconds showMessageBox()
{
    PaintWatch watch;
    const auto begin = std::chrono::steady_clock::now();
    QMessageBox box;
    box.show();
    watch.wait();
    return std::chrono::steady_clock::now() - begin;
}

void measure(benchmark::State& state, Milliseconds (*show)())
{
    for ([[maybe_unused]] auto iteration : state) {
        state.SetIterationTime(std::chrono::duration<double>(show()).count());
        finishClosing();
    }
}

void alertUntilPainted(benchmark::State& state)
{
    measure(state, showAlert);
}

void emptyMessageBoxUntilPainted(benchmark::State& state)
{
    measure(state, showMessageBox);
}

BENCHMARK(emptyMessageBoxUntilPainted)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(alertUntilPainted)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Prints how the two compare below what each took.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    RatioReporter()
        : ConsoleReporter(OO_Tabular)
    {
    }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            times[run.run_name.function_name] = run.GetAdjustedRealTime();
        }
    }

    void Finalize() override
    {
        if (times.size() == 2) {
            std::printf("ratio of the snooze alert to the message box: %.2f\n",
                        times.at("alertUntilPainted") / times.at("emptyMessageBoxUntilPainted"));
        }
        ConsoleReporter::Finalize();
    }

private:
    std::map<std::string, double> times;
};

int runBenchmarks(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return EXIT_FAILURE;
    }
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return EXIT_SUCCESS;
}

int printFirst(const std::string& window)
{
    if (window != "alert" && window != "message-box") {
        std::fprintf(stderr, "alert_bench: --first takes alert or message-box\n");
        return EXIT_FAILURE;
    }
    std::printf("%.2f ms\n", (window == "alert" ? showAlert() : showMessageBox()).count());
    return EXIT_SUCCESS;
}

/// The process's private dirty memory, in KiB.
long privateDirty()
{
    std::ifstream file("/proc/self/smaps_rollup");
    std::string line;
    while (std::getline(file, line)) {
        if (line.starts_with("Private_Dirty:")) {
            return std::stol(line.substr(line.find_first_of("0123456789")));
        }
    }
    return 0;
}

/// How many of the process's open files are timers.
int timerCount()
{
    int count = 0;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        const std::filesystem::path target = std::filesystem::read_symlink(entry, ignored);
        count += target == "anon_inode:[timerfd]" ? 1 : 0;
    }
    return count;
}

/// Fails when a hundred alerts leave more behind than three do.
int printMemory()
{
    constexpr int warmUp = 3;
    constexpr int rounds = 100;
    constexpr long allowedGrowth = 512; // KiB
    const int timersBefore = timerCount();
    long afterWarmUp = 0;
    for (int round = 1; round <= rounds; ++round) {
        showAlert();
        finishClosing();
        if (round == warmUp) {
            afterWarmUp = privateDirty();
        }
    }
    const long growth = privateDirty() - afterWarmUp;
    const int timers = timerCount() - timersBefore;
    std::printf("private dirty after %d: %ld KiB, after %d: %+ld KiB; timers left: %d; "
                "windows left: %d\n",
                warmUp, afterWarmUp, rounds, growth, timers,
                static_cast<int>(QApplication::topLevelWidgets().size()));
    return growth <= allowedGrowth && timers == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace
} // namespace voltmere

int main(int argc, char** argv)
{
    qputenv("QT_LOGGING_RULES", "default.warning=false"); // offscreen windows cannot be raised
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "--memory") {
        return voltmere::printMemory();
    }
    if (mode == "--first") {
        return voltmere::printFirst(argc > 2 ? argv[2] : "");
    }
    return voltmere::runBenchmarks(argc, argv);
}
