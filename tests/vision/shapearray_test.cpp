#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrshapearray.h>

#include <gtest/gtest.h>

#include <QtCore/qlist.h>

#include "../contract/arraysuite.h"
#include "../contract/listarraysuite.h"
#include "../support/shapeaccess.h"

namespace {

struct ShapeArrayTraits
{
    using Array = KDRShapeArray;
    using Element = KDRShape;
    static constexpr bool insertsAtEnd = false;
    static KDRShape make(int number)
    {
        KDRPoint centre(number, -number);
        KDRShape shape;
        shape.fromCircle(centre, number + 0.5);
        return shape;
    }
    static bool isDefault(KDRShape const& value) { return value.shapeType() == KDRShape::Empty; }
    static int read(KDRShape const& shape)
    {
        KDRPoint centre;
        double radius = 0.0;
        EXPECT_TRUE(shape.toCircle(&centre, &radius));
        EXPECT_EQ(radius, centre.x() + 0.5);
        return static_cast<int>(centre.x());
    }
};

using ShapeArrays = testing::Types<ShapeArrayTraits>;
INSTANTIATE_TYPED_TEST_SUITE_P(ShapeArrays, ArrayContract, ShapeArrays, );
INSTANTIATE_TYPED_TEST_SUITE_P(ShapeArrays, ListArrayContract, ShapeArrays, );

bool shareStorage(KDRShapeArray const& a, KDRShapeArray const& b)
{
    return KDRInternal::wrapped(a).isSharedWith(KDRInternal::wrapped(b));
}

class ShapeArray : public testing::Test
{
protected:
    void SetUp() override
    {
        shape = ShapeArrayTraits::make(1);
        array.push_back(shape);
        array.push_back(ShapeArrayTraits::make(2));
    }

    KDRShape shape;
    KDRShapeArray array;
};

TEST_F(ShapeArray, AppendingToAnEmptyArraySharesTheStorage)
{
    KDRShapeArray empty;
    empty.push_back(array);
    EXPECT_TRUE(shareStorage(array, empty));
    array.push_back(KDRShapeArray());
    EXPECT_TRUE(shareStorage(array, empty));
}

TEST_F(ShapeArray, ElementsShareTheirRecordsWithWhatGoesInAndComesOut)
{
    KDRShape out;
    ASSERT_TRUE(array.select(0, &out));
    EXPECT_TRUE(ShapeAccess::shareRecord(shape, out));
    EXPECT_TRUE(ShapeAccess::shareRecord(shape, array[0]));
    ASSERT_TRUE(array.replace(1, shape));
    ASSERT_TRUE(array.insert(0, shape));
    EXPECT_TRUE(ShapeAccess::shareRecord(shape, array[0]));
    EXPECT_TRUE(ShapeAccess::shareRecord(shape, array[2]));
}

TEST_F(ShapeArray, AGeneratorOutsideLeavesTheElementsAsTheyAre)
{
    KDRShape out;
    ASSERT_TRUE(array.select(0, &out));
    KDRPoint point;
    out.fromCircle(point, 99.0);
    shape.fromLine(point, point);
    EXPECT_EQ(ShapeArrayTraits::read(array[0]), 1);
}

TEST_F(ShapeArray, GivesUpItsRecordsWithItsElements)
{
    EXPECT_EQ(ShapeAccess::record(shape).refCount(), 2);
    ASSERT_TRUE(array.removeAt(0));
    EXPECT_EQ(ShapeAccess::record(shape).refCount(), 1);
    array.push_back(shape);
    array.clear();
    EXPECT_EQ(ShapeAccess::record(shape).refCount(), 1);
}

} // namespace
