#include "ui/panel.h"

#include "fakes/model_world.h"
#include "fakes/sample_devices.h"
#include "snooze/custom_time.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The panel's content over a model whose outside is all fakes and whose first reading is done.
class PanelContentTest : public testing::Test {
protected:
    BatteryModel& start(const std::string& language = "en")
    {
        world.defaults.set("language", language);
        BatteryModel& model = world.start();
        world.runLoop.settle();
        return model;
    }

    PanelContent content() { return panelContent(*world.model); }

    ModelWorld world;
};

TEST_F(PanelContentTest, SaysEverythingInEnglish)
{
    start("en");
    const PanelContent panel = content();
    EXPECT_EQ(panel.applicationName, "Cellsentry");
    EXPECT_EQ(panel.emptySymbol, "questionmark.circle");
    EXPECT_EQ(panel.emptyText, "No peripherals found");
    EXPECT_EQ(panel.warnBelow, "Alert below");
    EXPECT_EQ(panel.threshold.name, "Threshold");
    EXPECT_EQ(panel.warnSuffix, "");
    EXPECT_EQ(panel.instantAlert.title, "Immediately");
    EXPECT_EQ(panel.dailyCheck.title, "Daily check");
    EXPECT_EQ(panel.checkTime, "Check time");
    EXPECT_EQ(panel.checkHour.name, "Hour");
    EXPECT_EQ(panel.timeSeparator, ":");
    EXPECT_EQ(panel.checkMinute.name, "Minute");
    EXPECT_EQ(panel.testAlert, "Enable / test alert");
    EXPECT_EQ(panel.launchAtLogin.title, "Launch at login");
    EXPECT_EQ(panel.quit, "Quit");
    EXPECT_EQ(panel.languageLabel, "Language");
    EXPECT_EQ(panel.language.name, "Language");
}

TEST_F(PanelContentTest, SaysEverythingInChinese)
{
    start("zh");
    const PanelContent panel = content();
    EXPECT_EQ(panel.applicationName, "续航哨兵");
    EXPECT_EQ(panel.emptyText, "未检测到外设");
    EXPECT_EQ(panel.warnBelow, "电量低于");
    EXPECT_EQ(panel.threshold.name, "阈值");
    EXPECT_EQ(panel.warnSuffix, "提醒");
    EXPECT_EQ(panel.instantAlert.title, "立即提醒");
    EXPECT_EQ(panel.dailyCheck.title, "每天定时检查");
    EXPECT_EQ(panel.checkTime, "检查时间");
    EXPECT_EQ(panel.checkHour.name, "小时");
    EXPECT_EQ(panel.checkMinute.name, "分钟");
    EXPECT_EQ(panel.testAlert, "开启/测试通知");
    EXPECT_EQ(panel.launchAtLogin.title, "开机自动启动");
    EXPECT_EQ(panel.quit, "退出");
    EXPECT_EQ(panel.languageLabel, "语言");
    EXPECT_EQ(panel.language.name, "语言");
}

TEST_F(PanelContentTest, HasARowForEachDeviceInTheModelsOrder)
{
    BatteryModel& model = start();
    EXPECT_THAT(content().devices, IsEmpty());

    // In the order of no field.
    model.devices = BatteryModel::DeviceList{trackpad(37), mouse(60), keyboard(15)};
    EXPECT_THAT(content().devices,
                ElementsAre(DeviceRow{804, "rectangle.and.hand.point.up.left", "Magic Trackpad",
                                      "37%", false},
                            DeviceRow{803, "magicmouse", "Magic Mouse", "60%", false},
                            DeviceRow{805, "keyboard", "Magic Keyboard", "15%", true}));
}

TEST_F(PanelContentTest, ALevelIsRedAtTheThresholdAndNotAboveIt)
{
    BatteryModel& model = start();
    struct Row {
        std::int64_t level;
        std::int64_t threshold;
        bool red;
    };
    for (const auto& [level, threshold, red] :
         {Row{20, 20, true}, Row{21, 20, false}, Row{40, 39, false}, Row{-1, 0, true}}) {
        model.devices = BatteryModel::DeviceList{mouse(level)};
        model.threshold = threshold;
        EXPECT_EQ(content().devices.at(0).levelIsRed, red) << level;
    }
}

