#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <new>
#include <type_traits>
#include <utility>

#include "../support/allocations.h"
#include "../support/variantaccess.h"
#include "kindtable.h"

namespace {

bool shareStore(KDRVariant const& a, KDRVariant const& b)
{
    return &VariantAccess::store(a) == &VariantAccess::store(b);
}

int intIn(KDRVariant const& variant)
{
    int value = -12345;
    EXPECT_TRUE(variant.toInt(&value));
    return value;
}

TEST(Variant, IsOnePointerWideAndHasNoMoveOfItsOwn)
{
    EXPECT_EQ(sizeof(KDRVariant), sizeof(void*));
    EXPECT_FALSE(std::is_polymorphic<KDRVariant>::value);
    // What looks like a move copies: the source keeps its value.
    KDRVariant source(5);
    KDRVariant const target(std::move(source));
    EXPECT_EQ(intIn(source), 5);
    EXPECT_TRUE(shareStore(source, target));
}

TEST(Variant, DefaultIsEmpty) { EXPECT_EQ(KDRVariant().variantType(), 2000); }

TEST(Variant, MadeFromItselfIsEmpty)
{
    alignas(KDRVariant) unsigned char place[sizeof(KDRVariant)] = {};
    auto* const variant = reinterpret_cast<KDRVariant*>(place);
    new (variant) KDRVariant(*variant);
    EXPECT_EQ(variant->variantType(), 2000);
    variant->fromInt(5);
    EXPECT_EQ(intIn(*variant), 5);
    variant->~KDRVariant();
}

TEST(Variant, EachConstructorMakesItsKind)
{
    EXPECT_EQ(KDRVariant(1).variantType(), 1);
    EXPECT_EQ(KDRVariant(1L).variantType(), 1);
    EXPECT_EQ(KDRVariant(1LL).variantType(), 1);
    EXPECT_EQ(KDRVariant(1.0F).variantType(), 1);
    EXPECT_EQ(KDRVariant(1.0).variantType(), 1);
    EXPECT_EQ(KDRVariant(true).variantType(), 0);
    EXPECT_EQ(KDRVariant("text").variantType(), 2);
    EXPECT_EQ(KDRVariant(KDRChar('c')).variantType(), 12);
    for (KindEntry const& row : kindTable) {
        bool const constructible = row.kind < KindMatrix3 || row.kind > KindDualQuaternion;
        EXPECT_EQ(row.construct != nullptr, constructible) << row.name;
        if (!row.construct)
            continue;
        KDRVariant variant = row.construct(7);
        EXPECT_EQ(variant.variantType(), row.kind);
        EXPECT_EQ(row.read(variant), row.reads == row.kind ? row.right(7) : row.untouched());
    }
}

TEST(Variant, ACStringIsTextOnly)
{
    KDRVariant const variant("text");
    KDRString text;
    KDRChar character('x');
    EXPECT_TRUE(variant.toString(&text));
    EXPECT_TRUE(text == KDRString("text"));
    EXPECT_FALSE(variant.toChar(&character));
    EXPECT_EQ(character.unicode(), 'x');
}

TEST(Variant, ABufferIsBytesAndNotText)
{
    KDRVariant const variant(KDRBuffer("text"));
    KDRString text("old");
    EXPECT_FALSE(variant.toString(&text));
    EXPECT_TRUE(text == KDRString("old"));
    KDRBuffer bytes;
    EXPECT_TRUE(variant.toBuffer(&bytes));
    EXPECT_EQ(bytes.size(), 4);
}

TEST(Variant, CopiesAndAssignmentsShareTheStore)
{
    KDRVariant const original(5);
    KDRVariant const copy(original);
    KDRVariant assigned;
    KDRVariant& result = (assigned = original);
    EXPECT_EQ(&result, &assigned);
    EXPECT_TRUE(shareStore(original, copy));
    EXPECT_TRUE(shareStore(original, assigned));
    EXPECT_EQ(VariantAccess::store(original).refCount(), 3);
    EXPECT_NE(&VariantAccess::lock(original), &VariantAccess::lock(copy));
}

TEST(Variant, PointerReadersOfSharingHandlesGiveTheSameObject)
{
    KDRVariant source("text");
    KDRVariant target;
    target = source;
    KDRString* first = nullptr;
    KDRString* second = nullptr;
    EXPECT_TRUE(source.toStringPtr(first));
    EXPECT_TRUE(target.toStringPtr(second));
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(first, second);
}

TEST(Variant, AWriterDetachesAndTheOthersKeepTheOldValue)
{
    KDRVariant const first(5);
    KDRVariant second(first);
    KDRVariant const third(second);
    second.fromDouble(1.5);
    EXPECT_EQ(intIn(first), 5);
    EXPECT_EQ(intIn(third), 5);
    double value = 0.0;
    EXPECT_TRUE(second.toDouble(&value));
    EXPECT_EQ(value, 1.5);
    EXPECT_TRUE(shareStore(first, third));
    EXPECT_FALSE(shareStore(first, second));
    EXPECT_EQ(VariantAccess::store(first).refCount(), 2);
    EXPECT_EQ(VariantAccess::store(second).refCount(), 1);
}

TEST(Variant, EveryWriterDetachesASharedHandle)
{
    KDRVariant const original("old");
    auto const writers = {
        +[](KDRVariant& v) { v.fromInt(1); },        +[](KDRVariant& v) { v.fromLong(1L); },
        +[](KDRVariant& v) { v.fromLongLong(1LL); }, +[](KDRVariant& v) { v.fromFloat(1.0F); },
        +[](KDRVariant& v) { v.fromDouble(1.0); },   +[](KDRVariant& v) { v.fromBool(true); },
    };
    auto const expectDetached = [&original](KDRVariant const& shared) {
        EXPECT_FALSE(shareStore(shared, original));
        EXPECT_EQ(VariantAccess::store(original).refCount(), 1);
        EXPECT_EQ(VariantAccess::store(shared).refCount(), 1);
        KDRString text;
        EXPECT_TRUE(original.toString(&text));
        EXPECT_TRUE(text == KDRString("old"));
    };
    for (auto const writer : writers) {
        KDRVariant shared(original);
        writer(shared);
        expectDetached(shared);
    }
    for (KindEntry const& row : kindTable) {
        SCOPED_TRACE(row.name);
        KDRVariant shared(original);
        row.write(shared, 7);
        expectDetached(shared);
    }
}

TEST(Variant, AWriterOnAnUnsharedHandleReusesTheStore)
{
    KDRVariant variant("text");
    KDRVariantPrivate const* const store = &VariantAccess::store(variant);
    variant.fromLongLong(7);
    EXPECT_EQ(&VariantAccess::store(variant), store);
    variant.fromBool(true);
    EXPECT_EQ(&VariantAccess::store(variant), store);
}

TEST(Variant, SelfAssignmentLeavesTheCountAndTheValue)
{
    KDRVariant variant(5);
    KDRVariant const copy(variant);
    KDRVariant const& alias = variant;
    variant = alias;
    EXPECT_EQ(VariantAccess::store(variant).refCount(), 2);
    EXPECT_EQ(intIn(variant), 5);
}

TEST(Variant, AssignmentBetweenSharersLeavesTheCount)
{
    KDRVariant first(5);
    KDRVariant const second(first);
    first = second;
    EXPECT_EQ(VariantAccess::store(first).refCount(), 2);
    EXPECT_EQ(intIn(first), 5);
}

TEST(Variant, CloneNeverShares)
{
    KDRVariant const original(5);
    KDRVariant copy = original.clone();
    EXPECT_FALSE(shareStore(original, copy));
    EXPECT_EQ(VariantAccess::store(original).refCount(), 1);
    EXPECT_EQ(VariantAccess::store(copy).refCount(), 1);
    EXPECT_EQ(intIn(copy), 5);
    copy.fromBool(true);
    EXPECT_EQ(original.variantType(), 1);
    EXPECT_EQ(copy.variantType(), 0);
    EXPECT_EQ(KDRVariant().clone().variantType(), 2000);
}

TEST(Variant, CloneCopiesThePayloadObject)
{
    KDRVariant original{KDRPoint(1.0, 2.0)};
    KDRVariant copy = original.clone();
    KDRPoint* inside = nullptr;
    ASSERT_TRUE(copy.toPointPtr(inside));
    inside->setX(9.0);
    KDRPoint point;
    ASSERT_TRUE(original.toPoint(&point));
    EXPECT_EQ(point.x(), 1.0);
}

TEST(Variant, CloneCarriesANumbersRangeThoughTheConstructorDoesNot)
{
    KDRNumber ranged(5);
    ranged.setMaxValue(10.0);
    KDRVariant variant(ranged);
    KDRNumber out;
    ASSERT_TRUE(variant.toNumber(&out));
    EXPECT_EQ(out.maxValue(), 0.0);
    KDRNumber* inside = nullptr;
    ASSERT_TRUE(variant.toNumberPtr(inside));
    *inside = ranged;
    ASSERT_TRUE(variant.clone().toNumber(&out));
    EXPECT_EQ(out.maxValue(), 10.0);
}

TEST(Variant, CloneOfAnImageStillSharesItsPixels)
{
    KDRImage const image(nullptr, 4, 4, 1, 0, KDRImage::DataTypeUInt8);
    KDRImage out;
    ASSERT_TRUE(KDRVariant(image).clone().toImage(&out));
    EXPECT_EQ(out.dataPtr(), image.dataPtr());
}

TEST(Variant, AWriteThroughAPointerReaderIsSeenByEverySharer)
{
    KDRVariant first{KDRPoint(1.0, 2.0)};
    KDRVariant const second(first);
    KDRPoint* inside = nullptr;
    ASSERT_TRUE(first.toPointPtr(inside));
    inside->setX(9.0);
    KDRPoint point;
    ASSERT_TRUE(second.toPoint(&point));
    EXPECT_EQ(point.x(), 9.0);
}

TEST(Variant, APointerReaderGivesTheSameAddressUntilAWriterRuns)
{
    KDRVariant variant{KDRImage()};
    KDRImage* first = nullptr;
    KDRImage* second = nullptr;
    EXPECT_TRUE(variant.toImagePtr(first));
    EXPECT_TRUE(variant.toImagePtr(second));
    EXPECT_EQ(first, second);
    variant.fromContour(KDRContour());
    second = first;
    EXPECT_FALSE(variant.toImagePtr(second));
    EXPECT_EQ(second, first);
}

TEST(Variant, AWriterMayBeGivenItsOwnPayload)
{
    for (bool const shared : {false, true}) {
        KDRVariant variant("text");
        KDRVariant const other(shared ? variant : KDRVariant());
        KDRString* text = nullptr;
        ASSERT_TRUE(variant.toStringPtr(text));
        variant.fromString(*text);
        KDRString out;
        ASSERT_TRUE(variant.toString(&out));
        EXPECT_TRUE(out == KDRString("text"));
    }
}

TEST(Variant, PayloadsAreCopiesOfWhatWasGiven)
{
    KDRPoint point(1.0, 2.0);
    KDRVariant const variant(point);
    point.setX(9.0);
    KDRPoint out;
    ASSERT_TRUE(variant.toPoint(&out));
    EXPECT_EQ(out.x(), 1.0);
    out.setX(7.0);
    KDRPoint again;
    ASSERT_TRUE(variant.toPoint(&again));
    EXPECT_EQ(again.x(), 1.0);
}

TEST(Variant, TextBytesPixelsAndListsAreSharedNotCopied)
{
    KDRString const text("some text");
    KDRBuffer const bytes("some bytes");
    KDRImage const image(nullptr, 4, 4, 1, 0, KDRImage::DataTypeUInt8);
    KDRStringArray texts;
    texts.push_back(text);
    KDRString textOut;
    KDRBuffer bytesOut;
    KDRImage imageOut;
    KDRStringArray textsOut;
    ASSERT_TRUE(KDRVariant(text).toString(&textOut));
    ASSERT_TRUE(KDRVariant(bytes).toBuffer(&bytesOut));
    ASSERT_TRUE(KDRVariant(image).toImage(&imageOut));
    ASSERT_TRUE(KDRVariant(texts).toStringArray(&textsOut));
    EXPECT_EQ(textOut.toUtf16(), text.toUtf16());
    EXPECT_EQ(bytesOut.constData(), bytes.constData());
    EXPECT_EQ(imageOut.dataPtr(), image.dataPtr());
    EXPECT_EQ(textsOut[0].toUtf16(), text.toUtf16());
}

TEST(Variant, HandlesGoneLeaveNothingBehind)
{
    long const before = allocations::live();
    {
        KDRVariant first{KDRPoint(1.0, 2.0)};
        {
            KDRVariant const second(first);
            KDRVariant third;
            third = second;
            third.fromBool(true);
            EXPECT_EQ(VariantAccess::store(first).refCount(), 2);
        }
        EXPECT_EQ(VariantAccess::store(first).refCount(), 1);
        KDRPoint point;
        EXPECT_TRUE(first.toPoint(&point));
        EXPECT_EQ(point.y(), 2.0);
    }
    EXPECT_EQ(allocations::live(), before);
}

} // namespace
