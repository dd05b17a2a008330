#include "linux/login_item.h"

#include "fakes/model_world.h"
#include "linux/obstructed_file_system.h"
#include "posix/temporary_directory.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <map>
#include <string_view>

namespace voltmere {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class LoginItemTest : public testing::Test {
protected:
    LoginItem item() const { return {directory, program}; }

    bool isOn() const { return item().status() == LoginItemService::Status::enabled; }

    /// What a failure says that concerns the entry.
    std::string atEntry(const std::string& reason) const { return entry.string() + ": " + reason; }

    /// Puts a link in the place of the entry.
    void link(const fs::path& target) const
    {
        fs::create_directories(directory);
        fs::create_symlink(target, entry);
    }

    TemporaryDirectory home;
    fs::path directory = home / ".config" / "autostart";
    fs::path entry = directory / "org.voltmere.Voltmere.desktop";
    std::string program = "/usr/bin/voltmere";
};

constexpr std::string_view written = "[Desktop Entry]\n"
                                     "Type=Application\n"
                                     "Name=Cellsentry\n"
                                     "Name[zh]=续航哨兵\n"
                                     "Exec=\"/usr/bin/voltmere\"\n"
                                     "TryExec=/usr/bin/voltmere\n"
                                     "Icon=org.voltmere.Voltmere\n"
                                     "Terminal=false\n"
                                     "StartupNotify=false\n";

TEST_F(LoginItemTest, RegisteringWritesTheEntryAndUnregisteringRemovesIt)
{
    EXPECT_EQ(item().status(), LoginItemService::Status::notRegistered);
    EXPECT_FALSE(fs::exists(directory.parent_path()));

    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_TRUE(isOn());
    EXPECT_EQ(readFile(entry), written);
    EXPECT_EQ(fs::status(entry).permissions(), fs::perms{0644});
    EXPECT_EQ(fs::status(directory).permissions(), fs::perms{0700});

    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_EQ(item().status(), LoginItemService::Status::notRegistered);
    EXPECT_TRUE(fs::is_empty(directory));
}

TEST_F(LoginItemTest, UnregisteringWhatIsNotThereIsNoFailure)
{
    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_FALSE(fs::exists(directory));
}

TEST_F(LoginItemTest, AnEntryThatASettingsProgramSwitchedOffIsOff)
{
    for (const char* const line :
         {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n", " Hidden = true \r\n",
          "Hidden=true", "# mine\n\nX-GNOME-Autostart-enabled=false\n[Other]\n"}) {
        writeFile(entry, std::string(written) + line);
        EXPECT_FALSE(isOn()) << line;
    }
}

TEST_F(LoginItemTest, AnEntryThatSaysNothingOfTheKindIsOn)
{
    for (const char* const line :
         {"Hidden=false\n", "X-GNOME-Autostart-enabled=true\n", "#Hidden=true\n",
          "NotHidden=true\n", "X-GNOME-Autostart-Delay=5\n",
          "[Desktop Action new]\nHidden=true\n"}) {
        writeFile(entry, std::string(written) + line);
        EXPECT_TRUE(isOn()) << line;
    }
}

TEST_F(LoginItemTest, RegisteringSwitchesAnEntryOnAgainAndFollowsTheProgramToItsPlace)
{
    writeFile(entry, "[Desktop Entry]\nExec=/old/place/voltmere\nHidden=true\n");

    EXPECT_EQ(item().registerItem(), std::nullopt);

    EXPECT_TRUE(isOn());
    EXPECT_EQ(readFile(entry), written);
}

TEST_F(LoginItemTest, AMaskIsOffAndRegisteringTakesItsPlace)
{
    link("/dev/null");
    EXPECT_FALSE(isOn());

    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_EQ(readFile(entry), written);
    EXPECT_FALSE(fs::is_symlink(entry));
}

TEST_F(LoginItemTest, TheFileBehindALinkIsReadAndNeverChanged)
{
    const std::string mine = "[Desktop Entry]\nName=mine\nExec=voltmere --panel\n";
    const fs::path target = home / "dotfiles" / "voltmere.desktop";
    writeFile(target, mine);
    link(target);
    EXPECT_TRUE(isOn());

    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_FALSE(fs::is_symlink(entry));

    writeFile(target, mine + "Hidden=true\n");
    link(target);
    EXPECT_FALSE(isOn());
    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_EQ(readFile(entry), written);
    EXPECT_EQ(readFile(target), mine + "Hidden=true\n");
}

TEST_F(LoginItemTest, ADirectoryInThePlaceOfTheEntryStays)
{
    fs::create_directories(entry);

    EXPECT_FALSE(isOn());
    EXPECT_EQ(item().registerItem(), atEntry("Is a directory"));
    EXPECT_EQ(item().unregisterItem(), atEntry("Is a directory"));

    EXPECT_TRUE(fs::is_directory(entry));
}

TEST_F(LoginItemTest, APlaceThatCannotBeWrittenIsNamedAndKept)
{
    fs::create_directories(directory.parent_path());
    {
        const ReadOnlyDirectory readOnly(directory.parent_path());
        EXPECT_EQ(item().registerItem(), directory.string() + ": Permission denied");
    }
    writeFile(directory, "a file");
    EXPECT_EQ(item().registerItem(), directory.string() + ": Not a directory");
    EXPECT_FALSE(isOn());
    EXPECT_EQ(readFile(directory), "a file");
}

TEST_F(LoginItemTest, AReadOnlyDirectoryKeepsItsEntry)
{
    writeFile(entry, "[Desktop Entry]\nExec=mine\n");
    {
        const ReadOnlyDirectory readOnly(directory);
        EXPECT_EQ(item().registerItem(), atEntry("Permission denied"));
        EXPECT_EQ(item().unregisterItem(), atEntry("Permission denied"));
        EXPECT_TRUE(isOn());
    }
    EXPECT_EQ(readFile(entry), "[Desktop Entry]\nExec=mine\n");
}

TEST_F(LoginItemTest, AFullDiskLeavesTheOldEntry)
{
    const std::string old = "[Desktop Entry]\nHidden=true\n";
    writeFile(entry, old);
    std::optional<std::string> failure;
    {
        const FileSizeLimit limit(100);
        failure = item().registerItem();
    }
    EXPECT_EQ(failure, atEntry("File too large"));
    EXPECT_EQ(readFile(entry), old);
    EXPECT_EQ(std::distance(fs::directory_iterator(directory), {}), 1);
}

TEST_F(LoginItemTest, AnUnknownProgramOrOneThatNoEntryCanNameIsRefused)
{
    for (const char* const path : {"", "/opt/\xFF/voltmere", "/opt/a\nHidden=true", "/opt/a\\b"}) {
        program = path;
        EXPECT_EQ(item().registerItem(),
                  atEntry("the path of this program cannot be written there"));
    }
    EXPECT_FALSE(fs::exists(directory));
}

TEST_F(LoginItemTest, WithoutAHomeThereIsNoPlaceForTheEntry)
{
    LoginItem nowhere({}, program);

    EXPECT_EQ(nowhere.status(), LoginItemService::Status::notRegistered);
    EXPECT_EQ(nowhere.registerItem(),
              "There is no place for a start-up entry: neither XDG_CONFIG_HOME nor HOME is set");
}

TEST_F(LoginItemTest, TheModelsSwitchIsItsRealState)
{
    ModelWorld world;
    LoginItem service = item();
    BatteryModel model({world.defaults, world.runLoop, world.clock, world.calendar, service,
                        world.notifications, world.notificationDelegate, world.alerts, world.log,
                        world.reader});

    model.launchAtLogin = true;
    EXPECT_EQ(readFile(entry), written);
    model.launchAtLogin = false;
    EXPECT_FALSE(fs::exists(entry));
    EXPECT_THAT(world.log.lines, IsEmpty());

    fs::create_directories(entry);
    model.launchAtLogin = true;
    EXPECT_FALSE(model.launchAtLogin);
    EXPECT_THAT(world.log.lines,
                ElementsAre("Voltmere: 设置开机启动失败 " + atEntry("Is a directory")));
}

/// What stands behind a key in a file.
std::string valueIn(const std::string& text, const std::string& key)
{
    const std::size_t begin = text.find('\n' + key + '=') + key.size() + 2;
    return text.substr(begin, text.find('\n', begin) - begin);
}

TEST_F(LoginItemTest, AnAwkwardPathIsQuotedInExecAndPlainInTryExec)
{
    const std::map<std::string, std::string> forms{
        {"/opt/My Apps/v", R"("/opt/My Apps/v")"},
        {"/opt/it's/*?~#&|;<>()/v", R"("/opt/it's/*?~#&|;<>()/v")"},
        {"/opt/$HOME/`id`/\"q\"", R"("/opt/\\$HOME/\\`id\\`/\\"q\\"")"},
        {"/opt/续航哨兵", R"("/opt/续航哨兵")"},
        {"/opt/100 %f/v", R"(nice -n 0 "/opt/100 %%f/v")"},
        {"/opt/a=b", R"(nice -n 0 "/opt/a=b")"},
    };
    for (const auto& [path, form] : forms) {
        program = path;
        ASSERT_EQ(item().registerItem(), std::nullopt);
        EXPECT_EQ(valueIn(readFile(entry), "Exec"), form);
        EXPECT_EQ(valueIn(readFile(entry), "TryExec"), path);
    }
}

/// An environment in which none of the variables is set that name the places.
class LoginItemPlacesTest : public testing::Test {
protected:
    LoginItemPlacesTest()
    {
        for (const char* const name : {"XDG_CONFIG_HOME", "HOME", "APPIMAGE", "APPDIR"}) {
            const char* const value = std::getenv(name);
            previous[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
            ::unsetenv(name);
        }
    }

    ~LoginItemPlacesTest() override
    {
        for (const auto& [name, value] : previous) {
            value ? ::setenv(name.c_str(), value->c_str(), 1) : ::unsetenv(name.c_str());
        }
    }

    static void set(const char* name, const std::string& value)
    {
        ::setenv(name, value.c_str(), 1);
    }

private:
    std::map<std::string, std::optional<std::string>> previous;
};

TEST_F(LoginItemPlacesTest, TheEntriesAreInTheConfigurationOrElseInTheHome)
{
    EXPECT_EQ(autostartDirectory(), "");
    set("HOME", "relative");
    EXPECT_EQ(autostartDirectory(), "");
    set("HOME", "/home/ann");
    EXPECT_EQ(autostartDirectory(), "/home/ann/.config/autostart");
    set("XDG_CONFIG_HOME", "relative");
    EXPECT_EQ(autostartDirectory(), "/home/ann/.config/autostart");
    set("XDG_CONFIG_HOME", "/data/ann's config");
    EXPECT_EQ(autostartDirectory(), "/data/ann's config/autostart");
}

TEST_F(LoginItemPlacesTest, AnAppImageGoesBeforeTheProgramThatItHolds)
{
    const fs::path self = runningProgram();
    EXPECT_EQ(self.filename(), "voltmere");
    EXPECT_TRUE(self.is_absolute());

    const TemporaryDirectory directory;
    fs::create_directory_symlink(self.parent_path(), directory / "mount");
    set("APPIMAGE", "/home/ann/Voltmere.AppImage");
    set("APPDIR", directory / "mount");
    EXPECT_EQ(runningProgram(), "/home/ann/Voltmere.AppImage");
    set("APPIMAGE", "Voltmere.AppImage");
    EXPECT_EQ(runningProgram(), self);
}

TEST_F(LoginItemPlacesTest, AnAppImageThatDoesNotHoldThisProgramIsAnotherOnes)
{
    const std::string self = runningProgram();
    set("APPIMAGE", "/home/ann/Terminal.AppImage");
    EXPECT_EQ(runningProgram(), self);
    for (const std::string& mount :
         {std::string("/tmp/.mount_1"), self.substr(0, self.size() - 1)}) {
        set("APPDIR", mount);
        EXPECT_EQ(runningProgram(), self);
    }
}

} // namespace
} // namespace voltmere
