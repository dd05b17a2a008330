// The windows in every style that this machine has for Qt, at several text sizes. QT_SCALE_FACTOR
// gives the scale.

#include "linux/ui/alert_fixture.h"
#include "linux/ui/panel_fixture.h"
#include "linux/ui/pictures.h"

#include <QAbstractButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyleFactory>
#include <QStyleOptionComboBox>

#include <tuple>

namespace voltmere {
namespace {

std::vector<std::string>& stylesToTry()
{
    static std::vector<std::string> styles;
    return styles;
}

/// The name of a style as part of a test's name.
std::string lettersOf(std::string style)
{
    std::erase(style, '-');
    return style;
}

bool hasText(const QWidget& control)
{
    if (const auto* const label = dynamic_cast<const QLabel*>(&control)) {
        return !label->text().isEmpty();
    }
    return dynamic_cast<const QAbstractButton*>(&control) != nullptr ||
        dynamic_cast<const QComboBox*>(&control) != nullptr;
}

/// Writes `text` on a control, or makes the combo box show none where it is empty.
void setText(QWidget& control, const QString& text)
{
    if (auto* const label = dynamic_cast<QLabel*>(&control)) {
        label->setText(text);
    } else if (auto* const button = dynamic_cast<QAbstractButton*>(&control)) {
        button->setText(text);
    } else if (auto* const box = dynamic_cast<QComboBox*>(&control)) {
        box->setCurrentIndex(box->findText(text));
    }
}

QString writtenOn(const QWidget& control)
{
    if (const auto* const label = dynamic_cast<const QLabel*>(&control)) {
        return label->text();
    }
    const auto* const button = dynamic_cast<const QAbstractButton*>(&control);
    return button != nullptr ? button->text()
                             : dynamic_cast<const QComboBox&>(control).currentText();
}

class StylesTest : public PanelTest {
protected:
    ~StylesTest() override
    {
        closeAll();
        QApplication::setFont(usualFont);
        QApplication::setPalette(QPalette());
    }

    /// The desktop's style, scheme and text size.
    void use(const std::string& style, ColourScheme scheme, const QFont& font)
    {
        QApplication::setStyle(QString::fromStdString(style));
        QApplication::setPalette(QPalette());
        QApplication::setFont(font);
        appearance.scheme = scheme;
        applyPalette(scheme);
    }

    void closeAll()
    {
        alert.reset();
        view.reset();
        turnEventLoop();
    }

    /// Shows the windows one after the other, each with all that it can show.
    template<typename Look>
    void forEachWindow(const char* language, const Look& look)
    {
        const std::vector<BatteryDevice> one{{803, "Magic Mouse", 12, "magicmouse", 0}};
        std::vector<BatteryDevice> ten;
        for (int id = 0; id < 10; ++id) {
            ten.push_back({id, "Mouse of the meeting room", 7 + id, "magicmouse", id});
        }
        for (const auto& devices : {one, ten}) {
            const LanguageGuard guard(language);
            alert = presenter.present(makeAlertContent(devices, true, {0, 45}), {});
            turnEventLoop();
            look(*alertWindows().at(0), devices.size());
            closeAll();
            open(language);
            model().language = language;
            model().devices = devices;
            model().status = L10n::t("status.low") + ": " + devices.front().name;
            turnEventLoop();
            view->activateWindow();
            turnEventLoop();
            look(*view, devices.size());
            closeAll();
        }
    }

    /// Brings a control of `window` into view; returns its place there.
    static QRect bringIntoView(QWidget& window, QWidget& control)
    {
        auto* const scroller = window.findChild<QScrollArea*>();
        if (scroller->isAncestorOf(&control)) {
            scroller->ensureWidgetVisible(&control, 0, 0);
        }
        return {control.mapTo(&window, QPoint()), control.size()};
    }

    static std::vector<QWidget*> controlsWithText(const QWidget& window)
    {
        std::vector<QWidget*> controls;
        for (QWidget* const widget : window.findChildren<QWidget*>()) {
            if (widget->isVisible() && hasText(*widget)) {
                controls.push_back(widget);
            }
        }
        return controls;
    }

