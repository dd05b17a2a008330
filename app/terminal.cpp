#include "app/terminal.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace voltmere {

int printAnswer(std::string_view text)
{
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!written || std::fflush(stdout) != 0) {
        std::fprintf(stderr, "voltmere: cannot write the answer: %s\n", std::strerror(errno));
        return exitStatus::cannotRun;
    }
    return 0;
}

} // namespace voltmere
