#include "linux/ui/panel.h"

#include "linux/ui/app_icon_asset.h"
#include "linux/ui/assistive_names.h"
#include "linux/ui/colours.h"
#include "linux/ui/device_list.h"
#include "linux/ui/display_text.h"
#include "linux/ui/divider.h"
#include "linux/ui/panel_metrics.h"
#include "linux/ui/picture_view.h"
#include "linux/ui/setting_picker.h"
#include "linux/ui/theme.h"
#include "linux/ui/views.h"
#include "snooze/custom_time.h"
#include "texts/app_language.h"
#include "texts/l10n.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace voltmere {

namespace {

constexpr int lowestThreshold = 1;
constexpr int highestThreshold = 90;

QString translated(std::string_view key)
{
    return displayText(L10n::t(key));
}

QHBoxLayout* makeRow(QVBoxLayout& column)
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(panelMetrics::rowSpacing);
    column.addLayout(row);
    return row;
}

QString storedText(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string displayName(AppLanguage language)
{
    return L10n::own("language." + std::string(rawValue(language)));
}

} // namespace

ContentView::ContentView(BatteryModel& model, const Appearance& appearance,
                         std::function<void()> quit, QWidget* parent)
    : QWidget(parent)
    , model(model)
    , appearance(appearance)
    , quit(std::move(quit))
    , redrawScheduler(model.objectWillChange, [this] { redraw(); })
{
    constexpr int padding = panelMetrics::padding;
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(panelMetrics::itemSpacing);
    column->addStrut(panelMetrics::width - 2 * padding);
    column->setSizeConstraint(QLayout::SetFixedSize);

    // The order in which the controls are made is that of the Tab key and of a screen reader.
    addHeader(*column);
    column->addWidget(new Divider(this));
    addDevices(*column);
    column->addWidget(new Divider(this));
    addThreshold(*column);
    column->addWidget(makeToggle("dailyCheck", "panel.dailyCheck", model.enabled));
    addCheckTime(*column);
    addStatus(*column);
    addTestButton(*column);
    column->addWidget(makeToggle("launchAtLogin", "panel.launchAtLogin", model.launchAtLogin));
    column->addWidget(new Divider(this));
    addBottomRow(*column);
    onRedraw([this] { setWindowTitle(QString::fromStdString(L10n::t("app.name"))); });
    redraw();
    // No control has the keyboard until Tab, so that no key changes a setting by accident.
    setFocus();
}

ContentView::~ContentView() = default;

void ContentView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!std::exchange(hasAppeared, true)) {
        model.refreshLaunchAtLogin();
        model.refresh(false);
    }
}

void ContentView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel)) {
        window()->close();
        return;
    }
    QWidget::keyPressEvent(event);
}

void ContentView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        redrawScheduler.schedule();
    }
}

void ContentView::addHeader(QVBoxLayout& column)
{
    auto* const name = makeText("applicationName", "app.name");
    name->setFont(headlineFont(font()));

    QHBoxLayout* const row = makeRow(column);
    row->addStretch();
    if (auto image = AppIconAsset::appImage(panelMetrics::iconSide)) {
        auto* const icon = new PictureView(
            panelMetrics::iconSide, [image](const QColor&) { return image; }, this);
        icon->setObjectName("applicationIcon");
        row->addWidget(icon);
    }
    row->addWidget(name);
    row->addStretch();
}

void ContentView::addDevices(QVBoxLayout& column)
{
    auto* const list = new DeviceList(this);
    onRedraw([this, list] {
        list->present(model.devices, model.threshold, systemRed(appearance.bestMatch()));
    });
    column.addWidget(list);
}

void ContentView::addThreshold(QVBoxLayout& column)
{
    QHBoxLayout* const row = makeRow(column);
    row->addWidget(makeText("thresholdLabel", "panel.warnBelow"));
    row->addWidget(makeThresholdPicker());
    row->addWidget(makeText("thresholdSuffix", "panel.warnSuffix"));
    row->addWidget(makeToggle("instantAlert", "panel.instantAlert", model.instantEnabled));
    row->addStretch();
}

void ContentView::addCheckTime(QVBoxLayout& column)
{
    QHBoxLayout* const row = makeRow(column);
    row->addWidget(makeText("checkTimeLabel", "panel.checkTime"));
    row->addStretch();
    row->addWidget(
        makeTimePicker("checkHour", "name.hour", hourStep, hoursPerDay, model.checkHour));
    auto* const colon = new QLabel(":", this);
    colon->setObjectName("timeSeparator");
    row->addWidget(colon);
    row->addWidget(makeTimePicker("checkMinute", "name.minute", minuteStep, minutesPerHour,
                                  model.checkMinute));
}

