// Random operations on a pool of variants of all kinds against a model of shared values.

#include <gtest/gtest.h>

#include "../support/allocations.h"
#include "variantmodel.h"

namespace {

TEST(VariantModel, AgreesWithSharedValuesUnderRandomOperations)
{
    VariantModel(987654321).run(100000);
}

TEST(VariantModel, LeavesNothingBehindAfterRandomOperations)
{
    // The first run makes what GoogleTest and Qt keep for the rest of the process.
    VariantModel(123456789).run(500);
    long const before = allocations::live();
    VariantModel(123456789).run(10000);
    EXPECT_EQ(allocations::live(), before);
}

} // namespace
