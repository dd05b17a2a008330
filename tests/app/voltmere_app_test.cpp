#include "app/voltmere_app.h"

#include "fakes/fake_alert_presenter.h"
#include "fakes/fake_preferred_languages.h"
#include "fakes/platform.h"
#include "texts/l10n.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FakeFrontEnd : public FrontEnd {
public:
    Application& application() override { return fakeApplication; }
    AlertPresenter& alerts() override { return presenter; }

    std::unique_ptr<Scene> show(BatteryModel& /*model*/) override
    {
        steps.push_back("show");
        return std::make_unique<FakeScene>(steps);
    }

    std::vector<std::string> steps;

private:
    class FakeScene : public Scene {
    public:
        explicit FakeScene(std::vector<std::string>& steps)
            : steps(steps)
        {
        }

        void openPanel() override
        {
            steps.push_back(BatteryModel::launchSettled ? "open" : "open, not launched");
        }

    private:
        std::vector<std::string>& steps;
    };

    FakeApplication fakeApplication;
    FakeAlertPresenter presenter;
};

class BusyMainLoop : public FakeMainLoop {
public:
    bool isBusy() const override { return busy; }

    bool busy = false;
};

class VoltmereAppTest : public testing::Test {
protected:
    VoltmereAppTest() { BatteryModel::launchSettled = false; }
    ~VoltmereAppTest() override { BatteryModel::launchSettled = false; }

    int run()
    {
        VoltmereApp app(commandLine, mainLoop, frontEnd);
        app.start();
        mainLoop.whileRunning = [&] {
            frontEnd.steps.push_back("run");
            whileRunning(app);
            mainLoop.stop(7);
        };
        return app.run();
    }

    LanguageGuard language{"en"};
    FakePlatform platform;
    BusyMainLoop mainLoop;
    FakeFrontEnd frontEnd;
    CommandLine commandLine;
    std::function<void(VoltmereApp&)> whileRunning = [](VoltmereApp&) {};
};

TEST_F(VoltmereAppTest, ShowsTheIconAndRunsUntilItIsStopped)
{
    EXPECT_EQ(run(), 7);
    EXPECT_THAT(frontEnd.steps, ElementsAre("show", "run"));
}

TEST_F(VoltmereAppTest, EndsTheProcessWhileAReadingIsUnderWay)
{
    mainLoop.busy = true;

    EXPECT_EXIT(run(), testing::ExitedWithCode(7), "");
}

TEST_F(VoltmereAppTest, OpensThePanelAtStartOnRequestOnceTheLaunchHasFinished)
{
    commandLine.openPanel = true;
    run();

    EXPECT_THAT(frontEnd.steps, ElementsAre("show", "open", "run"));
}

TEST_F(VoltmereAppTest, OpensThePanelWhenALaterStartAsks)
{
    whileRunning = [](VoltmereApp& app) { app.openPanel(); };
    run();

    EXPECT_THAT(frontEnd.steps, ElementsAre("show", "run", "open"));
}

TEST_F(VoltmereAppTest, ActsOnTheUsersDesktop)
{
    run();

    EXPECT_THAT(platform.settingsOpened, ElementsAre(SettingsUse::readAndWrite));
    EXPECT_EQ(platform.loginItemServices, 1);
    EXPECT_EQ(platform.notificationCentres, 1);
}

TEST_F(VoltmereAppTest, ADemonstrationLeavesTheUsersDesktopAlone)
{
    commandLine.demo = true;
    run();

    EXPECT_THAT(platform.settingsOpened, IsEmpty());
    EXPECT_EQ(platform.loginItemServices, 0);
    EXPECT_EQ(platform.notificationCentres, 0);
}

} // namespace
} // namespace voltmere
