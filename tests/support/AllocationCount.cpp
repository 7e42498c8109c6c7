#include "tests/support/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t count = 0;

} // namespace

namespace KvRefSystemTests {

std::size_t AllocationCount() {
    return count;
}

} // namespace KvRefSystemTests

// Replaces the process's allocation; the array forms of the standard library end here too.
void* operator new(std::size_t size) {
    ++count;
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
