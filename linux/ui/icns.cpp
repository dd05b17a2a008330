#include "linux/ui/icns.h"

#include <QByteArrayView>
#include <QtEndian>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

namespace voltmere {

namespace {

constexpr qsizetype headingSize = 8;

/// A type and the data that follow its length.
struct Chunk {
    QByteArrayView type;
    QByteArrayView data;
};

quint32 bigEndianNumber(QByteArrayView bytes, qsizetype offset)
{
    return qFromBigEndian<quint32>(bytes.sliced(offset, sizeof(quint32)).data());
}

/// The chunk at the start of `bytes`, if it is whole.
std::optional<Chunk> firstChunk(QByteArrayView bytes)
{
    if (bytes.size() < headingSize) {
        return std::nullopt;
    }
    const qsizetype length = bigEndianNumber(bytes, 4);
    if (length < headingSize || length > bytes.size()) {
        return std::nullopt;
    }
    return Chunk{bytes.first(4), bytes.sliced(headingSize, length - headingSize)};
}

/// The chunks of a container; none if any of them is not whole.
std::vector<Chunk> chunksOf(QByteArrayView container)
{
    const std::optional<Chunk> whole = firstChunk(container);
    if (!whole || whole->type != "icns") {
        return {};
    }
    std::vector<Chunk> chunks;
    for (QByteArrayView rest = whole->data; !rest.isEmpty();) {
        const std::optional<Chunk> chunk = firstChunk(rest);
        if (!chunk) {
            return {};
        }
        chunks.push_back(*chunk);
        rest = rest.sliced(headingSize + chunk->data.size());
    }
    return chunks;
}

/// The width that a PNG's header gives, in pixels; 0 for anything that is no PNG.
int pngWidth(QByteArrayView data)
{
    constexpr QByteArrayView signature("\x89PNG\r\n\x1a\n");
    constexpr qsizetype widthOffset = 16;
    constexpr quint32 widestSensible = 4096;
    if (data.size() < widthOffset + qsizetype{sizeof(quint32)} || !data.startsWith(signature)) {
        return 0;
    }
    const quint32 width = bigEndianNumber(data, widthOffset);
    return width <= widestSensible ? static_cast<int>(width) : 0;
}

} // namespace

std::vector<IcnsPicture> icnsPictures(const QByteArray& container, int pixels)
{
    std::vector<IcnsPicture> pictures;
    for (const Chunk& chunk : chunksOf(container)) {
        if (const int width = pngWidth(chunk.data); width > 0) {
            pictures.push_back(
                {width, QByteArray::fromRawData(chunk.data.data(), chunk.data.size())});
        }
    }
    std::ranges::stable_sort(pictures, {}, [pixels](const IcnsPicture& picture) {
        return std::pair(picture.side < pixels, std::abs(picture.side - pixels));
    });
    return pictures;
}

} // namespace voltmere
