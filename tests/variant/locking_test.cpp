// Which mutexes the variant locks and unlocks, in which order, and what is done while they are
// held.

#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "../support/mutexwatch.h"
#include "../support/variantaccess.h"
#include "kindtable.h"

namespace {

using Steps = std::vector<std::string>;
using Names = std::map<QMutex const*, std::string>;

QMutex const* mutexOf(KDRVariant const& handle)
{
    return &VariantAccess::mutex(VariantAccess::lock(handle));
}

QMutex const* mutexOf(KDRVariantPrivate& store) { return &VariantAccess::mutex(store); }

QMutex const* storeMutexOf(KDRVariant const& handle)
{
    return mutexOf(VariantAccess::store(handle));
}

int countOf(KDRVariant const& handle) { return VariantAccess::store(handle).refCount(); }

int intIn(KDRVariant const& handle)
{
    int value = -1;
    EXPECT_TRUE(handle.toInt(&value));
    return value;
}

std::vector<MutexWatch::Step> stepsOf(std::function<void()> const& operation)
{
    std::vector<MutexWatch::Step> steps;
    MutexWatch const watch([&steps](MutexWatch::Step const& step) { steps.push_back(step); });
    operation();
    return steps;
}

// The steps in words. A mutex without a name is another one.
Steps told(std::vector<MutexWatch::Step> const& steps, Names const& names)
{
    Steps words;
    for (MutexWatch::Step const& step : steps) {
        auto const name = names.find(step.mutex);
        words.push_back((step.locks ? "lock " : "unlock ") +
                        (name != names.end() ? name->second : "other"));
    }
    return words;
}

Steps toldSteps(std::function<void()> const& operation, Names const& names)
{
    return told(stepsOf(operation), names);
}

TEST(Locking, CopyConstructionLocksTheNewHandleThenTheSourceAndUnlocksInThatOrder)
{
    KDRVariant const source(5);
    std::optional<KDRVariant> copy;
    auto const steps = stepsOf([&] { copy.emplace(source); });
    // The count of the shared store changes inside.
    EXPECT_EQ(told(steps, {{mutexOf(*copy), "new"},
                           {mutexOf(source), "source"},
                           {storeMutexOf(source), "store"}}),
              (Steps{"lock new", "lock source", "lock store", "unlock store", "unlock new",
                     "unlock source"}));
}

// A store that was never shared has nobody who could be waiting for its mutex, or inside it still.
TEST(Locking, AStoreThatWasNeverSharedIsFreedWithoutItsMutex)
{
    std::optional<KDRVariant> variant(5);
    EXPECT_EQ(stepsOf([&] { variant.reset(); }).size(), 0U);
    KDRVariant const source("new");
    KDRVariant target("old");
    Names const names{
        {mutexOf(source), "source"}, {mutexOf(target), "target"}, {storeMutexOf(source), "store"}};
    EXPECT_EQ(toldSteps([&] { target = source; }, names),
              (Steps{"lock source", "lock target", "lock store", "unlock store", "unlock source",
                     "unlock target"}));
}

// The last holder of a store that was shared once waits for whoever gave it up before.
TEST(Locking, AStoreThatWasSharedOnceIsFreedUnderItsMutex)
{
    std::optional<KDRVariant> variant(5);
    std::optional<KDRVariant> sharer(*variant);
    sharer.reset();
    Names const names{{storeMutexOf(*variant), "store"}};
    EXPECT_EQ(toldSteps([&] { variant.reset(); }, names), (Steps{"lock store", "unlock store"}));
}

TEST(Locking, AssignmentLocksTheSourceThenTheTargetAndUnlocksInThatOrder)
{
    KDRVariant const source(5);
    KDRVariant target("old");
    KDRVariant const sharer(target);
    Names const names{{mutexOf(source), "source"},
                      {mutexOf(target), "target"},
                      {storeMutexOf(source), "store"},
                      {storeMutexOf(target), "old"}};
    // The count of the shared store and the one of the old store change inside.
    EXPECT_EQ(toldSteps([&] { target = source; }, names),
              (Steps{"lock source", "lock target", "lock store", "unlock store", "lock old",
                     "unlock old", "unlock source", "unlock target"}));
    EXPECT_EQ(toldSteps([&] { target = source; }, names),
              (Steps{"lock source", "lock target", "lock store", "unlock store", "lock store",
                     "unlock store", "unlock source", "unlock target"}));
}

TEST(Locking, SelfAssignmentLocksTheHandleOnce)
{
    KDRVariant variant(5);
    KDRVariant const& alias = variant;
    EXPECT_EQ(toldSteps([&] { variant = alias; },
                        {{mutexOf(variant), "handle"}, {storeMutexOf(variant), "store"}}),
              (Steps{"lock handle", "lock store", "unlock store", "lock store", "unlock store",
                     "unlock handle"}));
    EXPECT_EQ(countOf(variant), 1);
}

TEST(Locking, DestructionLocksTheStoreAlone)
{
    KDRVariant const sharer(5);
    std::optional<KDRVariant> variant(sharer);
    Names const names{{mutexOf(*variant), "handle"}, {storeMutexOf(sharer), "store"}};
    EXPECT_EQ(toldSteps([&] { variant.reset(); }, names), (Steps{"lock store", "unlock store"}));
}

// Another thread may get in wherever a mutex is about to be locked, and has to wait wherever one is
// about to be unlocked. The listener takes its place.
class Between : public testing::Test
{
protected:
    // Runs the operation and, just before it locks the mutex for the first time, what gets in.
    static void getInBeforeLocking(QMutex const* mutex, std::function<void()> const& intrusion,
                                   std::function<void()> const& operation)
    {
        bool gotIn = false;
        MutexWatch const watch([&](MutexWatch::Step const& step) {
            if (!gotIn && step.locks && step.mutex == mutex) {
                gotIn = true;
                intrusion();
            }
        });
        operation();
        EXPECT_TRUE(gotIn);
    }

