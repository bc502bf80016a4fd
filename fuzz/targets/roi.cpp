// Shapes into regions of interest and back, against a model of both.

#include <kdrdata/vision/dataconvert.h>
#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrpointarray.h>
#include <kdrdata/vision/kdrregion.h>
#include <kdrdata/vision/kdrshape.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include <veldata/velpoint.h>
#include <veldata/velpointarray.h>
#include <veldata/velregion.h>
#include <veldata/velroi.h>

#include "../support/check.h"
#include "../support/script.h"

namespace {

// The types of VelROI::ROIType().
enum ROICode : unsigned int {
    ROIRect1 = 0,
    ROICircle,
    ROITorus,
    ROIEmpty,
    ROIPolygon,
    ROIIrregular,
    ROIRect2,
    ROILine,
    ROIEllipse,
    ROIArc,
    ROIPoint,
    ROIRegion
};

/// A kind of shape or a type of record, and its numbers: first the coordinates.
struct Figure
{
    unsigned int code;
    std::vector<double> values;
};

bool equal(std::vector<double> const& a, std::vector<double> const& b)
{
    // Bit by bit: not-a-number and the two zeros pass through like any other number.
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0);
}

bool isList(unsigned int kind)
{
    return kind == KDRShape::Polygon || kind == KDRShape::Irregular || kind == KDRShape::PolyLine;
}

// --- shapes --------------------------------------------------------------------------------------

constexpr unsigned int madeKinds[] = {KDRShape::Circle,  KDRShape::Torus,     KDRShape::Rect2,
                                      KDRShape::Line,    KDRShape::Ellipse,   KDRShape::Arc,
                                      KDRShape::Polygon, KDRShape::Irregular, KDRShape::Arrow,
                                      KDRShape::Region,  KDRShape::PolyLine,  KDRShape::Empty};

std::size_t shapeNumbers(unsigned int kind)
{
    switch (kind) {
    case KDRShape::Circle:
        return 3;
    case KDRShape::Torus:
        return 6;
    case KDRShape::Rect2:
    case KDRShape::Ellipse:
    case KDRShape::Arc:
        return 5;
    case KDRShape::Line:
    case KDRShape::Arrow:
        return 4;
    default:
        return 0;
    }
}

Figure readShape(Script& script)
{
    Figure figure{madeKinds[script.below(sizeof madeKinds / sizeof madeKinds[0])], {}};
    std::size_t const count = isList(figure.code) ? 2 * script.below(9) : shapeNumbers(figure.code);
    for (std::size_t i = 0; i < count; ++i)
        figure.values.push_back(script.number<double>());
    return figure;
}

void generate(KDRShape& shape, Figure const& figure)
{
    std::vector<double> v = figure.values;
    KDRPointArray points;
    for (std::size_t i = 0; isList(figure.code) && i < v.size(); i += 2)
        points.push_back(KDRPoint(v[i], v[i + 1]));
    v.resize(6);
    KDRPoint first(v[0], v[1]);
    KDRPoint second(v[2], v[3]);
    KDRRegion region;
    switch (figure.code) {
    case KDRShape::Circle:
        return shape.fromCircle(first, v[2]);
    case KDRShape::Torus:
        return shape.fromTorus(first, v[2], v[3], v[4], v[5]);
    case KDRShape::Rect2:
        return shape.fromRect2(first, v[2], v[3], v[4]);
    case KDRShape::Line:
        return shape.fromLine(first, second);
    case KDRShape::Ellipse:
        return shape.fromEllipse(first, v[2], v[3], v[4]);
    case KDRShape::Arc:
        return shape.fromArc(first, v[2], v[3], v[4]);
    case KDRShape::Polygon:
        return shape.fromPolygon(points);
    case KDRShape::Irregular:
        return shape.fromIrregular(points);
    case KDRShape::Arrow:
        return shape.fromArrow(first, second);
    case KDRShape::Region:
        return shape.fromRegion(region);
    case KDRShape::PolyLine:
        return shape.fromPolyLine(points);
    default:
        shape = KDRShape();
    }
}

