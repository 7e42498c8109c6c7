#pragma once

#include <cstddef>

namespace KvRefSystemTests {

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

} // namespace KvRefSystemTests
