#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrboolarray.h>

#include <gtest/gtest.h>

#include <QtCore/qlist.h>

#include <algorithm>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using Flags = std::vector<bool>;

KDRBoolArray arrayOf(Flags const& flags)
{
    KDRBoolArray array;
    for (bool const flag : flags)
        array.push_back(flag);
    return array;
}

Flags flagsOf(KDRBoolArray const& array)
{
    Flags flags;
    for (int i = 0; i < array.length(); ++i) {
        bool flag = false;
        EXPECT_TRUE(array.select(i, &flag));
        flags.push_back(flag);
    }
    return flags;
}

bool shareStorage(KDRBoolArray const& a, KDRBoolArray const& b)
{
    return KDRInternal::wrapped(a).isSharedWith(KDRInternal::wrapped(b));
}

TEST(BoolArray, IsOnePointerWideAndStartsEmpty)
{
    EXPECT_EQ(sizeof(KDRBoolArray), sizeof(void*));
    EXPECT_EQ(KDRBoolArray().length(), 0);
}

TEST(BoolArray, PushBackAppendsInOrder)
{
    EXPECT_EQ(flagsOf(arrayOf({true, false, true})), (Flags{true, false, true}));
}

TEST(BoolArray, PushBackOfAnArrayAppendsItsFlagsInOrder)
{
    auto array = arrayOf({true, false});
    auto const other = arrayOf({false, true});
    array.push_back(other);
    EXPECT_EQ(flagsOf(array), (Flags{true, false, false, true}));
    EXPECT_EQ(flagsOf(other), (Flags{false, true}));
    array.push_back(KDRBoolArray());
    EXPECT_EQ(array.length(), 4);
}

TEST(BoolArray, PushBackOntoItselfDoublesTheFlags)
{
    auto array = arrayOf({true, false});
    array.push_back(array);
    EXPECT_EQ(flagsOf(array), (Flags{true, false, true, false}));
}

TEST(BoolArray, PushBackOntoAnArrayWithoutStorageSharesAndOntoAnEmptiedOneCopies)
{
    auto const array = arrayOf({true, false});
    KDRBoolArray fresh;
    fresh.push_back(array);
    EXPECT_EQ(flagsOf(fresh), (Flags{true, false}));
    EXPECT_TRUE(shareStorage(array, fresh));
    auto emptied = arrayOf({true});
    EXPECT_TRUE(emptied.removeAt(0));
    emptied.push_back(array);
    EXPECT_EQ(flagsOf(emptied), (Flags{true, false}));
    EXPECT_FALSE(shareStorage(array, emptied));
}

TEST(BoolArray, ACopyOfAnEmptiedArraySharesNothing)
{
    auto array = arrayOf({true});
    EXPECT_TRUE(array.removeAt(0));
    KDRBoolArray copy(array);
    EXPECT_FALSE(shareStorage(array, copy));
    copy.push_back(true);
    EXPECT_EQ(flagsOf(copy), (Flags{true}));
    EXPECT_EQ(array.length(), 0);
}

TEST(BoolArray, InsertPutsTheFlagBeforeTheIndex)
{
    auto array = arrayOf({false, false});
    EXPECT_TRUE(array.insert(1, true));
    EXPECT_EQ(flagsOf(array), (Flags{false, true, false}));
}

TEST(BoolArray, InsertAtLengthIsRefused)
{
    KDRBoolArray empty;
    EXPECT_FALSE(empty.insert(0, true));
    EXPECT_EQ(empty.length(), 0);
    auto array = arrayOf({true});
    EXPECT_FALSE(array.insert(1, true));
    EXPECT_EQ(array.length(), 1);
}

TEST(BoolArray, PositionsOutsideAreRefusedAndChangeNothing)
{
    auto array = arrayOf({true, false, true});
    for (int const index : {-2147483647 - 1, -1, 3, 2147483647}) {
        SCOPED_TRACE(index);
        EXPECT_FALSE(array.insert(index, false));
        EXPECT_FALSE(array.removeAt(index));
        EXPECT_FALSE(array.replace(index, false));
        EXPECT_FALSE(array.swap(index, 0));
        EXPECT_FALSE(array.swap(0, index));
        for (bool out : {false, true}) {
            bool const before = out;
            EXPECT_FALSE(array.select(index, &out));
            EXPECT_EQ(out, before);
        }
    }
    EXPECT_EQ(flagsOf(array), (Flags{true, false, true}));
}

TEST(BoolArray, SelectAnswersTrueForAFlagThatIsFalse)
{
    auto const array = arrayOf({false});
    bool out = true;
    EXPECT_TRUE(array.select(0, &out));
    EXPECT_FALSE(out);
}

TEST(BoolArray, IndexIsWritableInTheArrayAndAValueInAConstantOne)
{
    static_assert(std::is_same<decltype(std::declval<KDRBoolArray&>()[0]), bool&>::value, "");
    static_assert(std::is_same<decltype(std::declval<KDRBoolArray const&>()[0]), bool>::value, "");
    auto array = arrayOf({true});
    array[0] = false;
    EXPECT_EQ(flagsOf(array), (Flags{false}));
    KDRBoolArray const& constant = array;
    EXPECT_FALSE(constant[0]);
}

