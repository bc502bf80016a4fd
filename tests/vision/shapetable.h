#ifndef KDRDATA_TESTS_SHAPETABLE_H
#define KDRDATA_TESTS_SHAPETABLE_H

#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrcontour.h>
#include <kdrdata/vision/kdrcontourarray.h>
#include <kdrdata/vision/kdrfont.h>
#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrpointarray.h>
#include <kdrdata/vision/kdrregion.h>
#include <kdrdata/vision/kdrshapearray.h>

#include <string>

// Every generator and getter of plane figures with what it is to do, as tables over a model of the
// record. They serve the handle (KDRShape) and the record (KDRShapePrivate) alike.

/// What goes into generators and comes out of getters.
struct ShapeValues
{
    KDRPoint first;
    KDRPoint second;
    KDRPoint third;
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    double e = 0.0;
    int count = 0;
    KDRPointArray points;
    KDRContour contour;
    KDRRegion region;
    KDRContourArray contours;
    KDRNumberArray numbers;
    KDRString text;
    KDRFont font;
    KDRShapeArray cells;
};

/// Values that stand for a number: equal for equal numbers and otherwise different. The number of
/// points is that number modulo 6.
ShapeValues shapeValues(int number);

/// All the values in words, for comparison.
std::string describe(ShapeValues const& values);

/// The model of a record.
struct ShapeFields
{
    unsigned int kind = 99;
    KDRPoint first;
    KDRPoint second;
    double p[4] = {0.0, 0.0, 0.0, 0.0};
    KDRFont font;
    KDRString text;
    KDRPointArray points;
    KDRRegion region;
    KDRContourArray contours;
    KDRNumberArray numbers;
};

template <class Shape>
struct ShapeGenerator
{
    char const* name;
    void (*generate)(Shape& shape, ShapeValues& in);
    // What the generator does to the model of the record.
    void (*store)(ShapeValues const& in, ShapeFields& fields);
};

template <class Shape>
struct ShapeGetter
{
    char const* name;
    unsigned int kind;
    bool (*read)(Shape const& shape, ShapeValues& out);
    bool (*readNothing)(Shape const& shape);
    // What the outputs hold after a read of a record like the model.
    void (*expect)(ShapeFields const& fields, ShapeValues& out);
};

/// The first point and the numbers of a centred figure.
inline void storeCentred(unsigned int kind, ShapeValues const& in, ShapeFields& fields)
{
    fields.kind = kind;
    fields.first = in.first;
    fields.p[0] = in.a;
    fields.p[1] = in.b;
    fields.p[2] = in.c;
}

inline void expectCentred(ShapeFields const& fields, ShapeValues& out)
{
    out.first = fields.first;
    out.a = fields.p[0];
    out.b = fields.p[1];
    out.c = fields.p[2];
}

inline void storeEnds(unsigned int kind, ShapeValues const& in, ShapeFields& fields)
{
    fields.kind = kind;
    fields.first = in.first;
    fields.second = in.second;
}

inline void expectEnds(ShapeFields const& fields, ShapeValues& out)
{
    out.first = fields.first;
    out.second = fields.second;
}

inline void storePoints(unsigned int kind, ShapeValues const& in, ShapeFields& fields)
{
    fields.kind = kind;
    fields.points = in.points;
}

inline void expectPoints(ShapeFields const& fields, ShapeValues& out)
{
    out.points = fields.points;
}

/// How many cells a grid has.
inline int cellsOf(ShapeFields const& fields, int count)
{
    int const length = fields.points.length();
    if (count == -1 || count > length)
        return length;
    return count < 0 ? 0 : count;
}

