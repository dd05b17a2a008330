#include "linux/ui/panel_fixture.h"

#include "linux/ui/pictures.h"
#include "linux/ui/theme.h"
#include "linux/ui/views.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLayout>
#include <QScrollArea>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// One row, as a person would read it: pictures in (), pickers in [], boxes as [x] or [ ].
std::string described(const QWidget& widget)
{
    if (const auto* label = dynamic_cast<const QLabel*>(&widget)) {
        return label->text().toStdString();
    }
    if (const auto* box = dynamic_cast<const QCheckBox*>(&widget)) {
        return (box->isChecked() ? "[x] " : "[ ] ") + box->text().toStdString();
    }
    if (const auto* button = dynamic_cast<const QAbstractButton*>(&widget)) {
        return "<" + button->text().toStdString() + ">";
    }
    if (const auto* picker = dynamic_cast<const QComboBox*>(&widget)) {
        return "[" + picker->currentText().toStdString() + "]";
    }
    if (dynamic_cast<const PictureView*>(&widget) != nullptr) {
        return "(" + widget.objectName().toStdString() + ")";
    }
    return dynamic_cast<const Divider*>(&widget) != nullptr ? "---" : "?";
}

/// Every visible widget of `layout` and of the layouts in it, in the order of the layout.
std::vector<const QWidget*> visibleWidgets(const QLayout& layout)
{
    std::vector<const QWidget*> widgets;
    const auto append = [&widgets](const QLayout& inner) {
        for (const QWidget* const widget : visibleWidgets(inner)) {
            widgets.push_back(widget);
        }
    };
    for (int index = 0; index < layout.count(); ++index) {
        QLayoutItem* const item = layout.itemAt(index);
        if (item->layout() != nullptr) {
            append(*item->layout());
        } else if (item->widget() != nullptr && item->widget()->isVisible()) {
            const auto* const scroller = dynamic_cast<const QScrollArea*>(item->widget());
            const QWidget& part = scroller == nullptr ? *item->widget() : *scroller->widget();
            if (part.layout() != nullptr) {
                append(*part.layout());
            } else {
                widgets.push_back(item->widget());
            }
        }
    }
    return widgets;
}

int topIn(const QWidget& view, const QWidget& widget)
{
    return widget.mapTo(&view, widget.rect().center()).y();
}

/// The panel row by row, from top to bottom; each row from left to right.
std::vector<std::string> rowsOf(const QWidget& view)
{
    constexpr int sameRow = 6;
    std::vector<std::string> rows;
    int previous = -sameRow;
    for (const QWidget* const widget : visibleWidgets(*view.layout())) {
        const int centre = topIn(view, *widget);
        EXPECT_GE(centre, previous - sameRow) << described(*widget);
        if (!rows.empty() && centre - previous < sameRow) {
            rows.back() += " " + described(*widget);
        } else {
            rows.push_back(described(*widget));
        }
        previous = centre;
    }
    return rows;
}

/// The controls that show less than their whole text.
std::vector<std::string> cutControls(const QWidget& view)
{
    std::vector<std::string> cut;
    const int right = view.width() - panelGeometry::padding;
    for (const QWidget* const widget : visibleWidgets(*view.layout())) {
        const bool elides = widget->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        const bool narrow = !elides && widget->width() < widget->minimumSizeHint().width();
        const bool outside = widget->mapTo(&view, widget->rect().bottomRight()).x() >= right;
        if (narrow || outside) {
            cut.push_back(described(*widget));
        }
    }
    return cut;
}

class ContentViewTest : public PanelTest { };

TEST_F(ContentViewTest, ShowsEveryRowInOrderInEnglish)
{
    world.setLevels({{mouse, 37}, {keyboard, 15}});
    EXPECT_THAT(
        rowsOf(open("en")),
        ElementsAre(
            "(applicationIcon) Cellsentry", "---", "(symbol-magicmouse) Magic Mouse 37%",
            "(symbol-keyboard) Magic Keyboard 15%", "---", "Alert below [20%] [x] Immediately",
            "[x] Daily check", "Check time [22] : [30]", "Low battery: Magic Keyboard 15%",
            "<Enable / test alert>", "[ ] Launch at login", "---", "<Quit> Language [English]"));
}

