#ifndef KDRDATA_TESTS_ARRAYSUITE_H
#define KDRDATA_TESTS_ARRAYSUITE_H

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

/// The contract that all arrays share, whether they keep their elements in a Qt list or in a core
/// library array, as one typed suite. What only one family does is tested beside its classes.
///
/// A traits class per array says what differs:
/// - `Array`, `Element`: the classes;
/// - `Element make(int)`: an element that stands for a small number, equal numbers for equal ones;
/// - `int read(Element const&)`: the number back;
/// - `insertsAtEnd`: whether insert() takes the position length().
template <class Traits>
class ArrayContract : public testing::Test
{
protected:
    static typename Traits::Array arrayOf(std::vector<int> const& numbers)
    {
        typename Traits::Array array;
        for (int const number : numbers)
            array.push_back(Traits::make(number));
        return array;
    }

    static std::vector<int> numbersOf(typename Traits::Array const& array)
    {
        std::vector<int> numbers;
        for (int i = 0; i < array.length(); ++i) {
            typename Traits::Element element = Traits::make(-1);
            EXPECT_TRUE(array.select(i, &element));
            numbers.push_back(Traits::read(element));
        }
        return numbers;
    }
};

TYPED_TEST_SUITE_P(ArrayContract);

TYPED_TEST_P(ArrayContract, IsOnePointerWide)
{
    EXPECT_EQ(sizeof(typename TypeParam::Array), sizeof(void*));
}

TYPED_TEST_P(ArrayContract, StartsEmpty) { EXPECT_EQ(typename TypeParam::Array().length(), 0); }

TYPED_TEST_P(ArrayContract, PushBackAppendsInOrder)
{
    EXPECT_EQ(this->numbersOf(this->arrayOf({3, 1, 2})), (std::vector<int>{3, 1, 2}));
}

