// How long the panel takes from the click to its first painted frame, and how long the pictures of
// the tray and the menu bar take to draw.
//
//   panel_bench            times in a warm process
//   panel_bench --first    the time of the first click in a process: run it several times, since
//                          every run is a process of its own
//
// Draws on Qt's offscreen platform unless QT_QPA_PLATFORM says something else.

#include "bench/paint_watch.h"
#include "fakes/fake_appearance.h"
#include "fakes/model_world.h"
#include "fakes/sample_devices.h"
#include "linux/ui/icon.h"
#include "linux/ui/panel.h"
#include "linux/ui/panel_controller.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace voltmere {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::int64_t threshold = 20;

std::vector<BatteryDevice> sampleDevices()
{
    return {mouse(76), keyboard(58), trackpad(14)};
}

/// The panel over a model that has read three peripherals.
class PanelStage {
public:
    PanelStage()
    {
        for (const BatteryDevice& device : sampleDevices()) {
            levels.emplace_back(device.id, device.level);
        }
        world.setLevels(levels);
        world.start();
        world.runLoop.settle();
    }

    /// Clicks the icon of a tray in the upper right corner.
    Milliseconds clickUntilPainted()
    {
        PaintWatch watch;
        const auto begin = std::chrono::steady_clock::now();
        panel.open(QRect(700, 0, 22, 22));
        watch.wait();
        return std::chrono::steady_clock::now() - begin;
    }

    /// Closes the panel, and does what is left to do after that.
    void close()
    {
        panel.toggle(QRect());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        world.runLoop.settle();
        QCoreApplication::processEvents();
    }

private:
    ModelWorld world;
    FakeAppearance appearance;
    std::vector<std::pair<std::int64_t, std::int64_t>> levels;
    PanelController panel{
        [this] { return std::make_unique<ContentView>(*world.model, appearance, [] {}); }};
};

void clickUntilPanelPainted(benchmark::State& state)
{
    PanelStage stage;
    for ([[maybe_unused]] auto iteration : state) {
        state.SetIterationTime(std::chrono::duration<double>(stage.clickUntilPainted()).count());
        stage.close();
    }
}

/// All the sizes that a tray is offered.
void trayIcon(benchmark::State& state)
{
    const std::vector<BatteryDevice> devices = sampleDevices();
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(makeTrayIcon(iconLevel(devices, threshold)));
    }
}

/// One size, in pixels.
void trayPicture(benchmark::State& state)
{
    const std::vector<BatteryDevice> devices = sampleDevices();
    const auto side = static_cast<int>(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(trayImage(iconLevel(devices, threshold), side));
    }
}

/// At so many pixels to a point.
void menuBarImage(benchmark::State& state)
{
    const std::vector<BatteryDevice> devices = sampleDevices();
    const auto density = static_cast<qreal>(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(
            StatusImage::make(devices, threshold, ColourScheme::light).rendered(density));
    }
}

BENCHMARK(clickUntilPanelPainted)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(trayIcon)->Unit(benchmark::kMillisecond);
BENCHMARK(trayPicture)->Arg(22)->Arg(64)->Unit(benchmark::kMillisecond);
BENCHMARK(menuBarImage)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

int runBenchmarks(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return EXIT_FAILURE;
    }
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}

int printFirst()
{
    PanelStage stage;
    std::printf("%.2f ms\n", stage.clickUntilPainted().count());
    return EXIT_SUCCESS;
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
    const bool first = argc > 1 && std::string_view(argv[1]) == "--first";
    return first ? voltmere::printFirst() : voltmere::runBenchmarks(argc, argv);
}
