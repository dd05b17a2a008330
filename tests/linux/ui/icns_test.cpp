#include "linux/ui/pictures.h"

#include "linux/ui/icns.h"

#include <gmock/gmock.h>

#include <memory>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<int> sidesOf(const QByteArray& container, int pixels)
{
    std::vector<int> sides;
    for (const IcnsPicture& picture : icnsPictures(container, pixels)) {
        sides.push_back(picture.side);
    }
    return sides;
}

QByteArray threeSizes()
{
    return icnsOf({pngOf(Qt::red, 64), pngOf(Qt::green, 16), pngOf(Qt::blue, 32)});
}

TEST(Icns, TheSmallestPictureThatIsLargeEnoughComesFirst)
{
    EXPECT_THAT(sidesOf(threeSizes(), 20), ElementsAre(32, 64, 16));
    EXPECT_THAT(sidesOf(threeSizes(), 32), ElementsAre(32, 64, 16));
    EXPECT_THAT(sidesOf(threeSizes(), 33), ElementsAre(64, 32, 16));
    EXPECT_THAT(sidesOf(threeSizes(), 1), ElementsAre(16, 32, 64));
}

TEST(Icns, TheLargestPictureComesFirstWhereNoneIsLargeEnough)
{
    EXPECT_THAT(sidesOf(threeSizes(), 65), ElementsAre(64, 32, 16));
}

TEST(Icns, APictureIsThePngAsItStands)
{
    const QByteArray container = threeSizes();
    EXPECT_EQ(icnsPictures(container, 16).front().png, pngOf(Qt::green, 16));
}

TEST(Icns, ChunksThatAreNoPngArePassedOver)
{
    const QByteArray container = icnsChunk("icns",
                                           icnsChunk("TOC ", "ic07....") + icnsChunk("it32", "") +
                                               icnsChunk("ic07", pngOf(Qt::red, 16)));
    EXPECT_THAT(sidesOf(container, 16), ElementsAre(16));
}

TEST(Icns, APngWithoutASensibleWidthIsPassedOver)
{
    for (const quint32 width : {0U, 4097U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        QByteArray png = pngOf(Qt::red, 16);
        png.replace(16, 4, bigEndian(width));
        EXPECT_THAT(sidesOf(icnsOf({png}), 16), IsEmpty()) << width;
    }
}

TEST(Icns, WhatFollowsTheContainerDoesNotCount)
{
    EXPECT_THAT(sidesOf(threeSizes() + "more", 64), ElementsAre(64, 32, 16));
}

TEST(Icns, AContainerCutShortAnywhereGivesNothing)
{
    const QByteArray whole = threeSizes();
    for (qsizetype length = 0; length < whole.size(); ++length) {
        // Memory of just that length, so that a sanitizer sees a read beyond it.
        const auto memory = std::make_unique<char[]>(static_cast<std::size_t>(length));
        std::copy_n(whole.data(), length, memory.get());
        EXPECT_THAT(sidesOf(QByteArray::fromRawData(memory.get(), length), 32), IsEmpty())
            << length;
    }
}

TEST(Icns, AnotherMagicGivesNothing)
{
    EXPECT_THAT(sidesOf(icnsChunk("icnS", icnsChunk("ic07", pngOf(Qt::red, 16))), 16), IsEmpty());
    EXPECT_THAT(sidesOf(pngOf(Qt::red, 16), 16), IsEmpty());
}

class IcnsLength : public testing::TestWithParam<quint32> { };

TEST_P(IcnsLength, OfTheContainerThatIsWrongGivesNothing)
{
    QByteArray container = threeSizes();
    container.replace(4, 4, bigEndian(GetParam()));
    EXPECT_THAT(sidesOf(container, 16), IsEmpty());
}

TEST_P(IcnsLength, OfAChunkThatIsWrongGivesNothing)
{
    QByteArray container = threeSizes();
    container.replace(12, 4, bigEndian(GetParam()));
    EXPECT_THAT(sidesOf(container, 16), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(EachWay, IcnsLength,
                         testing::Values(0U, 1U, 7U, 100'000U, 0x7FFFFFFFU, 0x80000000U,
                                         0xFFFFFFF8U, 0xFFFFFFFFU));

TEST(Icns, AHeaderAloneHasNoPictures)
{
    EXPECT_THAT(sidesOf(icnsOf({}), 16), IsEmpty());
}

TEST(Icns, APngThatEndsWithinItsHeaderIsPassedOver)
{
    const QByteArray png = pngOf(Qt::red, 16);
    for (qsizetype length = 0; length < 20; ++length) {
        EXPECT_THAT(sidesOf(icnsOf({png.first(length)}), 16), IsEmpty()) << length;
    }
}

} // namespace
} // namespace voltmere
