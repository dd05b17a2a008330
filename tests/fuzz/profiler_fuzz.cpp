#include "devices/profiler_parser.h"
#include "fuzz/fuzz_target.h"
#include "reference/profiler_reference.h"
#include "reference/reference_text.h"

namespace voltmere {

/// The profiler's report gives the names that the plain implementation finds in it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = fuzz::textOf(data, size);
    const NameMap names = parseProfilerReport(text);

    const reference::Names expected = reference::namesInReport(text);
    fuzz::require(names == NameMap(expected.begin(), expected.end()), "the rules' names");
    for (const auto& [address, name] : names) {
        fuzz::require(reference::decoded(address) && reference::decoded(name), "all is UTF-8");
    }
    return 0;
}

} // namespace voltmere
