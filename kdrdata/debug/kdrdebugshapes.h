#ifndef KDRDATA_KDRDEBUGSHAPES_H
#define KDRDATA_KDRDEBUGSHAPES_H

/// @file
/// The text forms of shapes: a part of kdrdebugtext.h, which is
/// to be included.

#include <kdrdata/debug/kdrdebugvision.h>

/// @cond
namespace KDRDebug {

/// The text of a shape or of its record: the kind, then each parameter after its name.
template <class Shape>
class ShapeText
{
public:
    ShapeText(Shape const& shape, int depth) : m_shape(shape), m_depth(depth) {}

    std::string text()
    {
        unsigned int const kind = m_shape.shapeType();
        switch (kind) {
        case KDRShape::Point:
            m_shape.toPoint(&m_points[0]);
            return "point" + part("", m_points[0]);
        case KDRShape::Rect1:
            return two("rect1", "first corner", "second corner", &Shape::toRect1);
        case KDRShape::Circle:
            m_shape.toCircle(&m_points[0], &m_numbers[0]);
            return "circle" + part("centre", m_points[0]) + numbers({"radius"});
        case KDRShape::Torus:
            m_shape.toTorus(&m_points[0], &m_numbers[0], &m_numbers[1], &m_numbers[2],
                            &m_numbers[3]);
            return "torus" + part("centre", m_points[0]) +
                   numbers({"inner radius", "outer radius", "start angle", "end angle"});
        case KDRShape::Rect2:
            m_shape.toRect2(&m_points[0], &m_numbers[0], &m_numbers[1], &m_numbers[2]);
            return "rect2" + part("centre", m_points[0]) +
                   numbers({"half length", "half width", "angle"});
        case KDRShape::Line:
            return two("line", "start", "end", &Shape::toLine);
        case KDRShape::Ellipse:
            m_shape.toEllipse(&m_points[0], &m_numbers[0], &m_numbers[1], &m_numbers[2]);
            return "ellipse" + part("centre", m_points[0]) +
                   numbers({"half axis along", "half axis across", "angle"});
        case KDRShape::Arc:
            m_shape.toArc(&m_points[0], &m_numbers[0], &m_numbers[1], &m_numbers[2]);
            return "arc" + part("centre", m_points[0]) +
                   numbers({"radius", "start angle", "end angle"});
        case KDRShape::Polygon:
            m_shape.toPolygon(&m_list);
            return "polygon" + part("", m_list);
        case KDRShape::Irregular:
            m_shape.toIrregular(&m_list);
            return "irregular" + part("", m_list);
        case KDRShape::Arrow:
            return two("arrow", "tail", "head", &Shape::toArrow);
        case KDRShape::PolyLine:
            m_shape.toPolyLine(&m_list);
            return "polyline" + part("", m_list);
        case KDRShape::CurveLine:
            return curve();
        case KDRShape::Rect2Matrix:
            m_shape.toRect2Matrix(nullptr, &m_list, &m_numbers[0], &m_numbers[1], &m_numbers[2],
                                  &m_count);
            return "rect2 matrix" + part("centres", m_list) +
                   numbers({"half length", "half width", "angle"}) + cells();
        case KDRShape::CircleMatrix:
            m_shape.toCircleMatrix(nullptr, &m_list, &m_numbers[0], &m_numbers[1], &m_count);
            return "circle matrix" + part("centres", m_list) +
                   numbers({"inner radius", "outer radius"}) + cells();
        case KDRShape::Empty:
            return "empty";
        default:
            return withMembers(kind);
        }
    }

private:
    // The kinds whose parameters are values of other classes.
    std::string withMembers(unsigned int kind)
    {
        if (kind == KDRShape::Region) {
            KDRRegion region;
            m_shape.toRegion(&region);
            return "region" + part("", region);
        }
        if (kind == KDRShape::Contours) {
            KDRContourArray contours;
            m_shape.toContours(&contours);
            return "contours" + part("", contours);
        }
        if (kind == KDRShape::AnyPolygon) {
            KDRNumberArray list;
            m_shape.toAnyPolygon(&m_list, &list);
            return "any polygon" + part("", m_list) + ',' + part("numbers", list);
        }
        KDRString label;
        KDRFont font;
        if (kind == KDRShape::Text) {
            m_shape.toText(&m_points[0], &label, &font);
            return "text" + part("", label) + ',' + part("anchor", m_points[0]) + ',' +
                   part("font", font);
        }
        if (kind == KDRShape::Text3D) {
            m_shape.to3DText(nullptr, &label, &font);
            return "3D text" + part("", label) + ',' + part("font", font);
        }
        return "kind " + integer(kind);
    }

    std::string two(char const* kind, char const* first, char const* second,
                    bool (Shape::*read)(KDRPoint*, KDRPoint*) const)
    {
        (m_shape.*read)(&m_points[0], &m_points[1]);
        return kind + part(first, m_points[0]) + ',' + part(second, m_points[1]);
    }

    std::string curve()
    {
        m_shape.toCurveLine(&m_points[0], &m_points[1], &m_points[2]);
        for (KDRPoint const& point : m_points)
            m_list.push_back(point);
        return "curve line" + part("", m_list);
    }

    // The numbers that were read, after their names.
    std::string numbers(std::vector<char const*> const& names) const
    {
        std::string text;
        for (std::size_t i = 0; i < names.size(); ++i)
            text += std::string(", ") + names[i] + ' ' + decimal(m_numbers[i]);
        return text;
    }

    std::string cells() const { return ", count " + integer(m_count); }

    template <class Part>
    std::string part(std::string const& name, Part const& value) const
    {
        return (name.empty() ? " " : ' ' + name + ' ') + Form<Part>::brief(value, m_depth);
    }

    Shape const& m_shape;
    int m_depth;
    KDRPoint m_points[3];
    double m_numbers[4] = {0.0, 0.0, 0.0, 0.0};
    int m_count = 0;
    KDRPointArray m_list;
};

template <>
struct Form<KDRShape> : SameForm<Form<KDRShape>, KDRShape>
{
    static std::string full(KDRShape const& value, int depth)
    {
        return ShapeText<KDRShape>(value, depth).text();
    }
};

template <>
struct Form<KDRShapePrivate> : SameForm<Form<KDRShapePrivate>, KDRShapePrivate>
{
    static std::string full(KDRShapePrivate const& value, int depth)
    {
        return ShapeText<KDRShapePrivate>(value, depth).text();
    }
};

template <>
struct Form<KDRShapeArray> : ArrayForm<KDRShapeArray, KDRShape>
{
};

} // namespace KDRDebug
/// @endcond

#endif