    FakePointer pointer;
    SnoozeAlertPresenter presenter{appearance, pointer, world.runLoop};
    std::unique_ptr<Alert> alert;

private:
    const QFont usualFont = QApplication::font();
};

/// How many pixels show the text of a control.
int ink(QWidget& control)
{
    const QString text = writtenOn(control);
    const QImage with = control.grab().toImage();
    setText(control, "");
    const QImage without = control.grab().toImage();
    setText(control, text);
    return differingPixels(with, without);
}

/// Whether a larger control shows more of its text.
bool isCut(QWidget& control)
{
    if (const auto* const label = dynamic_cast<const QLabel*>(&control)) {
        const bool isElided = dynamic_cast<const ElidedLabel*>(label) != nullptr;
        const int height =
            std::max(label->heightForWidth(label->width()), label->fontMetrics().height());
        return label->height() < height ||
            (!isElided && label->width() < label->sizeHint().width());
    }
    if (const auto* const box = dynamic_cast<const QComboBox*>(&control)) {
        QStyleOptionComboBox option;
        option.initFrom(box);
        const QRect field = box->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                         QStyle::SC_ComboBoxEditField, box);
        if (field.width() < box->fontMetrics().horizontalAdvance(box->currentText())) {
            return true; // some styles draw over the arrow
        }
    }
    const QSize size = control.size();
    const int seen = ink(control);
    control.resize(size + QSize(40, 20));
    const int there = ink(control);
    control.resize(size);
    return seen == 0 || seen < 0.97 * there;
}

class EveryStyle : public StylesTest,
                   public testing::WithParamInterface<std::tuple<std::string, int>> {
protected:
    EveryStyle()
    {
        QFont font = QApplication::font();
        font.setPointSize(std::get<int>(GetParam()));
        use(std::get<std::string>(GetParam()), ColourScheme::light, font);
    }
};

TEST_P(EveryStyle, NoTextIsCut)
{
    for (const char* const language : {"en", "zh"}) {
        forEachWindow(language, [&](QWidget& window, std::size_t devices) {
            for (QWidget* const control : controlsWithText(window)) {
                EXPECT_FALSE(isCut(*control))
                    << writtenOn(*control).toStdString() << ", " << devices << " devices, "
                    << control->width() << 'x' << control->height();
            }
        });
    }
}

TEST_P(EveryStyle, EveryControlIsWithinTheWorkAreaOrScrollsThere)
{
    for (const char* const language : {"en", "zh"}) {
        forEachWindow(language, [&](QWidget& window, std::size_t devices) {
            const QSize workArea = window.screen()->availableSize();
            EXPECT_LE(window.width(), workArea.width()) << devices;
            EXPECT_LE(window.height(), workArea.height()) << devices;
            for (QWidget* const control : controlsWithText(window)) {
                EXPECT_TRUE(window.rect().contains(bringIntoView(window, *control)))
                    << writtenOn(*control).toStdString() << ", " << devices << " devices";
            }
        });
    }
}

TEST_P(EveryStyle, NoControlHasTheKeyboardAtFirst)
{
    forEachWindow("en", [](QWidget& window, std::size_t /*devices*/) {
        EXPECT_TRUE(window.isActiveWindow());
        EXPECT_EQ(QApplication::focusWidget(), &window);
    });
}

INSTANTIATE_TEST_SUITE_P(Matrix, EveryStyle,
                         testing::Combine(testing::ValuesIn(stylesToTry()),
                                          testing::Values(9, 11, 16)),
                         [](const auto& chosen) {
                             return lettersOf(std::get<std::string>(chosen.param)) + '_' +
                                 std::to_string(std::get<int>(chosen.param));
                         });

/// Colours, which do not depend on the size of a text. Letters are large, so that some of their
/// pixels have the whole colour.
class EveryStylesColours : public StylesTest, public testing::WithParamInterface<std::string> { };

TEST_P(EveryStylesColours, EveryTextIsReadableInActiveAndInactiveWindowsAndAWarningIsRed)
{
    QFont font = QApplication::font();
    font.setPixelSize(30);
    font.setBold(true);
    for (const auto scheme : {ColourScheme::light, ColourScheme::dark}) {
        use(GetParam(), scheme, font);
        forEachWindow("en", [&](QWidget& window, std::size_t devices) {
            QWidget other;
            for (const bool isActive : {true, false}) {
                if (!isActive) {
                    other.show();
                    other.activateWindow();
                    turnEventLoop();
                }
                ASSERT_EQ(window.isActiveWindow(), isActive);
                for (QWidget* const control : controlsWithText(window)) {
                    const QRect place = bringIntoView(window, *control);
                    const QString text = writtenOn(*control);
                    const QImage with = window.grab(place).toImage();
                    setText(*control, "");
                    const QImage without = window.grab(place).toImage();
                    setText(*control, text);
                    double best = 0;
                    QColor colour;
                    for (int y = 0; y < with.height(); ++y) {
                        for (int x = 0; x < with.width(); ++x) {
                            const double found =
                                contrast(with.pixelColor(x, y), without.pixelColor(x, y));
                            if (found > best) {
                                best = found;
                                colour = with.pixelColor(x, y);
                            }
                        }
                    }
                    EXPECT_GE(best, readable)
                        << text.toStdString() << ", " << devices << " devices, "
                        << (scheme == ColourScheme::dark ? "dark, " : "light, ")
                        << (isActive ? "active, " : "inactive, ") << colour.name().toStdString()
                        << " on " << without.pixelColor(3, 3).name().toStdString();
                    if (text.contains("lease charge") || text.startsWith("Low battery")) {
                        EXPECT_GT(colour.red(), colour.green() + 40) << text.toStdString();
                    }
                }
            }
        });
    }
}

INSTANTIATE_TEST_SUITE_P(Matrix, EveryStylesColours, testing::ValuesIn(stylesToTry()),
                         [](const auto& chosen) { return lettersOf(chosen.param); });

} // namespace
} // namespace voltmere

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    for (const QString& style : QStyleFactory::keys()) {
        voltmere::stylesToTry().push_back(style.toStdString());
    }
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
