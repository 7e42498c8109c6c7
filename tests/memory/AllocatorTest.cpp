#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

namespace {

using namespace KvRefSystemTests;

// Volatile, since a compiler that sees through the calls refuses what the tests are about.
void* (*volatile allocateObject)(std::size_t) = &::operator new;
void (*volatile releaseObject)(void*) = &::operator delete;
void (*volatile releaseArray)(void*) = &::operator delete[];

void ReleaseTwice() {
    void* const block = allocateObject(8);
    releaseObject(block);
    releaseObject(block);
}

void ReleaseByTheOtherForm() {
    releaseArray(allocateObject(8));
}

void ReleaseWhatIsNoBlock() {
    alignas(std::max_align_t) static char memory[64] = {};
    releaseObject(memory + 32);
}

TEST(AllocatorDeathTest, AWrongReleaseEndsTheProcess) {
    EXPECT_DEATH(ReleaseTwice(), "released already");
    EXPECT_DEATH(ReleaseByTheOtherForm(), "the array form for an object");
    EXPECT_DEATH(ReleaseWhatIsNoBlock(), "never gave");
}

TEST(Allocator, BothFormsFailOnceOrOnwards) {
    FailEveryForm(2, TFailing::Once);
    void* const first = ::operator new(8, std::nothrow);
    void* const second = ::operator new(8, std::nothrow);
    void* const third = allocateObject(8);
    FailEveryForm(0, TFailing::Once);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_EQ(FailedAllocations(), 1);
    ::operator delete(first);
    ::operator delete(third);

    int thrown = 0;
    FailEveryForm(1, TFailing::Onwards);
    for (int attempt = 0; attempt < 3; ++attempt) {
        try {
            releaseObject(allocateObject(8));
        } catch (std::bad_alloc const&) {
            ++thrown;
        }
    }
    FailEveryForm(0, TFailing::Onwards);
    EXPECT_EQ(thrown, 3);
    EXPECT_EQ(FailedAllocations(), 3);
}

} // namespace
