#include <kdrdata/geometry3d/geometry3d.h>

#include <gtest/gtest.h>

#include "../support/fixedanswers.h"

namespace {

using namespace FixedAnswers;

template <class ArrayClass, class ElementClass>
struct Plain
{
    using Array = ArrayClass;
    using Element = ElementClass;
    static constexpr int length = -1;
    static constexpr bool swaps = true;
};

struct Vectors
{
    using Array = KDRVector3dArray;
    using Element = KDRVector3d;
    static constexpr int length = 0;
    static constexpr bool swaps = false;
};

template <class Traits>
class EmptyArray : public testing::Test
{
};

using EmptyArrays =
    testing::Types<Plain<KDRContour3DArray, KDRContour3D>, Plain<KDRPlane3DArray, KDRPlane3D>,
                   Plain<KDRPoint3DArray, KDRPoint3D>, Plain<KDRPointCloudArray, KDRPointCloud>,
                   Plain<KDRRangeImageArray, KDRRangeImage>, Vectors>;
TYPED_TEST_SUITE(EmptyArray, EmptyArrays, );

TYPED_TEST(EmptyArray, AnswersConstants)
{
    using A = typename TypeParam::Array;
    using E = typename TypeParam::Element;
    int const length = TypeParam::length;
    bool const swaps = TypeParam::swaps;
    A none;
    A copy(none);
    for (A* const array : {&none, &copy}) {
        Answers<A> answers(*array);
        answers.row("operator=", as<A&(A const&)>(&A::operator=), itself);
        answers.row("length", as<int() const>(&A::length), length);
        answers.row("push_back element", as<void(E const&)>(&A::push_back), nothing);
        answers.row("push_back array", as<void(A const&)>(&A::push_back), nothing);
        answers.row("insert", as<bool(int, E const&)>(&A::insert), true);
        answers.row("removeAt", as<bool(int)>(&A::removeAt), true);
        answers.row("replace", as<bool(int, E const&)>(&A::replace), true);
        answers.row("select", as<bool(int, E*) const>(&A::select), true);
        answers.row("swap", as<bool(int, int)>(&A::swap), swaps);
        answers.row("clear", as<void()>(&A::clear), nothing);
        answers.row("operator[]", as<E(int) const>(&A::operator[]), aDefault);
    }
}

TYPED_TEST(EmptyArray, LengthStaysAfterPushBack)
{
    typename TypeParam::Array array;
    array.push_back(typename TypeParam::Element());
    EXPECT_EQ(array.length(), TypeParam::length);
    array.push_back(array);
    EXPECT_EQ(array.length(), TypeParam::length);
}

TYPED_TEST(EmptyArray, EveryPositionIsAnsweredAlike)
{
    typename TypeParam::Array array;
    typename TypeParam::Element const element;
    for (int const index : {-2147483647 - 1, -1, 0, 1, 2147483647}) {
        SCOPED_TRACE(index);
        EXPECT_TRUE(array.insert(index, element));
        EXPECT_TRUE(array.removeAt(index));
        EXPECT_TRUE(array.replace(index, element));
        EXPECT_TRUE(array.select(index, nullptr));
        EXPECT_EQ(array.swap(index, 0), TypeParam::swaps);
        EXPECT_EQ(array.swap(0, index), TypeParam::swaps);
        EXPECT_TRUE(isDefault(array[index]));
    }
}

TEST(Vector3dArray, CountsMinusOneValidElements)
{
    using A = KDRVector3dArray;
    A array;
    Answers<A> answers(array);
    answers.row("countValidElements", as<int() const>(&A::countValidElements), -1);
}

} // namespace
