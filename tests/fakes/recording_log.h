#pragma once

#include "ports/log.h"

#include <functional>
#include <string>
#include <vector>

namespace voltmere {

/// Keeps the lines that were logged.
class RecordingLog : public SystemLog {
public:
    void write(std::string_view line) override
    {
        lines.emplace_back(line);
        if (whileWriting) {
            whileWriting();
        }
    }

    std::vector<std::string> lines;
    std::function<void()> whileWriting;
};

} // namespace voltmere
