// Tries the desktop's notifications, since the program itself posts none with actions. A story and
// a person use it:
//
//   notification_driver [--post] [--window]
//
// takes up the user's delayed notifications as the program does, posts one notification of the
// category LOW_BATTERY with "--post", and prints what comes of it. With "--window" it has a window
// that the foreground action brings to the front. It runs until it is ended.

#include "alerting/notifications.h"
#include "app/platform.h"
#include "linux/environment.h"
#include "linux/run_loop.h"
#include "linux/ui/front_end.h"
#include "posix/calendar.h"
#include "posix/system_log.h"

#include "texts/l10n.h"

#include <QApplication>
#include <QLabel>

#include <cstdio>
#include <memory>
#include <utility>

namespace voltmere {
namespace {

void print(const std::string& line)
{
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

/// Passes everything on to the real application and says so.
class TalkingApplication : public QtApplication {
public:
    void activate() override
    {
        print("activate");
        QtApplication::activate();
    }
};

/// Passes everything on to the real centre and says what is added.
class TalkingCentre : public NotificationCentre {
public:
    explicit TalkingCentre(std::unique_ptr<NotificationCentre> real)
        : real(std::move(real))
    {
    }

    void requestAuthorisation(std::uint32_t options) override
    {
        real->requestAuthorisation(options);
    }

    void setDelegate(NotificationCentreDelegate* delegate) override { real->setDelegate(delegate); }

    void setCategories(std::vector<NotificationCategory> categories) override
    {
        real->setCategories(std::move(categories));
    }

    void add(NotificationRequest request) override
    {
        const std::string when =
            request.delay ? "after " + std::to_string(request.delay->count()) + " s" : "at once";
        print("add " + request.identifier + " " + when + ": " + request.content.title + " | " +
              request.content.body + (request.content.defaultSound ? " | sound" : ""));
        real->add(std::move(request));
    }

private:
    std::unique_ptr<NotificationCentre> real;
};

/// Passes everything on to the real delegate and says what the user answered.
class TalkingDelegate : public NotificationCentreDelegate {
public:
    TalkingDelegate(NotificationDelegate& real, NotificationCentre& centre)
        : real(real)
        , centre(centre)
    {
    }

    void willPresent(std::function<void(std::uint32_t presentation)> completion) override
    {
        print("present");
        real.willPresent(std::move(completion));
    }

    void didReceive(NotificationCentre& /*centre*/, const std::string& actionIdentifier,
                    std::function<void()> completion) override
    {
        const std::string token = qgetenv("XDG_ACTIVATION_TOKEN").toStdString();
        print("response " + actionIdentifier + (token.empty() ? "" : " with token " + token));
        real.didReceive(centre, actionIdentifier, [completion] {
            print("completed");
            completion();
        });
    }

private:
    NotificationDelegate& real;
    NotificationCentre& centre;
};

NotificationRequest lowBattery()
{
    return {"driver-" + randomUuid(),
            {"Low battery", "Magic Mouse <b>9 %</b> & \"falling\"", true, lowBatteryCategory},
            std::nullopt};
}

int run(const QStringList& words)
{
    const EnvironmentLanguages languages;
    L10n::usePreferredLanguages(&languages);
    const SystemClock clock;
    PosixSystemLog log;
    QtRunLoop runLoop;
    TalkingApplication application;
    NotificationDelegate delegate(runLoop, application);
    TalkingCentre centre(makeNotificationCentre(runLoop, clock, log));
    TalkingDelegate talking(delegate, centre);
    NotificationSetup::registerCategories(centre, talking);
    if (words.contains("--post")) {
        centre.add(lowBattery());
    }
    QLabel window("A window of the program");
    window.setWindowTitle("driver window");
    window.resize(300, 200);
    window.setVisible(words.contains("--window"));
    return QApplication::exec();
}

} // namespace
} // namespace voltmere

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    return voltmere::run(QApplication::arguments());
}
