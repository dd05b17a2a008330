#include "fuzz/fuzz_target.h"
#include "texts/l10n.h"

#include <algorithm>
#include <optional>

namespace voltmere {

namespace {

using Arguments = std::vector<L10n::Argument>;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The integer that "%N$d" at the start of `format` names, and how long that placeholder is.
struct Numbered {
    std::optional<std::int64_t> value;
    std::size_t length = 0;
};

Numbered numberedAt(const std::string& format, const Arguments& arguments)
{
    std::size_t end = 1;
    std::size_t number = 0;
    while (end < format.size() && isDigit(format[end])) {
        // No list of arguments is that long; larger numbers only have to stay so.
        number = std::min<std::size_t>(number * 10 + static_cast<std::size_t>(format[end] - '0'),
                                       1'000'000);
        ++end;
    }
    if (end == 1 || format.substr(end, 2) != "$d" || number == 0 || number > arguments.size()) {
        return {};
    }
    const auto* value = std::get_if<std::int64_t>(&arguments[number - 1]);
    return value == nullptr ? Numbered{} : Numbered{*value, end + 2};
}

/// The rules, one character at a time.
std::string plainlyFormatted(std::string format, const Arguments& arguments)
{
    std::string text;
    std::size_t next = 0;
    while (!format.empty()) {
        const Numbered numbered = format[0] == '%' ? numberedAt(format, arguments) : Numbered{};
        if (format.substr(0, 2) == "%%") {
            text += '%';
            format = format.substr(2);
        } else if (format.substr(0, 2) == "%@" && next < arguments.size() &&
                   std::holds_alternative<std::string>(arguments[next])) {
            text += std::get<std::string>(arguments[next]);
            ++next;
            format = format.substr(2);
        } else if (numbered.value) {
            text += std::to_string(*numbered.value);
            format = format.substr(numbered.length);
        } else {
            text += format[0];
            format = format.substr(1);
        }
    }
    return text;
}

} // namespace

/// A format and its arguments give the text that the rules give, one character at a time. The first
/// byte says which arguments are integers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Pieces pieces(data, size);
    const unsigned kinds = pieces.byte();
    Arguments arguments;
    for (unsigned index = 0; index < kinds % 4; ++index) {
        const std::string given = pieces.line();
        if ((kinds >> (2 + index)) % 2 != 0) {
            arguments.emplace_back(static_cast<std::int64_t>(given.size()) - 8);
        } else {
            arguments.emplace_back(given);
        }
    }
    const std::string format = pieces.remainder();
    fuzz::require(L10n::format(format, arguments) == plainlyFormatted(format, arguments),
                  "the rules' text");
    return 0;
}

} // namespace voltmere
