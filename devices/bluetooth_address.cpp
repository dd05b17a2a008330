#include "devices/bluetooth_address.h"

#include <algorithm>

namespace voltmere {

std::string upperCased(std::string_view address)
{
    std::string upper(address);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return upper;
}

std::string normalisedAddress(std::string_view address)
{
    std::string normalised = upperCased(address);
    std::replace(normalised.begin(), normalised.end(), '-', ':');
    return normalised;
}

} // namespace voltmere
