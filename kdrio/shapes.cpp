#include <kdrio/contents_p.h>
#include <kdrio/inside_p.h>
#include <kdrio/reader_p.h>
#include <kdrio/writer_p.h>

#include <kdrdata/geometry3d/kdrvector3d.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/vision/vision.h>

#include <climits>
#include <cstring>

namespace kdrio {

namespace {

// The parameters of a shape, of which each kind uses some.
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

// One of the parameters.
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

struct PartField
{
    char const* name; ///< null for the one part of a kind, which stands without a map of fields
    Part part;
};

constexpr int mostParts = 5;

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
constexpr ShapeKind shapeKinds[] = {
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

// Hands the parameter to a function for its class.
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

void writePart(Writer& writer, Parameters& parameters, Part part)
{
    visit(parameters, part, [&writer](auto const& value) {
        if constexpr (std::is_same_v<decltype(value), double const&>)
            writer.number(value);
        else if constexpr (std::is_same_v<decltype(value), int const&>)
            writer.integer(value);
        else
            write(writer, value);
    });
}

// Reads one part; for the list of a kind's fields.
struct PartReader
{
    Reader* reader;
    Parameters* parameters;
    Part part;

    void operator()() const
    {
        visit(*parameters, part, [this](auto& value) {
            if constexpr (std::is_same_v<decltype(value), double&>)
                value = reader->number();
            else if constexpr (std::is_same_v<decltype(value), int&>)
                value = static_cast<int>(reader->integer(INT_MIN, INT_MAX));
            else
                read(*reader, value);
        });
    }
};

void readParts(Reader& reader, ShapeKind const& kind, Parameters& parameters)
{
    int const count = kind.partCount();
    if (count == 0)
        return reader.null();
    PartReader const readers[mostParts] = {{&reader, &parameters, kind.parts[0].part},
                                           {&reader, &parameters, kind.parts[1].part},
                                           {&reader, &parameters, kind.parts[2].part},
                                           {&reader, &parameters, kind.parts[3].part},
                                           {&reader, &parameters, kind.parts[4].part}};
    if (!kind.parts[0].name)
        return readers[0]();
    Reader::Field const fields[mostParts] = {{kind.parts[0].name, true, readers[0]},
                                             {kind.parts[1].name, true, readers[1]},
                                             {kind.parts[2].name, true, readers[2]},
                                             {kind.parts[3].name, true, readers[3]},
                                             {kind.parts[4].name, true, readers[4]}};
    reader.fields(fields, count);
}

} // namespace

void write(Writer& writer, KDRShape const& value)
{
    ShapeKind const* kind = std::begin(shapeKinds);
    while (kind != std::end(shapeKinds) && kind->number != value.shapeType())
        ++kind;
    if (kind == std::end(shapeKinds))
        writer.fail(QStringLiteral("the format has no shape of kind %1").arg(value.shapeType()));

    Parameters parameters;
    kind->get(value, parameters);
    writer.map(1);
    writer.name(kind->name);
    Path::Step const step(writer.path(), kind->name);
    int const count = kind->partCount();
    if (count == 0) {
        writer.null();
    } else if (!kind->parts[0].name) {
        writePart(writer, parameters, kind->parts[0].part);
    } else {
        writer.map(count);
        for (int i = 0; i < count; ++i) {
            writer.name(kind->parts[i].name);
            writePart(writer, parameters, kind->parts[i].part);
        }
        writer.endMap();
    }
    writer.endMap();
}

void read(Reader& reader, KDRShape& value)
{
    reader.choice("shape", [&](char const* name) {
        for (ShapeKind const& kind : shapeKinds) {
            if (std::strcmp(kind.name, name) != 0)
                continue;
            Parameters parameters;
            readParts(reader, kind, parameters);
            kind.make(value, parameters);
            return true;
        }
        return false;
    });
}

} // namespace kdrio
