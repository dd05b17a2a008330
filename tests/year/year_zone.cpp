#include "year/year_zone.h"

#include <chrono>

namespace voltmere::year {

namespace {

Millis floorDivided(Millis number, Millis divisor)
{
    return number >= 0 ? number / divisor : -((-number + divisor - 1) / divisor);
}

/// A change of the clocks as local time before it.
Millis localTimeOf(const ClockChange& change, std::chrono::year year)
{
    using namespace std::chrono;
    const auto month = year / std::chrono::month(change.month);
    const sys_days date = change.sunday == 5 ? sys_days(month / Sunday[last])
                                             : sys_days(month / Sunday[change.sunday]);
    return date.time_since_epoch().count() * day + change.localTime;
}

std::chrono::year yearOf(Millis local)
{
    using namespace std::chrono;
    return year_month_day(sys_days(days(floorDivided(local, year::day)))).year();
}

} // namespace

Millis offsetAt(const Zone& zone, Millis instant)
{
    if (zone.saving == 0) {
        return zone.standard;
    }
    const std::chrono::year year = yearOf(instant + zone.standard);
    const Millis begin = localTimeOf(zone.begin, year) - zone.standard;
    const Millis end = localTimeOf(zone.end, year) - zone.standard - zone.saving;
    const bool north = begin < end;
    const bool summer =
        north ? begin <= instant && instant < end : begin <= instant || instant < end;
    return zone.standard + (summer ? zone.saving : 0);
}

Local localAt(const Zone& zone, Millis instant)
{
    const Millis local = instant + offsetAt(zone, instant);
    const Millis dayNumber = floorDivided(local, day);
    const Millis sinceMidnight = local - dayNumber * day;
    return {dayNumber, static_cast<int>(sinceMidnight / hour),
            static_cast<int>(sinceMidnight % hour / minute)};
}

Millis instantOf(const Zone& zone, Millis local)
{
    const Millis inSummer = local - zone.standard - zone.saving;
    if (zone.saving != 0 && inSummer + offsetAt(zone, inSummer) == local) {
        return inSummer;
    }
    return local - zone.standard;
}

Millis untilNext(const Zone& zone, Millis now, int hourOfDay, int minuteOfHour)
{
    const Millis wanted =
        localAt(zone, now).dayNumber * day + hourOfDay * hour + minuteOfHour * minute;
    const Millis today = instantOf(zone, wanted);
    if (today > now) {
        return today - now;
    }
    return instantOf(zone, today + offsetAt(zone, today) + day) - now;
}

} // namespace voltmere::year
