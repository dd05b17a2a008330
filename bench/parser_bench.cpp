// How fast the tools' texts are parsed. All inputs are synthetic.

#include "devices/profiler_parser.h"
#include "devices/registry_parser.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

namespace voltmere {
namespace {

constexpr std::int64_t kilobyte = 1'000;
constexpr std::int64_t megabyte = 1'000'000;

std::string hexadecimal(std::size_t number)
{
    char text[17];
    std::snprintf(text, sizeof text, "%012zx", number);
    return text;
}

/// The properties that every HID event service has.
std::string commonProperties(std::size_t number)
{
    return "      \"IOGeneralInterest\" = \"IOCommand is not serializable\"\n"
           "      \"IOMatchedAtBoot\" = Yes\n"
           "      \"IOPowerManagement\" = {\"DevicePowerState\"=2,\"CurrentPowerState\"=2,"
           "\"CapabilityFlags\"=32768,\"MaxPowerState\"=2}\n"
           "      \"LowBatteryNotificationPercentage\" = 6\n"
           "      \"PrimaryUsagePage\" = 65280\n"
           "      \"PrimaryUsage\" = 11\n"
           "      \"BatteryFaultNotificationType\" = \"MOBatteryFault\"\n"
           "      \"BatteryLowNotificationType\" = \"MOLowBattery\"\n"
           "      \"BatteryStatusNotificationType\" = \"BatteryStatusChanged\"\n"
           "      \"VendorID\" = 76\n"
           "      \"VersionNumber\" = 785\n"
           "      \"CountryCode\" = 0\n"
           "      \"Built-In\" = No\n"
           "      \"Transport\" = \"Bluetooth\"\n"
           "      \"Manufacturer\" = \"Maker of peripherals\"\n"
           "      \"WakeReason\" = \"Host (0x01)\"\n"
           "      \"LocationID\" = " +
        std::to_string(1'000'000 + number) +
        "\n"
        "      \"ReportInterval\" = 11250\n"
        "      \"MaxInputReportSize\" = 64\n"
        "      \"MaxOutputReportSize\" = 32\n"
        "      \"DeviceUsagePairs\" = ({\"DeviceUsagePage\"=65280,\"DeviceUsage\"=11},"
        "{\"DeviceUsagePage\"=1,\"DeviceUsage\"=2})\n"
        "      \"HIDServiceGlobalModifiersUsage\" = {\"a\"=1,\"b\"={\"c\"=2}}\n"
        "      \"IOUserClientClass\" = \"AppleDeviceManagementHIDEventServiceUserClient\"\n"
        "      \"SerialNumber\" = \"" +
        hexadecimal(number) +
        "\"\n"
        "      \"Product\" = \"Peripheral\"\n"
        "      \"ProductID\" = " +
        std::to_string(1000 + number % 9000) + '\n';
}

std::string registryEntry(std::size_t number)
{
    constexpr std::size_t entriesForEachBattery = 20;
    std::string entry = "+-o AppleDeviceManagementHIDEventService  <class "
                        "AppleDeviceManagementHIDEventService, id 0x" +
        hexadecimal(number) + ", registered, matched, active, busy 0 (0 ms), retain 9>\n    {\n" +
        commonProperties(number);
    if (number % entriesForEachBattery == 0) {
        entry += "      \"HasBattery\" = Yes\n      \"BatteryStatusFlags\" = 0\n"
                 "      \"BatteryPercent\" = 56\n";
    }
    return entry + "    }\n    \n";
}

/// What the registry tool would print on a machine with very many devices: about `size` bytes.
std::string registryText(std::int64_t size)
{
    std::string text;
    for (std::size_t number = 0; text.size() < static_cast<std::size_t>(size); ++number) {
        text += registryEntry(number);
    }
    return text;
}

/// A profiler's report of about `size` bytes.
std::string profilerText(std::int64_t size)
{
    std::string text = "Bluetooth:\n\n      Bluetooth Controller:\n"
                       "          Address: 02:00:5E:00:53:00\n          State: On\n"
                       "      Connected:\n";
    for (std::size_t number = 0; text.size() < static_cast<std::size_t>(size); ++number) {
        text += "          Peripheral " + std::to_string(number) +
            ":\n"
            "              Address: " +
            hexadecimal(number) +
            "\n"
            "              Vendor ID: 0x004C\n"
            "              Product ID: 0x0269\n"
            "              Firmware Version: 3.1.1\n"
            "              Minor Type: Mouse\n"
            "              Services: 0x400000 < ACL >\n";
    }
    return text;
}

void countBytes(benchmark::State& state, const std::string& text)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void registryParsing(benchmark::State& state)
{
    const std::string text = registryText(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(parseRegistry(text));
    }
    countBytes(state, text);
}

void profilerParsing(benchmark::State& state)
{
    const std::string text = profilerText(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(parseProfilerReport(text));
    }
    countBytes(state, text);
}

BENCHMARK(registryParsing)
    ->Arg(10 * kilobyte)
    ->Arg(100 * kilobyte)
    ->Arg(megabyte)
    ->Arg(10 * megabyte)
    ->Arg(100 * megabyte);
BENCHMARK(profilerParsing)
    ->Arg(10 * kilobyte)
    ->Arg(100 * kilobyte)
    ->Arg(megabyte)
    ->Arg(10 * megabyte);

} // namespace
} // namespace voltmere
