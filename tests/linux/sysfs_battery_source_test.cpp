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

/// A synthetic Bluetooth mouse, as it is when nothing is wrong with it.
SysfsEntry mouse()
{
    return {.name = "hid-02:00:5e:00:53:01-battery",
            .capacity = "37\n",
            .hidId = "0005:0000004C:00000269",
            .hidName = "Mouse of Ann",
            .hidUniq = "02:00:5e:00:53:01"};
}

class SysfsBatterySourceTest : public testing::Test {
protected:
    std::vector<BatteryEntry> read() { return SysfsBatterySource(fixture.root()).readEntries(); }

    /// The one entry of a tree that holds `entry` alone.
    BatteryEntry readAlone(const SysfsEntry& entry)
    {
        fixture.add(entry);
        return readOnly();
    }

    BatteryEntry readOnly()
    {
        const std::vector<BatteryEntry> entries = read();
        EXPECT_THAT(entries, SizeIs(1));
        return entries.empty() ? BatteryEntry{} : entries.front();
    }

    std::optional<std::int64_t> levelFrom(const std::string& capacity)
    {
        SysfsEntry entry = mouse();
        entry.capacity = capacity;
        return readAlone(entry).level;
    }

    SysfsFixture fixture;
};

TEST_F(SysfsBatterySourceTest, ReadsAnEntry)
{
    const BatteryEntry entry = readAlone(mouse());

    EXPECT_EQ(entry.origin, "hid-02:00:5e:00:53:01-battery");
    EXPECT_THAT(entry.level, Optional(37));
    EXPECT_THAT(entry.product, Optional(0x269));
    EXPECT_THAT(entry.address, Optional(std::string("02:00:5e:00:53:01")));
    EXPECT_THAT(entry.givenName, Optional(std::string("Mouse of Ann")));
    EXPECT_EQ(entry.rejection, std::nullopt);
}

TEST_F(SysfsBatterySourceTest, ReadsTheDirectoryNameOfNewerKernels)
{
    SysfsEntry newer = mouse();
    newer.name = "hid-02:00:5e:00:53:01-battery-144";
    newer.hidUniq = std::nullopt;

    const BatteryEntry entry = readAlone(newer);

    EXPECT_EQ(entry.origin, "hid-02:00:5e:00:53:01-battery-144");
    EXPECT_THAT(entry.level, Optional(37));
    EXPECT_THAT(entry.address, Optional(std::string("02:00:5e:00:53:01")));
}

TEST_F(SysfsBatterySourceTest, AcceptsBothVendors)
{
    SysfsEntry firstGeneration = mouse();
    firstGeneration.hidId = "0005:000005AC:0000030D";

    const BatteryEntry entry = readAlone(firstGeneration);

    EXPECT_EQ(entry.rejection, std::nullopt);
    EXPECT_THAT(entry.product, Optional(0x30D));
    EXPECT_THAT(entry.level, Optional(37));
}

TEST_F(SysfsBatterySourceTest, RejectsAnotherVendorEvenWithAKnownProduct)
{
    SysfsEntry other = mouse();
    other.hidId = "0005:0000046D:00000269";

    const BatteryEntry entry = readAlone(other);

    EXPECT_TRUE(entry.rejection.has_value());
    EXPECT_THAT(listDevices({entry}, {}), IsEmpty());
}

TEST_F(SysfsBatterySourceTest, TheAddressComesFromTheUeventFirst)
{
    SysfsEntry entry = mouse();
    entry.hidUniq = "02:00:5e:00:53:99";

    EXPECT_THAT(readAlone(entry).address, Optional(std::string("02:00:5e:00:53:99")));
}

TEST_F(SysfsBatterySourceTest, TheAddressComesFromTheDirectoryNameElse)
{
    SysfsEntry entry = mouse();
    entry.hidUniq = "";

    EXPECT_THAT(readAlone(entry).address, Optional(std::string("02:00:5e:00:53:01")));
}

TEST_F(SysfsBatterySourceTest, AnEntryWithoutACapacityHasNoLevel)
{
    SysfsEntry entry = mouse();
    entry.capacity = std::nullopt;

    const BatteryEntry read = readAlone(entry);

    EXPECT_EQ(read.level, std::nullopt);
    EXPECT_THAT(read.product, Optional(0x269));
    EXPECT_THAT(listDevices({read}, {}), IsEmpty());
}

TEST_F(SysfsBatterySourceTest, ACapacityThatCannotBeReadIsNoLevel)
{
    SysfsEntry entry = mouse();
    entry.capacity = std::nullopt;
    std::filesystem::create_directories(fixture.entryPath(entry.name) / "capacity");

    EXPECT_EQ(readAlone(entry).level, std::nullopt);
}

