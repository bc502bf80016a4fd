#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrnumberarray.h>

#include <gtest/gtest.h>

#include <QtCore/qlist.h>

#include <cstddef>
#include <functional>
#include <vector>

#include "../contract/arraysuite.h"
#include "../contract/listarraysuite.h"
#include "../support/failing.h"

namespace {

struct NumberArrayTraits
{
    using Array = KDRNumberArray;
    using Element = KDRNumber;
    static constexpr bool insertsAtEnd = false;
    static KDRNumber make(int number) { return {number}; }
    static bool isDefault(KDRNumber const& value) { return value.toDouble() == 0.0; }
    static int read(KDRNumber const& number) { return number.toInt(); }
};

using ListArrays = testing::Types<NumberArrayTraits>;
INSTANTIATE_TYPED_TEST_SUITE_P(ListArrays, ArrayContract, ListArrays, );
INSTANTIATE_TYPED_TEST_SUITE_P(ListArrays, ListArrayContract, ListArrays, );

bool shareStorage(KDRNumberArray const& a, KDRNumberArray const& b)
{
    return KDRInternal::wrapped(a).isSharedWith(KDRInternal::wrapped(b));
}

class NumberArrayRange : public testing::Test
{
protected:
    void SetUp() override
    {
        ranged.fromInt(5);
        ranged.setMaxValue(10.0);
        ranged.setMinValue(1.0);
    }

    KDRNumber ranged;
    KDRNumberArray array;
};

// The stored range, seen through the one operation that reads it.
double maximumAt(KDRNumberArray const& array, int index)
{
    KDRNumber out;
    EXPECT_TRUE(array.select(index, &out));
    return out.maxValue();
}

TEST_F(NumberArrayRange, StaysBehindOnPushBackAndInsert)
{
    array.push_back(ranged);
    EXPECT_EQ(maximumAt(array, 0), 0.0);
    ASSERT_TRUE(array.insert(0, ranged));
    EXPECT_EQ(maximumAt(array, 0), 0.0);
}

TEST_F(NumberArrayRange, IsStoredByReplaceAndReadBySelect)
{
    array.push_back(KDRNumber(0));
    ASSERT_TRUE(array.replace(0, ranged));
    KDRNumber out;
    ASSERT_TRUE(array.select(0, &out));
    EXPECT_EQ(out.toInt(), 5);
    EXPECT_EQ(out.maxValue(), 10.0);
    EXPECT_EQ(out.minValue(), 1.0);
}

TEST_F(NumberArrayRange, IsNotInTheCopyThatIndexingReturns)
{
    array.push_back(KDRNumber(0));
    ASSERT_TRUE(array.replace(0, ranged));
    EXPECT_EQ(array[0].toInt(), 5);
    EXPECT_EQ(array[0].maxValue(), 0.0);
    EXPECT_EQ(maximumAt(array, 0), 10.0);
}

TEST_F(NumberArrayRange, IsSharedByACopyAndLostByTheSideThatDetaches)
{
    array.push_back(KDRNumber(0));
    array.push_back(KDRNumber(1));
    ASSERT_TRUE(array.replace(0, ranged));
    KDRNumberArray copy(array);
    EXPECT_EQ(maximumAt(copy, 0), 10.0);
    ASSERT_TRUE(copy.removeAt(1));
    EXPECT_EQ(maximumAt(copy, 0), 0.0);
    EXPECT_EQ(maximumAt(array, 0), 10.0);
}

TEST_F(NumberArrayRange, IsLostByTheOldElementsWhenAnArrayIsAppended)
{
    array.push_back(KDRNumber(0));
    ASSERT_TRUE(array.replace(0, ranged));
    KDRNumberArray other;
    other.push_back(KDRNumber(2));
    array.push_back(other);
    EXPECT_EQ(array.length(), 2);
    EXPECT_EQ(maximumAt(array, 0), 0.0);
}

TEST_F(NumberArrayRange, IsKeptWhereAppendingAnArrayCopiesNoElement)
{
    array.push_back(KDRNumber(0));
    ASSERT_TRUE(array.replace(0, ranged));
    array.push_back(KDRNumberArray());
    EXPECT_EQ(maximumAt(array, 0), 10.0);
    KDRNumberArray empty;
    empty.push_back(array);
    EXPECT_EQ(maximumAt(empty, 0), 10.0);
    EXPECT_TRUE(shareStorage(array, empty));
}

TEST_F(NumberArrayRange, IsLostWhereAnArrayIsAppendedToAnEmptiedOne)
{
    array.push_back(KDRNumber(0));
    ASSERT_TRUE(array.replace(0, ranged));
    KDRNumberArray emptied;
    emptied.push_back(KDRNumber(0));
    ASSERT_TRUE(emptied.removeAt(0));
    emptied.push_back(array);
    EXPECT_EQ(emptied[0].toInt(), 5);
    EXPECT_EQ(maximumAt(emptied, 0), 0.0);
    EXPECT_EQ(maximumAt(array, 0), 10.0);
}

TEST_F(NumberArrayRange, IsKeptByTheElementsThatSwapExchanges)
{
    array.push_back(KDRNumber(0));
    array.push_back(KDRNumber(1));
    ASSERT_TRUE(array.replace(0, ranged));
    ASSERT_TRUE(array.swap(0, 1));
    EXPECT_EQ(maximumAt(array, 0), 0.0);
    EXPECT_EQ(maximumAt(array, 1), 10.0);
}

TEST_F(NumberArrayRange, IsKeptWhileOtherElementsComeAndGo)
{
    array.push_back(KDRNumber(0));
    ASSERT_TRUE(array.replace(0, ranged));
    for (int i = 0; i < 100; ++i)
        array.push_back(KDRNumber(i));
    ASSERT_TRUE(array.insert(0, KDRNumber(1)));
    EXPECT_EQ(maximumAt(array, 1), 10.0);
    ASSERT_TRUE(array.removeAt(0));
    EXPECT_EQ(maximumAt(array, 0), 10.0);
}

TEST_F(NumberArrayRange, OfAllElementsIsKeptWhereMemoryRunsOutOnASharedList)
{
    for (int i = 0; i < 3; ++i)
        array.push_back(KDRNumber(i));
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(array.replace(i, ranged));
    KDRNumberArray other;
    other.push_back(KDRNumber(7));
    KDRNumber const value(8);
    using Change = std::function<void(KDRNumberArray&)>;
    std::vector<Change> const changes{[&](KDRNumberArray& a) { a.push_back(value); },
                                      [&](KDRNumberArray& a) { a.push_back(other); },
                                      [&](KDRNumberArray& a) { a.insert(1, value); },
                                      [&](KDRNumberArray& a) { a.replace(1, value); },
                                      [](KDRNumberArray& a) { a.removeAt(1); },
                                      [](KDRNumberArray& a) { a.swap(0, 1); },
                                      [](KDRNumberArray& a) { a[1].toInt(); }};
    for (std::size_t i = 0; i < changes.size(); ++i) {
        SCOPED_TRACE(i);
        KDRNumberArray changed(array);
        auto const isAsBefore = [&] {
            EXPECT_TRUE(shareStorage(changed, array));
            for (int element = 0; element < 3; ++element)
                EXPECT_EQ(maximumAt(changed, element), 10.0);
        };
        // A record for each of three elements at least; the numbers lie in the list's slots.
        EXPECT_GE(failAtEveryAllocation([&] { changes[i](changed); }, isAsBefore), 3);
        EXPECT_FALSE(shareStorage(changed, array));
    }
}

class NumberArraySharing : public testing::Test
{
protected:
    void SetUp() override
    {
        array.push_back(KDRNumber(1));
        array.push_back(KDRNumber(2));
    }

