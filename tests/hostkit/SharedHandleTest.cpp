#include "frame/imported/SharedHandle.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <thread>
#include <utility>
#include <vector>

using namespace var_a_legacy;

namespace {

struct Counted {
    static inline std::atomic<int> alive{0};
    int number;

    explicit Counted(int value = 0) : number(value) { ++alive; }
    Counted(Counted const&) = delete;
    Counted& operator=(Counted const&) = delete;
    virtual ~Counted() { --alive; }
};

struct Derived : Counted {
    static inline std::atomic<int> ended{0};

    ~Derived() override { ++ended; }
};

} // namespace

static_assert(sizeof(var_a<int>) == 16, "a handle is two pointers");

TEST(SharedHandle, AnEmptyHandleHasNothing) {
    var_a<int> const handle;
    EXPECT_EQ(handle.get(), nullptr);
    EXPECT_EQ(handle.use_count(), 0u);
    EXPECT_FALSE(handle);
}

TEST(SharedHandle, CopiesShareTheObjectAndTheLastOneEndsIt) {
    var_a<Counted*> first = newobj_a(new Counted(7));
    {
        var_a<Counted*> const second(first);
        var_a<Counted*> third;
        third = second;
        EXPECT_EQ(third->number, 7);
        EXPECT_EQ(first.use_count(), 3u);
    }
    EXPECT_EQ(first.use_count(), 1u);
    EXPECT_EQ(Counted::alive, 1);
    first.release();
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_EQ(first.get(), nullptr);
    first.release();
}

TEST(SharedHandle, EndsTheObjectThroughItsVirtualDestructor) {
    Derived::ended = 0;
    newobj_a<Counted>(new Derived()).release();
    EXPECT_EQ(Derived::ended, 1);
}

TEST(SharedHandle, MayCountANullObject) {
    var_a<Counted*> const handle = newobj_a<Counted>(nullptr);
    EXPECT_EQ(handle.get(), nullptr);
    EXPECT_FALSE(handle);
    EXPECT_EQ(handle.use_count(), 1u);
}

TEST(SharedHandle, AnEmbeddedObjectEndsWithItsItem) {
    var_a<Counted> handle = newembedded_a<Counted>(5);
    EXPECT_EQ((*handle).number, 5);
    EXPECT_EQ(Counted::alive, 1);
    handle = var_a<Counted>();
    EXPECT_EQ(Counted::alive, 0);
}

TEST(SharedHandle, MovingLeavesAnEmptyHandle) {
    var_a<Counted*> first = newobj_a(new Counted(1));
    var_a<Counted*> const second(std::move(first));
    EXPECT_EQ(first.use_count(), 0u);
    EXPECT_EQ(second.use_count(), 1u);
}

TEST(SharedHandle, AssigningAHandleToItselfKeepsTheObject) {
    var_a<Counted*> handle = newobj_a(new Counted(1));
    var_a<Counted*> const& same = handle;
    handle = same;
    EXPECT_EQ(handle->number, 1);
    EXPECT_EQ(handle.use_count(), 1u);
}

TEST(SharedHandle, TheItemBeginsWithACountOf64BitsAndTheDestroyFunction) {
    struct Item : var_a_item {
        static void Destroy(var_a_item*) {}
        Item() : var_a_item(&Destroy) {}
    };
    Item item;
    var_a_item* const base = &item;
    EXPECT_EQ(static_cast<void*>(&base->count), static_cast<void*>(base));
    EXPECT_EQ(sizeof base->count, sizeof(std::uint64_t));
    EXPECT_EQ(reinterpret_cast<char*>(&base->destroy_fn) - reinterpret_cast<char*>(base), 8);
}

TEST(SharedHandle, HandlesMayBeCopiedAndDroppedOnSeveralThreads) {
    {
        var_a<Counted*> const handle = newobj_a(new Counted(1));
        std::vector<std::thread> threads;
        for (int number = 0; number < 4; ++number) {
            threads.emplace_back([handle] {
                for (int round = 0; round < 10000; ++round) {
                    var_a<Counted*> const copy(handle);
                    EXPECT_EQ(copy->number, 1);
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        threads.clear();
        EXPECT_EQ(handle.use_count(), 1u);
    }
    EXPECT_EQ(Counted::alive, 0);
}