TEST_F(SysfsBatterySourceTest, LevelsAreTakenAsTheyStand)
{
    EXPECT_THAT(levelFrom("0\n"), Optional(0));
    EXPECT_THAT(levelFrom("1\n"), Optional(1));
    EXPECT_THAT(levelFrom("100\n"), Optional(100));
    EXPECT_THAT(levelFrom("101\n"), Optional(101));
    EXPECT_THAT(levelFrom("37"), Optional(37));
    EXPECT_THAT(levelFrom("9223372036854775807\n"), Optional(INT64_MAX));
}

TEST_F(SysfsBatterySourceTest, WhatIsNoWholeNumberIsNoLevel)
{
    for (const char* const capacity :
         {"", "\n", "-1\n", "-100\n", "full\n", "37%\n", "3.5\n", "37 38\n", " 37\n", "0x25\n",
          "+5\n", "9223372036854775808\n", "三\n", "1e1\n"}) {
        EXPECT_EQ(levelFrom(capacity), std::nullopt) << capacity;
    }
    EXPECT_EQ(levelFrom(std::string("3\0"
                                    "7\n",
                                    4)),
              std::nullopt);
    EXPECT_EQ(levelFrom(std::string(10000, '9')), std::nullopt);
}

TEST_F(SysfsBatterySourceTest, AnEntryWithoutAUeventIsRejected)
{
    writeFile(fixture.entryPath("hid-02:00:5e:00:53:01-battery") / "capacity", "50\n");

    EXPECT_TRUE(readOnly().rejection.has_value());
}

TEST_F(SysfsBatterySourceTest, AUeventWithoutAUsableIdentifierIsRejected)
{
    const std::string name = mouse().name;
    writeFile(fixture.entryPath(name) / "capacity", "50\n");
    for (const std::string uevent :
         {"", "\n\n\n", "HID_ID", "HID_ID=\n", "HID_ID=0005\n", "HID_ID=0005:0000004C\n",
          "HID_ID=0005:0000004C:\n", "HID_ID=0005::00000269\n", "HID_ID=0005:0000004C:0000026G\n",
          "HID_ID=0005:0000004C:00000269 \n", "HID_IDS=0005:0000004C:00000269\n",
          "XHID_ID=0005:0000004C:00000269\n", "HID_ID=::::\n", "\x01\x02\xFF\xFE=\n",
          "HID_ID=0005:FFFFFFFFFFFFFFFFFFFF:00000269\n", "HID_ID=0005:0000004C:-269\n",
          "HID_ID=0005:0000004C:-0\n", "HID_ID=0005:-4C:00000269\n"}) {
        fixture.setUevent(name, uevent);
        const BatteryEntry entry = readOnly();
        EXPECT_TRUE(entry.rejection.has_value()) << uevent;
        EXPECT_THAT(listDevices({entry}, {}), IsEmpty()) << uevent;
    }
}

TEST_F(SysfsBatterySourceTest, AUeventMayEndWithoutALineFeedAndSpellHexadecimalsEitherWay)
{
    fixture.add(mouse());
    fixture.setUevent(mouse().name, "HID_NAME=Mouse\nHID_ID=0005:0000004c:00000323");

    const BatteryEntry entry = readOnly();

    EXPECT_THAT(entry.product, Optional(803));
    EXPECT_THAT(entry.givenName, Optional(std::string("Mouse")));
}

TEST_F(SysfsBatterySourceTest, NamesAreTakenAsTheyAre)
{
    for (const std::string name :
         {"Ann #1", "Ann\u2019s Magic Mouse", "\"Desk\" 'mouse'", "  two  blanks  ", "数字键盘",
          "a=b=c", "HID_ID=0003:0000046D:00000001", "\\n%s"}) {
        SysfsEntry entry = mouse();
        entry.hidName = name;
        const BatteryEntry read = readAlone(entry);
        EXPECT_THAT(read.givenName, Optional(name));
        EXPECT_THAT(read.product, Optional(0x269));
    }
}

TEST_F(SysfsBatterySourceTest, AnEmptyOrMissingNameIsNone)
{
    SysfsEntry entry = mouse();
    entry.hidName = "";
    EXPECT_EQ(readAlone(entry).givenName, std::nullopt);
    entry.hidName = std::nullopt;
    EXPECT_EQ(readAlone(entry).givenName, std::nullopt);
    EXPECT_EQ(listDevices(read(), {}).at(0).name, "Magic Mouse 2");
}

TEST_F(SysfsBatterySourceTest, ANameThatIsNoUtf8IsRepairedForDisplay)
{
    SysfsEntry entry = mouse();
    entry.hidName = "Ann\xFF";

    EXPECT_EQ(listDevices({readAlone(entry)}, {}).at(0).name, "Ann\uFFFD");
}

TEST_F(SysfsBatterySourceTest, OtherPowerSuppliesAreIgnored)
{
    for (const char* const name : {"BAT0", "AC", "ups_hid0", "hidpp_battery_0", "wacom_battery_1",
                                   "hid-02:00:5e:00:53:01", "ucsi-source-psy-1"}) {
        SysfsEntry entry = mouse();
        entry.name = name;
        fixture.add(entry);
    }

    EXPECT_THAT(read(), IsEmpty());
}

