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

TEST(ProfilerParser, AnEmptyReportHasNoNames)
{
    EXPECT_THAT(parseProfilerReport(""), IsEmpty());
    EXPECT_THAT(parseProfilerReport("\n\n"), IsEmpty());
}

TEST(ProfilerParser, AHeadingIndentedByElevenOrMoreSpacesIsNoHeading)
{
    for (const std::size_t spaces : {11U, 12U, 14U, 100U}) {
        EXPECT_THAT(parseProfilerReport(indented(spaces, "Mouse:") + address("AA")), IsEmpty())
            << spaces;
    }
}

TEST(ProfilerParser, AHeadingIndentedByFewerThanTenSpacesIsNoHeading)
{
    for (const std::size_t spaces : {0U, 1U, 6U, 8U, 9U}) {
        EXPECT_THAT(parseProfilerReport(indented(spaces, "Mouse:") + address("AA")), IsEmpty())
            << spaces;
    }
}

TEST(ProfilerParser, ALineAtAnotherDepthKeepsThePendingName)
{
    for (const std::size_t spaces : {0U, 6U, 9U, 11U, 14U}) {
        EXPECT_THAT(
            parseProfilerReport(heading("Mouse") + indented(spaces, "Services:") + address("AA")),
            UnorderedElementsAre(Pair("AA", "Mouse")))
            << spaces;
    }
}

TEST(ProfilerParser, TabsAreNoPartOfTheTenSpaces)
{
    EXPECT_THAT(parseProfilerReport("\tMouse:\n" + address("AA")), IsEmpty());
    EXPECT_THAT(parseProfilerReport("\t          Mouse:\n" + address("AA")), IsEmpty());
    EXPECT_THAT(parseProfilerReport("         \tMouse:\n" + address("AA")), IsEmpty());
}

TEST(ProfilerParser, TabsBehindTheTenSpacesAreTrimmed)
{
    EXPECT_THAT(parseProfilerReport("          \t Mouse:\n" + address("AA")),
                UnorderedElementsAre(Pair("AA", "Mouse")));
}

TEST(ProfilerParser, BlanksBehindTheHeadingAreTrimmed)
{
    EXPECT_THAT(parseProfilerReport("          Mouse: \t \n" + address("AA")),
                UnorderedElementsAre(Pair("AA", "Mouse")));
}

TEST(ProfilerParser, OtherSpacesAreNotTrimmed)
{
    EXPECT_THAT(parseProfilerReport(heading("\u00A0Mouse\u3000") + address("\u00A0AA")),
                UnorderedElementsAre(Pair("\u00A0AA", "\u00A0Mouse\u3000")));
    EXPECT_THAT(parseProfilerReport("          Mouse:\u00A0\n" + address("AA")), IsEmpty());
}

TEST(ProfilerParser, AHeadingNeedsAColonAtItsEnd)
{
    EXPECT_THAT(parseProfilerReport(indented(10, "Mouse") + address("AA")), IsEmpty());
    EXPECT_THAT(parseProfilerReport(indented(10, "Mouse: x") + address("AA")), IsEmpty());
    EXPECT_THAT(parseProfilerReport(indented(10, "Mouse：") + address("AA")), IsEmpty());
    EXPECT_THAT(parseProfilerReport(indented(10, "") + address("AA")), IsEmpty());
}

TEST(ProfilerParser, ANameThatContainsAColonKeepsItAndLosesOnlyTheLastOne)
{
    EXPECT_THAT(
        parseProfilerReport(heading("Ann: left: mouse") + address("AA") + heading("Desk:") +
                            address("BB") + heading(":") + address("CC")),
        UnorderedElementsAre(Pair("AA", "Ann: left: mouse"), Pair("BB", "Desk:"), Pair("CC", ":")));
}

TEST(ProfilerParser, ANameKeepsItsOwnLettersAndBlanks)
{
    EXPECT_THAT(parseProfilerReport(heading("安的  Mouse é “x” ") + address("AA")),
                UnorderedElementsAre(Pair("AA", "安的  Mouse é “x” ")));
}

TEST(ProfilerParser, AnEmptyNameIsAName)
{
    EXPECT_THAT(parseProfilerReport(heading("") + address("AA")),
                UnorderedElementsAre(Pair("AA", "")));
}

TEST(ProfilerParser, AHeadingNamedAddressIsAHeadingAndNoAddress)
{
    EXPECT_THAT(parseProfilerReport(heading("Mouse") + heading("Address") + address("AA")),
                UnorderedElementsAre(Pair("AA", "Address")));
    EXPECT_THAT(parseProfilerReport(heading("Mouse") + heading("Address: BB") + address("AA")),
                UnorderedElementsAre(Pair("AA", "Address: BB")));
}

