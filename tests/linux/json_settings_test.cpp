#include "linux/qt_defaults.h"

#include "tests/fakes/recording_log.h"
#include "tests/linux/obstructed_file_system.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <sys/file.h>
#include <sys/stat.h>

#include <cstdint>

namespace voltmere {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;
using testing::StartsWith;

class JsonSettingsTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(directory.isValid()); }

    QString path() const { return directory.filePath("settings.json"); }

    void put(const QByteArray& content)
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(file.write(content), content.size());
    }

    static QByteArray contentOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    static mode_t modeOf(const QString& path)
    {
        struct stat status { };
        EXPECT_EQ(::stat(path.toLocal8Bit().constData(), &status), 0) << path.toStdString();
        return status.st_mode & 07777;
    }

    QJsonObject saved() const
    {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(contentOf(path()), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
        EXPECT_TRUE(document.isObject());
        return document.object();
    }

    QtDefaults open()
    {
        return QtDefaults(openJsonSettings(path(), SettingsUse::readAndWrite, log), log);
    }

    /// Settings whose file holds `json` under "key".
    QtDefaults holding(const QByteArray& json)
    {
        put("{\"key\": " + json + ", \"padding\": \"" + QByteArray(++fileCount, 'x') + "\"}");
        return open();
    }

    QStringList files() const
    {
        return QDir(directory.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QStringList damagedCopies() const
    {
        return QDir(directory.path()).entryList({"settings.json.damaged-*"}, QDir::Files);
    }

    QTemporaryDir directory;
    RecordingLog log;

private:
    /// Makes every file of a test another size, since a time stamp may be too coarse to tell them
    /// apart.
    int fileCount = 0;
};

TEST_F(JsonSettingsTest, WholeNumbersOfAnyFormAreIntegers)
{
    EXPECT_THAT(holding("35").integer("key"), Optional(35));
    EXPECT_THAT(holding("35.0").integer("key"), Optional(35));
    EXPECT_THAT(holding("3.5e1").integer("key"), Optional(35));
    EXPECT_THAT(holding("-7").integer("key"), Optional(-7));
    EXPECT_THAT(holding("2147483648").integer("key"), Optional(2147483648));
    EXPECT_THAT(holding("9223372036854775807").integer("key"), Optional(INT64_MAX));
    EXPECT_THAT(holding("-9223372036854775808").integer("key"), Optional(INT64_MIN));
    EXPECT_THAT(holding("true").integer("key"), Optional(1));
    EXPECT_THAT(holding("false").integer("key"), Optional(0));
}

TEST_F(JsonSettingsTest, WhatIsNoWholeNumberOf64BitsIsNoInteger)
{
    for (const char* const json : {"20.5", "9223372036854775808", "-1e300", "\"35\"", "\"\"",
                                   "null", "[35]", "{\"value\": 35}"}) {
        EXPECT_EQ(holding(json).integer("key"), std::nullopt) << json;
    }
}

TEST_F(JsonSettingsTest, BooleansAndTheNumbers0And1AreBooleans)
{
    EXPECT_THAT(holding("true").boolean("key"), Optional(true));
    EXPECT_THAT(holding("false").boolean("key"), Optional(false));
    EXPECT_THAT(holding("1").boolean("key"), Optional(true));
    EXPECT_THAT(holding("0").boolean("key"), Optional(false));
    EXPECT_THAT(holding("1.0").boolean("key"), Optional(true));
    for (const char* const json : {"2", "-1", "0.5", "\"true\"", "\"1\"", "null", "[]"}) {
        EXPECT_EQ(holding(json).boolean("key"), std::nullopt) << json;
    }
}

TEST_F(JsonSettingsTest, OnlyATextIsAText)
{
    EXPECT_THAT(holding("\"zh\"").text("key"), Optional(std::string("zh")));
    EXPECT_THAT(holding("\"数字\\n\\u0000x\"").text("key"), Optional(std::string("数字\n\0x", 9)));
    for (const char* const json : {"1", "1.5", "true", "null", "[\"zh\"]", "{\"a\": \"b\"}"}) {
        EXPECT_EQ(holding(json).text("key"), std::nullopt) << json;
    }
}

TEST_F(JsonSettingsTest, AnAbsentKeyYieldsNothing)
{
    const QtDefaults defaults = holding("1");

    EXPECT_EQ(defaults.integer("other"), std::nullopt);
    EXPECT_EQ(defaults.boolean("other"), std::nullopt);
    EXPECT_EQ(defaults.text("other"), std::nullopt);
    EXPECT_EQ(defaults.integer("KEY"), std::nullopt);
}

TEST_F(JsonSettingsTest, ReadingAMissingFileCreatesNothing)
{
    {
        const QtDefaults defaults(openJsonSettings(directory.filePath("voltmere/settings.json"),
                                                   SettingsUse::readAndWrite, log),
                                  log);
        EXPECT_EQ(defaults.integer("threshold"), std::nullopt);
        EXPECT_EQ(defaults.boolean("enabled"), std::nullopt);
        EXPECT_EQ(defaults.text("language"), std::nullopt);
    }
    EXPECT_EQ(files(), QStringList());
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(JsonSettingsTest, ReadingLeavesTheFileAsItIs)
{
    const QByteArray content = "{ \"threshold\":35.0,\n\n \"language\" : \"zh\" }";
    put(content);

    EXPECT_THAT(open().integer("threshold"), Optional(35));

    EXPECT_EQ(contentOf(path()), content);
    EXPECT_EQ(files(), QStringList("settings.json"));
}

TEST_F(JsonSettingsTest, TheFirstWriteCreatesTheFileAndItsDirectory)
{
    const QString nested = directory.filePath("voltmere/settings.json");
    QtDefaults(openJsonSettings(nested, SettingsUse::readAndWrite, log), log)
        .setInteger("threshold", 25);

    const QJsonObject object = QJsonDocument::fromJson(contentOf(nested)).object();

    EXPECT_EQ(object, (QJsonObject{{"threshold", 25}}));
    EXPECT_EQ(QDir(directory.filePath("voltmere")).entryList(QDir::Files | QDir::Hidden),
              QStringList("settings.json"));
}

TEST_F(JsonSettingsTest, ValuesStayTypedAfterARoundTrip)
{
    {
        QtDefaults defaults = open();
        defaults.setInteger("threshold", 35);
        defaults.setInteger("largest", INT64_MAX);
        defaults.setBoolean("enabled", true);
        defaults.setBoolean("instantEnabled", false);
    }
    EXPECT_TRUE(saved().value("threshold").isDouble());
    EXPECT_TRUE(saved().value("enabled").isBool());
    EXPECT_TRUE(saved().value("instantEnabled").isBool());

    const QtDefaults defaults = open();
    EXPECT_THAT(defaults.integer("threshold"), Optional(35));
    EXPECT_THAT(defaults.integer("largest"), Optional(INT64_MAX));
    EXPECT_THAT(defaults.boolean("enabled"), Optional(true));
    EXPECT_THAT(defaults.boolean("instantEnabled"), Optional(false));
    EXPECT_EQ(defaults.boolean("threshold"), std::nullopt);
}

TEST_F(JsonSettingsTest, WhatIsNotNamedSurvivesASave)
{
    const QJsonObject nested{{"list", QJsonArray{1, "two", true, QJsonValue::Null}},
                             {"deeper", QJsonObject{{"real", 1.5}, {"empty", QJsonObject()}}}};
    const QJsonObject before{{"language", "zh"},      {"threshold", 20},
                             {"enabled", true},       {"nested", nested},
                             {"unknown/key", "数字"}, {"a b=c%d", -1},
                             {"real", 20.5},          {"nothing", QJsonValue::Null}};
    put(QJsonDocument(before).toJson());

    open().setInteger("threshold", 40);

    QJsonObject expected = before;
    expected["threshold"] = 40;
    EXPECT_EQ(QJsonDocument(saved()).toJson().toStdString(),
              QJsonDocument(expected).toJson().toStdString());
    EXPECT_THAT(open().text("language"), Optional(std::string("zh")));
}

TEST_F(JsonSettingsTest, KeysOfAnotherWriterAreKept)
{
    put("{\"threshold\": 20}");
    {
        QtDefaults first = open();
        EXPECT_THAT(first.integer("threshold"), Optional(20));
        put("{\"threshold\": 20, \"language\": \"en\"}");
        open().setBoolean("enabled", false);
        first.setInteger("threshold", 50);
    }

    EXPECT_EQ(saved(), (QJsonObject{{"threshold", 50}, {"language", "en"}, {"enabled", false}}));
}

TEST_F(JsonSettingsTest, ALockOfAProgramThatWasKilledWhileMakingItIsRemoved)
{
    QFile lock(path() + ".lock");
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.close();

    open();

    EXPECT_FALSE(lock.exists());
}

TEST_F(JsonSettingsTest, ALockThatIsHeldStays)
{
    QFile lock(path() + ".lock");
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    ASSERT_EQ(::flock(lock.handle(), LOCK_EX), 0);

    open();

    EXPECT_TRUE(lock.exists());
}

TEST_F(JsonSettingsTest, ALockThatNamesItsHolderStays)
{
    QFile lock(path() + ".lock");
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write("1\n");
    lock.close();

    open();

    EXPECT_TRUE(lock.exists());
}

TEST_F(JsonSettingsTest, AnEmptyFileIsNoDamage)
{
    for (const char* const content : {"", " \n\t\r\n "}) {
        put(content);
        EXPECT_EQ(open().integer("threshold"), std::nullopt);
    }
    EXPECT_THAT(log.lines, IsEmpty());
    EXPECT_EQ(files(), QStringList("settings.json"));
}

class DamagedSettingsTest : public JsonSettingsTest,
                            public testing::WithParamInterface<QByteArray> { };

TEST_P(DamagedSettingsTest, AreSetAsideByteForByteAndTheDefaultsAreUsed)
{
    put(GetParam());
    {
        QtDefaults defaults = open();
        EXPECT_EQ(defaults.integer("threshold"), std::nullopt);
        EXPECT_EQ(defaults.text("language"), std::nullopt);

        ASSERT_EQ(damagedCopies().size(), 1);
        EXPECT_EQ(contentOf(directory.filePath(damagedCopies().first())), GetParam());
        ASSERT_THAT(log.lines, SizeIs(1));
        EXPECT_THAT(log.lines.front(), HasSubstr(path().toStdString()));
        EXPECT_THAT(log.lines.front(),
                    HasSubstr(directory.filePath(damagedCopies().first()).toStdString()));
        EXPECT_THAT(log.lines.front(), testing::Not(HasSubstr("\n")));

        defaults.setInteger("threshold", 45);
        defaults.setBoolean("enabled", false);
    }
    EXPECT_EQ(saved(), (QJsonObject{{"threshold", 45}, {"enabled", false}}));
    EXPECT_THAT(open().integer("threshold"), Optional(45));
    EXPECT_EQ(damagedCopies().size(), 1);
    EXPECT_THAT(log.lines, SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(
    JsonSettingsTest, DamagedSettingsTest,
    testing::Values(QByteArray("{\"threshold\": 35, \"langu"), QByteArray("[{\"threshold\": 35}]"),
                    QByteArray("\x00\x01\xFF\xFE\x7F{}\n", 8), QByteArray("\"35\""),
                    QByteArray("threshold=35\n"), QByteArray("{\"threshold\": 35} {}"),
                    QByteArray("{\"threshold\": 035}"), QByteArray(4096, '\0')));

TEST_F(JsonSettingsTest, DamageThatComesBetweenOpeningAndSavingIsSetAsideByteForByteToo)
{
    put("{\"threshold\": 20, \"language\": \"zh\"}");
    const QByteArray damaged = "{\"threshold\": 35, \"lang";
    {
        QtDefaults defaults = open();
        EXPECT_THAT(defaults.integer("threshold"), Optional(20));
        put(damaged);
        defaults.setInteger("threshold", 45);
    }
    ASSERT_EQ(damagedCopies().size(), 1);
    EXPECT_EQ(contentOf(directory.filePath(damagedCopies().first())), damaged);
    EXPECT_THAT(log.lines, SizeIs(1));
    EXPECT_EQ(saved(), (QJsonObject{{"threshold", 45}}));
}

TEST_F(JsonSettingsTest, APlaceThatCannotBeWrittenLosesNothing)
{
    put("not a directory");
    {
        QtDefaults defaults(
            openJsonSettings(path() + "/settings.json", SettingsUse::readAndWrite, log), log);
        EXPECT_EQ(defaults.integer("threshold"), std::nullopt);
        defaults.setInteger("threshold", 45);
        defaults.setBoolean("enabled", false);
        EXPECT_THAT(defaults.integer("threshold"), Optional(45));
        EXPECT_THAT(defaults.boolean("enabled"), Optional(false));
    }
    EXPECT_EQ(contentOf(path()), "not a directory");
    EXPECT_EQ(files(), QStringList("settings.json"));
}

TEST_F(JsonSettingsTest, APlaceThatCannotBeWrittenIsLoggedOnce)
{
    put("not a directory");
    QtDefaults defaults(openJsonSettings(path() + "/settings.json", SettingsUse::readAndWrite, log),
                        log);
    for (const int threshold : {45, 46}) {
        defaults.setInteger("threshold", threshold);
        QCoreApplication::processEvents();
    }

    EXPECT_THAT(log.lines,
                ElementsAre(AllOf(StartsWith("Voltmere: the settings cannot be saved"),
                                  HasSubstr(path().toStdString()))));
}

TEST_F(JsonSettingsTest, DamageThatCannotBeSetAsideIsNotOverwritten)
{
    // The name is as long as a name can be with the ending that an atomic write gives it for a
    // moment, so that no longer name can be had for the copy.
    const QString longPath = directory.filePath(QString(235, 'n') + ".json");
    const QByteArray damaged = "{\"threshold\": 35, \"langu";
    QFile file(longPath);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(damaged), damaged.size());
    file.close();

    {
        QtDefaults defaults(openJsonSettings(longPath, SettingsUse::readAndWrite, log), log);
        EXPECT_EQ(defaults.integer("threshold"), std::nullopt);
        EXPECT_THAT(log.lines, SizeIs(1));
        defaults.setInteger("threshold", 45);
        EXPECT_THAT(defaults.integer("threshold"), Optional(45));
    }

    EXPECT_EQ(contentOf(longPath), damaged);
}

TEST_F(JsonSettingsTest, ANewFileAndItsDirectoryBelongToTheUserAlone)
{
    const mode_t previous = ::umask(0);
    const QString nested = directory.filePath("voltmere/settings.json");
    QtDefaults(openJsonSettings(nested, SettingsUse::readAndWrite, log), log)
        .setInteger("threshold", 40);
    ::umask(previous);

    EXPECT_EQ(modeOf(nested), 0600U);
    EXPECT_EQ(modeOf(directory.filePath("voltmere")), 0700U);
}

TEST_F(JsonSettingsTest, AFullDiskLeavesTheOldFile)
{
    const QByteArray before = "{\"threshold\": 20, \"padding\": \"" + QByteArray(64, 'x') + "\"}";
    put(before);
    {
        const FileSizeLimit fullDisk(16);
        open().setInteger("threshold", 40);
    }
    EXPECT_EQ(contentOf(path()), before);
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), QStringList{"settings.json"});
}

} // namespace
} // namespace voltmere