TEST_F(SysfsBatterySourceTest, AnOddDirectoryNameDoesNoHarm)
{
    SysfsEntry entry = mouse();
    entry.hidUniq = std::nullopt;
    for (const char* const name : {"hid--battery", "hid-battery", "hid-x-battery-battery-1"}) {
        entry.name = name;
        fixture.add(entry);
    }
    writeFile(fixture.entryPath("hid-file-battery"), "not a directory");

    const std::vector<BatteryEntry> entries = read();

    ASSERT_THAT(entries, SizeIs(4));
    EXPECT_EQ(entries[0].origin, "hid--battery");
    EXPECT_THAT(entries[0].address, Optional(std::string()));
    EXPECT_EQ(entries[2].origin, "hid-file-battery");
    EXPECT_TRUE(entries[2].rejection.has_value());
    EXPECT_THAT(entries[3].address, Optional(std::string("x-battery")));
}

TEST_F(SysfsBatterySourceTest, EntriesComeInTheOrderOfTheirNames)
{
    for (const char* const name : {"hid-cc-battery", "hid-aa-battery-1", "hid-bb-battery",
                                   "hid-aa-battery", "hid-0003:05AC:0269.0001-battery"}) {
        SysfsEntry entry = mouse();
        entry.name = name;
        fixture.add(entry);
    }
    std::vector<std::string> origins;
    for (const BatteryEntry& entry : read()) {
        origins.push_back(entry.origin);
    }

    EXPECT_THAT(origins,
                ElementsAre("hid-0003:05AC:0269.0001-battery", "hid-aa-battery", "hid-aa-battery-1",
                            "hid-bb-battery", "hid-cc-battery"));
}

TEST_F(SysfsBatterySourceTest, AMissingTreeIsEmpty)
{
    EXPECT_THAT(SysfsBatterySource(fixture.root() / "missing").readEntries(), IsEmpty());
    EXPECT_THAT(read(), IsEmpty());
}

TEST_F(SysfsBatterySourceTest, APlaceThatIsNoDirectoryIsEmpty)
{
    writeFile(fixture.root() / "class" / "power_supply", "text");

    EXPECT_THAT(read(), IsEmpty());
}

TEST_F(SysfsBatterySourceTest, ADeviceOnACableIsRead)
{
    const BatteryEntry entry = readAlone({.name = "hid-0003:05AC:0323.0007-battery",
                                          .capacity = "64\n",
                                          .hidId = "0003:000005AC:00000323",
                                          .hidName = "Apple Inc. Magic Mouse",
                                          .hidUniq = ""});

    EXPECT_EQ(entry.rejection, std::nullopt);
    EXPECT_THAT(entry.product, Optional(803));
    EXPECT_THAT(entry.level, Optional(64));
    EXPECT_THAT(entry.address, Optional(std::string("0003:05AC:0323.0007")));
}

TEST_F(SysfsBatterySourceTest, WithACableThatTellsNoLevelTheBluetoothEntryIsListed)
{
    fixture.add({.name = "hid-0003:05AC:0269.0002-battery",
                 .capacity = std::nullopt,
                 .hidId = "0003:000005AC:00000269",
                 .hidName = "Apple Inc. Magic Mouse",
                 .hidUniq = "F0T000000AAAA"});
    fixture.add(mouse());

    const std::vector<BatteryEntry> entries = read();

    ASSERT_THAT(entries, SizeIs(2));
    EXPECT_THAT(judgeEntries(entries, {}).front(),
                testing::VariantWith<SkipReason>(SkipReason::noLevel));
    EXPECT_THAT(listDevices(entries, {}),
                ElementsAre(BatteryDevice{617, "Mouse of Ann", 37, "magicmouse", 0}));
}

TEST_F(SysfsBatterySourceTest, WithACableThatTellsALevelTheFirstEntryByNameIsListed)
{
    fixture.add(mouse());
    fixture.add({.name = "hid-0003:05AC:0269.0002-battery",
                 .capacity = "90\n",
                 .hidId = "0003:000005AC:00000269",
                 .hidName = "Apple Inc. Magic Mouse",
                 .hidUniq = "F0T000000AAAA"});

    EXPECT_THAT(listDevices(read(), {}),
                ElementsAre(BatteryDevice{617, "Apple Inc. Magic Mouse", 90, "magicmouse", 0}));
}

TEST_F(SysfsBatterySourceTest, ABluetoothNameWinsOverTheKernels)
{
    fixture.add(mouse());

    EXPECT_EQ(listDevices(read(), {{"02:00:5E:00:53:01", "Renamed"}}).at(0).name, "Renamed");
}

} // namespace
} // namespace voltmere
