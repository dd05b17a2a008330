#include "devices/registry_parser.h"

#include "devices/registry_text.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::Field;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

constexpr std::optional<std::int64_t> nothing = std::nullopt;

/// The only entry of a text with one block; an empty entry when there is not exactly one.
BatteryEntry onlyEntry(std::string_view text)
{
    const std::vector<BatteryEntry> entries = parseRegistry(text);
    EXPECT_THAT(entries, SizeIs(1));
    return entries.size() == 1 ? entries.front() : BatteryEntry{};
}

auto hasLevelAndProduct(std::int64_t level, std::int64_t product)
{
    return testing::AllOf(Field("level", &BatteryEntry::level, Optional(level)),
                          Field("product", &BatteryEntry::product, Optional(product)));
}

struct Extraction {
    const char* what;
    std::string text;
    std::optional<std::int64_t> number;
};

void PrintTo(const Extraction& extraction, std::ostream* out)
{
    *out << extraction.text;
}

class ExtractInt : public testing::TestWithParam<Extraction> { };

TEST_P(ExtractInt, OfProductID)
{
    EXPECT_EQ(extractInt("ProductID", GetParam().text), GetParam().number);
}

std::string withValue(std::string_view value)
{
    return property("ProductID", value);
}

INSTANTIATE_TEST_SUITE_P(TheNumberEndsAt, ExtractInt,
                         testing::Values(Extraction{"TheEndOfTheText", withValue("617"), 617},
                                         Extraction{"AComma", withValue("100, 5"), 100},
                                         Extraction{"ALineFeed", withValue("56\n7"), 56},
                                         Extraction{"ACarriageReturn", withValue("56\r\n7"), 56},
                                         Extraction{"AClosingBrace", withValue("7}"), 7},
                                         Extraction{"ASpace", withValue("1 2"), 1},
                                         Extraction{"AMinusSign", withValue("12-3"), 12},
                                         Extraction{"ALetter", withValue("0x0269"), 0},
                                         Extraction{"AQuote", withValue("9\""), 9},
                                         Extraction{"APoint", withValue("5.75"), 5},
                                         Extraction{"ANumeralThatIsNoNumber", withValue("5٪"), 5}),
                         [](const auto& row) { return row.param.what; });

INSTANTIATE_TEST_SUITE_P(
    IsNothingFor, ExtractInt,
    testing::Values(Extraction{"AnEmptyText", "", nothing},
                    Extraction{"NoValue", withValue(""), nothing},
                    Extraction{"ANegativeNumber", withValue("-1"), nothing},
                    Extraction{"ANumberWithPlus", withValue("+1"), nothing},
                    Extraction{"AQuotedNumber", withValue("\"617\""), nothing},
                    Extraction{"ABoolean", withValue("Yes"), nothing},
                    Extraction{"ADictionary", withValue("{\"a\"=1}"), nothing},
                    Extraction{"AList", withValue("(617)"), nothing},
                    Extraction{"TwoSpacesBeforeTheNumber", withValue(" 617"), nothing},
                    Extraction{"ALineFeedBeforeTheNumber", withValue("\n617"), nothing}),
    [](const auto& row) { return row.param.what; });

INSTANTIATE_TEST_SUITE_P(
    ReadsNumeralsOfOtherKinds, ExtractInt,
    testing::Values(Extraction{"IdeographAloneIsNothing", withValue("五"), nothing},
                    Extraction{"FractionAloneIsNothing", withValue("½"), nothing},
                    Extraction{"ArabicDigitsAreNothing", withValue("٥٥"), nothing},
                    Extraction{"FullWidthDigitsAreNothing", withValue("５５"), nothing},
                    Extraction{"IdeographInTheRunSpoilsIt", withValue("12五"), nothing},
                    Extraction{"FractionInTheRunSpoilsIt", withValue("12½"), nothing},
                    Extraction{"ArabicDigitInTheRunSpoilsIt", withValue("1٥2"), nothing},
                    Extraction{"SuperscriptInTheRunSpoilsIt", withValue("5²"), nothing},
                    Extraction{"RomanNumeralInTheRunSpoilsIt", withValue("5Ⅷ"), nothing},
                    Extraction{"NumeralOfASupplementaryPlaneSpoilsIt", withValue("5𝟝"), nothing},
                    Extraction{"CombiningMarkEndsIt", withValue("12\u03013"), 12},
                    Extraction{"IdeographThatIsNoNumeralEndsIt", withValue("12鼠"), 12},
                    Extraction{"IdeographBehindASpaceIsNotReached", withValue("12 五"), 12}),
    [](const auto& row) { return row.param.what; });

