#pragma once

#include "fakes/fake_appearance.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_pointer.h"
#include "fakes/fake_preferred_languages.h"
#include "fakes/fake_run_loop.h"
#include "fakes/sample_devices.h"
#include "linux/ui/alert.h"
#include "linux/ui/theme.h"
#include "linux/ui/widgets.h"
#include "snooze/snooze_alert.h"

#include <QLabel>
#include <QLayout>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace voltmere {

/// Does what was left for the event loop, deletions included.
inline void turnEventLoop()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// The alerts that exist, on screen or waiting to be deleted.
inline std::vector<SnoozeAlertWindow*> alertWindows()
{
    std::vector<SnoozeAlertWindow*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* const window = dynamic_cast<SnoozeAlertWindow*>(widget)) {
            windows.push_back(window);
        }
    }
    return windows;
}

/// The window that a person would look at.
class AlertView {
public:
    explicit AlertView(SnoozeAlertWindow& window)
        : window(window)
    {
    }

    HoverButton& button(const QString& title) const
    {
        for (QPushButton* button : window.findChildren<QPushButton*>()) {
            if (button->text() == title) {
                return dynamic_cast<HoverButton&>(*button);
            }
        }
        throw std::runtime_error("no button " + title.toStdString());
    }

    HoverPopUpButton& hour() const { return popUp(0); }
    HoverPopUpButton& minute() const { return popUp(1); }

    /// The nine rows below the icon.
    std::vector<QWidget*> rows() const
    {
        const QLayout& stack = *container().layout();
        std::vector<QWidget*> widgets;
        for (int index = 0; index < stack.count(); ++index) {
            widgets.push_back(stack.itemAt(index)->widget());
        }
        return widgets;
    }

    QWidget& container() const { return *popUp(0).parentWidget()->parentWidget(); }

    /// The application's icon and the rows, of which a person sees all that fit.
    QLayout& scrolled() const { return *container().parentWidget()->layout(); }

    QRect placeOf(const QWidget& widget) const
    {
        return {widget.mapTo(&window, QPoint()), widget.size()};
    }

    QLabel& label(std::size_t row) const { return dynamic_cast<QLabel&>(*rows().at(row)); }
    QLabel& name() const { return label(0); }
    QLabel& title() const { return label(1); }
    QLabel& detail() const { return label(2); }
    QLabel& prompt() const { return label(3); }

    void click(const QString& title) const { QTest::mouseClick(&button(title), Qt::LeftButton); }

    SnoozeAlertWindow& window;

private:
    HoverPopUpButton& popUp(int index) const
    {
        return dynamic_cast<HoverPopUpButton&>(*window.findChildren<QComboBox*>().at(index));
    }
};

/// An alert on screen whose controls do nothing but report what they were asked.
class AlertWindowTest : public testing::Test {
protected:
    ~AlertWindowTest() override
    {
        alert.reset();
        turnEventLoop();
        QApplication::setPalette(desktopPalette);
    }

    AlertView show(const std::vector<BatteryDevice>& devices, bool isLow)
    {
        return show(makeAlertContent(devices, isLow, {15, 35}));
    }

    AlertView show(const AlertContent& content)
    {
        alert.reset();
        turnEventLoop();
        alert = presenter.present(content, actions());
        QCoreApplication::processEvents();
        return AlertView(*alertWindows().at(0));
    }

    AlertView showOneLow() { return show({mouse(12)}, true); }

    void useScheme(ColourScheme scheme)
    {
        appearance.scheme = scheme;
        applyPalette(scheme);
        QCoreApplication::processEvents();
    }

    /// Puts the pointer over a control and lets the next tick see it.
    void pointAt(const QWidget& widget)
    {
        const QPoint centre = widget.mapToGlobal(widget.rect().center());
        pointer.place =
            PointerPosition{static_cast<double>(centre.x()), static_cast<double>(centre.y())};
        tick();
    }

    void pointAway()
    {
        pointer.place = PointerPosition{-1000, -1000};
        tick();
    }

    void tick() { runLoop.advance(HoverPoller::interval); }

    AlertActions actions()
    {
        return {
            .cancel = [this] { done.emplace_back("cancel"); },
            .chooseOption =
                [this](std::size_t option) { done.push_back("option " + std::to_string(option)); },
            .chooseTime =
                [this](std::int64_t hour, std::int64_t minute) {
                    done.push_back("time " + std::to_string(hour) + ':' + std::to_string(minute));
                }};
    }

    LanguageGuard language{"en"};
    FakeAppearance appearance;
    FakePointer pointer;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    SnoozeAlertPresenter presenter{appearance, pointer, runLoop};
    std::vector<std::string> done; ///< what the controls were asked, in order
    std::unique_ptr<Alert> alert;

private:
    const QPalette desktopPalette = QApplication::palette();
};

} // namespace voltmere
