#pragma once

#include <string>

namespace voltmere::year {

/// The texts of the program that the oracle expects, by its own names for them.
struct Texts {
    std::string waiting, noDevice, normal, lowDetail;
    std::string kinds[3];
    std::string separator;
    std::string titleBeforeName, titleAfterName, titleMany, titleNormal;
    std::string normalList, singleBefore, singleAfter, chargeSuffix;
    std::string firstAction, launchAtLogin;
};

const Texts& texts(bool chinese);

} // namespace voltmere::year