INSTANTIATE_TEST_SUITE_P(
    Has64Bits, ExtractInt,
    testing::Values(Extraction{"Zero", withValue("0"), 0},
                    Extraction{"LeadingZeros", withValue("000617"), 617},
                    Extraction{"LeadingZerosBeyondNineteenDigits",
                               withValue("0000000000000000000000000617"), 617},
                    Extraction{"TwoToThe63rdLessOne", withValue("9223372036854775807"),
                               std::numeric_limits<std::int64_t>::max()},
                    Extraction{"TwoToThe63rd", withValue("9223372036854775808"), nothing},
                    Extraction{"TwoToThe64thLessOne", withValue("18446744073709551615"), nothing},
                    Extraction{"HundredDigits", withValue(std::string(100, '9')), nothing}),
    [](const auto& row) { return row.param.what; });

INSTANTIATE_TEST_SUITE_P(
    NeedsTheExactKey, ExtractInt,
    testing::Values(Extraction{"LongerKey", property("ProductIDs", "1"), nothing},
                    Extraction{"KeyWithPrefix", property("xProductID", "1"), nothing},
                    Extraction{"ShorterKey", property("Product", "1"), nothing},
                    Extraction{"OtherCase", property("productid", "1"), nothing},
                    Extraction{"NoQuotes", "ProductID = 1", nothing},
                    Extraction{"NoOpeningQuote", "ProductID\" = 1", nothing},
                    Extraction{"NoSpaces", "\"ProductID\"=1", nothing},
                    Extraction{"NoSpaceBeforeTheSign", "\"ProductID\"= 1", nothing},
                    Extraction{"NoSpaceBehindTheSign", "\"ProductID\" =1", nothing},
                    Extraction{"Tabs", "\"ProductID\"\t=\t1", nothing},
                    Extraction{"CutOff", "\"ProductID\" =", nothing},
                    Extraction{"NearMissesBeforeIt",
                               property("xProductID", "1") + property("ProductIDs", "2") +
                                   "\"ProductID\"=3" + property("ProductID", "4"),
                               4},
                    Extraction{"AfterHalfOfItself", "\"ProductID\" \"ProductID\" = 5", 5}),
    [](const auto& row) { return row.param.what; });

INSTANTIATE_TEST_SUITE_P(
    FirstOccurrence, ExtractInt,
    testing::Values(
        Extraction{"Wins", withValue("1\n") + withValue("2"), 1},
        Extraction{"DecidesEvenWhenItIsNegative", withValue("-1\n") + withValue("2"), nothing},
        Extraction{"DecidesEvenWhenItIsAText", withValue("\"1\"\n") + withValue("2"), nothing},
        Extraction{"DecidesEvenWhenItIsTooBig", withValue("9223372036854775808\n") + withValue("2"),
                   nothing}),
    [](const auto& row) { return row.param.what; });

TEST(RegistryParserExtractInt, TakesTheKeyLiterally)
{
    EXPECT_EQ(extractInt("A.B", property("AxB", "1") + property("A.B", "2")), 2);
    EXPECT_EQ(extractInt("", property("", "3")), 3);
}

