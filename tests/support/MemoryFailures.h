#pragma once

#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <exception>
#include <functional>

/** Runs that lack memory, for tests. */
namespace TestSupport {

/**
 * Runs `run` with its first allocation failing, then its second, and so on until none of it is missing.
 * `run` must keep nothing.
 * @return how many allocations could be made to fail; 0 for `run` that leaves something behind.
 */
inline int CountSurvivedFailures(std::function<void()> const& run) {
    run(); // what is made once for the whole process is made here
    for (int which = 1;; ++which) {
        auto const before = KvRefSystemTests::LiveAllocations();
        KvRefSystemTests::FailAllocation(which);
        try {
            run();
        } catch (std::exception const&) {}
        bool const reached = !KvRefSystemTests::AllocationIsToFail();
        KvRefSystemTests::FailAllocation(0);
        if (KvRefSystemTests::LiveAllocations() != before) {
            ADD_FAILURE() << "allocation " << which << " leaves "
                          << KvRefSystemTests::LiveAllocations() - before << " behind";
            return 0;
        }
        if (!reached) {
            return which - 1;
        }
    }
}

} // namespace TestSupport
