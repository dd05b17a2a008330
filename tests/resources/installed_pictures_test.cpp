#include "tests/app/program_fixture.h"
#include "tests/resources/project_file.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QImage>
#include <QRegularExpression>

namespace voltmere {
namespace {

TEST(InstalledIconsTest, EachHasTheSizeOfItsFolder)
{
    const QDir theme(VOLTMERE_SOURCE_DIR "/resources/icons/hicolor");
    const QStringList folders = theme.entryList(QDir::Dirs | QDir::NoDotAndDotDot);

    EXPECT_THAT(folders, testing::IsSupersetOf<QString>({"16x16", "48x48", "512x512"}));
    for (const QString& folder : folders) {
        const QImage icon(theme.filePath(folder + "/apps/org.voltmere.Voltmere.png"));
        EXPECT_EQ(QString("%1x%2").arg(icon.width()).arg(icon.height()), folder)
            << folder.toStdString();
    }
}

class MetainfoPicturesTest : public ProgramTest { };

TEST_F(MetainfoPicturesTest, EachIsOneThatTheProgramDraws)
{
    const std::filesystem::path pictures = directory / "pictures";
    ASSERT_EQ(run({"--demo", "--screenshots", QString::fromStdString(pictures)}).status, 0);

    const QString metainfo = projectFile("resources/linux/org.voltmere.Voltmere.metainfo.xml");
    auto named = QRegularExpression(R"(/screenshots/([^<]+)</image>)").globalMatch(metainfo);
    ASSERT_TRUE(named.hasNext());
    while (named.hasNext()) {
        const std::string name = named.next().captured(1).toStdString();
        EXPECT_TRUE(std::filesystem::exists(pictures / name)) << name;
    }
}

} // namespace
} // namespace voltmere
