// Every generator against every getter, on the handle and on the record, and the model of both.

#include <kdrdata/vision/kdrshape.h>
#include <kdrdata/vision/kdrshapeprivate.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

#include "../support/shapeaccess.h"
#include "shapetable.h"

namespace {

KDRShapePrivate& recordOf(KDRShape& shape) { return ShapeAccess::record(shape); }
KDRShapePrivate& recordOf(KDRShapePrivate& record) { return record; }

// Every getter's answer and outputs, as the model says.
template <class Shape>
void expectGettersAgree(Shape const& shape, ShapeFields const& fields)
{
    ASSERT_EQ(shape.shapeType(), fields.kind);
    for (auto const& getter : shapeGetters<Shape>) {
        SCOPED_TRACE(getter.name);
        bool const matches = fields.kind == getter.kind;
        ShapeValues const untouched = shapeValues(77);
        ShapeValues expected = untouched;
        if (matches)
            getter.expect(fields, expected);
        ShapeValues out = untouched;
        ASSERT_EQ(getter.read(shape, out), matches);
        ASSERT_EQ(describe(out), describe(expected));
        ASSERT_EQ(getter.readNothing(shape), matches);
    }
}

template <class Shape>
class ShapeTable : public testing::Test
{
};

using BothClasses = testing::Types<KDRShape, KDRShapePrivate>;
TYPED_TEST_SUITE(ShapeTable, BothClasses, );

TYPED_TEST(ShapeTable, StartsEmptyAndEveryGetterRefuses)
{
    TypeParam const shape;
    EXPECT_EQ(shape.shapeType(), 99u);
    expectGettersAgree(shape, ShapeFields());
}

TYPED_TEST(ShapeTable, EachGeneratorIsReadBackByTheGettersOfItsKindAlone)
{
    for (auto const& generator : shapeGenerators<TypeParam>) {
        for (int const number : {5, 6}) {
            SCOPED_TRACE(generator.name);
            ShapeValues in = shapeValues(number);
            std::string const before = describe(in);
            TypeParam shape;
            ShapeFields fields;
            generator.generate(shape, in);
            generator.store(in, fields);
            expectGettersAgree(shape, fields);
            EXPECT_EQ(describe(in), before);
        }
    }
}

TYPED_TEST(ShapeTable, FromPointAndFromRect1StoreNothingAndKeepTheKind)
{
    KDRPoint point(1.0, 2.0);
    KDRPoint out(8.0, 9.0);
    TypeParam fresh;
    fresh.fromPoint(point);
    EXPECT_EQ(fresh.shapeType(), 99u);
    EXPECT_FALSE(fresh.toPoint(&out));
    fresh.fromRect1(point, point);
    EXPECT_EQ(fresh.shapeType(), 99u);
    EXPECT_FALSE(fresh.toRect1(&out, &out));
    EXPECT_EQ(out.x(), 8.0);

    TypeParam circle;
    circle.fromCircle(point, 5.0);
    KDRPoint other(3.0, 4.0);
    circle.fromPoint(other);
    circle.fromRect1(other, other);
    double radius = 0.0;
    ASSERT_TRUE(circle.toCircle(&out, &radius));
    EXPECT_EQ(out.x(), 1.0);
    EXPECT_EQ(radius, 5.0);
}

// The fields that a kind does not use keep what an earlier one stored. The kind is set by hand to
// look at them all, which also shows the getters of the two kinds that no generator makes.
TYPED_TEST(ShapeTable, AGeneratorOnAnUnsharedShapeWritesOnlyTheFieldsOfItsKind)
{
    constexpr unsigned seed = 20240611;
    std::mt19937 random(seed);
    TypeParam shape;
    ShapeFields fields;
    for (int step = 0; step < 150; ++step) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
        auto const& generator =
            shapeGenerators<TypeParam>[random() % std::size(shapeGenerators<TypeParam>)];
        ShapeValues in = shapeValues(static_cast<int>(random() % 40));
        generator.generate(shape, in);
        generator.store(in, fields);
        ASSERT_EQ(shape.shapeType(), fields.kind) << generator.name;
        for (auto const& getter : shapeGetters<TypeParam>) {
            SCOPED_TRACE(testing::Message() << generator.name << ", " << getter.name);
            if (getter.kind == KDRShape::CurveLine && fields.points.length() < 3)
                continue;
            ShapeAccess::kind(recordOf(shape)) = getter.kind;
            ShapeValues expected;
            getter.expect(fields, expected);
            ShapeValues out;
            ASSERT_TRUE(getter.read(shape, out));
            ASSERT_EQ(describe(out), describe(expected));
            ShapeAccess::kind(recordOf(shape)) = fields.kind;
        }
    }
}

TYPED_TEST(ShapeTable, KindsThatNoGeneratorMakesAreReadByNoGetter)
{
    TypeParam shape;
    for (unsigned const kind : {19u, 98u, 100u, 121u, 300u, 4294967295u}) {
        ShapeAccess::kind(recordOf(shape)) = kind;
        EXPECT_EQ(shape.shapeType(), kind);
        ShapeFields fields;
        fields.kind = kind;
        expectGettersAgree(shape, fields);
    }
}

