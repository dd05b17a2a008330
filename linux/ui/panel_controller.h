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

/// Where a panel of `size` opens for the icon or pointer at `anchor`: centred below it, or above
/// an anchor in the lower half, and inside `workArea` as far as that is large enough. All in points
/// of one screen.
QPoint placePanel(const QRect& anchor, const QSize& size, const QRect& workArea);

/// Opens and closes the settings panel. The panel is built when it opens and destroyed when it
/// closes: on Escape, when it loses the keyboard, and when the icon is clicked again.
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

    /// From now on the panel opens as an ordinary window, for a desktop without a place for the
    /// icon, and stays open until the user closes it. An open panel of the icon closes.
    void setOrdinaryWindow(bool ordinary);
    bool isOrdinaryWindow() const { return ordinaryWindow; }

    bool isOpen() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place(const QRect& icon);

    std::function<std::unique_ptr<QWidget>()> makePanel;
    QPointer<QWidget> panel;
    bool ordinaryWindow = false;
    std::function<Uptime()> uptime;
    std::optional<Uptime> closedByItself; ///< when the panel last lost the keyboard
};

} // namespace voltmere