TEST_F(PanelContentTest, ANameIsFitToBeShown)
{
    BatteryModel& model = start();
    BatteryDevice named = mouse(50);
    BatteryDevice nameless = keyboard(50);
    named.name = "a\nb\u202Ec";
    nameless.name = "\u200B\n";
    model.devices = BatteryModel::DeviceList{named, nameless};
    model.status = "Low battery: a\nb\u202Ec 5%";
    EXPECT_EQ(content().devices.at(0).name, "a bc");
    EXPECT_EQ(content().devices.at(1).name, "Magic Keyboard");
    EXPECT_EQ(content().status, "Low battery: a bc 5%");
}

TEST_F(PanelContentTest, OffersEveryPercentageFrom1To90)
{
    start();
    std::vector<std::string> titles;
    std::vector<std::int64_t> values;
    for (int percent = 1; percent <= 90; ++percent) {
        titles.push_back(std::to_string(percent) + "%");
        values.push_back(percent);
    }
    EXPECT_EQ(content().threshold.titles, titles);
    EXPECT_EQ(content().threshold.values, values);
    EXPECT_EQ(content().threshold.selected, 19U);
}

TEST_F(PanelContentTest, OffersTheHoursAndMinutesThatTheSnoozeAlertOffers)
{
    BatteryModel& model = start();
    model.checkHour = 7;
    model.checkMinute = 55;
    EXPECT_EQ(content().checkHour, hourPopUp(7));
    EXPECT_EQ(content().checkMinute, minutePopUp(55));
}

TEST_F(PanelContentTest, OffersTheLanguagesInTheirOrder)
{
    BatteryModel& model = start("en");
    EXPECT_THAT(content().language.titles, ElementsAre("System", "简体中文", "English"));
    EXPECT_THAT(content().language.values, ElementsAre("system", "zh", "en"));
    EXPECT_EQ(content().language.selected, 2U);
    model.language = "zh";
    EXPECT_THAT(content().language.titles, ElementsAre("跟随系统", "简体中文", "English"));
    EXPECT_EQ(content().language.selected, 1U);
}

TEST_F(PanelContentTest, AStoredValueThatIsNoChoiceIsNotSelected)
{
    BatteryModel& model = start();
    for (const std::int64_t threshold : {250, 91, 0, -5}) {
        model.threshold = threshold;
        EXPECT_EQ(content().threshold.selected, std::nullopt) << threshold;
    }
    model.checkHour = 99;
    model.checkMinute = 7;
    model.language = "fr";
    EXPECT_EQ(content().checkHour.selected, std::nullopt);
    EXPECT_EQ(content().checkMinute.selected, std::nullopt);
    EXPECT_EQ(content().language.selected, std::nullopt);
}

TEST_F(PanelContentTest, EachToggleIsAsItsOwnSetting)
{
    BatteryModel& model = start();
    const auto isOn = [this] {
        const PanelContent panel = content();
        return std::vector<bool>{panel.instantAlert.isOn, panel.dailyCheck.isOn,
                                 panel.launchAtLogin.isOn};
    };
    EXPECT_THAT(isOn(), ElementsAre(true, true, false));
    model.instantEnabled = false;
    EXPECT_THAT(isOn(), ElementsAre(false, true, false));
    model.enabled = false;
    EXPECT_THAT(isOn(), ElementsAre(false, false, false));
    model.launchAtLogin = true;
    EXPECT_THAT(isOn(), ElementsAre(false, false, true));
}

TEST_F(PanelContentTest, TheStatusIsTheModelsAndRedWhenItBeginsWithTheLowTextOfItsLanguage)
{
    struct Row {
        const char* language;
        const char* status;
        bool red;
    };
    for (const auto& [language, status, red] :
         {Row{"en", "Low battery: Magic Mouse 15%", true},
          Row{"en", "Battery level is fine", false}, Row{"en", "No Low battery", false},
          Row{"en", "Low batter", false}, Row{"en", "电量偏低：Magic Mouse 15%", false},
          Row{"zh", "电量偏低：Magic Mouse 15%", true}, Row{"zh", "电量偏低", true},
          Row{"zh", "电量正常", false}, Row{"zh", "外设电量偏低", false},
          Row{"zh", "Low battery: Magic Mouse 15%", false}}) {
        BatteryModel& model = start(language);
        model.status = status;
        EXPECT_EQ(content().status, status);
        EXPECT_EQ(content().statusIsRed, red) << language << ": " << status;
    }
}

} // namespace
} // namespace voltmere