std::vector<double> valuesOf(KDRShape const& shape)
{
    KDRPoint first;
    KDRPoint second;
    KDRPointArray points;
    double p[4] = {};
    bool answer = true;
    std::vector<double> values;
    switch (shape.shapeType()) {
    case KDRShape::Circle:
        answer = shape.toCircle(&first, &p[0]);
        values = {first.x(), first.y(), p[0]};
        break;
    case KDRShape::Torus:
        answer = shape.toTorus(&first, &p[0], &p[1], &p[2], &p[3]);
        values = {first.x(), first.y(), p[0], p[1], p[2], p[3]};
        break;
    case KDRShape::Rect2:
        answer = shape.toRect2(&first, &p[0], &p[1], &p[2]);
        values = {first.x(), first.y(), p[0], p[1], p[2]};
        break;
    case KDRShape::Ellipse:
        answer = shape.toEllipse(&first, &p[0], &p[1], &p[2]);
        values = {first.x(), first.y(), p[0], p[1], p[2]};
        break;
    case KDRShape::Arc:
        answer = shape.toArc(&first, &p[0], &p[1], &p[2]);
        values = {first.x(), first.y(), p[0], p[1], p[2]};
        break;
    case KDRShape::Line:
        answer = shape.toLine(&first, &second);
        values = {first.x(), first.y(), second.x(), second.y()};
        break;
    case KDRShape::Arrow:
        answer = shape.toArrow(&first, &second);
        values = {first.x(), first.y(), second.x(), second.y()};
        break;
    case KDRShape::Polygon:
        answer = shape.toPolygon(&points);
        break;
    case KDRShape::Irregular:
        answer = shape.toIrregular(&points);
        break;
    case KDRShape::PolyLine:
        answer = shape.toPolyLine(&points);
        break;
    default:
        break;
    }
    check(answer, "a shape of a kind is read as such");
    for (int i = 0; i < points.length(); ++i) {
        values.push_back(points[i].x());
        values.push_back(points[i].y());
    }
    return values;
}

// --- records -------------------------------------------------------------------------------------

std::size_t recordNumbers(unsigned int type)
{
    constexpr std::size_t counts[] = {4, 3, 6, 0, 0, 0, 5, 4, 5, 5, 2, 0};
    return counts[type];
}

Figure readRecord(Script& script)
{
    Figure figure{script.below(12), {}};
    bool const list = figure.code == ROIPolygon || figure.code == ROIIrregular;
    std::size_t const count = list ? 2 * script.below(9) : recordNumbers(figure.code);
    for (std::size_t i = 0; i < count; ++i)
        figure.values.push_back(script.number<double>());
    return figure;
}

VelROI recordOf(Figure const& figure)
{
    std::vector<double> v = figure.values;
    VelPointArray points;
    for (std::size_t i = 0; i + 1 < v.size(); i += 2)
        points.Append(VelPoint(v[i], v[i + 1]));
    v.resize(6);
    VelPoint first(v[0], v[1]);
    VelPoint second(v[2], v[3]);
    VelROI roi;
    switch (figure.code) {
    case ROIRect1:
        roi.GenRect1(first, second);
        break;
    case ROICircle:
        roi.GenCircle(first, v[2]);
        break;
    case ROITorus:
        roi.GenTorus(first, v[2], v[3], v[4], v[5]);
        break;
    case ROIPolygon:
        roi.GenPolygon(points);
        break;
    case ROIIrregular:
        roi.GenIrregular(points);
        break;
    case ROIRect2:
        roi.GenRect2(first, v[2], v[3], v[4]);
        break;
    case ROILine:
        roi.GenLine(first, second);
        break;
    case ROIEllipse:
        roi.GenEllipse(first, v[2], v[3], v[4]);
        break;
    case ROIArc:
        roi.GenArc(first, v[2], v[3], v[4]);
        break;
    case ROIPoint:
        roi.GenPoint(first);
        break;
    case ROIRegion:
        roi.GenRegion(VelRegion());
        break;
    default:
        break;
    }
    return roi;
}

