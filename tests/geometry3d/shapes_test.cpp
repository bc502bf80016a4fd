#include <kdrdata/geometry3d/geometry3d.h>
#include <kdrdata/scalars/kdrcolorarray.h>

#include <gtest/gtest.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <type_traits>

#include "../support/fixedanswers.h"

namespace {

using namespace FixedAnswers;
using V = KDRVector3d;
using VA = KDRVector3dArray;

TEST(Point3D, AnswersConstants)
{
    using P = KDRPoint3D;
    P none;
    P copy(none);
    for (P* const point : {&none, &copy}) {
        Answers<P> answers(*point);
        answers.row("operator=", as<P&(P const&)>(&P::operator=), itself);
        answers.row("setX", as<void(double)>(&P::setX), nothing);
        answers.row("setY", as<void(double)>(&P::setY), nothing);
        answers.row("setZ", as<void(double)>(&P::setZ), nothing);
        answers.row("x", as<double() const>(&P::x), -1.0);
        answers.row("y", as<double() const>(&P::y), -1.0);
        answers.row("z", as<double() const>(&P::z), -1.0);
    }
}

TEST(Point3D, CoordinateIsMinusOneAfterItWasSet)
{
    KDRPoint3D point;
    point.setX(5.0);
    EXPECT_EQ(point.x(), -1.0);
}

TEST(Plane3D, AnswersConstants)
{
    using P = KDRPlane3D;
    P none;
    P copy(none);
    for (P* const plane : {&none, &copy}) {
        Answers<P> answers(*plane);
        answers.row("operator=", as<P&(P const&)>(&P::operator=), itself);
        answers.row("setA", as<void(double)>(&P::setA), nothing);
        answers.row("setB", as<void(double)>(&P::setB), nothing);
        answers.row("setC", as<void(double)>(&P::setC), nothing);
        answers.row("setD", as<void(double)>(&P::setD), nothing);
        answers.row("a", as<double() const>(&P::a), 0.0);
        answers.row("b", as<double() const>(&P::b), 0.0);
        answers.row("c", as<double() const>(&P::c), 0.0);
        answers.row("d", as<double() const>(&P::d), 0.0);
    }
}

TEST(Contour3D, HandsOverNoPoints)
{
    using C = KDRContour3D;
    using PA = KDRPoint3DArray;
    C none;
    C copy(none);
    for (C* const contour : {&none, &copy}) {
        Answers<C> answers(*contour);
        answers.row("operator=", as<C&(C const&)>(&C::operator=), itself);
        answers.row("ToPointArray", as<void(PA*) const>(&C::ToPointArray), nothing);
        answers.row("FromPointArray", as<void(PA&)>(&C::FromPointArray), nothing);
    }
}

TEST(PointCloud, AnswersConstants)
{
    using P = KDRPointCloud;
    using File = bool(KDRString const&, bool, bool);
    P none;
    P copy(none);
    for (P* const cloud : {&none, &copy}) {
        Answers<P> answers(*cloud);
        answers.row("operator=", as<P&(P const&)>(&P::operator=), itself);
        answers.row("Append", as<void(P const&)>(&P::Append), nothing);
        answers.row("SetPoints", as<void(VA const&)>(&P::SetPoints), nothing);
        answers.row("SetColors", as<void(KDRColorArray const&)>(&P::SetColors), nothing);
        answers.row("SetNormals", as<void(VA const&)>(&P::SetNormals), nothing);
        answers.row("Load", as<File>(&P::Load), false);
        answers.row("Save", as<File>(&P::Save), false);
    }
}

TEST(TriangleMesh, AnswersConstants)
{
    using M = KDRTriangleMesh;
    M none;
    M copy(none);
    for (M* const mesh : {&none, &copy}) {
        Answers<M> answers(*mesh);
        answers.row("operator=", as<M&(M const&)>(&M::operator=), itself);
        answers.row("Load", as<bool(KDRString const&, bool, bool)>(&M::Load), false);
        answers.row("Save", as<bool(KDRString const&, bool, bool) const>(&M::Save), false);
    }
}

TEST(CloudsAndMeshes, SaveWritesNoFile)
{
    QTemporaryDir const directory;
    ASSERT_TRUE(directory.isValid());
    QByteArray const name = QFile::encodeName(directory.filePath("scene.ply"));
    KDRString const path(name.constData());
    EXPECT_FALSE(KDRPointCloud().Save(path, true, false));
    EXPECT_FALSE(KDRTriangleMesh().Save(path, true, false));
    EXPECT_FALSE(QFile::exists(directory.filePath("scene.ply")));
}

TEST(LineSet3D, CopiesAndAssigns)
{
    using L = KDR3DLineSet;
    L none;
    L copy(none);
    for (L* const lines : {&none, &copy}) {
        Answers<L> answers(*lines);
        answers.row("operator=", as<L&(L const&)>(&L::operator=), itself);
    }
}

template <class Record>
void expectInertRecord()
{
    Record none;
    Record copy(none);
    for (Record* const record : {&none, &copy}) {
        Answers<Record> answers(*record);
        answers.row("operator=", as<Record&(Record const&)>(&Record::operator=), itself);
    }
}

TEST(PlaneRecords, DoNothing)
{
    expectInertRecord<KDRPlane3DPrivate>();
    expectInertRecord<KDRPlane3DArrayPrivate>();
}

using S = KDRShape3D;

void expectGeneratorsDoNothing(S& shape)
{
    Answers<S> answers(shape);
    answers.row("fromPoint", as<void(V&)>(&S::fromPoint), nothing);
    answers.row("fromLine", as<void(V&, V&)>(&S::fromLine), nothing);
    answers.row("fromLineSegment", as<void(V&, V&)>(&S::fromLineSegment), nothing);
    answers.row("fromPlane", as<void(V&, V&)>(&S::fromPlane), nothing);
    answers.row("fromCircle", as<void(V&, V&, float)>(&S::fromCircle), nothing);
    answers.row("fromEllipse", as<void(V&, V&, float, float)>(&S::fromEllipse), nothing);
    answers.row("fromRect", as<void(V&, V&, float, float)>(&S::fromRect), nothing);
    answers.row("fromAnnulus", as<void(V&, V&, float, float, float, float)>(&S::fromAnnulus),
                nothing);
    answers.row("fromTorus", as<void(V&, V&, float, float, float, float)>(&S::fromTorus), nothing);
    answers.row("fromArc", as<void(V&, V&, float, float, float)>(&S::fromArc), nothing);
    answers.row("fromTriangle", as<void(V&, V&, V&)>(&S::fromTriangle), nothing);
    answers.row("fromBox", as<void(V&, V&, V&)>(&S::fromBox), nothing);
    answers.row("fromEllipsoid", as<void(V&, V&, V&)>(&S::fromEllipsoid), nothing);
    answers.row("fromPolygon", as<void(VA&)>(&S::fromPolygon), nothing);
    answers.row("fromSphere", as<void(V&, float)>(&S::fromSphere), nothing);
    answers.row("fromCylinder", as<void(V&, V&, float, float)>(&S::fromCylinder), nothing);
    answers.row("fromTube", as<void(V&, V&, float, float, float, float, float)>(&S::fromTube),
                nothing);
}

void expectReadersAnswerFalse(S& shape)
{
    using Four = bool(V*, V*, float*, float*, float*, float*);
    using Five = bool(V*, V*, float*, float*, float*, float*, float*);
    Answers<S> answers(shape);
    answers.row("toPoint", as<bool(V*)>(&S::toPoint), false);
    answers.row("toLine", as<bool(V*, V*)>(&S::toLine), false);
    answers.row("toLineSegment", as<bool(V*, V*)>(&S::toLineSegment), false);
    answers.row("toPlane", as<bool(V*, V*)>(&S::toPlane), false);
    answers.row("toCircle", as<bool(V*, V*, float*)>(&S::toCircle), false);
    answers.row("toEllipse", as<bool(V*, V*, float*, float*)>(&S::toEllipse), false);
    answers.row("toRect", as<bool(V*, V*, float*, float*)>(&S::toRect), false);
    answers.row("toAnnulus", as<Four>(&S::toAnnulus), false);
    answers.row("toTorus", as<Four>(&S::toTorus), false);
    answers.row("toArc", as<bool(V*, V*, float*, float*, float*)>(&S::toArc), false);
    answers.row("toTriangle", as<bool(V*, V*, V*)>(&S::toTriangle), false);
    answers.row("toBox", as<bool(V*, V*, V*)>(&S::toBox), false);
    answers.row("toEllipsoid", as<bool(V*, V*, V*)>(&S::toEllipsoid), false);
    answers.row("toPolygon", as<bool(VA*)>(&S::toPolygon), false);
    answers.row("toSphere", as<bool(V*, float*)>(&S::toSphere), false);
    answers.row("toCylinder", as<bool(V*, V*, float*, float*)>(&S::toCylinder), false);
    answers.row("toTube", as<Five>(&S::toTube), false);
}

TEST(Shape3D, AnswersConstants)
{
    S none;
    S copy(none);
    for (S* const shape : {&none, &copy}) {
        expectGeneratorsDoNothing(*shape);
        expectReadersAnswerFalse(*shape);
        Answers<S> answers(*shape);
        answers.row("operator=", as<S&(S const&)>(&S::operator=), itself);
        answers.row("shapeType", as<int() const>(&S::shapeType), 300);
    }
}

TEST(Shape3D, IsReadAsNothingRightAfterItWasGenerated)
{
    V centre(1.0, 2.0, 3.0);
    float radius = 4.0F;
    S shape;
    shape.fromSphere(centre, radius);
    V centreOut;
    float radiusOut = 7.0F;
    EXPECT_FALSE(shape.toSphere(&centreOut, &radiusOut));
    EXPECT_EQ(radiusOut, 7.0F);
    EXPECT_FALSE(shape.toSphere(nullptr, nullptr));
    EXPECT_EQ(shape.shapeType(), 300);
}

template <class... Classes>
void expectEmptyClasses()
{
    EXPECT_TRUE((std::is_empty<Classes>::value && ...));
    EXPECT_FALSE((std::is_polymorphic<Classes>::value || ...));
}

TEST(Placeholders, HoldNothing)
{
    expectEmptyClasses<KDRVector3d, KDRMatrix3, KDRMatrix4, KDRQuaternion, KDRPoint3D, KDRPlane3D,
                       KDRContour3D, KDRPointCloud, KDRTriangleMesh, KDR3DLineSet, KDRShape3D,
                       KDRRangeImage, KDRContour3DArray, KDRPlane3DArray, KDRPoint3DArray,
                       KDRPointCloudArray, KDRRangeImageArray, KDRVector3dArray, KDRPlane3DPrivate,
                       KDRPlane3DArrayPrivate>();
}

} // namespace