TEST(RegistryParser, EmptyOutputYieldsNoEntries)
{
    EXPECT_THAT(parseRegistry(""), IsEmpty());
}

TEST(RegistryParser, TextWithoutTheKeysYieldsNoEntries)
{
    EXPECT_THAT(parseRegistry("no such thing\n    {\n    {\n    {"), IsEmpty());
}

struct LevelCase {
    const char* what;
    std::vector<std::string> properties;
    std::optional<std::int64_t> level;
};

void PrintTo(const LevelCase& levelCase, std::ostream* out)
{
    *out << levelCase.what;
}

class Level : public testing::TestWithParam<LevelCase> { };

TEST_P(Level, OfABlock)
{
    std::string block = "\n    {\n" + product803;
    for (const std::string& line : GetParam().properties) {
        block += "\n      " + line;
    }
    EXPECT_EQ(onlyEntry(block).level, GetParam().level);
}

INSTANTIATE_TEST_SUITE_P(
    RegistryParser, Level,
    testing::Values(
        LevelCase{"BatteryPercent55AndBatteryLevel90Yield55",
                  {percent55, property("BatteryLevel", "90")},
                  55},
        LevelCase{
            "BatteryPercentWinsWhenItComesSecond", {property("BatteryLevel", "90"), percent55}, 55},
        LevelCase{"OnlyBatteryLevel90Yields90", {property("BatteryLevel", "90")}, 90},
        LevelCase{"NeitherYieldsNothing", {}, nothing},
        LevelCase{
            "BatteryPercent100WithACommaYields100", {property("BatteryPercent", "100,")}, 100},
        LevelCase{"BatteryPercentMinus1FallsBackToBatteryLevel",
                  {property("BatteryPercent", "-1"), property("BatteryLevel", "90")},
                  90},
        LevelCase{
            "BatteryPercentMinus1AloneYieldsNothing", {property("BatteryPercent", "-1")}, nothing},
        LevelCase{
            "BatteryPercentTooBigFallsBackToBatteryLevel",
            {property("BatteryPercent", "9223372036854775808"), property("BatteryLevel", "90")},
            90},
        LevelCase{"SecondBatteryPercentIsNotTried",
                  {property("BatteryPercent", "-1"), percent55},
                  nothing},
        LevelCase{"SecondBatteryPercentIsNotTriedBeforeBatteryLevel",
                  {property("BatteryPercent", "-1"), percent55, property("BatteryLevel", "90")},
                  90},
        LevelCase{"Level0IsKept", {property("BatteryPercent", "0")}, 0},
        LevelCase{"BatteryPercent0DoesNotFallBack",
                  {property("BatteryPercent", "0"), property("BatteryLevel", "90")},
                  0},
        LevelCase{"Level101IsKept", {property("BatteryPercent", "101")}, 101},
        LevelCase{"LevelOf64BitsIsKept",
                  {property("BatteryPercent", "9223372036854775807")},
                  std::numeric_limits<std::int64_t>::max()},
        LevelCase{"KeysBesideTheWantedOnesDoNotCount",
                  {property("BatteryStatusFlags", "3"),
                   property("LowBatteryNotificationPercentage", "6"),
                   property("xBatteryPercent", "1"), property("BatteryPercentage", "2"),
                   property("BatteryLevels", "4"), property("batterypercent", "5"),
                   "\"Nested\" = {\"BatteryPercent\"=7,\"BatteryLevel\"=8}"},
                  nothing},
        LevelCase{
            "KeysBesideTheWantedOneDoNotHideIt",
            {property("BatteryStatusFlags", "3"), property("BatteryPercentage", "2"), percent55},
            55}),
    [](const auto& row) { return row.param.what; });

