#pragma once

#include "ports/desktop.h"

namespace voltmere {

/// A desktop that is dark or light as the test says. It announces no change.
class FakeAppearance : public Appearance {
public:
    std::optional<ColourScheme> bestMatch() const override { return scheme; }
    void onChange(std::function<void()> /*action*/) override { }

    std::optional<ColourScheme> scheme = ColourScheme::light;
};

} // namespace voltmere
