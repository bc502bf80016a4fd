#include <climits>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <veldata/veldata.h>

namespace {

/// How the suite makes elements of an array and tells them apart: by a number, 0 for the default
/// element.
template <class Array>
struct Traits;

template <>
struct Traits<VelPointArray>
{
    static constexpr char const* name = "VelPointArray";
    using Element = VelPoint;
    static Element make(int number) { return VelPoint(number, -number); }
    static int number(Element const& element) { return static_cast<int>(element.x); }
};

template <>
struct Traits<VelVarArray>
{
    static constexpr char const* name = "VelVarArray";
    using Element = VelVar;

    /// Texts, so that elements own memory.
    static Element make(int number)
    {
        return number == 0 ? VelVar() : VelVar(std::to_string(number).c_str());
    }

    static int number(Element const& element)
    {
        return element.ValType() == 0 ? 0 : std::stoi(element.S());
    }
};

template <>
struct Traits<VelContourArray>
{
    static constexpr char const* name = "VelContourArray";
    using Element = VelContour;

    static Element make(int number)
    {
        VelPointArray points;
        for (int i = 0; i < number; ++i)
            points.Append(VelPoint(i, 0));
        VelContour contour;
        contour.FromPointArray(points);
        return contour;
    }

    static int number(Element const& element) { return element.Length(); }
};

template <>
struct Traits<VelImageArray>
{
    static constexpr char const* name = "VelImageArray";
    using Element = VelImage;

    static Element make(int number) { return VelImage(nullptr, number, 1, 1, 0, VEL_8U); }
    static int number(Element const& element) { return element.Width(); }
};

template <>
struct Traits<VelRegionArray>
{
    static constexpr char const* name = "VelRegionArray";
    using Element = VelRegion;

    /// One run of the number's length in pixels.
    static Element make(int number)
    {
        VelVarArray row, first, last;
        row.Append(VelVar(0L));
        first.Append(VelVar(1L));
        last.Append(VelVar(static_cast<long>(number)));
        return VelRegion(row, first, last);
    }

    static int number(Element const& element)
    {
        VelVarArray row, first, last;
        EXPECT_EQ(element.GetRegionRuns(&row, &first, &last), 1);
        return static_cast<int>(last[0].L());
    }
};

template <>
struct Traits<VelMatrixArray>
{
    static constexpr char const* name = "VelMatrixArray";
    using Element = VelMatrix;

    /// As many columns as the number.
    static Element make(int number)
    {
        return number == 0 ? VelMatrix() : VelMatrix(1, number, VEL_8U);
    }

    static int number(Element const& element) { return element.Cols(); }
};

template <class Array>
class VelArray : public testing::Test
{
public:
    using Element = typename Traits<Array>::Element;

    static Element make(int number) { return Traits<Array>::make(number); }

    static Array arrayOf(std::vector<int> const& numbers)
    {
        Array array;
        for (int number : numbers)
            array.Append(make(number));
        return array;
    }

