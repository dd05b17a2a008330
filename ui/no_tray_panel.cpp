#include "ui/no_tray_panel.h"

#include "model/l10n.h"
#include "ui/app_icon_asset.h"
#include "ui/panel_metrics.h"
#include "ui/wrapping_label.h"

#include <QVBoxLayout>

namespace voltmere {

NoTrayPanel::NoTrayPanel(BatteryModel& model, std::unique_ptr<QWidget> content)
    : notice(new WrappingLabel(this))
    , redrawScheduler(model.objectWillChange, [this] { redraw(); })
{
    setWindowIcon(AppIconAsset::windowIcon());
    notice->setObjectName("noTray");
    notice->setContentsMargins(panelMetrics::padding, 0, panelMetrics::padding,
                               panelMetrics::padding);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(content.release());
    column->addWidget(notice);
    redraw();
}

void NoTrayPanel::redraw()
{
    setWindowTitle(QString::fromStdString(L10n::t("app.name")));
    notice->setText(QString::fromStdString(L10n::own("panel.noTray")));
}

} // namespace voltmere
