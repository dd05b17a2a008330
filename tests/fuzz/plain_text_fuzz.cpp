#include "devices/utf8.h"
#include "fuzz/fuzz_target.h"
#include "platform/posix/plain_text.h"
#include "reference/reference_text.h"

namespace voltmere {

namespace {

/// What a terminal may obey: control characters, separators of lines, what turns the direction. The
/// invisible letters of a direction (U+200E, U+200F, U+061C) turn nothing and belong to real names.
bool isObeyed(char32_t c)
{
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x2028 && c <= 0x202E) ||
        (c >= 0x2066 && c <= 0x2069);
}

bool isPlain(const std::string& text)
{
    const auto characters = reference::decoded(text);
    if (!characters) {
        return false;
    }
    for (const char32_t c : *characters) {
        if (isObeyed(c)) {
            return false;
        }
    }
    return true;
}

} // namespace

/// Whatever bytes come from outside, what is shown is UTF-8 and nothing that a terminal obeys.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes = fuzz::textOf(data, size);
    const std::string text = toValidUtf8(bytes);

    fuzz::require(isValidUtf8(bytes) == reference::decoded(bytes).has_value(), "what UTF-8 is");
    fuzz::require(reference::decoded(text).has_value(), "the text is UTF-8");
    fuzz::require(!isValidUtf8(bytes) || text == bytes, "UTF-8 stays as it is");
    fuzz::require(isPlain(plainLine(text)), "the line is plain");
    fuzz::require(plainLine(plainLine(text)) == plainLine(text), "a plain line stays as it is");
    fuzz::require(!isPlain(text) || plainLine(text) == text, "plain text stays as it is");
    fuzz::require(isPlain(escapedControls(text)), "escaped text is plain");
    return 0;
}

} // namespace voltmere
