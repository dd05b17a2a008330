#include "linux/ui/hover_controls.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>

#include <algorithm>
#include <utility>

namespace voltmere {

namespace {

constexpr float overlayAlpha = 0.2F;
constexpr double overlayInset = 0.5;      // points
constexpr double largestCornerRadius = 6; // points
constexpr int leastPopUpWidth = 52;       // points
constexpr int titleMargin = 8;            // points that a style may keep free before a title

/// A title comes from a table of texts, so "&" must not mark a mnemonic.
QString literalTitle(QString title)
{
    return title.replace('&', "&&");
}

/// A rectangle includes its left and upper edges only; the next pixel begins at the others.
bool holds(const QWidget& view, const QPointF& onScreen)
{
    const QPointF point = view.mapFromGlobal(onScreen);
    return point.x() >= 0 && point.y() >= 0 && point.x() < view.width() &&
        point.y() < view.height();
}

} // namespace

HighlightButton::HighlightButton(const QString& title)
    : QPushButton(literalTitle(title))
{
    setAutoDefault(false);
    setAccessibleName(title);
}

void HighlightButton::setTarget(const std::weak_ptr<ActionTarget>& target)
{
    connect(this, &QPushButton::clicked, this, [target] {
        if (const auto existing = target.lock()) {
            existing->fire();
        }
    });
}

void HighlightButton::setHighlighted(bool on)
{
    if (highlighted != on) {
        highlighted = on;
        update();
    }
}

void HighlightButton::initStyleOption(QStyleOptionButton* option) const
{
    QPushButton::initStyleOption(option);
    if (highlighted) {
        option->state |= QStyle::State_Sunken;
        option->state &= ~QStyle::State_Raised;
    }
}

void HighlightButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

void HoverButton::setHovering(bool nowHovering)
{
    hovering = nowHovering;
    setHighlighted(hovering);
}

void HoverButton::mouseReleaseEvent(QMouseEvent* event)
{
    HighlightButton::mouseReleaseEvent(event);
    if (hovering) {
        setHighlighted(true);
    }
}

HoverPopUpButton::HoverPopUpButton(QWidget* parent)
    : SettingPicker(parent)
{
    // sizeHint() measures the width, so Qt need not.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void HoverPopUpButton::setHovering(bool nowHovering)
{
    hovering = nowHovering;
    update();
}

QSize HoverPopUpButton::sizeHint() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect place =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    int widest = 0;
    for (int index = 0; index < count(); ++index) {
        widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(index)));
    }
    const int needed = option.rect.width() - place.width() + titleMargin + widest;
    return {std::max(needed, leastPopUpWidth), SettingPicker::sizeHint().height()};
}

void HoverPopUpButton::paintEvent(QPaintEvent* event)
{
    SettingPicker::paintEvent(event);
    if (!hovering) {
        return;
    }
    const double radius = std::min(height() * 0.5 - 1, largestCornerRadius);
    QColor overlay = palette().color(QPalette::WindowText);
    overlay.setAlphaF(overlayAlpha);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(overlay);
    painter.drawRoundedRect(
        QRectF(rect()).adjusted(overlayInset, overlayInset, -overlayInset, -overlayInset), radius,
        radius);
}

NativeButtonHover::NativeButtonHover(HighlightButton* button)
    : button(button)
{
}

void NativeButtonHover::setHovering(bool hovering)
{
    if (button != nullptr) {
        button->setHighlighted(hovering);
    }
}

HoverPoller::HoverPoller(QWidget* window, std::vector<Item> givenItems, const Pointer& pointer,
                         RunLoop& runLoop)
    : window(window)
    , items(std::move(givenItems))
    , pointer(pointer)
{
    if (pointer.position()) {
        timer = runLoop.scheduleRepeating(interval, [this] { refresh(); });
        refresh();
        return;
    }
    for (const Item& item : items) {
        item.view->installEventFilter(this);
    }
}

void HoverPoller::stop()
{
    timer.reset();
    for (const Item& item : items) {
        item.view->removeEventFilter(this);
        item.hover->setHovering(false);
    }
}

bool HoverPoller::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) {
        for (const Item& item : items) {
            if (item.view == watched) {
                item.hover->setHovering(event->type() == QEvent::Enter);
            }
        }
    }
    return QObject::eventFilter(watched, event);
}

void HoverPoller::refresh()
{
    if (window == nullptr || !window->isVisible()) {
        return;
    }
    const auto position = pointer.position();
    if (!position) {
        return;
    }
    for (const Item& item : items) {
        item.hover->setHovering(holds(*item.view, QPointF(position->x, position->y)));
    }
}

} // namespace voltmere
