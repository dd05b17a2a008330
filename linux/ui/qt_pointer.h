#pragma once

#include "ports/desktop.h"

namespace voltmere {

/// The pointer as Qt knows it.
class QtPointer : public Pointer {
public:
    std::optional<PointerPosition> position() const override;
};

} // namespace voltmere
