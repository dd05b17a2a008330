#pragma once

#include "linux/ui/hover_controls.h"
#include "ports/desktop.h"
#include "ports/time.h"

#include <QDialog>
#include <QLabel>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

namespace voltmere {

/// The snooze alert on screen: the application's icon, the low devices, four fixed choices, a row
/// for a clock time, and Cancel. It grows with the font; on a screen that is too low for it all but
/// Cancel scrolls. It stays on top and is not modal. Escape and the window's close button cancel
/// too.
class SnoozeAlertWindow : public QDialog {
public:
    SnoozeAlertWindow(const AlertContent& texts, AlertActions actions,
                      const Appearance& appearance);

    /// Puts the window on screen, centred, in front and with the keyboard.
    void present(const Pointer& pointer, RunLoop& runLoop);

    void bringToFront();

    void reject() override { actions.cancel(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;

private:
    QWidget* makeAccessory(const AlertContent& content);
    QWidget* customTimeRow(const AlertContent& content);
    HoverPopUpButton* makePopUp(const PopUp<std::int64_t>& content, QWidget* row);
    HoverButton* makeButton(const QString& title, std::function<void()> action);
    QSize rowSize() const;
    void colourDetail();
    void centre();

    AlertActions actions;
    const Appearance& appearance;
    QLabel* detail = nullptr;
    bool detailIsRed;
    bool isCentredWithFrame = false;
    std::vector<HoverPoller::Item> hoverItems;
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
