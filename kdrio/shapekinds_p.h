#ifndef KDRIO_SHAPEKINDS_P_H
#define KDRIO_SHAPEKINDS_P_H

#include <kdrdata/geometry3d/kdrvector3d.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/vision.h>

namespace kdrio {

/// The parameters of a shape, of which each kind uses some.
struct Parameters
{
    KDRPoint points[3];
    double numbers[4] = {0.0, 0.0, 0.0, 0.0};
    int count = 0;
    KDRPointArray list;
    KDRNumberArray values;
    KDRRegion region;
    KDRContourArray contours;
    KDRString text;
    KDRFont font;
    KDRVector3d anchor;
};

/// One of the parameters.
enum class Part {
    None,
    A,
    B,
    C,
    N0,
    N1,
    N2,
    N3,
    Count,
    List,
    Values,
    Region,
    Contours,
    Text,
    Font
};

/// A parameter of a kind and what it is called.
struct PartField
{
    char const* name; ///< null for the one part of a kind, which stands without a map of fields
    Part part;
};

inline constexpr int mostParts = 5;

/// A kind of shapes: its parameters, and how they come out of a shape and go into one.
struct ShapeKind
{
    unsigned int number;
    char const* name;
    PartField parts[mostParts];
    void (*get)(KDRShape const& shape, Parameters& to);
    void (*make)(KDRShape& shape, Parameters& from);

