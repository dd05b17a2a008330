#pragma once

#include <QComboBox>
#include <QVariant>

#include <functional>

namespace voltmere {

/// A choice among fixed values. It reports what a person chooses and nothing else: not what the
/// program selects, and not a wheel that passes over it.
class SettingPicker : public QComboBox {
public:
    explicit SettingPicker(QWidget* parent);

    /// Offers every `step`th number from 0 up to, but not including, `end`, in two digits.
    void addTwoDigitNumbers(int step, int end);

    /// Calls `action` with the value whenever a person chooses one, also the selected one again.
    void onChoice(std::function<void(const QVariant& value)> action);

    /// Selects `value`; nothing when the picker does not offer it.
    void select(const QVariant& value);
};

} // namespace voltmere
