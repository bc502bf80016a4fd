#ifndef KDRDATA_TESTS_LISTARRAYSUITE_H
#define KDRDATA_TESTS_LISTARRAYSUITE_H

#include <kdrdata/internal/kdrinternal_p.h>

#include <gtest/gtest.h>

#include <QtCore/qlist.h>

/// What the arrays over a Qt list share beyond the contract of all arrays, as a typed suite with
/// the traits of arraysuite.h and `bool isDefault(Element const&)`: how they share their lists, and
/// what a handle without one does.
template <class Traits>
class ListArrayContract : public testing::Test
{
protected:
    using Array = typename Traits::Array;

    static Array twoElements()
    {
        Array array;
        array.push_back(Traits::make(1));
        array.push_back(Traits::make(2));
        return array;
    }

    static bool share(Array const& a, Array const& b)
    {
        return KDRInternal::wrapped(a).isSharedWith(KDRInternal::wrapped(b));
    }

    // What a handle looks like whose destructor has run.
    static void takeTheListFrom(Array& array)
    {
        delete KDRInternal::pointer(array);
        KDRInternal::pointer(array) = nullptr;
    }
};

TYPED_TEST_SUITE_P(ListArrayContract);

TYPED_TEST_P(ListArrayContract, CopiesAndAssignmentsShareTheList)
{
    auto const array = this->twoElements();
    typename TypeParam::Array const copy(array);
    typename TypeParam::Array assigned;
    assigned = array;
    EXPECT_TRUE(this->share(copy, array));
    EXPECT_TRUE(this->share(assigned, array));
    assigned = copy;
    EXPECT_TRUE(this->share(assigned, array));
}

TYPED_TEST_P(ListArrayContract, ReadingAndRefusedChangesDoNotDetach)
{
    auto array = this->twoElements();
    typename TypeParam::Array const sharer(array);
    auto element = TypeParam::make(3);
    EXPECT_EQ(array.length(), 2);
    EXPECT_TRUE(array.select(1, &element));
    EXPECT_FALSE(array.select(2, &element));
    EXPECT_FALSE(array.insert(-1, element));
    EXPECT_FALSE(array.insert(3, element));
    EXPECT_FALSE(array.removeAt(2));
    EXPECT_FALSE(array.replace(2, element));
    EXPECT_FALSE(array.swap(0, 2));
    EXPECT_FALSE(array.swap(-1, 0));
    EXPECT_TRUE(this->share(array, sharer));
}

TYPED_TEST_P(ListArrayContract, IndexingDetachesEvenAConstantArray)
{
    auto const array = this->twoElements();
    typename TypeParam::Array const sharer(array);
    EXPECT_EQ(TypeParam::read(array[1]), 2);
    EXPECT_FALSE(this->share(array, sharer));
    EXPECT_EQ(TypeParam::read(sharer[1]), 2);
}

TYPED_TEST_P(ListArrayContract, IndexOutsideIsAssertedInDebugBuilds)
{
#ifdef NDEBUG
    GTEST_SKIP() << "release builds check no index";
#else
    auto const array = this->twoElements();
    EXPECT_DEATH(array[2], "ASSERT");
    EXPECT_DEATH(array[-1], "ASSERT");
#endif
}

TYPED_TEST_P(ListArrayContract, HandlesWithoutAListAreSkippedByAssignmentAndCopiedAsEmpty)
{
    typename TypeParam::Array empty;
    this->takeTheListFrom(empty);
    auto array = this->twoElements();
    array = empty;
    EXPECT_EQ(array.length(), 2);
    EXPECT_EQ(&(empty = array), &empty);
    EXPECT_EQ(KDRInternal::pointer(empty), nullptr);
    EXPECT_EQ(typename TypeParam::Array(empty).length(), 0);
    EXPECT_TRUE(TypeParam::isDefault(empty[0]));
}

REGISTER_TYPED_TEST_SUITE_P(ListArrayContract, CopiesAndAssignmentsShareTheList,
                            ReadingAndRefusedChangesDoNotDetach, IndexingDetachesEvenAConstantArray,
                            IndexOutsideIsAssertedInDebugBuilds,
                            HandlesWithoutAListAreSkippedByAssignmentAndCopiedAsEmpty);

#endif
