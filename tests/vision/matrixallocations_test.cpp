#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/vision/kdrmatrixarray.h>
#include <kdrdata/vision/kdrroialignment.h>

#include "../support/allocations.h"
#include "../support/failing.h"

#include <gtest/gtest.h>

#include <new>

// What matrices and what holds them do when there is not enough memory.

namespace {

TEST(MatrixMemory, AHandleThatCannotBeMadeLeavesNothingBehind)
{
    KDRMatrix const matrix(2, 3, KDRMatrix::MatrixTypeInt16);
    KDRMatrixArray array;
    array.push_back(matrix);
    KDRROIAlignment alignment;
    alignment.fromMatrixArray(array);
    EXPECT_GE(failAtEveryAllocation([] { KDRMatrix const made(2, 3, KDRMatrix::MatrixTypeInt8); }),
              1);
    EXPECT_GE(failAtEveryAllocation([&] { KDRMatrix const copy(matrix); }), 1);
    EXPECT_GE(failAtEveryAllocation([&] { KDRMatrixArray const copy(array); }), 2);
    EXPECT_GE(failAtEveryAllocation([&] { KDRROIAlignment const copy(alignment); }), 2);
}

TEST(MatrixMemory, AnAssignmentThatFailsChangesNothing)
{
    KDRMatrixArray one;
    one.push_back(KDRMatrix());
    KDRMatrixArray none;
    KDRROIAlignment alignment;
    EXPECT_GE(failAtEveryAllocation([&] { none = one; }, [&] { EXPECT_EQ(none.length(), 0); }), 1);
    EXPECT_EQ(none.length(), 1);
    none.clear();
    EXPECT_GE(failAtEveryAllocation([&] { alignment.fromMatrixArray(one); },
                                    [&] {
                                        alignment.toMatrixArray(&none);
                                        EXPECT_EQ(none.length(), 0);
                                    }),
              1);
}

TEST(MatrixMemory, ARowOrColumnThatCannotBeReadWholeLeavesTheOutputEmpty)
{
    KDRMatrix matrix(3, 4, KDRMatrix::MatrixTypeFloat32);
    KDRNumberArray out;
    auto const isEmpty = [&] { EXPECT_EQ(out.length(), 0); };
    EXPECT_GE(failAtEveryAllocation([&] { matrix.getRowData(1, &out); }, isEmpty), 4);
    EXPECT_EQ(out.length(), 4);
    out.clear();
    EXPECT_GE(failAtEveryAllocation([&] { matrix.getColData(1, &out); }, isEmpty), 3);
    EXPECT_EQ(out.length(), 3);
}

} // namespace
