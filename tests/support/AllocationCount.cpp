#include "tests/support/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t count = 0;

void* Counted(std::size_t size) noexcept {
    ++count;
    return std::malloc(size == 0 ? 1 : size);
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
    return Counted(size);
}

void* operator new[](std::size_t size, std::nothrow_t const&) noexcept {
    return Counted(size);
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
