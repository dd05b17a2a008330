// Tests judgeEntries, listDevices and sortForDisplay of devices/device_reader.h.

#include "devices/device_reader.h"

#include "fakes/sample_devices.h"

#include <gmock/gmock.h>

#include <limits>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;
using testing::VariantWith;

BatteryEntry entry(std::int64_t product, std::int64_t level,
                   std::optional<std::string> address = std::nullopt)
{
    return {.origin = "test",
            .level = level,
            .product = product,
            .address = std::move(address),
            .givenName = std::nullopt,
            .rejection = std::nullopt};
}

std::string nameOf(const BatteryEntry& only, const NameMap& names)
{
    const std::vector<BatteryDevice> devices = listDevices({only}, names);
    EXPECT_THAT(devices, SizeIs(1));
    return devices.empty() ? std::string() : devices.front().name;
}

auto isSkipped(SkipReason reason)
{
    return VariantWith<SkipReason>(reason);
}

auto isListed()
{
    return VariantWith<BatteryDevice>(testing::_);
}

TEST(DeviceListing, LevelsAreNeitherClampedNorRefused)
{
    for (const std::int64_t level : {std::int64_t{0}, std::int64_t{100}, std::int64_t{101},
                                     std::numeric_limits<std::int64_t>::max()}) {
        EXPECT_THAT(listDevices({entry(803, level)}, {}),
                    ElementsAre(Field(&BatteryDevice::level, level)));
    }
}

TEST(DeviceListing, Product612AndEntriesWithoutALevelOrAProductAreDropped)
{
    BatteryEntry noLevel = entry(803, 0);
    noLevel.level.reset();
    BatteryEntry noProduct = entry(803, 55);
    noProduct.product.reset();
    const std::vector<BatteryEntry> entries{entry(612, 55), noLevel, noProduct};
    EXPECT_THAT(listDevices(entries, {}), IsEmpty());
    EXPECT_THAT(judgeEntries(entries, {}),
                ElementsAre(isSkipped(SkipReason::unknownProduct), isSkipped(SkipReason::noLevel),
                            isSkipped(SkipReason::noProduct)));
}

TEST(DeviceListing, TheFirstRuleThatSkipsAnEntryGivesTheReason)
{
    BatteryEntry rejected;
    rejected.rejection = "not mine";
    BatteryEntry rejectedThoughComplete = entry(803, 55);
    rejectedThoughComplete.rejection = "";
    BatteryEntry noLevelOfUnknownProduct = entry(612, 0);
    noLevelOfUnknownProduct.level.reset();
    BatteryEntry mouseWithoutLevel = entry(803, 0);
    mouseWithoutLevel.level.reset();
    const std::vector<BatteryEntry> entries{
        rejected,       BatteryEntry{}, rejectedThoughComplete,  mouseWithoutLevel,
        entry(803, 55), entry(612, 1),  noLevelOfUnknownProduct, mouseWithoutLevel,
        entry(803, 1),  entry(612, 1),  entry(805, 2),
    };
    EXPECT_THAT(judgeEntries(entries, {}),
                ElementsAre(isSkipped(SkipReason::rejectedBySource), isSkipped(SkipReason::noLevel),
                            isSkipped(SkipReason::rejectedBySource), isSkipped(SkipReason::noLevel),
                            isListed(), isSkipped(SkipReason::unknownProduct),
                            isSkipped(SkipReason::noLevel), isSkipped(SkipReason::noLevel),
                            isSkipped(SkipReason::modelAlreadyListed),
                            isSkipped(SkipReason::unknownProduct), isListed()));
}

TEST(DeviceListing, EveryReasonHasItsDescription)
{
    EXPECT_EQ(description(SkipReason::rejectedBySource), "not a peripheral that the source reads");
    EXPECT_EQ(description(SkipReason::noLevel), "reports no level");
    EXPECT_EQ(description(SkipReason::noProduct), "reports no product identifier");
    EXPECT_EQ(description(SkipReason::unknownProduct), "product is not in the catalogue");
    EXPECT_EQ(description(SkipReason::modelAlreadyListed),
              "another device of the same model is listed");
}

TEST(DeviceListing, OfTwoMagicMiceOnlyTheFirstIsReported)
{
    EXPECT_THAT(listDevices({entry(803, 40), entry(803, 9)}, {}),
                ElementsAre(BatteryDevice{803, "Magic Mouse", 40, "magicmouse", 0}));
}

TEST(DeviceListing, TwoModelsWithOneCatalogueNameAreBothReported)
{
    EXPECT_THAT(listDevices({entry(615, 1), entry(805, 2)}, {}), SizeIs(2));
    EXPECT_THAT(listDevices({entry(619, 1), entry(620, 2)}, {}), SizeIs(2));
}

TEST(DeviceListing, ASerialNumberWithHyphensFindsTheNameUnderColonsAndUpperCase)
{
    EXPECT_EQ(nameOf(entry(803, 55, "aa-bb-cc-dd-ee-ff"), {{"AA:BB:CC:DD:EE:FF", "Mouse of Ann"}}),
              "Mouse of Ann");
}

