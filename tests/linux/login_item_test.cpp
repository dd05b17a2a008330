#include "linux/login_item.h"

#include "fakes/model_world.h"
#include "linux/environment_guard.h"
#include "linux/obstructed_file_system.h"
#include "posix/temporary_directory.h"

#include <gmock/gmock.h>

#include <map>
#include <string_view>
#include <tuple>

namespace voltmere {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class LoginItemTest : public testing::Test {
protected:
    LoginItem item() const { return {directory, program}; }

    bool isOn() const { return item().isEnabled(); }

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
    EXPECT_FALSE(isOn());
    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_FALSE(fs::exists(directory.parent_path()));

    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_TRUE(isOn());
    EXPECT_EQ(readFile(entry), written);
    EXPECT_EQ(fs::status(entry).permissions(), fs::perms{0644});
    EXPECT_EQ(fs::status(directory).permissions(), fs::perms{0700});

    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_FALSE(isOn());
    EXPECT_TRUE(fs::is_empty(directory));
}

TEST_F(LoginItemTest, AnEntryIsOnUnlessASettingsProgramSwitchedItOff)
{
    const std::map<std::string, bool> cases{
        {"Hidden=true\n", false},
        {"Hidden=true", false},
        {" Hidden = true \r\n", false},
        {"X-GNOME-Autostart-enabled=false\n", false},
        {"# mine\n\nX-GNOME-Autostart-enabled=false\n[Other]\n", false},
        {"Hidden=false\n", true},
        {"X-GNOME-Autostart-enabled=true\n", true},
        {"#Hidden=true\n", true},
        {"NotHidden=true\n", true},
        {"X-GNOME-Autostart-Delay=5\n", true},
        {"[Desktop Action new]\nHidden=true\n", true},
    };
    for (const auto& [line, on] : cases) {
        writeFile(entry, std::string(written) + line);
        EXPECT_EQ(isOn(), on) << line;
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

TEST_F(LoginItemTest, AnUnknownProgramOrOneThatNoEntryCanNameIsRefused)
{
    for (const char* const path : {"", "/opt/\xFF/voltmere", "/opt/a\nHidden=true", "/opt/a\\b"}) {
        program = path;
        EXPECT_EQ(item().registerItem(),
                  atEntry("the path of this program cannot be written there"));
    }
    EXPECT_FALSE(fs::exists(directory));
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

TEST(RunningProgramTest, AnAppImageGoesBeforeTheProgramThatItHoldsAndNoOther)
{
    const EnvironmentGuard guard({{"APPIMAGE", std::nullopt}, {"APPDIR", std::nullopt}});
    const fs::path self = runningProgram();
    EXPECT_EQ(self.filename(), "voltmere");
    EXPECT_TRUE(self.is_absolute());
    const TemporaryDirectory directory;
    fs::create_directory_symlink(self.parent_path(), directory / "mount");
    const std::string mount = directory / "mount";
    const std::string beside = self.string().substr(0, self.string().size() - 1);
    const std::string image = "/home/ann/An.AppImage";
    for (const auto& [file, place, program] :
         {std::tuple(image, mount, fs::path(image)),
          std::tuple(std::string("An.AppImage"), mount, self),
          std::tuple(image, std::string(), self),
          std::tuple(image, std::string("/tmp/.mount_1"), self), std::tuple(image, beside, self)}) {
        const EnvironmentGuard started({{"APPIMAGE", file}, {"APPDIR", place}});
        EXPECT_EQ(runningProgram(), program) << file << " at " << place;
    }
}

} // namespace
} // namespace voltmere
