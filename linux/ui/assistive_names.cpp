#include "linux/ui/assistive_names.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <QWidget>

namespace voltmere {

namespace {

constexpr auto windowProperty = "voltmereAnnouncedAsWindow";

QLabel* labelOf(const QWidget& picker)
{
    for (auto* const label :
         picker.parentWidget()->findChildren<QLabel*>(Qt::FindDirectChildrenOnly)) {
        if (label->buddy() == &picker) {
            return label;
        }
    }
    return nullptr;
}

QAccessibleInterface* makeWindowInterface(const QString& /*className*/, QObject* object)
{
    auto* const widget = qobject_cast<QWidget*>(object);
    const bool asked = widget != nullptr && widget->property(windowProperty).toBool();
    return asked ? new QAccessibleWidget(widget, QAccessible::Window) : nullptr;
}

} // namespace

void namePicker(QWidget& picker, const QString& name)
{
    picker.setAccessibleName(name);
    QLabel* label = labelOf(picker);
    if (label == nullptr) {
        label = new QLabel(picker.parentWidget());
        label->setTextFormat(Qt::PlainText);
        label->setBuddy(&picker);
        label->hide();
    }
    label->setText(name);
}

void announceAsWindow(QWidget& widget)
{
    widget.setProperty(windowProperty, true);
    QAccessible::installFactory(&makeWindowInterface); // once, however often it is asked
}

} // namespace voltmere
