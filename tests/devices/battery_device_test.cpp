#include "devices/battery_device.h"

#include "fakes/sample_devices.h"

#include <gmock/gmock.h>

#include <limits>
#include <type_traits>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct CatalogueRow {
    std::int64_t product;
    const char* name;
    const char* symbol;
    std::int64_t order;
};

constexpr CatalogueRow catalogueRows[] = {
    {0x0265, "Magic Trackpad 2", "rectangle.and.hand.point.up.left", 2},
    {0x0267, "Magic Keyboard", "keyboard", 1},
    {0x0269, "Magic Mouse 2", "magicmouse", 0},
    {0x026B, "Magic Keyboard 数字键盘版", "keyboard", 1},
    {0x026C, "Magic Keyboard 数字键盘版", "keyboard", 1},
    {0x0290, "Magic Keyboard with Touch ID", "keyboard", 1},
    {0x0291, "Magic Keyboard with Touch ID 数字键盘版", "keyboard", 1},
    {0x0323, "Magic Mouse", "magicmouse", 0},
    {0x0324, "Magic Trackpad", "rectangle.and.hand.point.up.left", 2},
    {0x0325, "Magic Keyboard", "keyboard", 1},
};

class Catalogue : public testing::TestWithParam<CatalogueRow> { };

TEST_P(Catalogue, HasTheNameSymbolAndOrderOfTheModel)
{
    const auto& catalogue = BatteryDevice::knownAppleDevices();
    const auto known = catalogue.find(GetParam().product);
    ASSERT_NE(known, catalogue.end());
    EXPECT_EQ(known->second.name, GetParam().name);
    EXPECT_EQ(known->second.symbol, GetParam().symbol);
    EXPECT_EQ(known->second.order, GetParam().order);
}

INSTANTIATE_TEST_SUITE_P(EachModel, Catalogue, testing::ValuesIn(catalogueRows),
                         [](const auto& row) {
                             return "Product" + std::to_string(row.param.product);
                         });

TEST(BatteryDeviceCatalogue, HoldsTenModelsAndNoOther)
{
    EXPECT_EQ(BatteryDevice::knownAppleDevices().size(), 10U);
}

TEST(BatteryDeviceCatalogue, Product614ZeroAndNegativeNumbersHaveNoEntry)
{
    constexpr std::int64_t unknown[] = {614, 0, -1, -617, 612, 618, 802, 806,
                                        std::numeric_limits<std::int64_t>::min(),
                                        std::numeric_limits<std::int64_t>::max(),
                                        // 617 in the low bits: the whole number counts
                                        (std::int64_t{1} << 32) + 617};
    for (const std::int64_t product : unknown) {
        EXPECT_FALSE(BatteryDevice::knownAppleDevices().contains(product)) << product;
    }
}

const BatteryDevice sample = mouse(40);

TEST(BatteryDevice, RecordsThatDifferOnlyInLevelAreUnequal)
{
    BatteryDevice other = sample;
    other.level = 39;
    EXPECT_FALSE(other == sample);
    EXPECT_NE(std::vector{other}, std::vector{sample}) << "a change of level changes the list";
}

TEST(BatteryDevice, RecordsWithTheSameIdButDifferentNamesAreUnequalYetHaveOneIdentity)
{
    BatteryDevice other = sample;
    other.name = "Mouse of Ann";
    EXPECT_FALSE(other == sample);
    EXPECT_EQ(other.id, sample.id);
}

TEST(IsLow, ADeviceAtTheThresholdIsLow)
{
    EXPECT_TRUE(isLow(sample, 40));
    EXPECT_TRUE(isLow(sample, 41));
    EXPECT_FALSE(isLow(sample, 39));
    EXPECT_TRUE(isLow(mouse(-1), -1));
}

TEST(LowDevices, AreThoseAtOrBelowTheThresholdInTheirOrder)
{
    const std::vector<BatteryDevice> devices{trackpad(41), sample, keyboard(9)};
    EXPECT_THAT(lowDevices(devices, 40), ElementsAre(sample, keyboard(9)));
    EXPECT_THAT(lowDevices(devices, 8), IsEmpty());
    EXPECT_THAT(lowDevices({}, 100), IsEmpty());
}

TEST(NamesWithLevels, JoinsNameBlankLevelPercentWithTheSeparatorBetween)
{
    EXPECT_EQ(namesWithLevels({}, ", "), "");
    EXPECT_EQ(namesWithLevels({sample}, ", "), "Magic Mouse 40%");
    EXPECT_EQ(namesWithLevels({sample, keyboard(-9), sample}, " | "),
              "Magic Mouse 40% | Magic Keyboard -9% | Magic Mouse 40%");
}

TEST(WeakestDevice, IsTheFirstOfTheLowestOnesIfAny)
{
    EXPECT_EQ(weakestDevice({mouse(40), keyboard(15), trackpad(15)}), keyboard(15));
    EXPECT_EQ(weakestDevice({}), std::nullopt);
}

} // namespace
} // namespace voltmere
