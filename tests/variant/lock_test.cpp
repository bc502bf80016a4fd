#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <type_traits>

#include "../support/blocking.h"
#include "../support/variantaccess.h"
#include "kindtable.h"

namespace {

KDRVariantKind kindOf(KDRVariantLock const& lock)
{
    EXPECT_EQ(VariantAccess::store(lock).refCount(), 1);
    return VariantAccess::store(lock).variantType();
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
    for (KindEntry const& row : kindTable) {
        bool const constructible = row.kind < KindMatrix3 || row.kind > KindDualQuaternion;
        EXPECT_EQ(row.lockKind != nullptr, constructible) << row.name;
        if (row.lockKind) {
            EXPECT_EQ(row.lockKind(), row.kind);
        }
    }
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
        store = &VariantAccess::store(lock);
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
    KDRVariantLock& lock = VariantAccess::lock(source);
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

TEST(Lock, IsNotTakenByReadersWritersAndClones)
{
    KDRVariant variant(5);
    VariantAccess::lock(variant).lock();
    int value = 0;
    EXPECT_TRUE(variant.toInt(&value));
    variant.fromInt(6);
    EXPECT_TRUE(variant.clone().toInt(&value));
    EXPECT_EQ(value, 6);
    EXPECT_EQ(variant.variantType(), 1);
    variant.attribute();
    VariantAccess::lock(variant).unlock();
}

TEST(Lock, IsAMutexFollowedByTheStorePointer)
{
    EXPECT_EQ(sizeof(KDRVariantLock), sizeof(QMutex) + sizeof(void*));
}

} // namespace
