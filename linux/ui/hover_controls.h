#pragma once

#include "linux/ui/setting_picker.h"

#include <QPointer>
#include <QPushButton>

#include <memory>

namespace voltmere {

class ActionTarget;

/// A control that lights up under the pointer.
class HoverHighlighting {
public:
    virtual ~HoverHighlighting() = default;

    virtual void setHovering(bool hovering) = 0;
};

/// A push button whose pressed look can be put on without pressing it. It is never the window's
/// default: the Return key presses it only while it has the focus.
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
/// points wide, or as wide as its widest title needs in the style at hand.
class HoverPopUpButton : public SettingPicker, public HoverHighlighting {
public:
    HoverPopUpButton();

    void setHovering(bool hovering) override;

    QSize sizeHint() const override;

    /// The same: Qt's own minimum is far more in some styles.
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool hovering = false;
};

/// Lights up a button that is not its own, as long as that exists.
class NativeButtonHover : public HoverHighlighting {
public:
    explicit NativeButtonHover(HighlightButton* button);

    void setHovering(bool hovering) override;

private:
    QPointer<HighlightButton> button;
};

} // namespace voltmere
