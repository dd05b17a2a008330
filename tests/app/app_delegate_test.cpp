#include "app/voltmere_app.h"

#include "alerting/notifications.h"
#include "model/battery_model.h"
#include "posix/memory_defaults.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_preferred_languages.h"
#include "tests/fakes/fake_run_loop.h"
#include "tests/fakes/fake_services.h"
#include "texts/l10n.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace voltmere {
namespace {

using testing::ElementsAre;

/// Notes in which state the launch is when the categories arrive.
class WatchfulCentre : public FakeNotificationCentre {
public:
    void setDelegate(NotificationCentreDelegate* newDelegate) override
    {
        note("delegate");
        FakeNotificationCentre::setDelegate(newDelegate);
    }

    void setCategories(std::vector<NotificationCategory> newCategories) override
    {
        note("categories");
        FakeNotificationCentre::setCategories(std::move(newCategories));
    }

    std::vector<std::string> steps;

private:
    void note(const std::string& step)
    {
        steps.push_back(step + " in " + L10n::setting +
                        (BatteryModel::launchSettled ? ", settled" : ", not settled"));
    }
};

class AppDelegateTest : public testing::Test {
protected:
    AppDelegateTest() { BatteryModel::launchSettled = false; }
    ~AppDelegateTest() override { BatteryModel::launchSettled = false; }

    void finishLaunching()
    {
        AppDelegate{defaults, centre, notificationDelegate}.applicationDidFinishLaunching();
    }

    LanguageGuard language{"system"};
    MemoryDefaults defaults;
    WatchfulCentre centre;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeApplication application;
    NotificationDelegate notificationDelegate{runLoop, application};
};

TEST_F(AppDelegateTest, ReadsTheLanguageThenRegistersInItThenSettlesTheLaunch)
{
    defaults.set("language", std::string("en"));
    L10n::setting = "zh";
    finishLaunching();

    EXPECT_THAT(centre.steps,
                ElementsAre("delegate in en, not settled", "categories in en, not settled"));
    EXPECT_TRUE(BatteryModel::launchSettled);
    EXPECT_EQ(L10n::setting, "en");
    EXPECT_EQ(centre.delegate, &notificationDelegate);
    EXPECT_EQ(centre.categories.at(0).actions.back().title, "At a specific time…");
}

TEST_F(AppDelegateTest, WithoutAStoredLanguageItIsTheSystems)
{
    L10n::setting = "zh";
    finishLaunching();

    EXPECT_EQ(L10n::setting, "system");
}

} // namespace
} // namespace voltmere
