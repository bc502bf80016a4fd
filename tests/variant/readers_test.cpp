// Every kind against every reader and pointer reader: the answer, and the output when it is no.

#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "../support/variantaccess.h"

namespace {

KDRPoint somePoint() { return {1.5, 2.5}; }

KDRImage someImage() { return {nullptr, 3, 2, 1, 0, KDRImage::DataTypeUInt8}; }

KDRNumberArray someNumbers()
{
    KDRNumberArray numbers;
    numbers.push_back(KDRNumber(7));
    return numbers;
}

KDRBuffer someBytes() { return {"ab\0", 3}; }

KDRStringArray someStrings()
{
    KDRStringArray strings;
    strings.push_back(KDRString("text"));
    return strings;
}

KDRBufferArray someBuffers()
{
    KDRBufferArray buffers;
    buffers.push_back(someBytes());
    return buffers;
}

KDRPointArray somePoints()
{
    KDRPointArray points;
    points.push_back(somePoint());
    return points;
}

KDRContour someContour()
{
    KDRPointArray points = somePoints();
    KDRContour contour;
    contour.FromPointArray(points);
    return contour;
}

KDRImageArray someImages()
{
    KDRImageArray images;
    images.push_back(someImage());
    return images;
}

KDRContourArray someContours()
{
    KDRContourArray contours;
    contours.push_back(someContour());
    return contours;
}

struct Sample
{
    KDRVariantKind kind;
    KDRVariant value;
};

std::vector<Sample> samples()
{
    return {{0, KDRVariant(true)},
            {1, KDRVariant(7)},
            {2, KDRVariant("text")},
            {3, KDRVariant(somePoint())},
            {4, KDRVariant(someImage())},
            {7, KDRVariant(someContour())},
            {11, KDRVariant(someBytes())},
            {12, KDRVariant(KDRChar('c'))},
            {1001, KDRVariant(someNumbers())},
            {1002, KDRVariant(someStrings())},
            {1003, KDRVariant(somePoints())},
            {1004, KDRVariant(someImages())},
            {1008, KDRVariant(someContours())},
            {1010, KDRVariant(someBuffers())},
            {2000, KDRVariant()}};
}

// A reader tried on the store and on the handle: what both answered, and whether the output holds
// the sample's value or else is untouched.
struct Outcome
{
    bool storeAnswer;
    bool handleAnswer;
    bool outputRight;
};

struct Reader
{
    std::string name;
    KDRVariantKind reads;
    std::function<Outcome(KDRVariant const&)> run;
};

template <class Output>
Reader valueReader(char const* name, KDRVariantKind reads,
                   bool (KDRVariantPrivate::*fromStore)(Output*) const,
                   bool (KDRVariant::*fromHandle)(Output*) const, Output untouched,
                   std::function<bool(Output const&)> isSample,
                   std::function<bool(Output const&)> isUntouched)
{
    return {name, reads, [=](KDRVariant const& variant) {
                Output first = untouched;
                Output second = untouched;
                bool const storeAnswer = (KDRInternal::store(variant).*fromStore)(&first);
                bool const handleAnswer = (variant.*fromHandle)(&second);
                return Outcome{storeAnswer, handleAnswer,
                               (storeAnswer ? isSample(first) : isUntouched(first)) &&
                                   (handleAnswer ? isSample(second) : isUntouched(second))};
            }};
}

template <class Scalar>
Reader scalarReader(char const* name, KDRVariantKind reads,
                    bool (KDRVariantPrivate::*fromStore)(Scalar*) const,
                    bool (KDRVariant::*fromHandle)(Scalar*) const, Scalar sample, Scalar untouched)
{
    return valueReader<Scalar>(
        name, reads, fromStore, fromHandle, untouched,
        [sample](Scalar const& value) { return value == sample; },
        [untouched](Scalar const& value) { return value == untouched; });
}

std::vector<Reader> readers()
{
    auto const lengthIs = [](int length) {
        return [length](auto const& list) { return list.length() == length; };
    };
    return {
        scalarReader<bool>("toBool", 0, &KDRVariantPrivate::toBool, &KDRVariant::toBool, true,
                           false),
        scalarReader<int>("toInt", 1, &KDRVariantPrivate::toInt, &KDRVariant::toInt, 7, 99),
        scalarReader<long>("toLong", 1, &KDRVariantPrivate::toLong, &KDRVariant::toLong, 7L, 99L),
        scalarReader<long long>("toLongLong", 1, &KDRVariantPrivate::toLongLong,
                                &KDRVariant::toLongLong, 7LL, 99LL),
        scalarReader<float>("toFloat", 1, &KDRVariantPrivate::toFloat, &KDRVariant::toFloat, 7.0F,
                            99.0F),
        scalarReader<double>("toDouble", 1, &KDRVariantPrivate::toDouble, &KDRVariant::toDouble,
                             7.0, 99.0),
        valueReader<KDRNumber>(
            "toNumber", 1, &KDRVariantPrivate::toNumber, &KDRVariant::toNumber, KDRNumber(99),
            [](KDRNumber const& number) { return number.toInt() == 7; },
            [](KDRNumber const& number) { return number.toInt() == 99; }),
        valueReader<KDRString>(
            "toString", 2, &KDRVariantPrivate::toString, &KDRVariant::toString, KDRString("old"),
            [](KDRString const& text) { return text == KDRString("text"); },
            [](KDRString const& text) { return text == KDRString("old"); }),
        valueReader<KDRPoint>(
            "toPoint", 3, &KDRVariantPrivate::toPoint, &KDRVariant::toPoint, KDRPoint(9.0, 9.0),
            [](KDRPoint const& point) { return point.x() == 1.5 && point.y() == 2.5; },
            [](KDRPoint const& point) { return point.x() == 9.0 && point.y() == 9.0; }),
        valueReader<KDRImage>(
            "toImage", 4, &KDRVariantPrivate::toImage, &KDRVariant::toImage, KDRImage(),
            [](KDRImage const& image) { return image.width() == 3; },
            [](KDRImage const& image) { return image.width() == 0; }),
        valueReader<KDRContour>("toContour", 7, &KDRVariantPrivate::toContour,
                                &KDRVariant::toContour, KDRContour(), lengthIs(1), lengthIs(0)),
        valueReader<KDRBuffer>(
            "toBuffer", 11, &KDRVariantPrivate::toBuffer, &KDRVariant::toBuffer, KDRBuffer("old"),
            [](KDRBuffer const& bytes) { return bytes.at(0) == 'a' && bytes.at(2) == 0; },
            [](KDRBuffer const& bytes) { return bytes.at(0) == 'o'; }),
        valueReader<KDRChar>(
            "toChar", 12, &KDRVariantPrivate::toChar, &KDRVariant::toChar, KDRChar('z'),
            [](KDRChar const& character) { return character.unicode() == 'c'; },
            [](KDRChar const& character) { return character.unicode() == 'z'; }),
        valueReader<KDRNumberArray>("toNumberArray", 1001, &KDRVariantPrivate::toNumberArray,
                                    &KDRVariant::toNumberArray, KDRNumberArray(), lengthIs(1),
                                    lengthIs(0)),
        valueReader<KDRStringArray>("toStringArray", 1002, &KDRVariantPrivate::toStringArray,
                                    &KDRVariant::toStringArray, KDRStringArray(), lengthIs(1),
                                    lengthIs(0)),
        valueReader<KDRPointArray>("toPointArray", 1003, &KDRVariantPrivate::toPointArray,
                                   &KDRVariant::toPointArray, KDRPointArray(), lengthIs(1),
                                   lengthIs(0)),
        valueReader<KDRImageArray>("toImageArray", 1004, &KDRVariantPrivate::toImageArray,
                                   &KDRVariant::toImageArray, KDRImageArray(), lengthIs(1),
                                   lengthIs(0)),
        valueReader<KDRContourArray>("toContourArray", 1008, &KDRVariantPrivate::toContourArray,
                                     &KDRVariant::toContourArray, KDRContourArray(), lengthIs(1),
                                     lengthIs(0)),
        valueReader<KDRBufferArray>("toBufferArray", 1010, &KDRVariantPrivate::toBufferArray,
                                    &KDRVariant::toBufferArray, KDRBufferArray(), lengthIs(1),
                                    lengthIs(0)),
    };
}

// A pointer reader's output is right when it is the payload's own address on a match, the same from
// the store and the handle, or else what it was before.
template <class Output>
Reader pointerReader(char const* name, KDRVariantKind reads,
                     bool (KDRVariantPrivate::*fromStore)(Output*&),
                     bool (KDRVariant::*fromHandle)(Output*&))
{
    return {name, reads, [=](KDRVariant const& sample) {
                KDRVariant variant(sample);
                auto* const before = reinterpret_cast<Output*>(&variant);
                Output* first = before;
                Output* second = before;
                KDRVariantPrivate& store = KDRInternal::store(variant);
                bool const storeAnswer = (store.*fromStore)(first);
                bool const handleAnswer = (variant.*fromHandle)(second);
                void const* const payload = KDRInternal::payload(store);
                return Outcome{storeAnswer, handleAnswer,
                               static_cast<void*>(first) == (storeAnswer ? payload : before) &&
                                   static_cast<void*>(second) == (handleAnswer ? payload : before)};
            }};
}

std::vector<Reader> pointerReaders()
{
    return {
        pointerReader("toNumberPtr", 1, &KDRVariantPrivate::toNumberPtr, &KDRVariant::toNumberPtr),
        pointerReader("toStringPtr", 2, &KDRVariantPrivate::toStringPtr, &KDRVariant::toStringPtr),
        pointerReader("toPointPtr", 3, &KDRVariantPrivate::toPointPtr, &KDRVariant::toPointPtr),
        pointerReader("toImagePtr", 4, &KDRVariantPrivate::toImagePtr, &KDRVariant::toImagePtr),
        pointerReader("toContourPtr", 7, &KDRVariantPrivate::toContourPtr,
                      &KDRVariant::toContourPtr),
        pointerReader("toBufferPtr", 11, &KDRVariantPrivate::toBufferPtr, &KDRVariant::toBufferPtr),
        pointerReader("toCharPtr", 12, &KDRVariantPrivate::toCharPtr, &KDRVariant::toCharPtr),
        // The one reader that tests another kind: the number's, not the number array's.
        pointerReader("toNumberArrayPtr", 1, &KDRVariantPrivate::toNumberArrayPtr,
                      &KDRVariant::toNumberArrayPtr),
        pointerReader("toStringArrayPtr", 1002, &KDRVariantPrivate::toStringArrayPtr,
                      &KDRVariant::toStringArrayPtr),
        pointerReader("toPointArrayPtr", 1003, &KDRVariantPrivate::toPointArrayPtr,
                      &KDRVariant::toPointArrayPtr),
        pointerReader("toImageArrayPtr", 1004, &KDRVariantPrivate::toImageArrayPtr,
                      &KDRVariant::toImageArrayPtr),
        pointerReader("toContourArrayPtr", 1008, &KDRVariantPrivate::toContourArrayPtr,
                      &KDRVariant::toContourArrayPtr),
        pointerReader("toBufferArrayPtr", 1010, &KDRVariantPrivate::toBufferArrayPtr,
                      &KDRVariant::toBufferArrayPtr),
    };
}

void expectAnswers(std::vector<Reader> const& tried)
{
    for (Sample const& sample : samples()) {
        ASSERT_EQ(sample.value.variantType(), sample.kind);
        for (Reader const& reader : tried) {
            SCOPED_TRACE(reader.name + " on kind " + std::to_string(sample.kind));
            Outcome const outcome = reader.run(sample.value);
            EXPECT_EQ(outcome.storeAnswer, reader.reads == sample.kind);
            EXPECT_EQ(outcome.handleAnswer, reader.reads == sample.kind);
            EXPECT_TRUE(outcome.outputRight);
        }
    }
}

TEST(Readers, AnswerForTheirOwnKindAndLeaveTheOutputUntouchedOtherwise)
{
    expectAnswers(readers());
}

TEST(Readers, PointerReadersAnswerForTheirKindAndHandOutThePayload)
{
    expectAnswers(pointerReaders());
}

TEST(Readers, TheNumberArrayPointerReaderTestsTheNumberKind)
{
    KDRVariant number(7);
    KDRVariant numbers{someNumbers()};
    KDRNumberArray* pointer = nullptr;
    EXPECT_FALSE(numbers.toNumberArrayPtr(pointer));
    EXPECT_EQ(pointer, nullptr);
    EXPECT_TRUE(number.toNumberArrayPtr(pointer));
    KDRNumber* stored = nullptr;
    EXPECT_TRUE(number.toNumberPtr(stored));
    EXPECT_EQ(static_cast<void*>(pointer), static_cast<void*>(stored));
}

TEST(Readers, AnswerNoOnEveryKindOnceThePayloadIsGone)
{
    for (Sample const& sample : samples()) {
        KDRVariantPrivate& store = KDRInternal::store(sample.value);
        store.clear();
        EXPECT_EQ(store.variantType(), sample.kind);
        for (Reader const& reader : readers()) {
            SCOPED_TRACE(reader.name + " on kind " + std::to_string(sample.kind));
            Outcome const outcome = reader.run(sample.value);
            EXPECT_FALSE(outcome.storeAnswer);
            EXPECT_FALSE(outcome.handleAnswer);
            EXPECT_TRUE(outcome.outputRight);
        }
    }
}

TEST(Readers, EveryKindSurvivesCloneAndTheStoresCopy)
{
    for (Sample const& sample : samples()) {
        KDRVariant const clone = sample.value.clone();
        KDRVariantPrivate copy(KDRInternal::store(sample.value));
        EXPECT_EQ(clone.variantType(), sample.kind);
        EXPECT_EQ(copy.variantType(), sample.kind);
        for (Reader const& reader : readers()) {
            SCOPED_TRACE(reader.name + " on kind " + std::to_string(sample.kind));
            Outcome const outcome = reader.run(clone);
            EXPECT_EQ(outcome.handleAnswer, reader.reads == sample.kind);
            EXPECT_TRUE(outcome.outputRight);
        }
        EXPECT_EQ(KDRInternal::payload(copy) != nullptr, sample.kind != 2000);
    }
}

} // namespace
