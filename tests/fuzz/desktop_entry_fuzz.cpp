#include "fuzz/fuzz_target.h"
#include "linux/desktop_entry.h"

#include <array>

namespace voltmere {

namespace {

constexpr std::array keys{"Exec", "Hidden", "Name", "OnlyShowIn", "X-GNOME-Autostart-enabled"};

/// Changing one key gives it the new value and leaves the others their own.
void checkChange(const std::string& text, const std::string& key, const std::string& value)
{
    const DesktopEntry before(text);
    DesktopEntry after(text);
    after.setValue(key, value);
    const DesktopEntry readAgain(after.text());

    fuzz::require(after.value(key) == value, "the value that was set");
    fuzz::require(readAgain.value(key) == value, "the value is in the text");
    fuzz::require(readAgain.text() == after.text(), "the text is read as it was written");
    fuzz::require(!before.isSound() || after.isSound(), "a sound entry stays sound");
    for (const char* const other : keys) {
        fuzz::require(key == other || after.value(other) == before.value(other),
                      "the other keys keep their values");
    }
    after.setValue(key, value);
    fuzz::require(after.text() == readAgain.text(), "setting it again changes nothing");
    after.remove(key);
    fuzz::require(!after.value(key), "a removed key is gone");
}

} // namespace

/// The first line is a value, the rest a desktop entry.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Pieces pieces(data, size);
    const std::string value = pieces.line();
    const std::string text = pieces.remainder();

    DesktopEntry entry(text);
    fuzz::require(entry.text() == text, "an unchanged text stays byte for byte");
    fuzz::require(!entry.isSound() || entry.hasGroup(), "a sound entry has its group");
    entry.remove("X-Voltmere-Missing");
    for (const char* const key : keys) {
        fuzz::require(!entry.isTrue(key) || entry.value(key), "a missing key is not true");
        for (const std::string& part : entry.list(key)) {
            fuzz::require(part.find(';') == part.npos, "no part holds a semicolon");
        }
    }
    if (entry.hasGroup()) {
        for (const char* const key : keys) {
            checkChange(text, key, value);
        }
    }
    return 0;
}

} // namespace voltmere
