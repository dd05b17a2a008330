#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>

#include <functional>
#include <memory>

namespace voltmere {

/// Opens and closes the settings panel. The panel is built when it opens and destroyed when it
/// closes: on Escape, when it loses the keyboard, and when the icon is clicked again.
class PanelController : public QObject {
public:
    /// `makePanel` builds the panel's content as a top-level widget, not yet shown.
    explicit PanelController(std::function<std::unique_ptr<QWidget>()> makePanel);
    ~PanelController() override;

    /// A click on the icon at `icon`, empty where its place is not known.
    void toggle(const QRect& icon);

    /// Opens the panel, or brings the open one to the front.
    void open(const QRect& icon = {});

    /// From now on the panel is an ordinary window, for a desktop that has no icon to open it from:
    /// it stays open until a person closes it.
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
    QElapsedTimer sinceFocusLoss; ///< runs from the moment at which the panel closed by itself
};

} // namespace voltmere
