#pragma once

#include "ports/settings.h"

#include <map>
#include <variant>

namespace voltmere {

/// Settings that last as long as the process.
class MemoryDefaults : public DefaultsStore {
public:
    using Value = std::variant<bool, std::int64_t, double, std::string>;

    std::optional<std::int64_t> integer(std::string_view key) const override;
    std::optional<std::string> text(std::string_view key) const override;
    void setInteger(std::string_view key, std::int64_t value) override;
    void setBoolean(std::string_view key, bool value) override;

    virtual void set(std::string_view key, Value value);

private:
    template<typename Type>
    const Type* find(std::string_view key) const;

    std::map<std::string, Value, std::less<>> values;
};

} // namespace voltmere
