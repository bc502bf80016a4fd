#include <kdrdata/geometry3d/kdrmatrix3array.h>
#include <kdrdata/geometry3d/kdrmatrix4array.h>
#include <kdrdata/geometry3d/kdrshape3darray.h>
#include <kdrdata/internal/kdrinternal_p.h>

#include <gtest/gtest.h>

#include <QtCore/qlist.h>

#include <random>

#include "../support/withoutobject.h"

namespace {

template <class ArrayClass, class ElementClass>
struct Traits
{
    using Array = ArrayClass;
    using Element = ElementClass;
};

// The elements carry nothing, so that lengths and answers are all there is to see.
template <class Traits>
class ListArray3D : public testing::Test
{
protected:
    static typename Traits::Array ofLength(int length)
    {
        typename Traits::Array array;
        for (int i = 0; i < length; ++i)
            array.push_back(typename Traits::Element());
        return array;
    }

    static bool shareStorage(typename Traits::Array const& a, typename Traits::Array const& b)
    {
        return KDRInternal::wrapped(a).isSharedWith(KDRInternal::wrapped(b));
    }
};

using ListArrays =
    testing::Types<Traits<KDRMatrix3Array, KDRMatrix3>, Traits<KDRMatrix4Array, KDRMatrix4>,
                   Traits<KDRShape3DArray, KDRShape3D>>;
TYPED_TEST_SUITE(ListArray3D, ListArrays, );

constexpr int outside[] = {-2147483647 - 1, -1, 3, 2147483647};

TYPED_TEST(ListArray3D, IsOnePointerWideAndStartsEmpty)
{
    typename TypeParam::Array const array;
    EXPECT_EQ(sizeof array, sizeof(void*));
    EXPECT_EQ(array.length(), 0);
}

TYPED_TEST(ListArray3D, CountsWhatIsPushedBack)
{
    auto array = this->ofLength(2);
    EXPECT_EQ(array.length(), 2);
    array.push_back(this->ofLength(3));
    EXPECT_EQ(array.length(), 5);
    array.push_back(typename TypeParam::Array());
    EXPECT_EQ(array.length(), 5);
}

TYPED_TEST(ListArray3D, PushBackOntoItselfDoublesTheElements)
{
    auto array = this->ofLength(2);
    array.push_back(array);
    EXPECT_EQ(array.length(), 4);
}

TYPED_TEST(ListArray3D, InsertAtLengthIsRefused)
{
    typename TypeParam::Element const element;
    auto array = this->ofLength(2);
    EXPECT_FALSE(array.insert(2, element));
    EXPECT_EQ(array.length(), 2);
    EXPECT_TRUE(array.insert(1, element));
    EXPECT_EQ(array.length(), 3);

    typename TypeParam::Array empty;
    EXPECT_FALSE(empty.insert(0, element));
    EXPECT_EQ(empty.length(), 0);
}

TYPED_TEST(ListArray3D, PositionsInsideAreTaken)
{
    auto array = this->ofLength(3);
    typename TypeParam::Element element;
    for (int index = 0; index < 3; ++index) {
        SCOPED_TRACE(index);
        EXPECT_TRUE(array.replace(index, element));
        EXPECT_TRUE(array.select(index, &element));
        EXPECT_TRUE(array.swap(0, index));
        EXPECT_TRUE(array.swap(index, index));
        static_cast<void>(array[index]);
    }
    EXPECT_EQ(array.length(), 3);
    EXPECT_TRUE(array.removeAt(2));
    EXPECT_TRUE(array.removeAt(0));
    EXPECT_EQ(array.length(), 1);
}

TYPED_TEST(ListArray3D, PositionsOutsideAreRefusedAndChangeNothing)
{
    auto array = this->ofLength(3);
    typename TypeParam::Element element;
    for (int const index : outside) {
        SCOPED_TRACE(index);
        EXPECT_FALSE(array.insert(index, element));
        EXPECT_FALSE(array.removeAt(index));
        EXPECT_FALSE(array.replace(index, element));
        EXPECT_FALSE(array.select(index, &element));
        EXPECT_FALSE(array.swap(index, 0));
        EXPECT_FALSE(array.swap(0, index));
    }
    EXPECT_EQ(array.length(), 3);
}

TYPED_TEST(ListArray3D, ClearLeavesAnEmptyUsableArray)
{
    auto array = this->ofLength(3);
    array.clear();
    EXPECT_EQ(array.length(), 0);
    array.push_back(typename TypeParam::Element());
    EXPECT_EQ(array.length(), 1);
}

TYPED_TEST(ListArray3D, CopiesShareTheStorageUntilOneSideChanges)
{
    using Array = typename TypeParam::Array;
    using Element = typename TypeParam::Element;
    auto const changes = {
        +[](Array& a) { a.push_back(Element()); }, +[](Array& a) { a.insert(0, Element()); },
        +[](Array& a) { a.removeAt(1); },          +[](Array& a) { a.replace(1, Element()); },
        +[](Array& a) { a.swap(0, 2); },           +[](Array& a) { a.clear(); },
        +[](Array& a) { static_cast<void>(a[0]); }};
    for (auto const change : changes) {
        Array original = this->ofLength(3);
        Array const copy(original);
        Array assigned;
        EXPECT_EQ(&(assigned = original), &assigned);
        EXPECT_TRUE(this->shareStorage(original, copy));
        EXPECT_TRUE(this->shareStorage(original, assigned));
        change(original);
        EXPECT_FALSE(this->shareStorage(original, copy));
        EXPECT_TRUE(this->shareStorage(copy, assigned));
        EXPECT_EQ(copy.length(), 3);
    }
}

TYPED_TEST(ListArray3D, ReadingAndRefusedChangesDoNotDetach)
{
    typename TypeParam::Element element;
    auto const original = this->ofLength(3);
    auto copy = original;
    EXPECT_EQ(copy.length(), 3);
    EXPECT_TRUE(copy.select(0, &element));
    EXPECT_FALSE(copy.insert(3, element));
    EXPECT_FALSE(copy.removeAt(3));
    EXPECT_FALSE(copy.replace(-1, element));
    EXPECT_FALSE(copy.swap(0, 3));
    EXPECT_TRUE(this->shareStorage(original, copy));
}

TYPED_TEST(ListArray3D, ACopyOfAnEmptiedArraySharesNothing)
{
    auto array = this->ofLength(1);
    EXPECT_TRUE(array.removeAt(0));
    auto const copy = array;
    EXPECT_EQ(copy.length(), 0);
    EXPECT_FALSE(this->shareStorage(array, copy));
}

TYPED_TEST(ListArray3D, AppendingToAnArrayWithoutStorageSharesAndToAnEmptiedOneCopies)
{
    auto const array = this->ofLength(2);
    typename TypeParam::Array fresh;
    fresh.push_back(array);
    EXPECT_TRUE(this->shareStorage(array, fresh));
    auto emptied = this->ofLength(1);
    EXPECT_TRUE(emptied.removeAt(0));
    emptied.push_back(array);
    EXPECT_EQ(emptied.length(), 2);
    EXPECT_FALSE(this->shareStorage(array, emptied));
}

TYPED_TEST(ListArray3D, HandlesWithoutAListAreSkippedByAssignmentAndCopiedAsEmpty)
{
    WithoutObject<typename TypeParam::Array> bare;
    auto& empty = bare.handle;

    auto array = this->ofLength(2);
    EXPECT_EQ(&(array = empty), &array);
    EXPECT_EQ(array.length(), 2);
    EXPECT_EQ(&(empty = array), &empty);
    EXPECT_EQ(KDRInternal::pointer(empty), nullptr);
    typename TypeParam::Array const copy(empty);
    EXPECT_EQ(copy.length(), 0);
    EXPECT_NE(KDRInternal::pointer(copy), nullptr);
    // Nothing to detach and nothing to read: a default element.
    static_cast<void>(empty[0]);
}

TYPED_TEST(ListArray3D, AssignmentToItselfChangesNothing)
{
    auto array = this->ofLength(2);
    auto const& alias = array;
    array = alias;
    EXPECT_EQ(array.length(), 2);
}

#ifndef NDEBUG
TYPED_TEST(ListArray3D, IndexIsAssertedInDebugBuilds)
{
    auto const array = this->ofLength(2);
    EXPECT_DEATH(array[2], "");
    EXPECT_DEATH(array[-1], "");
}
#endif

TYPED_TEST(ListArray3D, AgreesWithACountUnderRandomOperations)
{
    constexpr unsigned seed = 4711;
    std::mt19937 random(seed);
    auto const pick = [&random](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    typename TypeParam::Array array;
    typename TypeParam::Element const element;
    int length = 0;
    for (int step = 0; step < 2000; ++step) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
        int const index = pick(-2, length + 2);
        int const other = pick(-2, length + 2);
        bool const inside = index >= 0 && index < length;
        bool const otherInside = other >= 0 && other < length;
        switch (pick(0, 5)) {
        case 0:
            array.push_back(element);
            ++length;
            break;
        case 1:
            ASSERT_EQ(array.insert(index, element), inside);
            length += inside ? 1 : 0;
            break;
        case 2:
            ASSERT_EQ(array.removeAt(index), inside);
            length -= inside ? 1 : 0;
            break;
        case 3:
            ASSERT_EQ(array.replace(index, element), inside);
            break;
        case 4:
            ASSERT_EQ(array.swap(index, other), inside && otherInside);
            break;
        default:
            if (length < 40) {
                array.push_back(array);
                length *= 2;
            }
            break;
        }
        ASSERT_EQ(array.length(), length);
    }
}

} // namespace
