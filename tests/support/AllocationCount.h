#pragma once

#include <cstddef>

namespace KvRefSystemTests {

/** @return how often this thread has called `operator new` so far, from any library of the process. */
std::size_t AllocationCount();

} // namespace KvRefSystemTests
