#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <new>
#include <utility>

#include "../contract/arraysuite.h"
#include "../contract/listarraysuite.h"
#include "../support/allocations.h"
#include "kindtable.h"

namespace {

struct VariantArrayTraits
{
    using Array = KDRVariantArray;
    using Element = KDRVariant;
    static constexpr bool insertsAtEnd = false;
    static KDRVariant make(int n) { return KDRVariant(n); }
    static bool isDefault(KDRVariant const& value) { return value.variantType() == KindNone; }
    static int read(KDRVariant const& value)
    {
        int n = -1;
        value.toInt(&n);
        return n;
    }
};

using VariantArrays = testing::Types<VariantArrayTraits>;
INSTANTIATE_TYPED_TEST_SUITE_P(VariantArrays, ArrayContract, VariantArrays, );
INSTANTIATE_TYPED_TEST_SUITE_P(VariantArrays, ListArrayContract, VariantArrays, );

int handlesOn(KDRVariant const& variant) { return VariantAccess::store(variant).refCount(); }

bool shareStore(KDRVariant const& a, KDRVariant const& b)
{
    return &VariantAccess::store(a) == &VariantAccess::store(b);
}

KDRVariant selected(KDRVariantArray const& array, int index)
{
    KDRVariant out;
    EXPECT_TRUE(array.select(index, &out));
    return out;
}

// The array inside a variant of kind 1800, which stays the variant's own.
KDRVariantArray& arrayIn(KDRVariant& variant)
{
    KDRVariantArray* array = nullptr;
    EXPECT_TRUE(variant.toVariantArrayPtr(array));
    return *array;
}

TEST(VariantArray, ElementsShareTheStoreOfWhatWentInAndOfWhatComesOut)
{
    KDRVariant const value("text");
    KDRVariantArray array;
    array.push_back(value);
    array.push_back(KDRVariant());
    ASSERT_TRUE(array.insert(0, value));
    ASSERT_TRUE(array.replace(2, value));
    EXPECT_EQ(handlesOn(value), 4);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(shareStore(array[i], value)) << i;
        EXPECT_TRUE(shareStore(selected(array, i), value)) << i;
    }
    ASSERT_TRUE(array.removeAt(1));
    EXPECT_EQ(handlesOn(value), 3);
    array.clear();
    EXPECT_EQ(handlesOn(value), 1);
}

TEST(VariantArray, SwapMovesTheElementsWithoutCopyingAVariant)
{
    KDRVariantArray array;
    array.push_back(KDRVariant(1));
    array.push_back(KDRVariant(2));
    KDRVariant const first = array[0];
    long const before = allocations::made();
    ASSERT_TRUE(array.swap(0, 1));
    EXPECT_EQ(allocations::made(), before);
    EXPECT_TRUE(shareStore(array[1], first));
}

TEST(VariantArray, AValueChangedAfterItWentInLeavesTheElement)
{
    KDRVariant value(5);
    KDRVariantArray array;
    array.push_back(value);
    value.fromInt(7);
    EXPECT_EQ(VariantArrayTraits::read(array[0]), 5);
}

TEST(VariantArray, AValueChangedAfterItCameOutLeavesTheElement)
{
    KDRVariantArray array;
    array.push_back(KDRVariant(5));
    KDRVariant byIndex = array[0];
    KDRVariant bySelect = selected(array, 0);
    byIndex.fromInt(7);
    bySelect.fromString(KDRString("other"));
    EXPECT_EQ(VariantArrayTraits::read(array[0]), 5);
}

TEST(VariantArray, PointerReadersOfTwoSelectedValuesGiveTheSameAddress)
{
    KDRVariantArray array;
    array.push_back(KDRVariant("text"));
    KDRVariant first = selected(array, 0);
    KDRVariant second = selected(array, 0);
    KDRString* one = nullptr;
    KDRString* two = nullptr;
    ASSERT_TRUE(first.toStringPtr(one));
    ASSERT_TRUE(second.toStringPtr(two));
    EXPECT_EQ(one, two);
}

TEST(VariantArray, HoldsEveryKind)
{
    KDRVariantArray array;
    for (KindEntry const& row : kindTable)
        array.push_back(variantOf(row, 7));
    int i = 0;
    for (KindEntry const& row : kindTable) {
        KDRVariant element = array[i++];
        EXPECT_EQ(element.variantType(), row.kind);
        EXPECT_EQ(row.read(element), row.reads == row.kind ? row.right(7) : row.untouched());
    }
}

TEST(VariantArray, ADetachedListHasHandlesOfItsOwnOnTheSameStores)
{
    KDRVariant const value(5);
    KDRVariantArray array;
    array.push_back(value);
    KDRVariantArray copy(array);
    EXPECT_EQ(handlesOn(value), 2) << "the list is shared";
    copy.push_back(KDRVariant(6));
    EXPECT_EQ(handlesOn(value), 3);
    EXPECT_TRUE(shareStore(copy[0], value));
}

TEST(VariantArray, AnArrayOntoItselfSharesTheStoresTwice)
{
    KDRVariant const value(5);
    KDRVariantArray array;
    array.push_back(value);
    array.push_back(array);
    EXPECT_EQ(array.length(), 2);
    EXPECT_EQ(handlesOn(value), 3);
}

