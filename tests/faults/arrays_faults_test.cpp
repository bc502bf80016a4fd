// What the arrays do when memory runs out: the same operations for all of them.

#include "tour.h"

#include "../variant/payloads.h"

namespace {

KDRNumberArray numbersOf(std::initializer_list<int> values)
{
    KDRNumberArray numbers;
    for (int const value : values)
        numbers.push_back(KDRNumber(value));
    return numbers;
}

KDREnum enumeration(int number)
{
    KDRStringArray names;
    for (char const* const name : {"one", "two", "three"})
        names.push_back(KDRString(name));
    KDREnum made(names, numbersOf({1, 2, 3}));
    made.setCurrentVal(number);
    return made;
}

KDRRegion region(int number)
{
    KDRNumberArray rows = numbersOf({number, number + 1});
    KDRNumberArray firsts = numbersOf({0, 2});
    KDRNumberArray lasts = numbersOf({4, 5});
    KDRRegion made;
    made.fromRunLengthEncodeing(rows, firsts, lasts, 20, 20);
    return made;
}

template <class Array, class Make>
void visitArray(Make const& makeElement)
{
    auto const value = makeElement(7);
    auto const arrayOf = [&](std::initializer_list<int> numbers) {
        Array made;
        for (int const number : numbers)
            made.push_back(makeElement(number));
        return made;
    };
    auto const three = [&] { return arrayOf({1, 2, 3}); };
    auto const none = [] { return Array(); };
    Array const others = arrayOf({4, 5});

    Tour tour;
    tour.visit("default constructor", none, [](Array&) { return Array(); });
    tour.visit("copy constructor", three, [](Array& a) { return Array(a); });
    tour.visit("=", three, [&](Array& a) { a = others; });
    tour.visit("= to itself", three, [](Array& a) { a = static_cast<Array const&>(a); });
    tour.visit("= of nothing", three, [](Array& a) { a = Array(); });
    tour.visit("push_back", three, [&](Array& a) { a.push_back(value); });
    tour.visit("push_back to nothing", none, [&](Array& a) { a.push_back(value); });
    tour.visit("push_back of an array", three, [&](Array& a) { a.push_back(others); });
    tour.visit("push_back of an array to nothing", none, [&](Array& a) { a.push_back(others); });
    tour.visit("push_back of itself", three, [](Array& a) { a.push_back(a); });
    tour.visit("insert", three, [&](Array& a) { return a.insert(1, value); });
    tour.visit("insert out of range", three, [&](Array& a) { return a.insert(9, value); });
    tour.visit("removeAt", three, [](Array& a) { return a.removeAt(1); });
    tour.visit("replace", three, [&](Array& a) { return a.replace(1, value); });
    tour.visit("swap", three, [](Array& a) { return a.swap(0, 2); });
    tour.visit("clear", three, [](Array& a) { a.clear(); });
    tour.visit(
        "select", [&] { return std::make_tuple(three(), makeElement(8)); },
        [](auto& both) { return std::get<0>(both).select(1, &std::get<1>(both)); });
    tour.visit("[]", three, [](Array& a) {
        // The array of flags answers a reference.
        std::decay_t<decltype(a[1])> element = a[1];
        return element;
    });
}

template <class Array, class Element>
void visitArrayOf()
{
    visitArray<Array>([](int number) { return PayloadOf<Element>::make(number); });
}

TEST(ArrayFaults, Strings) { visitArrayOf<KDRStringArray, KDRString>(); }
TEST(ArrayFaults, Buffers) { visitArrayOf<KDRBufferArray, KDRBuffer>(); }
TEST(ArrayFaults, Flags) { visitArrayOf<KDRBoolArray, bool>(); }
TEST(ArrayFaults, Numbers) { visitArrayOf<KDRNumberArray, KDRNumber>(); }
TEST(ArrayFaults, Enumerations) { visitArray<KDREnumArray>(enumeration); }
TEST(ArrayFaults, Points) { visitArrayOf<KDRPointArray, KDRPoint>(); }
TEST(ArrayFaults, Contours) { visitArrayOf<KDRContourArray, KDRContour>(); }
TEST(ArrayFaults, Images) { visitArrayOf<KDRImageArray, KDRImage>(); }
TEST(ArrayFaults, Matrices) { visitArrayOf<KDRMatrixArray, KDRMatrix>(); }
TEST(ArrayFaults, Regions) { visitArray<KDRRegionArray>(region); }
TEST(ArrayFaults, Shapes) { visitArrayOf<KDRShapeArray, KDRShape>(); }
TEST(ArrayFaults, Variants)
{
    visitArray<KDRVariantArray>([](int number) { return KDRVariant(number); });
}

// What carries nothing is counted only.
template <class Array, class Element>
void visitPlaceholders()
{
    auto const two = [] {
        Array made;
        made.push_back(Element());
        made.push_back(Element());
        return made;
    };
    Tour tour;
    tour.visit("default constructor", two, [](Array&) { return Array(); });
    tour.visit("copy constructor", two, [](Array& a) { return Array(a); });
    tour.visit("=", two, [](Array& a) { a = Array(); });
    tour.visit("push_back", two, [](Array& a) { a.push_back(Element()); });
    tour.visit("push_back of an array", two, [&](Array& a) { a.push_back(two()); });
    tour.visit("insert", two, [](Array& a) { return a.insert(1, Element()); });
    tour.visit("removeAt", two, [](Array& a) { return a.removeAt(1); });
    tour.visit("replace", two, [](Array& a) { return a.replace(1, Element()); });
    tour.visit("swap", two, [](Array& a) { return a.swap(0, 1); });
    tour.visit("clear", two, [](Array& a) { a.clear(); });
    tour.visit("select", two, [](Array& a) {
        Element element;
        return a.select(1, &element);
    });
    tour.visit("[]", two, [](Array& a) { a[1]; });
}

TEST(ArrayFaults, PlaceholderMatrices)
{
    visitPlaceholders<KDRMatrix3Array, KDRMatrix3>();
    visitPlaceholders<KDRMatrix4Array, KDRMatrix4>();
}

TEST(ArrayFaults, PlaceholderShapes) { visitPlaceholders<KDRShape3DArray, KDRShape3D>(); }

} // namespace
