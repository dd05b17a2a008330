#include "linux/desktop_entry.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

TEST(DesktopEntryTest, ReadsTheKeysOfItsGroupOnly)
{
    const DesktopEntry entry("# comment\n"
                             "[Desktop Entry]\n"
                             "Name=One\n"
                             "Name[zh_CN]=一\n"
                             "#Exec=commented\n"
                             "[Desktop Action new]\n"
                             "Exec=other\n");

    EXPECT_EQ(entry.value("Name"), "One");
    EXPECT_EQ(entry.value("Name[zh_CN]"), "一");
    EXPECT_EQ(entry.value("Exec"), std::nullopt);
    EXPECT_EQ(entry.value("name"), std::nullopt);
    EXPECT_EQ(entry.value("Nam"), std::nullopt);
}

TEST(DesktopEntryTest, BlanksAroundTheSignAndLineEndsDoNotCount)
{
    const DesktopEntry entry("  [Desktop Entry] \r\n  Name \t=  a = b\r\nExec=\nIcon=last");

    EXPECT_EQ(entry.value("Name"), "a = b");
    EXPECT_EQ(entry.value("Exec"), "");
    EXPECT_EQ(entry.value("Icon"), "last");
}

TEST(DesktopEntryTest, TheLastOfTwoEqualKeysCounts)
{
    EXPECT_EQ(DesktopEntry("[Desktop Entry]\nName=1\nName=2\n").value("Name"), "2");
}

TEST(DesktopEntryTest, UndoesEscapes)
{
    const DesktopEntry entry(R"([Desktop Entry]
Name=\sa\sb\n\t\r\\n\;\x\)");

    EXPECT_EQ(entry.value("Name"), " a b\n\t\r\\n\\;\\x\\");
}

TEST(DesktopEntryTest, ABooleanIsTrueOrNot)
{
    const DesktopEntry entry("[Desktop Entry]\nA=true\nB=1\nC=true \r\nD=false\nE=0\nF=yes\nG=\n");

    for (const char* const key : {"A", "B", "C"}) {
        EXPECT_TRUE(entry.isTrue(key)) << key;
    }
    for (const char* const key : {"D", "E", "F", "G", "H"}) {
        EXPECT_FALSE(entry.isTrue(key)) << key;
    }
}

TEST(DesktopEntryTest, AListEndsWithOrWithoutASemicolon)
{
    const DesktopEntry entry("[Desktop Entry]\nA=GNOME;KDE;\nB=GNOME;KDE\nC=\nD=X-One; \n");

    EXPECT_THAT(entry.list("A"), ElementsAre("GNOME", "KDE"));
    EXPECT_THAT(entry.list("B"), ElementsAre("GNOME", "KDE"));
    EXPECT_THAT(entry.list("C"), IsEmpty());
    EXPECT_THAT(entry.list("D"), ElementsAre("X-One"));
    EXPECT_THAT(entry.list("E"), IsEmpty());
}

TEST(DesktopEntryTest, TellsADesktopEntryFromOtherTexts)
{
    for (const char* const sound :
         {"[Desktop Entry]", "[Desktop Entry]\n", "\n# comment\n\n[Desktop Entry]\nName=x\n",
          "[Desktop Entry]\r\nName=\r\n", "[Desktop Entry]\n[Other]\na=b\n"}) {
        EXPECT_TRUE(DesktopEntry(sound).isSound()) << sound;
    }
    for (const char* const unsound :
         {"", "\n", "Name=x\n", "Name=x\n[Desktop Entry]\n", "[Other]\n[Desktop Entry]\n",
          "[desktop entry]\n", "[Desktop Entry\n", "[Desktop Entry] x\n", "[Desktop Entry]\nword\n",
          "[Desktop Entry]\n=value\n", "[Desktop Entry]\n[\n", "[]\n[Desktop Entry]\n",
          "\xEF\xBB\xBF[Desktop Entry]\n"}) {
        EXPECT_FALSE(DesktopEntry(unsound).isSound()) << unsound;
    }
}

TEST(DesktopEntryTest, KnowsItsGroupInADamagedTextToo)
{
    EXPECT_TRUE(DesktopEntry("word\n[Desktop Entry]\nword\n").hasGroup());
    EXPECT_FALSE(DesktopEntry("word\n[Other]\n").hasGroup());
    EXPECT_FALSE(DesktopEntry("").hasGroup());
}

TEST(DesktopEntryTest, ATextThatIsNotChangedStaysByteForByte)
{
    for (const std::string text :
         {"", "\n\n", "[Desktop Entry]", "  [Desktop Entry]\r\n  a =  b \r\n\r\n#\n[x]\nword",
          "no entry\r", "[Desktop Entry]\na=\xFF\xFE\n"}) {
        DesktopEntry entry(text);
        entry.remove("missing");
        EXPECT_EQ(entry.text(), text);
    }
}