TEST(RegistryParser, AWholeEntryIsReadWhateverTheOrderOfItsProperties)
{
    std::vector<std::string> lines{percent55, textProperty("SerialNumber", "00-11-22-33-44-55"),
                                   textProperty("DeviceAddress", "66-77-88-99-AA-BB"), product803};
    std::sort(lines.begin(), lines.end());
    do {
        const std::string text = registryBlock({lines[0], lines[1], lines[2], lines[3]});
        SCOPED_TRACE(text);
        const BatteryEntry entry = onlyEntry(text);
        EXPECT_THAT(entry, hasLevelAndProduct(55, 803));
        EXPECT_THAT(entry.address, Optional(Eq("00-11-22-33-44-55")));
    } while (std::next_permutation(lines.begin(), lines.end()));
}

TEST(RegistryParser, AFullSizedEntryIsReadAmongItsOtherProperties)
{
    // Synthetic, in the shape of the tool's print.
    const BatteryEntry entry = onlyEntry(R"(+-o AppleDeviceManagementHIDEventService  <class App>
    {
      "IOGeneralInterest" = "IOCommand is not serializable"
      "IOMatchedAtBoot" = Yes
      "LowBatteryNotificationPercentage" = 6
      "PrimaryUsagePage" = 65280
      "BatteryFaultNotificationType" = "MOBatteryFault"
      "HasBattery" = Yes
      "VendorID" = 76
      "VersionNumber" = 785
      "Built-In" = No
      "DeviceAddress" = "00-11-22-33-44-55"
      "BatteryStatusFlags" = 0
      "SerialNumber" = "00-11-22-33-44-56"
      "Product" = "Magic Mouse"
      "BatteryPercent" = 56
      "ProductID" = 617
      "HIDServiceGlobalModifiersUsage" = {"a"=1,"b"={"c"=2}}
    }

)");
    EXPECT_THAT(entry, hasLevelAndProduct(56, 617));
    EXPECT_THAT(entry.address, Optional(Eq("00-11-22-33-44-56")));
    EXPECT_EQ(entry.givenName, std::nullopt) << "the tool knows no name given by the user";
    EXPECT_EQ(entry.rejection, std::nullopt);
}

TEST(RegistryParser, BlocksAreReadInTheOrderOfTheText)
{
    const std::string text =
        registryBlock({property("BatteryPercent", "3"), property("ProductID", "805")}) +
        registryBlock({property("BatteryPercent", "1"), product803}) +
        registryBlock({property("BatteryPercent", "2"), product803});
    EXPECT_THAT(parseRegistry(text),
                ElementsAre(hasLevelAndProduct(3, 805), hasLevelAndProduct(1, 803),
                            hasLevelAndProduct(2, 803)));
}

TEST(RegistryParser, MalformedBlocksDoNotSpoilTheOthers)
{
    const std::string text = registryBlock({"\"BatteryPercent\" = ", "\"ProductID\" = \"x"}) +
        registryBlock({percent55, product803}) +
        "\n    {\n      \"BatteryPercent\" = 7\n      \"Produ";
    EXPECT_THAT(parseRegistry(text),
                ElementsAre(hasLevelAndProduct(55, 803),
                            testing::AllOf(Field(&BatteryEntry::level, Optional(7)),
                                           Field(&BatteryEntry::product, Eq(nothing)))));
}

TEST(RegistryParser, TheTextBeforeTheFirstSeparatorIsABlockToo)
{
    EXPECT_THAT(parseRegistry(percent55 + '\n' + product803 + "\n    {\n" +
                              property("BatteryPercent", "9") + '\n' +
                              property("ProductID", "805")),
                ElementsAre(hasLevelAndProduct(55, 803), hasLevelAndProduct(9, 805)));
}

TEST(RegistryParser, TheLastBlockNeedsNoEnd)
{
    EXPECT_THAT(onlyEntry("\n    {" + percent55 + product803), hasLevelAndProduct(55, 803));
}

