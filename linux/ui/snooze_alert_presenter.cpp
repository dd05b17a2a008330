#include "linux/ui/snooze_alert_presenter.h"

#include "linux/ui/alert.h"

#include <QPointer>

#include <utility>

namespace voltmere {

namespace {

/// Holds the window while it is on screen. A window that is taken off the screen by one of its own
/// controls is still on the call stack, so it is deleted from the event loop.
class WindowAlert : public Alert {
public:
    WindowAlert(SnoozeAlertWindow* window, SnoozeAlertPresenter::WindowAction afterShow)
        : window(window)
        , afterShow(std::move(afterShow))
    {
    }

    WindowAlert(const WindowAlert&) = delete;
    WindowAlert& operator=(const WindowAlert&) = delete;

    ~WindowAlert() override { takeOffScreen(); }

    bool isVisible() const override { return window != nullptr && window->isVisible(); }

    void bringToFront() override
    {
        if (window != nullptr) {
            window->bringToFront();
            afterShow(*window);
        }
    }

    void orderOut() override { takeOffScreen(); }

private:
    void takeOffScreen()
    {
        if (window != nullptr) {
            window->orderOut();
            window->deleteLater();
            window.clear();
        }
    }

    QPointer<SnoozeAlertWindow> window;
    SnoozeAlertPresenter::WindowAction afterShow;
};

} // namespace

SnoozeAlertPresenter::SnoozeAlertPresenter(const Appearance& appearance, const Pointer& pointer,
                                           RunLoop& runLoop, WindowAction afterShow)
    : appearance(appearance)
    , pointer(pointer)
    , runLoop(runLoop)
    , afterShow(std::move(afterShow))
{
}

std::unique_ptr<Alert> SnoozeAlertPresenter::present(AlertContent content, AlertActions actions)
{
    auto* const window = new SnoozeAlertWindow(content, std::move(actions), appearance);
    auto alert = std::make_unique<WindowAlert>(window, afterShow);
    window->present(pointer, runLoop);
    afterShow(*window);
    return alert;
}

} // namespace voltmere
