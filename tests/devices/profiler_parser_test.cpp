#include "devices/profiler_parser.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

// Every report here is synthetic: no address or name belongs to a real device.

std::string indented(std::size_t spaces, std::string_view text)
{
    return std::string(spaces, ' ') + std::string(text) + '\n';
}

std::string heading(std::string_view name)
{
    return indented(10, std::string(name) + ':');
}

std::string address(std::string_view value)
{
    return indented(14, "Address: " + std::string(value));
}

TEST(ProfilerParser, AHeadingAndADeeperAddressYieldTheNameWithTheAddressOnlyUpperCased)
{
    EXPECT_THAT(parseProfilerReport(heading("Mouse of Ann") + address("aa-bb-cc-dd-ee-ff")),
                UnorderedElementsAre(Pair("AA-BB-CC-DD-EE-FF", "Mouse of Ann")));
}

TEST(ProfilerParser, AWholeReportIsReadAndTheControllersAddressIgnored)
{
    EXPECT_THAT(parseProfilerReport("Bluetooth:\n"
                                    "\n"
                                    "      Bluetooth Controller:\n"
                                    "          Address: 66:55:44:33:22:11\n"
                                    "          State: On\n"
                                    "      Connected:\n"
                                    "          Mouse of Ann:\n"
                                    "              Address: 00:11:22:33:44:5a\n"
                                    "              Vendor ID: 0x004C\n"
                                    "              Product ID: 0x0269\n"
                                    "              Minor Type: Mouse\n"
                                    "      Not Connected:\n"
                                    "          Desk keyboard:\n"
                                    "              Vendor ID: 0x004C\n"
                                    "              Address: 00:11:22:33:44:66\n"),
                UnorderedElementsAre(Pair("00:11:22:33:44:5A", "Mouse of Ann"),
                                     Pair("00:11:22:33:44:66", "Desk keyboard")));
}

struct ReportCase {
    const char* what;
    std::string report;
    NameMap names;
};

void PrintTo(const ReportCase& reportCase, std::ostream* out)
{
    *out << reportCase.report;
}

class Report : public testing::TestWithParam<ReportCase> { };

TEST_P(Report, HasTheseNames)
{
    EXPECT_EQ(parseProfilerReport(GetParam().report), GetParam().names);
}

const std::string mouseHeading = heading("Mouse");
const NameMap noNames;
const NameMap mouseAtAA{{"AA", "Mouse"}};

