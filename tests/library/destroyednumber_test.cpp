// The number handle, compiled with the library's own options and optimised whatever the build: an
// optimiser takes what a destructor writes last for a dead store, unless the options keep it.

#include <kdrdata/scalars/kdrnumber.h>

#include <gtest/gtest.h>

#include "../support/handleplace.h"

namespace {

TEST(DestroyedOptimisedHandle, LeavesANullPointer)
{
    Place<KDRNumber> place;
    KDRNumber& number = place.create();
    ASSERT_NE(place.pointer(), nullptr);
    number.~KDRNumber();
    EXPECT_EQ(place.pointer(), nullptr);
}

} // namespace
