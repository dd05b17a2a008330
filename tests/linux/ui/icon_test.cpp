#include "linux/ui/icon.h"

#include "fakes/model_world.h"
#include "fakes/sample_devices.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QPointer>
#include <QTextDocument>

#include <memory>
#include <string>
#include <vector>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The icon over a model whose outside is all fakes. There is no tray on the platform of these
/// tests, so what the icon would show is asked of the tray icon object itself.
class StatusLabelTest : public testing::Test {
protected:
    using Devices = std::vector<BatteryDevice>;

    StatusLabelTest()
        : model(world.start())
    {
        world.runLoop.settle();
    }

    void show()
    {
        label = std::make_unique<StatusLabel>(
            model,
            StatusLabel::Actions{.toggle = [this](const QRect& place) { toggles.push_back(place); },
                                 .open = [this](const QRect& place) { openings.push_back(place); },
                                 .menu = [this] { ++menus; },
                                 .quit = [this] { ++quits; }});
    }

    static void turn() { QCoreApplication::processEvents(); }

    void setDevices(Devices devices)
    {
        model.devices = std::move(devices);
        turn();
    }

    QSystemTrayIcon& icon() { return *label->findChild<QSystemTrayIcon*>(); }

    /// Whether the tray icon has the picture of that level.
    bool shows(const std::optional<IconLevel>& level)
    {
        return icon().icon().pixmap(QSize(22, 22), 1.0).toImage() == trayImage(level, 22);
    }

    qint64 picture() { return icon().icon().cacheKey(); }

    QList<QAction*> entries() { return icon().contextMenu()->actions(); }

    std::vector<std::string> menuTexts()
    {
        std::vector<std::string> texts;
        for (const QAction* const entry : entries()) {
            texts.push_back(entry->isSeparator() ? "---" : entry->text().toStdString());
        }
        return texts;
    }

    std::string toolTip() { return icon().toolTip().toStdString(); }

    ModelWorld world;
    BatteryModel& model;
    std::vector<QRect> toggles;
    std::vector<QRect> openings;
    int menus = 0;
    int quits = 0;
    std::unique_ptr<StatusLabel> label;
};

TEST_F(StatusLabelTest, WithoutPeripheralsThereIsAnIconAllTheSame)
{
    show();

    EXPECT_TRUE(icon().isVisible());
    EXPECT_TRUE(shows(std::nullopt));
    EXPECT_EQ(toolTip(), "Cellsentry");
    EXPECT_THAT(menuTexts(), ElementsAre("---", "Open", "Quit"));
}

TEST_F(StatusLabelTest, ItFollowsTheModelInTheNextTurn)
{
    show();
    model.devices = {mouse(37)};
    model.threshold = 50;
    EXPECT_TRUE(shows(std::nullopt));
    turn();
    EXPECT_TRUE(shows(IconLevel{37, true}));
    model.threshold = 36;
    turn();
    EXPECT_TRUE(shows(IconLevel{37, false}));
    setDevices({});
    EXPECT_TRUE(shows(std::nullopt));
}

TEST_F(StatusLabelTest, ThePictureIsSentOnlyWhenItLooksDifferent)
{
    model.devices = {mouse(42)};
    show();
    const qint64 first = picture();

    setDevices({mouse(42), keyboard(90)});
    EXPECT_EQ(picture(), first);
    setDevices({keyboard(41), mouse(42)});
    EXPECT_NE(picture(), first);
}

TEST_F(StatusLabelTest, TheMenuListsTheDevicesAboveOpenAndQuit)
{
    model.devices = {mouse(100), trackpad(5)};
    show();

    EXPECT_THAT(menuTexts(),
                ElementsAre("Magic Mouse 100%", "Magic Trackpad 5%", "---", "Open", "Quit"));
    for (const QAction* const entry : entries()) {
        EXPECT_TRUE(entry->isEnabled()) << "too pale to read: " << entry->text().toStdString();
    }
}

TEST_F(StatusLabelTest, TheMenuFollowsTheLanguage)
{
    show();
    model.language = "zh";
    turn();

    EXPECT_THAT(menuTexts(), ElementsAre("---", "打开", "退出"));
    EXPECT_EQ(toolTip(), L10n::t("app.name"));
}

