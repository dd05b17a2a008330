#pragma once

#include <string_view>

namespace voltmere {

/// The system's log. A line is plain text and never a format, whatever it contains.
class SystemLog {
public:
    virtual ~SystemLog() = default;

    virtual void write(std::string_view line) = 0;
};

} // namespace voltmere
