#include "carried.h"
#include "pictures.h"
#include "point.h"
#include "sequence.h"
#include "text.h"

#include <kdrio/shapekinds_p.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <map>
#include <vector>

namespace kdrpython {

namespace {

using kdrio::Parameters;
using kdrio::Part;
using kdrio::ShapeKind;

// What the makers of the kinds are about.
struct About
{
    unsigned int kind;
    char const* text;
};

constexpr About abouts[] = {
    {KDRShape::Circle, "A circle."},
    {KDRShape::Torus, "A ring or a sector of a ring, from the start to the end angle."},
    {KDRShape::Rect2, "A rotated rectangle: half the length, which lies along the angle, and half "
                      "the width across it."},
    {KDRShape::Line, "A line segment."},
    {KDRShape::Ellipse, "A rotated ellipse: the half axis along the angle and the one across it."},
    {KDRShape::Arc, "An arc of a circle."},
    {KDRShape::Polygon, "A closed polygon with the given corners, in order."},
    {KDRShape::Irregular, "A freely drawn outline through the given points, in order."},
    {KDRShape::Region, "A set of pixels."},
    {KDRShape::Text, "A label at an anchor point."},
    {KDRShape::Arrow, "An arrow."},
    {KDRShape::Contours, "A list of contours."},
    {KDRShape::Rect2Matrix, "Equal rotated rectangles, one for each of the first count centres; -1 "
                            "stands for all of them."},
    {KDRShape::CircleMatrix, "Equal full rings, one for each of the first count centres; -1 stands "
                             "for all of them."},
    {KDRShape::PolyLine, "An open chain of points."},
    {KDRShape::CurveLine, "A curve through three points, of which the coordinates are kept."},
    {KDRShape::AnyPolygon, "Points with a list of numbers, whose meaning is the caller's."},
    {KDRShape::Text3D, "A label in space."},
};

// "circle matrix" is circle_matrix, "innerRadius" is inner_radius; a name that begins with a digit
// is none.
std::string snake(std::string const& name)
{
    if (name == "3D text")
        return "text_3d";
    std::string made;
    for (char const each : name) {
        if (std::isupper(static_cast<unsigned char>(each)))
            made += '_';
        made += each == ' ' ? '_' : static_cast<char>(std::tolower(each));
    }
    return made;
}

struct Field
{
    std::string name;
    Part part;
};

// The fields of a kind under the names that they have here.
std::vector<Field> fieldsOf(ShapeKind const& kind)
{
    std::vector<Field> fields;
    for (int i = 0; i < kind.partCount(); ++i) {
        Part const part = kind.parts[i].part;
        char const* const only = part == Part::Region     ? "region"
                                 : part == Part::Contours ? "contours"
                                                          : "points";
        fields.push_back({kind.parts[i].name ? snake(kind.parts[i].name) : only, part});
    }
    return fields;
}

// Whether the place of the figure may be told by its x and y.
bool hasPlace(std::vector<Field> const& fields)
{
    return !fields.empty() && (fields[0].name == "centre" || fields[0].name == "anchor");
}

// --- making
// ---------------------------------------------------------------------------------------

// Puts what Python gives for a field into the parameters.
void put(Parameters& parameters, Part part, py::handle value, char const* where)
{
    kdrio::visit(parameters, part, [&](auto& to) {
        using Type = std::remove_reference_t<decltype(to)>;
        if constexpr (std::is_same_v<Type, KDRPoint>)
            to = toPoint(value, where);
        else if constexpr (std::is_same_v<Type, KDRPointArray>)
            to = toPoints(value, where);
        else if constexpr (std::is_same_v<Type, KDRString>)
            to = toString(value, where);
        else if constexpr (std::is_same_v<Type, KDRNumberArray> ||
                           std::is_same_v<Type, KDRContourArray>)
            to = py::object(py::type::of<Type>()(value)).template cast<Type const&>();
        else
            try {
                to = py::cast<Type>(value);
            } catch (py::cast_error const&) {
                char const* const wanted = std::is_same_v<Type, double> ? "a number"
                                           : std::is_same_v<Type, int>  ? "an integer"
                                           : part == Part::Region       ? "a Region"
                                                                        : "a Font";
                raiseWrongType(where, wanted, value);
            }
    });
}

// The values of the fields by their names, from what a maker was called with.
class Arguments
{
public:
    Arguments(std::string maker, py::args const& positional, py::kwargs const& named)
        : called(std::move(maker)), given(py::dict(**named)), places(positional)
    {
    }

