#include "linux/ui/alert.h"

#include "linux/ui/app_icon_asset.h"
#include "linux/ui/theme.h"
#include "linux/ui/views.h"
#include "snooze/snooze_alert.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPointer>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace voltmere {

namespace {

// All in points.
constexpr int iconSide = 64;
constexpr int margin = 16;
constexpr int gap = 12;
constexpr int fontSize = 13;
constexpr int widestLabel = 420;
constexpr int colonSpacing = 3;    // on both sides
constexpr int confirmPadding = 10; // on both sides of its title

/// `text` in at most `width`: cut within its name, or at its end where it has no name.
QString cutToFit(const NamedText& text, const QFontMetricsF& metrics, qreal width)
{
    const QString whole = asQt(text.whole());
    if (text.name.empty() || metrics.horizontalAdvance(whole) <= width) {
        return metrics.elidedText(whole, Qt::ElideRight, width);
    }
    const QString before = asQt(text.before);
    const QString after = asQt(text.after);
    const qreal room = width - metrics.horizontalAdvance(before + after);
    return before + metrics.elidedText(asQt(text.name), Qt::ElideMiddle, room) + after;
}

/// A centred line of plain text, as wide as the text up to the alert's greatest width. A text that
/// is cut stays whole as tooltip and accessible name.
QLabel* makeAlertLabel(const NamedText& text, const QFont& font, QWidget* parent)
{
    auto* const label = new QLabel(parent);
    const QString whole = asQt(text.whole());
    label->setTextFormat(Qt::PlainText);
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    label->setFixedHeight(alertGeometry::labelHeight);
    label->setAccessibleName(whole);
    label->setText(cutToFit(text, QFontMetricsF(font), widestLabel));
    if (label->text() != whole) {
        label->setToolTip(plainToolTip(whole));
        label->setAccessibleDescription(whole);
    }
    return label;
}

NamedText withoutName(const std::string& text)
{
    return {text, {}, {}};
}

HoverPopUpButton* makePopUp(const PopUp<std::int64_t>& content, const QFont& font)
{
    auto* const popUp = new HoverPopUpButton;
    popUp->setFont(font);
    popUp->present(content);
    return popUp;
}

HoverButton* makeConfirmButton(const QString& title, const QFont& font)
{
    auto* const button = new HoverButton(title);
    button->setFont(font);
    button->setFixedWidth(QFontMetrics(font).horizontalAdvance(title) + 2 * confirmPadding);
    return button;
}

/// Holds the window while it is on screen. A window that its own control closes is still on the
/// call stack, so the event loop deletes it.
class WindowAlert : public Alert {
public:
    explicit WindowAlert(SnoozeAlertWindow* window)
        : window(window)
    {
    }

    WindowAlert(const WindowAlert&) = delete;
    WindowAlert& operator=(const WindowAlert&) = delete;

    ~WindowAlert() override { takeOffScreen(); }

    bool isVisible() const override { return window != nullptr && window->isVisible(); }

    void bringToFront() override
    {
        if (window != nullptr) {
            window->bringToFront();
        }
    }

    void orderOut() override { takeOffScreen(); }

private:
    void takeOffScreen()
    {
        if (window != nullptr) {
            window->orderOut();
            window->deleteLater();
            window.clear();
        }
    }

    QPointer<SnoozeAlertWindow> window;
};

} // namespace

CustomTimeRow::CustomTimeRow(const AlertContent& content, int width, int height, const QFont& font)
    : hour(makePopUp(content.hour, font))
    , minute(makePopUp(content.minute, font))
    , confirm(makeConfirmButton(asQt(content.confirmTitle), font))
{
    auto* const caption = makeAlertLabel(withoutName(content.customTimeCaption), font, this);
    auto* const colon = makeAlertLabel(withoutName(":"), font, this);
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
    hour->setName(asQt(content.hour.name));
    minute->setName(asQt(content.minute.name));
    for (QWidget* control : {static_cast<QWidget*>(hour), static_cast<QWidget*>(minute),
                             static_cast<QWidget*>(confirm)}) {
        control->setFixedHeight(height);
    }
    // In some styles the pop-ups are so wide that the row would cut them.
    setFixedSize(std::max(width, row->minimumSize().width()), height);
}

