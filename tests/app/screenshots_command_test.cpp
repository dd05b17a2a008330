// Runs the built program. The tools that it reads are synthetic.

#include "tests/app/program_fixture.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QImage>
#include <QSet>

namespace voltmere {
namespace {

using testing::MatchesRegex;

/// Whether anything is drawn: a picture of one colour is an empty one.
bool isBlank(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, 0)) {
                return false;
            }
        }
    }
    return true;
}

class ScreenshotsCommandTest : public ProgramTest {
protected:
    std::filesystem::path album() const { return directory / "album"; }

    Outcome draw(const std::filesystem::path& where) const
    {
        return run({"--screenshots", QString::fromStdString(where), "--tools",
                    QString::fromStdString(tools())});
    }

    static QStringList pictures(const std::filesystem::path& where)
    {
        return QDir(QString::fromStdString(where)).entryList(QDir::Files, QDir::Name);
    }

    /// The names of the pictures of both languages and schemes.
    static QStringList expectedPictures()
    {
        QStringList expected;
        for (const char* const scheme : {"light", "dark"}) {
            expected << QString("menu-bar-%1.png").arg(scheme)
                     << QString("tray-%1.png").arg(scheme);
            for (const char* const language : {"zh", "en"}) {
                for (const char* const window :
                     {"panel", "alert-one-low", "alert-two-low", "alert-three-low-long-names",
                      "alert-all-good", "alert-no-device"}) {
                    expected << QString("%1-%2-%3.png").arg(window, language, scheme);
                }
            }
        }
        expected.sort();
        return expected;
    }

    QImage picture(const QString& name) const
    {
        QImage image(QString::fromStdString(album() / name.toStdString()));
        EXPECT_FALSE(image.isNull()) << name.toStdString();
        return image;
    }
};

TEST_F(ScreenshotsCommandTest, DrawsEveryPictureIntoADirectoryThatItMakes)
{
    makeTools();
    const Outcome outcome = draw(album() / "deeper");

    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(pictures(album() / "deeper"), expectedPictures());
}

TEST_F(ScreenshotsCommandTest, NoSessionIsNeeded)
{
    makeTools();
    variables["XDG_RUNTIME_DIR"] = "";

    EXPECT_EQ(draw(album()).errors, "");
}

TEST_F(ScreenshotsCommandTest, NoPictureIsEmptyAndEachIsOfItsOwn)
{
    makeTools();
    ASSERT_EQ(draw(album()).status, 0);

    QStringList repeated;
    QList<QImage> seen;
    for (const QString& name : pictures(album())) {
        const QImage image = picture(name);
        EXPECT_FALSE(isBlank(image)) << name.toStdString();
        if (seen.contains(image)) {
            repeated << name;
        }
        seen << image;
    }
    EXPECT_TRUE(repeated.isEmpty()) << repeated.join(' ').toStdString();
    EXPECT_EQ(picture("panel-en-light.png").width(), 320);
    EXPECT_GT(picture("panel-en-light.png").pixelColor(2, 2).lightness(), 128);
    EXPECT_LT(picture("panel-en-dark.png").pixelColor(2, 2).lightness(), 128);
}

TEST_F(ScreenshotsCommandTest, WithoutPeripheralsTheIconsAreDrawnAllTheSame)
{
    const Outcome outcome = draw(album());

    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    for (const char* const name : {"menu-bar-light.png", "tray-dark.png"}) {
        EXPECT_FALSE(isBlank(picture(name))) << name;
    }
    const QImage without = picture("tray-light.png");
    makeTools();
    ASSERT_EQ(draw(album()).status, 0);
    EXPECT_NE(picture("tray-light.png"), without);
}

TEST_F(ScreenshotsCommandTest, TheUsersSettingsAreLeftAlone)
{
    makeTools();
    writeFile(settings(), "damaged");
    const Outcome outcome = draw(album());

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(readFile(settings()), "damaged");
}

TEST_F(ScreenshotsCommandTest, ADirectoryThatCannotBeMadeOrWrittenToIsSaidInOneLine)
{
    makeTools();
    writeFile(directory / "file", "");
    const Outcome unmade = draw(directory / "file" / "album");
    const Outcome unwritten = draw("/proc"); // read-only for the superuser too

    EXPECT_EQ(unmade.status, 1);
    EXPECT_EQ(unmade.output, "");
    EXPECT_THAT(unmade.errors, MatchesRegex("voltmere: [^\n]*file/album[^\n]*\n"));
    EXPECT_EQ(unwritten.status, 1);
    EXPECT_THAT(unwritten.errors, MatchesRegex("voltmere: cannot write /proc/[^\n]*\n"));
}

} // namespace
} // namespace voltmere
