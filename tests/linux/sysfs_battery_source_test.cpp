#include "linux/sysfs_battery_source.h"

#include "devices/device_listing.h"
#include "tests/linux/sysfs_fixture.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

const std::string mousesId = "HID_ID=0005:0000004C:00000269\n";

class SysfsBatterySourceTest : public testing::Test {
protected:
    std::vector<BatteryEntry> read() { return SysfsBatterySource(fixture.root()).readEntries(); }

    /// The one entry of the tree, after `entry` was put there.
    BatteryEntry readAlone(const SysfsEntry& entry)
    {
        fixture.add(entry);
        const std::vector<BatteryEntry> entries = read();
        EXPECT_THAT(entries, SizeIs(1));
        return entries.empty() ? BatteryEntry{} : entries.front();
    }

    SysfsEntry mouse = sysfsMouse();
    SysfsFixture fixture;
};

TEST_F(SysfsBatterySourceTest, ReadsAnEntry)
{
    const BatteryEntry entry = readAlone(mouse);

    EXPECT_EQ(entry.origin, "hid-02:00:5e:00:53:01-battery");
    EXPECT_THAT(entry.level, Optional(37));
    EXPECT_THAT(entry.product, Optional(0x269));
    EXPECT_THAT(entry.address, Optional(std::string("02:00:5e:00:53:01")));
    EXPECT_THAT(entry.givenName, Optional(std::string("Mouse of Ann")));
    EXPECT_EQ(entry.rejection, std::nullopt);
}

TEST_F(SysfsBatterySourceTest, TheAddressComesFromTheUeventOrElseFromTheDirectoryName)
{
    mouse.name += "-144"; // as newer kernels name it
    mouse.hidUniq = "02:00:5e:00:53:99";
    EXPECT_THAT(readAlone(mouse).address, Optional(std::string("02:00:5e:00:53:99")));
    for (const auto& unknown : {std::optional<std::string>(), std::optional<std::string>("")}) {
        mouse.hidUniq = unknown;
        EXPECT_THAT(readAlone(mouse).address, Optional(std::string("02:00:5e:00:53:01")));
    }
}

TEST_F(SysfsBatterySourceTest, BothVendorsAreReadAndNoOther)
{
    for (const char* const id : {"0005:000005AC:00000269", "0005:0000004c:00000269"}) {
        mouse.hidId = id;
        EXPECT_EQ(readAlone(mouse).rejection, std::nullopt) << id;
        EXPECT_THAT(readAlone(mouse).level, Optional(37)) << id;
    }
    mouse.hidId = "0005:0000046D:00000269";
    const BatteryEntry other = readAlone(mouse);
    EXPECT_EQ(other.rejection, "another maker's device");
    EXPECT_THAT(other.product, Optional(0x269));
    EXPECT_THAT(listDevices({other}, {}), IsEmpty());
}

TEST_F(SysfsBatterySourceTest, ACapacityThatIsMissingOrCannotBeReadIsNoLevel)
{
    mouse.capacity = std::nullopt;
    EXPECT_EQ(readAlone(mouse).level, std::nullopt);
    std::filesystem::create_directories(fixture.entryPath(mouse.name) / "capacity");

    const BatteryEntry entry = readAlone(mouse);
    EXPECT_EQ(entry.level, std::nullopt);
    EXPECT_EQ(entry.rejection, std::nullopt);
    EXPECT_THAT(listDevices({entry}, {}), IsEmpty());
}

TEST_F(SysfsBatterySourceTest, LevelsAreTakenAsTheyStand)
{
    EXPECT_THAT(parseCapacity("0\n"), Optional(0));
    EXPECT_THAT(parseCapacity("101\n"), Optional(101));
    EXPECT_THAT(parseCapacity("37"), Optional(37));
    EXPECT_THAT(parseCapacity("9223372036854775807\n"), Optional(INT64_MAX));
    for (const std::string& capacity :
         {std::string(), std::string("\n"), std::string("-1\n"), std::string("full\n"),
          std::string("37%\n"), std::string("3.5\n"), std::string("37 38\n"), std::string(" 37\n"),
          std::string("0x25\n"), std::string("+5\n"), std::string("9223372036854775808\n"),
          std::string("三\n"), std::string("3\0007\n", 4), std::string(10000, '9')}) {
        EXPECT_EQ(parseCapacity(capacity), std::nullopt) << capacity;
    }
}

