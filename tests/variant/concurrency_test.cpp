// Copies and assignments from several threads. Run under Helgrind too, where the two lock orders of
// copy construction and assignment are the one report to expect.

#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <vector>

#include "../support/allocations.h"
#include "../support/inthreads.h"
#include "../support/variantaccess.h"
#include "variantmodel.h"

namespace {

constexpr int rounds = 500;

TEST(Concurrency, OneHandleIsCopiedFromSeveralThreads)
{
    KDRVariant const source(KDRPoint(1.0, 2.0));
    inThreads([&source](int) {
        for (int round = 0; round < rounds; ++round) {
            KDRVariant const copy(source);
            KDRVariant assigned;
            assigned = copy;
            KDRPoint point;
            ASSERT_TRUE(assigned.toPoint(&point));
            ASSERT_EQ(point.y(), 2.0);
        }
    });
    EXPECT_EQ(VariantAccess::store(source).refCount(), 1);
}

TEST(Concurrency, CopiesOfOneHandleAreWrittenInSeveralThreads)
{
    KDRVariant const source("text");
    inThreads([&source](int number) {
        for (int round = 0; round < rounds; ++round) {
            KDRVariant copy(source);
            copy.fromInt(number);
            int value = -1;
            ASSERT_TRUE(copy.toInt(&value));
            ASSERT_EQ(value, number);
        }
    });
    KDRString text;
    EXPECT_TRUE(source.toString(&text));
    EXPECT_TRUE(text == KDRString("text"));
    EXPECT_EQ(VariantAccess::store(source).refCount(), 1);
}

TEST(Concurrency, OneHandleIsCopiedWhileItIsAssignedTo)
{
    KDRVariant const one(1);
    KDRVariant const two(2);
    KDRVariant shared(one);
    inThreads([&](int number) {
        for (int round = 0; round < rounds; ++round) {
            if (number == 0) {
                shared = round % 2 == 0 ? one : two;
                continue;
            }
            KDRVariant const copy(shared);
            int value = 0;
            ASSERT_TRUE(copy.toInt(&value));
            ASSERT_TRUE(value == 1 || value == 2);
        }
    });
    shared = KDRVariant();
    EXPECT_EQ(VariantAccess::store(one).refCount(), 1);
    EXPECT_EQ(VariantAccess::store(two).refCount(), 1);
}

TEST(Concurrency, WhatAHandleHeldMayDieWhileOthersCopyIt)
{
    long const before = allocations::live();
    {
        // Nobody else holds the values: each dies once it is replaced and the copies are gone.
        KDRVariant shared(KDRPoint(0.0, 0.0));
        inThreads([&shared](int number) {
            for (int round = 0; round < 8 * rounds; ++round) {
                if (number == 0) {
                    shared = KDRVariant(KDRPoint(round, -round));
                    continue;
                }
                KDRVariant const copy(shared);
                KDRVariant assigned;
                assigned = shared;
                for (KDRVariant const* const variant :
                     {&copy, static_cast<KDRVariant const*>(&assigned)}) {
                    KDRPoint point;
                    ASSERT_TRUE(variant->toPoint(&point));
                    ASSERT_EQ(point.x(), -point.y());
                }
            }
        });
        EXPECT_EQ(VariantAccess::store(shared).refCount(), 1);
    }
    EXPECT_EQ(allocations::live(), before);
}

TEST(Concurrency, OneVariantArrayIsReadAndCopiedFromSeveralThreads)
{
    static constexpr int length = 8;
    KDRVariantArray origin;
    for (int i = 0; i < length; ++i)
        origin.push_back(KDRVariant(i));
    KDRVariantArray const& shared = origin;
    inThreads([&shared](int number) {
        for (int round = 0; round < rounds / 5; ++round) {
            int const index = (round + number) % length;
            KDRVariant element;
            ASSERT_EQ(shared.length(), length);
            ASSERT_TRUE(shared.select(index, &element));
            int value = -1;
            ASSERT_TRUE(element.toInt(&value));
            ASSERT_EQ(value, index);

            KDRVariantArray own(shared);
            ASSERT_TRUE(own.replace(index, KDRVariant(100 + number)));
            own.push_back(shared);
            ASSERT_TRUE(own.swap(0, length));
            ASSERT_TRUE(own.removeAt(1));
            ASSERT_EQ(own.length(), 2 * length - 1);
            element = own[length - 1];
            element.fromString(KDRString("mine"));
        }
    });
    for (int i = 0; i < length; ++i) {
        KDRVariant element;
        ASSERT_TRUE(origin.select(i, &element));
        int value = -1;
        EXPECT_TRUE(element.toInt(&value));
        EXPECT_EQ(value, i);
        EXPECT_EQ(VariantAccess::store(element).refCount(), 2) << "the element and this handle";
    }
}

TEST(Concurrency, TheLastHandleMayGoInAnyThread)
{
    long const before = allocations::live();
    for (int round = 0; round < 50; ++round) {
        std::vector<KDRVariant> handles(threadCount, KDRVariant(KDRPoint(1.0, 2.0)));
        inThreads(
            [&handles](int number) { handles[static_cast<std::size_t>(number)] = KDRVariant(); });
    }
    EXPECT_EQ(allocations::live(), before);
}

TEST(Concurrency, ImagesThatSharePixelsAreCopiedFromSeveralThreads)
{
    KDRImage const source(nullptr, 64, 64, 1, 0, KDRImage::DataTypeUInt8);
    inThreads([&source](int) {
        for (int round = 0; round < rounds; ++round) {
            KDRImage const copy(source);
            KDRImage assigned;
            assigned = copy;
            ASSERT_EQ(assigned.dataPtr(), source.dataPtr());
        }
    });
    EXPECT_EQ(source.dataPtr()[0], 0);
}

TEST(Concurrency, VariantsOfAllKindsAreUsedInThreadsThatShareTheirOrigin)
{
    std::vector<KDRVariant> origins;
    for (KindEntry const& row : kindTable) {
        if (row.kind != KindVariantArray)
            origins.push_back(variantOf(row, 7));
    }
    inThreads([&origins](int number) {
        VariantModel model(static_cast<unsigned>(number));
        for (KDRVariant const& origin : origins)
            model.addForeign(origin, 7);
        model.run(1000);
    });
    for (KDRVariant const& origin : origins)
        EXPECT_EQ(VariantAccess::store(origin).refCount(), 1);
}

} // namespace
