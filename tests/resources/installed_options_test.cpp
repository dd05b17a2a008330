#include "app/command_line.h"
#include "tests/resources/project_file.h"

#include <gmock/gmock.h>

#include <QProcess>
#include <QRegularExpression>
#include <QStringList>

#include <set>

namespace voltmere {
namespace {

using Options = std::set<std::string>;

/// Everything that the first group of `pattern` captures, in any line.
QStringList captures(const QString& text, const QString& pattern)
{
    QStringList found;
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    auto matches = expression.globalMatch(text);
    while (matches.hasNext()) {
        found += matches.next().captured(1);
    }
    return found;
}

/// The words of `text` that are options, such as "-h" and "--help".
Options optionsIn(const QString& text)
{
    Options options;
    for (const QString& word : captures(text, R"((?<![\w-])(--?[a-z][a-z-]*))")) {
        options.insert(word.toStdString());
    }
    return options;
}

/// The options that the program explains: each line starts with its spellings.
Options explained()
{
    const Options options =
        optionsIn(captures(QString::fromStdString(usageText()), R"(^  (-.*?)  )").join('\n'));
    EXPECT_THAT(options, testing::IsSupersetOf({"-h", "--help", "--list", "--sysfs"}));
    return options;
}

/// What bash offers after the words given, the last of which may be unfinished.
QStringList bashOffers(const QStringList& words)
{
    const QString script = "source \"$0\"; COMP_WORDS=(voltmere \"$@\"); COMP_CWORD=$#; _voltmere; "
                           "printf '%s\\n' \"${COMPREPLY[@]}\"";
    QProcess bash;
    bash.setWorkingDirectory(VOLTMERE_SOURCE_DIR);
    bash.start("bash",
               QStringList{"--norc", "-c", script, "resources/linux/completions/voltmere.bash"} +
                   words);
    EXPECT_TRUE(bash.waitForFinished());
    EXPECT_EQ(bash.readAllStandardError().toStdString(), "");
    return QString::fromUtf8(bash.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
}

TEST(InstalledOptionsTest, TheManualPageExplainsEveryOptionAndNoOther)
{
    const QString page = projectFile("resources/linux/voltmere.1.in").replace("\\-", "-");

    EXPECT_EQ(optionsIn(captures(page, R"(^\.TP\n\.BI?R? (-.*)$)").join('\n')), explained());
}

TEST(InstalledOptionsTest, TheReadmeExplainsEveryOptionAndNoOther)
{
    const QString rows = captures(projectFile("README.md"), R"(^\| (`--.*?) \|)").join('\n');

    Options inReadme = optionsIn(rows);
    inReadme.insert({"-h", "-v"});
    EXPECT_EQ(inReadme, explained());
}

TEST(InstalledOptionsTest, BashOffersEveryOptionAndNoOther)
{
    EXPECT_EQ(optionsIn(bashOffers({"-"}).join('\n')), explained());
}

TEST(InstalledOptionsTest, BashCompletesWhatAnOptionNeeds)
{
    EXPECT_EQ(bashOffers({"--sc"}), QStringList("--screenshots"));
    EXPECT_EQ(bashOffers({"--watch", "--format", ""}), QStringList("waybar"));
    EXPECT_EQ(bashOffers({"--tools", "resources/d"}), QStringList("resources/demo"));
}

TEST(InstalledOptionsTest, ZshOffersEveryOptionAndNoOther)
{
    const QString script = projectFile("resources/linux/completions/_voltmere");

    EXPECT_EQ(optionsIn(captures(script, R"(['{,](--?[a-z]+)(?=[[,}]))").join('\n')), explained());
}

TEST(InstalledOptionsTest, FishOffersEveryOptionAndNoOther)
{
    const QString script = projectFile("resources/linux/completions/voltmere.fish");

    Options offered;
    for (const QString& name : captures(script, R"(^complete -c voltmere .*-l ([a-z]+))")) {
        offered.insert("--" + name.toStdString());
    }
    for (const QString& name : captures(script, R"(^complete -c voltmere .*-s ([a-z]))")) {
        offered.insert("-" + name.toStdString());
    }
    EXPECT_EQ(offered, explained());
    for (const QString& text :
         captures(QString::fromStdString(usageText()), R"(^  -.*?  +(.*)\.$)")) {
        EXPECT_TRUE(script.contains(" -d \"" + text + "\"\n")) << text.toStdString();
    }
}

} // namespace
} // namespace voltmere
