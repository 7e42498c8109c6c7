#pragma once

#include <cstddef>

/**
 * The allocation of a test process: it counts, it fails on request, and it ends the process with a message at a
 * release of something that isn't live, or by another form than that of the allocation. What is counted and what
 * fails is each thread's own.
 */
namespace KvRefSystemTests {

/** Which of the coming allocations fail. */
enum class TFailing {
    Once,    ///< one of them
    Onwards, ///< it and all that follow
};

/** @return how often this thread has called `operator new` so far, from any library of the process. */
std::size_t AllocationCount();

/**
 * Lets one of this thread's coming allocations by a nothrow form give null.
 * @param which counted from 1; 0: none.
 */
void FailNothrowAllocation(int which);

/** @return this thread's allocations less its releases. */
std::ptrdiff_t LiveAllocations();

/**
 * Lets one of this thread's coming allocations by a throwing form throw.
 * @param which counted from 1; 0: none.
 */
void FailAllocation(int which);

/** @return whether the allocation that is to fail is still to come. */
bool AllocationIsToFail();

/**
 * Lets this thread's coming allocations fail, by throwing or by null as their form has it; both forms count.
 * @param which counted from 1; 0: none, and no more.
 */
void FailEveryForm(int which, TFailing failing);

/** @return how many allocations failed since `FailEveryForm` last asked for some. */
int FailedAllocations();

} // namespace KvRefSystemTests
