// Points, contours, the small records and the arrays of points, contours and images over core
// records that only take notes: what the library asks of the core library, and that it passes on
// what comes back.

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrchunkdata.h>
#include <kdrdata/vision/kdrcontourarray.h>
#include <kdrdata/vision/kdrfont.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrdata/vision/kdrmatchmodel.h>
#include <kdrdata/vision/kdrpointarray.h>
#include <kdrdata/vision/kdrpointprivate.h>

#include <gtest/gtest.h>

#include <veldata/velchunkdata.h>
#include <veldata/velcontourarray.h>
#include <veldata/velfont.h>
#include <veldata/velimagearray.h>
#include <veldata/velmatchmodel.h>

#include <climits>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

std::vector<std::string> VelImage::calls;
int VelImage::answer = 1;
int VelImage::depthAfterReading = 0;
char VelImage::pixel[1];

namespace {

using Calls = std::vector<std::string>;

std::string callOf(char const* name, void const* argument)
{
    std::ostringstream call;
    call << name << ' ' << argument;
    return call.str();
}

class RecordSeam : public testing::Test
{
protected:
    void SetUp() override { FakeCalls::calls.clear(); }
};

class PointSeam : public RecordSeam
{
};

class ContourSeam : public RecordSeam
{
};

class MatchModelSeam : public RecordSeam
{
};

class ChunkDataSeam : public RecordSeam
{
};

class FontSeam : public RecordSeam
{
};

TEST_F(PointSeam, ANewPointIsTheOriginWhateverTheCorePointStartsWith)
{
    KDRPoint const point;
    EXPECT_EQ(point.x(), 0.0);
    EXPECT_EQ(point.y(), 0.0);
    KDRPointPrivate const record;
    EXPECT_EQ(record.getXVal(), 0.0);
    EXPECT_EQ(record.getYVal(), 0.0);
}

TEST_F(PointSeam, CopiesGoThroughTheCorePointsAssignment)
{
    KDRPoint const point(1.5, 2.5);
    KDRPoint const copy(point);
    KDRPoint assigned;
    assigned = point;
    EXPECT_EQ(FakeCalls::calls, Calls(2, "point operator="));
    for (KDRPoint const* const same : std::vector<KDRPoint const*>{&copy, &assigned}) {
        EXPECT_EQ(same->x(), 1.5);
        EXPECT_EQ(same->y(), 2.5);
    }
}

TEST_F(ContourSeam, MeasuresArePassedOnUnchanged)
{
    KDRContour const contour;
    EXPECT_EQ(contour.length(), -2147483647);
    EXPECT_EQ(contour.perimeter(), 0.1);
    EXPECT_EQ(contour.area(), -1e300);
}

TEST_F(ContourSeam, PointsGoFromAndToTheGivenArray)
{
    KDRPointArray points;
    VelPointArray* const core = &KDRInternal::wrapped(points);
    KDRContour contour;
    contour.ToPointArray(&points);
    contour.FromPointArray(points);
    EXPECT_EQ(FakeCalls::calls,
              (Calls{callOf("ToPointArray", core), callOf("FromPointArray", core)}));
}

TEST_F(ContourSeam, CopiesGoThroughTheCoreContoursAssignment)
{
    {
        KDRContour contour;
        KDRInternal::wrapped(contour).number = 9;
        KDRContour const copy(contour);
        KDRContour assigned;
        assigned = contour;
        EXPECT_EQ(FakeCalls::calls, Calls(2, "contour operator="));
        EXPECT_EQ(KDRInternal::wrapped(copy).number, 9);
        EXPECT_EQ(KDRInternal::wrapped(assigned).number, 9);
        EXPECT_EQ(FakeCalls::alive, 3);
    }
    EXPECT_EQ(FakeCalls::alive, 0);
}

TEST_F(MatchModelSeam, AnswersArePassedOnUnchanged)
{
    KDRMatchModel model;
    VelMatchModel& core = KDRInternal::wrapped(model);
    unsigned char bytes[1] = {};
    EXPECT_EQ(model.ModelType(), -5);
    core.length = 1099511627777ULL;
    EXPECT_EQ(model.GetLenth(), 1099511627777ULL);
    for (int const answer : {0, 1, 7, -1}) {
        core.answer = answer;
        FakeCalls::calls.clear();
        EXPECT_EQ(model.GetData(bytes), answer);
        EXPECT_EQ(model.SetData(bytes), answer);
        EXPECT_EQ(FakeCalls::calls, (Calls{callOf("GetData", bytes), callOf("SetData", bytes)}));
    }
    model.GetData(nullptr);
    model.SetData(nullptr);
    EXPECT_EQ(FakeCalls::calls.size(), 4U);
}

TEST_F(MatchModelSeam, CopiesGoThroughTheCoreModelsAssignmentRvaluesToo)
{
    {
        KDRMatchModel model;
        KDRInternal::wrapped(model).type = 9;
        KDRMatchModel const copy(model);
        KDRMatchModel const made(std::move(model));
        KDRMatchModel assigned;
        assigned = model;
        KDRMatchModel moved;
        moved = std::move(model);
        EXPECT_EQ(FakeCalls::calls, Calls(4, "model operator="));
        for (KDRMatchModel const* const same :
             std::vector<KDRMatchModel const*>{&copy, &made, &assigned, &moved, &model})
            EXPECT_EQ(same->ModelType(), 9);
        EXPECT_EQ(FakeCalls::alive, 5);
    }
    EXPECT_EQ(FakeCalls::alive, 0);
}

TEST_F(ChunkDataSeam, BytesGoToTheConstructorAndNowhereElse)
{
    unsigned char bytes[1] = {};
    {
        KDRChunkData data(bytes, 1099511627777ULL);
        KDRChunkData const none(nullptr, 0);
        KDRChunkData const copy(data);
        EXPECT_EQ(FakeCalls::calls, (Calls{callOf("bytes", bytes) + " 1099511627777",
                                           callOf("bytes", nullptr) + " 0", "chunk operator="}));
        FakeCalls::calls.clear();
        data = copy;
        data.setData(1, bytes);
        EXPECT_FALSE(data == copy);
        EXPECT_FALSE(data != copy);
        EXPECT_EQ(data.getLength(), 0U);
        EXPECT_EQ(data.getData(), nullptr);
        EXPECT_EQ(data[0], 0);
        EXPECT_EQ(FakeCalls::calls, Calls());
        EXPECT_EQ(FakeCalls::alive, 3);
    }
    EXPECT_EQ(FakeCalls::alive, 0);
}

TEST_F(FontSeam, ANewFontHasASizeOfItsOwnAndOtherwiseTheCoreFontsDefaults)
{
    KDRFont font;
    EXPECT_EQ(font.size(), 24);
    EXPECT_EQ(font.weight(), 400);
    EXPECT_EQ(font.bold(), true);
    EXPECT_EQ(font.italic(), 2);
    EXPECT_EQ(font.underline(), 3);
    EXPECT_EQ(font.strikeOut(), 4);
    EXPECT_TRUE(font.faceName() == "core");
}

TEST_F(FontSeam, CopiesTakeOverEachField)
{
    {
        KDRFont font;
        VelFont& core = KDRInternal::wrapped(font);
        core.faceName = VelVar("other");
        core.size = 1099511627777;
        core.weight = -1099511627777;
        core.bold = 5;
        core.italic = 6;
        core.underline = 7;
        core.strikeOut = 8;
        KDRFont const copy(font);
        KDRFont assigned;
        assigned = font;
        for (KDRFont const* const same : std::vector<KDRFont const*>{&copy, &assigned}) {
            VelFont const& fields = KDRInternal::wrapped(*same);
            EXPECT_STREQ(fields.faceName.S(), "other");
            EXPECT_EQ(fields.size, 1099511627777);
            EXPECT_EQ(fields.weight, -1099511627777);
            EXPECT_EQ(fields.bold, 5);
            EXPECT_EQ(fields.italic, 6);
            EXPECT_EQ(fields.underline, 7);
            EXPECT_EQ(fields.strikeOut, 8);
        }
        EXPECT_EQ(FakeCalls::alive, 3);
    }
    EXPECT_EQ(FakeCalls::alive, 0);
}

struct PointTraits
{
    using Array = KDRPointArray;
    static KDRPoint make(int number) { return {1.0 * number, -1.0 * number}; }
    static int read(KDRPoint const& point)
    {
        EXPECT_EQ(point.y(), -point.x());
        return static_cast<int>(point.x());
    }
};

template <class ArrayClass, class Element>
struct RecordTraits
{
    using Array = ArrayClass;
    static Element make(int number)
    {
        Element element;
        setNumber(KDRInternal::wrapped(element), number);
        return element;
    }
    static int read(Element const& element) { return numberOf(KDRInternal::wrapped(element)); }
};

template <class Traits>
class ArraySeam : public RecordSeam
{
};

using Arrays = testing::Types<PointTraits, RecordTraits<KDRContourArray, KDRContour>,
                              RecordTraits<KDRImageArray, KDRImage>>;
TYPED_TEST_SUITE(ArraySeam, Arrays, );

TYPED_TEST(ArraySeam, OperationsReachTheCoreArrayAndAnswersDoNotMatter)
{
    typename TypeParam::Array array;
    typename TypeParam::Array const other;
    auto element = TypeParam::make(9);
    FakeCalls::calls.clear();
    VelImage::calls.clear();
    array.push_back(element);
    array.push_back(other);
    array.push_back(array);
    EXPECT_TRUE(array.insert(2, element));
    EXPECT_TRUE(array.removeAt(1));
    EXPECT_TRUE(array.replace(0, element));
    EXPECT_TRUE(array.swap(2, 1));
    EXPECT_EQ(TypeParam::read(element), 9);
    EXPECT_TRUE(array.select(2, &element));
    EXPECT_EQ(TypeParam::read(element), 102);
    array.clear();
    EXPECT_EQ(array.length(), 3);
    EXPECT_EQ(FakeCalls::calls,
              (Calls{"Append 9", "Append all", "Append itself", "Insert 2 9", "Remove 1",
                     "Replace 0 9", "Swap 2 1", "Select 2", "Clear"}));
    EXPECT_EQ(VelImage::calls, Calls()) << "an image was copied on its way";
}

TYPED_TEST(ArraySeam, PositionsOutsideDoNotReachTheCoreArray)
{
    typename TypeParam::Array array;
    auto element = TypeParam::make(9);
    FakeCalls::calls.clear();
    for (int const index : {-1, 3, INT_MIN, INT_MAX}) {
        EXPECT_FALSE(array.insert(index, element));
        EXPECT_FALSE(array.removeAt(index));
        EXPECT_FALSE(array.replace(index, element));
        EXPECT_FALSE(array.swap(index, 0));
        EXPECT_FALSE(array.swap(0, index));
        EXPECT_FALSE(array.select(index, &element));
    }
    EXPECT_EQ(FakeCalls::calls, Calls());
    EXPECT_EQ(TypeParam::read(element), 9);
}

TYPED_TEST(ArraySeam, AnyIndexIsPassedToTheCoreArray)
{
    typename TypeParam::Array const array;
    for (int const index : {0, 2, 3, -1, INT_MIN, INT_MAX}) {
        FakeCalls::calls.clear();
        EXPECT_EQ(TypeParam::read(array[index]), 55);
        EXPECT_EQ(FakeCalls::calls.at(0), "operator[] " + std::to_string(index));
    }
}

TYPED_TEST(ArraySeam, CopiesGoThroughTheCoreArraysAssignment)
{
    typename TypeParam::Array array;
    typename TypeParam::Array const copy(array);
    array = copy;
    EXPECT_EQ(FakeCalls::calls, Calls(2, "array operator="));
}

TYPED_TEST(ArraySeam, AssignmentWithoutACoreArrayOnEitherSideDoesNothing)
{
    typename TypeParam::Array array;
    typename TypeParam::Array none;
    auto*& pointer = KDRInternal::pointer(none);
    delete std::exchange(pointer, nullptr);
    EXPECT_EQ(&(array = none), &array);
    EXPECT_EQ(&(none = array), &none);
    EXPECT_EQ(pointer, nullptr);
    EXPECT_EQ(FakeCalls::calls, Calls());
}

} // namespace
