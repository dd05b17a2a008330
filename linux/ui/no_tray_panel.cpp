#include "linux/ui/no_tray_panel.h"

#include "linux/ui/panel_metrics.h"
#include "linux/ui/views.h"
#include "texts/l10n.h"

#include <QApplication>
#include <QEvent>
#include <QVBoxLayout>

namespace voltmere {

NoTrayPanel::NoTrayPanel(BatteryModel& model, std::unique_ptr<QWidget> givenContent)
    : content(givenContent.release())
    , notice(new WrappingLabel(this))
    , redrawScheduler(model.objectWillChange, [this] { redraw(); })
{
    notice->setObjectName("noTray");
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(content);
    auto* const margin = new QVBoxLayout;
    margin->setContentsMargins(panelMetrics::padding, 0, panelMetrics::padding,
                               panelMetrics::padding);
    margin->addWidget(notice);
    column->addLayout(margin);
    redraw();
}

void NoTrayPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        QApplication::sendEvent(content, event);
    }
}

void NoTrayPanel::redraw()
{
    setWindowTitle(QString::fromStdString(L10n::t("app.name")));
    notice->setText(QString::fromStdString(L10n::own("panel.noTray")));
}

} // namespace voltmere
