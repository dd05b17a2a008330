#pragma once

#include "fakes/fake_appearance.h"
#include "fakes/model_world.h"
#include "linux/ui/panel.h"
#include "linux/ui/theme.h"
#include "linux/ui/widgets.h"

#include <QLabel>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace voltmere {

/// The panel over a model whose outside is all fakes. The model's first reading is done before the
/// panel opens.
class PanelTest : public testing::Test {
protected:
    // Product identifiers.
    static constexpr std::int64_t mouse = 803;
    static constexpr std::int64_t keyboard = 805;
    static constexpr std::int64_t trackpad = 804;

    /// Starts the model in `language`, with the peripherals that the world then has.
    BatteryModel& startModel(const std::string& language = "en")
    {
        world.defaults.set("language", language);
        BatteryModel& model = world.start();
        world.runLoop.settle();
        return model;
    }

    /// Opens the panel and lets its own reading arrive.
    ContentView& open(const std::string& language = "en")
    {
        if (!world.model) {
            startModel(language);
        }
        view = std::make_unique<ContentView>(*world.model, appearance, [this] { ++quits; });
        view->show();
        settle();
        return *view;
    }

    void openWithThreeDevices()
    {
        world.setLevels({{mouse, 37}, {keyboard, 15}, {trackpad, 60}});
        open();
    }

    /// Lets readings arrive and the event loop turn.
    void settle()
    {
        world.runLoop.settle();
        QCoreApplication::processEvents();
    }

    BatteryModel& model() { return *world.model; }

    template<typename Widget = QWidget>
    Widget& find(const QString& objectName)
    {
        auto* const found = view->findChild<Widget*>(objectName);
        if (found == nullptr) {
            throw std::runtime_error("no " + objectName.toStdString() + " in the panel");
        }
        return *found;
    }

    std::string textOf(const QString& objectName)
    {
        return find<QLabel>(objectName).text().toStdString();
    }

    QColor colourOf(const QString& objectName) { return textColour(find(objectName)); }

    QColor redOf(ColourScheme scheme) { return warningTextColour(view->palette(), scheme); }

    std::string selected(const QString& objectName)
    {
        return find<QComboBox>(objectName).currentText().toStdString();
    }

    void choose(const QString& objectName, const QString& text)
    {
        chooseEntry(find<QComboBox>(objectName), text);
    }

    void click(const QString& objectName)
    {
        QWidget& widget = find(objectName);
        QTest::mouseClick(&widget, Qt::LeftButton, {}, {widget.height() / 2, widget.height() / 2});
    }

    ModelWorld world;
    FakeAppearance appearance;
    std::unique_ptr<ContentView> view;
    int quits = 0;
};

} // namespace voltmere