TYPED_TEST_P(ArrayContract, PushBackOfAnArrayAppendsItsElementsInOrder)
{
    auto array = this->arrayOf({1, 2});
    auto const other = this->arrayOf({3, 4});
    array.push_back(other);
    EXPECT_EQ(this->numbersOf(array), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(this->numbersOf(other), (std::vector<int>{3, 4}));

    typename TypeParam::Array empty;
    array.push_back(empty);
    EXPECT_EQ(array.length(), 4);
    empty.push_back(other);
    EXPECT_EQ(this->numbersOf(empty), (std::vector<int>{3, 4}));
}

TYPED_TEST_P(ArrayContract, PushBackOntoItselfDoublesTheElements)
{
    auto array = this->arrayOf({1, 2});
    array.push_back(array);
    EXPECT_EQ(this->numbersOf(array), (std::vector<int>{1, 2, 1, 2}));
}

TYPED_TEST_P(ArrayContract, InsertPutsTheElementBeforeTheIndex)
{
    auto array = this->arrayOf({1, 2});
    EXPECT_TRUE(array.insert(1, TypeParam::make(9)));
    EXPECT_EQ(this->numbersOf(array), (std::vector<int>{1, 9, 2}));
    EXPECT_TRUE(array.insert(0, TypeParam::make(8)));
    EXPECT_EQ(this->numbersOf(array), (std::vector<int>{8, 1, 9, 2}));
}

TYPED_TEST_P(ArrayContract, InsertAtLengthIsRefusedUnlessTheArrayInsertsAtItsEnd)
{
    auto array = this->arrayOf({1, 2});
    typename TypeParam::Array empty;
    EXPECT_EQ(array.insert(2, TypeParam::make(9)), TypeParam::insertsAtEnd);
    EXPECT_EQ(array.length(), TypeParam::insertsAtEnd ? 3 : 2);
    EXPECT_EQ(empty.insert(0, TypeParam::make(9)), TypeParam::insertsAtEnd);
    EXPECT_EQ(empty.length(), TypeParam::insertsAtEnd ? 1 : 0);
}

TYPED_TEST_P(ArrayContract, PositionsOutsideAreRefusedAndChangeNothing)
{
    auto array = this->arrayOf({1, 2, 3});
    for (int const index : {-1, 4, -2147483647 - 1, 2147483647}) {
        EXPECT_FALSE(array.insert(index, TypeParam::make(9))) << index;
        EXPECT_FALSE(array.removeAt(index)) << index;
        EXPECT_FALSE(array.replace(index, TypeParam::make(9))) << index;
        EXPECT_FALSE(array.swap(index, 0)) << index;
        EXPECT_FALSE(array.swap(0, index)) << index;
    }
    EXPECT_FALSE(array.removeAt(3));
    EXPECT_FALSE(array.replace(3, TypeParam::make(9)));
    EXPECT_FALSE(array.swap(0, 3));
    EXPECT_EQ(this->numbersOf(array), (std::vector<int>{1, 2, 3}));
}

TYPED_TEST_P(ArrayContract, SelectOutsideLeavesTheOutputUntouched)
{
    auto const array = this->arrayOf({1, 2, 3});
    for (int const index : {-1, 3, -2147483647 - 1, 2147483647}) {
        auto out = TypeParam::make(7);
        EXPECT_FALSE(array.select(index, &out)) << index;
        EXPECT_EQ(TypeParam::read(out), 7) << index;
    }
}

TYPED_TEST_P(ArrayContract, RemoveReplaceAndSwapActOnTheirPositions)
{
    auto array = this->arrayOf({1, 2, 3});
    EXPECT_TRUE(array.replace(1, TypeParam::make(9)));
    EXPECT_EQ(this->numbersOf(array), (std::vector<int>{1, 9, 3}));
    EXPECT_TRUE(array.swap(0, 2));
    EXPECT_EQ(this->numbersOf(array), (std::vector<int>{3, 9, 1}));
    EXPECT_TRUE(array.swap(2, 2));
    EXPECT_EQ(this->numbersOf(array), (std::vector<int>{3, 9, 1}));
    EXPECT_TRUE(array.removeAt(0));
    EXPECT_EQ(this->numbersOf(array), (std::vector<int>{9, 1}));
}

TYPED_TEST_P(ArrayContract, ClearLeavesAnEmptyUsableArray)
{
    auto array = this->arrayOf({1, 2});
    array.clear();
    EXPECT_EQ(array.length(), 0);
    array.push_back(TypeParam::make(5));
    EXPECT_EQ(this->numbersOf(array), (std::vector<int>{5}));
}

TYPED_TEST_P(ArrayContract, IndexReadsACopy)
{
    auto const array = this->arrayOf({4, 5});
    EXPECT_EQ(TypeParam::read(array[0]), 4);
    EXPECT_EQ(TypeParam::read(array[1]), 5);
}

TYPED_TEST_P(ArrayContract, CopiesKeepTheirElementsWhenTheOriginalChanges)
{
    using Array = typename TypeParam::Array;
    std::vector<int> const numbers{1, 2, 3};
    auto const changes = {+[](Array& a) { a.push_back(TypeParam::make(9)); },
                          +[](Array& a) { a.push_back(Array(a)); },
                          +[](Array& a) { a.insert(0, TypeParam::make(9)); },
                          +[](Array& a) { a.removeAt(1); },
                          +[](Array& a) { a.replace(1, TypeParam::make(9)); },
                          +[](Array& a) { a.swap(0, 2); },
                          +[](Array& a) { a.clear(); }};
    for (auto const change : changes) {
        Array original = this->arrayOf(numbers);
        Array const copy(original);
        Array assigned = this->arrayOf({7});
        Array& result = (assigned = original);
        EXPECT_EQ(&result, &assigned);
        change(original);
        EXPECT_NE(this->numbersOf(original), numbers);
        EXPECT_EQ(this->numbersOf(copy), numbers);
        EXPECT_EQ(this->numbersOf(assigned), numbers);
    }
}

TYPED_TEST_P(ArrayContract, AssignmentToItselfChangesNothing)
{
    auto array = this->arrayOf({1, 2});
    auto const& alias = array;
    array = alias;
    EXPECT_EQ(this->numbersOf(array), (std::vector<int>{1, 2}));
}

TYPED_TEST_P(ArrayContract, AgreesWithAVectorUnderRandomOperations)
{
    constexpr unsigned seed = 4711;
    std::mt19937 random(seed);
    auto const pick = [&random](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    typename TypeParam::Array array;
    std::vector<int> model;
    for (int step = 0; step < 3000; ++step) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
        int const length = static_cast<int>(model.size());
        int const index = pick(-2, length + 2);
        int const other = pick(-2, length + 2);
        int const value = pick(0, 99);
        bool const inside = index >= 0 && index < length;
        bool const insertable = inside || (TypeParam::insertsAtEnd && index == length);
        bool const otherInside = other >= 0 && other < length;
        typename TypeParam::Array const sharer(array);
        std::vector<int> const before = model;
        switch (pick(0, 6)) {
        case 0:
            array.push_back(TypeParam::make(value));
            model.push_back(value);
            break;
        case 1:
            ASSERT_EQ(array.insert(index, TypeParam::make(value)), insertable);
            if (insertable)
                model.insert(model.begin() + index, value);
            break;
        case 2:
            ASSERT_EQ(array.removeAt(index), inside);
            if (inside)
                model.erase(model.begin() + index);
            break;
        case 3:
            ASSERT_EQ(array.replace(index, TypeParam::make(value)), inside);
            if (inside)
                model[static_cast<std::size_t>(index)] = value;
            break;
        case 4:
            ASSERT_EQ(array.swap(index, other), inside && otherInside);
            if (inside && otherInside)
                std::swap(model[static_cast<std::size_t>(index)],
                          model[static_cast<std::size_t>(other)]);
            break;
        case 5:
            if (length < 40) {
                array.push_back(array);
                model.insert(model.end(), before.begin(), before.end());
            }
            break;
        default:
            if (value < 5) {
                array.clear();
                model.clear();
            }
            break;
        }
        ASSERT_EQ(array.length(), static_cast<int>(model.size()));
        if (step % 16 == 0) {
            ASSERT_EQ(this->numbersOf(array), model);
            ASSERT_EQ(this->numbersOf(sharer), before);
        }
    }
    EXPECT_EQ(this->numbersOf(array), model);
}

REGISTER_TYPED_TEST_SUITE_P(
    ArrayContract, IsOnePointerWide, StartsEmpty, PushBackAppendsInOrder,
    PushBackOfAnArrayAppendsItsElementsInOrder, PushBackOntoItselfDoublesTheElements,
    InsertPutsTheElementBeforeTheIndex, InsertAtLengthIsRefusedUnlessTheArrayInsertsAtItsEnd,
    PositionsOutsideAreRefusedAndChangeNothing, SelectOutsideLeavesTheOutputUntouched,
    RemoveReplaceAndSwapActOnTheirPositions, ClearLeavesAnEmptyUsableArray, IndexReadsACopy,
    CopiesKeepTheirElementsWhenTheOriginalChanges, AssignmentToItselfChangesNothing,
    AgreesWithAVectorUnderRandomOperations);

#endif
