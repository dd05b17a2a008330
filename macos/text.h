#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>

namespace voltmere {

/// The text as Foundation holds it; the empty text for what is not UTF-8.
inline NSString* cocoaText(std::string_view text)
{
    NSString* const converted = [[NSString alloc] initWithBytes:text.data()
                                                         length:text.size()
                                                       encoding:NSUTF8StringEncoding];
    return converted != nil ? converted : @"";
}

/// The text as UTF-8; empty for none.
inline std::string utf8Text(NSString* text)
{
    const char* const bytes = text.UTF8String;
    return bytes != nullptr ? bytes : "";
}

} // namespace voltmere