    int partCount() const
    {
        int count = 0;
        while (count < mostParts && parts[count].part != Part::None)
            ++count;
        return count;
    }
};

#define KDRIO_GET [](KDRShape const& s, Parameters& p)
#define KDRIO_MAKE [](KDRShape & s, Parameters & p)

// clang-format off
inline constexpr ShapeKind shapeKinds[] = {
    {KDRShape::Empty, "empty", {},
     [](KDRShape const&, Parameters&) {},
     [](KDRShape& s, Parameters&) { s = KDRShape(); }},
    {KDRShape::Circle, "circle", {{"centre", Part::A}, {"radius", Part::N0}},
     KDRIO_GET { s.toCircle(&p.points[0], &p.numbers[0]); },
     KDRIO_MAKE { s.fromCircle(p.points[0], p.numbers[0]); }},
    {KDRShape::Torus, "torus",
     {{"centre", Part::A}, {"innerRadius", Part::N0}, {"outerRadius", Part::N1},
      {"startAngle", Part::N2}, {"endAngle", Part::N3}},
     KDRIO_GET { s.toTorus(&p.points[0], &p.numbers[0], &p.numbers[1], &p.numbers[2], &p.numbers[3]); },
     KDRIO_MAKE { s.fromTorus(p.points[0], p.numbers[0], p.numbers[1], p.numbers[2], p.numbers[3]); }},
    {KDRShape::Rect2, "rect2",
     {{"centre", Part::A}, {"halfLength", Part::N0}, {"halfWidth", Part::N1}, {"angle", Part::N2}},
     KDRIO_GET { s.toRect2(&p.points[0], &p.numbers[0], &p.numbers[1], &p.numbers[2]); },
     KDRIO_MAKE { s.fromRect2(p.points[0], p.numbers[0], p.numbers[1], p.numbers[2]); }},
    {KDRShape::Line, "line", {{"start", Part::A}, {"end", Part::B}},
     KDRIO_GET { s.toLine(&p.points[0], &p.points[1]); },
     KDRIO_MAKE { s.fromLine(p.points[0], p.points[1]); }},
    {KDRShape::Ellipse, "ellipse",
     {{"centre", Part::A}, {"halfAxisAlong", Part::N0}, {"halfAxisAcross", Part::N1},
      {"angle", Part::N2}},
     KDRIO_GET { s.toEllipse(&p.points[0], &p.numbers[0], &p.numbers[1], &p.numbers[2]); },
     KDRIO_MAKE { s.fromEllipse(p.points[0], p.numbers[0], p.numbers[1], p.numbers[2]); }},
    {KDRShape::Arc, "arc",
     {{"centre", Part::A}, {"radius", Part::N0}, {"startAngle", Part::N1}, {"endAngle", Part::N2}},
     KDRIO_GET { s.toArc(&p.points[0], &p.numbers[0], &p.numbers[1], &p.numbers[2]); },
     KDRIO_MAKE { s.fromArc(p.points[0], p.numbers[0], p.numbers[1], p.numbers[2]); }},
    {KDRShape::Polygon, "polygon", {{nullptr, Part::List}},
     KDRIO_GET { s.toPolygon(&p.list); },
     KDRIO_MAKE { s.fromPolygon(p.list); }},
    {KDRShape::Irregular, "irregular", {{nullptr, Part::List}},
     KDRIO_GET { s.toIrregular(&p.list); },
     KDRIO_MAKE { s.fromIrregular(p.list); }},
    {KDRShape::Region, "region", {{nullptr, Part::Region}},
     KDRIO_GET { s.toRegion(&p.region); },
     KDRIO_MAKE { s.fromRegion(p.region); }},
    {KDRShape::Text, "text", {{"anchor", Part::A}, {"text", Part::Text}, {"font", Part::Font}},
     KDRIO_GET { s.toText(&p.points[0], &p.text, &p.font); },
     KDRIO_MAKE { s.fromText(p.points[0], p.text, p.font); }},
    {KDRShape::Arrow, "arrow", {{"tail", Part::A}, {"head", Part::B}},
     KDRIO_GET { s.toArrow(&p.points[0], &p.points[1]); },
     KDRIO_MAKE { s.fromArrow(p.points[0], p.points[1]); }},
    {KDRShape::Contours, "contours", {{nullptr, Part::Contours}},
     KDRIO_GET { s.toContours(&p.contours); },
     KDRIO_MAKE { s.fromContours(p.contours); }},
    {KDRShape::Rect2Matrix, "rect2 matrix",
     {{"centres", Part::List}, {"halfLength", Part::N0}, {"halfWidth", Part::N1},
      {"angle", Part::N2}, {"count", Part::Count}},
     KDRIO_GET { s.toRect2Matrix(nullptr, &p.list, &p.numbers[0], &p.numbers[1], &p.numbers[2], &p.count); },
     KDRIO_MAKE { s.fromRect2Matrix(p.list, p.numbers[0], p.numbers[1], p.numbers[2], p.count); }},
    {KDRShape::CircleMatrix, "circle matrix",
     {{"centres", Part::List}, {"innerRadius", Part::N0}, {"outerRadius", Part::N1},
      {"count", Part::Count}},
     KDRIO_GET { s.toCircleMatrix(nullptr, &p.list, &p.numbers[0], &p.numbers[1], &p.count); },
     KDRIO_MAKE { s.fromCircleMatrix(p.list, p.numbers[0], p.numbers[1], p.count); }},
    {KDRShape::PolyLine, "polyline", {{nullptr, Part::List}},
     KDRIO_GET { s.toPolyLine(&p.list); },
     KDRIO_MAKE { s.fromPolyLine(p.list); }},
    {KDRShape::CurveLine, "curve line", {{"first", Part::A}, {"second", Part::B}, {"third", Part::C}},
     KDRIO_GET { s.toCurveLine(&p.points[0], &p.points[1], &p.points[2]); },
     KDRIO_MAKE { s.fromCurveLine(p.points[0], p.points[1], p.points[2]); }},
    {KDRShape::AnyPolygon, "any polygon", {{"points", Part::List}, {"numbers", Part::Values}},
     KDRIO_GET { s.toAnyPolygon(&p.list, &p.values); },
     KDRIO_MAKE { s.fromAnyPolygon(p.list, p.values); }},
    {KDRShape::Text3D, "3D text", {{"text", Part::Text}, {"font", Part::Font}},
     KDRIO_GET { s.to3DText(nullptr, &p.text, &p.font); },
     KDRIO_MAKE { s.from3DText(p.anchor, p.text, p.font); }},
};
// clang-format on

#undef KDRIO_GET
#undef KDRIO_MAKE

/// The kind of a number; null for one that the format does not have.
inline ShapeKind const* shapeKindOf(unsigned int number)
{
    for (ShapeKind const& kind : shapeKinds) {
        if (kind.number == number)
            return &kind;
    }
    return nullptr;
}

/// Hands the parameter to a function for its class.
template <class Function>
void visit(Parameters& p, Part part, Function const& function)
{
    switch (part) {
    case Part::A:
        return function(p.points[0]);
    case Part::B:
        return function(p.points[1]);
    case Part::C:
        return function(p.points[2]);
    case Part::N0:
        return function(p.numbers[0]);
    case Part::N1:
        return function(p.numbers[1]);
    case Part::N2:
        return function(p.numbers[2]);
    case Part::N3:
        return function(p.numbers[3]);
    case Part::Count:
        return function(p.count);
    case Part::List:
        return function(p.list);
    case Part::Values:
        return function(p.values);
    case Part::Region:
        return function(p.region);
    case Part::Contours:
        return function(p.contours);
    case Part::Text:
        return function(p.text);
    case Part::Font:
        return function(p.font);
    case Part::None:
        break;
    }
}

} // namespace kdrio

#endif
