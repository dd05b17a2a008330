#pragma once

#include "ports/desktop.h"

namespace voltmere {

/// The program's windows as Qt knows them.
class QtApplication : public Application {
public:
    void activate() override;
};

} // namespace voltmere
