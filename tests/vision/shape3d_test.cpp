// The figures in space: every generator but the label's stores nothing, every getter but the
// label's reads nothing.

#include <kdrdata/geometry3d/kdr3dlineset.h>
#include <kdrdata/geometry3d/kdrvector3d.h>
#include <kdrdata/geometry3d/kdrvector3darray.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrfont.h>
#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrshape.h>
#include <kdrdata/vision/kdrshapeprivate.h>

#include <gtest/gtest.h>

#include <tuple>
#include <type_traits>

#include "../support/shapeaccess.h"

namespace {

// A value for a parameter of any type, and whether it is still what it was.
template <class Parameter>
struct Argument
{
    using Value = std::remove_pointer_t<std::remove_reference_t<Parameter>>;
    Value value = Value();

    Argument()
    {
        if constexpr (std::is_same_v<Value, float>)
            value = 7.5f;
    }
    Parameter passed()
    {
        if constexpr (std::is_pointer_v<Parameter>)
            return &value;
        else
            return value;
    }
    void expectUntouched() const
    {
        if constexpr (std::is_same_v<Value, float>) {
            EXPECT_EQ(value, 7.5f);
        }
    }
};

template <class Shape>
Shape circle()
{
    KDRPoint centre(1.0, 2.0);
    Shape shape;
    shape.fromCircle(centre, 5.0);
    return shape;
}

template <class Shape>
void expectCircle(Shape const& shape)
{
    KDRPoint centre;
    double radius = 0.0;
    ASSERT_TRUE(shape.toCircle(&centre, &radius));
    EXPECT_EQ(centre.x(), 1.0);
    EXPECT_EQ(radius, 5.0);
}

template <class Shape, class... Parameters>
void generate(Shape& shape, void (Shape::*generator)(Parameters...))
{
    std::tuple<Argument<Parameters>...> arguments;
    std::apply([&](auto&... each) { (shape.*generator)(each.passed()...); }, arguments);
}

// The getter must not be for constant shapes, or it would not fit the parameter.
template <class Shape, class... Parameters>
void expectReadsNothing(char const* name, bool (Shape::*getter)(Parameters...))
{
    SCOPED_TRACE(name);
    Shape shapes[] = {Shape(), circle<Shape>(), Shape()};
    KDRVector3d anchor;
    KDRString text("label");
    KDRFont font;
    shapes[2].from3DText(anchor, text, font);
    for (Shape& shape : shapes) {
        std::tuple<Argument<Parameters>...> arguments;
        std::apply(
            [&](auto&... each) {
                EXPECT_FALSE((shape.*getter)(each.passed()...));
                (each.expectUntouched(), ...);
            },
            arguments);
    }
}

template <class... Parameters>
void expectStoresNothing(char const* name, void (KDRShape::*generator)(Parameters...),
                         void (KDRShapePrivate::*recordGenerator)(Parameters...))
{
    SCOPED_TRACE(name);
    auto record = circle<KDRShapePrivate>();
    generate(record, recordGenerator);
    expectCircle(record);

    KDRShape shape = circle<KDRShape>();
    generate(shape, generator);
    expectCircle(shape);

    KDRShape sharer(shape);
    generate(sharer, generator);
    EXPECT_EQ(sharer.shapeType(), 99u);
    EXPECT_FALSE(ShapeAccess::shareRecord(shape, sharer));
    EXPECT_EQ(ShapeAccess::record(shape).refCount(), 1);
    expectCircle(shape);
}

TEST(Shape3D, EveryGeneratorButTheLabelsStopsSharingAndStoresNothing)
{
    using S = KDRShape;
    using P = KDRShapePrivate;
    expectStoresNothing("from3DPoint", &S::from3DPoint, &P::from3DPoint);
    expectStoresNothing("from3DLine", &S::from3DLine, &P::from3DLine);
    expectStoresNothing("from3DLineSegment", &S::from3DLineSegment, &P::from3DLineSegment);
    expectStoresNothing("from3DCircle", &S::from3DCircle, &P::from3DCircle);
    expectStoresNothing("from3DPlane", &S::from3DPlane, &P::from3DPlane);
    expectStoresNothing("from3DEllipse", &S::from3DEllipse, &P::from3DEllipse);
    expectStoresNothing("from3DRect", &S::from3DRect, &P::from3DRect);
    expectStoresNothing("from3DAnnulus", &S::from3DAnnulus, &P::from3DAnnulus);
    expectStoresNothing("from3DTorus", &S::from3DTorus, &P::from3DTorus);
    expectStoresNothing("from3DArc", &S::from3DArc, &P::from3DArc);
    expectStoresNothing("from3DTriangle", &S::from3DTriangle, &P::from3DTriangle);
    expectStoresNothing("from3DPolygon", &S::from3DPolygon, &P::from3DPolygon);
    expectStoresNothing("from3DBox", &S::from3DBox, &P::from3DBox);
    expectStoresNothing("from3DSphere", &S::from3DSphere, &P::from3DSphere);
    expectStoresNothing("from3DCylinder", &S::from3DCylinder, &P::from3DCylinder);
    expectStoresNothing("from3DEllipsoid", &S::from3DEllipsoid, &P::from3DEllipsoid);
    expectStoresNothing("from3DTube", &S::from3DTube, &P::from3DTube);
    expectStoresNothing("from3DCone", &S::from3DCone, &P::from3DCone);
    expectStoresNothing("from3DEllipticCylinder", &S::from3DEllipticCylinder,
                        &P::from3DEllipticCylinder);
    expectStoresNothing("from3DLineSet", &S::from3DLineSet, &P::from3DLineSet);
}

template <class Shape>
void expectNoGetterReads()
{
    expectReadsNothing("to3DPoint", &Shape::to3DPoint);
    expectReadsNothing("to3DLine", &Shape::to3DLine);
    expectReadsNothing("to3DLineSegment", &Shape::to3DLineSegment);
    expectReadsNothing("to3DCircle", &Shape::to3DCircle);
    expectReadsNothing("to3DPlane", &Shape::to3DPlane);
    expectReadsNothing("to3DEllipse", &Shape::to3DEllipse);
    expectReadsNothing("to3DRect", &Shape::to3DRect);
    expectReadsNothing("to3DAnnulus", &Shape::to3DAnnulus);
    expectReadsNothing("to3DTorus", &Shape::to3DTorus);
    expectReadsNothing("to3DArc", &Shape::to3DArc);
    expectReadsNothing("to3DTriangle", &Shape::to3DTriangle);
    expectReadsNothing("to3DPolygon", &Shape::to3DPolygon);
    expectReadsNothing("to3DBox", &Shape::to3DBox);
    expectReadsNothing("to3DSphere", &Shape::to3DSphere);
    expectReadsNothing("to3DCylinder", &Shape::to3DCylinder);
    expectReadsNothing("to3DEllipsoid", &Shape::to3DEllipsoid);
    expectReadsNothing("to3DTube", &Shape::to3DTube);
    expectReadsNothing("to3DEllipticCylinder", &Shape::to3DEllipticCylinder);
    expectReadsNothing("to3DLineSet", &Shape::to3DLineSet);
}

TEST(Shape3D, EveryGetterButTheLabelsAnswersFalseAndWritesNothing)
{
    expectNoGetterReads<KDRShape>();
    expectNoGetterReads<KDRShapePrivate>();
}

template <class Shape>
class Shape3DText : public testing::Test
{
};

using BothClasses = testing::Types<KDRShape, KDRShapePrivate>;
TYPED_TEST_SUITE(Shape3DText, BothClasses, );

TYPED_TEST(Shape3DText, IsReadBackByItsOwnGetterAlone)
{
    KDRVector3d anchor(1.0, 2.0, 3.0);
    KDRString text("label");
    KDRFont font;
    font.setSize(31);
    TypeParam shape;
    shape.from3DText(anchor, text, font);
    EXPECT_EQ(shape.shapeType(), 120u);

    KDRString outText("untouched");
    KDRFont outFont;
    KDRPoint point(8.0, 9.0);
    EXPECT_FALSE(shape.toText(&point, &outText, &outFont));
    EXPECT_TRUE(outText == KDRString("untouched"));
    EXPECT_EQ(point.x(), 8.0);
    EXPECT_TRUE(shape.to3DText(&anchor, &outText, &outFont));
    EXPECT_TRUE(outText == text);
    EXPECT_EQ(outFont.size(), 31);
    EXPECT_TRUE(shape.to3DText(nullptr, nullptr, nullptr));
}

TYPED_TEST(Shape3DText, IsRefusedByEveryOtherShape)
{
    KDRPoint point(1.0, 2.0);
    KDRString text("label");
    KDRFont font;
    KDRVector3d anchor;
    TypeParam shape;
    KDRString out("untouched");
    EXPECT_FALSE(shape.to3DText(&anchor, &out, &font));
    shape.fromText(point, text, font);
    EXPECT_FALSE(shape.to3DText(&anchor, &out, &font));
    EXPECT_TRUE(out == KDRString("untouched"));
}

TEST(Shape3DTextSharing, StopsSharing)
{
    KDRVector3d anchor;
    KDRString text("label");
    KDRFont font;
    KDRShape const keeper = circle<KDRShape>();
    KDRShape shape(keeper);
    shape.from3DText(anchor, text, font);
    EXPECT_EQ(shape.shapeType(), 120u);
    expectCircle(keeper);
}

} // namespace
