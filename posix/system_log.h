#pragma once

#include "ports/log.h"

namespace voltmere {

/// syslog(3) under the name "voltmere", with a copy on standard error. The
/// connection lasts as long as the process.
class PosixSystemLog : public SystemLog {
public:
    PosixSystemLog();
    void write(std::string_view line) override;
};

} // namespace voltmere
