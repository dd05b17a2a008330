#pragma once

#include "ports/system_log.h"

#include <set>
#include <string>

namespace voltmere {

/// Logs each kind of trouble once, so that a service which fails all day does not fill the log.
class OnceLog {
public:
    explicit OnceLog(SystemLog& log)
        : log(log)
    {
    }

    /// Writes "Voltmere: `kind`", with `detail` in parentheses unless that is empty, the first time
    /// that this kind is seen.
    void report(const std::string& kind, const std::string& detail = {})
    {
        if (seen.insert(kind).second) {
            log.write("Voltmere: " + kind + (detail.empty() ? "" : " (" + detail + ")"));
        }
    }

private:
    SystemLog& log;
    std::set<std::string> seen;
};

} // namespace voltmere
