#include "linux/bluez_name_source.h"

#include "linux/fake_bus_service.h"
#include "linux/session_bus.h"

#include <gmock/gmock.h>

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QElapsedTimer>
#include <QMap>
#include <QTest>

#include <chrono>
#include <future>
#include <memory>
#include <utility>
#include <vector>

Q_DECLARE_METATYPE(voltmere::BluezInterfaces)
Q_DECLARE_METATYPE(voltmere::BluezObjects)

namespace voltmere {
namespace {

using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

using namespace std::chrono_literals;

const QString deviceInterface = "org.bluez.Device1";

/// The name source in a thread of its own, as in the program, and a BlueZ that the test plays.
class BluezNameSourceTest : public testing::Test {
protected:
    BluezNameSourceTest()
    {
        qDBusRegisterMetaType<BluezInterfaces>();
        qDBusRegisterMetaType<BluezObjects>();
        sessionBus();
    }

    void startBluez(FakeBusService::Answer answer)
    {
        bluez = std::make_unique<FakeBusService>(sessionBus().connect(), "/", std::move(answer));
        bluez->appear("org.bluez");
    }

    /// A BlueZ that knows `objects`.
    void startBluez()
    {
        startBluez([this](const QDBusMessage& call) {
            return call.createReply(QVariant::fromValue(objects));
        });
    }

    /// Something else that BlueZ tells of, such as the adapter.
    void addObject(const QString& path, const QString& interface, const QVariantMap& properties)
    {
        objects[QDBusObjectPath(path)][interface] = properties;
    }

    void addDevice(const QVariantMap& properties)
    {
        addObject("/org/bluez/hci0/dev_" + QString::number(objects.size()), deviceInterface,
                  properties);
    }

