#include "tests/support/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t count = 0;
thread_local int failing = 0; ///< the allocation by a nothrow form that fails, counted from 1

void* Counted(std::size_t size) noexcept {
    ++count;
    return std::malloc(size == 0 ? 1 : size);
}

void* CountedNothrow(std::size_t size) noexcept {
    if (failing > 0 && --failing == 0) {
        return nullptr;
    }
    return Counted(size);
}

void* CountedOrThrow(std::size_t size) {
    if (void* const memory = Counted(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

} // namespace

namespace KvRefSystemTests {

std::size_t AllocationCount() {
    return count;
}

void FailNothrowAllocation(int which) {
    failing = which;
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
    std::free(memory);
}

void operator delete[](void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::nothrow_t const&) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::nothrow_t const&) noexcept {
    std::free(memory);
}
