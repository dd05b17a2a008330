#include "app/terminal_width.h"

#include "devices/utf8.h"

#include <clocale>
#include <cwchar>

namespace voltmere {

namespace {

/// Makes the thread's characters Unicode for a moment, whatever the user's locale is.
class UnicodeLocale {
public:
    UnicodeLocale()
        : unicode(::newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{}))
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
