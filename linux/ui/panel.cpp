#include "linux/ui/panel.h"

#include "linux/ui/images.h"
#include "linux/ui/theme.h"
#include "linux/ui/views.h"
#include "texts/l10n.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <initializer_list>
#include <memory>
#include <utility>

namespace voltmere {

namespace {

constexpr int buttonPadding = 12; // points, at least, on each side of a button's text
constexpr int boxPadding = 4;     // points, after the text of a check box
constexpr QWidget* stretch = nullptr;

QHBoxLayout* makeRow(std::initializer_list<QWidget*> widgets)
{
    auto* const row = new QHBoxLayout;
    row->setContentsMargins({});
    row->setSpacing(panelGeometry::rowSpacing);
    for (QWidget* const widget : widgets) {
        if (widget == stretch) {
            row->addStretch();
        } else {
            row->addWidget(widget);
        }
    }
    return row;
}

/// The symbol in the text's colour.
PictureView* makeSymbolView(const std::string& name, QWidget* parent)
{
    constexpr int side = panelGeometry::symbolSide;
    auto* const view = new PictureView(
        side, [name = asQt(name)](const QColor& colour) { return symbolImage(name, side, colour); },
        parent);
    view->setObjectName("symbol-" + asQt(name));
    return view;
}

QLabel* makePlainLabel(const char* objectName, QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    return label;
}

/// One row for each peripheral, or one row that reports no peripherals.
class DeviceList : public QWidget {
public:
    DeviceList(const std::string& emptySymbol, QWidget* parent)
        : QWidget(parent)
        , emptyRow(new QWidget(this))
        , emptyText(makePlainLabel("noDevices", emptyRow))
    {
        setObjectName("deviceList");
        emptyRow->setLayout(makeRow({makeSymbolView(emptySymbol, emptyRow), emptyText, stretch}));
        auto* const column = new QVBoxLayout(this);
        column->setContentsMargins({});
        column->setSpacing(panelGeometry::itemSpacing);
        column->addWidget(emptyRow);
    }

    void present(const PanelContent& content, const QColor& red)
    {
        emptyText->setText(asQt(content.emptyText));
        emptyRow->setVisible(content.devices.empty());
        // An unchanged row stays: assistive technology may be reading it.
        if (content.devices != shown) {
            rebuild(content.devices);
        }
        for (std::size_t index = 0; index < rows.size(); ++index) {
            setTextColour(*rows[index].level,
                          shown[index].levelIsRed ? std::optional(red) : std::nullopt);
        }
    }

private:
    struct Row {
        std::unique_ptr<QWidget> view;
        QLabel* level;
    };

    void rebuild(const std::vector<DeviceRow>& devices)
    {
        rows.clear();
        for (const DeviceRow& device : devices) {
            rows.push_back(makeDeviceRow(device));
            layout()->addWidget(rows.back().view.get());
            rows.back().view->show();
        }
        shown = devices;
    }

    Row makeDeviceRow(const DeviceRow& device)
    {
        auto view = std::make_unique<QWidget>(this);
        view->setObjectName(QString("device-%1").arg(device.id));
        // Made in the order in which a screen reader reads them.
        auto* const name = new ElidedLabel(view.get());
        auto* const level = new MessageLabel(view.get(), panelGeometry::width);
        name->setObjectName("deviceName");
        name->setFont(headlineFont(font()));
        name->setFullText(asQt(device.name));
        level->setObjectName("deviceLevel");
        level->setFont(title3Font(font()));
        level->setText(asQt(device.level));
        view->setLayout(makeRow({makeSymbolView(device.symbol, view.get()), name, level}));
        return {std::move(view), level};
    }

