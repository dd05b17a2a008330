// The runtime itself: what the other tests take for granted.

#include "mac_test.h"

#include <memory>

@interface Special : NSException
- (int)unknown;
@end
@implementation Special
- (int)unknown RETURNS(0);
@end

@interface Base : NSObject {
    std::shared_ptr<int> _shared;
}
@property (strong) id owned;
@property (weak) id seen;
@property (copy) void (^block)(void);
@end
@implementation Base
- (void)share:(std::shared_ptr<int>)shared DOES(_shared = shared);
- (int)twice RETURNS(2);
- (void)fail DOES(@throw voltmere::made(Special.class, "failed"));
@end

namespace voltmere {
namespace {

using ObjectiveC = MacTest;

TEST_F(ObjectiveC, OwnsStronglyAndForgetsWeakly)
{
    Base* const holder = [Base new];
    const auto shared = std::make_shared<int>(7);
    @autoreleasepool {
        Base* const object = [Base new];
        [object share:shared];
        holder.owned = holder.seen = object;
        holder.block = ^{ (void)object; };
        holder.owned = nil;
    }
    @autoreleasepool {
        EXPECT_NE(holder.seen, nil) << "the block holds it too";
        holder.block = nil;
    }
    EXPECT_EQ(holder.seen, nil);
    EXPECT_EQ(shared.use_count(), 1) << "members of C++ are destroyed with their object";
    EXPECT_EQ(objc::liveObjects()["Base"], 1);
}

TEST_F(ObjectiveC, CatchesByClass)
{
    int caught = 0;
    const auto witness = std::make_shared<int>(0);
    @try {
        const std::shared_ptr<int> local = witness;
        [[Base new] fail];
    } @catch (Base* other) {
        caught = 1;
    } @catch (NSException* failure) {
        caught = [failure isKindOfClass:Special.class] ? 2 : 3;
    }
    EXPECT_EQ(caught, 2);
    EXPECT_EQ(witness.use_count(), 1) << "the stack is unwound";
    EXPECT_ANY_THROW([[Base new] fail]);
}

TEST_F(ObjectiveC, EndsTheProcessForADeadObjectOrAnUnknownMethod)
{
    __unsafe_unretained Base* dead = nil;
    @autoreleasepool {
        Base* const shortLived = [Base new];
        dead = shortLived;
    }
    EXPECT_DEATH((void)[dead twice], "destroyed object: \\[Base twice\\]");
    EXPECT_DEATH((void)[(Special*)[Base new] unknown], "unknown method: \\[Base unknown\\]");
}

} // namespace
} // namespace voltmere
