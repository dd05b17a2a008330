#include "app/command_line.h"
#include "fuzz/fuzz_target.h"
#include "reference/reference_text.h"
#include "texts/plain_text.h"

namespace voltmere {

namespace {

void checkCommandLine(const CommandLine& line)
{
    using Action = CommandLine::Action;
    if (line.action == Action::showHelp || line.action == Action::showVersion) {
        return;
    }
    const int sources =
        (line.demo ? 1 : 0) + (line.toolsDirectory ? 1 : 0) + (line.sysfsRoot ? 1 : 0);
    fuzz::require(sources <= 1, "one place to read from");
    fuzz::require(!line.toolsDirectory || !line.toolsDirectory->empty(), "the tools have a place");
    fuzz::require(!line.sysfsRoot || !line.sysfsRoot->empty(), "sysfs has a place");
    fuzz::require(!line.json || line.action == Action::list, "--json goes with --list");
    fuzz::require(!line.verbose || line.action == Action::diagnose,
                  "--verbose goes with --diagnose");
    fuzz::require(line.format == CommandLine::Format::voltmere || line.action == Action::watch,
                  "--format goes with --watch");
    fuzz::require(!line.openPanel || line.action == Action::menuBar, "--panel starts the program");
    fuzz::require((line.action == Action::screenshots) == !line.screenshotsDirectory.empty(),
                  "pictures have a place");
}

} // namespace

/// Each line of the input is one word behind the program's name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Pieces pieces(data, size);
    std::vector<std::string> words{"voltmere"};
    while (!pieces.empty() && words.size() < 20) {
        words.emplace_back(pieces.line().c_str()); // a word ends at a zero byte
    }
    const auto result = parseCommandLine(words);
    if (const auto* error = std::get_if<UsageError>(&result)) {
        const std::string message = plainText(error->message);
        fuzz::require(!message.empty(), "an error is explained");
        fuzz::require(reference::decoded(message).has_value(), "the explanation is UTF-8");
    } else {
        checkCommandLine(std::get<CommandLine>(result));
    }
    fuzz::require(parseCommandLine(words).index() == result.index(),
                  "the answer is always the same");
    return 0;
}

} // namespace voltmere
