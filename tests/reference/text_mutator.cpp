#include "reference/text_mutator.h"

#include <utility>

namespace voltmere {

TextMutator::TextMutator(std::vector<std::string> pieces, unsigned seed)
    : pieces(std::move(pieces))
    , random(seed)
{
}

std::string TextMutator::next()
{
    std::string text;
    for (std::size_t count = below(16); count > 0; --count) {
        text += anyPiece();
    }
    for (std::size_t count = below(4); count > 0; --count) {
        damage(text);
    }
    return text;
}

/// The engine's own numbers, since the library's distributions differ between its makers.
std::size_t TextMutator::below(std::size_t limit)
{
    return random() % limit;
}

const std::string& TextMutator::anyPiece()
{
    return pieces[below(pieces.size())];
}

void TextMutator::damage(std::string& text)
{
    const std::size_t place = below(text.size() + 1);
    switch (below(5)) {
    case 0:
        text.insert(place, anyPiece());
        break;
    case 1:
        text.erase(place, below(8));
        break;
    case 2:
        text.insert(place, text.substr(below(text.size() + 1), below(24)));
        break;
    case 3:
        text.insert(place, 1, static_cast<char>(below(256)));
        break;
    default:
        text.resize(place);
        break;
    }
}

} // namespace voltmere
