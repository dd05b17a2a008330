#include "year/year_script.h"

#include "fakes/time_zones.h"

#include <array>

namespace voltmere::year {

namespace {

const std::array<Zone, 5> allZones{{
    {zones::universal, 0, 0, {}, {}},
    {zones::centralEurope, hour, hour, {3, 5, 2 * hour}, {10, 5, 3 * hour}},
    {zones::easternAmerica, -5 * hour, hour, {3, 2, 2 * hour}, {11, 1, 2 * hour}},
    {zones::lordHowe, 10 * hour + 30 * minute, 30 * minute, {10, 1, 2 * hour}, {4, 1, 2 * hour}},
    {zones::nepal, 5 * hour + 45 * minute, 0, {}, {}},
}};

} // namespace

YearScript::YearScript(unsigned seed)
    : random(seed)
{
}

/// The engine's own numbers, since the library's distributions differ between its makers.
std::int64_t YearScript::below(std::int64_t limit)
{
    const std::uint64_t number = (std::uint64_t{random()} << 32) | random();
    return static_cast<std::int64_t>(number % static_cast<std::uint64_t>(limit));
}

Beginning YearScript::beginning()
{
    Beginning found;
    found.now = universalTime(2026, 1, 1).time_since_epoch() / std::chrono::milliseconds(1) +
        below(2 * 365 * day / 125) * 125;
    found.zone = &allZones[static_cast<std::size_t>(below(allZones.size()))];
    found.storedLanguage = std::array{"", "system", "zh", "en", "fr"}[below(5)];
    found.prefersChinese = oneIn(2);
    found.registeredAtLogin = oneIn(2);
    return found;
}

void YearScript::step(Run& program, YearOracle& oracle)
{
    const Action action = nextAction(oracle);
    action(program);
    action(oracle);
}

YearScript::Action YearScript::described(std::string what, Action action)
{
    description = std::move(what);
    return action;
}

YearScript::Action YearScript::nextAction(const YearOracle& oracle)
{
    if (!launched) {
        if (oneIn(3)) {
            launched = true;
            return described("launch settles", [](Run& run) { run.settleLaunch(); });
        }
        return oneIn(2) ? stayAwake(below(40) * 125) : batteriesChange();
    }
    if (oracle.alertIsVisible() && oneIn(2)) {
        return alertIsAnswered();
    }
    switch (below(12)) {
    case 0:
        return settingChanges();
    case 1:
    case 2:
        return batteriesChange();
    case 3:
        return oneIn(3) ? namesChange() : userLooks();
    case 4:
        return oneIn(4) ? clockOrZoneChanges() : userLooks();
    default:
        return timePasses(oracle);
    }
}

/// Often the machine wakes shortly before the daily check, since that is where the rules are.
YearScript::Action YearScript::timePasses(const YearOracle& oracle)
{
    const Millis untilCheck = oracle.untilCheck();
    if (sleeps && oneIn(5)) {
        const Millis early = below(4 * minute / 125) * 125;
        return untilCheck > early ? sleep(untilCheck - early) : stayAwake(10 * minute);
    }
    if (oneIn(4) && untilCheck < 6 * hour) {
        return stayAwake(untilCheck + below(3) * minute);
    }
    return useOrSleep();
}

YearScript::Action YearScript::useOrSleep()
{
    if (sleeps && oneIn(3)) {
        return sleep(oneIn(2) ? below(3 * hour / 125) * 125 : below(7 * day / 125) * 125);
    }
    if (oneIn(3)) {
        return stayAwake(below(3 * hour / 125) * 125);
    }
    return stayAwake(below(30) * minute);
}

YearScript::Action YearScript::stayAwake(Millis span)
{
    passed += span;
    return described("awake " + std::to_string(span), [=](Run& run) { run.stayAwake(span); });
}

YearScript::Action YearScript::sleep(Millis span)
{
    passed += span;
    return described("asleep " + std::to_string(span), [=](Run& run) { run.sleep(span); });
}

YearScript::Action YearScript::settingChanges()
{
    const std::int64_t number = below(1000);
    const bool on = oneIn(2);
    switch (below(8)) {
    case 0:
        return described("threshold", [=](Run& run) { run.setThreshold(number % 101); });
    case 1:
        return described("hour", [=](Run& run) { run.setCheckHour(number % 24); });
    case 2:
        return described("minute", [=](Run& run) { run.setCheckMinute(number % 60); });
    case 3:
        return described("daily check", [=](Run& run) { run.setEnabled(number % 4 != 0); });
    case 4:
        return described("at once", [=](Run& run) { run.setInstantEnabled(number % 4 != 0); });
    case 5:
        return described("login service",
                         [=](Run& run) { run.setLoginService(LoginService(number % 3)); });
    case 6:
        return described("at login", [=](Run& run) { run.setLaunchAtLogin(on); });
    default:
        return described("language", [=](Run& run) {
            run.setLanguage(std::array{"system", "zh", "en", "fr"}[number % 4]);
        });
    }
}

YearScript::Action YearScript::alertIsAnswered()
{
    const std::int64_t number = below(1000);
    switch (below(4)) {
    case 0:
        return described("cancel", [](Run& run) { run.cancelAlert(); });
    case 1:
        return described("custom time", [=](Run& run) {
            run.chooseTime(static_cast<int>(number % 24), static_cast<int>(number % 12 * 5));
        });
    default:
        return described("option",
                         [=](Run& run) { run.chooseOption(static_cast<std::size_t>(number % 4)); });
    }
}

/// Mostly a few real peripherals, sometimes none, strangers, twins, and levels beyond reason.
YearScript::Action YearScript::batteriesChange()
{
    constexpr std::array<std::int64_t, 11> products{613, 615, 617, 619, 620, 656,
                                                    657, 803, 804, 805, 612};
    constexpr std::array<std::int64_t, 6> oddLevels{0, 101, -1, 20, 21, INT64_MAX};
    std::vector<Peripheral> peripherals;
    for (std::int64_t count = below(5); count > 0; --count) {
        Peripheral one;
        if (!oneIn(20)) {
            one.product = products[static_cast<std::size_t>(below(products.size()))];
        }
        if (!oneIn(20)) {
            one.level = oneIn(6) ? oddLevels[static_cast<std::size_t>(below(oddLevels.size()))]
                                 : below(101);
        }
        one.address = "aa-0" + std::to_string(below(4));
        peripherals.push_back(one);
    }
    return described("batteries", [=](Run& run) { run.setPeripherals(peripherals); });
}

YearScript::Action YearScript::namesChange()
{
    Names names;
    for (std::int64_t count = below(3); count > 0; --count) {
        names["AA:0" + std::to_string(below(4))] =
            std::array{"Mouse of Ann", "%@ 100%", "数字", ""}[below(4)];
    }
    return described("names", [=](Run& run) { run.setNames(names); });
}

YearScript::Action YearScript::clockOrZoneChanges()
{
    if (oneIn(2)) {
        const Zone& zone = allZones[static_cast<std::size_t>(below(allZones.size()))];
        return described(zone.name, [&zone](Run& run) { run.moveTo(zone); });
    }
    const Millis by = (below(12 * hour / 125) - 6 * hour / 125) * 125;
    return described("clock " + std::to_string(by), [=](Run& run) { run.moveClock(by); });
}

YearScript::Action YearScript::userLooks()
{
    return oneIn(2) ? described("panel", [](Run& run) { run.showPanel(); })
                    : described("test", [](Run& run) { run.testAlert(); });
}

} // namespace voltmere::year