const ReportCase reportCases[]{
    {"AnEmptyReportHasNone", "", noNames},
    {"LineFeedsAloneHaveNone", "\n\n", noNames},
    {"ATabIsNoneOfTheTenSpaces", "         \tMouse:\n" + address("AA"), noNames},
    {"TabsBehindTheTenSpacesAreTrimmed", "          \t Mouse:\n" + address("AA"), mouseAtAA},
    {"BlanksBehindTheHeadingAreTrimmed", "          Mouse: \t \n" + address("AA"), mouseAtAA},
    {"OtherSpacesAreNotTrimmed",
     heading("\u00A0Mouse\u3000") + address("\u00A0AA"),
     {{"\u00A0AA", "\u00A0Mouse\u3000"}}},
    {"NothingButABlankMayFollowTheColon", "          Mouse:\u00A0\n" + address("AA"), noNames},
    {"AHeadingNeedsAColon", indented(10, "Mouse") + address("AA"), noNames},
    {"AHeadingNeedsItsColonAtTheEnd", indented(10, "Mouse: x") + address("AA"), noNames},
    {"AnEmptyLineIsNoHeading", indented(10, "") + address("AA"), noNames},
    {"ANameThatContainsAColonKeepsItAndLosesOnlyTheLastOne",
     heading("Ann: left: mouse") + address("AA") + heading("Desk:") + address("BB"),
     {{"AA", "Ann: left: mouse"}, {"BB", "Desk:"}}},
    {"ANameKeepsItsOwnLettersAndBlanks",
     heading("安的  Mouse “x” ") + address("AA"),
     {{"AA", "安的  Mouse “x” "}}},
    {"AnEmptyNameIsAName", heading("") + address("AA"), {{"AA", ""}}},
    {"AHeadingNamedAddressIsNoAddress",
     mouseHeading + heading("Address: BB") + address("AA"),
     {{"AA", "Address: BB"}}},
    {"AnAddressAtTenSpacesCounts", mouseHeading + indented(10, "Address: AA"), mouseAtAA},
    {"AnAddressAtNoDepthCountsWithoutALineFeed", mouseHeading + "Address: AA", mouseAtAA},
    {"AnAddressBehindATabCounts", mouseHeading + "\t \tAddress: AA\n", mouseAtAA},
    {"AnAddressBeforeAnyHeadingIsIgnored", address("AA") + mouseHeading, noNames},
    {"OnlyTheFirstAddressCounts", mouseHeading + address("AA") + address("BB"), mouseAtAA},
    {"AHeadingWithoutAnAddressYieldsNothing", heading("Desk") + mouseHeading + address("AA"),
     mouseAtAA},
    {"ALaterPairReplacesAnEarlierOne",
     heading("Old") + address("aa") + mouseHeading + address("AA"), mouseAtAA},
    {"AnAddressWithoutAValueIsEmpty",
     mouseHeading + indented(14, "Address: \t ") + address("AA"),
     {{"", "Mouse"}}},
    {"TheValueOfAnAddressNeedsNoSpace", mouseHeading + "Address:AA", mouseAtAA},
    {"TheValueOfAnAddressIsTrimmed", mouseHeading + "   Address:\t AA \t", mouseAtAA},
    {"AnAddressKeepsItsSeparators",
     mouseHeading + address("a1-b2:c3.d4 e5"),
     {{"A1-B2:C3.D4 E5", "Mouse"}}},
    {"LinesThatOnlyResembleAnAddressChangeNothing",
     mouseHeading + indented(14, "address: 1") + indented(14, "Address : 2") +
         indented(14, "Address") + indented(14, "MAC Address: 3") + indented(14, "Addresses: 4") +
         address("AA"),
     mouseAtAA},
    {"AHeadingThatACarriageReturnEndsIsNone", "          Mouse:\r\n" + address("AA"), noNames},
    {"AnAddressKeepsItsCarriageReturn", mouseHeading + "Address: AA\r\n", {{"AA\r", "Mouse"}}},
};

INSTANTIATE_TEST_SUITE_P(ProfilerParser, Report, testing::ValuesIn(reportCases),
                         [](const auto& row) { return std::string(row.param.what); });

TEST(ProfilerParser, AHeadingIndentedByElevenOrMoreOrByFewerThanTenSpacesIsNoHeading)
{
    for (const std::size_t spaces : {0U, 1U, 6U, 9U, 11U, 14U, 100U}) {
        const std::string line = indented(spaces, "Services:");
        EXPECT_EQ(parseProfilerReport(line + address("AA")), noNames) << spaces;
        EXPECT_EQ(parseProfilerReport(mouseHeading + line + address("AA")), mouseAtAA)
            << spaces << ": the pending name stays";
    }
}

TEST(ProfilerParser, AReportWithAnInvalidByteAnywhereHasNoNames)
{
    const std::string good = heading("Mouse") + address("AA") + heading("Desk") + address("BB");
    for (const std::string_view bad : {"\xFF", "\xC3", "\xE9\x80", "\xC0\xAF", "\xED\xA0\x80"}) {
        for (const std::size_t place : {std::size_t{0}, good.size() / 2, good.size()}) {
            std::string text = good;
            text.insert(place, bad);
            EXPECT_THAT(parseProfilerReport(text), IsEmpty()) << "at " << place;
        }
    }
}

} // namespace
} // namespace voltmere
