#pragma once

#include "linux/ui/views.h"
#include "ports/desktop.h"
#include "ports/time.h"

#include <QPointer>
#include <QPushButton>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace voltmere {

/// The action of a control. The control holds it weakly; the code that connects them keeps it
/// alive.
class ActionTarget : public std::enable_shared_from_this<ActionTarget> {
public:
    explicit ActionTarget(std::function<void()> action)
        : action(std::move(action))
    {
    }

    /// Runs the action, and stays alive meanwhile even if the action drops the last owner.
    void fire() const
    {
        const auto self = shared_from_this();
        action();
    }

private:
    const std::function<void()> action;
};

/// A control that lights up under the pointer.
class HoverHighlighting {
public:
    virtual ~HoverHighlighting() = default;

    virtual void setHovering(bool hovering) = 0;
};

/// A push button that can look pressed without a press. It is never the window's default: the
/// Return key presses it only while it has the focus.
class HighlightButton : public QPushButton {
public:
    explicit HighlightButton(const QString& title);

    /// Calls the target on each click, while it exists.
    void setTarget(const std::weak_ptr<ActionTarget>& target);

    void setHighlighted(bool on);
    bool isHighlighted() const { return highlighted; }

protected:
    void initStyleOption(QStyleOptionButton* option) const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool highlighted = false;
};

/// A push button with the pressed look while the pointer is over it.
class HoverButton : public HighlightButton, public HoverHighlighting {
public:
    using HighlightButton::HighlightButton;

    void setHovering(bool hovering) override;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool hovering = false;
};

/// A pop-up button that a translucent rounded overlay covers while the pointer is over it. It is 52
/// points wide, or wider where its widest title needs more.
class HoverPopUpButton : public SettingPicker, public HoverHighlighting {
public:
    explicit HoverPopUpButton(QWidget* parent = nullptr);

    void setHovering(bool hovering) override;

    QSize sizeHint() const override;

    /// The same: Qt's own minimum is far more in some styles.
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool hovering = false;
};

/// Lights up another control's button, while that button exists.
class NativeButtonHover : public HoverHighlighting {
public:
    explicit NativeButtonHover(HighlightButton* button);

    void setHovering(bool hovering) override;

private:
    QPointer<HighlightButton> button;
};

/// Tells the controls of a window, about eight times a second, whether the pointer is over them.
/// Where the desktop hides the pointer there is no timer; the controls use their own enter and
/// leave events.
class HoverPoller : public QObject {
public:
    static constexpr Seconds interval{0.12};

    /// A control and the object that lights up for it, often the same. Both must outlive the
    /// poller.
    struct Item {
        QWidget* view;
        HoverHighlighting* hover;
    };

    /// Starts at once.
    HoverPoller(QWidget* window, std::vector<Item> items, const Pointer& pointer, RunLoop& runLoop);

    /// Ends the polling for good and removes every highlight.
    void stop();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();

    QPointer<QWidget> window;
    std::vector<Item> items;
    const Pointer& pointer;
    std::unique_ptr<Timer> timer;
};

} // namespace voltmere
