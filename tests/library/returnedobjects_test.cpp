// Every operation that returns the object it is called on, so that calls can be chained: the
// assignments of all classes, and one table of the operations that change texts and bytes.

#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

template <class Class>
class Assignment : public testing::Test
{
};

using Classes = testing::Types<
    KDR3DLineSet, KDRBoolArray, KDRBuffer, KDRBufferArray, KDRChar, KDRChunkData, KDRColor,
    KDRColorArray, KDRContour, KDRContour3D, KDRContour3DArray, KDRContourArray, KDRDualQuaternion,
    KDREnum, KDREnumArray, KDREnumPrivate, KDRFont, KDRImage, KDRImageArray, KDRMatchModel,
    KDRMatrix, KDRMatrix3, KDRMatrix3Array, KDRMatrix4, KDRMatrix4Array, KDRMatrixArray, KDRNumber,
    KDRNumberArray, KDRPlane3D, KDRPlane3DArray, KDRPlane3DArrayPrivate, KDRPlane3DPrivate,
    KDRPoint, KDRPoint3D, KDRPoint3DArray, KDRPointArray, KDRPointCloud, KDRPointCloudArray,
    KDRPointPrivate, KDRPose2D, KDRPose3D, KDRQuaternion, KDRROIAlignment, KDRRangeImage,
    KDRRangeImageArray, KDRRegExp, KDRRegion, KDRRegionArray, KDRShape, KDRShape3D, KDRShape3DArray,
    KDRShapeArray, KDRShapePrivate, KDRString, KDRStringArray, KDRTriangleMesh, KDRVariant,
    KDRVariantArray, KDRVariantPrivate, KDRVector3d, KDRVector3dArray>;
TYPED_TEST_SUITE(Assignment, Classes, );

TYPED_TEST(Assignment, ReturnsTheObjectAssignedTo)
{
    TypeParam object;
    TypeParam const other;
    TypeParam const& alias = object;
    EXPECT_EQ(&(object = other), &object);
    EXPECT_EQ(&(object = alias), &object);
    EXPECT_EQ(&(object = TypeParam()), &object);
}

template <class Class>
struct Row
{
    char const* name;
    Class& (*operation)(Class& object);
};

// On an object without a value, an empty one and one with a value.
template <class Class>
void expectThemselves(std::vector<Row<Class>> const& rows)
{
    for (Row<Class> const& row : rows) {
        for (char const* const value : {static_cast<char const*>(nullptr), "", "abcabc"}) {
            Class object(value);
            EXPECT_EQ(&row.operation(object), &object)
                << row.name << " of " << (value ? value : "null");
        }
    }
}

using S = KDRString;
using B = KDRBuffer;

constexpr unsigned short units[] = {'u', 'n', 0};

TEST(ReturnedObject, IsTheTextThatWasChanged)
{
    expectThemselves<S>({
        {"= bytes", [](S& s) -> S& { return s = B("b"); }},
        {"= characters", [](S& s) -> S& { return s = "c"; }},
        {"= units", [](S& s) -> S& { return s = units; }},
        {"fromLatin1", [](S& s) -> S& { return s.fromLatin1("l"); }},
        {"fromLatin1 of null", [](S& s) -> S& { return s.fromLatin1(nullptr); }},
        {"fromLocal8Bit", [](S& s) -> S& { return s.fromLocal8Bit("l", 1); }},
        {"fromUtf8", [](S& s) -> S& { return s.fromUtf8("u"); }},
        {"fromUtf16", [](S& s) -> S& { return s.fromUtf16(units); }},
        {"insert", [](S& s) -> S& { return s.insert(0, S("i")); }},
        {"insert of nothing", [](S& s) -> S& { return s.insert(0, S()); }},
        {"insert in front", [](S& s) -> S& { return s.insert(-99, S("i")); }},
        {"insert of itself", [](S& s) -> S& { return s.insert(0, s); }},
        {"insert of characters", [](S& s) -> S& { return s.insert(0, "i"); }},
        {"insert of bytes", [](S& s) -> S& { return s.insert(0, B("i")); }},
        {"remove", [](S& s) -> S& { return s.remove(0, 1); }},
        {"remove outside", [](S& s) -> S& { return s.remove(99, 1); }},
        {"remove of a text", [](S& s) -> S& { return s.remove(S("b")); }},
        {"remove in any case", [](S& s) -> S& { return s.remove(S("B"), S::KDRCaseInsensitive); }},
        {"remove of an expression", [](S& s) -> S& { return s.remove(KDRRegExp(S("[ab]"))); }},
        {"replace", [](S& s) -> S& { return s.replace(0, 1, S("r")); }},
        {"replace outside", [](S& s) -> S& { return s.replace(99, 1, S("r")); }},
        {"replace of a text", [](S& s) -> S& { return s.replace(S("b"), S("r")); }},
        {"replace of itself", [](S& s) -> S& { return s.replace(s, s); }},
        {"replace of an expression",
         [](S& s) -> S& { return s.replace(KDRRegExp(S("[ab]")), S("\\0")); }},
        {"setNum int", [](S& s) -> S& { return s.setNum(1); }},
        {"setNum short", [](S& s) -> S& { return s.setNum(short{1}); }},
        {"setNum long", [](S& s) -> S& { return s.setNum(1L, 16); }},
        {"setNum long long", [](S& s) -> S& { return s.setNum(1LL); }},
        {"setNum unsigned int", [](S& s) -> S& { return s.setNum(1U); }},
        {"setNum unsigned short",
         [](S& s) -> S& { return s.setNum(static_cast<unsigned short>(1)); }},
        {"setNum unsigned long", [](S& s) -> S& { return s.setNum(1UL); }},
        {"setNum unsigned long long", [](S& s) -> S& { return s.setNum(1ULL); }},
        {"setNum double", [](S& s) -> S& { return s.setNum(1.5); }},
        {"setNum float", [](S& s) -> S& { return s.setNum(1.5F); }},
    });
}

