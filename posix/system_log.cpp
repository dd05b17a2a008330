#include "posix/system_log.h"

#include "texts/plain_text.h"

#include <syslog.h>

namespace voltmere {

PosixSystemLog::PosixSystemLog()
{
    ::openlog("voltmere", LOG_PERROR, LOG_USER);
}

void PosixSystemLog::write(std::string_view line)
{
    ::syslog(LOG_NOTICE, "%s", plainText(line).c_str());
}

} // namespace voltmere
