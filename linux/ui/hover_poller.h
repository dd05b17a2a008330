#pragma once

#include "linux/ui/hover_controls.h"
#include "ports/desktop.h"
#include "ports/time.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

namespace voltmere {

/// Tells the controls of a window, about eight times a second, whether the pointer is over them.
/// Where the pointer cannot be asked for, there is no timer: the controls' own enter and leave
/// events tell them.
class HoverPoller : public QObject {
public:
    static constexpr Seconds interval{0.12};

    /// A control and what lights up for it; often the two are the same. Both must outlive the
    /// poller.
    struct Item {
        QWidget* view;
        HoverHighlighting* hover;
    };

    /// Starts at once.
    HoverPoller(QWidget* window, std::vector<Item> items, const Pointer& pointer, RunLoop& runLoop);

    /// Ends the polling and takes every highlight away. There is no way back.
    void stop();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();

    QPointer<QWidget> window;
    std::vector<Item> items;
    const Pointer& pointer;
    std::unique_ptr<Timer> timer;
};

} // namespace voltmere