TEST_F(SysfsBatterySourceTest, AnEntryWithoutAUsableIdentifierIsRejected)
{
    for (const char* const id :
         {"", "\n\n\n", "HID_ID", "HID_ID=\n", "HID_ID=0005\n", "HID_ID=0005:0000004C\n",
          "HID_ID=0005:0000004C:\n", "HID_ID=0005::00000269\n", "HID_ID=0005:0000004C:0000026G\n",
          "HID_ID=0005:0000004C:00000269 \n", "HID_IDS=0005:0000004C:00000269\n",
          "XHID_ID=0005:0000004C:00000269\n", "HID_ID=::::\n", "\x01\x02\xFF\xFE=\n",
          "HID_ID=0005:FFFFFFFFFFFFFFFFFFFF:00000269\n", "HID_ID=0005:0000004C:-269\n",
          "HID_ID=0005:0000004C:-0\n", "HID_ID=0005:-4C:00000269\n"}) {
        EXPECT_EQ(parseHidUevent(id).vendor, std::nullopt) << id;
        EXPECT_EQ(parseHidUevent(id).product, std::nullopt) << id;
    }
    mouse.hidId = "nonsense";
    EXPECT_EQ(readAlone(mouse).rejection, "its HID_ID cannot be read");
    std::filesystem::remove_all(fixture.entryPath(mouse.name) / "device");
    EXPECT_EQ(read().at(0).rejection, "its HID_ID cannot be read");
}

TEST_F(SysfsBatterySourceTest, NamesAreTakenAsTheyAreUnlessEmpty)
{
    for (const std::string name :
         {"Ann #1", "Ann\u2019s Magic Mouse", "\"Desk\" 'mouse'", "  two  blanks  ", "数字键盘",
          "a=b=c", "HID_ID=0003:0000046D:00000001", "\\n%s"}) {
        const HidUevent device = parseHidUevent(mousesId + "HID_NAME=" + name); // no line feed
        EXPECT_THAT(device.name, Optional(name));
        EXPECT_THAT(device.product, Optional(0x269));
    }
    EXPECT_EQ(parseHidUevent(mousesId + "HID_NAME=\nHID_NAME=second\n").name, std::nullopt);
    EXPECT_EQ(parseHidUevent(mousesId).name, std::nullopt);
    mouse.hidName = "Ann\xFF";
    EXPECT_EQ(listDevices({readAlone(mouse)}, {}).at(0).name, "Ann\uFFFD");
}

TEST_F(SysfsBatterySourceTest, OtherPowerSuppliesAreIgnored)
{
    for (const char* const name : {"BAT0", "AC", "ups_hid0", "hidpp_battery_0", "wacom_battery_1",
                                   "hid-02:00:5e:00:53:01", "ucsi-source-psy-1"}) {
        fixture.add(sysfsMouse(name));
    }

    EXPECT_THAT(read(), IsEmpty());
}

TEST_F(SysfsBatterySourceTest, EntriesComeInTheOrderOfTheirNamesAndAnOddNameDoesNoHarm)
{
    for (const char* const name : {"hid-cc-battery", "hid-aa-battery-1", "hid--battery",
                                   "hid-aa-battery", "hid-x-battery-battery-1"}) {
        mouse = sysfsMouse(name);
        mouse.hidUniq = std::nullopt;
        fixture.add(mouse);
    }
    writeFile(fixture.entryPath("hid-file-battery"), "not a directory");
    std::vector<std::string> found;
    for (const BatteryEntry& entry : read()) {
        found.push_back(entry.origin + ' ' + entry.address.value_or("rejected"));
    }

    EXPECT_THAT(found,
                ElementsAre("hid--battery ", "hid-aa-battery aa", "hid-aa-battery-1 aa",
                            "hid-cc-battery cc", "hid-file-battery rejected",
                            "hid-x-battery-battery-1 x-battery"));
}

TEST_F(SysfsBatterySourceTest, AMissingTreeIsEmptyAndSoIsAFileInItsPlace)
{
    EXPECT_THAT(read(), IsEmpty());
    writeFile(fixture.root() / "class" / "power_supply", "text");

    EXPECT_THAT(read(), IsEmpty());
}

TEST_F(SysfsBatterySourceTest, OfACableAndBluetoothTheFirstByNameWithALevelIsListed)
{
    SysfsEntry cable{.name = "hid-0003:05AC:0269.0002-battery",
                     .capacity = std::nullopt,
                     .hidId = "0003:000005AC:00000269",
                     .hidName = "Apple Inc. Magic Mouse",
                     .hidUniq = ""};
    fixture.add(mouse);
    fixture.add(cable);
    EXPECT_THAT(listDevices(read(), {}),
                ElementsAre(BatteryDevice{617, "Mouse of Ann", 37, "magicmouse", 0}));

    cable.capacity = "90\n";
    fixture.add(cable);
    EXPECT_THAT(listDevices(read(), {}),
                ElementsAre(BatteryDevice{617, "Apple Inc. Magic Mouse", 90, "magicmouse", 0}));
    EXPECT_THAT(read().at(0).address, Optional(std::string("0003:05AC:0269.0002")));
}

TEST_F(SysfsBatterySourceTest, ABluetoothNameWinsOverTheKernels)
{
    EXPECT_EQ(listDevices({readAlone(mouse)}, {{"02:00:5E:00:53:01", "Renamed"}}).at(0).name,
              "Renamed");
}

} // namespace
} // namespace voltmere
