#include "tests/support/AllocationCount.h"

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

using KvRefSystemTests::TFailing;

thread_local std::size_t count = 0;
thread_local int failing = 0;  ///< the allocation by a nothrow form that fails, counted from 1
thread_local int throwing = 0; ///< the allocation by a throwing form that fails, likewise
thread_local std::ptrdiff_t live = 0;

/** What `FailEveryForm` asks for. */
struct TRequest {
    int left; ///< allocations up to the first that fails, and 0 when none does
    TFailing failing;
    int failed;
};
thread_local TRequest request = {0, TFailing::Once, 0};

/** How a block was allocated, as the mark before it tells; any other number is no live block. */
enum TMark : std::uint64_t {
    LiveObject = 0x4f626a6563744c76,
    LiveArray = 0x41727261794c6976,
    Released = 0x52656c6561736564,
};

/** Stands before each block; keeps the blocks aligned for every type. */
struct alignas(__STDCPP_DEFAULT_NEW_ALIGNMENT__) THeader {
    std::uint64_t mark;
    std::size_t size;
};

/** Released blocks stay here for a while, so that their marks still tell of them. */
std::atomic<void*> graves[256];
std::atomic<unsigned> nextGrave{0};

void Bury(void* block) noexcept {
    unsigned const grave = nextGrave.fetch_add(1, std::memory_order_relaxed) % 256;
    std::free(graves[grave].exchange(block));
}

[[noreturn]] void Accuse(char const* crime) noexcept {
    std::fputs("operator delete: ", stderr);
    std::fputs(crime, stderr);
    std::fputs("\n", stderr);
    std::abort();
}

bool IsRefused() noexcept {
    if (request.left == 0) {
        return false;
    }
    if (request.left > 1) {
        --request.left;
        return false;
    }
    request.left = request.failing == TFailing::Onwards ? 1 : 0;
    ++request.failed;
    return true;
}

void* Counted(std::size_t size, TMark mark) noexcept {
    auto* const header = size > SIZE_MAX - sizeof(THeader)
                             ? nullptr
                             : static_cast<THeader*>(std::malloc(sizeof(THeader) + size));
    ++count;
    if (!header) {
        return nullptr;
    }
    ++live;
    header->mark = mark;
    header->size = size;
    return header + 1;
}

void* CountedNothrow(std::size_t size, TMark mark) noexcept {
    if ((failing > 0 && --failing == 0) || IsRefused()) {
        return nullptr;
    }
    return Counted(size, mark);
}

void* CountedOrThrow(std::size_t size, TMark mark) {
    if ((throwing > 0 && --throwing == 0) || IsRefused()) {
        throw std::bad_alloc();
    }
    if (void* const memory = Counted(size, mark)) {
        return memory;
    }
    throw std::bad_alloc();
}

void Release(void* memory, TMark mark, std::size_t const* size = nullptr) noexcept {
    if (!memory) {
        return;
    }
    auto* const header = static_cast<THeader*>(memory) - 1;
    if (header->mark == Released) {
        Accuse("of a block that is released already");
    }
    if (header->mark != LiveObject && header->mark != LiveArray) {
        Accuse("of something that operator new never gave");
    }
    if (header->mark != mark) {
        Accuse(mark == LiveArray ? "the array form for an object" : "the object's form for an array");
    }
    if (size && *size != header->size) {
        Accuse("of another size than that of the allocation");
    }
    --live;
    header->mark = Released;
    Bury(header);
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

void FailEveryForm(int which, TFailing mode) {
    request.left = which;
    request.failing = mode;
    if (which > 0) {
        request.failed = 0;
    }
}

int FailedAllocations() {
    return request.failed;
}

} // namespace KvRefSystemTests

// Replaces the process's allocation, every form of it: under a sanitizer a form that is left out would be the
// sanitizer's own, which must not meet the release of another.
void* operator new(std::size_t size) {
    return CountedOrThrow(size, LiveObject);
}

void* operator new[](std::size_t size) {
    return CountedOrThrow(size, LiveArray);
}

void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
    return CountedNothrow(size, LiveObject);
}

void* operator new[](std::size_t size, std::nothrow_t const&) noexcept {
    return CountedNothrow(size, LiveArray);
}

void operator delete(void* memory) noexcept {
    Release(memory, LiveObject);
}

void operator delete[](void* memory) noexcept {
    Release(memory, LiveArray);
}

void operator delete(void* memory, std::size_t size) noexcept {
    Release(memory, LiveObject, &size);
}

void operator delete[](void* memory, std::size_t size) noexcept {
    Release(memory, LiveArray, &size);
}

void operator delete(void* memory, std::nothrow_t const&) noexcept {
    Release(memory, LiveObject);
}

void operator delete[](void* memory, std::nothrow_t const&) noexcept {
    Release(memory, LiveArray);
}
