#pragma once

#include "ports/login_item.h"

namespace voltmere {

/// The application itself among the system's login items.
class MainAppLoginItem : public LoginItemService {
public:
    Status status() const override;
    std::optional<std::string> registerItem() override;
    std::optional<std::string> unregisterItem() override;
};

} // namespace voltmere
