#include "macos/ns_log.h"

#include "macos/cocoa_text.h"
#include "texts/plain_text.h"

namespace voltmere {

void NsLog::write(std::string_view line)
{
    NSLog(@"%@", cocoaText(plainText(std::string(line))));
}

} // namespace voltmere
