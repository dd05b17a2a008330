#pragma once

#include "app/command_line.h"
#include "devices/battery_device.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace voltmere {

/// The exit status of the process.
namespace exitStatus {
inline constexpr int cannotRun = 1;
inline constexpr int wrongUsage = 2;
} // namespace exitStatus

/// Prints an answer on standard output. Returns 0, or reports a failed write on standard error and
/// returns 1.
int printAnswer(std::string_view text);

// The commands need no display. They return the exit status.

/// Takes one reading and prints it, as a table or as JSON.
int listPeripherals(const CommandLine& commandLine);

/// Prints a line of JSON for the first reading and after every change, until nobody reads the
/// standard output any more. It reads on the program's own schedule, notifies nobody and changes no
/// file.
int watchPeripherals(const CommandLine& commandLine);

/// Prints the text for a bug report: versions, the source of the reading, every entry with the
/// reason why it is shown or not, and which of the desktop's services are there. Names and
/// addresses are printed only on request.
int diagnose(const CommandLine& commandLine);

/// One reading as the command line reports it.
struct Reading {
    std::string source; ///< source of the reading: "tools" or "sysfs"
    std::vector<BatteryDevice> devices;
    std::int64_t threshold; ///< percent
};

/// A table for a person at a terminal: level, low or ok, name. Ends with a line feed. The name
/// stands last, so that no column depends on how wide a terminal draws its characters.
std::string readingTable(const Reading& reading);

/// One JSON object on one line, without a line feed. Its "status" is the line that the panel shows.
std::string readingJson(const Reading& reading);

/// One JSON object on one line for waybar's custom module (waybar-custom(5), "return-type: json"):
/// the lowest level as text and percentage, every device in the tooltip, and the class "low" or
/// "ok". Without devices the text is empty, which hides the module, and the class "none".
std::string readingWaybar(const Reading& reading);

} // namespace voltmere
