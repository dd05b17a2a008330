#pragma once

#include "linux/ui/redraw_scheduler.h"
#include "model/battery_model.h"
#include "ports/desktop.h"

#include <QWidget>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QCheckBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace voltmere {

class DeviceList;
class SettingPicker;
class WrappingLabel;

/// The panel that opens from the menu-bar icon: the peripherals with their levels, every setting,
/// and the commands. It follows the model, changes it only when a person does something, and keeps
/// nothing of its own, so it is built when the panel opens and destroyed when it closes.
///
/// It is 320 points wide, more where the user's font needs it, and always exactly as high as its
/// rows. When it first appears it asks for a fresh reading. Escape closes its window.
class ContentView : public QWidget {
public:
    /// `quit` ends the program. The model and the appearance must outlive the view.
    ContentView(BatteryModel& model, const Appearance& appearance, std::function<void()> quit,
                QWidget* parent = nullptr);
    ~ContentView() override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    using Text = std::function<std::string()>;

    void addHeader(QVBoxLayout& column);
    void addDevices(QVBoxLayout& column);
    void addThreshold(QVBoxLayout& column);
    void addCheckTime(QVBoxLayout& column);
    void addStatus(QVBoxLayout& column);
    void addTestButton(QVBoxLayout& column);
    void addBottomRow(QVBoxLayout& column);

    QLabel* makeText(const char* objectName, std::string_view key);
    QPushButton* makeButton(const char* objectName, std::string_view key,
                            std::function<void()> action);
    QCheckBox* makeToggle(const char* objectName, std::string_view key, Published<bool>& setting);
    SettingPicker* makePicker(const char* objectName, Text name);
    void bind(SettingPicker& picker, Published<std::int64_t>& setting);
    SettingPicker* makeThresholdPicker();
    SettingPicker* makeTimePicker(const char* objectName, std::string_view nameKey, int step,
                                  int end, Published<std::int64_t>& setting);
    SettingPicker* makeLanguagePicker();

    void onRedraw(std::function<void()> update);
    void redraw();

    BatteryModel& model;
    const Appearance& appearance;
    std::function<void()> quit;
    bool hasAppeared = false;
    std::vector<std::function<void()>> updates; ///< each brings one control in line with the model
    RedrawScheduler redrawScheduler;
};

} // namespace voltmere