template <class Shape>
ShapeGenerator<Shape> const shapeGenerators[] = {
    {"fromPoint", [](Shape& shape, ShapeValues& in) { shape.fromPoint(in.first); },
     [](ShapeValues const&, ShapeFields&) {}},
    {"fromRect1", [](Shape& shape, ShapeValues& in) { shape.fromRect1(in.first, in.second); },
     [](ShapeValues const&, ShapeFields&) {}},
    {"fromCircle", [](Shape& shape, ShapeValues& in) { shape.fromCircle(in.first, in.a); },
     [](ShapeValues const& in, ShapeFields& fields) {
         fields.kind = 2;
         fields.first = in.first;
         fields.p[0] = in.a;
     }},
    {"fromTorus",
     [](Shape& shape, ShapeValues& in) { shape.fromTorus(in.first, in.a, in.b, in.c, in.e); },
     [](ShapeValues const& in, ShapeFields& fields) {
         storeCentred(3, in, fields);
         fields.p[3] = in.e;
     }},
    {"fromRect2",
     [](Shape& shape, ShapeValues& in) { shape.fromRect2(in.first, in.a, in.b, in.c); },
     [](ShapeValues const& in, ShapeFields& fields) { storeCentred(4, in, fields); }},
    {"fromLine", [](Shape& shape, ShapeValues& in) { shape.fromLine(in.first, in.second); },
     [](ShapeValues const& in, ShapeFields& fields) { storeEnds(5, in, fields); }},
    {"fromEllipse",
     [](Shape& shape, ShapeValues& in) { shape.fromEllipse(in.first, in.a, in.b, in.c); },
     [](ShapeValues const& in, ShapeFields& fields) { storeCentred(6, in, fields); }},
    {"fromArc", [](Shape& shape, ShapeValues& in) { shape.fromArc(in.first, in.a, in.b, in.c); },
     [](ShapeValues const& in, ShapeFields& fields) { storeCentred(7, in, fields); }},
    {"fromPolygon", [](Shape& shape, ShapeValues& in) { shape.fromPolygon(in.points); },
     [](ShapeValues const& in, ShapeFields& fields) { storePoints(8, in, fields); }},
    {"fromIrregular", [](Shape& shape, ShapeValues& in) { shape.fromIrregular(in.points); },
     [](ShapeValues const& in, ShapeFields& fields) { storePoints(9, in, fields); }},
    {"fromIrregular of a contour",
     [](Shape& shape, ShapeValues& in) { shape.fromIrregular(in.contour); },
     [](ShapeValues const& in, ShapeFields& fields) {
         fields.kind = 9;
         in.contour.ToPointArray(&fields.points);
     }},
    {"fromRegion", [](Shape& shape, ShapeValues& in) { shape.fromRegion(in.region); },
     [](ShapeValues const& in, ShapeFields& fields) {
         fields.kind = 10;
         fields.region = in.region;
     }},
    {"fromText", [](Shape& shape, ShapeValues& in) { shape.fromText(in.first, in.text, in.font); },
     [](ShapeValues const& in, ShapeFields& fields) {
         fields.kind = 11;
         fields.first = in.first;
         fields.text = in.text;
         fields.font = in.font;
     }},
    {"fromArrow", [](Shape& shape, ShapeValues& in) { shape.fromArrow(in.first, in.second); },
     [](ShapeValues const& in, ShapeFields& fields) { storeEnds(12, in, fields); }},
    {"fromContours", [](Shape& shape, ShapeValues& in) { shape.fromContours(in.contours); },
     [](ShapeValues const& in, ShapeFields& fields) {
         fields.kind = 13;
         fields.contours = in.contours;
     }},
    {"fromRect2Matrix",
     [](Shape& shape, ShapeValues& in) {
         shape.fromRect2Matrix(in.points, in.a, in.b, in.c, in.count);
     },
     [](ShapeValues const& in, ShapeFields& fields) {
         storePoints(14, in, fields);
         fields.p[0] = in.a;
         fields.p[1] = in.b;
         fields.p[2] = in.c;
         fields.p[3] = in.count;
     }},
    {"fromCircleMatrix",
     [](Shape& shape, ShapeValues& in) { shape.fromCircleMatrix(in.points, in.a, in.b, in.count); },
     [](ShapeValues const& in, ShapeFields& fields) {
         storePoints(15, in, fields);
         fields.p[0] = in.a;
         fields.p[1] = in.b;
         fields.p[2] = in.count;
     }},
    {"fromPolyLine", [](Shape& shape, ShapeValues& in) { shape.fromPolyLine(in.points); },
     [](ShapeValues const& in, ShapeFields& fields) { storePoints(16, in, fields); }},
    {"fromCurveLine",
     [](Shape& shape, ShapeValues& in) { shape.fromCurveLine(in.first, in.second, in.third); },
     [](ShapeValues const& in, ShapeFields& fields) {
         fields.kind = 17;
         fields.points.clear();
         for (KDRPoint const& point : {in.first, in.second, in.third})
             fields.points.push_back(point);
     }},
    {"fromAnyPolygon",
     [](Shape& shape, ShapeValues& in) { shape.fromAnyPolygon(in.points, in.numbers); },
     [](ShapeValues const& in, ShapeFields& fields) {
         storePoints(18, in, fields);
         fields.numbers = in.numbers;
     }},
};

