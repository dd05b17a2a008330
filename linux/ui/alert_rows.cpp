#include "linux/ui/alert_rows.h"

#include "linux/ui/assistive_names.h"
#include "linux/ui/display_text.h"
#include "snooze/snooze_alert.h"
#include "texts/l10n.h"

#include <QFontMetrics>
#include <QHBoxLayout>

#include <algorithm>

namespace voltmere {

namespace {

constexpr int fontSize = 13;       // points
constexpr int widestLabel = 420;   // points
constexpr int colonSpacing = 3;    // points, on both sides
constexpr int confirmPadding = 10; // points, on both sides of its title

/// A pop-up of two-digit numbers, of which one is selected.
HoverPopUpButton* makePopUp(int step, int end, int selected, const QFont& font)
{
    auto* const popUp = new HoverPopUpButton;
    popUp->setFont(font);
    popUp->addTwoDigitNumbers(step, end);
    popUp->setCurrentIndex(selected / step);
    return popUp;
}

HoverButton* makeConfirmButton(const QString& title, const QFont& font)
{
    auto* const button = new HoverButton(title);
    button->setFont(font);
    button->setFixedWidth(QFontMetrics(font).horizontalAdvance(title) + 2 * confirmPadding);
    return button;
}

} // namespace

QFont alertFont(QFont system)
{
    system.setPixelSize(fontSize);
    return system;
}

QLabel* makeAlertLabel(const QString& text, const QFont& font, QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    label->setFixedHeight(alertGeometry::labelHeight);
    label->setAccessibleName(text);
    const QString shown = QFontMetrics(font).elidedText(text, Qt::ElideRight, widestLabel);
    label->setText(shown);
    if (shown != text) {
        label->setToolTip(plainToolTip(text));
        label->setAccessibleDescription(text);
    }
    return label;
}

CustomTimeRow::CustomTimeRow(const AlertContent& content, int width, int height, const QFont& font)
    : hour(makePopUp(hourStep, hoursPerDay, content.preselectedHour, font))
    , minute(makePopUp(minuteStep, minutesPerHour, content.preselectedMinute, font))
    , confirm(makeConfirmButton(displayText(content.confirmTitle), font))
{
    auto* const caption = makeAlertLabel(displayText(content.customTimeCaption), font, this);
    auto* const colon = makeAlertLabel(QStringLiteral(":"), font, this);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addStretch();
    row->addWidget(caption);
    row->addSpacing(alertGeometry::spacing);
    row->addWidget(hour);
    row->addSpacing(colonSpacing);
    row->addWidget(colon);
    row->addSpacing(colonSpacing);
    row->addWidget(minute);
    row->addSpacing(alertGeometry::spacing);
    row->addWidget(confirm);
    row->addStretch();
    namePicker(*hour, QString::fromStdString(L10n::own("name.hour")));
    namePicker(*minute, QString::fromStdString(L10n::own("name.minute")));
    for (QWidget* control : {static_cast<QWidget*>(hour), static_cast<QWidget*>(minute),
                             static_cast<QWidget*>(confirm)}) {
        control->setFixedHeight(height);
    }
    // In some styles the pop-ups are so wide that the row would cut them.
    setFixedSize(std::max(width, row->minimumSize().width()), height);
}

ClockTime CustomTimeRow::selectedTime() const
{
    return {hour->currentIndex(), minute->currentIndex() * minuteStep};
}

} // namespace voltmere
