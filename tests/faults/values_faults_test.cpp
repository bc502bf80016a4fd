// What numbers, enumerations and the types of vision do when memory runs out.

#include "tour.h"

#include "../support/shapeaccess.h"

#include <veldata/veldata.h>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

KDRStringArray names(std::initializer_list<char const*> list)
{
    KDRStringArray made;
    for (char const* const name : list)
        made.push_back(KDRString(name));
    return made;
}

KDRNumberArray numbers(std::initializer_list<double> list)
{
    KDRNumberArray made;
    for (double const number : list)
        made.push_back(KDRNumber(number));
    return made;
}

KDRPointArray points()
{
    KDRPointArray made;
    for (int i = 0; i < 4; ++i)
        made.push_back(KDRPoint(i, i * i));
    return made;
}

KDRContour contour()
{
    KDRContour made;
    KDRPointArray list = points();
    made.FromPointArray(list);
    return made;
}

KDRRegion region()
{
    KDRNumberArray rows = numbers({3, 1, 2});
    KDRNumberArray firsts = numbers({0, 2, 4});
    KDRNumberArray lasts = numbers({5, 6, 7});
    KDRRegion made;
    made.fromRunLengthEncodeing(rows, firsts, lasts, 20, 10);
    return made;
}

KDRMatrix matrix()
{
    KDRMatrix made(2, 3, KDRMatrix::MatrixTypeFloat64);
    KDRNumber value(2.5);
    made.replace(1, 2, value);
    return made;
}

