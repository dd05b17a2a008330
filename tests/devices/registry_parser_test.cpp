#include "devices/registry_parser.h"

#include "devices/registry_text.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::Field;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

TEST(NumericCharacter, NumeralsOfEveryKindAreNumeric)
{
    constexpr std::u32string_view numerals =
        U"0123456789²³¹¼½¾٠٥٩०९౦Ⅷⅷ①⑳〇一二三四五六七八九十百千万亿零壹０９𝟘𝟿";
    for (const char32_t numeral : numerals) {
        EXPECT_TRUE(isNumeric(numeral)) << std::uint32_t{numeral};
    }
}

TEST(NumericCharacter, OtherCharactersAreNot)
{
    constexpr std::u32string_view others =
        U"\0 \n\r\t,-+.{}()\"/:;aAfFxXéβ鼠标电量、：٪…\u0301\u200D\uFE0F😀";
    for (const char32_t other : others) {
        EXPECT_FALSE(isNumeric(other)) << std::uint32_t{other};
    }
    EXPECT_FALSE(isNumeric(0));
}

TEST(NumericCharacter, ARangeEndsWhereItEnds)
{
    EXPECT_FALSE(isNumeric(U'0' - 1));
    EXPECT_FALSE(isNumeric(U'9' + 1));
    EXPECT_FALSE(isNumeric(0x065F));
    EXPECT_TRUE(isNumeric(0x0660));
    EXPECT_TRUE(isNumeric(0x0669));
    EXPECT_FALSE(isNumeric(0x066A));
    EXPECT_TRUE(isNumeric(0x2F890)) << "the last of all";
    EXPECT_FALSE(isNumeric(0x2F891));
    EXPECT_FALSE(isNumeric(0x10FFFF));
}

TEST(NumericCharacter, ThereAreAsManyAsTheDatabaseHas)
{
    int count = 0;
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        count += isNumeric(scalar) ? 1 : 0;
    }
    EXPECT_EQ(count, 1912);
}

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

const Extraction extractions[]{
    {"EndsAtTheEndOfTheText", withValue("617"), 617},
    {"EndsAtAComma", withValue("100, 5"), 100},
    {"EndsAtALineFeed", withValue("56\n7"), 56},
    {"EndsAtAMinusSign", withValue("12-3"), 12},
    {"EndsAtALetter", withValue("0x0269"), 0},
    {"EndsAtANumeralThatIsNoNumber", withValue("5٪"), 5},
    {"NothingForAnEmptyText", "", nothing},
    {"NothingForNoValue", withValue(""), nothing},
    {"NothingForANegativeNumber", withValue("-1"), nothing},
    {"NothingForANumberWithPlus", withValue("+1"), nothing},
    {"NothingForAQuotedNumber", withValue("\"617\""), nothing},
    {"NothingForTwoSpacesBeforeTheNumber", withValue(" 617"), nothing},
    {"IdeographAloneIsNothing", withValue("五"), nothing},
    {"ArabicDigitsAreNothing", withValue("٥٥"), nothing},
    {"IdeographInTheRunSpoilsIt", withValue("12五"), nothing},
    {"FractionInTheRunSpoilsIt", withValue("12½"), nothing},
    {"ArabicDigitInTheRunSpoilsIt", withValue("1٥2"), nothing},
    {"NumeralOfASupplementaryPlaneSpoilsIt", withValue("5𝟝"), nothing},
    {"CombiningMarkEndsIt", withValue("12\u03013"), 12},
    {"IdeographThatIsNoNumeralEndsIt", withValue("12鼠"), 12},
    {"Zero", withValue("0"), 0},
    {"LeadingZeros", withValue("000617"), 617},
    {"LeadingZerosBeyondNineteenDigits", withValue("0000000000000000000000000617"), 617},
    {"TwoToThe63rdLessOne", withValue("9223372036854775807"), 9223372036854775807},
    {"TwoToThe63rd", withValue("9223372036854775808"), nothing},
    {"TwoToThe64thLessOne", withValue("18446744073709551615"), nothing},
    {"HundredDigits", withValue(std::string(100, '9')), nothing},
    {"KeyWithSuffix", property("ProductIDs", "1"), nothing},
    {"KeyWithPrefix", property("xProductID", "1"), nothing},
    {"KeyOfOtherCase", property("productid", "1"), nothing},
    {"KeyWithoutQuotes", "ProductID = 1", nothing},
    {"KeyWithoutSpaces", "\"ProductID\"=1", nothing},
    {"KeyWithoutSpaceBehindTheSign", "\"ProductID\" =1", nothing},
    {"KeyCutOff", "\"ProductID\" =", nothing},
    {"KeyNearMissesBeforeIt",
     property("xProductID", "1") + property("ProductIDs", "2") + "\"ProductID\"=3" +
         property("ProductID", "4"),
     4},
    {"KeyAfterHalfOfItself", "\"ProductID\" \"ProductID\" = 5", 5},
    {"FirstWins", withValue("1\n") + withValue("2"), 1},
    {"FirstDecidesEvenWhenItIsNegative", withValue("-1\n") + withValue("2"), nothing},
    {"FirstDecidesEvenWhenItIsAText", withValue("\"1\"\n") + withValue("2"), nothing},
    {"FirstDecidesEvenWhenItIsTooBig", withValue("9223372036854775808\n") + withValue("2"),
     nothing},
};

INSTANTIATE_TEST_SUITE_P(RegistryParser, ExtractInt, testing::ValuesIn(extractions),
                         [](const auto& row) { return std::string(row.param.what); });

TEST(RegistryParserExtractInt, TakesTheKeyLiterally)
{
    EXPECT_EQ(extractInt("A.B", property("AxB", "1") + property("A.B", "2")), 2);
    EXPECT_EQ(extractInt("", property("", "3")), 3);
}