template <class Shape>
ShapeGetter<Shape> const shapeGetters[] = {
    {"toPoint", 0, [](Shape const& shape, ShapeValues& out) { return shape.toPoint(&out.first); },
     [](Shape const& shape) { return shape.toPoint(nullptr); },
     [](ShapeFields const& fields, ShapeValues& out) { out.first = fields.first; }},
    {"toRect1", 1,
     [](Shape const& shape, ShapeValues& out) { return shape.toRect1(&out.first, &out.second); },
     [](Shape const& shape) { return shape.toRect1(nullptr, nullptr); }, expectEnds},
    {"toCircle", 2,
     [](Shape const& shape, ShapeValues& out) { return shape.toCircle(&out.first, &out.a); },
     [](Shape const& shape) { return shape.toCircle(nullptr, nullptr); },
     [](ShapeFields const& fields, ShapeValues& out) {
         out.first = fields.first;
         out.a = fields.p[0];
     }},
    {"toTorus", 3,
     [](Shape const& shape, ShapeValues& out) {
         return shape.toTorus(&out.first, &out.a, &out.b, &out.c, &out.e);
     },
     [](Shape const& shape) { return shape.toTorus(nullptr, nullptr, nullptr, nullptr, nullptr); },
     [](ShapeFields const& fields, ShapeValues& out) {
         expectCentred(fields, out);
         out.e = fields.p[3];
     }},
    {"toRect2", 4,
     [](Shape const& shape, ShapeValues& out) {
         return shape.toRect2(&out.first, &out.a, &out.b, &out.c);
     },
     [](Shape const& shape) { return shape.toRect2(nullptr, nullptr, nullptr, nullptr); },
     expectCentred},
    {"toLine", 5,
     [](Shape const& shape, ShapeValues& out) { return shape.toLine(&out.first, &out.second); },
     [](Shape const& shape) { return shape.toLine(nullptr, nullptr); }, expectEnds},
    {"toEllipse", 6,
     [](Shape const& shape, ShapeValues& out) {
         return shape.toEllipse(&out.first, &out.a, &out.b, &out.c);
     },
     [](Shape const& shape) { return shape.toEllipse(nullptr, nullptr, nullptr, nullptr); },
     expectCentred},
    {"toArc", 7,
     [](Shape const& shape, ShapeValues& out) {
         return shape.toArc(&out.first, &out.a, &out.b, &out.c);
     },
     [](Shape const& shape) { return shape.toArc(nullptr, nullptr, nullptr, nullptr); },
     expectCentred},
    {"toPolygon", 8,
     [](Shape const& shape, ShapeValues& out) { return shape.toPolygon(&out.points); },
     [](Shape const& shape) { return shape.toPolygon(nullptr); }, expectPoints},
    {"toIrregular", 9,
     [](Shape const& shape, ShapeValues& out) { return shape.toIrregular(&out.points); },
     [](Shape const& shape) { return shape.toIrregular(static_cast<KDRPointArray*>(nullptr)); },
     expectPoints},
    {"toIrregular into a contour", 9,
     [](Shape const& shape, ShapeValues& out) { return shape.toIrregular(&out.contour); },
     [](Shape const& shape) { return shape.toIrregular(static_cast<KDRContour*>(nullptr)); },
     [](ShapeFields const& fields, ShapeValues& out) {
         KDRPointArray points(fields.points);
         out.contour.FromPointArray(points);
     }},
    {"toRegion", 10,
     [](Shape const& shape, ShapeValues& out) { return shape.toRegion(&out.region); },
     [](Shape const& shape) { return shape.toRegion(nullptr); },
     [](ShapeFields const& fields, ShapeValues& out) { out.region = fields.region; }},
    {"toText", 11,
     [](Shape const& shape, ShapeValues& out) {
         return shape.toText(&out.first, &out.text, &out.font);
     },
     [](Shape const& shape) { return shape.toText(nullptr, nullptr, nullptr); },
     [](ShapeFields const& fields, ShapeValues& out) {
         out.first = fields.first;
         out.text = fields.text;
         out.font = fields.font;
     }},
    {"toArrow", 12,
     [](Shape const& shape, ShapeValues& out) { return shape.toArrow(&out.first, &out.second); },
     [](Shape const& shape) { return shape.toArrow(nullptr, nullptr); }, expectEnds},
    {"toContours", 13,
     [](Shape const& shape, ShapeValues& out) { return shape.toContours(&out.contours); },
     [](Shape const& shape) { return shape.toContours(nullptr); },
     [](ShapeFields const& fields, ShapeValues& out) { out.contours = fields.contours; }},
    {"toRect2Matrix", 14,
     [](Shape const& shape, ShapeValues& out) {
         return shape.toRect2Matrix(&out.cells, &out.points, &out.a, &out.b, &out.c, &out.count);
     },
     [](Shape const& shape) {
         return shape.toRect2Matrix(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
     },
     [](ShapeFields const& fields, ShapeValues& out) {
         out.points = fields.points;
         out.a = fields.p[0];
         out.b = fields.p[1];
         out.c = fields.p[2];
         out.count = static_cast<int>(fields.p[3]);
         for (int i = 0; i < cellsOf(fields, out.count); ++i) {
             KDRPoint centre = fields.points[i];
             KDRShape cell;
             cell.fromRect2(centre, out.a, out.b, out.c);
             out.cells.push_back(cell);
         }
     }},
    {"toCircleMatrix", 15,
     [](Shape const& shape, ShapeValues& out) {
         return shape.toCircleMatrix(&out.cells, &out.points, &out.a, &out.b, &out.count);
     },
     [](Shape const& shape) {
         return shape.toCircleMatrix(nullptr, nullptr, nullptr, nullptr, nullptr);
     },
     [](ShapeFields const& fields, ShapeValues& out) {
         out.points = fields.points;
         out.a = fields.p[0];
         out.b = fields.p[1];
         out.count = static_cast<int>(fields.p[2]);
         for (int i = 0; i < cellsOf(fields, out.count); ++i) {
             KDRPoint centre = fields.points[i];
             KDRShape cell;
             cell.fromTorus(centre, out.a, out.b, 0.0, 360.0);
             out.cells.push_back(cell);
         }
     }},
    {"toPolyLine", 16,
     [](Shape const& shape, ShapeValues& out) { return shape.toPolyLine(&out.points); },
     [](Shape const& shape) { return shape.toPolyLine(nullptr); }, expectPoints},
    {"toCurveLine", 17,
     [](Shape const& shape, ShapeValues& out) {
         return shape.toCurveLine(&out.first, &out.second, &out.third);
     },
     [](Shape const& shape) { return shape.toCurveLine(nullptr, nullptr, nullptr); },
     [](ShapeFields const& fields, ShapeValues& out) {
         out.first = fields.points[0];
         out.second = fields.points[1];
         out.third = fields.points[2];
     }},
    {"toAnyPolygon", 18,
     [](Shape const& shape, ShapeValues& out) {
         return shape.toAnyPolygon(&out.points, &out.numbers);
     },
     [](Shape const& shape) { return shape.toAnyPolygon(nullptr, nullptr); },
     [](ShapeFields const& fields, ShapeValues& out) {
         out.points = fields.points;
         out.numbers = fields.numbers;
     }},
};

#endif