    // The positional ones are those of the names, in order.
    void name(std::vector<std::string> const& names)
    {
        if (places.size() > names.size())
            throw py::type_error(called + "() takes " + std::to_string(names.size()) +
                                 " arguments, not " + std::to_string(places.size()));
        for (std::size_t i = 0; i < places.size(); ++i) {
            py::str const key(names[i]);
            if (given.contains(key))
                throw py::type_error(called + "() got two values for " + names[i]);
            given[key] = places[i];
        }
        for (auto const& each : given) {
            auto const key = each.first.cast<std::string>();
            if (std::find(names.begin(), names.end(), key) == names.end())
                throw py::type_error(called + "() has no argument " + key);
        }
    }

    bool has(char const* name) const { return given.contains(name); }

    // Whether the figure's place is told by two numbers rather than by a point.
    bool tellsCoordinates() const
    {
        return has("x") || has("y") ||
               (!places.empty() && PyNumber_Check(places[0].ptr()) &&
                !PySequence_Check(places[0].ptr()));
    }

    py::object take(std::string const& name) const
    {
        if (!given.contains(name))
            throw py::type_error(called + "() lacks " + name);
        return given[py::str(name)];
    }

private:
    std::string called;
    py::dict given;
    py::args places;
};

KDRShape made(ShapeKind const& kind, std::string const& maker, py::args const& positional,
              py::kwargs const& named)
{
    std::vector<Field> fields = fieldsOf(kind);
    Arguments arguments(maker, positional, named);
    bool const byCoordinates = hasPlace(fields) && arguments.tellsCoordinates();
    std::vector<std::string> names;
    if (byCoordinates)
        names = {"x", "y"};
    for (Field const& field : fields) {
        if (!byCoordinates || field.part != Part::A)
            names.push_back(field.name);
    }
    arguments.name(names);

    Parameters parameters;
    parameters.count = -1;
    for (Field const& field : fields) {
        std::string const where = maker + "(" + field.name + ")";
        bool const isOptional = field.part == Part::Font || field.part == Part::Count;
        if (byCoordinates && field.part == Part::A) {
            py::tuple const place = py::make_tuple(arguments.take("x"), arguments.take("y"));
            put(parameters, field.part, place, where.c_str());
        } else if (!isOptional || arguments.has(field.name.c_str())) {
            put(parameters, field.part, arguments.take(field.name), where.c_str());
        }
    }
    KDRShape shape;
    kind.make(shape, parameters);
    return shape;
}

std::string signatureOf(ShapeKind const& kind)
{
    std::string text;
    for (Field const& field : fieldsOf(kind)) {
        text += text.empty() ? "" : ", ";
        text += field.name == "centre" || field.name == "anchor" ? "x, y" : field.name;
        if (field.part == Part::Font)
            text += "=Font()";
        else if (field.part == Part::Count)
            text += "=-1";
    }
    return text;
}

std::string docOf(ShapeKind const& kind, std::string const& maker)
{
    std::string doc = maker + "(" + signatureOf(kind) + ")\n\n";
    for (About const& about : abouts) {
        if (about.kind == kind.number)
            doc += about.text;
    }
    std::vector<Field> const fields = fieldsOf(kind);
    if (hasPlace(fields))
        doc += " Instead of x and y there may be the " + fields[0].name + " as a Point.";
    return doc;
}

// --- reading
// --------------------------------------------------------------------------------------

py::object partOf(Parameters& parameters, Part part)
{
    py::object value;
    kdrio::visit(parameters, part, [&value](auto const& from) {
        using Type = std::remove_cv_t<std::remove_reference_t<decltype(from)>>;
        if constexpr (std::is_same_v<Type, KDRString>)
            value = toPython(from);
        else if constexpr (std::is_class_v<Type>)
            value = objectOf(from);
        else
            value = py::cast(from);
    });
    return value;
}

[[noreturn]] void raiseNoField(ShapeKind const* kind, std::string const& name)
{
    std::string const what = kind ? kind->name : "unknown";
    throw py::attribute_error("a shape of the kind " + what + " has no " + name);
}

py::object fieldOf(KDRShape const& shape, std::string const& name)
{
    ShapeKind const* const kind = kdrio::shapeKindOf(shape.shapeType());
    if (!kind)
        raiseNoField(kind, name);
    Parameters parameters;
    for (Field const& field : fieldsOf(*kind)) {
        bool const isPlace = field.name == "centre" || field.name == "anchor";
        if (field.name != name && !(isPlace && (name == "x" || name == "y")))
            continue;
        kind->get(shape, parameters);
        py::object const value = partOf(parameters, field.part);
        return field.name == name ? value : value.attr(name.c_str());
    }
    raiseNoField(kind, name);
}

KDRShapeArray cellsOf(KDRShape const& shape)
{
    KDRShapeArray cells;
    double number = 0.0;
    int count = 0;
    if (!shape.toRect2Matrix(&cells, nullptr, &number, &number, &number, &count) &&
        !shape.toCircleMatrix(&cells, nullptr, &number, &number, &count))
        raiseNoField(kdrio::shapeKindOf(shape.shapeType()), "cells");
    return cells;
}

std::string shapeText(KDRShape const& shape)
{
    ShapeKind const* const kind = kdrio::shapeKindOf(shape.shapeType());
    if (!kind || kind->partCount() == 0)
        return "Shape()";
    Parameters parameters;
    kind->get(shape, parameters);
    std::string text;
    for (Field const& field : fieldsOf(*kind))
        text += (text.empty() ? "" : ", ") + field.name + "=" +
                py::repr(partOf(parameters, field.part)).cast<std::string>();
    return "Shape." + snake(kind->name) + "(" + text + ")";
}

// An attribute that is a field of shapes and, on the class, the maker of the same name, if there is
// one.
struct Attribute
{
    std::string name;
    py::object maker;
};

py::object read(py::object const& self, py::object const& shape, py::object const&)
{
    auto const& attribute = self.cast<Attribute const&>();
    if (!shape.is_none())
        return fieldOf(shape.cast<KDRShape const&>(), attribute.name);
    return attribute.maker ? attribute.maker : self;
}

void bindFields(py::module_& m, py::class_<KDRShape>& shape)
{
    py::class_<Attribute>(m, "_ShapeAttribute")
        .def("__get__", &read, py::arg("instance"), py::arg("owner") = py::none())
        .def("__set__",
             [](Attribute const& self, py::object const&, py::object const&) {
                 throw py::attribute_error("the " + self.name + " of a shape cannot be set");
             })
        .def_property_readonly("__doc__", [](Attribute const& self) {
            return "The " + self.name + " of shapes whose kind has one.";
        });

    std::map<std::string, py::object> attributes;
    for (ShapeKind const& kind : kdrio::shapeKinds) {
        std::vector<Field> const fields = fieldsOf(kind);
        for (Field const& field : fields)
            attributes[field.name];
        if (hasPlace(fields)) {
            attributes["x"];
            attributes["y"];
        }
        if (fields.empty())
            continue;
        std::string const name = snake(kind.name);
        std::string const maker = "Shape." + name;
        std::string const doc = docOf(kind, name);
        py::options options;
        options.disable_function_signatures();
        attributes[name] = py::cpp_function(
            [&kind, maker](py::args const& positional, py::kwargs const& named) {
                return made(kind, maker, positional, named);
            },
            py::name(name.c_str()), py::scope(shape), py::doc(doc.c_str()));
    }
    for (auto const& [name, maker] : attributes) {
        bool const isField = std::any_of(std::begin(kdrio::shapeKinds), std::end(kdrio::shapeKinds),
                                         [wanted = name](ShapeKind const& kind) {
                                             std::vector<Field> const fields = fieldsOf(kind);
                                             return std::any_of(fields.begin(), fields.end(),
                                                                [&](Field const& field) {
                                                                    return field.name == wanted;
                                                                });
                                         }) ||
                             name == "x" || name == "y";
        py::setattr(shape, name.c_str(),
                    isField ? py::cast(Attribute{name, maker})
                            : py::object(py::staticmethod(maker)));
    }
}

// The codes of the kinds, those of kinds that nothing makes among them.
py::object bindKinds(py::module_& m)
{
    py::dict codes;
    codes["POINT"] = static_cast<unsigned int>(KDRShape::Point);
    codes["RECT1"] = static_cast<unsigned int>(KDRShape::Rect1);
    for (ShapeKind const& kind : kdrio::shapeKinds)
        codes[py::str(snake(kind.name)).attr("upper")()] = kind.number;
    py::object kinds = py::module_::import("enum").attr("IntEnum")("ShapeKind", codes,
                                                                   py::arg("module") = "kdrdata");
    kinds.attr("__doc__") = "The kinds of a shape; the codes never change.";
    m.attr("ShapeKind") = kinds;
    return kinds;
}

} // namespace

void bindShape(py::module_& m)
{
    // Lives as long as the interpreter, which never lets go of a module of this kind.
    static py::handle const kinds = bindKinds(m).release();
    py::class_<KDRShape> shape(
        m, "Shape",
        R"(One drawable or searchable figure: a circle, a polygon, a label, a grid of rectangles, and so on.

A shape does not change. It is made by the maker of its kind, such as ``Shape.circle``, and has
the fields of its kind as attributes; the others raise AttributeError. Lengths are in pixels, with
x to the right and y down. Angles are in degrees, clockwise as the image is seen, 0 along +x. All
numbers are kept as they are given.

>>> coin = kdrdata.Shape.circle(x=192.0, y=151.5, radius=24.0)
>>> coin.centre, coin.radius
(Point(192.0, 151.5), 24.0)
)");
    shape.def(py::init<>(), "An empty shape.")
        .def_property_readonly(
            "kind",
            [](KDRShape const& self) -> py::object {
                py::int_ const code(self.shapeType());
                py::object const members = kinds.attr("_value2member_map_");
                return members.contains(code) ? kinds(code) : py::object(code);
            },
            "The ShapeKind.")
        .def("cells", &cellsOf,
             "The shapes of a grid: rect2 of rect2_matrix, torus of circle_matrix.")
        .def("__repr__", &shapeText)
        .def(
            "_repr_html_", [](KDRShape const& self) { return htmlOf({self}, shapeText(self)); },
            "For notebooks: the figure, drawn.");
    bindFields(m, shape);
    bindEquality(shape);
    bindPickling(shape);
    bindSequence<KDRShapeArray, KDRShape>(m, "ShapeArray", "A list of shapes.")
        .def(
            "_repr_html_",
            [](KDRShapeArray const& self) {
                std::vector<KDRShape> figures;
                figures.reserve(static_cast<std::size_t>(self.length()));
                for (int i = 0; i < self.length(); ++i)
                    figures.push_back(self[i]);
                return htmlOf(figures, "ShapeArray of " + std::to_string(figures.size()));
            },
            "For notebooks: the figures, drawn.");
}

} // namespace kdrpython
