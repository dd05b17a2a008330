#include "linux/ui/panel_controller.h"

#include "linux/ui/app_icon_asset.h"
#include "linux/ui/views.h"
#include "texts/l10n.h"
#include "ui/panel.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace voltmere {

namespace {

/// A click on the icon takes the keyboard from the panel, which closes the panel before the click
/// arrives. A click within this time of such a close is the same click and means "close".
constexpr std::chrono::milliseconds sameClick(300);

constexpr Qt::WindowFlags panelFlags =
    Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
constexpr Qt::WindowFlags ordinaryFlags =
    Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;

QScreen* screenAt(const QPoint& point)
{
    QScreen* const screen = QGuiApplication::screenAt(point);
    return screen == nullptr ? QGuiApplication::primaryScreen() : screen;
}

constexpr auto windowProperty = "voltmereAnnouncedAsWindow";

QAccessibleInterface* makeWindowInterface(const QString& /*className*/, QObject* object)
{
    auto* const widget = qobject_cast<QWidget*>(object);
    const bool asked = widget != nullptr && widget->property(windowProperty).toBool();
    return asked ? new QAccessibleWidget(widget, QAccessible::Window) : nullptr;
}

/// Makes a widget a window for assistive technology. A screen reader stays silent when a mere
/// container opens.
void announceAsWindow(QWidget& widget)
{
    widget.setProperty(windowProperty, true);
    QAccessible::installFactory(&makeWindowInterface); // once, however often it is asked
}

/// The position nearest to `wanted` at which a span of `length` lies between `low` and `high`. A
/// longer span begins at `low`.
int fitted(int wanted, int length, int low, int high)
{
    return std::max(low, std::min(wanted, high - length + 1));
}

} // namespace

QPoint placePanel(const QRect& anchor, const QSize& size, const QRect& workArea)
{
    const bool below = anchor.center().y() <= workArea.center().y();
    const int x = anchor.center().x() - size.width() / 2;
    const int y = below ? anchor.bottom() + 1 : anchor.top() - size.height();
    return {fitted(x, size.width(), workArea.left(), workArea.right()),
            fitted(y, size.height(), workArea.top(), workArea.bottom())};
}

NoTrayPanel::NoTrayPanel(BatteryModel& model, std::unique_ptr<QWidget> givenContent)
    : content(givenContent.release())
    , notice(new WrappingLabel(this))
    , redrawScheduler(model.objectWillChange, [this] { redraw(); })
{
    notice->setObjectName("noTray");
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(content);
    auto* const margin = new QVBoxLayout;
    margin->setContentsMargins(panelGeometry::padding, 0, panelGeometry::padding,
                               panelGeometry::padding);
    margin->addWidget(notice);
    column->addLayout(margin);
    redraw();
}

void NoTrayPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        QApplication::sendEvent(content, event);
    }
}

void NoTrayPanel::redraw()
{
    setWindowTitle(asQt(L10n::t("app.name")));
    notice->setText(asQt(L10n::own("panel.noTray")));
}

PanelController::PanelController(std::function<std::unique_ptr<QWidget>()> makePanel,
                                 std::function<Uptime()> uptime)
    : makePanel(std::move(makePanel))
    , uptime(std::move(uptime))
{
}

PanelController::~PanelController()
{
    delete panel;
}

void PanelController::toggle(const QRect& icon)
{
    if (isOpen()) {
        panel->close();
        return;
    }
    if (closedByItself && uptime() - *closedByItself < sameClick) {
        return;
    }
    open(icon);
}

void PanelController::open(const QRect& icon)
{
    if (!isOpen()) {
        panel = makePanel().release();
        panel->setWindowFlags(ordinaryWindow ? ordinaryFlags : panelFlags);
        panel->setAttribute(Qt::WA_DeleteOnClose);
        panel->setWindowIcon(AppIconAsset::windowIcon());
        panel->installEventFilter(this);
        announceAsWindow(*panel);
        if (!ordinaryWindow) {
            place(icon);
        }
    }
    panel->show();
    panel->raise();
    panel->activateWindow();
}

void PanelController::setOrdinaryWindow(bool ordinary)
{
    if (ordinary && !ordinaryWindow && isOpen()) {
        panel->close();
    }
    ordinaryWindow = ordinary;
}

bool PanelController::isOpen() const
{
    return panel != nullptr && panel->isVisible();
}

bool PanelController::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == panel && event->type() == QEvent::WindowDeactivate &&
        panel->windowType() == Qt::Tool && isOpen() &&
        QApplication::activePopupWidget() == nullptr) {
        closedByItself = uptime();
        panel->close();
    }
    return QObject::eventFilter(watched, event);
}

void PanelController::place(const QRect& icon)
{
    const QRect anchor = icon.isEmpty() ? QRect(QCursor::pos(), QSize(1, 1)) : icon;
    panel->adjustSize();
    panel->move(placePanel(anchor, panel->size(), screenAt(anchor.center())->availableGeometry()));
}

} // namespace voltmere
