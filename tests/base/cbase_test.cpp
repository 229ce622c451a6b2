#include "vela7/cbase.h"

#include <gtest/gtest.h>

#include <functional>

using namespace vela7;

namespace {

int deaths = 0;

struct Thing : CBase
{
    bool native = false; // dies by delete, whoever holds it
    std::function<void()> atDeath = [] {};

    Thing() { deaths = 0; }
    ~Thing() override
    {
        ++deaths;
        if (native)
            RevokeHandles();
        atDeath();
    }
};

TEST(CBase, ReleaseEndsItAtZeroAndAtOne)
{
    struct Deferred : CBase
    {
        int ends = 0;
        void Dispose() override { ++ends; }
    } thing;
    EXPECT_EQ(thing.Release(), 0u);
    EXPECT_EQ(thing.ends, 1);
    thing.AddRef();
    EXPECT_EQ(thing.AddRef(), 2u);
    EXPECT_EQ(thing.Release(), 1u);
    EXPECT_EQ(thing.ends, 1);
    EXPECT_EQ(thing.Release(), 0u);
    EXPECT_EQ(thing.ends, 2);
    EXPECT_EQ(thing.AddRef(), 1u); // its end was put off
    thing.SetCounted(false);       // somebody else's: nothing ends it
    EXPECT_EQ(thing.Release(), 0u);
    EXPECT_EQ(thing.ends, 2);
}

TEST(CHandle, CountsItsCopies)
{
    auto* const thing = new Thing;
    CHandle<Thing> first(thing);
    {
        const CHandle<Thing> second = first;
        EXPECT_EQ(thing->GetRefCount(), 2u);
    }
    CHandle<Thing>& self = first;
    first = self;
    first = std::move(self);
    CHandle<Thing> moved = std::move(first);
    EXPECT_EQ(first.Get(), nullptr);
    EXPECT_EQ(moved.Get(), thing);
    EXPECT_EQ(thing->GetRefCount(), 1u);

    moved = CHandle<Thing>(new Thing); // gives the first one up
    EXPECT_EQ(deaths, 1);
    Thing* const detached = moved.Detach(); // with the reference
    moved.Reset();
    EXPECT_EQ(detached->Release(), 0u);
    EXPECT_EQ(deaths, 2);
    first = CHandle<Thing>(new Thing);
    first->atDeath = [&] { first.Reset(); }; // again, inside
    first.Reset();
    EXPECT_EQ(deaths, 1);
}

TEST(CHandle, HoldsNoReferenceToAnUncountedObject)
{
    CHandle<CBase> copy;
    {
        CBase thing;
        thing.SetCounted(false);
        copy = CHandle<CBase>(&thing);
        EXPECT_EQ(copy.Get(), &thing);
        EXPECT_EQ(thing.GetRefCount(), 0u);
    }
    EXPECT_FALSE(copy);
}

TEST(CHandle, IsInertAfterANativeDeath)
{
    auto* const thing = new Thing;
    thing->native = true;
    CHandle<Thing> handle(thing);
    const CHandle<Thing> other = handle;
    // Whoever hears of the death may drop the handle, or take a new one, before the object is quite gone.
    thing->atDeath = [&] {
        EXPECT_EQ(handle.Get(), nullptr);
        handle.Reset();
        EXPECT_EQ(CHandle<Thing>(thing).Get(), nullptr);
    };
    delete thing;
    EXPECT_EQ(deaths, 1);
    EXPECT_FALSE(CHandle<Thing>(other));
}

} // namespace
