#include "linux/ui/hover_controls.h"

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
constexpr int titleMargin = 9;            // points that a style may keep free before a title

} // namespace

HoverButton::HoverButton(const QString& title, QWidget* parent)
    : QPushButton(title, parent)
{
    setAutoDefault(false);
}

void HoverButton::setHovering(bool nowHovering)
{
    if (hovering != nowHovering) {
        hovering = nowHovering;
        update();
    }
}

void HoverButton::initStyleOption(QStyleOptionButton* option) const
{
    QPushButton::initStyleOption(option);
    if (hovering) {
        option->state |= QStyle::State_Sunken;
        option->state &= ~QStyle::State_Raised;
    }
}

void HoverButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

void HoverPopUpButton::setHovering(bool nowHovering)
{
    hovering = nowHovering;
    update();
}

QSize HoverPopUpButton::sizeHint() const
{
    ensurePolished();
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect place =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    int widest = 0;
    for (int index = 0; index < count(); ++index) {
        widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(index)));
    }
    const int needed = option.rect.width() - place.width() + titleMargin + widest;
    return {std::max(needed, leastPopUpWidth),
            option.rect.height() - place.height() + fontMetrics().height()};
}

void HoverPopUpButton::paintEvent(QPaintEvent* event)
{
    SettingPicker::paintEvent(event);
    if (!hovering) {
        return;
    }
    QColor overlay = palette().color(QPalette::WindowText);
    overlay.setAlphaF(overlayAlpha);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(overlay);
    const qreal radius = std::min(height() * 0.5 - 1, largestCornerRadius);
    painter.drawRoundedRect(
        QRectF(rect()).adjusted(overlayInset, overlayInset, -overlayInset, -overlayInset), radius,
        radius);
}

HoverPoller::HoverPoller(std::vector<Item> givenItems, const Pointer& pointer, RunLoop& runLoop)
    : items(std::move(givenItems))
    , pointer(pointer)
    , timer(runLoop.scheduleRepeating(interval, [this] { refresh(); }))
{
    refresh();
}

void HoverPoller::refresh()
{
    const auto position = pointer.position();
    for (const auto& [view, hover] : items) {
        hover->setHovering(position ? view->visibleRegion().contains(view->mapFromGlobal(
                                          QPointF(position->x, position->y).toPoint()))
                                    : view->underMouse());
    }
}

} // namespace voltmere
