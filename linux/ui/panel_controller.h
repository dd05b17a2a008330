#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace voltmere {

/// Opens and closes the settings panel. The panel is built when it opens and destroyed when it
/// closes: on Escape, when it loses the keyboard, and when the icon is clicked again.
class PanelController : public QObject {
public:
    using Uptime = std::chrono::steady_clock::time_point;

    /// `makePanel` builds the panel's content as a top-level widget, not yet shown.
    explicit PanelController(std::function<std::unique_ptr<QWidget>()> makePanel,
                             std::function<Uptime()> uptime = &std::chrono::steady_clock::now);
    ~PanelController() override;

    /// A click on the icon at `icon`, empty where its place is not known.
    void toggle(const QRect& icon);

    /// Opens the panel, or brings the open one to the front.
    void open(const QRect& icon = {});

    /// From now on the panel opens as an ordinary window, for a desktop that has no icon to open it
    /// from: it stays open until a person closes it. A panel of the icon that is open closes.
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
