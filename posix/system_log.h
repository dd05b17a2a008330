#pragma once

#include "ports/log.h"

namespace voltmere {

/// syslog(3) under the name "voltmere", with a copy on standard error.
class PosixSystemLog : public SystemLog {
public:
    PosixSystemLog();
    ~PosixSystemLog() override;
    PosixSystemLog(const PosixSystemLog&) = delete;
    PosixSystemLog& operator=(const PosixSystemLog&) = delete;

    void write(std::string_view line) override;
};

} // namespace voltmere