std::vector<double> valuesOf(VelROI& roi)
{
    VelPoint a;
    VelPoint b;
    VelPointArray points;
    double p[4] = {};
    switch (roi.ROIType()) {
    case ROIRect1:
        roi.GetRect1(&a, &b);
        return {a.x, a.y, b.x, b.y};
    case ROICircle:
        roi.GetCircle(&a, &p[0]);
        return {a.x, a.y, p[0]};
    case ROITorus:
        roi.GetTorus(&a, &p[0], &p[1], &p[2], &p[3]);
        return {a.x, a.y, p[0], p[1], p[2], p[3]};
    case ROIRect2:
        roi.GetRect2(&a, &p[0], &p[1], &p[2]);
        return {a.x, a.y, p[0], p[1], p[2]};
    case ROILine:
        roi.GetLine(&a, &b);
        return {a.x, a.y, b.x, b.y};
    case ROIEllipse:
        roi.GetEllipse(&a, &p[0], &p[1], &p[2]);
        return {a.x, a.y, p[0], p[1], p[2]};
    case ROIArc:
        roi.GetArc(&a, &p[0], &p[1], &p[2]);
        return {a.x, a.y, p[0], p[1], p[2]};
    case ROIPoint:
        roi.GetPoint(&a);
        return {a.x, a.y};
    case ROIPolygon:
        roi.GetPolygon(&points);
        break;
    case ROIIrregular:
        roi.GetIrregular(&points);
        break;
    default:
        break;
    }
    std::vector<double> values;
    for (int i = 0; i < points.Length(); ++i) {
        values.push_back(points[i].x);
        values.push_back(points[i].y);
    }
    return values;
}

// --- what the conversion does --------------------------------------------------------------------

void convert(Figure const& shape, Figure& record)
{
    struct Row
    {
        unsigned int kind;
        unsigned int type;
    };
    // An arrow goes out as a line; what is not here leaves the record alone.
    constexpr Row rows[] = {{KDRShape::Circle, ROICircle},
                            {KDRShape::Torus, ROITorus},
                            {KDRShape::Rect2, ROIRect2},
                            {KDRShape::Line, ROILine},
                            {KDRShape::Arrow, ROILine},
                            {KDRShape::Ellipse, ROIEllipse},
                            {KDRShape::Arc, ROIArc},
                            {KDRShape::Polygon, ROIPolygon},
                            {KDRShape::Irregular, ROIIrregular},
                            {KDRShape::Empty, ROIEmpty}};
    for (Row const& row : rows)
        if (row.kind == shape.code)
            record = {row.type, shape.values};
}

/// Answers whether the shape keeps its figure where it is not shared.
bool convertBack(Figure const& record, Figure& shape)
{
    constexpr unsigned int kinds[] = {KDRShape::Empty, KDRShape::Circle,  KDRShape::Torus,
                                      KDRShape::Empty, KDRShape::Polygon, KDRShape::Irregular,
                                      KDRShape::Rect2, KDRShape::Line,    KDRShape::Ellipse,
                                      KDRShape::Arc,   KDRShape::Empty,   KDRShape::Region};
    if (record.code == ROIRect1 || record.code == ROIPoint)
        return true;
    shape = {kinds[record.code], record.values};
    return false;
}

/// A shape, a handle that may share its record, a record of the core library, and their models.
class Pair
{
public:
    void step(Script& script)
    {
        switch (script.below(5)) {
        case 0:
            m_figure = readShape(script);
            generate(m_shape, m_figure);
            m_shared = false;
            break;
        case 1:
            m_recordFigure = readRecord(script);
            m_record = recordOf(m_recordFigure);
            break;
        case 2:
            m_sharer = m_shape;
            m_sharerFigure = m_figure;
            m_shared = true;
            break;
        case 3:
            check(DataConvert().ShapeToROI(m_shape, &m_record) == 0, "a conversion answers 0");
            convert(m_figure, m_recordFigure);
            break;
        default:
            check(DataConvert().ROIToShape(m_record, &m_shape) == 0, "a conversion answers 0");
            if (convertBack(m_recordFigure, m_figure) && m_shared)
                m_figure = {KDRShape::Empty, {}};
            m_shared = false;
            break;
        }
        expectAgreement();
    }

private:
    void expectAgreement()
    {
        check(m_shape.shapeType() == m_figure.code, "the shape has its kind");
        check(equal(valuesOf(m_shape), m_figure.values), "the shape has its numbers");
        check(m_sharer.shapeType() == m_sharerFigure.code &&
                  equal(valuesOf(m_sharer), m_sharerFigure.values),
              "what happens to a shape does not show in a copy");
        check(m_record.ROIType() == m_recordFigure.code, "the record has its type");
        check(equal(valuesOf(m_record), m_recordFigure.values), "the record has its numbers");
    }

    KDRShape m_shape;
    KDRShape m_sharer;
    VelROI m_record;
    Figure m_figure{KDRShape::Empty, {}};
    Figure m_sharerFigure{KDRShape::Empty, {}};
    Figure m_recordFigure{ROIEmpty, {}};
    bool m_shared = false;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    Script script(data, size);
    Pair pair;
    for (int step = 0; step < 64 && !script.atEnd(); ++step)
        pair.step(script);
    return 0;
}
