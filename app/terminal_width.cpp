#include "app/terminal_width.h"

#include "texts/utf8.h"

#include <clocale>
#include <cwchar>
#if __has_include(<xlocale.h>)
#include <xlocale.h> // where macOS declares what POSIX has in locale.h
#endif

namespace voltmere {

namespace {

/// A locale whose characters are Unicode; null where there is none. Not every system has the first.
locale_t makeUnicodeLocale()
{
    for (const char* const name : {"C.UTF-8", "en_US.UTF-8"}) {
        if (const locale_t locale = ::newlocale(LC_CTYPE_MASK, name, locale_t{})) {
            return locale;
        }
    }
    return {};
}

/// Makes the thread's characters Unicode for a moment, whatever the user's locale is.
class UnicodeLocale {
public:
    UnicodeLocale()
        : unicode(makeUnicodeLocale())
        , previous(unicode == locale_t{} ? locale_t{} : ::uselocale(unicode))
    {
    }

    ~UnicodeLocale()
    {
        if (unicode != locale_t{}) {
            ::uselocale(previous);
            ::freelocale(unicode);
        }
    }

    UnicodeLocale(const UnicodeLocale&) = delete;
    UnicodeLocale& operator=(const UnicodeLocale&) = delete;

private:
    locale_t unicode;
    locale_t previous;
};

} // namespace

std::size_t terminalWidth(std::string_view text)
{
    const UnicodeLocale locale;
    std::size_t width = 0;
    while (!text.empty()) {
        const Utf8Scalar scalar = firstScalar(text);
        const int columns = ::wcwidth(static_cast<wchar_t>(scalar.value));
        width += scalar.length > 0 && columns >= 0 ? static_cast<std::size_t>(columns) : 1;
        text.remove_prefix(scalar.length > 0 ? scalar.length : 1);
    }
    return width;
}

} // namespace voltmere
