#include "devices/device_reader.h"
#include "devices/profiler_parser.h"
#include "devices/registry_parser.h"
#include "reference/profiler_reference.h"
#include "reference/text_mutator.h"
#include "texts/plain_text.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

// The program's parsers beside the plain ones of this folder, on inputs made from a fixed seed.
// VOLTMERE_REFERENCE_INPUTS asks for another number of them.

int inputCount()
{
    const char* const asked = std::getenv("VOLTMERE_REFERENCE_INPUTS");
    return asked == nullptr ? 20'000 : std::atoi(asked);
}

/// Far below the number of inputs that reach the interesting rules; guards against a generator that
/// makes nothing but noise.
int leastOf(int inputs)
{
    return inputs / 50;
}

std::vector<std::string> registryPieces()
{
    return {"\n    {",
            "\n    }",
            "\n",
            " ",
            "\"BatteryPercent\" = ",
            "\"BatteryLevel\" = ",
            "\"ProductID\" = ",
            "\"SerialNumber\" = \"",
            "\"DeviceAddress\" = \"",
            "\"",
            "803",
            "805",
            "804",
            "617",
            "613",
            "612",
            "55",
            "100",
            "0",
            "-1",
            "9223372036854775807",
            "9223372036854775808",
            "0000000000000000000000803",
            "٣",
            "五",
            "½",
            "\u0301",
            "鼠",
            "aa-bb",
            "AA:BB",
            "cc:dd",
            "\"BatteryPercent\"=",
            "\"Other\" = 5\n",
            "\r\n",
            ",",
            "}",
            "\n    {\n      \"BatteryPercent\" = 55\n      \"ProductID\" = 803\n",
            "\n    {\n      \"BatteryLevel\" = 9\n      \"ProductID\" = 805\n",
            "      \"SerialNumber\" = \"aa-bb\"\n",
            "      \"DeviceAddress\" = \"cc-dd\"\n"};
}

std::vector<std::string> reportPieces()
{
    return {"\n",
            " ",
            "          ",
            "              ",
            "\t",
            ":",
            "Address:",
            "Address: ",
            "aa-bb",
            "cc:dd",
            "Mouse of Ann",
            "          Mouse of Ann:\n",
            "          Desk keyboard:\n",
            "              Address: aa-bb\n",
            "              Address: CC:dd  \n",
            "          Address: 66:55\n",
            "      Connected:\n",
            "\u00A0",
            "’",
            "ß",
            "\r\n",
            "Minor Type: Mouse\n"};
}

const NameMap someNames{{"AA:BB", "Mouse of Ann"}, {"CC:DD", "数字"}, {"", "Nobody's"}};

TEST(Reference, TheRegistryParserAgreesWithIt)
{
    const reference::Names names(someNames.begin(), someNames.end());
    TextMutator inputs(registryPieces(), 20260302);
    int withDevices = 0;
    for (int count = 0; count < inputCount(); ++count) {
        const std::string text = inputs.next();
        const auto expected = reference::devicesInRegistry(text, names);
        withDevices += expected.empty() ? 0 : 1;
        ASSERT_EQ(listDevices(parseRegistry(text), someNames), expected)
            << count << ": " << escapedJson(text);
    }
    EXPECT_GT(withDevices, leastOf(inputCount()));
}

TEST(Reference, TheProfilerParserAgreesWithIt)
{
    TextMutator inputs(reportPieces(), 20260303);
    int withNames = 0;
    for (int count = 0; count < inputCount(); ++count) {
        const std::string text = inputs.next();
        const auto expected = reference::namesInReport(text);
        withNames += expected.empty() ? 0 : 1;
        ASSERT_EQ(parseProfilerReport(text), NameMap(expected.begin(), expected.end()))
            << count << ": " << escapedJson(text);
    }
    EXPECT_GT(withNames, leastOf(inputCount()));
}

TEST(Reference, NamesFoundInAReportReachTheDevices)
{
    TextMutator reports(reportPieces(), 20260304);
    TextMutator registries(registryPieces(), 20260305);
    for (int count = 0; count < inputCount() / 4; ++count) {
        const std::string report = reports.next();
        const std::string registry = registries.next();
        ASSERT_EQ(listDevices(parseRegistry(registry), parseProfilerReport(report)),
                  reference::devicesInRegistry(registry, reference::namesInReport(report)))
            << count << ": " << escapedJson(report) << escapedJson(registry);
    }
}

TEST(Reference, ItReadsAPlainExample)
{
    EXPECT_THAT(reference::namesInReport("          Mouse of Ann:\n   Address: aa-bb \n"),
                ElementsAre(Pair("AA-BB", "Mouse of Ann")));
    EXPECT_THAT(reference::devicesInRegistry("\n    {\n \"ProductID\" = 805\n \"BatteryPercent\" = "
                                             "9\n    {\"ProductID\" = 803 \"BatteryLevel\" = 0 "
                                             "\"SerialNumber\" = \"aa-bb\"",
                                             {{"AA:BB", "Mouse of Ann"}}),
                ElementsAre(BatteryDevice{803, "Mouse of Ann", 0, "magicmouse", 0},
                            BatteryDevice{805, "Magic Keyboard", 9, "keyboard", 1}));
    EXPECT_THAT(reference::devicesInRegistry("\xFF", {}), IsEmpty());
}

} // namespace
} // namespace voltmere
