#pragma once

#include "linux/ui/hover_controls.h"
#include "ports/desktop.h"
#include "snooze/custom_time.h"

#include <QFont>
#include <QLabel>
#include <QWidget>

namespace voltmere {

/// The reminder's font: the system's at 13 points.
QFont alertFont(QFont system);

/// A centred line of plain text. It is as wide as the text, up to the width at which the reminder
/// stops growing; there it is cut at its end, and the whole stays as tooltip and accessible name.
QLabel* makeAlertLabel(const QString& text, const QFont& font, QWidget* parent);

/// The row that offers a clock time: a caption, an hour, a minute in steps of five, and a button.
class CustomTimeRow : public QWidget {
public:
    /// `width` and `height` in points. The row is wider where its controls need more.
    CustomTimeRow(const AlertContent& content, int width, int height, const QFont& font);

    ClockTime selectedTime() const;

    HoverPopUpButton* hourPopUp() const { return hour; }
    HoverPopUpButton* minutePopUp() const { return minute; }
    HoverButton* confirmButton() const { return confirm; }

private:
    HoverPopUpButton* hour;
    HoverPopUpButton* minute;
    HoverButton* confirm;
};

} // namespace voltmere
