// What holds when memory runs out in the middle of an operation: nothing leaks, and a handle keeps
// the value that it had.

#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <new>

#include "../support/allocations.h"
#include "../support/failing.h"
#include "../support/variantaccess.h"

namespace {

TEST(OutOfMemory, ConstructorsLeaveNothingBehind)
{
    KDRPoint const point(1.0, 2.0);
    KDRString const text("text");
    KDRNumberArray numbers;
    numbers.push_back(KDRNumber(1));
    KDRBuffer const bytes("bytes");
    KDRStringArray texts;
    texts.push_back(text);
    KDRBufferArray buffers;
    buffers.push_back(bytes);
    KDRVariant const source(point);
    // Lock, store, payload holder, and what the payload owns.
    EXPECT_EQ(failAtEveryAllocation([] { KDRVariant const variant; }), 2);
    EXPECT_EQ(failAtEveryAllocation([] { KDRVariant const variant(1); }), 4);
    EXPECT_EQ(failAtEveryAllocation([] { KDRVariant const variant(true); }), 3);
    EXPECT_EQ(failAtEveryAllocation([] { KDRVariant const variant("text"); }), 4);
    EXPECT_EQ(failAtEveryAllocation([&] { KDRVariant const variant(text); }), 4);
    EXPECT_EQ(failAtEveryAllocation([&] { KDRVariant const variant(point); }), 5);
    EXPECT_GE(failAtEveryAllocation([&] { KDRVariant const variant(numbers); }), 4);
    EXPECT_EQ(failAtEveryAllocation([&] { KDRVariant const variant(bytes); }), 4);
    EXPECT_EQ(failAtEveryAllocation([&] { KDRVariant const variant(texts); }), 4);
    EXPECT_EQ(failAtEveryAllocation([&] { KDRVariant const variant(buffers); }), 4);
    // The lock alone: the store is the source's.
    EXPECT_EQ(failAtEveryAllocation([&] { KDRVariant const copy(source); }), 1);
    EXPECT_GE(failAtEveryAllocation([&] { source.clone(); }), 5);
    EXPECT_EQ(VariantAccess::store(source).refCount(), 1);
}

TEST(OutOfMemory, AssignmentAllocatesNothing)
{
    KDRVariant const source(1);
    KDRVariant target("text");
    EXPECT_EQ(failAtEveryAllocation([&] { target = source; }), 0);
}

TEST(OutOfMemory, AWriterThatFailsKeepsTheOldValue)
{
    KDRPoint const point(1.0, 2.0);
    for (bool const shared : {false, true}) {
        KDRVariant variant(5);
        KDRVariant const sharer(shared ? variant : KDRVariant());
        auto const keepsValue = [&] {
            int value = 0;
            EXPECT_TRUE(variant.toInt(&value));
            EXPECT_EQ(value, 5);
            EXPECT_EQ(VariantAccess::store(variant).refCount(), shared ? 2 : 1);
        };
        EXPECT_GE(failAtEveryAllocation([&] { variant.fromPoint(point); }, keepsValue), 3);
        EXPECT_EQ(variant.variantType(), 3);
    }
}

TEST(OutOfMemory, ACopyOfANumberArrayLeavesNothingBehind)
{
    KDRNumberArray numbers;
    for (int i = 0; i < 5; ++i)
        numbers.push_back(KDRNumber(i));
    KDRNumberArray other;
    other.push_back(KDRNumber(9));
    auto const keepsNumbers = [&] { EXPECT_EQ(numbers.length(), 5); };
    EXPECT_GE(failAtEveryAllocation([&] { numbers.push_back(other); }, keepsNumbers), 2);
    EXPECT_EQ(numbers.length(), 6);
}

TEST(OutOfMemory, InsertTakesItsPlaceBack)
{
    KDRNumberArray numbers;
    for (int i = 0; i < 5; ++i)
        numbers.push_back(KDRNumber(i));
    KDRNumber const value(9);
    auto const keepsNumbers = [&] {
        ASSERT_EQ(numbers.length(), 5);
        for (int i = 0; i < 5; ++i) {
            KDRNumber out;
            EXPECT_TRUE(numbers.select(i, &out));
            EXPECT_EQ(out.toInt(), i);
        }
    };
    // Once for each position, so that both ends of the list move.
    for (int index = 0; index < 5; ++index) {
        EXPECT_GE(failAtEveryAllocation([&] { numbers.insert(index, value); }, keepsNumbers), 1);
        ASSERT_TRUE(numbers.removeAt(index));
    }
}

} // namespace
