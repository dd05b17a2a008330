#include "tests/resources/project_file.h"
#include "texts/l10n.h"

#include <gmock/gmock.h>

#include <QRegularExpression>

namespace voltmere {
namespace {

/// The first text that `pattern` captures in `text`.
std::string captured(const QString& text, const QString& pattern)
{
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    return expression.match(text).captured(1).toStdString();
}

std::string appName(const L10n::Table& table)
{
    return std::string(table.at("app.name"));
}

TEST(InstalledNamesTest, TheDesktopEntryHasTheNameOfBothLanguages)
{
    const QString entry = projectFile("resources/linux/org.voltmere.Voltmere.desktop");

    EXPECT_EQ(captured(entry, R"(^Name=(.*)$)"), appName(L10n::en()));
    EXPECT_EQ(captured(entry, R"(^Name\[zh\]=(.*)$)"), appName(L10n::zh()));
}

TEST(InstalledNamesTest, TheMetainfoHasTheNameOfBothLanguages)
{
    const QString metainfo = projectFile("resources/linux/org.voltmere.Voltmere.metainfo.xml");

    EXPECT_EQ(captured(metainfo, R"(<name>(.*)</name>)"), appName(L10n::en()));
    EXPECT_EQ(captured(metainfo, R"(<name xml:lang="zh">(.*)</name>)"), appName(L10n::zh()));
}

} // namespace
} // namespace voltmere