TEST(DesktopEntryTest, SettingTheValueThatIsThereChangesNothing)
{
    const std::string text = "[Desktop Entry]\r\n Hidden =  true\r\nPath=\\sx\n";
    DesktopEntry entry(text);

    entry.setValue("Hidden", "true");
    entry.setValue("Path", " x");

    EXPECT_EQ(entry.text(), text);
}

TEST(DesktopEntryTest, AChangedKeyKeepsItsPlaceAndItsLineEnd)
{
    DesktopEntry entry("# top\n[Desktop Entry]\nType=Application\n  Hidden = true\r\n# mine\n\n"
                       "[Desktop Action x]\nHidden=true\n");

    entry.setValue("Hidden", "false");

    EXPECT_EQ(entry.text(),
              "# top\n[Desktop Entry]\nType=Application\nHidden=false\r\n# mine\n\n"
              "[Desktop Action x]\nHidden=true\n");
}

TEST(DesktopEntryTest, EachOfTwoEqualKeysIsChanged)
{
    DesktopEntry entry("[Desktop Entry]\nHidden=false\nName=x\nHidden=false\n");

    entry.setValue("Hidden", "true");

    EXPECT_EQ(entry.text(), "[Desktop Entry]\nHidden=true\nName=x\nHidden=true\n");
}

TEST(DesktopEntryTest, ANewKeyComesLastInItsGroup)
{
    DesktopEntry entry("[Desktop Entry]\nName=x\n\n# about the action\n[Desktop Action x]\nName=y");

    entry.setValue("Hidden", "true");

    EXPECT_EQ(entry.text(),
              "[Desktop Entry]\nName=x\nHidden=true\n\n# about the action\n"
              "[Desktop Action x]\nName=y");
}

TEST(DesktopEntryTest, ANewKeyTakesTheLineEndAboveIt)
{
    DesktopEntry carriageReturns("[Desktop Entry]\r\nName=x\r\n");
    DesktopEntry unended("[Desktop Entry]\nName=x");
    DesktopEntry groupAlone("[Desktop Entry]");

    carriageReturns.setValue("Hidden", "true");
    unended.setValue("Hidden", "true");
    groupAlone.setValue("Hidden", "true");

    EXPECT_EQ(carriageReturns.text(), "[Desktop Entry]\r\nName=x\r\nHidden=true\r\n");
    EXPECT_EQ(unended.text(), "[Desktop Entry]\nName=x\nHidden=true\n");
    EXPECT_EQ(groupAlone.text(), "[Desktop Entry]\nHidden=true\n");
}

TEST(DesktopEntryTest, ATextThatBreaksOffWithinItsLineEndKeepsItsValues)
{
    DesktopEntry entry("[Desktop Entry]\r\nName=x\r");
    EXPECT_THAT(entry.value("Name"), Optional(std::string("x")));

    entry.setValue("Hidden", "true");

    EXPECT_EQ(entry.text(), "[Desktop Entry]\r\nName=x\r\nHidden=true\r\n");
}

TEST(DesktopEntryTest, ARemovedKeyGoesWithItsLines)
{
    DesktopEntry entry(
        "[Desktop Entry]\nHidden=true\n# mine\nHidden = 1\r\nName=x\n[o]\nHidden=1\n");

    entry.remove("Hidden");

    EXPECT_EQ(entry.text(), "[Desktop Entry]\n# mine\nName=x\n[o]\nHidden=1\n");
}

TEST(DesktopEntryTest, AddingAndRemovingAKeyLeavesTheTextAsItWas)
{
    const std::string text = "#\n[Desktop Entry]\r\nName=x\r\n\r\n[Other]\n";
    DesktopEntry entry(text);

    entry.setValue("Hidden", "true");
    entry.remove("Hidden");

    EXPECT_EQ(entry.text(), text);
}

TEST(DesktopEntryTest, WhatIsWrittenIsReadBack)
{
    for (const std::string value :
         {"", " ", "  ", " a b ", "\n", "\t\r\n", "\\", "\\\\s", "\\n", "a;b", "=#[]", "续航"}) {
        DesktopEntry entry("[Desktop Entry]\n");
        entry.setValue("Path", value);
        EXPECT_EQ(DesktopEntry(entry.text()).value("Path"), value);
        EXPECT_TRUE(DesktopEntry(entry.text()).isSound());
        EXPECT_EQ(entry.text().find('\r'), std::string::npos);
    }
}

} // namespace
} // namespace voltmere
