#include "linux/ui/setting_picker.h"

#include <QProxyStyle>

#include <utility>

namespace voltmere {

namespace {

constexpr int rowsAtOnce = 12;

/// Makes a long list scroll. Some styles otherwise open it as a menu as tall as the screen.
class PickerStyle : public QProxyStyle {
public:
    explicit PickerStyle(QObject* parent) { setParent(parent); }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override
    {
        const auto own = [&](StyleHint asked) {
            return QProxyStyle::styleHint(asked, option, widget, returnData);
        };
        switch (hint) {
        case SH_ComboBox_Popup: // a native menu scrolls by itself
            return own(SH_ComboBox_UseNativePopup) != 0 ? own(hint) : 0;
        case SH_ComboBox_AllowWheelScrolling:
            return 0;
        default:
            return own(hint);
        }
    }
};

} // namespace

SettingPicker::SettingPicker(QWidget* parent)
    : QComboBox(parent)
{
    setStyle(new PickerStyle(this));
    setMaxVisibleItems(rowsAtOnce);
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
}

void SettingPicker::addTwoDigitNumbers(int step, int end)
{
    for (int number = 0; number < end; number += step) {
        addItem(QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')), qlonglong{number});
    }
}

void SettingPicker::onChoice(std::function<void(const QVariant& value)> action)
{
    connect(this, &QComboBox::activated, this,
            [this, action = std::move(action)](int index) { action(itemData(index)); });
}

void SettingPicker::select(const QVariant& value)
{
    setCurrentIndex(findData(value));
}

} // namespace voltmere
