#pragma once

#include <QByteArray>

#include <vector>

namespace voltmere {

/// One picture of an icon container.
struct IcnsPicture {
    int side;       ///< pixels
    QByteArray png; ///< refers to the container's bytes, which must outlive it
};

/// The PNG pictures in `container`, a file in Apple's icns format, best first for a square of
/// `pixels` a side: the smallest that is large enough, then larger ones, then the largest of the
/// smaller ones. Pictures in older encodings are passed over. A container that is cut short or
/// whose lengths do not add up gives none.
///
/// The format: the magic "icns" and the length of the whole; then chunks of a four-letter type, the
/// chunk's length and its data. Lengths are big-endian and count their own eight bytes of heading.
std::vector<IcnsPicture> icnsPictures(const QByteArray& container, int pixels);

} // namespace voltmere
