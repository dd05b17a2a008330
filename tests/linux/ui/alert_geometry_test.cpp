#include "linux/ui/alert_fixture.h"

#include "linux/ui/pictures.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QProxyStyle>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Another text size of the desktop, in pixels.
class FontGuard {
public:
    explicit FontGuard(int pixels)
    {
        QFont font = usual;
        font.setPixelSize(pixels);
        QApplication::setFont(font);
    }

    ~FontGuard() { QApplication::setFont(usual); }

    FontGuard(const FontGuard&) = delete;
    FontGuard& operator=(const FontGuard&) = delete;

private:
    const QFont usual = QApplication::font();
};

class AlertGeometryTest : public AlertWindowTest {
protected:
    /// A title that is `width` points wide or a little less.
    static QString titleOfWidth(int width)
    {
        QFont font = QApplication::font();
        font.setBold(true);
        const QFontMetrics metrics(font);
        QString text = "W";
        while (metrics.horizontalAdvance(text + 'i') <= width) {
            text += 'i';
        }
        return text;
    }

    AlertView showTitle(const NamedText& title)
    {
        AlertContent content = makeAlertContent({mouse(12)}, true, {15, 35});
        content.title = title;
        return show(content);
    }

    AlertView showTitle(const QString& title) { return showTitle({title.toStdString(), {}, {}}); }

    static QLabel& caption(const AlertView& view)
    {
        return *view.rows().back()->findChildren<QLabel*>().front();
    }
};

TEST_F(AlertGeometryTest, InEveryFormThatFitsTheContentIs237By252PointsInNineRowsWithGapsOf6)
{
    for (const char* const setting : {"en", "zh"}) {
        const LanguageGuard guard(setting);
        for (const bool isLow : {true, false}) {
            const AlertView view = isLow ? showOneLow() : show({}, false);
            std::vector<int> tops;
            std::vector<int> heights;
            for (const QWidget* const row : view.rows()) {
                tops.push_back(row->y());
                heights.push_back(row->height());
            }
            EXPECT_EQ(view.container().size(), QSize(237, 252));
            EXPECT_THAT(heights, ElementsAre(16, 16, 16, 16, 28, 28, 28, 28, 28));
            EXPECT_THAT(tops, ElementsAre(0, 22, 44, 66, 88, 122, 156, 190, 224));
            for (std::size_t row = 4; row < 9; ++row) {
                EXPECT_EQ(view.rows()[row]->x(), 0);
                EXPECT_EQ(view.rows()[row]->width(), 237);
            }
        }
    }
}

TEST_F(AlertGeometryTest, LabelsAreCentredOneLineOf13PixelsAndTheTitleIsBold)
{
    const AlertView view = showOneLow();
    for (std::size_t row = 0; row < 4; ++row) {
        const QLabel& label = view.label(row);
        EXPECT_EQ(QFontInfo(label.font()).pixelSize(), 13);
        EXPECT_EQ(label.font().bold(), row == 1);
        EXPECT_EQ(label.height(), 16);
        EXPECT_EQ(label.alignment(), Qt::AlignCenter);
        EXPECT_NEAR(label.geometry().center().x(), view.container().rect().center().x(), 1);
    }
    EXPECT_EQ(view.hour().font(), view.detail().font());
    EXPECT_EQ(view.button("OK").font(), view.detail().font());
}

TEST_F(AlertGeometryTest, TheRowForAClockTimeIsCentredAndUncutWithPopUpsOf52AndItsOwnGaps)
{
    for (const char* const setting : {"en", "zh"}) {
        const LanguageGuard guard(setting);
        const AlertView view = showOneLow();
        const auto labels = view.rows().back()->findChildren<QLabel*>();
        ASSERT_EQ(labels.at(1)->text(), ":");
        const QPushButton& ok = view.button(QString::fromStdString(L10n::t("alert.ok")));
        const QRect colon = labels.at(1)->geometry();
        const QRect hour = view.hour().geometry();
        const QRect minute = view.minute().geometry();
        const auto gap = [](const QRect& left, const QRect& right) {
            return right.left() - left.right() - 1;
        };

        EXPECT_EQ(hour.size(), QSize(52, 28));
        EXPECT_EQ(minute.size(), QSize(52, 28));
        EXPECT_EQ(gap(caption(view).geometry(), hour), 6);
        EXPECT_EQ(gap(hour, colon), 3);
        EXPECT_EQ(gap(colon, minute), 3);
        EXPECT_EQ(gap(minute, ok.geometry()), 6);
        EXPECT_NEAR(caption(view).x(), 237 - ok.geometry().right() - 1, 1);
        EXPECT_GE(caption(view).width(), caption(view).sizeHint().width());
        EXPECT_EQ(ok.width(), ok.fontMetrics().horizontalAdvance(ok.text()) + 20);
        for (const QRect& part : {labels[0]->geometry(), colon, hour, minute, ok.geometry()}) {
            EXPECT_NEAR(part.y() + part.height() / 2.0, 14, 1);
        }
    }
}

