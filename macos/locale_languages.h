#pragma once

#include "ports/desktop.h"

namespace voltmere {

/// The languages of the system settings, in the user's order.
class LocaleLanguages : public PreferredLanguages {
public:
    std::vector<std::string> tags() const override;
};

} // namespace voltmere
