// What a destroyed handle leaves behind: a null pointer, in builds with and without optimisation.

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/kdrdata.h>
#include <kdrdata/vision/kdrpointprivate.h>

#include <gtest/gtest.h>

#include <cstring>
#include <new>

#include "../support/handleplace.h"

namespace {

template <class Handle>
class DestroyedHandle : public testing::Test
{
};

// Every class that owns something behind its one pointer.
using Handles =
    testing::Types<KDRBoolArray, KDRBuffer, KDRBufferArray, KDRChar, KDRChunkData, KDRContour,
                   KDRContourArray, KDREnum, KDREnumArray, KDRFont, KDRImage, KDRImageArray,
                   KDRMatchModel, KDRMatrix, KDRMatrix3Array, KDRMatrix4Array, KDRMatrixArray,
                   KDRNumber, KDRNumberArray, KDRPoint, KDRPointArray, KDRRegExp, KDRRegion,
                   KDRRegionArray, KDRROIAlignment, KDRShape, KDRShape3DArray, KDRShapeArray,
                   KDRString, KDRStringArray, KDRVariant, KDRVariantArray>;
TYPED_TEST_SUITE(DestroyedHandle, Handles, );

TYPED_TEST(DestroyedHandle, LeavesANullPointer)
{
    Place<TypeParam> place;
    TypeParam& handle = place.create();
    ASSERT_NE(place.pointer(), nullptr);
    handle.~TypeParam();
    EXPECT_EQ(place.pointer(), nullptr);
}

TEST(DestroyedPointRecord, LeavesANullPointer)
{
    Place<KDRPointPrivate> place;
    KDRPointPrivate& record = place.create();
    auto const offset = place.offsetOf(KDRInternal::pointer(record));
    record.~KDRPointPrivate();
    EXPECT_EQ(place.left<void*>(offset), nullptr);
}

template <class Handle>
class HandleDestroyedTwice : public testing::Test
{
};

// The classes whose destructors do nothing where there is nothing to destroy.
using Twice =
    testing::Types<KDRBoolArray, KDRBuffer, KDRBufferArray, KDRChar, KDRChunkData, KDRContour,
                   KDRContourArray, KDREnum, KDREnumArray, KDRFont, KDRImage, KDRImageArray,
                   KDRMatchModel, KDRMatrix, KDRMatrix3Array, KDRMatrix4Array, KDRMatrixArray,
                   KDRNumber, KDRNumberArray, KDRPoint, KDRPointArray, KDRRegion, KDRRegionArray,
                   KDRROIAlignment, KDRShape3DArray, KDRShapeArray, KDRString, KDRStringArray,
                   KDRVariant, KDRVariantArray>;
TYPED_TEST_SUITE(HandleDestroyedTwice, Twice, );

TYPED_TEST(HandleDestroyedTwice, FindsNothingLeft)
{
    Place<TypeParam> place;
    TypeParam& handle = place.create();
    handle.~TypeParam();
    handle.~TypeParam();
    EXPECT_EQ(place.pointer(), nullptr);
}

} // namespace
