#pragma once

#include <string>
#include <vector>

namespace voltmere {

/// The user's languages as tags such as "zh-Hans-CN" or "en-GB", the most wanted first.
/// Empty when the user asked for none.
class PreferredLanguages {
public:
    virtual ~PreferredLanguages() = default;

    virtual std::vector<std::string> tags() const = 0;
};

} // namespace voltmere
