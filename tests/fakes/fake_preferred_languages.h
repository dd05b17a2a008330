#pragma once

#include "ports/desktop.h"
#include "texts/l10n.h"

#include <utility>

namespace voltmere {

/// A user with the given languages.
class FakePreferredLanguages : public PreferredLanguages {
public:
    explicit FakePreferredLanguages(std::vector<std::string> wanted = {})
        : wanted(std::move(wanted))
    {
    }

    std::vector<std::string> tags() const override { return wanted; }

    std::vector<std::string> wanted;
};

/// Sets the process's interface language for one test and puts back what was there.
class LanguageGuard {
public:
    explicit LanguageGuard(std::string setting, const PreferredLanguages* languages = nullptr)
        : previous(std::exchange(L10n::setting, std::move(setting)))
    {
        L10n::usePreferredLanguages(languages);
    }

    ~LanguageGuard()
    {
        L10n::setting = previous;
        L10n::usePreferredLanguages(nullptr);
    }

    LanguageGuard(const LanguageGuard&) = delete;
    LanguageGuard& operator=(const LanguageGuard&) = delete;

private:
    std::string previous;
};

} // namespace voltmere
