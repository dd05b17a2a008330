#pragma once

#include "ports/desktop.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace voltmere {

/// Keeps every snooze alert that was put on screen, so that a test can look at it and press its
/// buttons.
class FakeAlertPresenter : public AlertPresenter {
public:
    struct Shown {
        AlertContent content;
        AlertActions actions;
        bool visible = true;
        int broughtToFront = 0;
        std::function<void()> whileOrderingOut;
    };

    std::unique_ptr<Alert> present(AlertContent content, AlertActions actions) override
    {
        auto alert = std::make_shared<Shown>();
        alert->content = std::move(content);
        alert->actions = std::move(actions);
        shown.push_back(alert);
        return std::make_unique<Handle>(alert);
    }

    /// The alerts so far, the latest last.
    std::vector<std::shared_ptr<Shown>> shown;

private:
    class Handle : public Alert {
    public:
        explicit Handle(std::shared_ptr<Shown> alert)
            : alert(std::move(alert))
        {
        }

        ~Handle() override { alert->visible = false; }
        bool isVisible() const override { return alert->visible; }
        void bringToFront() override { ++alert->broughtToFront; }

        void orderOut() override
        {
            alert->visible = false;
            if (alert->whileOrderingOut) {
                alert->whileOrderingOut();
            }
        }

    private:
        std::shared_ptr<Shown> alert;
    };
};

} // namespace voltmere
