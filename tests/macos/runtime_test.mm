// The runtime itself: what the other tests take for granted.

#include "mac_test.h"

@interface Base : NSObject
@property (strong) id owned;
@property (weak) id seen;
@property (copy) void (^block)(void);
- (int)unknown;
@end
#pragma clang diagnostic ignored "-Wincomplete-implementation"
EMPTY(Base)

namespace voltmere {
namespace {

using ObjectiveC = MacTest;

TEST_F(ObjectiveC, OwnsStronglyAndForgetsWeakly)
{
    Base* const holder = [Base new];
    @autoreleasepool {
        Base* const object = [Base new];
        holder.owned = holder.seen = object;
        holder.block = ^{ (void)object; };
        holder.owned = nil;
    }
    @autoreleasepool {
        EXPECT_EQ(objc::liveObjects()["Base"], 2) << "the block holds the second one";
        EXPECT_NE(holder.seen, nil);
        holder.block = nil;
    }
    EXPECT_EQ(holder.seen, nil);
    EXPECT_EQ(objc::liveObjects()["Base"], 1);
}

TEST_F(ObjectiveC, EndsTheProcessForADeadObjectOrAnUnknownMethod)
{
    __unsafe_unretained Base* dead = nil;
    @autoreleasepool {
        Base* const shortLived = [Base new];
        dead = shortLived;
    }
    EXPECT_DEATH((void)[dead unknown], "destroyed object: \\[Base unknown\\]");
    EXPECT_DEATH((void)[[Base new] unknown], "unknown method: \\[Base unknown\\]");
}

} // namespace
} // namespace voltmere
