#include "basekit2/signal.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

using basekit2::_internal::connection_t;
using Sig = basekit2::_internal::signal_t<int>;

namespace {

class Signal : public testing::Test
{
protected:
    std::function<void(int)> Slot(char name)
    {
        return [this, name](int value) { heard += name + std::to_string(value) + ' '; };
    }

    std::string heard;
    std::unique_ptr<Sig> sig = std::make_unique<Sig>();
};

TEST_F(Signal, SlotsMayComeAndGoWhileItEmits)
{
    connection_t b, c;
    sig->connect(Slot('a'));
    b = sig->connect([&](int value) {
        Slot('b')(value);
        sig->connect(Slot('n')); // waits
        b.disconnect();
        sig->disconnect(c);
    });
    c = sig->connect(Slot('c'));
    sig->connect(Slot('d'));
    sig->emit(1);
    (*sig)(2);
    sig->connect([](int) { throw 7; });
    EXPECT_THROW(sig->emit(3), int);
    sig->disconnect_all();
    sig->emit(4);
    EXPECT_EQ(heard, "a1 b1 d1 a2 d2 n2 a3 d3 n3 ");
}

TEST_F(Signal, ASlotMayDestroyTheSignal)
{
    sig->connect([&](int) { sig.reset(); });
    connection_t after = sig->connect(Slot('z'));
    sig->emit(1);
    EXPECT_EQ(heard, "");
    EXPECT_FALSE(after.connected());
}

TEST_F(Signal, MisuseAsserts)
{
    static int assertions = 0;
    TARN::set_assert_handler([](const char*, const char*, int) { ++assertions; });
    Sig other;
    connection_t foreign = other.connect(Slot('o'));
    sig->disconnect(foreign);
    EXPECT_TRUE(foreign.connected());
    EXPECT_FALSE(sig->connect({}).connected());
    TARN::set_assert_handler(nullptr);
    EXPECT_EQ(std::exchange(assertions, 0), 2);
}

TEST(Mutex, IsTakenOnce)
{
    basekit2::threading::mutex_t mutex;
    EXPECT_TRUE(mutex.try_lock());
    std::thread([&] { EXPECT_FALSE(mutex.try_lock()); }).join();
    mutex.unlock();
}

TEST_F(Signal, WhatASlotHoldsDiesOutsideTheLock)
{
    // Its destruction asks the signal again: with the lock held that would hang.
    struct Asker
    {
        Sig* sig;
        ~Asker() { sig->slots_count(); }
    };
    connection_t first = sig->connect([asker = std::make_shared<Asker>(Asker{sig.get()})](int) {});
    first.disconnect();
    EXPECT_EQ(sig->slots_count(), 0u);
}

} // namespace
