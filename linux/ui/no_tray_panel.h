#pragma once

#include "linux/ui/redraw_scheduler.h"
#include "model/battery_model.h"

#include <QWidget>

#include <memory>

namespace voltmere {

class WrappingLabel;

/// The panel as an ordinary window, on a desktop without a tray: below its content it says how to
/// open it again.
class NoTrayPanel : public QWidget {
public:
    NoTrayPanel(BatteryModel& model, std::unique_ptr<QWidget> content);

protected:
    /// Tells the content of a change of colours that only this window was told of.
    void changeEvent(QEvent* event) override;

private:
    void redraw();

    QWidget* content;
    WrappingLabel* notice;
    RedrawScheduler redrawScheduler;
};

} // namespace voltmere
