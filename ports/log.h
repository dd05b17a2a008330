#pragma once

#include <set>
#include <string>
#include <string_view>

namespace voltmere {

/// The system's log. A line is plain text and never a format, whatever it contains. May be called
/// on any thread. Failures are ignored.
class SystemLog {
public:
    virtual ~SystemLog() = default;

    virtual void write(std::string_view line) = 0;
};

/// Logs each kind of trouble once, so that a service which fails all day does not fill the log.
/// Not safe on two threads at once.
class OnceLog {
public:
    explicit OnceLog(SystemLog& log)
        : log(log)
    {
    }

    /// Writes "Voltmere: `kind`", with `detail` in parentheses unless that is empty, the first time
    /// that this kind occurs.
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
