#include "house/include_graph.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::Gt;
using testing::IsEmpty;
using testing::SizeIs;

TEST(IncludeRules, NoFileOfTheProjectIncludesWhatItsRoomMayNot)
{
    const IncludeGraph graph = readIncludeGraph(VOLTMERE_SOURCE_DIR);
    ASSERT_THAT(graph, SizeIs(Gt(20U)));
    EXPECT_THAT(forbiddenIncludes(graph), IsEmpty());
}

TEST(IncludeRules, NoHeadersOfTheProjectIncludeEachOther)
{
    EXPECT_THAT(findCircle(readIncludeGraph(VOLTMERE_SOURCE_DIR)), IsEmpty());
}

TEST(IncludeRules, BothFormsOfADirectiveAreRead)
{
    EXPECT_THAT(includesIn("#include <QString>\n  # include \"a/b.h\"\n#import <x.h>\n// include"),
                ElementsAre("QString", "a/b.h", "x.h"));
}

TEST(IncludeRules, QtStaysInLinuxAndApplesFrameworksInMacos)
{
    for (const char* const file : {"model/m.cpp", "devices/d.h", "alerting/a.cpp", "snooze/s.h",
                                   "ports/port.h", "texts/l10n.cpp", "posix/p.cpp", "ui/u.h"}) {
        EXPECT_THAT(forbiddenIncludes({{file, {"QString", "AppKit/AppKit.h", "vector"}}}),
                    SizeIs(2))
            << file;
    }
    EXPECT_THAT(forbiddenIncludes({{"linux/l.cpp", {"QString"}}}), IsEmpty());
    EXPECT_THAT(forbiddenIncludes({{"macos/m.mm", {"AppKit/AppKit.h"}}}), IsEmpty());
    EXPECT_THAT(forbiddenIncludes({{"linux/l.cpp", {"AppKit/AppKit.h"}}}), SizeIs(1));
    EXPECT_THAT(forbiddenIncludes({{"macos/m.mm", {"QString"}}}), SizeIs(1));
}

TEST(IncludeRules, EachForbiddenStepUpOrAcrossIsSeen)
{
    const std::vector<std::pair<std::string, std::string>> steps{
        {"ports/p.h", "texts/t.h"},      {"texts/t.cpp", "devices/d.h"},
        {"devices/d.cpp", "snooze/s.h"}, {"snooze/s.cpp", "alerting/a.h"},
        {"alerting/a.cpp", "model/m.h"}, {"model/m.cpp", "ui/u.h"},
        {"ui/u.cpp", "app/a.h"},         {"posix/p.cpp", "devices/d.h"},
        {"devices/d.cpp", "posix/p.h"},  {"model/m.cpp", "linux/l.h"},
        {"posix/p.cpp", "linux/l.h"},    {"linux/l.cpp", "macos/m.h"},
        {"macos/m.mm", "linux/ui/l.h"},
    };
    for (const auto& [file, header] : steps) {
        EXPECT_THAT(forbiddenIncludes({{file, {header}}}),
                    ElementsAre(file + " includes " + header));
    }
}

TEST(IncludeRules, EachAllowedStepPasses)
{
    const std::vector<std::pair<std::string, std::string>> steps{
        {"texts/t.cpp", "ports/p.h"},     {"devices/d.cpp", "texts/t.h"},
        {"alerting/a.cpp", "snooze/s.h"}, {"model/m.cpp", "alerting/a.h"},
        {"ui/u.cpp", "model/m.h"},        {"posix/p.cpp", "texts/t.h"},
        {"linux/ui/l.cpp", "ui/u.h"},     {"linux/l.cpp", "posix/p.h"},
        {"macos/m.mm", "app/a.h"},        {"app/a.cpp", "posix/p.h"},
    };
    for (const auto& [file, header] : steps) {
        EXPECT_THAT(forbiddenIncludes({{file, {header}}}), IsEmpty()) << file;
    }
}

TEST(IncludeRules, ACircleAroundACornerIsFoundAndADiamondIsNone)
{
    const IncludeGraph graph{{"a.h", {"b.h"}}, {"b.h", {"c.h", "vector"}}, {"c.h", {"b.h"}}};
    EXPECT_THAT(findCircle(graph), ElementsAre("b.h", "c.h"));
    EXPECT_THAT(
        findCircle({{"a.h", {"b.h", "c.h"}}, {"b.h", {"d.h"}}, {"c.h", {"d.h"}}, {"d.h", {}}}),
        IsEmpty());
}

} // namespace
} // namespace voltmere
