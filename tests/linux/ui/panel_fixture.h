#pragma once

#include "fakes/fake_appearance.h"
#include "fakes/model_world.h"
#include "linux/ui/panel.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QTest>

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

    QColor colourOf(const QString& objectName)
    {
        return find(objectName).palette().color(QPalette::WindowText);
    }

    std::string selected(const QString& objectName)
    {
        return find<QComboBox>(objectName).currentText().toStdString();
    }

    std::vector<std::string> choices(const QString& objectName)
    {
        const auto& picker = find<QComboBox>(objectName);
        std::vector<std::string> texts;
        for (int index = 0; index < picker.count(); ++index) {
            texts.push_back(picker.itemText(index).toStdString());
        }
        return texts;
    }

    /// Chooses an entry of a picker the way a person does: opens the list and presses Return on it.
    void choose(const QString& objectName, const QString& text)
    {
        auto& picker = find<QComboBox>(objectName);
        const int row = picker.findText(text);
        ASSERT_GE(row, 0) << text.toStdString();
        picker.showPopup();
        picker.view()->setCurrentIndex(picker.model()->index(row, 0));
        QTest::keyClick(picker.view(), Qt::Key_Return);
    }

    void click(const QString& objectName)
    {
        QWidget& widget = find(objectName);
        QTest::mouseClick(&widget, Qt::LeftButton, {}, {widget.height() / 2, widget.height() / 2});
    }

    /// What a screen reader calls a control: its label where one belongs to it, else its own name.
    std::string accessibleName(const QString& objectName)
    {
        auto* const control = QAccessible::queryAccessibleInterface(&find(objectName));
        const auto labels = control->relations(QAccessible::Label);
        const auto* const named = labels.isEmpty() ? control : labels.front().first;
        return named->text(QAccessible::Name).toStdString();
    }

    ModelWorld world;
    FakeAppearance appearance;
    std::unique_ptr<ContentView> view;
    int quits = 0;
};

} // namespace voltmere