TEST(RegistryParser, EmptyOutputAndTextWithoutTheKeysYieldNoEntries)
{
    EXPECT_THAT(parseRegistry(""), IsEmpty());
    EXPECT_THAT(parseRegistry("no such thing\n    {\n    {\n    {"), IsEmpty());
}

/// What a block yields from some properties.
struct LevelCase {
    const char* what;
    std::string properties;
    std::optional<std::int64_t> level;
};

void PrintTo(const LevelCase& levelCase, std::ostream* out)
{
    *out << levelCase.properties;
}

class Level : public testing::TestWithParam<LevelCase> { };

TEST_P(Level, OfABlock)
{
    EXPECT_EQ(onlyEntry("\n    {\n" + product803 + GetParam().properties).level, GetParam().level);
}

std::string percent(std::string_view value)
{
    return "\n      " + property("BatteryPercent", value);
}

const std::string level90 = "\n      " + property("BatteryLevel", "90");

const LevelCase levelCases[]{
    {"BatteryPercent55AndBatteryLevel90Yield55", percent("55") + level90, 55},
    {"BatteryPercentWinsWhenItComesSecond", level90 + percent("55"), 55},
    {"OnlyBatteryLevel90Yields90", level90, 90},
    {"NeitherYieldsNothing", "", nothing},
    {"BatteryPercent100WithACommaYields100", percent("100,"), 100},
    {"BatteryPercentMinus1FallsBackToBatteryLevel", percent("-1") + level90, 90},
    {"BatteryPercentMinus1AloneYieldsNothing", percent("-1"), nothing},
    {"BatteryPercentTooBigFallsBack", percent("9223372036854775808") + level90, 90},
    {"SecondBatteryPercentIsNotTried", percent("-1") + percent("55"), nothing},
    {"SecondIsNotTriedBeforeBatteryLevel", percent("-1") + percent("55") + level90, 90},
    {"BatteryPercent0DoesNotFallBack", percent("0") + level90, 0},
    {"Level101IsKept", percent("101"), 101},
    {"LevelOf64BitsIsKept", percent("9223372036854775807"), 9223372036854775807},
    {"OtherKeysDoNotCount",
     property("BatteryStatusFlags", "3") + property("LowBatteryNotificationPercentage", "6") +
         property("xBatteryPercent", "1") + property("BatteryPercentage", "2") +
         property("BatteryLevels", "4") + property("batterypercent", "5") +
         "\"Nested\" = {\"BatteryPercent\"=7,\"BatteryLevel\"=8}",
     nothing},
    {"OtherKeysDoNotHideIt", property("BatteryPercentage", "2") + percent("55"), 55},
};

INSTANTIATE_TEST_SUITE_P(RegistryParser, Level, testing::ValuesIn(levelCases),
                         [](const auto& row) { return std::string(row.param.what); });

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

TEST(RegistryParser, TheOriginCountsTheBlocksOfTheText)
{
    const std::string empty = registryBlock({property("VendorID", "76")});
    const std::vector<BatteryEntry> entries = parseRegistry(
        registryBlock({percent55, product803}) + empty + registryBlock({percent55, product803}));
    ASSERT_THAT(entries, SizeIs(2));
    EXPECT_EQ(entries[0].origin, "registry block 1");
    EXPECT_EQ(entries[1].origin, "registry block 3");
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

std::string serial(std::string_view number)
{
    return textProperty("SerialNumber", number);
}

const std::string device2 = textProperty("DeviceAddress", "2");

const AddressCase addressCases[]{
    {"NoneWithoutTheKeys", "", std::nullopt},
    {"SerialNumberAsPrinted", serial("aa-Bb:cC"), "aa-Bb:cC"},
    {"DeviceAddressWhenThereIsNoSerialNumber", device2, "2"},
    {"SerialNumberBeforeDeviceAddress", serial("1") + device2, "1"},
    {"SerialNumberEvenBehindDeviceAddress", device2 + serial("1"), "1"},
    {"EmptySerialNumberIsStillTheAddress", serial("") + device2, ""},
    {"SerialNumberThatIsNoAddressIsStillTheAddress", serial("F0T0000X") + device2, "F0T0000X"},
    {"SerialNumberWithoutClosingQuoteFallsBackToDeviceAddress",
     device2 + "\n\"SerialNumber\" = \"aa-bb", "2"},
    {"SerialNumberClosedByTheNextKeyRunsUpToIt", "\"SerialNumber\" = \"aa\n" + device2, "aa\n"},
    {"SerialNumberThatIsANumberFallsBackToDeviceAddress",
     property("SerialNumber", "12\n") + device2, "2"},
    {"FirstSerialNumberWins", serial("1") + serial("2"), "1"},
    {"SerialNumberIsFoundBehindOneThatIsANumber", property("SerialNumber", "12\n") + serial("1"),
     "1"},
    {"DeviceAddressWithoutClosingQuoteIsNone", "\"DeviceAddress\" = \"aa-bb", std::nullopt},
    {"EmptyDeviceAddressIsTheAddress", textProperty("DeviceAddress", ""), ""},
    {"NearMissKeysDoNotCount",
     textProperty("SerialNumberX", "1") + textProperty("xSerialNumber", "2") +
         textProperty("serialnumber", "3") + textProperty("DeviceAddresses", "4") +
         "\"SerialNumber\"=\"5\"" + textProperty("BD_DeviceAddress", "6"),
     std::nullopt},
    {"TextBeyondAsciiIsKept", serial("鼠标"), "鼠标"},
};

INSTANTIATE_TEST_SUITE_P(RegistryParser, Address, testing::ValuesIn(addressCases),
                         [](const auto& row) { return std::string(row.param.what); });

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
