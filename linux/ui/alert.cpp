#include "linux/ui/alert.h"

#include "linux/ui/images.h"
#include "linux/ui/layer_shell.h"
#include "linux/ui/theme.h"
#include "linux/ui/views.h"
#include "snooze/snooze_alert.h"

#include <QAccessible>
#include <QEvent>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace voltmere {

namespace {

// All in points. The icon, a label and the padding grow with the text from 13 pixels on.
constexpr int iconSide = 64;
constexpr int margin = 16;
constexpr int gap = 12;
constexpr int widestLabel = 420;
constexpr int colonSpacing = 3;    // on both sides
constexpr int confirmPadding = 10; // on both sides of its title

/// `text`, with its name cut in the middle where the whole is wider than `width`.
QString shortenedTo(int width, const NamedText& text, const QFontMetricsF& metrics)
{
    const QString before = asQt(text.before);
    const QString after = asQt(text.after);
    const qreal room = width - std::ceil(metrics.horizontalAdvance(before + after)) - 1;
    return before + metrics.elidedText(asQt(text.name), Qt::ElideMiddle, room) + after;
}

/// A centred plain text of limited width: its name is cut, and the rest wraps. A text that is cut
/// stays whole as tooltip and accessible name.
QLabel* makeAlertLabel(const NamedText& text, const QFont& font, QWidget* parent)
{
    const QRect workArea = QGuiApplication::primaryScreen()->availableGeometry();
    const int widest = std::min(scaledTo(font, widestLabel), workArea.width() - 4 * margin);
    auto* const label = new MessageLabel(parent, widest);
    const QString whole = asQt(text.whole());
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    label->setAccessibleName(whole);
    label->setText(shortenedTo(widest, text, QFontMetricsF(font)));
    label->setFixedSize(
        label->sizeHint().expandedTo({0, scaledTo(font, alertGeometry::labelHeight)}));
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

/// Takes a window off the screen. A window that its own control closes is still on the call stack,
/// so the event loop deletes it.
struct TakeOffScreen {
    void operator()(SnoozeAlertWindow* window) const
    {
        window->hide();
        window->deleteLater();
    }
};

/// Holds the window while it is on screen.
class WindowAlert : public Alert {
public:
    explicit WindowAlert(SnoozeAlertWindow* window)
        : window(window)
    {
    }

    bool isVisible() const override { return window && window->isVisible(); }
    void bringToFront() override { window->bringToFront(); }
    void orderOut() override { window.reset(); }

private:
    std::unique_ptr<SnoozeAlertWindow, TakeOffScreen> window;
};

} // namespace

SnoozeAlertWindow::SnoozeAlertWindow(const AlertContent& texts, AlertActions givenActions,
                                     const Appearance& appearance)
    : actions(std::move(givenActions))
    , appearance(appearance)
    , detailIsRed(texts.detailIsRed)
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowStaysOnTopHint |
                   Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    const QString title = asQt(texts.title.whole());
    setWindowIcon(AppIconAsset::windowIcon());
    setWindowTitle(title);
    setAccessibleName(title);
    setAccessibleDescription(asQt(texts.detail));
    auto* const content = new QWidget(this);
    auto* const upper = new QVBoxLayout(content);
    upper->setContentsMargins({});
    upper->setSpacing(gap);
    if (const auto image = AppIconAsset::appImage(iconSide)) {
        auto* const icon = new PictureView(
            iconSide, [picture = *image](const QColor&) { return picture; }, this);
        upper->addWidget(icon, 0, Qt::AlignHCenter);
    }
    upper->addWidget(makeAccessory(texts), 0, Qt::AlignHCenter);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(new Scroller(content, this), 0, Qt::AlignHCenter);
    column->addWidget(makeButton(asQt(texts.cancelTitle), [this] { reject(); }), 0,
                      Qt::AlignHCenter);
    colourDetail();
}

