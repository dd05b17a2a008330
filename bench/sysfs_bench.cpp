// How fast the kernel's entries are read, from synthetic ones in a directory.

#include "linux/sysfs_battery_source.h"
#include "tests/posix/temporary_directory.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace voltmere {
namespace {

namespace fs = std::filesystem;

/// A tree with `count` entries, gone at the end.
class SyntheticTree {
public:
    explicit SyntheticTree(std::int64_t count)
    {
        for (std::int64_t number = 0; number < count; ++number) {
            addEntry("02:00:5e:00:" + std::to_string(10 + number / 90) + ':' +
                     std::to_string(10 + number % 90));
        }
    }

    const fs::path& path() const { return directory.path(); }

private:
    void addEntry(const std::string& address)
    {
        const fs::path entry = path() / "class" / "power_supply" / ("hid-" + address + "-battery");
        fs::create_directories(entry / "device");
        std::ofstream(entry / "capacity") << "56\n";
        std::ofstream(entry / "device" / "uevent")
            << "DRIVER=magicmouse\nHID_ID=0005:0000004C:00000269\nHID_NAME=Mouse\n"
               "HID_PHYS=02:00:5e:00:53:00\nHID_UNIQ="
            << address << "\nMODALIAS=hid:b0005g0001v0000004Cp00000269\n";
    }

    TemporaryDirectory directory;
};

void sysfsReading(benchmark::State& state)
{
    const SyntheticTree tree(state.range(0));
    SysfsBatterySource source(tree.path());
    std::size_t entries = 0;
    for ([[maybe_unused]] auto iteration : state) {
        entries = source.readEntries().size();
        benchmark::DoNotOptimize(entries);
    }
    if (entries != static_cast<std::size_t>(state.range(0))) {
        state.SkipWithError("entries are missing");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(sysfsReading)->Arg(3)->Arg(200);

} // namespace
} // namespace voltmere