    static std::vector<int> numbersOf(Array const& array)
    {
        std::vector<int> numbers;
        for (int i = 0; i < array.Length(); ++i)
            numbers.push_back(Traits<Array>::number(array[i]));
        return numbers;
    }
};

using Numbers = std::vector<int>;
using Arrays = testing::Types<VelVarArray, VelPointArray, VelContourArray, VelImageArray,
                              VelRegionArray, VelMatrixArray>;

struct ArrayName
{
    template <class Array>
    static std::string GetName(int)
    {
        return Traits<Array>::name;
    }
};

TYPED_TEST_SUITE(VelArray, Arrays, ArrayName);

TYPED_TEST(VelArray, IsOnePlainPointer)
{
    EXPECT_EQ(sizeof(TypeParam), sizeof(void*));
    EXPECT_FALSE(std::is_polymorphic<TypeParam>::value);
    EXPECT_TRUE(std::is_nothrow_default_constructible<TypeParam>::value);
    EXPECT_TRUE(std::is_nothrow_move_constructible<TypeParam>::value);
    EXPECT_TRUE(std::is_nothrow_move_assignable<TypeParam>::value);
}

TYPED_TEST(VelArray, StartsEmpty)
{
    TypeParam const array;
    EXPECT_EQ(array.Length(), 0);
}

TYPED_TEST(VelArray, AppendAddsAtTheEnd)
{
    TypeParam array;
    EXPECT_EQ(array.Append(this->make(1)), 1);
    EXPECT_EQ(array.Append(this->make(2)), 1);
    EXPECT_EQ(this->numbersOf(array), Numbers({1, 2}));
}

TYPED_TEST(VelArray, AppendOfAnArrayAddsItsElementsInOrder)
{
    TypeParam array = this->arrayOf({1, 2});
    TypeParam const other = this->arrayOf({3, 4, 5});
    EXPECT_EQ(array.Append(other), 1);
    EXPECT_EQ(this->numbersOf(array), Numbers({1, 2, 3, 4, 5}));
    EXPECT_EQ(this->numbersOf(other), Numbers({3, 4, 5}));
}

TYPED_TEST(VelArray, AppendOfAnEmptyArrayChangesNothing)
{
    TypeParam array = this->arrayOf({1});
    EXPECT_EQ(array.Append(TypeParam()), 1);
    EXPECT_EQ(this->numbersOf(array), Numbers({1}));
}

TYPED_TEST(VelArray, AppendToItselfAppendsACopyOfTheElements)
{
    TypeParam array = this->arrayOf({1, 2, 3});
    EXPECT_EQ(array.Append(array), 1);
    EXPECT_EQ(this->numbersOf(array), Numbers({1, 2, 3, 1, 2, 3}));
}

TYPED_TEST(VelArray, InsertPutsBeforeTheIndex)
{
    TypeParam array = this->arrayOf({1, 2});
    EXPECT_EQ(array.Insert(1, this->make(3)), 1);
    EXPECT_EQ(array.Insert(0, this->make(4)), 1);
    EXPECT_EQ(this->numbersOf(array), Numbers({4, 1, 3, 2}));
}

TYPED_TEST(VelArray, InsertAtLengthAppends)
{
    TypeParam array;
    EXPECT_EQ(array.Insert(0, this->make(1)), 1);
    EXPECT_EQ(array.Insert(1, this->make(2)), 1);
    EXPECT_EQ(this->numbersOf(array), Numbers({1, 2}));
}

TYPED_TEST(VelArray, OutOfRangeIndexesAreRefusedAndChangeNothing)
{
    for (TypeParam array : {TypeParam(), this->arrayOf({1, 2})}) {
        Numbers const before = this->numbersOf(array);
        for (int index : {-1, array.Length(), INT_MIN, INT_MAX}) {
            SCOPED_TRACE(index);
            auto element = this->make(7);
            EXPECT_EQ(array.Remove(index), 0);
            EXPECT_EQ(array.Replace(index, element), 0);
            EXPECT_EQ(array.Swap(index, 0), 0);
            EXPECT_EQ(array.Swap(0, index), 0);
            EXPECT_EQ(array.Select(index, &element), 0);
            EXPECT_EQ(Traits<TypeParam>::number(element), 7);
            EXPECT_EQ(Traits<TypeParam>::number(array[index]), 0);
        }
        for (int index : {-1, array.Length() + 1, INT_MIN, INT_MAX})
            EXPECT_EQ(array.Insert(index, this->make(7)), 0);
        EXPECT_EQ(this->numbersOf(array), before);
    }
}

TYPED_TEST(VelArray, SelectIntoNullIsRefused)
{
    TypeParam const array = this->arrayOf({1});
    EXPECT_EQ(array.Select(0, nullptr), 0);
}

TYPED_TEST(VelArray, SelectCopiesTheElement)
{
    TypeParam const array = this->arrayOf({1, 2});
    auto element = this->make(7);
    EXPECT_EQ(array.Select(1, &element), 1);
    EXPECT_EQ(Traits<TypeParam>::number(element), 2);
}

TYPED_TEST(VelArray, SwapExchangesTwoElements)
{
    TypeParam array = this->arrayOf({1, 2, 3});
    EXPECT_EQ(array.Swap(2, 0), 1);
    EXPECT_EQ(array.Swap(1, 1), 1);
    EXPECT_EQ(this->numbersOf(array), Numbers({3, 2, 1}));
}

TYPED_TEST(VelArray, ClearRemovesEverythingAndTheArrayCanBeFilledAgain)
{
    TypeParam array = this->arrayOf({1, 2});
    EXPECT_EQ(array.Clear(), 1);
    EXPECT_EQ(array.Length(), 0);
    EXPECT_EQ(array.Clear(), 1);
    EXPECT_EQ(array.Append(this->make(3)), 1);
    EXPECT_EQ(this->numbersOf(array), Numbers({3}));
}

TYPED_TEST(VelArray, CopiesAreIndependentLists)
{
    TypeParam source = this->arrayOf({1, 2});
    TypeParam copy(source);
    copy.Append(this->make(3));
    source.Remove(0);
    EXPECT_EQ(this->numbersOf(source), Numbers({2}));
    EXPECT_EQ(this->numbersOf(copy), Numbers({1, 2, 3}));

    source = copy;
    copy.Clear();
    EXPECT_EQ(this->numbersOf(source), Numbers({1, 2, 3}));
    source = TypeParam();
    EXPECT_EQ(source.Length(), 0);
}

TYPED_TEST(VelArray, MovingLeavesTheSourceEmptyAndUsable)
{
    TypeParam source = this->arrayOf({1, 2});
    TypeParam target(std::move(source));
    EXPECT_EQ(source.Length(), 0);
    EXPECT_EQ(this->numbersOf(target), Numbers({1, 2}));

    source = std::move(target);
    EXPECT_EQ(target.Length(), 0);
    EXPECT_EQ(this->numbersOf(source), Numbers({1, 2}));
    EXPECT_EQ(target.Append(this->make(3)), 1);
    EXPECT_EQ(this->numbersOf(target), Numbers({3}));
}

TYPED_TEST(VelArray, AssignmentToItselfChangesNothing)
{
    TypeParam array = this->arrayOf({1, 2});
    TypeParam& same = array;
    array = same;
    EXPECT_EQ(this->numbersOf(array), Numbers({1, 2}));
    array = std::move(same);
    EXPECT_EQ(this->numbersOf(array), Numbers({1, 2}));
}

/// Random operations, checked step by step against std::vector.
TYPED_TEST(VelArray, BehavesLikeAVector)
{
    constexpr unsigned seed = 20230415;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    auto const pick = [&random](int first, int last) {
        return std::uniform_int_distribution<int>(first, last)(random);
    };

    TypeParam array;
    Numbers model;
    for (int step = 0; step < 1500 && !this->HasFailure(); ++step) {
        int const size = static_cast<int>(model.size());
        int const index = pick(-1, size + 1);
        int const other = pick(-1, size + 1);
        bool const inside = index >= 0 && index < size;
        int const number = pick(1, 9);
        SCOPED_TRACE(testing::Message() << "step " << step);
        switch (size > 40 ? pick(4, 7) : pick(0, 6)) {
        case 0:
            EXPECT_EQ(array.Append(this->make(number)), 1);
            model.push_back(number);
            break;
        case 1: {
            bool const allowed = index >= 0 && index <= size;
            EXPECT_EQ(array.Insert(index, this->make(number)), allowed ? 1 : 0);
            if (allowed)
                model.insert(model.begin() + index, number);
            break;
        }
        case 2:
            EXPECT_EQ(array.Append(array), 1);
            model.reserve(2 * model.size());
            model.insert(model.end(), model.begin(), model.begin() + size);
            break;
        case 3: {
            TypeParam const copy(array);
            array = copy;
            break;
        }
        case 4:
            EXPECT_EQ(array.Remove(index), inside ? 1 : 0);
            if (inside)
                model.erase(model.begin() + index);
            break;
        case 5:
            EXPECT_EQ(array.Replace(index, this->make(number)), inside ? 1 : 0);
            if (inside)
                model[static_cast<std::size_t>(index)] = number;
            break;
        case 6: {
            bool const both = inside && other >= 0 && other < size;
            EXPECT_EQ(array.Swap(index, other), both ? 1 : 0);
            if (both)
                std::swap(model[static_cast<std::size_t>(index)],
                          model[static_cast<std::size_t>(other)]);
            break;
        }
        default:
            EXPECT_EQ(array.Clear(), 1);
            model.clear();
        }
        ASSERT_EQ(this->numbersOf(array), model);
    }
}

} // namespace