KDRImage image()
{
    std::array<unsigned char, 12> pixels{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    return {pixels.data(), 2, 2, 3, 6, KDRImage::DataTypeUInt8};
}

TEST(ValueFaults, Numbers)
{
    auto const number = [] {
        KDRNumber made(2.5);
        made.setMaxValue(10.0);
        return made;
    };
    Tour tour;
    tour.visit("KDRNumber()", number, [](KDRNumber&) { return KDRNumber(); });
    tour.visit("KDRNumber(int)", number, [](KDRNumber&) { return KDRNumber(5); });
    tour.visit("KDRNumber(long long)", number, [](KDRNumber&) { return KDRNumber(5LL); });
    tour.visit("KDRNumber(float)", number, [](KDRNumber&) { return KDRNumber(0.5F); });
    tour.visit("KDRNumber(other)", number, [](KDRNumber& n) { return KDRNumber(n); });
    tour.visit("=", number, [](KDRNumber& n) { n = KDRNumber(7); });
    tour.visit("fromInt", number, [](KDRNumber& n) { n.fromInt(3); });
    tour.visit("fromDouble", number, [](KDRNumber& n) { n.fromDouble(3.5); });
    tour.visit("setMinValue", number, [](KDRNumber& n) { n.setMinValue(1.0); });
}

TEST(ValueFaults, Enumerations)
{
    auto const value = [] {
        KDREnum made(names({"red", "green", "blue"}), numbers({10, 20, 30}));
        made.setCurrentVal(1);
        return made;
    };
    Tour tour;
    tour.visit("KDREnum()", value, [](KDREnum&) { return KDREnum(); });
    tour.visit("KDREnum(lists)", value,
               [](KDREnum&) { return KDREnum(names({"a"}), numbers({1})); });
    tour.visit("KDREnum(other)", value, [](KDREnum& e) { return KDREnum(e); });
    tour.visit("=", value, [](KDREnum& e) { e = KDREnum(names({"a"}), numbers({1})); });
    tour.visit("setCurrentVal", value, [](KDREnum& e) { e.setCurrentVal(2); });
    tour.visit("setCurrentValStr", value,
               [](KDREnum& e) { e.setCurrentValStr(KDRString("blue")); });
    tour.visit("currentValStr", value, [](KDREnum& e) { return e.currentValStr(); });
    tour.visit("setEnumInf", value, [](KDREnum& e) { e.setEnumInf(numbers({1}), names({"a"})); });
    tour.visit(
        "getEnumStringList", [&] { return std::make_tuple(value(), names({"x"})); },
        [](auto& both) { std::get<0>(both).getEnumStringList(std::get<1>(both)); });
    tour.visit(
        "getEnumIndexList", [&] { return std::make_tuple(value(), numbers({7})); },
        [](auto& both) { std::get<0>(both).getEnumIndexList(std::get<1>(both)); });
}

TEST(ValueFaults, PointsAndFonts)
{
    auto const point = [] {
        KDRPoint made(1.0, 2.0);
        made.setXMaxVal(100.0);
        return made;
    };
    auto const font = [] {
        KDRFont made;
        made.setFaceName(KDRString("a face"));
        made.setSize(12);
        return made;
    };
    Tour tour;
    tour.visit("KDRPoint()", point, [](KDRPoint&) { return KDRPoint(); });
    tour.visit("KDRPoint(x, y)", point, [](KDRPoint&) { return KDRPoint(3.0, 4.0); });
    tour.visit("KDRPoint(other)", point, [](KDRPoint& p) { return KDRPoint(p); });
    tour.visit("=", point, [](KDRPoint& p) { p = KDRPoint(3.0, 4.0); });
    tour.visit("setX", point, [](KDRPoint& p) { p.setX(9.0); });
    tour.visit("KDRFont()", font, [](KDRFont&) { return KDRFont(); });
    tour.visit("KDRFont(other)", font, [](KDRFont& f) { return KDRFont(f); });
    tour.visit("=", font, [](KDRFont& f) { f = KDRFont(); });
    tour.visit("faceName", font, [](KDRFont& f) { return f.faceName(); });
    tour.visit("setFaceName", font,
               [](KDRFont& f) { f.setFaceName(KDRString("another face with a long name")); });
    tour.visit("setSize", font, [](KDRFont& f) { f.setSize(20); });
}

TEST(ValueFaults, OutlinesAndRegions)
{
    Tour tour;
    tour.visit("KDRContour()", contour, [](KDRContour&) { return KDRContour(); });
    tour.visit("KDRContour(other)", contour, [](KDRContour& c) { return KDRContour(c); });
    tour.visit("=", contour, [](KDRContour& c) { c = KDRContour(); });
    tour.visit("FromPointArray", contour, [](KDRContour& c) {
        KDRPointArray list = points();
        list.removeAt(0);
        c.FromPointArray(list);
    });
    tour.visit(
        "ToPointArray", [] { return std::make_tuple(contour(), KDRPointArray()); },
        [](auto& both) { std::get<0>(both).ToPointArray(&std::get<1>(both)); });
    tour.visit("perimeter", contour, [](KDRContour& c) { return c.perimeter(); });
    tour.visit("area", contour, [](KDRContour& c) { return c.area(); });

    tour.visit("KDRRegion()", region, [](KDRRegion&) { return KDRRegion(); });
    tour.visit("KDRRegion(other)", region, [](KDRRegion& r) { return KDRRegion(r); });
    tour.visit("=", region, [](KDRRegion& r) { r = KDRRegion(); });
    tour.visit("fromRunLengthEncodeing", region, [](KDRRegion& r) {
        KDRNumberArray rows = numbers({1, 1});
        KDRNumberArray columns = numbers({2, 9});
        r.fromRunLengthEncodeing(rows, columns, columns, 30, 40);
    });
    tour.visit(
        "toRunLengthEncodeing",
        [] { return std::make_tuple(region(), numbers({}), numbers({}), numbers({})); },
        [](auto& all) {
            std::get<0>(all).toRunLengthEncodeing(&std::get<1>(all), &std::get<2>(all),
                                                  &std::get<3>(all));
        });
    auto const regions = [] {
        KDRRegionArray made;
        made.push_back(region());
        made.push_back(region());
        return std::make_tuple(made, KDRRegion());
    };
    tour.visit("toUnionedRegion", regions,
               [](auto& both) { std::get<0>(both).toUnionedRegion(&std::get<1>(both)); });
}

TEST(ValueFaults, Matrices)
{
    Tour tour;
    tour.visit("KDRMatrix()", matrix, [](KDRMatrix&) { return KDRMatrix(); });
    tour.visit("KDRMatrix(other)", matrix, [](KDRMatrix& m) { return KDRMatrix(m); });
    tour.visit("=", matrix, [](KDRMatrix& m) { m = KDRMatrix(); });
    tour.visit(
        "select", [] { return std::make_tuple(matrix(), KDRNumber(7)); },
        [](auto& both) { std::get<0>(both).select(1, 2, &std::get<1>(both)); });
    tour.visit("replace", matrix, [](KDRMatrix& m) {
        KDRNumber value(9.5);
        return m.replace(0, 0, value);
    });
    tour.visit(
        "getRowData", [] { return std::make_tuple(matrix(), numbers({})); },
        [](auto& both) { return std::get<0>(both).getRowData(1, &std::get<1>(both)); });
    tour.visit(
        "getColData", [] { return std::make_tuple(matrix(), numbers({})); },
        [](auto& both) { return std::get<0>(both).getColData(2, &std::get<1>(both)); });

    // Failure is an answer here: none at all, a matrix of no size, or false.
    auto const asked = [] { return std::make_tuple(matrix(), 0); };
    tour.visit("setMatrix", asked, [](auto& both) {
        std::get<1>(both) = std::get<0>(both).setMatrix(3, 3, KDRMatrix::MatrixTypeUInt8);
    });
    auto const nothing = [] { return KDRMatrix(); };
    tour.visit("KDRMatrix(sizes)", nothing,
               [](KDRMatrix& m) { m = KDRMatrix(2, 2, KDRMatrix::MatrixTypeInt32); });
}

TEST(ValueFaults, Images)
{
    std::array<unsigned char, 8> pixels{8, 7, 6, 5, 4, 3, 2, 1};
    auto const nothing = [] { return KDRImage(); };
    Tour tour;
    tour.visit("KDRImage()", image, [](KDRImage&) { return KDRImage(); });
    tour.visit("KDRImage(other)", image, [](KDRImage& i) { return KDRImage(i); });
    tour.visit("=", image, [](KDRImage& i) { i = KDRImage(); });
    // Where there is no memory for pixels, there are none.
    tour.visit("KDRImage(pixels)", nothing, [&](KDRImage& i) {
        i = KDRImage(pixels.data(), 2, 2, 2, 4, KDRImage::DataTypeUInt8);
    });
    tour.visit(
        "clone", [] { return std::make_tuple(image(), KDRImage()); },
        [](auto& both) { std::get<1>(both) = std::get<0>(both).clone(); });
    tour.visit(
        "GenImageExt", [] { return std::make_tuple(image(), 0); },
        [&](auto& both) {
            std::get<1>(both) =
                std::get<0>(both).GenImageExt(pixels.data(), 4, 2, 1, 4, KDRImage::DataTypeUInt8);
        });
}

TEST(ValueFaults, BytesAndModels)
{
    auto const data = [] {
        return KDRChunkData(reinterpret_cast<unsigned char const*>("some bytes"), 10);
    };
    std::vector<unsigned char> record{'V', 'M', 'M', '1', 7, 0, 0, 0, 3, 0,
                                      0,   0,   0,   0,   0, 0, 1, 2, 3};
    auto const model = [&] {
        KDRMatchModel made;
        made.SetData(record.data());
        return made;
    };
    std::vector<unsigned char> other = record;
    other[4] = 8;
    other[16] = 9;
    Tour tour;
    tour.visit("KDRChunkData()", data, [](KDRChunkData&) { return KDRChunkData(); });
    tour.visit("KDRChunkData(other)", data, [](KDRChunkData& d) { return KDRChunkData(d); });
    tour.visit("=", data, [](KDRChunkData& d) { d = KDRChunkData(); });
    tour.visit("==", data, [&](KDRChunkData& d) { return d == data(); });
    tour.visit("KDRMatchModel()", model, [](KDRMatchModel&) { return KDRMatchModel(); });
    tour.visit("KDRMatchModel(other)", model, [](KDRMatchModel& m) { return KDRMatchModel(m); });
    tour.visit("=", model,
               [](KDRMatchModel& m) { m = static_cast<KDRMatchModel const&>(KDRMatchModel()); });
    tour.visit("= rvalue", model, [](KDRMatchModel& m) { m = KDRMatchModel(); });
    tour.visit(
        "SetData", [&] { return std::make_tuple(model(), 0); },
        [&](auto& both) { std::get<1>(both) = std::get<0>(both).SetData(other.data()); });
}

TEST(ValueFaults, Alignments)
{
    auto const alignment = [] {
        KDRMatrixArray matrices;
        matrices.push_back(matrix());
        KDRROIAlignment made;
        made.fromMatrixArray(matrices);
        return made;
    };
    Tour tour;
    tour.visit("KDRROIAlignment()", alignment, [](KDRROIAlignment&) { return KDRROIAlignment(); });
    tour.visit("KDRROIAlignment(other)", alignment,
               [](KDRROIAlignment& a) { return KDRROIAlignment(a); });
    tour.visit("=", alignment, [](KDRROIAlignment& a) { a = KDRROIAlignment(); });
    tour.visit(
        "toMatrixArray", [&] { return std::make_tuple(alignment(), KDRMatrixArray()); },
        [](auto& both) { std::get<0>(both).toMatrixArray(&std::get<1>(both)); });
    tour.visit("fromMatrixArray", alignment, [](KDRROIAlignment& a) {
        KDRMatrixArray none;
        return a.fromMatrixArray(none);
    });
}

TEST(ValueFaults, PlaneFigures)
{
    ShapeValues in = shapeValues(11);
    for (auto const& before : shapeGenerators<KDRShape>) {
        auto const shape = [&] {
            KDRShape made;
            ShapeValues values = shapeValues(4);
            before.generate(made, values);
            return made;
        };
        SCOPED_TRACE(before.name);
        Tour tour;
        tour.visit("KDRShape()", shape, [](KDRShape&) { return KDRShape(); });
        tour.visit("KDRShape(other)", shape, [](KDRShape& s) { return KDRShape(s); });
        tour.visit("=", shape, [](KDRShape& s) { s = KDRShape(); });
        for (auto const& generator : shapeGenerators<KDRShape>)
            tour.visit(generator.name, shape, [&](KDRShape& s) { generator.generate(s, in); });
    }
}

/// The record of a figure, which has no handle.
struct Record
{
    std::unique_ptr<KDRShapePrivate> record;

    friend std::string inWords(Record const& state)
    {
        ShapeValues values;
        std::string text = words::of(state.record->shapeType());
        // Every kind reads what it would read of the fields.
        unsigned int const kind = state.record->shapeType();
        for (auto const& getter : shapeGetters<KDRShapePrivate>) {
            if (getter.kind == 17)
                continue;
            ShapeAccess::kind(*state.record) = getter.kind;
            getter.read(*state.record, values);
            text += words::of(values);
        }
        ShapeAccess::kind(*state.record) = kind;
        return text;
    }
};

TEST(ValueFaults, RecordsOfFigures)
{
    auto const record = [](int number) {
        auto made = std::make_unique<KDRShapePrivate>();
        for (auto const& generator : shapeGenerators<KDRShapePrivate>) {
            ShapeValues in = shapeValues(number);
            generator.generate(*made, in);
        }
        return Record{std::move(made)};
    };
    Record const other = record(11);
    auto const state = [&] { return record(4); };
    Tour tour;
    tour.visitAlone("copy constructor", state,
                    [](Record& r) { return Record{std::make_unique<KDRShapePrivate>(*r.record)}; });
    tour.visitAlone("=", state, [&](Record& r) { *r.record = *other.record; });
}

TEST(ValueFaults, ReadingPlaneFigures)
{
    Tour tour;
    for (auto const& generator : shapeGenerators<KDRShape>) {
        for (auto const& getter : shapeGetters<KDRShape>) {
            auto const both = [&] {
                KDRShape made;
                ShapeValues values = shapeValues(11);
                generator.generate(made, values);
                return made;
            };
            if (both().shapeType() != getter.kind)
                continue;
            SCOPED_TRACE(generator.name);
            tour.visit(getter.name, both, [&](KDRShape& s) {
                ShapeValues out;
                getter.read(s, out);
                return out;
            });
        }
    }
}

TEST(ValueFaults, RegionsOfInterest)
{
    Tour tour;
    for (auto const& generator : shapeGenerators<KDRShape>) {
        auto const shape = [&] {
            KDRShape made;
            ShapeValues values = shapeValues(11);
            generator.generate(made, values);
            return made;
        };
        tour.visit(generator.name, shape, [&](KDRShape& s) {
            VelROI roi;
            KDRShape back;
            DataConvert convert;
            convert.ShapeToROI(s, &roi);
            convert.ROIToShape(roi, &back);
            return back;
        });
    }
}

} // namespace
