#include "linux/ui/setting_picker.h"

#include <QLabel>
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

void SettingPicker::present(const std::vector<std::string>& titles,
                            std::optional<std::size_t> selected)
{
    for (int index = 0; const std::string& title : titles) {
        const QString text = QString::fromStdString(title);
        if (index == count()) {
            addItem(text);
        } else if (itemText(index) != text) {
            setItemText(index, text);
        }
        ++index;
    }
    setCurrentIndex(selected ? static_cast<int>(*selected) : -1);
}

void SettingPicker::setName(const QString& name)
{
    setAccessibleName(name);
    if (label == nullptr) {
        label = new QLabel(parentWidget());
        label->setTextFormat(Qt::PlainText);
        label->setBuddy(this);
        label->hide();
    }
    label->setText(name);
}

void SettingPicker::onChoice(std::function<void(std::size_t choice)> action)
{
    connect(this, &QComboBox::activated, this,
            [action = std::move(action)](int index) { action(static_cast<std::size_t>(index)); });
}

} // namespace voltmere