    KDRVariant const before{1};
    KDRVariant const after{2};
    KDRVariant source{before};
};

TEST_F(Between, ACopyHoldsWhatTheSourceHoldsOnceItIsLocked)
{
    std::optional<KDRVariant> copy;
    getInBeforeLocking(
        mutexOf(source), [&] { source = after; }, [&] { copy.emplace(source); });
    EXPECT_EQ(intIn(*copy), 2);
    EXPECT_EQ(countOf(before), 1);
    EXPECT_EQ(countOf(after), 3);
}

TEST_F(Between, ATargetGetsWhatTheSourceHoldsOnceItIsLocked)
{
    KDRVariant target;
    getInBeforeLocking(
        mutexOf(source), [&] { source = after; }, [&] { target = source; });
    EXPECT_EQ(intIn(target), 2);
    EXPECT_EQ(countOf(before), 1);
    EXPECT_EQ(countOf(after), 3);
}

TEST_F(Between, ATargetGivesUpWhatItHoldsOnceItIsLocked)
{
    KDRVariant const first(3);
    KDRVariant const second(4);
    KDRVariant target(first);
    getInBeforeLocking(
        mutexOf(target), [&] { target = second; }, [&] { target = source; });
    EXPECT_EQ(intIn(target), 1);
    EXPECT_EQ(countOf(first), 1);
    EXPECT_EQ(countOf(second), 1);
    EXPECT_EQ(countOf(before), 3);
}

TEST_F(Between, ACopyIsDoneBeforeEitherHandleIsUnlocked)
{
    int unlocked = 0;
    KDRVariantLock const* made = nullptr;
    {
        MutexWatch const watch([&](MutexWatch::Step const& step) {
            // The new handle's lock is the first that is locked; its mutex is its first field.
            if (!made)
                made = reinterpret_cast<KDRVariantLock const*>(step.mutex);
            bool const isHandle =
                step.mutex == mutexOf(source) || static_cast<void const*>(step.mutex) == made;
            if (step.locks || !isHandle)
                return;
            ++unlocked;
            EXPECT_EQ(&VariantAccess::store(*made), &VariantAccess::store(source));
            EXPECT_EQ(countOf(source), 3);
        });
        KDRVariant const copy(source);
    }
    EXPECT_EQ(unlocked, 2);
}

TEST_F(Between, AnAssignmentIsDoneBeforeEitherHandleIsUnlocked)
{
    KDRVariant const old(3);
    KDRVariant target(old);
    int unlocked = 0;
    {
        MutexWatch const watch([&](MutexWatch::Step const& step) {
            if (step.locks || (step.mutex != mutexOf(source) && step.mutex != mutexOf(target)))
                return;
            ++unlocked;
            EXPECT_EQ(&VariantAccess::store(target), &VariantAccess::store(source));
            EXPECT_EQ(countOf(source), 3);
            EXPECT_EQ(countOf(old), 1);
        });
        target = source;
    }
    EXPECT_EQ(unlocked, 2);
}

// --- what takes no lock
// ---------------------------------------------------------------------------

// The operation's steps on the handle's mutex and on its store's. Payloads may have mutexes of
// their own, which do not count.
Steps ownSteps(KDRVariant const& handle, std::function<void()> const& operation)
{
    Names const names{{mutexOf(handle), "handle"}, {storeMutexOf(handle), "store"}};
    std::vector<MutexWatch::Step> own;
    for (MutexWatch::Step const& step : stepsOf(operation)) {
        if (names.count(step.mutex) != 0)
            own.push_back(step);
    }
    return told(own, names);
}

TEST(Unlocked, ReadersOfEveryKind)
{
    for (KindEntry const& held : kindTable) {
        KDRVariant variant = variantOf(held, 7);
        KDRVariantPrivate& store = VariantAccess::store(variant);
        for (KindEntry const& row : kindTable) {
            SCOPED_TRACE(row.name + (" on kind " + std::to_string(held.kind)));
            EXPECT_EQ(ownSteps(variant, [&] { row.read(variant); }), Steps());
            EXPECT_EQ(ownSteps(variant, [&] { row.readStore(store); }), Steps());
        }
    }
}

TEST(Unlocked, ReadersOfPlainNumbers)
{
    KDRVariant const variant(5);
    KDRVariantPrivate const& store = VariantAccess::store(variant);
    auto const read = [](auto const& holder) {
        int asInt = 0;
        long asLong = 0;
        long long asLongLong = 0;
        float asFloat = 0.0F;
        double asDouble = 0.0;
        EXPECT_TRUE(holder.toInt(&asInt) && holder.toLong(&asLong) &&
                    holder.toLongLong(&asLongLong) && holder.toFloat(&asFloat) &&
                    holder.toDouble(&asDouble));
    };
    EXPECT_EQ(stepsOf([&] { read(variant); }).size(), 0U);
    EXPECT_EQ(stepsOf([&] { read(store); }).size(), 0U);
}

TEST(Unlocked, KindCountDescriptionPointerReadersAndClones)
{
    KDRVariant variant("text");
    KDRVariant const sharer(variant);
    KDRVariantPrivate& store = VariantAccess::store(variant);
    KDRString* text = nullptr;
    KDRNumberArray* numbers = nullptr;
    KDRMatrix3* matrix = nullptr;
    EXPECT_EQ(stepsOf([&] { variant.variantType(); }).size(), 0U);
    EXPECT_EQ(stepsOf([&] { store.variantType(); }).size(), 0U);
    EXPECT_EQ(stepsOf([&] { store.refCount(); }).size(), 0U);
    EXPECT_EQ(stepsOf([&] { variant.toStringPtr(text); }).size(), 0U);
    EXPECT_EQ(stepsOf([&] { store.toStringPtr(text); }).size(), 0U);
    EXPECT_EQ(stepsOf([&] { variant.toNumberArrayPtr(numbers); }).size(), 0U);
    EXPECT_EQ(stepsOf([&] { variant.toMatrix3Ptr(matrix); }).size(), 0U);
    EXPECT_EQ(ownSteps(variant, [&] { variant.clone(); }), Steps());
    EXPECT_EQ(ownSteps(variant, [&] { variant.attribute(); }), Steps());
}

// Every writer of the handle, once on the handle.
std::vector<std::pair<std::string, std::function<void(KDRVariant&)>>> writers()
{
    std::vector<std::pair<std::string, std::function<void(KDRVariant&)>>> all{
        {"Int", [](KDRVariant& v) { v.fromInt(1); }},
        {"Long", [](KDRVariant& v) { v.fromLong(1L); }},
        {"LongLong", [](KDRVariant& v) { v.fromLongLong(1LL); }},
        {"Float", [](KDRVariant& v) { v.fromFloat(1.0F); }},
        {"Double", [](KDRVariant& v) { v.fromDouble(1.0); }}};
    for (KindEntry const& row : kindTable)
        all.emplace_back(row.name, [&row](KDRVariant& v) { row.write(v, 7); });
    return all;
}

TEST(Unlocked, WritersOnAnUnsharedHandle)
{
    for (auto const& [name, write] : writers()) {
        SCOPED_TRACE(name);
        KDRVariant variant("old");
        EXPECT_EQ(ownSteps(variant, [&variant, &write = write] { write(variant); }), Steps());
    }
}

TEST(Unlocked, WritersOnASharedHandleButForTheCountThatTheyGiveUp)
{
    for (auto const& [name, write] : writers()) {
        SCOPED_TRACE(name);
        KDRVariant variant("old");
        KDRVariant const sharer(variant);
        EXPECT_EQ(ownSteps(variant, [&variant, &write = write] { write(variant); }),
                  (Steps{"lock store", "unlock store"}));
    }
}

TEST(Unlocked, StoresThatAreMadeCopiedAssignedWrittenOrCleared)
{
    KDRVariantPrivate source(5);
    KDRVariantPrivate target;
    EXPECT_EQ(stepsOf([&] { KDRVariantPrivate const copy(source); }).size(), 0U);
    EXPECT_EQ(stepsOf([&] { target = source; }).size(), 0U);
    EXPECT_EQ(stepsOf([&] { target.fromString(KDRString("text")); }).size(), 0U);
    EXPECT_EQ(stepsOf([&] { target.clear(); }).size(), 0U);
}

// --- the store's own mutex
// ------------------------------------------------------------------------

struct StoreState
{
    bool locks;
    int count;
    bool disposed;
    bool hasPayload;