TEST(BoolArray, WritingThroughTheIndexLeavesCopiesAsTheyWere)
{
    auto array = arrayOf({true});
    KDRBoolArray const copy(array);
    KDRBoolArray assigned;
    assigned = array;
    array[0] = false;
    EXPECT_EQ(flagsOf(array), (Flags{false}));
    EXPECT_EQ(flagsOf(copy), (Flags{true}));
    EXPECT_EQ(flagsOf(assigned), (Flags{true}));
}

TEST(BoolArray, BothIndexesDetach)
{
    auto array = arrayOf({true});
    KDRBoolArray const copy(array);
    EXPECT_TRUE(shareStorage(array, copy));
    EXPECT_TRUE(copy[0]);
    EXPECT_FALSE(shareStorage(array, copy));

    KDRBoolArray const another(array);
    EXPECT_TRUE(array[0]);
    EXPECT_FALSE(shareStorage(array, another));
}

#ifndef NDEBUG
TEST(BoolArray, IndexIsAssertedInDebugBuilds)
{
    auto array = arrayOf({true});
    auto const constant = array;
    EXPECT_DEATH(array[1], "");
    EXPECT_DEATH(constant[-1], "");
}
#endif

TEST(BoolArray, AFlagOfTheArrayItselfCanBePushedInsertedAndReplacedWith)
{
    auto array = arrayOf({true, false});
    for (int i = 0; i < 100; ++i)
        array.push_back(array[0]);
    EXPECT_EQ(flagsOf(array)[101], true);
    EXPECT_TRUE(array.insert(0, array[1]));
    EXPECT_FALSE(flagsOf(array)[0]);
    EXPECT_TRUE(array.replace(0, array[1]));
    EXPECT_TRUE(flagsOf(array)[0]);
}

TEST(BoolArray, ReadingAndRefusedChangesDoNotDetach)
{
    auto array = arrayOf({true, false});
    KDRBoolArray const copy(array);
    bool out = false;
    EXPECT_EQ(array.length(), 2);
    EXPECT_TRUE(array.select(0, &out));
    EXPECT_FALSE(array.insert(2, true));
    EXPECT_FALSE(array.removeAt(2));
    EXPECT_FALSE(array.replace(2, true));
    EXPECT_FALSE(array.swap(0, 2));
    EXPECT_TRUE(shareStorage(array, copy));
}

TEST(BoolArray, AssignmentSharesTheStorageAndReturnsTheArray)
{
    auto const array = arrayOf({true, false});
    KDRBoolArray assigned = arrayOf({true});
    EXPECT_EQ(&(assigned = array), &assigned);
    EXPECT_TRUE(shareStorage(array, assigned));
    KDRBoolArray const& alias = assigned;
    assigned = alias;
    EXPECT_EQ(flagsOf(assigned), (Flags{true, false}));
}

TEST(BoolArray, AgreesWithAVectorUnderRandomOperations)
{
    constexpr unsigned seed = 4711;
    std::mt19937 random(seed);
    auto const pick = [&random](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    KDRBoolArray array;
    Flags model;
    for (int step = 0; step < 3000; ++step) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
        int const length = static_cast<int>(model.size());
        int const index = pick(-2, length + 2);
        int const other = pick(-2, length + 2);
        bool const flag = pick(0, 1) == 1;
        bool const inside = index >= 0 && index < length;
        bool const otherInside = other >= 0 && other < length;
        KDRBoolArray const sharer(array);
        Flags const before = model;
        switch (pick(0, 7)) {
        case 0:
            array.push_back(flag);
            model.push_back(flag);
            break;
        case 1:
            ASSERT_EQ(array.insert(index, flag), inside);
            if (inside)
                model.insert(model.begin() + index, flag);
            break;
        case 2:
            ASSERT_EQ(array.removeAt(index), inside);
            if (inside)
                model.erase(model.begin() + index);
            break;
        case 3:
            ASSERT_EQ(array.replace(index, flag), inside);
            if (inside)
                model[static_cast<std::size_t>(index)] = flag;
            break;
        case 4:
            ASSERT_EQ(array.swap(index, other), inside && otherInside);
            if (inside && otherInside)
                std::iter_swap(model.begin() + index, model.begin() + other);
            break;
        case 5:
            if (inside) {
                array[index] = flag;
                model[static_cast<std::size_t>(index)] = flag;
            }
            break;
        case 6:
            if (length < 40) {
                array.push_back(array);
                model.insert(model.end(), before.begin(), before.end());
            }
            break;
        default:
            if (other == 0) {
                array.clear();
                model.clear();
            }
            break;
        }
        ASSERT_EQ(array.length(), static_cast<int>(model.size()));
        if (step % 8 == 0) {
            ASSERT_EQ(flagsOf(array), model);
            ASSERT_EQ(flagsOf(sharer), before);
        }
    }
    EXPECT_EQ(flagsOf(array), model);
}

} // namespace
