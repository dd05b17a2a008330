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

TEST(IncludeRules, QtIsKeptOutOfTheCore)
{
    for (const char* const file : {"model/m.cpp", "devices/d.h", "alerting/a.cpp", "snooze/s.h",
                                   "platform/port.h", "model/l10n.cpp"}) {
        EXPECT_THAT(forbiddenIncludes({{file, {"QString", "QtGlobal", "vector"}}}), SizeIs(2))
            << file;
    }
}

TEST(IncludeRules, QtIsAllowedInTheFrontEnd)
{
    for (const char* const file :
         {"ui/u.cpp", "snooze/window/w.h", "platform/qt/q.cpp", "app/main.cpp"}) {
        EXPECT_THAT(forbiddenIncludes({{file, {"QString"}}}), IsEmpty()) << file;
    }
}

TEST(IncludeRules, EachForbiddenStepUpOrAcrossIsSeen)
{
    const std::vector<std::pair<std::string, std::string>> steps{
        {"platform/port.h", "devices/d.h"},
        {"platform/linux/l.cpp", "model/m.h"},
        {"platform/port.h", "platform/qt/q.h"},
        {"devices/d.cpp", "model/l10n.h"},
        {"devices/d.cpp", "platform/posix/p.h"},
        {"alerting/a.cpp", "model/battery_model.h"},
        {"snooze/s.cpp", "model/m.h"},
        {"snooze/s.cpp", "snooze/window/w.h"},
        {"snooze/s.cpp", "alerting/a.h"},
        {"model/m.cpp", "ui/u.h"},
        {"model/m.cpp", "platform/qt/q.h"},
        {"ui/u.cpp", "platform/linux/l.h"},
        {"ui/u.cpp", "app/a.h"},
        {"model/l10n.cpp", "devices/d.h"},
    };
    for (const auto& [file, header] : steps) {
        EXPECT_THAT(forbiddenIncludes({{file, {header}}}),
                    ElementsAre(file + " includes " + header));
    }
}

TEST(IncludeRules, EachAllowedStepPasses)
{
    const std::vector<std::pair<std::string, std::string>> steps{
        {"devices/d.cpp", "platform/port.h"},
        {"alerting/a.cpp", "devices/d.h"},
        {"alerting/a.cpp", "model/l10n.h"},
        {"snooze/s.cpp", "model/l10n.h"},
        {"model/m.cpp", "snooze/s.h"},
        {"ui/u.cpp", "snooze/window/w.h"},
        {"platform/linux/l.cpp", "platform/posix/p.h"},
        {"app/a.cpp", "platform/linux/l.h"},
    };
    for (const auto& [file, header] : steps) {
        EXPECT_THAT(forbiddenIncludes({{file, {header}}}), IsEmpty()) << file;
    }
}

TEST(IncludeRules, ACircleAroundACornerIsFound)
{
    const IncludeGraph graph{{"a.h", {"b.h"}}, {"b.h", {"c.h", "vector"}}, {"c.h", {"b.h"}}};
    EXPECT_THAT(findCircle(graph), ElementsAre("b.h", "c.h"));
}

TEST(IncludeRules, ADiamondIsNoCircle)
{
    EXPECT_THAT(
        findCircle({{"a.h", {"b.h", "c.h"}}, {"b.h", {"d.h"}}, {"c.h", {"d.h"}}, {"d.h", {}}}),
        IsEmpty());
}

} // namespace
} // namespace voltmere
