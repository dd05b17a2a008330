#pragma once

#include "linux/ui/hover_controls.h"
#include "ports/desktop.h"
#include "ports/time.h"

#include <QDialog>
#include <QFont>
#include <QLabel>
#include <QWidget>

#include <cstdint>
#include <memory>
#include <vector>

namespace voltmere {

/// The row that offers a clock time: a caption, an hour, a minute, and a button.
class CustomTimeRow : public QWidget {
public:
    /// `width` and `height` in points. The row is wider where its controls need more.
    CustomTimeRow(const AlertContent& content, int width, int height, const QFont& font);

    HoverPopUpButton* hourPopUp() const { return hour; }
    HoverPopUpButton* minutePopUp() const { return minute; }
    HoverButton* confirmButton() const { return confirm; }

private:
    HoverPopUpButton* hour;
    HoverPopUpButton* minute;
    HoverButton* confirm;
};

/// The snooze alert on screen: the application's icon, the low devices, four fixed choices, a row
/// for a clock time, and Cancel. It stays on top and is not modal. Escape and the window's close
/// button cancel too.
class SnoozeAlertWindow : public QDialog {
public:
    SnoozeAlertWindow(const AlertContent& content, AlertActions actions,
                      const Appearance& appearance);

    /// Puts the window on screen, centred, in front and with the keyboard.
    void present(const Pointer& pointer, RunLoop& runLoop);

    /// Takes the window off the screen and stops the hover poller.
    void orderOut();

    void bringToFront();

    void reject() override;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* makeAccessory(const AlertContent& content);
    QLabel* makeLabel(const NamedText& text, const QFont& labelFont);
    QWidget* optionRow(const QString& title, int width, int height, std::function<void()> action);
    QWidget* customTimeRow(const AlertContent& content, int width, int height);
    HighlightButton* makeCancelButton(const QString& title);
    std::shared_ptr<ActionTarget> keepTarget(std::function<void()> action);
    void addHoverItem(QWidget* view, HoverHighlighting* hover);
    void colourDetail();

    AlertActions actions;
    const Appearance& appearance;
    QLabel* detail = nullptr;
    bool detailIsRed;
    std::vector<std::shared_ptr<ActionTarget>> rowTargets; ///< the controls hold them weakly
    std::vector<HoverPoller::Item> hoverItems;
    std::unique_ptr<NativeButtonHover> nativeHover;
    std::unique_ptr<HoverPoller> hoverPoller;
};

/// Shows snooze alerts as windows of this program. The arguments must outlive it and its alerts.
class SnoozeAlertPresenter : public AlertPresenter {
public:
    SnoozeAlertPresenter(const Appearance& appearance, const Pointer& pointer, RunLoop& runLoop);

    std::unique_ptr<Alert> present(AlertContent content, AlertActions actions) override;

private:
    const Appearance& appearance;
    const Pointer& pointer;
    RunLoop& runLoop;
};

} // namespace voltmere
