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

/// The panel's fixed texts, top to bottom.
std::vector<std::string> fixedTexts(const PanelContent& panel)
{
    return {panel.applicationName,    panel.emptySymbol,         panel.emptyText,
            panel.warnBelow,          panel.threshold.name,      panel.warnSuffix,
            panel.instantAlert.title, panel.dailyCheck.title,    panel.checkTime,
            panel.checkHour.name,     panel.timeSeparator,       panel.checkMinute.name,
            panel.testAlert,          panel.launchAtLogin.title, panel.quit,
            panel.languageLabel,      panel.language.name};
}

TEST_F(PanelContentTest, SaysEverythingInTheLanguageChosen)
{
    start("en");
    EXPECT_THAT(fixedTexts(content()),
                ElementsAre("Cellsentry", "questionmark.circle", "No peripherals found",
                            "Alert below", "Threshold", "", "Immediately", "Daily check",
                            "Check time", "Hour", ":", "Minute", "Enable / test alert",
                            "Launch at login", "Quit", "Language", "Language"));
    start("zh");
    EXPECT_THAT(fixedTexts(content()),
                ElementsAre("续航哨兵", "questionmark.circle", "未检测到外设", "电量低于", "阈值",
                            "提醒", "立即提醒", "每天定时检查", "检查时间", "小时", ":", "分钟",
                            "开启/测试通知", "开机自动启动", "退出", "语言", "语言"));
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