SnoozeAlertWindow::SnoozeAlertWindow(const AlertContent& content, AlertActions givenActions,
                                     const Appearance& appearance)
    : actions(std::move(givenActions))
    , appearance(appearance)
    , detailIsRed(content.detailIsRed)
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowStaysOnTopHint |
                   Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    const QString title = asQt(content.title.whole());
    setWindowIcon(AppIconAsset::windowIcon());
    setWindowTitle(asQt(content.applicationName) + " — " + title);
    setAccessibleName(title);
    setAccessibleDescription(asQt(content.detail));
    QFont alertFont = font();
    alertFont.setPixelSize(fontSize);
    setFont(alertFont);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);
    column->setSizeConstraint(QLayout::SetFixedSize);
    if (const auto image = AppIconAsset::appImage(iconSide)) {
        auto* const icon = new PictureView(
            iconSide, [picture = *image](const QColor&) { return picture; }, this);
        column->addWidget(icon, 0, Qt::AlignHCenter);
    }
    HighlightButton* const cancel = makeCancelButton(asQt(content.cancelTitle));
    column->addWidget(makeAccessory(content), 0, Qt::AlignHCenter);
    column->addWidget(cancel, 0, Qt::AlignHCenter);
    setTabOrder(hoverItems.back().view, cancel);
    colourDetail();
}

void SnoozeAlertWindow::present(const Pointer& pointer, RunLoop& runLoop)
{
    adjustSize();
    move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
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

QWidget* SnoozeAlertWindow::makeAccessory(const AlertContent& content)
{
    auto* const container = new QWidget(this);
    auto* const stack = new QVBoxLayout(container);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(alertGeometry::spacing);
    const auto addRow = [stack](QWidget* row) { stack->addWidget(row, 0, Qt::AlignHCenter); };

    detail = makeLabel(withoutName(content.detail), font());
    addRow(makeLabel(withoutName(content.applicationName), font()));
    addRow(makeLabel(content.title, headlineFont(font())));
    addRow(detail);
    addRow(makeLabel(withoutName(content.prompt), font()));
    for (std::size_t option = 0; option < content.options.size(); ++option) {
        addRow(optionRow(asQt(content.options[option]), alertGeometry::width,
                         alertGeometry::rowHeight,
                         [choose = actions.chooseOption, option] { choose(option); }));
    }
    addRow(customTimeRow(content, alertGeometry::width, alertGeometry::rowHeight));
    container->setMinimumWidth(alertGeometry::width);
    return container;
}

QLabel* SnoozeAlertWindow::makeLabel(const NamedText& text, const QFont& labelFont)
{
    return makeAlertLabel(text, labelFont, this);
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

QWidget* SnoozeAlertWindow::customTimeRow(const AlertContent& content, int width, int height)
{
    auto* const row = new CustomTimeRow(content, width, height, font());
    const auto target = keepTarget([row, choose = actions.chooseTime, hours = content.hour.values,
                                    minutes = content.minute.values] {
        choose(hours.at(row->hourPopUp()->choice()), minutes.at(row->minutePopUp()->choice()));
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

void SnoozeAlertWindow::colourDetail()
{
    setTextColour(*detail,
                  detailIsRed ? std::optional(systemRed(appearance.bestMatch())) : std::nullopt);
}

SnoozeAlertPresenter::SnoozeAlertPresenter(const Appearance& appearance, const Pointer& pointer,
                                           RunLoop& runLoop)
    : appearance(appearance)
    , pointer(pointer)
    , runLoop(runLoop)
{
}

std::unique_ptr<Alert> SnoozeAlertPresenter::present(AlertContent content, AlertActions actions)
{
    auto* const window = new SnoozeAlertWindow(content, std::move(actions), appearance);
    auto alert = std::make_unique<WindowAlert>(window);
    window->present(pointer, runLoop);
    return alert;
}

} // namespace voltmere