    KDRNumberArray array;
};

TEST_F(NumberArraySharing, CopyAndAssignmentShareTheStorage)
{
    KDRNumberArray const copy(array);
    KDRNumberArray assigned;
    assigned = array;
    EXPECT_TRUE(shareStorage(array, copy));
    EXPECT_TRUE(shareStorage(array, assigned));
}

TEST_F(NumberArraySharing, LengthAndSelectDoNotDetach)
{
    KDRNumberArray const copy(array);
    KDRNumber out;
    EXPECT_EQ(copy.length(), 2);
    EXPECT_TRUE(copy.select(1, &out));
    EXPECT_TRUE(shareStorage(array, copy));
}

TEST_F(NumberArraySharing, RefusedOperationsDoNotDetach)
{
    KDRNumberArray copy(array);
    EXPECT_FALSE(copy.insert(2, KDRNumber(9)));
    EXPECT_FALSE(copy.removeAt(2));
    EXPECT_FALSE(copy.replace(-1, KDRNumber(9)));
    EXPECT_FALSE(copy.swap(0, 2));
    EXPECT_TRUE(shareStorage(array, copy));
}

TEST_F(NumberArraySharing, IndexingAConstantArrayDetaches)
{
    KDRNumberArray const copy(array);
    EXPECT_EQ(copy[0].toInt(), 1);
    EXPECT_FALSE(shareStorage(array, copy));
}

TEST_F(NumberArraySharing, EqualPositionsSwapWithoutChangingAnything)
{
    EXPECT_TRUE(array.swap(1, 1));
    EXPECT_EQ(array[1].toInt(), 2);
}

} // namespace
