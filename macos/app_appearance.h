#pragma once

#include "ports/desktop.h"

#include <memory>

namespace voltmere {

/// The application's appearance. Needs the application object.
class AppAppearance : public Appearance {
public:
    AppAppearance();
    ~AppAppearance() override;

    std::optional<ColourScheme> bestMatch() const override;
    void onChange(std::function<void()> action) override;

private:
    struct Cocoa;
    std::unique_ptr<Cocoa> cocoa;
};

} // namespace voltmere
