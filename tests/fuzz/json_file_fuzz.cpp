#include "fuzz/fuzz_target.h"
#include "linux/json_file.h"
#include "texts/plain_text.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace voltmere {

namespace {

namespace fs = std::filesystem;

class CountingLog : public SystemLog {
public:
    void write(std::string_view line) override
    {
        ++lines;
        fuzz::require(line.starts_with("Voltmere: "), "a line of ours");
    }

    int lines = 0;
};

/// In memory where the system has such a place: every write waits for its disk.
class ScratchDirectory {
public:
    ScratchDirectory()
        : name((::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp") +
               std::string("/voltmere-fuzz-XXXXXX"))
    {
        fuzz::require(::mkdtemp(name.data()) != nullptr, "a directory can be made");
    }

    ~ScratchDirectory()
    {
        std::error_code ignored;
        fs::remove_all(name, ignored);
    }

    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    std::string name;
};

std::string readFile(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void checkValue(const JsonValue& value)
{
    const auto* text = std::get_if<std::string>(&value);
    fuzz::require(text == nullptr || isValidUtf8(*text), "texts are UTF-8");
}

void checkContent(const JsonContent& content)
{
    for (const auto& [key, entry] : content.entries) {
        fuzz::require(isValidUtf8(key), "keys are UTF-8");
        if (const auto* value = std::get_if<JsonValue>(&entry)) {
            checkValue(*value);
            continue;
        }
        for (const JsonRecord& record : std::get<std::vector<JsonRecord>>(entry)) {
            for (const auto& [name, value] : record) {
                fuzz::require(isValidUtf8(name), "names are UTF-8");
                checkValue(value);
            }
        }
    }
}

/// The files that were set aside, each with the content of the file that was damaged.
int keptCopies(const fs::path& directory, const std::string& content)
{
    int count = 0;
    for (const auto& entry : fs::directory_iterator(directory)) {
        if (entry.path().filename().string().starts_with("file.json.damaged-")) {
            fuzz::require(readFile(entry.path()) == content, "kept byte for byte");
            ++count;
        }
    }
    return count;
}

} // namespace

/// The input is a JSON file. Reading leaves it alone or sets it aside; a write keeps the rest and
/// is read back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ScratchDirectory directory;
    const fs::path path = directory.name + "/file.json";
    const std::string content = fuzz::textOf(data, size);
    std::ofstream(path, std::ios::binary) << content;
    CountingLog log;
    JsonFile file(path, "settings", SettingsUse::readAndWrite, log);

    JsonContent expected = readJsonFile(path);
    checkContent(expected);
    fuzz::require(readFile(path) == content, "looking changes nothing");
    fuzz::require(expected.problem.empty() || expected.entries.empty(), "damage holds nothing");
    file.load();
    const int kept = expected.damaged ? 1 : 0;
    fuzz::require(log.lines == kept, "damage is said once");
    fuzz::require(keptCopies(directory.name, content) == kept, "damage is kept");
    fuzz::require(fs::exists(path) == !expected.damaged, "a sound file stays");

    const std::vector<JsonRecord> records{{{"title", std::string("a\n\"数")}, {"due", 0.125}}, {}};
    file.set("threshold", JsonValue(std::int64_t{INT64_MAX}));
    file.set("delayed", records);
    expected.entries.insert_or_assign("threshold", JsonValue(std::int64_t{INT64_MAX}));
    expected.entries.insert_or_assign("delayed", records);
    fuzz::require(readJsonFile(path).entries == expected.entries, "the rest survives a write");
    fuzz::require(log.lines == kept, "nothing failed");
    return 0;
}

} // namespace voltmere
