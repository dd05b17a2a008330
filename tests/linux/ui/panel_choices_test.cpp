#include "linux/ui/panel_fixture.h"

#include <QCheckBox>
#include <QPushButton>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// What a person does in the panel, and what the model makes of it.
class PanelChoicesTest : public PanelTest {
protected:
    void openAndCountWrites()
    {
        open();
        subscription = model().objectWillChange.subscribe([this] { ++writes; });
    }

    bool hasSaved() const { return world.defaults.integer("hour").has_value(); }

    int writes = 0;
    Subscription subscription;
};

TEST_F(PanelChoicesTest, AChoiceInAListWritesItsSettingOnceAndSaves)
{
    openAndCountWrites();
    const auto expectSaved = [this](const char* picker, const char* text, const char* key,
                                    const Published<std::int64_t>& setting, std::int64_t value) {
        writes = 0;
        choose(picker, text);
        EXPECT_EQ(setting, value);
        EXPECT_EQ(world.defaults.integer(key), value);
        settle();
        EXPECT_EQ(writes, 1) << "the redraw writes nothing";
        EXPECT_EQ(selected(picker), text);
    };
    expectSaved("threshold", "35%", "threshold", model().threshold, 35);
    expectSaved("checkHour", "07", "hour", model().checkHour, 7);
    expectSaved("checkMinute", "55", "minute", model().checkMinute, 55);
}

TEST_F(PanelChoicesTest, ChoosingWithTheArrowKeysWritesOnceForEachStep)
{
    openAndCountWrites();
    QTest::keyClick(&find("threshold"), Qt::Key_Down);
    QTest::keyClick(&find("threshold"), Qt::Key_Down);
    EXPECT_EQ(model().threshold, 22);
    EXPECT_EQ(writes, 2);
}

TEST_F(PanelChoicesTest, EachToggleWritesItsSettingOnceAndSaves)
{
    openAndCountWrites();
    click("dailyCheck");
    EXPECT_FALSE(model().enabled);
    EXPECT_EQ(writes, 1);
    EXPECT_EQ(world.defaults.boolean("enabled"), false);
    click("instantAlert");
    EXPECT_FALSE(model().instantEnabled);
    EXPECT_EQ(writes, 2);
    EXPECT_EQ(world.defaults.boolean("instant"), false);
}

TEST_F(PanelChoicesTest, AToggleByAssistiveTechnologyCountsAsMuchAsAClick)
{
    openAndCountWrites();
    auto* const toggle = QAccessible::queryAccessibleInterface(&find("dailyCheck"));
    toggle->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(model().enabled);
    EXPECT_EQ(writes, 1);
}

TEST_F(PanelChoicesTest, TheLoginToggleRegistersAndUnregisters)
{
    openAndCountWrites();
    click("launchAtLogin");
    settle();
    EXPECT_TRUE(model().launchAtLogin);
    EXPECT_TRUE(find<QCheckBox>("launchAtLogin").isChecked());
    EXPECT_EQ(writes, 1);
    EXPECT_EQ(world.loginItems.registrations, 1);
    click("launchAtLogin");
    EXPECT_EQ(world.loginItems.unregistrations, 1);
}

TEST_F(PanelChoicesTest, TheLoginToggleSnapsBackWhenTheServiceFails)
{
    open();
    world.loginItems.failure = "not allowed";
    click("launchAtLogin");
    settle();
    EXPECT_FALSE(find<QCheckBox>("launchAtLogin").isChecked());
    EXPECT_EQ(world.loginItems.registrations, 1);
    EXPECT_EQ(world.loginItems.unregistrations, 0);
}

TEST_F(PanelChoicesTest, AChangeOfLanguageRedrawsEverythingInTheNextTurn)
{
    world.setLevels({{mouse, 15}});
    openAndCountWrites();
    EXPECT_EQ(spokenName(find("threshold")), "Threshold");
    EXPECT_EQ(spokenName(find("checkHour")), "Hour");
    EXPECT_EQ(spokenName(find("checkMinute")), "Minute");
    EXPECT_EQ(spokenName(find("language")), "Language");
    choose("language", "简体中文");
    QCoreApplication::processEvents();
    EXPECT_EQ(model().language.get(), "zh");
    EXPECT_EQ(textOf("applicationName"), "续航哨兵");
    EXPECT_EQ(textOf("status"), "电量偏低：Magic Mouse 15%");
    EXPECT_EQ(textOf("thresholdSuffix"), "提醒");
    EXPECT_TRUE(find("thresholdSuffix").isVisible());
    EXPECT_EQ(spokenName(find("threshold")), "阈值");
    EXPECT_EQ(spokenName(find("checkHour")), "小时");
    EXPECT_EQ(spokenName(find("checkMinute")), "分钟");
    EXPECT_EQ(spokenName(find("language")), "语言");
    EXPECT_EQ(find<QComboBox>("language").itemText(0), "跟随系统");
    EXPECT_EQ(selected("language"), "简体中文");
    EXPECT_EQ(world.defaults.text("language"), "en") << "the language is never saved";
    EXPECT_EQ(view->size(), view->layout()->totalSizeHint()) << "the panel fits its new rows";
}