void ContentView::addStatus(QVBoxLayout& column)
{
    auto* const line = new WrappingLabel(this);
    line->setObjectName("status");
    onRedraw([this, line] {
        line->setText(displayText(model.status.get()));
        const bool low = model.status->starts_with(L10n::t("status.low"));
        setTextColour(*line,
                      low ? systemRed(appearance.bestMatch()) : secondaryTextColour(palette()));
    });
    column.addWidget(line);
}

void ContentView::addTestButton(QVBoxLayout& column)
{
    auto* const button = makeButton("testAlert", "panel.testNotification", [this] {
        const AlertPayload payload = model.alertPayload();
        model.showSnoozeAlert(payload.devices, payload.isLow);
    });
    column.addWidget(button, 0, Qt::AlignLeft);
}

void ContentView::addBottomRow(QVBoxLayout& column)
{
    QHBoxLayout* const row = makeRow(column);
    row->addWidget(makeButton("quit", "panel.quit", quit));
    row->addStretch();
    row->addWidget(makeText("languageLabel", "panel.language"));
    row->addWidget(makeLanguagePicker());
}

/// A text in the current language; an empty one takes no room.
QLabel* ContentView::makeText(const char* objectName, std::string_view key)
{
    auto* const label = new QLabel(this);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    onRedraw([label, key] {
        label->setText(translated(key));
        label->setVisible(!label->text().isEmpty());
    });
    return label;
}

QPushButton* ContentView::makeButton(const char* objectName, std::string_view key,
                                     std::function<void()> action)
{
    auto* const button = new QPushButton(this);
    button->setObjectName(objectName);
    connect(button, &QPushButton::clicked, this, [action = std::move(action)] { action(); });
    onRedraw([button, key] {
        button->setText(translated(key));
        // Some styles leave hardly any room beside a long text.
        button->setMinimumWidth(button->fontMetrics().horizontalAdvance(button->text()) +
                                2 * panelMetrics::buttonPadding);
    });
    return button;
}

QCheckBox* ContentView::makeToggle(const char* objectName, std::string_view key,
                                   Published<bool>& setting)
{
    auto* const box = new QCheckBox(this);
    box->setObjectName(objectName);
    // Assistive technology toggles without a click, and so does a redraw, which must not write.
    connect(box, &QCheckBox::toggled, this, [&setting](bool checked) {
        if (checked != setting) {
            setting = checked;
        }
    });
    onRedraw([box, key, &setting] {
        box->setText(translated(key));
        box->setChecked(setting);
    });
    return box;
}

/// A picker that assistive technology calls by `name`.
SettingPicker* ContentView::makePicker(const char* objectName, Text name)
{
    auto* const picker = new SettingPicker(this);
    picker->setObjectName(objectName);
    onRedraw([picker, name = std::move(name)] { namePicker(*picker, displayText(name())); });
    return picker;
}

void ContentView::bind(SettingPicker& picker, Published<std::int64_t>& setting)
{
    picker.onChoice([&setting](const QVariant& value) { setting = value.toLongLong(); });
    onRedraw([&picker, &setting] { picker.select(qlonglong{setting.get()}); });
}

SettingPicker* ContentView::makeThresholdPicker()
{
    auto* const picker = makePicker("threshold", [] { return L10n::own("name.threshold"); });
    picker->setMinimumWidth(panelMetrics::thresholdWidth);
    picker->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    for (int percent = lowestThreshold; percent <= highestThreshold; ++percent) {
        picker->addItem(QString("%1%").arg(percent), qlonglong{percent});
    }
    bind(*picker, model.threshold);
    return picker;
}

SettingPicker* ContentView::makeTimePicker(const char* objectName, std::string_view nameKey,
                                           int step, int end, Published<std::int64_t>& setting)
{
    auto* const picker = makePicker(objectName, [nameKey] { return L10n::own(nameKey); });
    picker->addTwoDigitNumbers(step, end);
    bind(*picker, setting);
    return picker;
}

SettingPicker* ContentView::makeLanguagePicker()
{
    auto* const picker = makePicker("language", [] { return L10n::t("panel.language"); });
    for (const AppLanguage language : allAppLanguages) {
        picker->addItem(QString(), storedText(rawValue(language)));
    }
    picker->onChoice(
        [this](const QVariant& value) { model.language = value.toString().toStdString(); });
    onRedraw([this, picker] {
        for (int index = 0; const AppLanguage language : allAppLanguages) {
            picker->setItemText(index++, displayText(displayName(language)));
        }
        picker->select(storedText(model.language.get()));
    });
    return picker;
}

void ContentView::onRedraw(std::function<void()> update)
{
    updates.push_back(std::move(update));
}

void ContentView::redraw()
{
    for (const auto& update : updates) {
        update();
    }
    // Otherwise the rows would be seen moving to their places one turn later.
    layout()->invalidate();
    layout()->activate();
}

} // namespace voltmere
