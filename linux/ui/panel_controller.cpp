#include "linux/ui/panel_controller.h"

#include "linux/ui/images.h"
#include "linux/ui/layer_shell.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace voltmere {

namespace {

/// A click on the icon takes the keyboard from the panel, which closes the panel before the click
/// arrives. A click within this time of such a close is the same click and means "close".
constexpr std::chrono::milliseconds sameClick(300);

/// A tray host asks for the menu before it shows it, and the menu takes the keyboard.
constexpr std::chrono::seconds menuOpens(1);

constexpr Qt::WindowFlags panelFlags =
    Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
constexpr Qt::WindowFlags ordinaryFlags =
    Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;

QScreen* screenAt(const QPoint& point)
{
    QScreen* const screen = QGuiApplication::screenAt(point);
    return screen == nullptr ? QGuiApplication::primaryScreen() : screen;
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
    const auto inside = [](int wanted, int length, int low, int high) {
        return fitted(fitted(wanted, length, low + panelGap, high - panelGap), length, low, high);
    };
    return {inside(x, size.width(), workArea.left(), workArea.right()),
            inside(y, size.height(), workArea.top(), workArea.bottom())};
}

Qt::Edges trayCorner(const QString& desktops)
{
    const QStringList names = desktops.split(':');
    const bool atBottom = names.contains("KDE") || names.contains("LXQt");
    return Qt::RightEdge | (atBottom ? Qt::BottomEdge : Qt::TopEdge);
}

PanelController::PanelController(std::function<std::unique_ptr<QWidget>()> makePanel,
                                 std::function<Uptime()> uptime)
    : makePanel(std::move(makePanel))
    , uptime(std::move(uptime))
{
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        if (window == nullptr) {
            closeWithoutKeyboard();
        }
    });
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
    if (ordinary && isOpen()) {
        panel->close();
    }
    ordinaryWindow = ordinary;
}

bool PanelController::isOpen() const
{
    return panel != nullptr && panel->isVisible();
}

void PanelController::closeWithoutKeyboard()
{
    const bool menuTookIt = menuAskedFor && uptime() - *menuAskedFor < menuOpens;
    if (isOpen() && panel->windowType() == Qt::Tool && !menuTookIt &&
        QApplication::activePopupWidget() == nullptr) {
        closedByItself = uptime();
        panel->close();
    }
}

void PanelController::place(const QRect& icon)
{
    anchor = icon.isEmpty() ? QRect(QCursor::pos(), QCursor::pos()) : icon;
    panel->adjustSize();
    if (standInLayer(*panel, trayCorner(qEnvironmentVariable("XDG_CURRENT_DESKTOP")))) {
        closeOnClickElsewhere(*panel);
        return;
    }
    panel->installEventFilter(this);
    moveToAnchor();
}

void PanelController::moveToAnchor()
{
    panel->move(placePanel(anchor, panel->size(), screenAt(anchor.center())->availableGeometry()));
}

bool PanelController::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) { // the reading that follows may find more devices
        moveToAnchor();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace voltmere
