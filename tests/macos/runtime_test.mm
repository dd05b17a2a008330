// The runtime itself: what the other tests take for granted.

#include "runtime.h"

#include <gtest/gtest.h>
#include <objc/NSObject.h>

#include <memory>

@interface Failure : NSObject
- (int)hasUnknownMethod;
@end
@implementation Failure
- (int)hasUnknownMethod
{
    return 0;
}
@end
@interface SpecialFailure : Failure
@end
@implementation SpecialFailure
@end

struct Four {
    double a, b, c, d;
};

@interface Base : NSObject {
    char _first;
    std::shared_ptr<int> _shared;
}
@property (strong) id owned;
@property (weak) id seen;
@property (copy) void (^block)(void);
@property Four four;
@end
@implementation Base
- (void)share:(std::shared_ptr<int>)shared
{
    _shared = shared;
}
- (int)number
{
    return 1;
}
- (int)twice
{
    return 2 * self.number;
}
- (void)fail
{
    @throw [SpecialFailure new];
}
@end

@interface Derived : Base {
    long _last;
}
@end
@implementation Derived
- (int)number
{
    return _last == 0 ? 10 + [super number] : 0;
}
@end

@interface Base (More)
- (int)thrice;
@end
@implementation Base (More)
- (int)thrice
{
    return 3 * self.number;
}
@end

namespace voltmere {
namespace {

struct ObjectiveC : testing::Test {
    void TearDown() override
    {
        objc::drainPool();
        for (const auto& [name, count] : objc::liveObjects()) {
            EXPECT_EQ(count, 0) << name;
        }
    }
};

TEST_F(ObjectiveC, CallsTheMethodOfTheNearestClassOrOfACategory)
{
    Base* const derived = [Derived new];
    EXPECT_EQ(derived.twice, 22);
    EXPECT_EQ([derived thrice], 33);
    EXPECT_TRUE([derived isKindOfClass:Base.class]);
    EXPECT_FALSE([[Base new] isKindOfClass:Derived.class]);
    EXPECT_TRUE([derived respondsToSelector:@selector(thrice)]);
    EXPECT_FALSE([derived respondsToSelector:@selector(hasUnknownMethod)]);
}

TEST_F(ObjectiveC, KeepsInstanceVariablesOfEachClassApart)
{
    Derived* const derived = [Derived new];
    derived.four = {1, 2, 3, 4};
    EXPECT_EQ(derived.number, 11) << "the derived class's variable is still 0";
    EXPECT_EQ(derived.four.d, 4);
    Base* nothing = nil;
    EXPECT_EQ(nothing.four.a, 0);
    EXPECT_EQ(nothing.twice, 0);
}

TEST_F(ObjectiveC, OwnsStronglyAndForgetsWeakly)
{
    Base* const holder = [Base new];
    const auto shared = std::make_shared<int>(7);
    {
        Base* const object = [Base new];
        [object share:shared];
        holder.owned = object;
        holder.seen = object;
        holder.block = ^{ (void)object; };
    }
    objc::drainPool();
    EXPECT_NE(holder.seen, nil);
    holder.owned = nil;
    objc::drainPool();
    EXPECT_NE(holder.seen, nil) << "the block holds it too";
    holder.block = nil;
    objc::drainPool();
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
    } @catch (Failure* failure) {
        caught = [failure isKindOfClass:SpecialFailure.class] ? 2 : 3;
    }
    EXPECT_EQ(caught, 2);
    EXPECT_EQ(witness.use_count(), 1) << "the stack is unwound";
    try {
        [[Base new] fail];
    } catch (...) {
        caught = 4;
    }
    EXPECT_EQ(caught, 4);
}

TEST_F(ObjectiveC, EndsTheProcessForADeadObjectOrAnUnknownMethod)
{
    Base* const object = [Base new];
    __unsafe_unretained Base* dead = nil;
    {
        Base* const shortLived = [Base new];
        dead = shortLived;
    }
    EXPECT_DEATH((void)[dead twice], "destroyed object: \\[Base twice\\]");
    EXPECT_DEATH((void)[(Failure*)(id)object hasUnknownMethod],
                 "unknown method: \\[Base hasUnknownMethod\\]");
}

} // namespace
} // namespace voltmere