TEST(ProfilerParser, AnAddressAtTenSpacesAfterAHeadingCounts)
{
    EXPECT_THAT(parseProfilerReport(heading("Mouse") + indented(10, "Address: AA")),
                UnorderedElementsAre(Pair("AA", "Mouse")));
}

TEST(ProfilerParser, AnAddressAtAnyDepthCounts)
{
    for (const std::string_view indent : {"", " ", "\t", "            ", "\t \t "}) {
        EXPECT_THAT(parseProfilerReport(heading("Mouse") + std::string(indent) + "Address: AA\n"),
                    UnorderedElementsAre(Pair("AA", "Mouse")));
    }
}

TEST(ProfilerParser, AnAddressBeforeAnyHeadingIsIgnored)
{
    for (const std::size_t spaces : {0U, 10U, 14U}) {
        EXPECT_THAT(parseProfilerReport(indented(spaces, "Address: AA") + heading("Mouse")),
                    IsEmpty())
            << spaces;
    }
}

TEST(ProfilerParser, OnlyTheFirstAddressAfterAHeadingCounts)
{
    EXPECT_THAT(
        parseProfilerReport(heading("Mouse") + address("AA") + address("BB") + address("AA")),
        UnorderedElementsAre(Pair("AA", "Mouse")));
}

TEST(ProfilerParser, AHeadingWithoutAnAddressBeforeTheNextHeadingYieldsNothing)
{
    EXPECT_THAT(parseProfilerReport(heading("Mouse") + heading("Keyboard") + address("AA") +
                                    heading("Trackpad")),
                UnorderedElementsAre(Pair("AA", "Keyboard")));
}

TEST(ProfilerParser, ALaterPairReplacesAnEarlierOneWithTheSameAddress)
{
    EXPECT_THAT(
        parseProfilerReport(heading("Old") + address("aa:bb") + heading("New") + address("AA:BB")),
        UnorderedElementsAre(Pair("AA:BB", "New")));
}

TEST(ProfilerParser, AnAddressWithoutAValueIsTheEmptyAddress)
{
    EXPECT_THAT(parseProfilerReport(heading("Mouse") + indented(14, "Address:") + address("AA")),
                UnorderedElementsAre(Pair("", "Mouse")));
    EXPECT_THAT(
        parseProfilerReport(heading("Mouse") + indented(14, "Address: \t ") + address("AA")),
        UnorderedElementsAre(Pair("", "Mouse")));
}

TEST(ProfilerParser, TheValueOfAnAddressIsTrimmedOfSpacesAndTabs)
{
    for (const std::string_view line :
         {"Address:AA", "Address: AA", "Address:\t AA \t", "   Address:    AA   "}) {
        EXPECT_THAT(parseProfilerReport(heading("Mouse") + std::string(line)),
                    UnorderedElementsAre(Pair("AA", "Mouse")))
            << line;
    }
}

TEST(ProfilerParser, AnAddressKeepsItsSeparators)
{
    EXPECT_THAT(parseProfilerReport(heading("Mouse") + address("a1-b2:c3.d4 e5")),
                UnorderedElementsAre(Pair("A1-B2:C3.D4 E5", "Mouse")));
}

TEST(ProfilerParser, LinesThatOnlyResembleAnAddressChangeNothing)
{
    EXPECT_THAT(parseProfilerReport(heading("Mouse") + indented(14, "address: 1") +
                                    indented(14, "Address : 2") + indented(14, "Address") +
                                    indented(14, "MAC Address: 3") + indented(14, "Addresses: 4") +
                                    address("AA")),
                UnorderedElementsAre(Pair("AA", "Mouse")));
}

TEST(ProfilerParser, TheLastLineNeedsNoLineFeed)
{
    EXPECT_THAT(parseProfilerReport(heading("Mouse") + "Address: AA"),
                UnorderedElementsAre(Pair("AA", "Mouse")));
}

TEST(ProfilerParser, ACarriageReturnIsNoBlank)
{
    // So a heading that one ends is none, and an address keeps it.
    EXPECT_THAT(parseProfilerReport("          Mouse:\r\n" + address("AA")), IsEmpty());
    EXPECT_THAT(parseProfilerReport(heading("Mouse") + "Address: AA\r\n"),
                UnorderedElementsAre(Pair("AA\r", "Mouse")));
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