TEST_F(StatusLabelTest, NamesAreShownAsTheyStand)
{
    BatteryDevice device = mouse(37);
    device.name = "A & B && C <b>bold</b> &amp; my_mouse";
    model.devices = {device};
    show();

    EXPECT_EQ(menuTexts().front(), "A && B &&&& C <b>bold</b> &&amp; my_mouse 37%");
    EXPECT_EQ(toolTip(), "Cellsentry\nA & B && C <b>bold</b> &amp; my_mouse 37%");
    EXPECT_FALSE(Qt::mightBeRichText(icon().toolTip()));
}

TEST_F(StatusLabelTest, AnOpenMenuIsLeftAloneWhileItShowsTheSame)
{
    model.devices = {mouse(37)};
    show();
    const QPointer<QAction> entry = entries().front();
    model.lastChecked = world.clock.present;
    setDevices({mouse(37)});
    EXPECT_FALSE(entry.isNull());

    setDevices({mouse(36)});
    EXPECT_TRUE(entry.isNull());
    EXPECT_EQ(menuTexts().front(), "Magic Mouse 36%");
}

TEST_F(StatusLabelTest, AClickTogglesThePanelAndNothingElseTouchesIt)
{
    show();
    for (const auto reason :
         {QSystemTrayIcon::Trigger, QSystemTrayIcon::Context, QSystemTrayIcon::DoubleClick,
          QSystemTrayIcon::MiddleClick, QSystemTrayIcon::Unknown}) {
        emit icon().activated(reason);
    }

    EXPECT_THAT(toggles, ElementsAre(icon().geometry()));
    EXPECT_THAT(openings, IsEmpty());
}

TEST_F(StatusLabelTest, TheMenuOpensThePanelAlsoByADeviceAndQuits)
{
    model.devices = {mouse(37)};
    show();
    entries().at(0)->trigger();
    EXPECT_THAT(openings, SizeIs(1));
    entries().at(2)->trigger();
    EXPECT_THAT(openings, SizeIs(2));
    EXPECT_EQ(quits, 0);

    entries().at(3)->trigger();
    EXPECT_EQ(quits, 1);
    EXPECT_THAT(toggles, IsEmpty());
}

TEST_F(StatusLabelTest, AMenuThatOpensIsReported)
{
    show();
    emit icon().contextMenu()->aboutToShow();

    EXPECT_EQ(menus, 1);
}

TEST(MenuTextTest, TheToolkitShowsADoubledAmpersandOnce)
{
    EXPECT_EQ(menuText("a & b && c_d &", MenuPainter::toolkit), "a && b &&&& c_d &&");
    EXPECT_EQ(menuText("", MenuPainter::toolkit), "");
}

/// What Qt makes of an entry for a host: it turns the first "&" that is not at the end into "_".
QString sentToHost(QString entry)
{
    const qsizetype first = entry.indexOf('&');
    if (first >= 0 && first < entry.size() - 1) {
        entry[first] = '_';
    }
    return entry;
}

/// What a host shows: "_" marks the letter behind it, "__" is one "_".
QString shownByHost(const QString& label)
{
    QString shown;
    for (qsizetype i = 0; i < label.size(); ++i) {
        if (label.at(i) == '_') {
            ++i;
        }
        shown += label.mid(i, 1);
    }
    return shown.remove(QChar(0x200B));
}

TEST(MenuTextTest, AHostShowsTheTextAsItStands)
{
    for (const char* const text : {"", "a", "a & b", "&a", "a&", "&", "&&", "a & b && c", "a_b",
                                   "_a_", "__", "my_mouse <b>", "a__b c_"}) {
        EXPECT_EQ(shownByHost(sentToHost(menuText(text, MenuPainter::trayHost))), text) << text;
    }
}

TEST(MenuTextTest, AHostGetsNoMarkedLetterBesideAnUnderscore)
{
    for (const QString text : {"a & b_c && d__e", "_&_", "&_", "my_mouse & <b>"}) {
        const QString label = sentToHost(menuText(text, MenuPainter::trayHost));
        EXPECT_EQ(QString(label).remove("__").count('_'), 0) << text.toStdString();
        EXPECT_EQ(shownByHost(label), QString(text).replace('&', QChar(0xFF06)));
    }
}

} // namespace
} // namespace voltmere
