#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace voltmere {

/// Notices when a window has been painted for the first time after its own construction.
class PaintWatch : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }

    /// Lets the event loop turn until that paint event has been handled.
    void wait()
    {
        while (!painted) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType() &&
            qobject_cast<QWidget*>(watched)->isWindow()) {
            painted = true;
        }
        return false;
    }

private:
    bool painted = false;
};

} // namespace voltmere
