#pragma once

#include "ports/desktop.h"

namespace voltmere {

/// A pointer that is where the test puts it; without a place it cannot be asked for.
class FakePointer : public Pointer {
public:
    std::optional<PointerPosition> position() const override
    {
        ++questions;
        return place;
    }

    std::optional<PointerPosition> place = PointerPosition{-1000, -1000};
    mutable int questions = 0;
};

} // namespace voltmere
