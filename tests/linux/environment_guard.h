#pragma once

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace voltmere {

/// Sets variables of the environment, or unsets those without a value, and puts back what was
/// there.
class EnvironmentGuard {
public:
    using Variables = std::map<std::string, std::optional<std::string>>;

    explicit EnvironmentGuard(const Variables& variables)
    {
        for (const auto& [name, value] : variables) {
            const char* const found = std::getenv(name.c_str());
            previous[name] = found == nullptr ? std::nullopt : std::optional<std::string>(found);
        }
        set(variables);
    }

    ~EnvironmentGuard() { set(previous); }

    EnvironmentGuard(const EnvironmentGuard&) = delete;
    EnvironmentGuard& operator=(const EnvironmentGuard&) = delete;

private:
    static void set(const Variables& variables)
    {
        for (const auto& [name, value] : variables) {
            value ? ::setenv(name.c_str(), value->c_str(), 1) : ::unsetenv(name.c_str());
        }
    }

    Variables previous;
};

} // namespace voltmere
