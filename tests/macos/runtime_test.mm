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

TEST_F(ObjectiveC, CatchesByClass)
{
    std::string caught;
    const auto witness = std::make_shared<int>(0);
    @try {
        const std::shared_ptr<int> local = witness;
        raise("refused");
    } @catch (Base* other) {
        caught = "another class";
    } @catch (NSException* failure) {
        caught = text(failure.reason);
    }
    EXPECT_EQ(caught, "refused");
    EXPECT_EQ(witness.use_count(), 1) << "the stack is unwound";
    EXPECT_ANY_THROW(raise("refused"));
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
