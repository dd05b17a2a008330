#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace voltmere {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::set<std::string> matches(const std::string& text, const std::string& pattern)
{
    std::set<std::string> found;
    const std::regex expression(pattern);
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
         ++match) {
        found.insert((*match)[1].str() + "." + (*match)[2].str());
    }
    return found;
}

/// The tests that a document names, each as `Suite.Name`.
std::set<std::string> testsNamedIn(const std::string& document)
{
    return matches(document, "`([A-Z][A-Za-z]*)\\.([A-Z][A-Za-z0-9]*)`");
}

std::set<std::string> testsIn(const std::string& source)
{
    return matches(source, "TEST(?:_F|_P)?\\(\\s*([A-Za-z]+),\\s*([A-Za-z0-9]+)\\)");
}

std::set<std::string> allTests(const std::filesystem::path& folder)
{
    std::set<std::string> tests;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".cpp") {
            tests.merge(testsIn(contentOf(entry.path())));
        }
    }
    return tests;
}

TEST(ReliabilityDocument, EachTestThatItNamesIsThere)
{
    const std::filesystem::path root = VOLTMERE_SOURCE_DIR;
    const auto named = testsNamedIn(contentOf(root / "docs" / "reliability.md"));
    const auto present = allTests(root / "tests");
    std::vector<std::string> missing;
    std::set_difference(named.begin(), named.end(), present.begin(), present.end(),
                        std::back_inserter(missing));
    EXPECT_THAT(missing, IsEmpty());
    EXPECT_GT(named.size(), 20U);
}

TEST(ReliabilityDocument, EveryFaultHasATest)
{
    std::ifstream document(std::filesystem::path(VOLTMERE_SOURCE_DIR) / "docs" / "reliability.md");
    for (std::string line; std::getline(document, line);) {
        const bool isRow = line.starts_with("| ") && !line.starts_with("| What goes wrong");
        EXPECT_TRUE(!isRow || !testsNamedIn(line).empty()) << line;
    }
}

TEST(ReliabilityDocument, NamesOfTestsAreRead)
{
    EXPECT_THAT(testsNamedIn("| x | `Suite.Name`, `Other.Name2`, `file.cpp` |"),
                UnorderedElementsAre("Suite.Name", "Other.Name2"));
    EXPECT_THAT(testsIn("TEST_F(Suite, Name)\nTEST(\n    A, B)"),
                UnorderedElementsAre("Suite.Name", "A.B"));
}

} // namespace
} // namespace voltmere