TEST_F(ContentViewTest, ShowsEveryRowInOrderInChinese)
{
    world.setLevels({{mouse, 37}, {keyboard, 15}});
    EXPECT_THAT(
        rowsOf(open("zh")),
        ElementsAre("(applicationIcon) 续航哨兵", "---", "(symbol-magicmouse) Magic Mouse 37%",
                    "(symbol-keyboard) Magic Keyboard 15%", "---",
                    "电量低于 [20%] 提醒 [x] 立即提醒", "[x] 每天定时检查", "检查时间 [22] : [30]",
                    "电量偏低：Magic Keyboard 15%", "<开启/测试通知>", "[ ] 开机自动启动", "---",
                    "<退出> 语言 [简体中文]"));
}

TEST_F(ContentViewTest, WithNoPeripheralsShowsTheQuestionMarkAndSaysSoWhileTheStatusLineIsTheModels)
{
    open();
    model().status = "whatever the model says";
    settle();
    EXPECT_EQ(rowsOf(*view).at(2), "(symbol-questionmark.circle) No peripherals found");
    EXPECT_EQ(textOf("noDevices"), "No peripherals found");
    const QImage symbol = find("symbol-questionmark.circle").grab().toImage();
    EXPECT_LT(countPixels(symbol, symbol.pixelColor(0, 0)), symbol.width() * symbol.height());
    EXPECT_EQ(textOf("status"), "whatever the model says");
}

TEST_F(ContentViewTest, ALevelChangesItsColourWithTheThresholdAtOnce)
{
    world.setLevels({{mouse, 40}});
    open();
    model().threshold = 40;
    settle();
    EXPECT_EQ(colourOf("deviceLevel"), redOf(ColourScheme::light));
    model().threshold = 39;
    settle();
    EXPECT_EQ(colourOf("deviceLevel"), view->palette().color(QPalette::WindowText));
}

TEST_F(ContentViewTest, AWarningIsRedAndAnyOtherStatusSecondaryInTheColoursOfThePresentScheme)
{
    world.setLevels({{mouse, 5}});
    open();
    const auto changeTo = [this](ColourScheme scheme) {
        appearance.scheme = scheme;
        view->setPalette(paletteFor(scheme));
        settle();
    };
    for (const ColourScheme scheme : {ColourScheme::light, ColourScheme::dark}) {
        changeTo(scheme);
        EXPECT_EQ(colourOf("deviceLevel"), redOf(scheme));
        EXPECT_EQ(colourOf("status"), redOf(scheme));
    }
    model().status = "Battery level is fine";
    settle();
    for (const ColourScheme scheme : {ColourScheme::dark, ColourScheme::light}) {
        changeTo(scheme);
        EXPECT_EQ(colourOf("status"), secondaryTextColour(paletteFor(scheme)));
    }
}

TEST_F(ContentViewTest,
       AStoredMinuteThatIsNoMultipleOfFiveShowsNoSelectionAndIsKeptUntilOneIsPicked)
{
    world.defaults.set("minute", std::int64_t{7});
    open();
    EXPECT_EQ(find<QComboBox>("checkMinute").currentIndex(), -1);
    EXPECT_EQ(selected("checkMinute"), "");
    model().threshold = 30;
    settle();
    EXPECT_EQ(model().checkMinute, 7);
    choose("checkMinute", "10");
    EXPECT_EQ(model().checkMinute, 10);
}

TEST_F(ContentViewTest, OpeningWhileADeviceIsNewlyLowReadsAgainAndNeverOpensTheAlert)
{
    world.setLevels({{mouse, 50}});
    startModel();
    world.setLevels({{mouse, 10}});
    open();
    EXPECT_EQ(textOf("deviceLevel"), "10%");
    EXPECT_THAT(world.alerts.shown, IsEmpty());
}

TEST_F(ContentViewTest, AppearingAsksForTheLoginItemAndThenForAReadingOnce)
{
    startModel();
    ContentView panel(model(), appearance, [] {});
    world.loginItems.enabled = true;
    std::vector<std::size_t> readingsBefore;
    const auto subscription = model().objectWillChange.subscribe(
        [&] { readingsBefore.push_back(world.runLoop.background.size()); });
    EXPECT_THAT(world.runLoop.background, IsEmpty()) << "before it appears";
    panel.show();
    EXPECT_THAT(readingsBefore, ElementsAre(0U)) << "the login item came first";
    EXPECT_TRUE(model().launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 0);
    EXPECT_THAT(world.runLoop.background, SizeIs(1));
    panel.hide();
    panel.show();
    EXPECT_THAT(world.runLoop.background, SizeIs(1));
}