    NameMap read(std::chrono::milliseconds limit = 20s)
    {
        auto reading =
            std::async(std::launch::async, [limit] { return BluezNameSource(limit).readNames(); });
        EXPECT_TRUE(QTest::qWaitFor(
            [&reading] { return reading.wait_for(0s) == std::future_status::ready; }, 30'000));
        return reading.get();
    }

    BluezObjects objects;
    std::unique_ptr<FakeBusService> bluez;
};

TEST_F(BluezNameSourceTest, ReadsTheAliasByTheAddress)
{
    addObject("/org/bluez", "org.bluez.AgentManager1", {});
    addObject("/org/bluez/hci0", "org.bluez.Adapter1",
              {{"Address", "02:00:5E:00:53:00"}, {"Alias", "desk"}});
    addDevice({{"Address", "02:00:5E:00:53:01"},
               {"Alias", "Mouse of Ann"},
               {"Name", "Magic Mouse"},
               {"Connected", true},
               {"Class", 1408U}});
    addDevice({{"Address", "02:00:5e:00:53:02"}, {"Alias", "Desk \u201Ckeyboard\u201D #1"}});
    startBluez();

    EXPECT_THAT(read(),
                UnorderedElementsAre(Pair("02:00:5E:00:53:01", "Mouse of Ann"),
                                     Pair("02:00:5E:00:53:02", "Desk \u201Ckeyboard\u201D #1")));
}

TEST_F(BluezNameSourceTest, AsksOnce)
{
    startBluez();
    EXPECT_THAT(read(), IsEmpty());

    ASSERT_EQ(bluez->calls.size(), 1U);
    EXPECT_EQ(bluez->calls.front().path(), "/");
    EXPECT_EQ(bluez->calls.front().interface(), "org.freedesktop.DBus.ObjectManager");
    EXPECT_EQ(bluez->calls.front().member(), "GetManagedObjects");
    EXPECT_THAT(bluez->calls.front().arguments(), IsEmpty());
}

TEST_F(BluezNameSourceTest, TheNameCountsWithoutAnAliasOrWhereThatIsTheAddressWithHyphens)
{
    addDevice({{"Address", "02:00:5E:00:53:01"}, {"Alias", "02-00-5E-00-53-01"}});
    addDevice(
        {{"Address", "02:00:5e:00:53:02"}, {"Alias", "02-00-5E-00-53-02"}, {"Name", "Mouse"}});
    addDevice({{"Address", "02:00:5E:00:53:03"}, {"Alias", "02-00-5E-00-53-99"}});
    addDevice({{"Address", "02:00:5E:00:53:04"}, {"Name", "Magic Mouse"}});
    addDevice({{"Address", "02:00:5E:00:53:05"}, {"Name", "Keyboard"}, {"Alias", ""}});

    EXPECT_THAT(namesOf(objects),
                UnorderedElementsAre(Pair("02:00:5E:00:53:02", "Mouse"),
                                     Pair("02:00:5E:00:53:03", "02-00-5E-00-53-99"),
                                     Pair("02:00:5E:00:53:04", "Magic Mouse"),
                                     Pair("02:00:5E:00:53:05", "Keyboard")));
}

TEST_F(BluezNameSourceTest, ADeviceWithoutNameOrAddressIsLeftOutAndOddPropertiesDoNoHarm)
{
    addDevice({{"Address", "02:00:5E:00:53:01"}});
    addDevice({{"Alias", "No address"}});
    addDevice({{"Address", ""}, {"Alias", "Empty address"}});
    addDevice({});
    addDevice({{"Address", QVariantList{1, 2}}, {"Alias", "List"}});
    addDevice({{"Address", "02:00:5E:00:53:02"}, {"Alias", QVariantList{1, 2}}});
    addDevice({{"Address", "02:00:5E:00:53:03"}, {"Alias", "Whole"}});

    EXPECT_THAT(namesOf(objects), UnorderedElementsAre(Pair("02:00:5E:00:53:03", "Whole")));
}

TEST_F(BluezNameSourceTest, TheLongestNamesAreKeptWhole)
{
    const std::string latin(248, 'n');
    std::string ideographs;
    for (int i = 0; i < 82; ++i) {
        ideographs += "鼠";
    }
    addDevice({{"Address", "02:00:5E:00:53:01"}, {"Alias", QString::fromStdString(latin)}});
    addDevice({{"Address", "02:00:5E:00:53:02"}, {"Alias", QString::fromStdString(ideographs)}});
    startBluez();

    EXPECT_THAT(read(),
                UnorderedElementsAre(Pair("02:00:5E:00:53:01", latin),
                                     Pair("02:00:5E:00:53:02", ideographs)));
}

TEST_F(BluezNameSourceTest, WithoutBluezThereAreNoNamesAndNoWaiting)
{
    QElapsedTimer time;
    time.start();

    EXPECT_THAT(read(20s), IsEmpty());
    EXPECT_LT(time.elapsed(), 10'000);
    EXPECT_FALSE(std::filesystem::exists(sessionBus().bluezStarted()));
}

TEST_F(BluezNameSourceTest, ABluezThatDoesNotAnswerIsGivenUpAfterTheLimit)
{
    startBluez([](const QDBusMessage&) { return std::nullopt; });
    QElapsedTimer time;
    time.start();

    EXPECT_THAT(read(50ms), IsEmpty());
    EXPECT_GE(time.elapsed(), 50);
    EXPECT_LT(time.elapsed(), 10'000);
}

TEST_F(BluezNameSourceTest, ABluezThatLeavesMidwayEndsTheWaiting)
{
    startBluez([this](const QDBusMessage&) {
        QMetaObject::invokeMethod(
            qApp,
            [this] {
                QDBusConnection::disconnectFromBus(bluez->connection().name());
                bluez.reset();
            },
            Qt::QueuedConnection);
        return std::nullopt;
    });

    EXPECT_THAT(read(), IsEmpty());
}

TEST_F(BluezNameSourceTest, ARefusalOrAnAnswerOfAnotherFormIsNoNames)
{
    startBluez([](const QDBusMessage& call) {
        return call.createErrorReply(QDBusError::AccessDenied, "no");
    });
    EXPECT_THAT(read(), IsEmpty());

    const BluezInterfaces interfaces{{deviceInterface, {{"Address", "02:00:5E:00:53:01"}}}};
    for (const QVariantList& arguments : {QVariantList{}, QVariantList{"text"}, QVariantList{1},
                                          QVariantList{QVariant::fromValue(interfaces)},
                                          QVariantList{QVariant::fromValue(BluezObjects()), 1},
                                          QVariantList{QVariantMap{{"/", "x"}}}}) {
        startBluez([arguments](const QDBusMessage& call) { return call.createReply(arguments); });
        EXPECT_THAT(read(), IsEmpty());
    }
}

TEST_F(BluezNameSourceTest, TwoReadingsMayOverlap)
{
    addDevice({{"Address", "02:00:5E:00:53:01"}, {"Alias", "Mouse"}});
    std::vector<QDBusMessage> waiting;
    startBluez([&waiting](const QDBusMessage& call) {
        waiting.push_back(call);
        return std::nullopt;
    });
    const auto readNames = [] { return BluezNameSource(20s).readNames(); };
    auto first = std::async(std::launch::async, readNames);
    auto second = std::async(std::launch::async, readNames);
    ASSERT_TRUE(QTest::qWaitFor([&waiting] { return waiting.size() == 2; }, 60'000));
    for (const QDBusMessage& call : waiting) {
        bluez->connection().send(call.createReply(QVariant::fromValue(objects)));
    }

    EXPECT_THAT(first.get(), UnorderedElementsAre(Pair("02:00:5E:00:53:01", "Mouse")));
    EXPECT_THAT(second.get(), UnorderedElementsAre(Pair("02:00:5E:00:53:01", "Mouse")));
    EXPECT_NE(waiting.at(0).service(), waiting.at(1).service());
}

TEST_F(BluezNameSourceTest, TheBusIsLeftAgain)
{
    startBluez();
    const auto membersOfBus = [] {
        return QDBusConnection::sessionBus().interface()->registeredServiceNames().value().size();
    };
    read();
    const auto before = membersOfBus();
    read();
    read();

    EXPECT_TRUE(QTest::qWaitFor([&] { return membersOfBus() <= before; }, 60'000));
}

} // namespace
} // namespace voltmere
