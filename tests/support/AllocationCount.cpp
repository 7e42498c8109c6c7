#include "tests/support/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t count = 0;
thread_local int failing = 0;  ///< the allocation by a nothrow form that fails, counted from 1
thread_local int throwing = 0; ///< the allocation by a throwing form that fails, likewise
thread_local std::ptrdiff_t live = 0;

void* Counted(std::size_t size) noexcept {
    void* const memory = std::malloc(size == 0 ? 1 : size);
    ++count;
    live += memory ? 1 : 0;
    return memory;
}

void* CountedNothrow(std::size_t size) noexcept {
    if (failing > 0 && --failing == 0) {
        return nullptr;
    }
    return Counted(size);
}

void* CountedOrThrow(std::size_t size) {
    if (throwing > 0 && --throwing == 0) {
        throw std::bad_alloc();
    }
    if (void* const memory = Counted(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void Release(void* memory) noexcept {
    live -= memory ? 1 : 0;
    std::free(memory);
}

} // namespace

namespace KvRefSystemTests {

std::size_t AllocationCount() {
    return count;
}

void FailNothrowAllocation(int which) {
    failing = which;
}

std::ptrdiff_t LiveAllocations() {
    return live;
}

void FailAllocation(int which) {
    throwing = which;
}

bool AllocationIsToFail() {
    return throwing > 0;
}

} // namespace KvRefSystemTests

// Replaces the process's allocation, every form of it: under a sanitizer a form that is left out would be the
// sanitizer's own, which must not meet the release of another.
void* operator new(std::size_t size) {
    return CountedOrThrow(size);
}

void* operator new[](std::size_t size) {
    return CountedOrThrow(size);
}

void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
    return CountedNothrow(size);
}

void* operator new[](std::size_t size, std::nothrow_t const&) noexcept {
    return CountedNothrow(size);
}

void operator delete(void* memory) noexcept {
    Release(memory);
}

void operator delete[](void* memory) noexcept {
    Release(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    Release(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    Release(memory);
}

void operator delete(void* memory, std::nothrow_t const&) noexcept {
    Release(memory);
}

void operator delete[](void* memory, std::nothrow_t const&) noexcept {
    Release(memory);
}
