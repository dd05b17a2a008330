#pragma once

#include "ports/log.h"

namespace voltmere {

/// The unified log of macOS, with a copy on standard error.
class NsLog : public SystemLog {
public:
    void write(std::string_view line) override;
};

} // namespace voltmere
