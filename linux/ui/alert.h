#pragma once

#include "linux/ui/action_target.h"
#include "linux/ui/hover_controls.h"
#include "linux/ui/hover_poller.h"
#include "ports/desktop.h"
#include "ports/time.h"

#include <QDialog>

#include <memory>
#include <vector>

class QBoxLayout;
class QLabel;

namespace voltmere {

/// The reminder on screen: the application's icon, what is low, four fixed choices, a row for a
/// clock time, and Cancel. It stays on top and is not modal. Escape and the window's close button
/// do what Cancel does.
class SnoozeAlertWindow : public QDialog {
public:
    SnoozeAlertWindow(const AlertContent& content, AlertActions actions,
                      const Appearance& appearance);
    ~SnoozeAlertWindow() override;

    /// Puts the window on screen, centred, in front and with the keyboard.
    void present(const Pointer& pointer, RunLoop& runLoop);

    /// Takes the window off the screen and ends what runs only while it is there.
    void orderOut();

    void bringToFront();

    void reject() override;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void addIcon(QBoxLayout& column);
    QWidget* makeAccessory(const AlertContent& content);
    QLabel* makeLabel(const QString& text, bool bold);
    QWidget* optionRow(const QString& title, int width, int height, std::function<void()> action);
    QWidget* customTimeRow(const AlertContent& content, int width, int height,
                           std::function<void(int hour, int minute)> action);
    HighlightButton* makeCancelButton(const QString& title);
    std::shared_ptr<ActionTarget> keepTarget(std::function<void()> action);
    void addHoverItem(QWidget* view, HoverHighlighting* hover);
    void centreOnScreen();
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

} // namespace voltmere