TEST(ReturnedObject, IsTheBufferThatWasChanged)
{
    expectThemselves<B>({
        {"= characters", [](B& b) -> B& { return b = "c"; }},
        {"setRawData", [](B& b) -> B& { return b.setRawData("raw", 3); }},
        {"append", [](B& b) -> B& { return b.append(B("a")); }},
        {"append of itself", [](B& b) -> B& { return b.append(b); }},
        {"append of characters", [](B& b) -> B& { return b.append("a"); }},
        {"append of null", [](B& b) -> B& { return b.append(nullptr); }},
        {"append of some characters", [](B& b) -> B& { return b.append("abc", 2); }},
        {"append of a byte", [](B& b) -> B& { return b.append('a'); }},
        {"append of bytes", [](B& b) -> B& { return b.append(3, 'a'); }},
        {"append of no bytes", [](B& b) -> B& { return b.append(-1, 'a'); }},
        {"prepend", [](B& b) -> B& { return b.prepend(B("p")); }},
        {"prepend of itself", [](B& b) -> B& { return b.prepend(b); }},
        {"prepend of characters", [](B& b) -> B& { return b.prepend("p"); }},
        {"prepend of null", [](B& b) -> B& { return b.prepend(nullptr); }},
        {"prepend of some characters", [](B& b) -> B& { return b.prepend("abc", 2); }},
        {"prepend of a byte", [](B& b) -> B& { return b.prepend('p'); }},
        {"prepend of bytes", [](B& b) -> B& { return b.prepend(3, 'p'); }},
        {"insert", [](B& b) -> B& { return b.insert(0, B("i")); }},
        {"insert in front", [](B& b) -> B& { return b.insert(-99, B("i")); }},
        {"insert of bytes", [](B& b) -> B& { return b.insert(0, 3, 'i'); }},
        {"insert of no bytes", [](B& b) -> B& { return b.insert(0, -1, 'i'); }},
        {"insert of characters", [](B& b) -> B& { return b.insert(0, "i"); }},
        {"insert of null", [](B& b) -> B& { return b.insert(0, nullptr); }},
        {"insert of some characters", [](B& b) -> B& { return b.insert(0, "abc", 2); }},
        {"insert of a byte", [](B& b) -> B& { return b.insert(0, 'i'); }},
        {"+=", [](B& b) -> B& { return b += B("a"); }},
        {"+= itself", [](B& b) -> B& { return b += b; }},
        {"+= characters", [](B& b) -> B& { return b += "a"; }},
        {"+= byte", [](B& b) -> B& { return b += 'a'; }},
        {"remove", [](B& b) -> B& { return b.remove(0, 1); }},
        {"remove outside", [](B& b) -> B& { return b.remove(99, 1); }},
        {"replace", [](B& b) -> B& { return b.replace(0, 1, B("r")); }},
        {"replace outside", [](B& b) -> B& { return b.replace(99, 1, B("r")); }},
        {"replace by characters", [](B& b) -> B& { return b.replace(0, 1, "r"); }},
        {"replace by some characters", [](B& b) -> B& { return b.replace(0, 1, "abc", 2); }},
        {"replace of a byte by characters", [](B& b) -> B& { return b.replace('a', "r"); }},
        {"replace of a byte by a buffer", [](B& b) -> B& { return b.replace('a', B("r")); }},
        {"replace of a byte by a byte", [](B& b) -> B& { return b.replace('a', 'r'); }},
        {"replace of characters", [](B& b) -> B& { return b.replace("ab", "r"); }},
        {"replace of some characters", [](B& b) -> B& { return b.replace("ab", 1, "rst", 2); }},
        {"replace of a buffer", [](B& b) -> B& { return b.replace(B("ab"), B("r")); }},
        {"replace of a buffer by characters", [](B& b) -> B& { return b.replace(B("ab"), "r"); }},
        {"replace of characters by a buffer", [](B& b) -> B& { return b.replace("ab", B("r")); }},
        {"fill", [](B& b) -> B& { return b.fill('f'); }},
        {"fill to a size", [](B& b) -> B& { return b.fill('f', 3); }},
    });
}

} // namespace
