#include "fuzz/fuzz_target.h"
#include "reference/reference_text.h"
#include "texts/plain_text.h"

namespace voltmere {

namespace {

/// What a terminal may obey, what turns the direction, and what nobody sees.
bool isHidden(char32_t c)
{
    constexpr std::u32string_view single = U"\u00AD\u061C\u200B\u200E\u200F\u2060\uFEFF";
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x2028 && c <= 0x202E) ||
        (c >= 0x2066 && c <= 0x2069) || (c >= 0xE0000 && c <= 0xE007F) ||
        single.find(c) != std::u32string_view::npos;
}

bool isPlain(const std::string& text)
{
    const auto characters = reference::decoded(text);
    if (!characters) {
        return false;
    }
    for (const char32_t c : *characters) {
        if (isHidden(c)) {
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
    fuzz::require(isPlain(plainText(bytes)), "the line is plain");
    fuzz::require(plainText(plainText(text)) == plainText(text), "a plain line stays as it is");
    fuzz::require(!isPlain(text) || plainText(text) == text, "plain text stays as it is");
    fuzz::require(isPlain(escapedJson(text)), "escaped text is plain");
    return 0;
}

} // namespace voltmere
