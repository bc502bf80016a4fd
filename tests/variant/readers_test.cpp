// Every kind against every reader and pointer reader: the answer, and the output when it is no.

#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kindtable.h"

namespace {

constexpr int sampleNumber = 7;
constexpr KDRVariantKind unknownKind = 77;

struct Sample
{
    KDRVariantKind kind;
    KDRVariant value;
};

// A store of a number that no kind has, with a payload that is not its own to free.
KDRVariant unknown()
{
    static char payload;
    KDRVariant variant;
    VariantAccess::kind(VariantAccess::store(variant)) = unknownKind;
    VariantAccess::payload(VariantAccess::store(variant)) = &payload;
    return variant;
}

// One variant of each kind, the empty one and one of an unknown kind.
std::vector<Sample> samples()
{
    std::vector<Sample> made;
    for (KindEntry const& row : kindTable)
        made.push_back({row.kind, variantOf(row, sampleNumber)});
    made.push_back({2000, KDRVariant()});
    made.push_back({unknownKind, unknown()});
    return made;
}

// The readers of plain numbers beside those of the table, all of kind 1.
template <class Scalar, class Holder, bool (Holder::*reader)(Scalar*) const>
Reading readScalar(Holder& holder)
{
    Scalar out = untouchedNumber;
    bool const answer = (holder.*reader)(&out);
    return {answer, static_cast<int>(out)};
}

struct ScalarReader
{
    char const* name;
    Reading (*read)(KDRVariant&);
    Reading (*readStore)(KDRVariantPrivate&);
};

constexpr ScalarReader scalarReaders[] = {
    {"toInt", &readScalar<int, KDRVariant, &KDRVariant::toInt>,
     &readScalar<int, KDRVariantPrivate, &KDRVariantPrivate::toInt>},
    {"toLong", &readScalar<long, KDRVariant, &KDRVariant::toLong>,
     &readScalar<long, KDRVariantPrivate, &KDRVariantPrivate::toLong>},
    {"toLongLong", &readScalar<long long, KDRVariant, &KDRVariant::toLongLong>,
     &readScalar<long long, KDRVariantPrivate, &KDRVariantPrivate::toLongLong>},
    {"toFloat", &readScalar<float, KDRVariant, &KDRVariant::toFloat>,
     &readScalar<float, KDRVariantPrivate, &KDRVariantPrivate::toFloat>},
    {"toDouble", &readScalar<double, KDRVariant, &KDRVariant::toDouble>,
     &readScalar<double, KDRVariantPrivate, &KDRVariantPrivate::toDouble>},
};

TEST(Readers, AnswerForTheKindTheyReadAndLeaveTheOutputUntouchedOtherwise)
{
    for (Sample const& sample : samples()) {
        KDRVariant variant(sample.value);
        ASSERT_EQ(variant.variantType(), sample.kind);
        for (KindEntry const& reader : kindTable) {
            SCOPED_TRACE("to" + std::string(reader.name) + " on kind " +
                         std::to_string(sample.kind));
            Reading const expected =
                reader.reads == sample.kind ? reader.right(sampleNumber) : reader.untouched();
            EXPECT_EQ(reader.read(variant), expected);
            EXPECT_EQ(reader.readStore(VariantAccess::store(variant)), expected);
            EXPECT_FALSE(reader.readNull(variant));
        }
        for (ScalarReader const& reader : scalarReaders) {
            SCOPED_TRACE(reader.name + (" on kind " + std::to_string(sample.kind)));
            Reading const expected =
                sample.kind == 1 ? Reading{true, sampleNumber} : Reading{false, untouchedNumber};
            EXPECT_EQ(reader.read(variant), expected);
            EXPECT_EQ(reader.readStore(VariantAccess::store(variant)), expected);
        }
    }
}

TEST(Readers, AnswerNoOnEveryKindOnceThePayloadIsGone)
{
    for (Sample const& sample : samples()) {
        KDRVariant variant(sample.value);
        KDRVariantPrivate& store = VariantAccess::store(variant);
        store.clear();
        EXPECT_EQ(store.variantType(), sample.kind);
        for (KindEntry const& reader : kindTable) {
            SCOPED_TRACE("to" + std::string(reader.name) + " on kind " +
                         std::to_string(sample.kind));
            EXPECT_EQ(reader.read(variant), reader.untouched());
            EXPECT_EQ(reader.readStore(store), reader.untouched());
        }
        for (ScalarReader const& reader : scalarReaders) {
            SCOPED_TRACE(reader.name + (" on kind " + std::to_string(sample.kind)));
            EXPECT_EQ(reader.read(variant), (Reading{false, untouchedNumber}));
            EXPECT_EQ(reader.readStore(store), (Reading{false, untouchedNumber}));
        }
    }
}

TEST(Readers, AThreeDimensionalContourIsReadFromATwoDimensionalOneOnly)
{
    KDRContour3D out;
    KDRVariant contour{PayloadOf<KDRContour>::make(sampleNumber)};
    EXPECT_TRUE(contour.to3DContour(&out));
    EXPECT_FALSE(KDRVariant(KDRContour3D()).to3DContour(&out));
}

// A pointer reader tried on the store and on the handle: what both answered, and whether the output
// is the payload's own address on a match and what it was before otherwise.
struct PointerReader
{
    char const* name;
    // The kind that it tests.
    KDRVariantKind tests;
    void (*expectAnswer)(KDRVariant& variant, bool answer);
};

// An address that no payload has.
char const nowhere = 0;

template <class Payload, class Holder>
void expectOutput(Holder& holder, bool (Holder::*reader)(Payload*&), void const* payload,
                  bool answer)
{
    // Only compared, never read through: some readers hand out another class's object.
    auto* const before = reinterpret_cast<Payload*>(const_cast<char*>(&nowhere));
    Payload* out = before;
    EXPECT_EQ((holder.*reader)(out), answer);
    EXPECT_EQ(static_cast<void const*>(out), answer ? payload : before);
    Payload* again = before;
    EXPECT_EQ((holder.*reader)(again), answer);
    EXPECT_EQ(again, out);
}

template <class Payload, bool (KDRVariantPrivate::*storeReader)(Payload*&)>
void expectFromStore(KDRVariant& variant, bool answer)
{
    KDRVariantPrivate& store = VariantAccess::store(variant);
    expectOutput(store, storeReader, VariantAccess::payload(store), answer);
}

template <class Payload, bool (KDRVariantPrivate::*storeReader)(Payload*&),
          bool (KDRVariant::*reader)(Payload*&)>
void expectFromBoth(KDRVariant& variant, bool answer)
{
    expectFromStore<Payload, storeReader>(variant, answer);
    expectOutput(variant, reader, VariantAccess::payload(VariantAccess::store(variant)), answer);
}

// The four that take a plain pointer and hand out nothing.
template <class Payload, bool (KDRVariantPrivate::*storeReader)(Payload*),
          bool (KDRVariant::*reader)(Payload*)>
void expectTestOnly(KDRVariant& variant, bool answer)
{
    EXPECT_EQ((variant.*reader)(nullptr), answer);
    EXPECT_EQ((VariantAccess::store(variant).*storeReader)(nullptr), answer);
    auto* const unreadable = reinterpret_cast<Payload*>(const_cast<char*>(&nowhere));
    EXPECT_EQ((variant.*reader)(unreadable), answer);
    EXPECT_EQ((VariantAccess::store(variant).*storeReader)(unreadable), answer);
}

// The member names of a row. The planes and their array have no pointer reader at all.
#define KDR_BOTH(tests, Payload, Name)                                                             \
    PointerReader                                                                                  \
    {                                                                                              \
        "to" #Name "Ptr", tests,                                                                   \
            &expectFromBoth<Payload, &KDRVariantPrivate::to##Name##Ptr,                            \
                            &KDRVariant::to##Name##Ptr>                                            \
    }
#define KDR_STORE_ONLY(tests, Payload, Name)                                                       \
    PointerReader                                                                                  \
    {                                                                                              \
        "to" #Name "Ptr", tests, &expectFromStore<Payload, &KDRVariantPrivate::to##Name##Ptr>      \
    }
#define KDR_TEST_ONLY(tests, Payload, Name)                                                        \
    PointerReader                                                                                  \
    {                                                                                              \
        "to" #Name "Ptr", tests,                                                                   \
            &expectTestOnly<Payload, &KDRVariantPrivate::to##Name##Ptr,                            \
                            &KDRVariant::to##Name##Ptr>                                            \
    }

constexpr PointerReader pointerReaders[] = {
    KDR_BOTH(1, KDRNumber, Number),
    KDR_BOTH(2, KDRString, String),
    KDR_BOTH(3, KDRPoint, Point),
    KDR_BOTH(4, KDRImage, Image),
    KDR_BOTH(5, KDRShape, Shape),
    KDR_STORE_ONLY(6, KDRPointCloud, PointCloud),
    KDR_BOTH(7, KDRContour, Contour),
    KDR_BOTH(8, KDRROIAlignment, ROIAlignment),
    KDR_BOTH(9, KDRPose2D, 2DPose),
    KDR_BOTH(10, KDRMatrix, Matrix),
    KDR_BOTH(11, KDRBuffer, Buffer),
    KDR_BOTH(12, KDRChar, Char),
    KDR_BOTH(500, KDRPoint3D, 3DPoint),
    KDR_BOTH(501, KDRVector3d, Vector3d),
    KDR_BOTH(502, KDRShape3D, 3DShape),
    KDR_BOTH(503, KDRPose3D, 3DPose),
    KDR_STORE_ONLY(504, KDRRangeImage, RangeImage),
    // Tests the kind of the two-dimensional contour.
    KDR_BOTH(7, KDRContour3D, 3DContour),
    KDR_TEST_ONLY(506, KDRMatrix3, Matrix3),
    KDR_TEST_ONLY(507, KDRMatrix4, Matrix4),
    KDR_TEST_ONLY(508, KDRQuaternion, Quaternion),
    KDR_TEST_ONLY(509, KDRDualQuaternion, DualQuaternion),
    KDR_BOTH(1000, KDRBoolArray, BoolArray),
    // Tests the kind of the number.
    KDR_BOTH(1, KDRNumberArray, NumberArray),
    KDR_BOTH(1002, KDRStringArray, StringArray),
    KDR_BOTH(1003, KDRPointArray, PointArray),
    KDR_BOTH(1004, KDRImageArray, ImageArray),
    KDR_STORE_ONLY(1005, KDRRangeImageArray, RangeImageArray),
    KDR_BOTH(1006, KDRShapeArray, ShapeArray),
    KDR_STORE_ONLY(1007, KDRPointCloudArray, PointCloudArray),
    KDR_BOTH(1008, KDRContourArray, ContourArray),
    KDR_BOTH(1009, KDRMatrixArray, MatrixArray),
    KDR_BOTH(1010, KDRBufferArray, BufferArray),
    KDR_BOTH(1500, KDRPoint3DArray, 3DPointArray),
    KDR_BOTH(1501, KDRShape3DArray, 3DShapeArray),
    KDR_BOTH(1502, KDRVector3dArray, Vector3dArray),
    KDR_BOTH(1503, KDRContour3DArray, 3DContourArray),
    KDR_BOTH(1800, KDRVariantArray, VariantArray),
};
#undef KDR_BOTH
#undef KDR_STORE_ONLY
#undef KDR_TEST_ONLY

TEST(PointerReaders, HandOutThePayloadOfTheKindTheyTestAndLeaveTheOutputUntouchedOtherwise)
{
    for (Sample const& sample : samples()) {
        KDRVariant variant(sample.value);
        for (PointerReader const& reader : pointerReaders) {
            SCOPED_TRACE(reader.name + (" on kind " + std::to_string(sample.kind)));
            reader.expectAnswer(variant, reader.tests == sample.kind);
        }
    }
}

TEST(PointerReaders, AnswerByTheKindAloneOnceThePayloadIsGone)
{
    for (Sample const& sample : samples()) {
        KDRVariant variant(sample.value);
        VariantAccess::store(variant).clear();
        for (PointerReader const& reader : pointerReaders) {
            SCOPED_TRACE(reader.name + (" on kind " + std::to_string(sample.kind)));
            reader.expectAnswer(variant, reader.tests == sample.kind);
        }
    }
}

TEST(PointerReaders, FollowAWriterOfAnotherKindAndLeaveSharersAlone)
{
    for (KindEntry const& row : kindTable) {
        for (bool const shared : {false, true}) {
            KDRVariant variant = variantOf(row, sampleNumber);
            KDRVariant sharer(shared ? variant : KDRVariant());
            variant.fromBool(true);
            for (PointerReader const& reader : pointerReaders) {
                SCOPED_TRACE(reader.name + (" on kind " + std::to_string(row.kind)));
                reader.expectAnswer(variant, false);
                reader.expectAnswer(sharer, shared && reader.tests == row.kind);
            }
            if (shared) {
                EXPECT_EQ(row.readStore(VariantAccess::store(sharer)),
                          row.reads == row.kind ? row.right(sampleNumber) : row.untouched());
            }
        }
    }
}

TEST(PointerReaders, OfTheNumberArrayTestsTheNumberKind)
{
    KDRVariant number(7);
    KDRVariant numbers{PayloadOf<KDRNumberArray>::make(7)};
    KDRNumberArray* pointer = nullptr;
    EXPECT_FALSE(numbers.toNumberArrayPtr(pointer));
    EXPECT_EQ(pointer, nullptr);
    EXPECT_TRUE(number.toNumberArrayPtr(pointer));
    KDRNumber* stored = nullptr;
    EXPECT_TRUE(number.toNumberPtr(stored));
    EXPECT_EQ(static_cast<void*>(pointer), static_cast<void*>(stored));
}

TEST(PointerReaders, OfTheThreeDimensionalContourTestsTheTwoDimensionalKind)
{
    KDRVariant contour{PayloadOf<KDRContour>::make(7)};
    KDRVariant contour3D{KDRContour3D()};
    KDRContour3D* pointer = nullptr;
    EXPECT_FALSE(contour3D.to3DContourPtr(pointer));
    EXPECT_EQ(pointer, nullptr);
    EXPECT_TRUE(contour.to3DContourPtr(pointer));
    KDRContour* stored = nullptr;
    EXPECT_TRUE(contour.toContourPtr(stored));
    EXPECT_EQ(static_cast<void*>(pointer), static_cast<void*>(stored));
}

// Whether the copy has a payload, and reads as its row says if so.
void expectCopy(KDRVariantPrivate& copy, KindEntry const& row, bool hasPayload)
{
    EXPECT_EQ(copy.variantType(), row.kind);
    EXPECT_EQ(VariantAccess::payload(copy) != nullptr, hasPayload);
    EXPECT_EQ(row.readStore(copy),
              hasPayload && row.reads == row.kind ? row.right(sampleNumber) : row.untouched());
}

TEST(DeepCopies, CarryThePayloadOfEveryKindButTheOnesTheyLose)
{
    for (KindEntry const& row : kindTable) {
        SCOPED_TRACE(row.name);
        KDRVariant const original = variantOf(row, sampleNumber);
        KDRVariantPrivate& store = VariantAccess::store(original);
        KDRVariantPrivate copy(store);
        expectCopy(copy, row, row.copied);
        KDRVariantPrivate assigned(5);
        assigned = store;
        expectCopy(assigned, row, row.assigned);
        KDRVariant const clone = original.clone();
        expectCopy(VariantAccess::store(clone), row, row.copied);
    }
}

TEST(DeepCopies, APointerReaderOnACloneThatLostItsPayloadAnswersTrueAndHandsOutNull)
{
    KDRVariant clone = KDRVariant(KDRContour3DArray()).clone();
    KDRContour3DArray other;
    KDRContour3DArray* pointer = &other;
    EXPECT_TRUE(clone.to3DContourArrayPtr(pointer));
    EXPECT_EQ(pointer, nullptr);
}

TEST(DeepCopies, OfEmptyAndUnknownKindsHaveNoPayload)
{
    for (KDRVariant const& original : {KDRVariant(), unknown()}) {
        KDRVariant const clone = original.clone();
        EXPECT_EQ(clone.variantType(), original.variantType());
        EXPECT_EQ(VariantAccess::payload(VariantAccess::store(clone)), nullptr);
    }
}

TEST(DeepCopies, LoseCloudsAndThreeDimensionalContours)
{
    std::vector<KDRVariantKind> lostByCopy;
    std::vector<KDRVariantKind> lostByAssignment;
    for (KindEntry const& row : kindTable) {
        KDRVariant const original = variantOf(row, sampleNumber);
        KDRVariantPrivate copy(VariantAccess::store(original));
        KDRVariantPrivate assigned;
        assigned = VariantAccess::store(original);
        if (!VariantAccess::payload(copy))
            lostByCopy.push_back(row.kind);
        if (!VariantAccess::payload(assigned))
            lostByAssignment.push_back(row.kind);
    }
    EXPECT_EQ(lostByCopy, (std::vector<KDRVariantKind>{6, 505, 1007, 1503}));
    EXPECT_EQ(lostByAssignment, (std::vector<KDRVariantKind>{505, 1503}));
}

} // namespace
