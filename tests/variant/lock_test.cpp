#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <type_traits>

#include "../support/blocking.h"
#include "../support/variantaccess.h"

namespace {

KDRVariantKind kindOf(KDRVariantLock const& lock)
{
    EXPECT_EQ(KDRInternal::store(lock).refCount(), 1);
    return KDRInternal::store(lock).variantType();
}

TEST(Lock, EachConstructorMakesAStoreOfItsKind)
{
    EXPECT_EQ(kindOf(KDRVariantLock()), 2000);
    EXPECT_EQ(kindOf(KDRVariantLock(1)), 1);
    EXPECT_EQ(kindOf(KDRVariantLock(1L)), 1);
    EXPECT_EQ(kindOf(KDRVariantLock(1LL)), 1);
    EXPECT_EQ(kindOf(KDRVariantLock(1.0F)), 1);
    EXPECT_EQ(kindOf(KDRVariantLock(1.0)), 1);
    EXPECT_EQ(kindOf(KDRVariantLock("text")), 2);
    EXPECT_EQ(kindOf(KDRVariantLock(true)), 0);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRNumber())), 1);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRString())), 2);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRChar())), 12);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRPoint())), 3);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRImage())), 4);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRContour())), 7);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRBuffer())), 11);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRNumberArray())), 1001);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRStringArray())), 1002);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRPointArray())), 1003);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRImageArray())), 1004);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRContourArray())), 1008);
    EXPECT_EQ(kindOf(KDRVariantLock(KDRBufferArray())), 1010);
}

TEST(Lock, IsNeverCopied)
{
    EXPECT_FALSE(std::is_copy_constructible<KDRVariantLock>::value);
    EXPECT_FALSE(std::is_copy_assignable<KDRVariantLock>::value);
    EXPECT_FALSE(std::is_move_constructible<KDRVariantLock>::value);
    EXPECT_TRUE(std::is_nothrow_destructible<KDRVariantLock>::value);
}

TEST(Lock, DestructionGivesUpOneCount)
{
    KDRVariantPrivate* store = nullptr;
    {
        KDRVariantLock const lock(5);
        store = &KDRInternal::store(lock);
        store->incRef();
        EXPECT_EQ(store->refCount(), 2);
    }
    EXPECT_EQ(store->refCount(), 1);
    int value = 0;
    EXPECT_TRUE(store->toInt(&value));
    EXPECT_EQ(value, 5);
    store->decRef();
}

TEST(Lock, KeepsOtherThreadsFromTheHandleUntilUnlock)
{
    KDRVariant source(5);
    KDRVariant target;
    KDRVariantLock& lock = KDRInternal::lock(source);
    auto const unlock = [&lock] { lock.unlock(); };
    lock.lock();
    EXPECT_TRUE(waitsFor([&] { target = source; }, unlock));
    lock.lock();
    EXPECT_TRUE(waitsFor([&] { source = target; }, unlock));
    lock.lock();
    EXPECT_TRUE(waitsFor([&] { KDRVariant const copy(source); }, unlock));
    int value = 0;
    EXPECT_TRUE(target.toInt(&value));
    EXPECT_EQ(value, 5);
}

TEST(Lock, AssignmentTakesTheSourceBeforeTheTarget)
{
    KDRVariant source(5);
    KDRVariant target;
    KDRInternal::lock(source).lock();
    bool targetWasTaken = true;
    auto const tryTarget = [&] {
        targetWasTaken = waitsFor([&] { KDRVariant const copy(target); },
                                  [&] { KDRInternal::lock(source).unlock(); });
    };
    EXPECT_TRUE(waitsFor([&] { target = source; }, tryTarget));
    EXPECT_FALSE(targetWasTaken);
}

TEST(Lock, IsNotTakenByReadersWritersAndClones)
{
    KDRVariant variant(5);
    KDRInternal::lock(variant).lock();
    int value = 0;
    EXPECT_TRUE(variant.toInt(&value));
    variant.fromInt(6);
    EXPECT_TRUE(variant.clone().toInt(&value));
    EXPECT_EQ(value, 6);
    EXPECT_EQ(variant.variantType(), 1);
    variant.attribute();
    KDRInternal::lock(variant).unlock();
}

TEST(Lock, IsAMutexFollowedByTheStorePointer)
{
    EXPECT_EQ(sizeof(KDRVariantLock), sizeof(QMutex) + sizeof(void*));
}

} // namespace
