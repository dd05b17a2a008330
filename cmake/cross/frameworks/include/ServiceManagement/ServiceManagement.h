// ServiceManagement, as far as this program uses it. See ../README.md.
#pragma once

#include <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

// SMAppServiceStatus; macOS 13.0
typedef NSInteger SMAppServiceStatus;
enum : SMAppServiceStatus {
    SMAppServiceStatusNotRegistered VOLTMERE_SINCE(13.0) = 0,
    SMAppServiceStatusEnabled VOLTMERE_SINCE(13.0) = 1,
    SMAppServiceStatusRequiresApproval VOLTMERE_SINCE(13.0) = 2,
    SMAppServiceStatusNotFound VOLTMERE_SINCE(13.0) = 3,
};

VOLTMERE_SINCE(13.0)
@interface SMAppService : NSObject
// @property (class, readonly) SMAppService *mainAppService; macOS 13.0
@property (class, readonly) SMAppService* mainAppService;
// @property (readonly) SMAppServiceStatus status; macOS 13.0
@property (readonly) SMAppServiceStatus status;
// - (BOOL)registerAndReturnError:(NSError **)error; macOS 13.0
- (BOOL)registerAndReturnError:(NSError* _Nullable* _Nullable)error;
// - (BOOL)unregisterAndReturnError:(NSError **)error; macOS 13.0
- (BOOL)unregisterAndReturnError:(NSError* _Nullable* _Nullable)error;
@end

#pragma clang assume_nonnull end
