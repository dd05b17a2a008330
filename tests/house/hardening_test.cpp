#include <gmock/gmock.h>

#include <elf.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace voltmere {
namespace {

using testing::Contains;
using testing::EndsWith;
using testing::Not;

// What the built program says of itself, read from its ELF headers.

class BuiltProgram {
public:
    BuiltProgram()
    {
        std::ifstream file(VOLTMERE_PROGRAM, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(file), {});
        EXPECT_TRUE(std::string_view(bytes).starts_with(ELFMAG)) << VOLTMERE_PROGRAM;
        EXPECT_EQ(bytes.at(EI_CLASS), ELFCLASS64);
    }

    std::vector<Elf64_Phdr> segments(Elf64_Word type) const
    {
        const auto header = at<Elf64_Ehdr>(0);
        std::vector<Elf64_Phdr> found;
        for (std::size_t i = 0; i < header.e_phnum; ++i) {
            const auto segment = at<Elf64_Phdr>(header.e_phoff + i * header.e_phentsize);
            if (segment.p_type == type) {
                found.push_back(segment);
            }
        }
        return found;
    }

    Elf64_Half type() const { return at<Elf64_Ehdr>(0).e_type; }

    /// The value of an entry of the dynamic section; 0 when there is none.
    Elf64_Xword dynamicValue(Elf64_Sxword tag) const
    {
        for (const Elf64_Phdr& section : segments(PT_DYNAMIC)) {
            for (Elf64_Xword place = 0; place < section.p_filesz; place += sizeof(Elf64_Dyn)) {
                const auto entry = at<Elf64_Dyn>(section.p_offset + place);
                if (entry.d_tag == tag) {
                    return entry.d_un.d_val;
                }
            }
        }
        return 0;
    }

    /// The names in the table of dynamic symbols, which lies in the first segment.
    std::vector<std::string> symbols() const
    {
        const Elf64_Xword begin = dynamicValue(DT_STRTAB);
        const Elf64_Xword size = dynamicValue(DT_STRSZ);
        std::vector<std::string> names{""};
        for (const char character : bytes.substr(begin, size)) {
            if (character == '\0') {
                names.emplace_back();
            } else {
                names.back() += character;
            }
        }
        return names;
    }

private:
    template<typename Record>
    Record at(std::size_t place) const
    {
        Record record{};
        EXPECT_LE(place + sizeof record, bytes.size());
        std::memcpy(&record, bytes.data() + place, sizeof record);
        return record;
    }

    std::string bytes;
};

TEST(HardeningTest, TheProgramIsLoadedAtARandomPlace)
{
    EXPECT_EQ(BuiltProgram().type(), ET_DYN);
    EXPECT_TRUE(BuiltProgram().dynamicValue(DT_FLAGS_1) & DF_1_PIE);
}

TEST(HardeningTest, TheStackCannotBeExecuted)
{
    const auto stacks = BuiltProgram().segments(PT_GNU_STACK);
    ASSERT_EQ(stacks.size(), 1U);
    EXPECT_FALSE(stacks[0].p_flags & PF_X);
}

TEST(HardeningTest, NothingIsWritableAndExecutable)
{
    for (const Elf64_Phdr& segment : BuiltProgram().segments(PT_LOAD)) {
        EXPECT_FALSE((segment.p_flags & PF_W) && (segment.p_flags & PF_X));
    }
}

TEST(HardeningTest, RelocationsAreDoneAtTheStartAndThenReadOnly)
{
    EXPECT_EQ(BuiltProgram().segments(PT_GNU_RELRO).size(), 1U);
    EXPECT_TRUE(BuiltProgram().dynamicValue(DT_FLAGS_1) & DF_1_NOW);
}

TEST(HardeningTest, StacksAreGuarded)
{
    EXPECT_THAT(BuiltProgram().symbols(), Contains("__stack_chk_fail"));
}

TEST(HardeningTest, CallsOfTheCLibraryAreChecked)
{
    EXPECT_THAT(BuiltProgram().symbols(), Contains(EndsWith("_chk")));
}

/// Nothing in the program reaches a shell or an unchecked copy.
TEST(HardeningTest, ReachesNoShellAndNoUncheckedCopy)
{
    for (const char* const name : {"system", "popen", "wordexp", "strcpy", "sprintf", "gets"}) {
        EXPECT_THAT(BuiltProgram().symbols(), Not(Contains(name)));
    }
}

} // namespace
} // namespace voltmere