    QWidget* emptyRow;
    QLabel* emptyText;
    std::vector<DeviceRow> shown;
    std::vector<Row> rows; ///< one for each of `shown`
};

/// Makes the panel a window for assistive technology. A screen reader stays silent when a mere
/// container opens.
QAccessibleInterface* makePanelInterface(const QString& /*className*/, QObject* object)
{
    auto* const panel = dynamic_cast<ContentView*>(object);
    return panel == nullptr ? nullptr : new QAccessibleWidget(panel, QAccessible::Window);
}

} // namespace

ContentView::ContentView(BatteryModel& model, const Appearance& appearance,
                         std::function<void()> quit)
    : model(model)
    , appearance(appearance)
    , content(panelContent(model))
    , column(new QVBoxLayout(this))
    , rows(new QVBoxLayout(new QWidget(this)))
    , scroller(new Scroller(rows->parentWidget(), this))
    , redrawScheduler(model.objectWillChange, [this] { redraw(); })
{
    constexpr int padding = panelGeometry::padding;
    applyPalette({}); // the desktop's colours may have changed since they were last made readable
    QAccessible::installFactory(&makePanelInterface); // once, however often it is asked
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(panelGeometry::itemSpacing);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(scroller);
    rows->setContentsMargins({});
    rows->setSpacing(panelGeometry::itemSpacing);
    rows->addStrut(panelGeometry::width - 2 * padding);

    // The order of construction is the order of the Tab key and of a screen reader.
    using Content = PanelContent;
    rows->addWidget(makeHeader());
    rows->addWidget(new Divider(this));
    rows->addWidget(makeDevices());
    rows->addWidget(new Divider(this));
    auto* const warnBelow = makeText("thresholdLabel", &Content::warnBelow);
    auto* const threshold = makePicker("threshold", &Content::threshold, model.threshold);
    threshold->setMinimumWidth(panelGeometry::thresholdWidth);
    rows->addLayout(makeRow(
        {warnBelow, threshold, makeText("thresholdSuffix", &Content::warnSuffix),
         makeToggle("instantAlert", &Content::instantAlert, model.instantEnabled), stretch}));
    rows->addWidget(makeToggle("dailyCheck", &Content::dailyCheck, model.enabled));
    rows->addLayout(makeRow({makeText("checkTimeLabel", &Content::checkTime), stretch,
                             makePicker("checkHour", &Content::checkHour, model.checkHour),
                             makeText("timeSeparator", &Content::timeSeparator),
                             makePicker("checkMinute", &Content::checkMinute, model.checkMinute)}));
    rows->addWidget(makeStatus());
    const auto showAlert = [this, &model] {
        const AlertPayload payload = model.alertPayload();
        model.showSnoozeAlert(payload.devices, payload.isLow);
        if (window()->windowType() == Qt::Tool) { // the panel of the icon
            window()->close();
        }
    };
    rows->addWidget(makeButton("testAlert", &Content::testAlert, showAlert), 0, Qt::AlignLeft);
    rows->addWidget(makeToggle("launchAtLogin", &Content::launchAtLogin, model.launchAtLogin));
    column->addWidget(new Divider(this));
    column->addLayout(makeRow({makeButton("quit", &Content::quit, std::move(quit)), stretch,
                               makeText("languageLabel", &Content::languageLabel),
                               makePicker("language", &Content::language, model.language)}));
    redraw();
    // No control has the keyboard until Tab, so that no key changes a setting by accident.
    setFocus();
}

void ContentView::addNoTrayNotice()
{
    auto* const notice = new MessageLabel(this);
    notice->setObjectName("noTray");
    column->addSpacing(panelGeometry::padding - panelGeometry::itemSpacing);
    column->addWidget(notice);
    updates.emplace_back([notice] { notice->setText(asQt(L10n::own("panel.noTray"))); });
    redraw();
}

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
        close();
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

void ContentView::paintEvent(QPaintEvent* /*event*/)
{
    drawEdge(*this);
}

QWidget* ContentView::makeHeader()
{
    auto* const header = new QWidget(this);
    auto* const name = makeText("applicationName", &PanelContent::applicationName);
    name->setFont(headlineFont(font()));
    QHBoxLayout* const row = makeRow({stretch, name, stretch});
    if (const auto image = AppIconAsset::appImage(panelGeometry::iconSide)) {
        auto* const icon = new PictureView(
            panelGeometry::iconSide, [picture = *image](const QColor&) { return picture; }, header);
        icon->setObjectName("applicationIcon");
        row->insertWidget(1, icon);
    }
    header->setLayout(row);
    return header;
}

QWidget* ContentView::makeDevices()
{
    auto* const list = new DeviceList(content.emptySymbol, this);
    updates.emplace_back([this, list] {
        list->present(content, warningTextColour(palette(), appearance.bestMatch()));
    });
    return list;
}

QLabel* ContentView::makeStatus()
{
    auto* const line = new MessageLabel(this);
    line->setObjectName("status");
    updates.emplace_back([this, line] {
        line->setText(asQt(content.status));
        setTextColour(*line,
                      content.statusIsRed ? warningTextColour(palette(), appearance.bestMatch())
                                          : secondaryTextColour(palette()));
    });
    return line;
}

/// An empty text takes no room.
QLabel* ContentView::makeText(const char* objectName, std::string PanelContent::*text)
{
    auto* const label = makePlainLabel(objectName, this);
    updates.emplace_back([this, label, text] {
        label->setText(asQt(content.*text));
        label->setVisible(!label->text().isEmpty());
    });
    return label;
}

QPushButton* ContentView::makeButton(const char* objectName, std::string PanelContent::*title,
                                     std::function<void()> action)
{
    auto* const button = new QPushButton(this);
    button->setObjectName(objectName);
    connect(button, &QPushButton::clicked, this, std::move(action));
    updates.emplace_back([this, button, title] {
        button->setText(asQt(content.*title));
        // Some styles leave hardly any room beside a long text.
        button->setMinimumWidth(button->fontMetrics().horizontalAdvance(button->text()) +
                                2 * buttonPadding);
    });
    return button;
}

QCheckBox* ContentView::makeToggle(const char* objectName, Toggle PanelContent::*toggle,
                                   Published<bool>& setting)
{
    auto* const box = new QCheckBox(this);
    growWithText(*box);
    box->setObjectName(objectName);
    // Assistive technology toggles without a click. So does a redraw, which must not write.
    connect(box, &QCheckBox::toggled, this, [&setting](bool checked) {
        if (checked != setting) {
            setting = checked;
        }
    });
    updates.emplace_back([this, box, toggle] {
        box->setText(asQt((content.*toggle).title));
        // Kvantum asks for a little less room than it draws the text in.
        box->setMinimumWidth(box->sizeHint().width() + boxPadding);
        box->setChecked((content.*toggle).isOn);
    });
    return box;
}

template<typename Value>
SettingPicker* ContentView::makePicker(const char* objectName, PopUp<Value> PanelContent::*popUp,
                                       Published<Value>& setting)
{
    auto* const picker = new SettingPicker(this);
    picker->setObjectName(objectName);
    picker->onChoice([this, popUp, &setting](std::size_t choice) {
        setting = (content.*popUp).values.at(choice);
    });
    updates.emplace_back([this, picker, popUp] { picker->present(content.*popUp); });
    return picker;
}

void ContentView::redraw()
{
    content = panelContent(model);
    setWindowTitle(asQt(content.applicationName));
    for (const auto& update : updates) {
        update();
    }
    // Otherwise the rows would be seen moving to their places one turn later.
    rows->activate();
    scroller->updateGeometry();
    column->activate();
}

} // namespace voltmere
