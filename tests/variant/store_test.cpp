#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <memory>
#include <new>

#include "../support/allocations.h"
#include "../support/blocking.h"
#include "../support/variantaccess.h"

namespace {

KDRNumber rangedNumber()
{
    KDRNumber number;
    number.fromInt(5);
    number.setMaxValue(10.0);
    number.setMinValue(1.0);
    return number;
}

TEST(Store, DefaultIsEmptyWithACountOfOne)
{
    KDRVariantPrivate store;
    EXPECT_EQ(store.variantType(), 2000);
    EXPECT_EQ(store.refCount(), 1);
    EXPECT_EQ(VariantAccess::payload(store), nullptr);
    EXPECT_FALSE(VariantAccess::disposed(store));
}

TEST(Store, EveryNumericFormMakesKindOne)
{
    for (KDRVariantPrivate const& store :
         {KDRVariantPrivate(-5), KDRVariantPrivate(-5L), KDRVariantPrivate(-5LL),
          KDRVariantPrivate(-5.0F), KDRVariantPrivate(-5.0), KDRVariantPrivate(KDRNumber(-5))}) {
        double value = 0.0;
        EXPECT_EQ(store.variantType(), 1);
        EXPECT_EQ(store.refCount(), 1);
        EXPECT_TRUE(store.toDouble(&value));
        EXPECT_EQ(value, -5.0);
    }
}

TEST(Store, NumericFormsKeepTheNumbersKind)
{
    KDRNumber number;
    ASSERT_TRUE(KDRVariantPrivate(5).toNumber(&number));
    EXPECT_EQ(number.numType(), 0);
    ASSERT_TRUE(KDRVariantPrivate(5.0F).toNumber(&number));
    EXPECT_EQ(number.numType(), 1);
}

TEST(Store, WritersSetTheKindAndReadersConvertWithinIt)
{
    KDRVariantPrivate store;
    double asDouble = 0.0;
    float asFloat = 0.0F;
    int asInt = 0;
    long asLong = 0;
    long long asLongLong = 0;
    bool flag = true;

    store.fromInt(5);
    EXPECT_TRUE(store.toDouble(&asDouble));
    EXPECT_EQ(asDouble, 5.0);
    EXPECT_FALSE(store.toBool(&flag));
    store.fromDouble(2.5);
    EXPECT_TRUE(store.toInt(&asInt));
    EXPECT_EQ(asInt, 2);
    store.fromFloat(-2.5F);
    EXPECT_TRUE(store.toLong(&asLong));
    EXPECT_EQ(asLong, -2);
    store.fromLong(7L);
    EXPECT_TRUE(store.toFloat(&asFloat));
    EXPECT_EQ(asFloat, 7.0F);
    store.fromLongLong(5000000000LL);
    EXPECT_TRUE(store.toLongLong(&asLongLong));
    EXPECT_EQ(asLongLong, 5000000000LL);
    EXPECT_TRUE(store.toInt(&asInt));
    EXPECT_EQ(asInt, 705032704);
    EXPECT_EQ(store.variantType(), 1);
}

TEST(Store, AFlagIsKindZeroWhateverItsValue)
{
    KDRVariantPrivate store(true);
    EXPECT_EQ(store.variantType(), 0);
    bool flag = false;
    EXPECT_TRUE(store.toBool(&flag));
    EXPECT_TRUE(flag);
    store.fromBool(false);
    EXPECT_EQ(store.variantType(), 0);
    EXPECT_TRUE(store.toBool(&flag));
    EXPECT_FALSE(flag);
}

TEST(Store, ClearKeepsTheKindAndEmptiesEveryReader)
{
    KDRVariantPrivate store(KDRString("text"));
    store.clear();
    EXPECT_EQ(store.variantType(), 2);
    KDRString text("old");
    EXPECT_FALSE(store.toString(&text));
    EXPECT_EQ(text.length(), 3);
    store.clear();
    EXPECT_EQ(store.variantType(), 2);
}

TEST(Store, APointerReaderAfterClearAnswersTrueAndHandsOutNull)
{
    KDRVariantPrivate store(KDRString("text"));
    store.clear();
    KDRString other;
    KDRString* pointer = &other;
    EXPECT_TRUE(store.toStringPtr(pointer));
    EXPECT_EQ(pointer, nullptr);
}

TEST(Store, ReadersRefuseANullOutput)
{
    KDRVariantPrivate const number(1);
    EXPECT_FALSE(number.toInt(nullptr));
    EXPECT_FALSE(number.toNumber(nullptr));
    EXPECT_FALSE(KDRVariantPrivate(true).toBool(nullptr));
}

// Before, between and behind the groups of kinds, next to their first and last ones.
constexpr int unknownKinds[] = {-1,   13,   77,   499,  510,  999, 1011,
                                1499, 1504, 1799, 1803, 1999, 2001};

TEST(Store, APayloadOfAnUnknownKindIsNotFreed)
{
    auto* const payload = new KDRNumber(1);
    for (int const kind : unknownKinds) {
        KDRVariantPrivate store;
        VariantAccess::kind(store) = kind;
        VariantAccess::payload(store) = payload;
        store.clear();
        EXPECT_EQ(VariantAccess::payload(store), nullptr);
        EXPECT_EQ(store.variantType(), kind);
    }
    EXPECT_EQ(payload->toInt(), 1);
    delete payload;
}

TEST(Store, CopiesOfAnUnknownKindKeepTheKindWithoutAPayload)
{
    KDRNumber payload(1);
    for (int const kind : unknownKinds) {
        KDRVariantPrivate store;
        VariantAccess::kind(store) = kind;
        VariantAccess::payload(store) = &payload;
        KDRVariantPrivate copy(store);
        KDRVariantPrivate assigned(5);
        assigned = store;
        for (KDRVariantPrivate* const other : {&copy, &assigned}) {
            EXPECT_EQ(other->variantType(), kind);
            EXPECT_EQ(VariantAccess::payload(*other), nullptr);
        }
    }
}

TEST(Store, CopyIsDeepWithACountOfItsOwn)
{
    KDRVariantPrivate original(KDRPoint(1.0, 2.0));
    original.incRef();
    KDRVariantPrivate copy(original);
    EXPECT_EQ(original.refCount(), 2);
    EXPECT_EQ(copy.refCount(), 1);
    KDRPoint* inside = nullptr;
    ASSERT_TRUE(copy.toPointPtr(inside));
    inside->setX(9.0);
    KDRPoint point;
    ASSERT_TRUE(original.toPoint(&point));
    EXPECT_EQ(point.x(), 1.0);
    original.decRef();
}

TEST(Store, AssignmentIsDeepAndLeavesTheCountAlone)
{
    KDRVariantPrivate const source(KDRString("text"));
    KDRVariantPrivate target(5);
    target.incRef();
    KDRVariantPrivate& result = (target = source);
    EXPECT_EQ(&result, &target);
    EXPECT_EQ(target.refCount(), 2);
    EXPECT_EQ(source.refCount(), 1);
    EXPECT_EQ(target.variantType(), 2);
    EXPECT_NE(VariantAccess::payload(target),
              VariantAccess::payload(const_cast<KDRVariantPrivate&>(source)));
    target.decRef();
}

TEST(Store, CopyAndAssignmentCarryANumbersRangeButConstructionAndWritersDoNot)
{
    KDRNumber const number = rangedNumber();
    KDRVariantPrivate constructed(number);
    KDRNumber out;
    ASSERT_TRUE(constructed.toNumber(&out));
    EXPECT_EQ(out.maxValue(), 0.0);
    constructed.fromNumber(number);
    ASSERT_TRUE(constructed.toNumber(&out));
    EXPECT_EQ(out.maxValue(), 0.0);

    KDRNumber* inside = nullptr;
    ASSERT_TRUE(constructed.toNumberPtr(inside));
    *inside = number;
    KDRVariantPrivate const copy(constructed);
    KDRVariantPrivate assigned;
    assigned = constructed;
    for (KDRVariantPrivate const* const store :
         {&copy, const_cast<KDRVariantPrivate const*>(&assigned)}) {
        ASSERT_TRUE(store->toNumber(&out));
        EXPECT_EQ(out.toInt(), 5);
        EXPECT_EQ(out.maxValue(), 10.0);
    }
}

TEST(Store, CopiesOfANullPayloadKeepTheKindWithoutAPayload)
{
    KDRVariantPrivate cleared(5);
    cleared.clear();
    KDRVariantPrivate copy(cleared);
    KDRVariantPrivate assigned(KDRString("text"));
    assigned = cleared;
    for (KDRVariantPrivate* const store : {&copy, &assigned}) {
        EXPECT_EQ(store->variantType(), 1);
        EXPECT_EQ(VariantAccess::payload(*store), nullptr);
    }
}

TEST(Store, AssignmentToItselfEndsWithoutAPayload)
{
    KDRVariantPrivate store(5);
    KDRVariantPrivate const& alias = store;
    store = alias;
    EXPECT_EQ(store.variantType(), 1);
    int out = 42;
    EXPECT_FALSE(store.toInt(&out));
    EXPECT_EQ(out, 42);
}

TEST(Store, ANewKindReplacesTheOldPayload)
{
    long const before = allocations::live();
    {
        KDRVariantPrivate store(KDRString("text"));
        store.fromPoint(KDRPoint(1.0, 2.0));
        store.fromBool(true);
        store.fromInt(3);
        EXPECT_EQ(store.variantType(), 1);
    }
    EXPECT_EQ(allocations::live(), before);
}

TEST(Store, AWriterMayBeGivenItsOwnPayload)
{
    KDRVariantPrivate store(KDRString("text"));
    KDRString* text = nullptr;
    ASSERT_TRUE(store.toStringPtr(text));
    store.fromString(*text);
    KDRString out;
    ASSERT_TRUE(store.toString(&out));
    EXPECT_TRUE(out == KDRString("text"));
}

TEST(Store, TheLastCountFreesTheStoreAndItsPayload)
{
    long const before = allocations::live();
    auto* const store = new KDRVariantPrivate(KDRImage());
    store->incRef();
    EXPECT_EQ(store->refCount(), 2);
    store->decRef();
    EXPECT_EQ(store->refCount(), 1);
    EXPECT_FALSE(VariantAccess::disposed(*store));
    EXPECT_GT(allocations::live(), before);
    store->decRef();
    EXPECT_EQ(allocations::live(), before);
}

TEST(Store, LockKeepsOtherThreadsFromTheCountUntilUnlock)
{
    KDRVariantPrivate store(5);
    store.lock();
    EXPECT_TRUE(waitsFor([&store] { store.incRef(); }, [&store] { store.unlock(); }));
    EXPECT_EQ(store.refCount(), 2);
    store.lock();
    EXPECT_TRUE(waitsFor([&store] { store.decRef(); }, [&store] { store.unlock(); }));
    EXPECT_EQ(store.refCount(), 1);
}

TEST(Store, LockDoesNothingOnADisposedStore)
{
    KDRVariantPrivate store(5);
    VariantAccess::disposed(store) = true;
    store.lock();
    store.lock(); // would wait for ever if the first had locked
    store.incRef();
    EXPECT_EQ(store.refCount(), 2);
}

TEST(Store, UnlockDoesNothingOnADisposedStore)
{
    KDRVariantPrivate store(5);
    store.lock();
    VariantAccess::disposed(store) = true;
    store.unlock();
    VariantAccess::disposed(store) = false;
    EXPECT_TRUE(waitsFor([&store] { store.incRef(); }, [&store] { store.unlock(); }));
}

TEST(Store, AssignmentThatFailsLeavesTheKindOfTheSourceWithoutAPayload)
{
    KDRVariantPrivate const source(KDRPoint(1.0, 2.0));
    KDRVariantPrivate target(5);
    {
        allocations::FailAfter const limit(1);
        EXPECT_THROW(target = source, std::bad_alloc);
    }
    EXPECT_EQ(target.variantType(), 3);
    EXPECT_EQ(VariantAccess::payload(target), nullptr);
}

TEST(Store, AssignmentCopiesTheDisposedFlag)
{
    KDRVariantPrivate source(5);
    VariantAccess::disposed(source) = true;
    KDRVariantPrivate target;
    target = source;
    EXPECT_TRUE(VariantAccess::disposed(target));
    EXPECT_FALSE(VariantAccess::disposed(*std::make_unique<KDRVariantPrivate>(source)));
}

TEST(Store, ADualQuaternionTravelsWithItsOneFieldThoughItsAssignmentCopiesNothing)
{
    // No object of this version has anything in the field; only compared, never followed.
    int mark = 0;
    KDRDualQuaternion marked;
    KDRInternal::pointer(marked) = &mark;
    auto const fieldIn = [](KDRVariantPrivate const& store) {
        KDRDualQuaternion out;
        EXPECT_TRUE(store.toDualQuaternion(&out));
        return KDRInternal::pointer(out);
    };
    KDRVariantPrivate store;
    store.fromDualQuaternion(marked);
    EXPECT_EQ(fieldIn(store), &mark);
    EXPECT_EQ(fieldIn(KDRVariantPrivate(store)), &mark);
    KDRVariantPrivate assigned;
    assigned = store;
    EXPECT_EQ(fieldIn(assigned), &mark);
    KDRVariant variant;
    variant.fromDualQuaternion(marked);
    EXPECT_EQ(fieldIn(VariantAccess::store(variant.clone())), &mark);
}

TEST(Store, FieldsLieInTheirOrder)
{
    // Count, kind, payload, mutex, flag.
    KDRVariantPrivate store(true);
    auto const* const begin = reinterpret_cast<char const*>(&store);
    auto const* const kind = reinterpret_cast<char const*>(&VariantAccess::kind(store));
    auto const* const payload = reinterpret_cast<char const*>(&VariantAccess::payload(store));
    EXPECT_EQ(kind - begin, 4);
    EXPECT_EQ(payload - begin, 8);
    auto const* const disposed = reinterpret_cast<char const*>(&VariantAccess::disposed(store));
    EXPECT_GE(disposed - payload, static_cast<int>(sizeof(void*) + sizeof(QMutex)));
    EXPECT_EQ(sizeof(KDRVariantPrivate), 4 + 4 + sizeof(void*) + sizeof(QMutex) + sizeof(void*));
}

} // namespace