TYPED_TEST(ShapeTable, NumbersComeBackExactlyAsGiven)
{
    double const infinity = std::numeric_limits<double>::infinity();
    KDRPoint centre(-1e300, 1e-300);
    TypeParam shape;
    shape.fromTorus(centre, -3.0, infinity, -0.0, std::nan(""));
    KDRPoint out;
    double a = 1.0;
    double b = 1.0;
    double c = 1.0;
    double e = 1.0;
    ASSERT_TRUE(shape.toTorus(&out, &a, &b, &c, &e));
    EXPECT_EQ(out.x(), -1e300);
    EXPECT_EQ(out.y(), 1e-300);
    EXPECT_EQ(a, -3.0);
    EXPECT_EQ(b, infinity);
    EXPECT_TRUE(std::signbit(c));
    EXPECT_TRUE(std::isnan(e));
    shape.fromArc(centre, 5.0, 725.0, -90.0);
    ASSERT_TRUE(shape.toArc(&out, &a, &b, &c));
    EXPECT_EQ(b, 725.0);
    EXPECT_EQ(c, -90.0);
}

TYPED_TEST(ShapeTable, APointCarriesItsRangesAndAListDoesNot)
{
    KDRPoint point(1.0, 2.0);
    point.setXMaxVal(50.0);
    TypeParam shape;
    shape.fromLine(point, point);
    KDRPoint first;
    KDRPoint second;
    ASSERT_TRUE(shape.toLine(&first, &second));
    EXPECT_EQ(first.getXMaxVal(), 50.0);
    EXPECT_EQ(second.getXMaxVal(), 50.0);

    shape.fromCurveLine(point, point, point);
    KDRPoint third;
    third.setYStepVal(0.125);
    ASSERT_TRUE(shape.toCurveLine(&first, &second, &third));
    EXPECT_EQ(third.x(), 1.0);
    EXPECT_EQ(third.getXMaxVal(), 999999.0);
    EXPECT_EQ(third.getYStepVal(), 1.0);
}

TYPED_TEST(ShapeTable, ListsReplaceWhatTheOutputsHeld)
{
    KDRPointArray none;
    TypeParam shape;
    shape.fromPolygon(none);
    KDRPointArray out;
    out.push_back(KDRPoint(1.0, 2.0));
    EXPECT_TRUE(shape.toPolygon(&out));
    EXPECT_EQ(out.length(), 0);
}

TYPED_TEST(ShapeTable, ACurveReplacesTheWholeListOfPoints)
{
    ShapeValues in = shapeValues(5);
    ASSERT_EQ(in.points.length(), 5);
    TypeParam shape;
    shape.fromPolygon(in.points);
    shape.fromCurveLine(in.first, in.second, in.third);
    ShapeAccess::kind(recordOf(shape)) = KDRShape::Polygon;
    KDRPointArray points;
    ASSERT_TRUE(shape.toPolygon(&points));
    ASSERT_EQ(points.length(), 3);
    EXPECT_EQ(points[2].x(), in.third.x());
}

TEST(Shape, IsOnePointerWideAndWithoutBaseOrVirtuals)
{
    EXPECT_EQ(sizeof(KDRShape), sizeof(void*));
    EXPECT_FALSE(std::is_polymorphic<KDRShape>::value);
    EXPECT_FALSE(std::is_polymorphic<KDRShapePrivate>::value);
    static_assert(std::is_same<decltype(KDRShape().shapeType()), unsigned int>::value,
                  "the kind is a plain number");
}

TEST(Shape, KindCodesAreFixed)
{
    EXPECT_EQ(KDRShape::Point, 0u);
    EXPECT_EQ(KDRShape::Rect1, 1u);
    EXPECT_EQ(KDRShape::Circle, 2u);
    EXPECT_EQ(KDRShape::Torus, 3u);
    EXPECT_EQ(KDRShape::Rect2, 4u);
    EXPECT_EQ(KDRShape::Line, 5u);
    EXPECT_EQ(KDRShape::Ellipse, 6u);
    EXPECT_EQ(KDRShape::Arc, 7u);
    EXPECT_EQ(KDRShape::Polygon, 8u);
    EXPECT_EQ(KDRShape::Irregular, 9u);
    EXPECT_EQ(KDRShape::Region, 10u);
    EXPECT_EQ(KDRShape::Text, 11u);
    EXPECT_EQ(KDRShape::Arrow, 12u);
    EXPECT_EQ(KDRShape::Contours, 13u);
    EXPECT_EQ(KDRShape::Rect2Matrix, 14u);
    EXPECT_EQ(KDRShape::CircleMatrix, 15u);
    EXPECT_EQ(KDRShape::PolyLine, 16u);
    EXPECT_EQ(KDRShape::CurveLine, 17u);
    EXPECT_EQ(KDRShape::AnyPolygon, 18u);
    EXPECT_EQ(KDRShape::Empty, 99u);
    EXPECT_EQ(KDRShape::Text3D, 120u);
}

TEST(Shape, KindsHaveOneTypeInsideAndOutsideOfTheClass)
{
    static_assert(std::is_same<KDRShapeKind, KDRShape::KDRShapeKind>::value, "");
    static_assert(std::is_same<std::underlying_type<KDRShapeKind>::type, unsigned int>::value, "");
    EXPECT_EQ(KDRShapeKind::Circle, KDRShape::Circle);
    EXPECT_EQ(KDRShape::KDRShapeKind::Circle, KDRShape::Circle);
    EXPECT_EQ(KDRShape().shapeType(), KDRShapeKind::Empty);
}

TEST(Shape, TheTableHasEveryGeneratorAndGetter)
{
    EXPECT_EQ(std::size(shapeGenerators<KDRShape>), 20u);
    EXPECT_EQ(std::size(shapeGetters<KDRShape>), 20u);
}

} // namespace
