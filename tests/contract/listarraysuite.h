#ifndef KDRDATA_TESTS_LISTARRAYSUITE_H
#define KDRDATA_TESTS_LISTARRAYSUITE_H

#include <kdrdata/internal/kdrinternal_p.h>

#include <gtest/gtest.h>

#include <QtCore/qlist.h>

#include "../support/withoutobject.h"

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

    // Empty, with the storage of the elements that it had.
    static Array emptied()
    {
        Array array = twoElements();
        EXPECT_TRUE(array.removeAt(1));
        EXPECT_TRUE(array.removeAt(0));
        return array;
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
    WithoutObject<typename TypeParam::Array> bare;
    auto& empty = bare.handle;
    auto array = this->twoElements();
    array = empty;
    EXPECT_EQ(array.length(), 2);
    EXPECT_EQ(&(empty = array), &empty);
    EXPECT_EQ(KDRInternal::pointer(empty), nullptr);
    EXPECT_EQ(typename TypeParam::Array(empty).length(), 0);
    EXPECT_TRUE(TypeParam::isDefault(empty[0]));
}

TYPED_TEST_P(ListArrayContract, ACopyOfAnEmptiedArraySharesNothingAndAnAssignmentDoes)
{
    auto const array = this->emptied();
    typename TypeParam::Array copy(array);
    EXPECT_EQ(copy.length(), 0);
    EXPECT_FALSE(this->share(copy, array));
    auto assigned = this->twoElements();
    assigned = array;
    EXPECT_EQ(assigned.length(), 0);
    EXPECT_TRUE(this->share(assigned, array));
    copy.push_back(TypeParam::make(3));
    EXPECT_EQ(TypeParam::read(copy[0]), 3);
    EXPECT_EQ(array.length(), 0);
}

TYPED_TEST_P(ListArrayContract, AppendingToAnArrayWithoutStorageSharesAndToAnEmptiedOneCopies)
{
    auto const array = this->twoElements();
    typename TypeParam::Array fresh;
    fresh.push_back(array);
    EXPECT_TRUE(this->share(fresh, array));
    auto cleared = this->twoElements();
    cleared.clear();
    cleared.push_back(array);
    EXPECT_TRUE(this->share(cleared, array));
    auto emptied = this->emptied();
    emptied.push_back(array);
    EXPECT_FALSE(this->share(emptied, array));
    ASSERT_EQ(emptied.length(), 2);
    EXPECT_EQ(TypeParam::read(emptied[0]), 1);
    EXPECT_EQ(TypeParam::read(emptied[1]), 2);
    emptied.push_back(typename TypeParam::Array());
    EXPECT_EQ(emptied.length(), 2);
}

TYPED_TEST_P(ListArrayContract, AppendingAnEmptiedArrayChangesNothing)
{
    auto array = this->twoElements();
    typename TypeParam::Array const sharer(array);
    array.push_back(this->emptied());
    EXPECT_EQ(array.length(), 2);
    EXPECT_TRUE(this->share(array, sharer));
    typename TypeParam::Array fresh;
    fresh.push_back(this->emptied());
    EXPECT_EQ(fresh.length(), 0);
}

TYPED_TEST_P(ListArrayContract, AHandleKeepsItsListObjectWhateverTheListHolds)
{
    auto array = this->twoElements();
    auto const* const list = KDRInternal::pointer(array);
    array.push_back(this->twoElements());
    array = this->twoElements();
    array.push_back(array);
    EXPECT_TRUE(array.swap(0, 1));
    typename TypeParam::Array const sharer(array);
    EXPECT_TRUE(array.insert(0, TypeParam::make(3)));
    array.clear();
    EXPECT_EQ(KDRInternal::pointer(array), list);
}

REGISTER_TYPED_TEST_SUITE_P(ListArrayContract, CopiesAndAssignmentsShareTheList,
                            ReadingAndRefusedChangesDoNotDetach, IndexingDetachesEvenAConstantArray,
                            IndexOutsideIsAssertedInDebugBuilds,
                            HandlesWithoutAListAreSkippedByAssignmentAndCopiedAsEmpty,
                            ACopyOfAnEmptiedArraySharesNothingAndAnAssignmentDoes,
                            AppendingToAnArrayWithoutStorageSharesAndToAnEmptiedOneCopies,
                            AppendingAnEmptiedArrayChangesNothing,
                            AHandleKeepsItsListObjectWhateverTheListHolds);

#endif