    friend bool operator==(StoreState const& a, StoreState const& b)
    {
        return a.locks == b.locks && a.count == b.count && a.disposed == b.disposed &&
               a.hasPayload == b.hasPayload;
    }
    friend std::ostream& operator<<(std::ostream& out, StoreState const& state)
    {
        return out << (state.locks ? "lock" : "unlock") << ", count " << state.count
                   << (state.disposed ? ", disposed" : "")
                   << (state.hasPayload ? "" : ", no payload");
    }
};

// The store as it is before each step on its mutex.
std::vector<StoreState> statesOf(KDRVariantPrivate& store, std::function<void()> const& operation)
{
    std::vector<StoreState> states;
    MutexWatch const watch([&](MutexWatch::Step const& step) {
        if (step.mutex == mutexOf(store)) {
            states.push_back({step.locks, store.refCount(), VariantAccess::disposed(store),
                              VariantAccess::payload(store) != nullptr});
        }
    });
    operation();
    return states;
}

TEST(StoreLocking, CountsChangeUnderTheMutex)
{
    KDRVariantPrivate store(5);
    EXPECT_EQ(statesOf(store, [&] { store.incRef(); }),
              (std::vector<StoreState>{{true, 1, false, true}, {false, 2, false, true}}));
    EXPECT_EQ(statesOf(store, [&] { store.decRef(); }),
              (std::vector<StoreState>{{true, 2, false, true}, {false, 1, false, true}}));
}

TEST(StoreLocking, AtZeroTheStoreIsDisposedUnderTheMutexAndItsPayloadFreedAfterwards)
{
    auto* const store = new KDRVariantPrivate(5);
    EXPECT_EQ(statesOf(*store, [&] { store->decRef(); }),
              (std::vector<StoreState>{{true, 1, false, true}, {false, 0, true, true}}));
}

TEST(StoreLocking, LockAndUnlockAreTheMutexsOwnUnlessTheStoreIsDisposed)
{
    KDRVariantPrivate store(5);
    EXPECT_EQ(statesOf(store,
                       [&] {
                           store.lock();
                           store.unlock();
                       }),
              (std::vector<StoreState>{{true, 1, false, true}, {false, 1, false, true}}));
    VariantAccess::disposed(store) = true;
    EXPECT_EQ(statesOf(store,
                       [&] {
                           store.lock();
                           store.unlock();
                       }),
              (std::vector<StoreState>{}));
}

} // namespace
