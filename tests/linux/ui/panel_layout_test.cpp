// Where the panel puts its rows and what it puts in them, in points.

#include "linux/ui/panel_fixture.h"

#include "linux/ui/pictures.h"
#include "linux/ui/theme.h"
#include "linux/ui/views.h"

#include <QCheckBox>
#include <QLayout>
#include <QMargins>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>

#include <algorithm>

namespace voltmere {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

constexpr int padding = 16;

class PanelLayoutTest : public PanelTest {
protected:
    QRect placeOf(const QString& objectName)
    {
        const QWidget& widget = find(objectName);
        return {widget.mapTo(view.get(), QPoint()), widget.size()};
    }

    /// The panel without its padding.
    QRect inside() const { return view->rect().marginsRemoved(QMargins() + padding); }

    /// It is as wide as its text needs, and no wider. A button has a smallest width beside that.
    void expectNaturalWidth(const QString& objectName)
    {
        const QWidget& widget = find(objectName);
        const bool isButton = dynamic_cast<const QPushButton*>(&widget) != nullptr;
        const int needed = widget.sizeHint().width();
        EXPECT_EQ(widget.width(), isButton ? std::max(needed, widget.minimumWidth()) : needed)
            << objectName.toStdString();
    }
};

/// The distances between the items of a column.
std::vector<int> gapsOf(const QLayout& column)
{
    std::vector<int> gaps;
    std::optional<int> end;
    for (int index = 0; index < column.count(); ++index) {
        QLayoutItem* const item = column.itemAt(index);
        if (item->isEmpty()) {
            continue;
        }
        if (end) {
            gaps.push_back(item->geometry().top() - *end);
        }
        end = item->geometry().top() + item->geometry().height();
    }
    return gaps;
}

TEST_F(PanelLayoutTest, ThereAre12PointsBetweenItemsDevicesIncluded)
{
    openWithThreeDevices();

    const QLayout& rows = *view->findChild<QScrollArea*>()->widget()->layout();
    EXPECT_THAT(gapsOf(rows), AllOf(SizeIs(9), Each(12)));
    EXPECT_THAT(gapsOf(*view->layout()), ElementsAre(12, 12));
    EXPECT_THAT(gapsOf(*find("deviceList").layout()), ElementsAre(12, 12));
    for (const QWidget* const child : view->findChildren<QWidget*>()) {
        if (dynamic_cast<const Divider*>(child) != nullptr) {
            EXPECT_EQ(child->height(), 1);
        }
    }
}

TEST_F(PanelLayoutTest, ThereAre16PointsAroundTheContentOnEachSide)
{
    openWithThreeDevices();
    QRect content;
    for (const QWidget* const widget : view->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (widget->isVisible()) {
            content |= widget->geometry();
        }
    }

    EXPECT_EQ(content, inside());
}

TEST_F(PanelLayoutTest, TheHeaderIsCentredWithAnIconOf22Points)
{
    open();
    const QRect header = placeOf("applicationIcon") | placeOf("applicationName");

    EXPECT_EQ(placeOf("applicationIcon").size(), QSize(22, 22));
    EXPECT_NEAR(header.left(), view->width() - header.right() - 1, 1);
    expectNaturalWidth("applicationName");
}

TEST_F(PanelLayoutTest, WithoutAnApplicationIconTheHeaderIsTheNameAlone)
{
    const WithoutPictures none;
    open();

    EXPECT_EQ(view->findChild<QWidget*>("applicationIcon"), nullptr);
    const QRect name = placeOf("applicationName");
    EXPECT_NEAR(name.left(), view->width() - name.right() - 1, 1);
}

TEST_F(PanelLayoutTest, NamesAreHeadlinesAndALevelIsATitleAndTheRestIsBodyText)
{
    openWithThreeDevices();
    const QFont body = view->font();
    ASSERT_NE(headlineFont(body), body);

    EXPECT_EQ(find("applicationName").font(), headlineFont(body));
    for (const char* const device : {"device-803", "device-805", "device-804"}) {
        EXPECT_EQ(find(device).findChild<QLabel*>("deviceName")->font(), headlineFont(body));
        EXPECT_EQ(find(device).findChild<QLabel*>("deviceLevel")->font(), title3Font(body));
    }
    for (const char* const text : {"thresholdLabel", "checkTimeLabel", "status", "languageLabel"}) {
        EXPECT_EQ(find(text).font(), body) << text;
    }
}

TEST_F(PanelLayoutTest, ADevicesLevelIsAtTheEndOfItsRow)
{
    openWithThreeDevices();

    EXPECT_EQ(placeOf("symbol-keyboard").left(), padding);
    for (const auto* const level : view->findChildren<QLabel*>("deviceLevel")) {
        EXPECT_EQ(level->mapTo(view.get(), level->rect().topRight()).x(), inside().right());
        EXPECT_EQ(level->width(), level->sizeHint().width());
    }
}

TEST_F(PanelLayoutTest, RowsArePushedApartAndNoControlIsWiderThanItNeeds)
{
    for (const char* const language : {"en", "zh"}) {
        world.start();
        open(language);
        model().language = language;
        settle();
        for (const char* const leading : {"checkTimeLabel", "testAlert", "quit"}) {
            EXPECT_EQ(placeOf(leading).left(), padding) << leading;
        }
        for (const char* const trailing : {"checkMinute", "language"}) {
            EXPECT_EQ(placeOf(trailing).right(), inside().right()) << trailing;
        }
        for (const char* const part :
             {"checkTimeLabel", "checkHour", "timeSeparator", "checkMinute", "testAlert", "quit",
              "languageLabel", "language"}) {
            expectNaturalWidth(part);
        }
        view.reset();
    }
}

TEST_F(PanelLayoutTest, SymbolsAreInTheColourOfTheText)
{
    for (const char* const symbol : {"symbol-questionmark.circle", "symbol-magicmouse"}) {
        for (const QColor colour : {QColor(0x10, 0x20, 0xF0), QColor(0xF0, 0x20, 0x10)}) {
            open();
            QPalette palette;
            palette.setColor(QPalette::Window, Qt::white);
            palette.setColor(QPalette::WindowText, colour);
            view->setPalette(palette);
            const QImage image = find(symbol).grab().toImage();
            EXPECT_GT(countPixels(image, colour), 0) << symbol;
        }
        world.setLevels({{mouse, 37}});
        model().refresh(false);
        settle();
    }
}

TEST_F(PanelLayoutTest, AnEdgeIsSeenOnlyWhereTheWindowSystemDrawsNoFrame)
{
    open();
    const auto edge = [this] {
        const QImage image = view->grab().toImage();
        const QColor inside = image.pixelColor(3, 3);
        return contrast(image.pixelColor(0, image.height() / 2), inside);
    };
    EXPECT_EQ(edge(), 1);
    view->setWindowFlag(Qt::FramelessWindowHint);
    EXPECT_GT(edge(), 2);
}

TEST_F(PanelLayoutTest, SymbolsAndCheckBoxesGrowWithTheFont)
{
    openWithThreeDevices();
    const auto box = [this] {
        auto& toggle = find<QCheckBox>("dailyCheck");
        return toggle.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &toggle);
    };
    const QSize symbol = find("symbol-keyboard").size();
    const int usualBox = box();
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPixelSize(26);
    QApplication::setFont(large);
    openWithThreeDevices();
    EXPECT_EQ(find("symbol-keyboard").size(), 2 * symbol);
    EXPECT_EQ(box(), 2 * usualBox);
    QApplication::setFont(usual);
}

TEST_F(PanelLayoutTest, DevicesAreInTheOrderOfTheModelWhateverThatIs)
{
    open();
    // In the order of no field.
    model().devices = BatteryModel::DeviceList{{trackpad, "B", 37, "keyboard", 2},
                                               {mouse, "C", 60, "magicmouse", 0},
                                               {keyboard, "A", 15, "keyboard", 1}};
    settle();
    std::vector<std::string> names;
    for (const char* const device : {"device-804", "device-803", "device-805"}) {
        names.push_back(find(device).findChild<QLabel*>("deviceName")->text().toStdString());
    }

    EXPECT_THAT(names, ElementsAre("B", "C", "A"));
    EXPECT_LT(placeOf("device-804").top(), placeOf("device-803").top());
    EXPECT_LT(placeOf("device-803").top(), placeOf("device-805").top());
}

} // namespace
} // namespace voltmere
