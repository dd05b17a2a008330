#include "texts/l10n.h"

#include <algorithm>
#include <charconv>

namespace voltmere {

namespace {

/// Walks a format once, from left to right, and builds the result.
class Formatter {
public:
    Formatter(std::string_view format, const std::vector<L10n::Argument>& arguments)
        : rest(format)
        , arguments(arguments)
    {
    }

    std::string result()
    {
        while (!rest.empty()) {
            const std::size_t percent = std::min(rest.find('%'), rest.size());
            take(percent, rest.substr(0, percent));
            if (!rest.empty() && !takePlaceholder()) {
                take(1, "%");
            }
        }
        return text;
    }

private:
    bool takePlaceholder()
    {
        if (rest.starts_with("%%")) {
            take(2, "%");
            return true;
        }
        if (rest.starts_with("%@")) {
            return takeText();
        }
        return takeInteger();
    }

    bool takeText()
    {
        if (next >= arguments.size()) {
            return false;
        }
        const auto* value = std::get_if<std::string>(&arguments[next]);
        if (value == nullptr) {
            return false;
        }
        ++next;
        take(2, *value);
        return true;
    }

    bool takeInteger()
    {
        std::size_t position = 0;
        const char* const begin = rest.data() + 1;
        const char* const end = rest.data() + rest.size();
        const auto [after, error] = std::from_chars(begin, end, position);
        if (error != std::errc{} || !std::string_view(after, end).starts_with("$d") ||
            position == 0 || position > arguments.size()) {
            return false;
        }
        const auto* value = std::get_if<std::int64_t>(&arguments[position - 1]);
        if (value == nullptr) {
            return false;
        }
        const auto length = static_cast<std::size_t>(after - rest.data()) + 2;
        take(length, std::to_string(*value));
        return true;
    }

    void take(std::size_t length, std::string_view replacement)
    {
        text += replacement;
        rest.remove_prefix(length);
    }

    std::string_view rest;
    const std::vector<L10n::Argument>& arguments;
    std::size_t next = 0;
    std::string text;
};

} // namespace

std::string L10n::format(std::string_view format, const std::vector<Argument>& arguments)
{
    return Formatter(format, arguments).result();
}

} // namespace voltmere