/// A style with a wide frame around the title of a pop-up, and a gap in front of it. What it asks
/// for itself is far more than that.
class NarrowStyle : public QProxyStyle {
public:
    explicit NarrowStyle(QObject* parent)
        : QProxyStyle("Fusion")
    {
        setParent(parent);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override
    {
        const QRect usual = QProxyStyle::subControlRect(control, option, part, widget);
        return part == SC_ComboBoxEditField ? usual.adjusted(3, 0, -3, 0) : usual;
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override
    {
        return QProxyStyle::sizeFromContents(type, option, size, widget) + QSize(40, 0);
    }

    void drawItemText(QPainter* painter, const QRect& place, int flags, const QPalette& palette,
                      bool enabled, const QString& text, QPalette::ColorRole role) const override
    {
        QProxyStyle::drawItemText(painter, place.adjusted(7, 0, 7, 0), flags, palette, enabled,
                                  text, role);
    }
};

/// How many pixels of the pop-up's title are seen.
int inkOfTitle(HoverPopUpButton& popUp)
{
    const int selected = popUp.currentIndex();
    const QImage titled = popUp.grab().toImage();
    popUp.setCurrentIndex(-1);
    const QImage blank = popUp.grab().toImage();
    popUp.setCurrentIndex(selected);
    return differingPixels(titled, blank);
}

/// The titles of which a wider pop-up shows more.
std::vector<std::string> cutTitles(HoverPopUpButton& popUp)
{
    std::vector<std::string> cut;
    const QSize size = popUp.size();
    for (int index = 0; index < popUp.count(); ++index) {
        popUp.setCurrentIndex(index);
        const int ink = inkOfTitle(popUp);
        popUp.resize(4 * size.width(), size.height());
        if (ink == 0 || ink < inkOfTitle(popUp)) {
            cut.push_back(popUp.currentText().toStdString());
        }
        popUp.resize(size);
    }
    return cut;
}

TEST_F(AlertGeometryTest, BothDigitsOfThePopUpsAreSeenAlsoInAStyleThatLeavesThemLittleRoom)
{
    const AlertView view = showOneLow();
    for (HoverPopUpButton* const popUp : {&view.hour(), &view.minute()}) {
        EXPECT_THAT(cutTitles(*popUp), IsEmpty());
        popUp->setStyle(new NarrowStyle(popUp));
    }
    QCoreApplication::processEvents();
    for (HoverPopUpButton* const popUp : {&view.hour(), &view.minute()}) {
        EXPECT_THAT(cutTitles(*popUp), IsEmpty());
        EXPECT_GT(popUp->width(), 52);
        EXPECT_LT(popUp->width(), 80);
    }
    EXPECT_LT(view.button("OK").geometry().right(), 237);
}

TEST_F(AlertGeometryTest, TheRowForAClockTimeIsWiderWhereItsControlsNeedMore)
{
    AlertContent content = makeAlertContent({mouse(12)}, true, {15, 35});
    content.hour.titles.front() = "half past eleven";
    const AlertView view = show(content);

    EXPECT_GT(view.rows().back()->width(), 237);
    EXPECT_GE(caption(view).x(), 0);
    EXPECT_LT(view.button("OK").geometry().right(), view.rows().back()->width());
    EXPECT_THAT(cutTitles(view.hour()), IsEmpty());
}

TEST_F(AlertGeometryTest, ATextWiderThan237WidensTheWindowToItselfUpTo420)
{
    for (const int width : {380, 420}) {
        const QString title = titleOfWidth(width);
        const AlertView view = showTitle(title);

        EXPECT_EQ(view.title().text(), title);
        EXPECT_EQ(view.title().toolTip(), "");
        EXPECT_GT(view.container().width(), width - 10);
        EXPECT_LE(view.container().width(), width);
        EXPECT_EQ(view.container().height(), 252);
        for (std::size_t row = 4; row < 9; ++row) {
            EXPECT_EQ(view.rows()[row]->width(), 237);
            EXPECT_NEAR(view.rows()[row]->geometry().center().x(),
                        view.container().rect().center().x(), 1);
        }
    }
}

TEST_F(AlertGeometryTest, TwoLowDevicesAreNamedWhole)
{
    const AlertView view = show({mouse(12), keyboard(8)}, true);

    EXPECT_EQ(view.detail().text(), "Mouse12%, Keyboard8%. Please charge.");
    EXPECT_GE(view.detail().width(), view.detail().sizeHint().width());
    EXPECT_EQ(view.container().width(), std::max(237, view.detail().width()));
}

TEST_F(AlertGeometryTest, ATextWithoutANameWiderThan420WrapsAndIsSeenWhole)
{
    const AlertView view = showTitle(titleOfWidth(800));
    const QLabel& title = view.title();

    EXPECT_LE(view.container().width(), 420);
    EXPECT_GT(view.container().width(), 380);
    EXPECT_TRUE(title.text().endsWith("iii"));
    EXPECT_GE(title.height(), 2 * title.fontMetrics().height());
    EXPECT_EQ(view.container().height(), 252 - 16 + title.height());
}

TEST_F(AlertGeometryTest, OfATextWiderThan420OnlyTheNameInItIsCutInItsMiddle)
{
    const std::string name = "Begin <b>" + std::string(100'000, 'm') + " End";
    const AlertView view = showTitle({"<", name, " battery alert>"});
    const QString shown = view.title().text();

    EXPECT_LE(view.container().width(), 420);
    EXPECT_GT(view.container().width(), 400);
    EXPECT_TRUE(shown.startsWith("<Begin <b>mm")) << shown.toStdString();
    EXPECT_TRUE(shown.contains(QChar(0x2026))) << shown.toStdString();
    EXPECT_TRUE(shown.endsWith("mm End battery alert>")) << shown.toStdString();
    EXPECT_EQ(view.title().accessibleName().toStdString(), "<" + name + " battery alert>");
    EXPECT_EQ(shownToolTip(view.title()).toStdString(), "<" + name + " battery alert>");
}

TEST_F(AlertGeometryTest, TheDetailOfManyDevicesIsSeenWhole)
{
    const std::vector<BatteryDevice> many(10, BatteryDevice{999, "Pencil Case", 7, "pencil", 3});
    const AlertView view = show(many, true);
    QLabel& detail = view.detail();
    const auto ink = [&detail](const QString& text) {
        detail.setText(text);
        return detail.grab().toImage();
    };
    const QString whole = detail.text();

    EXPECT_LE(view.container().width(), 420);
    EXPECT_TRUE(whole.endsWith("Pencil Case7%. Please charge.")) << whole.toStdString();
    EXPECT_EQ(detail.accessibleName(), whole);
    EXPECT_GT(differingPixels(ink(whole), ink(whole.chopped(1))), 0);
}

TEST_F(AlertGeometryTest, RowsAndLettersGrowWithTheFontAndNeverShrink)
{
    for (const auto& [pixels, growth] : {std::pair(26, 2), std::pair(9, 1)}) {
        const FontGuard font(pixels);
        const AlertView view = showOneLow();
        const auto rows = view.rows();

        EXPECT_EQ(QFontInfo(view.detail().font()).pixelSize(), pixels);
        EXPECT_EQ(rows.at(4)->size(), QSize(237, 28) * growth);
        EXPECT_EQ(rows.at(0)->height(), 16 * growth);
        EXPECT_EQ(view.scrolled().itemAt(0)->geometry().size(), QSize(64, 64) * growth);
    }
}

TEST_F(AlertGeometryTest, OnALowScreenAllButCancelScrolls)
{
    const FontGuard font(60);
    const AlertView view = showOneLow();
    const QRect workArea = view.window.screen()->availableGeometry();
    auto* const scroller = view.window.findChild<QScrollArea*>();

    EXPECT_LE(view.window.height(), workArea.height());
    EXPECT_TRUE(view.window.rect().contains(view.placeOf(view.button("Cancel"))));
    ASSERT_GT(scroller->verticalScrollBar()->maximum(), 0);
    for (int step = 0; step < 7; ++step) { // to the last row
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_TRUE(scroller->geometry().contains(view.placeOf(view.button("OK"))));
}

TEST_F(AlertGeometryTest, TheWindowFloatsInTheMiddleOfTheScreenIsNotModalAndCannotBeResized)
{
    const AlertView view = showOneLow();

    EXPECT_EQ(view.window.pos() + view.window.rect().center(),
              view.window.screen()->availableGeometry().center());
    EXPECT_TRUE(view.window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(view.window.isModal());
    EXPECT_EQ(view.window.minimumSize(), view.window.size());
    EXPECT_EQ(view.window.maximumSize(), view.window.size());
}

TEST_F(AlertGeometryTest, TheIconOf64PointsTheContentAndCancelStand12ApartAnd16FromTheEdges)
{
    const AlertView view = showOneLow();
    const QRect icon = view.placeOf(*view.scrolled().itemAt(0)->widget());
    const QRect container = view.placeOf(view.container());
    const QRect cancel = view.placeOf(view.button("Cancel"));

    EXPECT_EQ(icon.size(), QSize(64, 64));
    EXPECT_NEAR(icon.center().x(), view.window.rect().center().x(), 1);
    EXPECT_EQ(container.left(), 16);
    EXPECT_EQ(view.window.width() - container.right() - 1, 16);
    EXPECT_EQ(icon.top(), 16);
    EXPECT_EQ(container.top() - icon.bottom() - 1, 12);
    EXPECT_EQ(cancel.top() - container.bottom() - 1, 12);
    EXPECT_EQ(cancel.size(), QSize(237, 28));
    EXPECT_EQ(view.window.height() - cancel.bottom() - 1, 16);
}

TEST_F(AlertGeometryTest, WithoutAnApplicationIconThereIsNone)
{
    const WithoutPictures none;
    const AlertView view = showOneLow();

    EXPECT_EQ(view.scrolled().itemAt(0)->widget(), &view.container());
    EXPECT_TRUE(view.window.windowIcon().isNull());
}

} // namespace
} // namespace voltmere