TEST_F(PanelChoicesTest, ARedrawNeverWrites)
{
    world.defaults.set("threshold", std::int64_t{250});
    world.defaults.set("minute", std::int64_t{7});
    openAndCountWrites();
    world.setLevels({{mouse, 15}, {keyboard, 80}});
    model().refresh(false);
    settle();
    const int byTheModel = writes;
    QEvent paletteChange(QEvent::PaletteChange);
    QCoreApplication::sendEvent(view.get(), &paletteChange);
    settle();
    EXPECT_EQ(writes, byTheModel);
    EXPECT_EQ(model().threshold, 250);
    EXPECT_EQ(model().checkMinute, 7);
    EXPECT_FALSE(hasSaved());
}

TEST_F(PanelChoicesTest, AListThatIsClosedWithoutAChoiceAndTheWheelWriteNothing)
{
    openAndCountWrites();
    auto& picker = find<QComboBox>("threshold");
    turnWheel(picker);
    picker.showPopup();
    QTest::keyClick(picker.view(), Qt::Key_Down);
    QTest::keyClick(picker.view(), Qt::Key_Escape);
    settle();
    EXPECT_TRUE(view->isVisible()) << "Escape closes the list only";
    EXPECT_EQ(writes, 0);
    EXPECT_EQ(selected("threshold"), "20%");
}

TEST_F(PanelChoicesTest, TheListOfNinetyPercentagesScrolls)
{
    open();
    auto& picker = find<QComboBox>("threshold");
    picker.showPopup();
    EXPECT_LE(picker.view()->window()->height(), 400);
    EXPECT_GE(picker.view()->window()->height(), 100);
    picker.hidePopup();
}

TEST_F(PanelChoicesTest, TheTestButtonShowsTheLowDevicesAndNeitherNotifiesNorMarksThem)
{
    world.setLevels({{mouse, 40}, {keyboard, 90}});
    open();
    model().threshold = 50; // low from now on, but not yet alerted
    const std::size_t notifications = world.notifications.requests.size();
    click("testAlert");
    ASSERT_THAT(world.alerts.shown, SizeIs(1));
    EXPECT_EQ(world.alerts.shown[0]->content.title.whole(), "Magic Mouse battery alert");
    EXPECT_EQ(world.alerts.shown[0]->content.detail, "Battery at 40%. Please charge.");
    EXPECT_EQ(world.notifications.requests.size(), notifications);

    world.alerts.shown[0]->actions.cancel();
    model().refresh(true);
    settle();
    EXPECT_THAT(world.alerts.shown, SizeIs(2)) << "a real reading still finds it newly low";
}

TEST_F(PanelChoicesTest, TheTestButtonShowsAllDevicesWhenNoneIsLow)
{
    world.setLevels({{mouse, 40}, {keyboard, 90}});
    open();
    click("testAlert");
    ASSERT_THAT(world.alerts.shown, SizeIs(1));
    EXPECT_EQ(world.alerts.shown[0]->content.title.whole(), "Peripheral battery");
    EXPECT_EQ(world.alerts.shown[0]->content.detail, "All good: Mouse40%, Keyboard90%");
}

TEST_F(PanelChoicesTest, TabGoesFromTopToBottomAndRoundAgain)
{
    open();
    std::vector<std::string> order;
    find("language").setFocus();
    for (int step = 0; step < 10; ++step) {
        QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
        order.push_back(view->focusWidget()->objectName().toStdString());
    }
    EXPECT_THAT(order,
                ElementsAre("threshold", "instantAlert", "dailyCheck", "checkHour", "checkMinute",
                            "testAlert", "launchAtLogin", "quit", "language", "threshold"));
}

TEST_F(PanelChoicesTest, NoControlHasTheKeyboardUntilTabWhichGoesToTheFirst)
{
    openAndCountWrites();
    ASSERT_EQ(view->focusWidget(), view.get());
    for (const auto key : {Qt::Key_Down, Qt::Key_9, Qt::Key_Space, Qt::Key_Return}) {
        QTest::keyClick(view->focusWidget(), key);
    }
    EXPECT_EQ(writes, 0);
    EXPECT_EQ(model().threshold.get(), 20);

    QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(view->focusWidget(), &find("threshold"));
}

TEST_F(PanelChoicesTest, EscapeClosesThePanelFromEveryControlAndNoOtherKeyDoes)
{
    for (const char* const control : {"threshold", "dailyCheck", "testAlert", "quit", "language"}) {
        open();
        QTest::keyClick(view.get(), Qt::Key_A);
        EXPECT_TRUE(view->isVisible());
        QTest::keyClick(&find(control), Qt::Key_Escape);
        EXPECT_FALSE(view->isVisible()) << control;
    }
}

} // namespace
} // namespace voltmere
