// Settings as QSettings hands them over from the defaults database of macOS, which has types of its
// own for whole numbers, fractions and truth. A format that lives in memory stands in for it.

#include "linux/qt_defaults.h"

#include "fakes/recording_log.h"

#include <gmock/gmock.h>

#include <QDateTime>
#include <QTemporaryDir>

#include <cstdint>
#include <limits>

namespace voltmere {
namespace {

using testing::Optional;

QSettings::SettingsMap& database()
{
    static QSettings::SettingsMap map;
    return map;
}

bool readDatabase(QIODevice& /*device*/, QSettings::SettingsMap& map)
{
    map = database();
    return true;
}

bool writeDatabase(QIODevice& device, const QSettings::SettingsMap& map)
{
    database() = map;
    return device.write("x") == 1; // QSettings reads only what is not empty
}

class QtDefaultsTest : public testing::Test {
protected:
    QtDefaultsTest() { database().clear(); }

    std::unique_ptr<QSettings> open()
    {
        static const QSettings::Format format =
            QSettings::registerFormat("defaults", readDatabase, writeDatabase, Qt::CaseSensitive);
        return std::make_unique<QSettings>(directory.filePath("domain.defaults"), format);
    }

    /// A database that holds `value` under "key".
    QtDefaults holding(const QVariant& value)
    {
        open()->setValue("key", value);
        return QtDefaults(open(), log);
    }

    RecordingLog log;
    QTemporaryDir directory;
};

TEST_F(QtDefaultsTest, WholeNumbersComeAsEitherSize)
{
    EXPECT_THAT(holding(QVariant(250)).integer("key"), Optional(250));
    constexpr qlonglong large = std::numeric_limits<qlonglong>::max();
    EXPECT_THAT(holding(QVariant(large)).integer("key"), Optional(large));
}

TEST_F(QtDefaultsTest, AFractionThatIsWholeIsAnInteger)
{
    EXPECT_THAT(holding(QVariant(15.0)).integer("key"), Optional(15));
    EXPECT_EQ(holding(QVariant(15.5)).integer("key"), std::nullopt);
}

TEST_F(QtDefaultsTest, TruthIsOneOrZero)
{
    EXPECT_THAT(holding(QVariant(true)).boolean("key"), Optional(true));
    EXPECT_THAT(holding(QVariant(true)).integer("key"), Optional(1));
    EXPECT_THAT(holding(QVariant(0)).boolean("key"), Optional(false));
    EXPECT_EQ(holding(QVariant(2)).boolean("key"), std::nullopt);
}

TEST_F(QtDefaultsTest, ATextIsATextAndNothingElse)
{
    EXPECT_THAT(holding(QVariant("zh")).text("key"), Optional(std::string("zh")));
    EXPECT_EQ(holding(QVariant("20")).integer("key"), std::nullopt);
    EXPECT_EQ(holding(QVariant("true")).boolean("key"), std::nullopt);
    EXPECT_EQ(holding(QVariant(20)).text("key"), std::nullopt);
}

TEST_F(QtDefaultsTest, OtherTypesAreAsIfAbsent)
{
    for (const QVariant& value : {QVariant(QByteArray("20")), QVariant(QVariantList{20}),
                                  QVariant(QDateTime()), QVariant(QVariantMap{{"a", 20}})}) {
        const QtDefaults defaults = holding(value);
        EXPECT_EQ(defaults.integer("key"), std::nullopt) << value.typeName();
        EXPECT_EQ(defaults.boolean("key"), std::nullopt) << value.typeName();
        EXPECT_EQ(defaults.text("key"), std::nullopt) << value.typeName();
    }
}

TEST_F(QtDefaultsTest, WhatIsWrittenHasTheTypeThatWasAskedFor)
{
    {
        QtDefaults defaults(open(), log);
        defaults.setInteger("threshold", 35);
        defaults.setBoolean("enabled", false);
    }
    EXPECT_EQ(database().value("threshold"), QVariant(qlonglong(35)));
    EXPECT_EQ(database().value("enabled").typeId(), QMetaType::Bool);
    EXPECT_EQ(database().value("enabled"), QVariant(false));
}

TEST_F(QtDefaultsTest, OtherKeysAreKept)
{
    open()->setValue("language", "zh");
    {
        QtDefaults defaults(open(), log);
        defaults.setInteger("threshold", 35);
    }
    EXPECT_EQ(database().value("language"), QVariant("zh"));
}

} // namespace
} // namespace voltmere
