#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

/// What a fuzzer calls with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace voltmere::fuzz {

/// Ends the program, as a crash does, when something does not hold that must.
inline void require(bool holds, const char* what)
{
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

inline std::string textOf(const std::uint8_t* data, std::size_t size)
{
    return {data, data + size};
}

/// Takes an input apart, piece by piece; what is missing at its end is empty or zero.
class Pieces {
public:
    Pieces(const std::uint8_t* data, std::size_t size)
        : rest(textOf(data, size))
    {
    }

    bool empty() const { return rest.empty(); }

    unsigned byte()
    {
        if (rest.empty()) {
            return 0;
        }
        const auto first = static_cast<unsigned char>(rest.front());
        rest.erase(0, 1);
        return first;
    }

    /// The text up to the next line feed.
    std::string line()
    {
        const std::string found = rest.substr(0, rest.find('\n'));
        rest.erase(0, found.size() + 1);
        return found;
    }

    std::string remainder() { return std::exchange(rest, {}); }

private:
    std::string rest;
};

} // namespace voltmere::fuzz