TEST(RegistryParser, OnlyLineFeedFourSpacesAndABraceSeparateBlocks)
{
    for (const char* const separator :
         {"\n   {", "\n     {", "    {", "\n\t{", "\r    {", "\n    }", "\n    (", "\n   \t{",
          "\n\u00A0   {", "\n    \n{"}) {
        SCOPED_TRACE(separator);
        EXPECT_THAT(onlyEntry(percent55 + separator + product803), hasLevelAndProduct(55, 803));
    }
}

TEST(RegistryParser, ASeparatorSplitsWhereverItStands)
{
    const auto levelOnly = testing::AllOf(Field(&BatteryEntry::level, Optional(55)),
                                          Field(&BatteryEntry::product, Eq(nothing)));
    const auto productOnly = testing::AllOf(Field(&BatteryEntry::level, Eq(nothing)),
                                            Field(&BatteryEntry::product, Optional(803)));
    for (const char* const separator :
         {"\n    {", "\r\n    {", "\n    {{", "\n\n    {", "\n    {\n    {", "\n    { }"}) {
        SCOPED_TRACE(separator);
        EXPECT_THAT(parseRegistry(percent55 + separator + product803),
                    ElementsAre(levelOnly, productOnly));
    }
}

TEST(RegistryParser, CarriageReturnsAtTheLineEndsDoNotHurt)
{
    const BatteryEntry entry =
        onlyEntry("+-o Service\r\n    {\r\n      " + percent55 + "\r\n      " + product803 +
                  "\r\n      " + textProperty("SerialNumber", "aa-bb") + "\r\n    }\r\n");
    EXPECT_THAT(entry, hasLevelAndProduct(55, 803));
    EXPECT_THAT(entry.address, Optional(Eq("aa-bb")));
}

TEST(RegistryParser, OutputWithAnInvalidByteAnywhereCountsAsEmpty)
{
    const std::string good =
        registryBlock({percent55, product803}) + registryBlock({percent55, product803});
    ASSERT_THAT(parseRegistry(good), SizeIs(2));
    for (const std::string_view bad :
         {"\xFF", "\xC3", "\xE9\x80", "\xC0\xAF", "\xED\xA0\x80", "\x80"}) {
        for (const std::size_t place : {std::size_t{0}, good.size() / 2, good.size()}) {
            std::string text = good;
            text.insert(place, bad);
            EXPECT_THAT(parseRegistry(text), IsEmpty()) << "at " << place;
        }
    }
}

TEST(RegistryParser, ANulByteIsTextLikeAnyOther)
{
    const std::string text = std::string("\0", 1) + registryBlock({percent55, product803});
    EXPECT_THAT(onlyEntry(text), hasLevelAndProduct(55, 803));
}

TEST(RegistryParser, TheOriginCountsTheBlocksOfTheText)
{
    const std::string empty = registryBlock({property("VendorID", "76")});
    const std::vector<BatteryEntry> entries = parseRegistry(
        registryBlock({percent55, product803}) + empty + registryBlock({percent55, product803}));
    ASSERT_THAT(entries, SizeIs(2));
    EXPECT_EQ(entries[0].origin, "registry block 1");
    EXPECT_EQ(entries[1].origin, "registry block 3");
}

TEST(RegistryParser, ABlockThatLacksOneOfTheTwoIsStillReportedForDiagnosis)
{
    EXPECT_EQ(onlyEntry(registryBlock({product803})).level, nothing);
    EXPECT_EQ(onlyEntry(registryBlock({percent55})).product, nothing);
}

TEST(RegistryParser, ABlockDoesNotBorrowFromTheNextOne)
{
    const std::vector<BatteryEntry> entries =
        parseRegistry(registryBlock({percent55, product803}) +
                      registryBlock({percent55, product803, textProperty("SerialNumber", "aa")}));
    ASSERT_THAT(entries, SizeIs(2));
    EXPECT_EQ(entries[0].address, std::nullopt);
    EXPECT_THAT(entries[1].address, Optional(Eq("aa")));
}

struct AddressCase {
    const char* what;
    std::string properties;
    std::optional<std::string> address;
};