TEST(DeviceListing, WithoutSuchABluetoothNameTheMouseIsNamedMagicMouse)
{
    EXPECT_EQ(nameOf(entry(803, 55, "aa-bb-cc-dd-ee-ff"), {}), "Magic Mouse");
    EXPECT_EQ(nameOf(entry(803, 55, "aa-bb-cc-dd-ee-ff"), {{"AA:BB:CC:DD:EE:FE", "Other"}}),
              "Magic Mouse");
    EXPECT_EQ(nameOf(entry(803, 55), {{"AA:BB:CC:DD:EE:FF", "Mouse of Ann"}}), "Magic Mouse");
    EXPECT_EQ(nameOf(entry(803, 55), {{"", "Nobody"}}), "Magic Mouse");
}

TEST(DeviceListing, ABluetoothNameKeptUnderHyphensIsNotFound)
{
    EXPECT_EQ(nameOf(entry(803, 55, "aa-bb"), {{"AA-BB", "Mouse of Ann"}}), "Magic Mouse");
    EXPECT_EQ(nameOf(entry(803, 55, "aa-bb"), {{"aa:bb", "Mouse of Ann"}}), "Magic Mouse");
}

TEST(DeviceListing, AnEmptyAddressIsLookedUpLikeAnyOther)
{
    EXPECT_EQ(nameOf(entry(803, 55, ""), {{"", "Nameless"}}), "Nameless");
    EXPECT_EQ(nameOf(entry(803, 55, ""), {{"AA", "Mouse of Ann"}}), "Magic Mouse");
}

TEST(DeviceListing, AnEmptyBluetoothNameIsStillTheName)
{
    EXPECT_EQ(nameOf(entry(803, 55, "aa"), {{"AA", ""}}), "");
}

TEST(DeviceListing, TheAddressIsNotTrimmed)
{
    EXPECT_EQ(nameOf(entry(803, 55, " aa"), {{"AA", "Mouse of Ann"}}), "Magic Mouse");
}

TEST(DeviceListing, ABluetoothNameComesBeforeAGivenNameAndThatBeforeTheCatalogue)
{
    BatteryEntry given = entry(803, 55, "aa:bb");
    given.givenName = "Given";
    EXPECT_EQ(nameOf(given, {{"AA:BB", "Bluetooth"}}), "Bluetooth");
    EXPECT_EQ(nameOf(given, {{"CC:DD", "Bluetooth"}}), "Given");
    EXPECT_EQ(nameOf(given, {}), "Given");
    given.address.reset();
    EXPECT_EQ(nameOf(given, {{"AA:BB", "Bluetooth"}}), "Given");
    given.givenName.reset();
    EXPECT_EQ(nameOf(given, {{"AA:BB", "Bluetooth"}}), "Magic Mouse");
}

TEST(DeviceListing, InvalidUtf8InAGivenNameIsReplaced)
{
    BatteryEntry given = entry(803, 55);
    given.givenName = "M\xFFus\xE9";
    EXPECT_EQ(nameOf(given, {}), "M\uFFFDus\uFFFD");
    given.givenName = "安的鼠标";
    EXPECT_EQ(nameOf(given, {}), "安的鼠标");
}

TEST(DeviceListing, RecordsComeBackOrderedMiceKeyboardsTrackpads)
{
    EXPECT_THAT(namesOf(listDevices({entry(804, 1), entry(656, 2), entry(803, 3)}, {})),
                ElementsAre("Magic Mouse", "Magic Keyboard with Touch ID", "Magic Trackpad"));
}

TEST(DeviceListing, NeitherNameNorLevelNorIdentifierOrdersDevicesOfOneKind)
{
    const auto idsOf = [](const std::vector<BatteryDevice>& devices) {
        std::vector<std::int64_t> ids;
        for (const BatteryDevice& device : devices) {
            ids.push_back(device.id);
        }
        return ids;
    };
    EXPECT_THAT(idsOf(listDevices({entry(804, 9), entry(657, 50), entry(805, 7), entry(615, 99),
                                   entry(613, 1), entry(803, 5), entry(617, 4)},
                                  {})),
                ElementsAre(803, 617, 657, 805, 615, 804, 613));
}

TEST(SortForDisplay, IsStableAndComparesOrderAlone)
{
    std::vector<BatteryDevice> devices;
    for (std::int64_t i = 0; i < 300; ++i) {
        devices.push_back({299 - i, "device", (i * 37) % 101, "", i % 3});
    }
    sortForDisplay(devices);
    ASSERT_THAT(devices, SizeIs(300));
    for (std::size_t i = 1; i < devices.size(); ++i) {
        const BatteryDevice& before = devices[i - 1];
        const BatteryDevice& after = devices[i];
        ASSERT_TRUE(before.order < after.order ||
                    (before.order == after.order && before.id > after.id))
            << "at " << i;
    }
}

TEST(BluetoothAddress, IsNormalisedToColonsAndUpperCase)
{
    EXPECT_EQ(normalisedAddress("aa-bb-cc-dd-ee-ff"), "AA:BB:CC:DD:EE:FF");
    EXPECT_EQ(normalisedAddress("aA:0b-9Z"), "AA:0B:9Z");
    EXPECT_EQ(normalisedAddress("--"), "::");
    EXPECT_EQ(normalisedAddress(""), "");
}

TEST(BluetoothAddress, InUpperCaseKeepsItsSeparators)
{
    EXPECT_EQ(upperCased("az-AZ:09_`{@[鼠"), "AZ-AZ:09_`{@[鼠");
}

} // namespace
} // namespace voltmere
