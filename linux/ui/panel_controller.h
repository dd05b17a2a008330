#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QWidget>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace voltmere {

/// Between the panel and the edges of the work area, in points. A floating bar of Plasma stands
/// this much further inside than it reserves.
inline constexpr int panelGap = 8;

/// Where a panel of `size` opens for the icon or pointer at `anchor`: centred below it, or above
/// an anchor in the lower half, inside `workArea` and away from its edges as far as that is large
/// enough. All in points of one screen.
QPoint placePanel(const QRect& anchor, const QSize& size, const QRect& workArea);

/// The corner in which the tray usually is on the desktop with these names (XDG_CURRENT_DESKTOP).
Qt::Edges trayCorner(const QString& desktops);

/// Opens and closes the settings panel. The panel is built when it opens and destroyed when it
/// closes: on Escape, when the program loses the keyboard, and when the icon is clicked again. An
/// alert of the program leaves it open.
class PanelController : public QObject {
public:
    using Uptime = std::chrono::steady_clock::time_point;

    /// `makePanel` builds the panel as a top-level widget, not yet shown.
    explicit PanelController(std::function<std::unique_ptr<QWidget>()> makePanel,
                             std::function<Uptime()> uptime = &std::chrono::steady_clock::now);
    ~PanelController() override;

    /// A click on the icon at `icon`; empty where its place is unknown.
    void toggle(const QRect& icon);

    /// Opens the panel, or brings the open one to the front.
    void open(const QRect& icon = {});

    /// The icon's menu is about to open: it does not close the panel. Plasma on Wayland takes the
    /// menu off the screen when a window closes under it.
    void keepForMenu() { menuAskedFor = uptime(); }

    /// From now on the panel opens as an ordinary window, for a desktop without a place for the
    /// icon, and stays open until the user closes it. An open panel of the icon closes.
    void setOrdinaryWindow(bool ordinary);
    bool isOrdinaryWindow() const { return ordinaryWindow; }

    bool isOpen() const;

private:
    void closeWithoutKeyboard();
    void place(const QRect& icon);
    void moveToAnchor();
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::function<std::unique_ptr<QWidget>()> makePanel;
    QPointer<QWidget> panel;
    QRect anchor; ///< the icon, or the pointer, at which the panel has opened
    bool ordinaryWindow = false;
    std::function<Uptime()> uptime;
    std::optional<Uptime> menuAskedFor;
    std::optional<Uptime> closedByItself; ///< when the program last lost the keyboard
};

} // namespace voltmere