void PrintTo(const AddressCase& addressCase, std::ostream* out)
{
    *out << addressCase.properties;
}

class Address : public testing::TestWithParam<AddressCase> { };

TEST_P(Address, OfABlock)
{
    const std::string block =
        "\n    {\n" + percent55 + '\n' + product803 + '\n' + GetParam().properties;
    EXPECT_EQ(onlyEntry(block).address, GetParam().address);
}

INSTANTIATE_TEST_SUITE_P(
    RegistryParser, Address,
    testing::Values(
        AddressCase{"NoneWithoutTheKeys", "", std::nullopt},
        AddressCase{"SerialNumberAsPrinted", textProperty("SerialNumber", "aa-Bb:cC"), "aa-Bb:cC"},
        AddressCase{"DeviceAddressWhenThereIsNoSerialNumber",
                    textProperty("DeviceAddress", "aa-bb"), "aa-bb"},
        AddressCase{"SerialNumberBeforeDeviceAddress",
                    textProperty("SerialNumber", "1") + textProperty("DeviceAddress", "2"), "1"},
        AddressCase{"SerialNumberEvenBehindDeviceAddress",
                    textProperty("DeviceAddress", "2") + textProperty("SerialNumber", "1"), "1"},
        AddressCase{"EmptySerialNumberIsStillTheAddress",
                    textProperty("SerialNumber", "") + textProperty("DeviceAddress", "2"), ""},
        AddressCase{"SerialNumberThatIsNoAddressIsStillTheAddress",
                    textProperty("SerialNumber", "F0T0000X") + textProperty("DeviceAddress", "2"),
                    "F0T0000X"},
        AddressCase{"SerialNumberWithoutClosingQuoteFallsBackToDeviceAddress",
                    textProperty("DeviceAddress", "2") + "\n\"SerialNumber\" = \"aa-bb", "2"},
        AddressCase{"SerialNumberClosedByTheNextKeyRunsUpToIt",
                    "\"SerialNumber\" = \"aa\n" + textProperty("DeviceAddress", "2"), "aa\n"},
        AddressCase{"SerialNumberThatIsANumberFallsBackToDeviceAddress",
                    property("SerialNumber", "12\n") + textProperty("DeviceAddress", "2"), "2"},
        AddressCase{"FirstSerialNumberWins",
                    textProperty("SerialNumber", "1") + textProperty("SerialNumber", "2"), "1"},
        AddressCase{"SerialNumberIsFoundBehindOneThatIsANumber",
                    property("SerialNumber", "12\n") + textProperty("SerialNumber", "1"), "1"},
        AddressCase{"DeviceAddressWithoutClosingQuoteIsNone", "\"DeviceAddress\" = \"aa-bb",
                    std::nullopt},
        AddressCase{"EmptyDeviceAddressIsTheAddress", textProperty("DeviceAddress", ""), ""},
        AddressCase{"NearMissKeysDoNotCount",
                    textProperty("SerialNumberX", "1") + textProperty("xSerialNumber", "2") +
                        textProperty("serialnumber", "3") + textProperty("DeviceAddresses", "4") +
                        "\"SerialNumber\"=\"5\"" + textProperty("BD_DeviceAddress", "6"),
                    std::nullopt},
        AddressCase{"TextBeyondAsciiIsKept", textProperty("SerialNumber", "鼠标"), "鼠标"}),
    [](const auto& row) { return row.param.what; });

TEST(RegistryParser, AMillionBlocksAreReadInOneGo)
{
    std::string text;
    for (int block = 1; block <= 1'000'000; ++block) {
        text += "\n    {";
        if (block % 1000 == 0) {
            text += percent55 + "\n" + product803;
        }
    }

    const auto entries = parseRegistry(text);

    EXPECT_THAT(entries, SizeIs(1000));
    EXPECT_THAT(entries.back(), hasLevelAndProduct(55, 803));
}

} // namespace
} // namespace voltmere