TEST_F(ContentViewTest, Is320PointsWideAndAsHighAsItsRowsWithoutACutWord)
{
    for (const char* const language : {"en", "zh"}) {
        world.setLevels({});
        world.start();
        open(language);
        model().language = language;
        settle();
        EXPECT_EQ(view->width(), 320) << language;
        EXPECT_EQ(find("threshold").width(), 80) << language;
        EXPECT_THAT(cutControls(*view), IsEmpty()) << language;
        const int height = view->height();
        world.setLevels({{mouse, 100}, {keyboard, 72}, {trackpad, 3}});
        model().refresh(false);
        settle();
        EXPECT_GT(view->height(), height + 2 * panelGeometry::itemSpacing) << language;
        EXPECT_EQ(view->width(), 320) << language;
        EXPECT_THAT(cutControls(*view), IsEmpty()) << language;
        view.reset();
    }
}

TEST_F(ContentViewTest, GrowsWiderRatherThanCutWordsInALargeFont)
{
    startModel();
    view = std::make_unique<ContentView>(model(), appearance, [] {});
    QFont font = view->font();
    font.setPixelSize(2 * font.pixelSize());
    view->setFont(font);
    view->show();
    settle();
    EXPECT_GT(view->width(), 320);
    EXPECT_THAT(cutControls(*view), IsEmpty());
}

TEST_F(ContentViewTest, TheTimeRowStaysEnabledWhenTheDailyCheckIsOff)
{
    world.defaults.set("enabled", false);
    open();
    EXPECT_FALSE(find<QCheckBox>("dailyCheck").isChecked());
    EXPECT_TRUE(find("checkHour").isEnabled());
    EXPECT_TRUE(find("checkMinute").isEnabled());
}

TEST_F(ContentViewTest, DeviceRowsAreRebuiltOnlyWhenTheListChanged)
{
    world.setLevels({{mouse, 50}});
    open();
    const auto* const row = &find("device-803");
    const auto before = model().devices.get();
    model().devices = BatteryModel::DeviceList{};
    model().devices = before;
    model().status = "another";
    settle();
    EXPECT_EQ(&find("device-803"), row) << "what changed back within a turn was never drawn";
    world.setLevels({{mouse, 50}, {trackpad, 60}});
    model().refresh(false);
    settle();
    EXPECT_EQ(rowsOf(*view).at(3), "(symbol-rectangle.and.hand.point.up.left) Magic Trackpad 60%");
}

TEST_F(ContentViewTest, ARedrawPutsTheRowsInTheirNewPlacesAtOnce)
{
    open();
    const int height = view->height();
    model().devices = BatteryModel::DeviceList{{mouse, "A", 50, "magicmouse", 0},
                                               {keyboard, "B", 60, "keyboard", 1}};
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall); // the redraw and no more
    EXPECT_GT(view->height(), height);
    EXPECT_EQ(view->size(), view->layout()->totalSizeHint());
}

TEST_F(ContentViewTest, AScreenReaderFindsAWindowWithTheProgramsName)
{
    auto* const window = QAccessible::queryAccessibleInterface(&open());
    EXPECT_EQ(window->role(), QAccessible::Window);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&find("deviceList"))->role(),
              QAccessible::Client);
    EXPECT_EQ(view->windowTitle(), "Cellsentry");
}

TEST_F(ContentViewTest, WithoutATrayItSaysBelowTheRowsHowToOpenItAgainInThePresentLanguage)
{
    world.setLevels({{mouse, 50}});
    open();
    view->addNoTrayNotice();
    settle();
    const auto& notice = find<QLabel>("noTray");
    EXPECT_EQ(notice.text(),
              "This desktop has no tray. Start the program again to reopen this panel.");
    model().language = "zh";
    settle();
    EXPECT_EQ(notice.text(), "此桌面没有系统托盘。再次启动本程序即可重新打开此面板。");
    EXPECT_EQ(notice.textFormat(), Qt::PlainText);
    EXPECT_EQ(notice.y() - find("quit").geometry().bottom() - 1, 16);
    EXPECT_EQ(notice.height(), notice.heightForWidth(notice.width()));
    EXPECT_EQ(view->height() - notice.geometry().bottom() - 1, 16);
    EXPECT_EQ(view->width(), 320);
}

} // namespace
} // namespace voltmere
