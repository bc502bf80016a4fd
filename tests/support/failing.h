#ifndef KDRDATA_TESTS_FAILING_H
#define KDRDATA_TESTS_FAILING_H

#include "allocations.h"

#include <gtest/gtest.h>

#include <new>

/// Runs the operation again and again, letting one more allocation pass each time, until it goes
/// through. Each failure must reach the caller and leave nothing behind, and is followed by the
/// check. Answers how many allocations there were to fail.
template <class Operation, class Check>
int failAtEveryAllocation(Operation const& operation, Check const& check)
{
    for (int successes = 0; successes < 10000; ++successes) {
        long const before = allocations::live();
        try {
            allocations::FailAfter const limit(successes);
            operation();
            return successes;
        } catch (std::bad_alloc const&) {
            EXPECT_EQ(allocations::live(), before) << "after " << successes << " allocations";
        }
        check();
    }
    ADD_FAILURE() << "does not come to an end";
    return -1;
}

/// The same without a check.
template <class Operation>
int failAtEveryAllocation(Operation const& operation)
{
    return failAtEveryAllocation(operation, [] {});
}

#endif
