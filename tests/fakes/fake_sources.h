#pragma once

#include "ports/peripherals.h"

#include <functional>
#include <utility>

namespace voltmere {

/// Returns the entries that the test set, and counts its readings.
class FakeBatterySource : public BatterySource {
public:
    std::vector<BatteryEntry> readEntries() override
    {
        ++readings;
        return entries;
    }

    std::vector<BatteryEntry> entries;
    int readings = 0;
};

/// Returns the names that the test set, and counts its readings.
class FakeNameSource : public NameSource {
public:
    NameMap readNames() override
    {
        ++readings;
        if (whileReading) {
            whileReading();
        }
        return names;
    }

    NameMap names;
    std::function<void()> whileReading;
    int readings = 0;
};

} // namespace voltmere
