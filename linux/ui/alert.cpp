#include "linux/ui/alert.h"

#include "linux/ui/alert_rows.h"
#include "linux/ui/app_icon_asset.h"
#include "linux/ui/colours.h"
#include "linux/ui/display_text.h"
#include "linux/ui/picture_view.h"
#include "linux/ui/theme.h"
#include "snooze/snooze_alert.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <utility>

namespace voltmere {

namespace {

constexpr int iconSide = 64;
constexpr int margin = 16;
constexpr int gap = 12;

} // namespace

SnoozeAlertWindow::SnoozeAlertWindow(const AlertContent& content, AlertActions givenActions,
                                     const Appearance& appearance)
    : actions(std::move(givenActions))
    , appearance(appearance)
    , detailIsRed(content.detailIsRed)
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowStaysOnTopHint |
                   Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    const QString title = displayText(content.title);
    setWindowIcon(AppIconAsset::windowIcon());
    setWindowTitle(displayText(content.applicationName) + " — " + title);
    setAccessibleName(title);
    setAccessibleDescription(displayText(content.detail));
    setFont(alertFont(font()));

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);
    column->setSizeConstraint(QLayout::SetFixedSize);
    addIcon(*column);
    HighlightButton* const cancel = makeCancelButton(displayText(content.cancelTitle));
    column->addWidget(makeAccessory(content), 0, Qt::AlignHCenter);
    column->addWidget(cancel, 0, Qt::AlignHCenter);
    setTabOrder(hoverItems.back().view, cancel);
    colourDetail();
}

SnoozeAlertWindow::~SnoozeAlertWindow() = default;

void SnoozeAlertWindow::present(const Pointer& pointer, RunLoop& runLoop)
{
    adjustSize();
    centreOnScreen();
    // The window appears while a person may be typing: no control must take the next key.
    setFocus();
    bringToFront();
    hoverPoller = std::make_unique<HoverPoller>(this, hoverItems, pointer, runLoop);
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void SnoozeAlertWindow::orderOut()
{
    if (hoverPoller) {
        hoverPoller->stop();
        hoverPoller.reset();
    }
    hide();
}

void SnoozeAlertWindow::bringToFront()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void SnoozeAlertWindow::reject()
{
    const auto cancel = actions.cancel;
    cancel();
}

void SnoozeAlertWindow::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && detail != nullptr) {
        colourDetail();
    }
}

void SnoozeAlertWindow::closeEvent(QCloseEvent* event)
{
    reject();
    event->accept();
}

void SnoozeAlertWindow::addIcon(QBoxLayout& column)
{
    if (const auto image = AppIconAsset::appImage(iconSide)) {
        auto* const icon = new PictureView(
            iconSide, [picture = *image](const QColor&) { return picture; }, this);
        column.addWidget(icon, 0, Qt::AlignHCenter);
    }
}

QWidget* SnoozeAlertWindow::makeAccessory(const AlertContent& content)
{
    auto* const container = new QWidget(this);
    auto* const stack = new QVBoxLayout(container);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(alertGeometry::spacing);
    const auto addRow = [stack](QWidget* row) { stack->addWidget(row, 0, Qt::AlignHCenter); };

    addRow(makeLabel(displayText(content.applicationName), false));
    addRow(makeLabel(displayText(content.title), true));
    detail = makeLabel(displayText(content.detail), false);
    addRow(detail);
    addRow(makeLabel(displayText(content.prompt), false));
    for (std::size_t option = 0; option < content.options.size(); ++option) {
        addRow(optionRow(displayText(content.options[option]), alertGeometry::width,
                         alertGeometry::rowHeight,
                         [choose = actions.chooseOption, option] { choose(option); }));
    }
    addRow(
        customTimeRow(content, alertGeometry::width, alertGeometry::rowHeight, actions.chooseTime));
    container->setMinimumWidth(alertGeometry::width);
    return container;
}

QLabel* SnoozeAlertWindow::makeLabel(const QString& text, bool bold)
{
    return makeAlertLabel(text, bold ? headlineFont(font()) : font(), this);
}

QWidget* SnoozeAlertWindow::optionRow(const QString& title, int width, int height,
                                      std::function<void()> action)
{
    auto* const button = new HoverButton(title);
    button->setTarget(keepTarget(std::move(action)));
    button->setFont(font());
    button->setFixedSize(width, height);
    addHoverItem(button, button);
    return button;
}

QWidget* SnoozeAlertWindow::customTimeRow(const AlertContent& content, int width, int height,
                                          std::function<void(int hour, int minute)> action)
{
    auto* const row = new CustomTimeRow(content, width, height, font());
    const auto target = keepTarget([row, action = std::move(action)] {
        const ClockTime time = row->selectedTime();
        action(time.hour, time.minute);
    });
    row->confirmButton()->setTarget(target);
    addHoverItem(row->hourPopUp(), row->hourPopUp());
    addHoverItem(row->minutePopUp(), row->minutePopUp());
    addHoverItem(row->confirmButton(), row->confirmButton());
    return row;
}

HighlightButton* SnoozeAlertWindow::makeCancelButton(const QString& title)
{
    auto* const cancel = new HighlightButton(title);
    cancel->setFont(font());
    cancel->setFixedSize(alertGeometry::width, alertGeometry::rowHeight);
    cancel->setTarget(keepTarget([this] { reject(); }));
    nativeHover = std::make_unique<NativeButtonHover>(cancel);
    addHoverItem(cancel, nativeHover.get());
    return cancel;
}

std::shared_ptr<ActionTarget> SnoozeAlertWindow::keepTarget(std::function<void()> action)
{
    rowTargets.push_back(std::make_shared<ActionTarget>(std::move(action)));
    return rowTargets.back();
}

void SnoozeAlertWindow::addHoverItem(QWidget* view, HoverHighlighting* hover)
{
    hoverItems.push_back({view, hover});
}

void SnoozeAlertWindow::centreOnScreen()
{
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    move(area.center() - rect().center());
}

void SnoozeAlertWindow::colourDetail()
{
    setTextColour(*detail,
                  detailIsRed ? std::optional(systemRed(appearance.bestMatch())) : std::nullopt);
}

} // namespace voltmere
