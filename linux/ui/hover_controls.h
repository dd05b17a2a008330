#pragma once

#include "linux/ui/views.h"
#include "ports/desktop.h"
#include "ports/time.h"

#include <QPushButton>

#include <memory>
#include <vector>

namespace voltmere {

/// A control that lights up under the pointer.
class HoverHighlighting {
public:
    virtual ~HoverHighlighting() = default;

    virtual void setHovering(bool hovering) = 0;
};

/// A push button that looks pressed while the pointer is over it. It is never the window's default:
/// the Return key presses it only while it has the focus.
class HoverButton : public QPushButton, public HoverHighlighting {
public:
    HoverButton(const QString& title, QWidget* parent);

    void setHovering(bool hovering) override;
    bool isHovering() const { return hovering; }

protected:
    void initStyleOption(QStyleOptionButton* option) const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool hovering = false;
};

/// A pop-up button that a translucent rounded overlay covers while the pointer is over it. It is 52
/// points wide, or wider where its widest title needs more.
class HoverPopUpButton : public SettingPicker, public HoverHighlighting {
public:
    using SettingPicker::SettingPicker;

    void setHovering(bool hovering) override;

    QSize sizeHint() const override;

    /// The same: Qt's own minimum is far more in some styles.
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool hovering = false;
};

/// Tells controls, about eight times a second, whether the pointer is over them. Where the desktop
/// hides the pointer, the events that Qt had for each control count.
class HoverPoller {
public:
    static constexpr Seconds interval{0.12};

    /// One control, as both of its classes. It must outlive the poller.
    struct Item {
        QWidget* view;
        HoverHighlighting* hover;
    };

    /// Starts at once.
    HoverPoller(std::vector<Item> items, const Pointer& pointer, RunLoop& runLoop);

private:
    void refresh();

    std::vector<Item> items;
    const Pointer& pointer;
    std::unique_ptr<Timer> timer;
};

} // namespace voltmere
