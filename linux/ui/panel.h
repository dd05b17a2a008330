#pragma once

#include "linux/ui/views.h"
#include "model/battery_model.h"
#include "ports/desktop.h"
#include "ui/panel.h"

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

class QCheckBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace voltmere {

class SettingPicker;

/// The panel that opens from the menu-bar icon. It draws `panelContent` and passes the
/// user's choices to the model, which it never changes otherwise. It keeps no state of its own, so
/// it is built when the panel opens and destroyed when it closes.
///
/// It is 320 points wide, more where the user's font needs it, and exactly as high as its rows
/// where the screen is: on a lower screen they scroll, and Quit stays in reach. When it first
/// appears it asks for a fresh reading. Escape closes its window.
class ContentView : public QWidget {
public:
    /// `quit` ends the program. The model and the appearance must outlive the view.
    ContentView(BatteryModel& model, const Appearance& appearance, std::function<void()> quit);

    /// Says below the rows that the desktop has no tray, and how to open the panel again.
    void addNoTrayNotice();

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeHeader();
    QWidget* makeDevices();
    QLabel* makeStatus();
    QLabel* makeText(const char* objectName, std::string PanelContent::*text);
    QPushButton* makeButton(const char* objectName, std::string PanelContent::*title,
                            std::function<void()> action);
    QCheckBox* makeToggle(const char* objectName, Toggle PanelContent::*toggle,
                          Published<bool>& setting);
    template<typename Value>
    SettingPicker* makePicker(const char* objectName, PopUp<Value> PanelContent::*popUp,
                              Published<Value>& setting);
    void redraw();

    BatteryModel& model;
    const Appearance& appearance;
    PanelContent content; ///< as it is shown
    bool hasAppeared = false;
    QVBoxLayout* column; ///< the rows that scroll on a low screen, and below them those that do not
    QVBoxLayout* rows;   ///< that scroll
    QWidget* scroller;   ///< shows `rows`
    std::vector<std::function<void()>> updates; ///< each brings one control in line with `content`
    RedrawScheduler redrawScheduler;
};

} // namespace voltmere