TEST(VariantArray, ACopyOfAStoreSharesTheElementsStores)
{
    KDRVariant const value(5);
    KDRVariantArray array;
    array.push_back(value);
    KDRVariant const holder(array);
    KDRVariant clone = holder.clone();
    EXPECT_FALSE(shareStore(clone, holder));
    EXPECT_TRUE(shareStore(arrayIn(clone)[0], value));
}

TEST(VariantArray, AnElementMayTakeThePlaceOfTheVariantThatHoldsItsArray)
{
    long const before = allocations::live();
    {
        KDRVariantArray array;
        array.push_back(KDRVariant("text"));
        KDRVariant holder(array);
        array.clear();
        EXPECT_TRUE(arrayIn(holder).select(0, &holder));
        KDRString text;
        EXPECT_TRUE(holder.toString(&text));
        EXPECT_TRUE(text == KDRString("text"));

        KDRVariant nested{PayloadOf<KDRVariantArray>::make(7)};
        nested = arrayIn(nested)[0];
        EXPECT_EQ(VariantArrayTraits::read(nested), 7);
    }
    EXPECT_EQ(allocations::live(), before);
}

TEST(VariantArray, AnElementsPayloadMayBeWrittenToTheVariantThatHoldsItsArray)
{
    KDRVariantArray array;
    array.push_back(KDRVariant("text"));
    KDRVariant holder(array);
    array.clear();
    KDRString* text = nullptr;
    {
        KDRVariant element = arrayIn(holder)[0];
        ASSERT_TRUE(element.toStringPtr(text));
    }
    holder.fromString(*text);
    KDRString out;
    EXPECT_TRUE(holder.toString(&out));
    EXPECT_TRUE(out == KDRString("text"));
}

TEST(VariantArray, AVariantMayBeWrittenWithItsOwnArray)
{
    KDRVariant holder{PayloadOf<KDRVariantArray>::make(7)};
    holder.fromVariantArray(arrayIn(holder));
    EXPECT_EQ(arrayIn(holder).length(), 1);
    EXPECT_EQ(VariantArrayTraits::read(arrayIn(holder)[0]), 7);
}

TEST(VariantArray, PushedIntoItselfByValueItHoldsItsOldElements)
{
    KDRVariantArray array = PayloadOf<KDRVariantArray>::make(7);
    array.push_back(KDRVariant(array));
    ASSERT_EQ(array.length(), 2);
    KDRVariant inner = array[1];
    EXPECT_EQ(arrayIn(inner).length(), 1);
    EXPECT_EQ(VariantArrayTraits::read(arrayIn(inner)[0]), 7);
}

TEST(VariantArray, AHolderPushedIntoItsOwnArrayIsFreedOnceTheElementIsRemoved)
{
    long const before = allocations::live();
    {
        KDRVariant holder{KDRVariantArray()};
        arrayIn(holder).push_back(holder);
        EXPECT_EQ(handlesOn(holder), 2);
        KDRVariant inner = arrayIn(holder)[0];
        EXPECT_TRUE(shareStore(inner, holder));
        arrayIn(holder).clear();
        EXPECT_EQ(handlesOn(holder), 2);
        EXPECT_EQ(arrayIn(inner).length(), 0);
    }
    EXPECT_EQ(allocations::live(), before);
}

TEST(VariantArray, TheElementThatOwnsTheArrayMayBeTakenOutOfIt)
{
    auto const removals = {
        +[](KDRVariantArray& array) { EXPECT_TRUE(array.removeAt(0)); },
        +[](KDRVariantArray& array) { EXPECT_TRUE(array.replace(0, KDRVariant(7))); },
        +[](KDRVariantArray& array) { array.clear(); },
        +[](KDRVariantArray& array) { array = KDRVariantArray(); },
        +[](KDRVariantArray& array) {
            KDRVariant out;
            EXPECT_TRUE(array.select(0, &out));
            array.clear();
        }};
    for (auto const removal : removals) {
        long const before = allocations::live();
        KDRVariantArray* array = nullptr;
        {
            KDRVariant holder{KDRVariantArray()};
            array = &arrayIn(holder);
            array->push_back(holder);
        }
        EXPECT_GT(allocations::live(), before) << "the array holds itself";
        removal(*array);
        EXPECT_EQ(allocations::live(), before);
    }
}

TEST(VariantArray, InsertThatFailsTakesItsPlaceBack)
{
    KDRVariantArray array;
    for (int i = 0; i < 5; ++i)
        array.push_back(KDRVariant(i));
    KDRVariant const value(9);
    for (int index = 0; index < 5; ++index) {
        // The slot's handle and its lock.
        for (long successes = 0; successes < 2; ++successes) {
            allocations::FailAfter const limit(successes);
            EXPECT_THROW(array.insert(index, value), std::bad_alloc);
        }
        ASSERT_EQ(array.length(), 5);
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(VariantArrayTraits::read(selected(array, i)), i);
    }
    EXPECT_EQ(handlesOn(value), 1);
}

TEST(VariantArray, AppendThatFailsKeepsTheOldElements)
{
    KDRVariantArray array = PayloadOf<KDRVariantArray>::make(1);
    KDRVariantArray const other = PayloadOf<KDRVariantArray>::make(2);
    // A slot's handle and its lock for each of the two elements.
    for (long successes = 0; successes < 4; ++successes) {
        allocations::FailAfter const limit(successes);
        EXPECT_THROW(array.push_back(other), std::bad_alloc) << successes;
    }
    ASSERT_EQ(array.length(), 1);
    EXPECT_EQ(VariantArrayTraits::read(array[0]), 1);
}

} // namespace