void SnoozeAlertWindow::present(const Pointer& pointer, RunLoop& runLoop)
{
    adjustSize();
    standInLayer(*this, {});
    centre();
    // The window appears while a person may be typing: no control must take the next key.
    setFocus();
    bringToFront();
    hoverPoller = std::make_unique<HoverPoller>(hoverItems, pointer, runLoop);
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void SnoozeAlertWindow::centre()
{
    QRect place = frameGeometry();
    place.moveCenter(QGuiApplication::primaryScreen()->availableGeometry().center());
    move(place.topLeft());
}

/// The window system puts its frame around the window only after the window is on screen.
void SnoozeAlertWindow::moveEvent(QMoveEvent* /*event*/)
{
    if (!isCentredWithFrame && isVisible() && frameGeometry() != geometry()) {
        isCentredWithFrame = true;
        centre();
    }
}

void SnoozeAlertWindow::bringToFront()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void SnoozeAlertWindow::paintEvent(QPaintEvent* /*event*/)
{
    drawEdge(*this);
}

void SnoozeAlertWindow::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        colourDetail();
    }
}

QWidget* SnoozeAlertWindow::makeAccessory(const AlertContent& content)
{
    auto* const container = new QWidget(this);
    auto* const stack = new QVBoxLayout(container);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(alertGeometry::spacing);
    const auto addRow = [stack](QWidget* row) { stack->addWidget(row, 0, Qt::AlignHCenter); };

    detail = makeAlertLabel(withoutName(content.detail), font(), this);
    addRow(makeAlertLabel(withoutName(content.applicationName), font(), this));
    addRow(makeAlertLabel(content.title, headlineFont(font()), this));
    addRow(detail);
    addRow(makeAlertLabel(withoutName(content.prompt), font(), this));
    for (std::size_t option = 0; option < content.options.size(); ++option) {
        addRow(makeButton(asQt(content.options[option]),
                          [this, option] { actions.chooseOption(option); }));
    }
    addRow(customTimeRow(content));
    return container;
}

QWidget* SnoozeAlertWindow::customTimeRow(const AlertContent& content)
{
    auto* const view = new QWidget(this);
    auto* const caption = makeAlertLabel(withoutName(content.customTimeCaption), font(), view);
    auto* const colon = makeAlertLabel(withoutName(":"), font(), view);
    auto* const hour = makePopUp(content.hour, view);
    auto* const minute = makePopUp(content.minute, view);
    auto* const confirm = makeButton(
        asQt(content.confirmTitle),
        [this, hour, minute, hours = content.hour.values, minutes = content.minute.values] {
            actions.chooseTime(hours.at(hour->choice()), minutes.at(minute->choice()));
        });
    confirm->setFixedWidth(confirm->fontMetrics().horizontalAdvance(confirm->text()) +
                           2 * scaledTo(font(), confirmPadding));

    auto* const row = new QHBoxLayout(view);
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
    // In some styles the pop-ups are so wide that the row would cut them.
    view->setFixedSize(rowSize().expandedTo(row->minimumSize()));
    return view;
}

HoverPopUpButton* SnoozeAlertWindow::makePopUp(const PopUp<std::int64_t>& content, QWidget* row)
{
    auto* const popUp = new HoverPopUpButton(row);
    popUp->present(content);
    popUp->setFixedHeight(std::max(rowSize().height(), popUp->sizeHint().height()));
    hoverItems.push_back({popUp, popUp});
    return popUp;
}

HoverButton* SnoozeAlertWindow::makeButton(const QString& title, std::function<void()> action)
{
    auto* const button = new HoverButton(title, this);
    button->setFixedSize(rowSize());
    connect(button, &QPushButton::clicked, this, std::move(action));
    hoverItems.push_back({button, button});
    return button;
}

QSize SnoozeAlertWindow::rowSize() const
{
    return {scaledTo(font(), alertGeometry::width), scaledTo(font(), alertGeometry::rowHeight)};
}

void SnoozeAlertWindow::colourDetail()
{
    setTextColour(*detail,
                  detailIsRed ? std::optional(warningTextColour(palette(), appearance.bestMatch()))
                              : std::nullopt);
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
    applyPalette({}); // the desktop's colours may have changed since they were last made readable
    auto* const window = new SnoozeAlertWindow(content, std::move(actions), appearance);
    auto alert = std::make_unique<WindowAlert>(window);
    window->present(pointer, runLoop);
    return alert;
}

} // namespace voltmere
