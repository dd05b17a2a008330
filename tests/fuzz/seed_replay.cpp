#include "fuzz/fuzz_target.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

/// Tries every file of the folder that is given, once. Stands in for a fuzzer where there is none.
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: " << argv[0] << " FOLDER\n";
        return 2;
    }
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string input{std::istreambuf_iterator<char>(file), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
        ++count;
    }
    std::cout << count << " seeds\n";
    return count > 0 ? 0 : 1;
}
