#pragma once

#include <algorithm>
#include <vector>

namespace voltmere {

/// A running process of this program.
struct RunningInstance {
    int process = 0;
    bool finishedLaunching = false;
};

/// Whether the process `own` gives way to one of `others`: to any that runs already, and of two
/// that start at the same time, to the one with the lower number.
inline bool givesWay(int own, const std::vector<RunningInstance>& others)
{
    return std::any_of(others.begin(), others.end(), [own](const RunningInstance& other) {
        return other.process != own && (other.finishedLaunching || other.process < own);
    });
}

} // namespace voltmere
