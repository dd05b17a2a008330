#pragma once

#include <random>
#include <string>
#include <vector>

namespace voltmere {

/// Makes text that is nearly what a parser expects: pieces put together, then damaged a little. The
/// same seed gives the same texts on every machine.
class TextMutator {
public:
    TextMutator(std::vector<std::string> pieces, unsigned seed);

    std::string next();

private:
    std::size_t below(std::size_t limit);
    const std::string& anyPiece();
    void damage(std::string& text);

    std::vector<std::string> pieces;
    std::mt19937 random;
};

} // namespace voltmere
