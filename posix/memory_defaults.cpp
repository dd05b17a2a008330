#include "posix/memory_defaults.h"

#include "ports/settings.h"

#include <utility>

namespace voltmere {

template<typename Type>
const Type* MemoryDefaults::find(std::string_view key) const
{
    const auto found = values.find(key);
    return found == values.end() ? nullptr : std::get_if<Type>(&found->second);
}

std::optional<std::int64_t> MemoryDefaults::integer(std::string_view key) const
{
    if (const auto* whole = find<std::int64_t>(key)) {
        return *whole;
    }
    if (const auto* real = find<double>(key)) {
        return exactInteger(*real);
    }
    if (const auto* flag = find<bool>(key)) {
        return *flag ? 1 : 0;
    }
    return std::nullopt;
}

std::optional<std::string> MemoryDefaults::text(std::string_view key) const
{
    const auto* value = find<std::string>(key);
    return value == nullptr ? std::nullopt : std::optional(*value);
}

void MemoryDefaults::setInteger(std::string_view key, std::int64_t value)
{
    set(key, value);
}

void MemoryDefaults::setBoolean(std::string_view key, bool value)
{
    set(key, value);
}

void MemoryDefaults::set(std::string_view key, Value value)
{
    values.insert_or_assign(std::string(key), std::move(value));
}

} // namespace voltmere
