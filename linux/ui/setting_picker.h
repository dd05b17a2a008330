#pragma once

#include "ports/desktop.h"

#include <QComboBox>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QLabel;

namespace voltmere {

/// A choice among fixed values. It reports what a person chooses and nothing else: not what the
/// program selects, and not a wheel that passes over it.
class SettingPicker : public QComboBox {
public:
    explicit SettingPicker(QWidget* parent);

    /// Offers and selects what `popUp` says, which always has the same number of choices.
    template<typename Value>
    void present(const PopUp<Value>& popUp)
    {
        present(popUp.titles, popUp.selected);
    }

    /// Tells assistive technology what the picker is for: by its accessible name and, where a
    /// picker's name is taken to be its selection (Qt on Linux), by a hidden label that belongs to
    /// it. The picker must already be among its siblings.
    void setName(const QString& name);

    /// The selected choice, counted from 0. There must be one.
    std::size_t choice() const { return static_cast<std::size_t>(currentIndex()); }

    /// Calls `action` whenever a person chooses, also the selected choice again.
    void onChoice(std::function<void(std::size_t choice)> action);

private:
    void present(const std::vector<std::string>& titles, std::optional<std::size_t> selected);

    QLabel* label = nullptr;
};

} // namespace voltmere
