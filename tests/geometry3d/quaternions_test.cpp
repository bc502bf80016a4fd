#include <kdrdata/geometry3d/kdrdualquaternion.h>
#include <kdrdata/geometry3d/kdrmatrix3.h>
#include <kdrdata/geometry3d/kdrmatrix4.h>
#include <kdrdata/geometry3d/kdrquaternion.h>
#include <kdrdata/geometry3d/kdrvector3d.h>

#include <gtest/gtest.h>

#include <type_traits>

#include "../support/fixedanswers.h"

namespace {

using namespace FixedAnswers;
using D = KDRDualQuaternion;
using M3 = KDRMatrix3;
using M4 = KDRMatrix4;
using Q = KDRQuaternion;
using V = KDRVector3d;

TEST(Quaternion, AnswersConstants)
{
    V axis(0.0, 0.0, 1.0);
    Q none;
    Q some(1.5, axis);
    Q copy(some);
    for (Q* const quaternion : {&none, &some, &copy}) {
        Answers<Q> answers(*quaternion);
        answers.row("operator=", as<Q&(Q const&)>(&Q::operator=), itself);
        answers.row("gen axis angle", as<void(V&, double)>(&Q::genQuaternion), nothing);
        answers.row("gen vectors", as<void(V&, V&)>(&Q::genQuaternion), nothing);
        answers.row("gen matrix", as<void(M3 const&)>(&Q::genQuaternion), nothing);
        answers.row("getAxisAngle", as<void(V*, float*)>(&Q::getAxisAngle), nothing);
        answers.row("transformDirection", as<void(V&, V*)>(&Q::transformDirection), nothing);
        answers.row("getTransMatrix", as<void(M3*)>(&Q::getTransMatrix), nothing);
        answers.row("formatQuaterion", as<void()>(&Q::formatQuaterion), nothing);
        answers.row("equals", as<bool(Q const&, float)>(&Q::equals), false);
        answers.row("isValid", as<bool()>(&Q::isValid), false);
        answers.row("norm", as<double() const>(&Q::norm), 0.0);
        answers.row("dot", as<double(Q&)>(&Q::dot), 0.0);
        answers.row("conjugate", as<Q()>(&Q::conjugate), aDefault);
        answers.row("inverse", as<Q()>(&Q::inverse), aDefault);
        answers.row("normalized", as<Q()>(&Q::normalized), aDefault);
        answers.row("operator+", as<Q(Q&)>(&Q::operator+), aDefault);
        answers.row("operator-", as<Q(Q&)>(&Q::operator-), aDefault);
        answers.row("operator* quaternion", as<Q(Q&)>(&Q::operator*), aDefault);
        answers.row("operator/ quaternion", as<Q(Q&)>(&Q::operator/), aDefault);
        answers.row("operator* number", as<Q(double)>(&Q::operator*), aDefault);
        answers.row("operator/ number", as<Q(double)>(&Q::operator/), aDefault);
    }
}

TEST(DualQuaternion, AnswersConstants)
{
    D none;
    D some((Q()), Q());
    D copy(some);
    for (D* const dual : {&none, &some, &copy}) {
        Answers<D> answers(*dual);
        answers.row("operator=", as<D&(D const&)>(&D::operator=), itself);
        answers.row("gen screw", as<void(V&, double, V&, double)>(&D::genDualQuaternion), nothing);
        answers.row("gen parts", as<void(Q&, V&)>(&D::genDualQuaternion), nothing);
        answers.row("gen matrix", as<void(M4 const&)>(&D::genDualQuaternion), nothing);
        answers.row("getTransformMatrix", as<void(M4*)>(&D::getTransformMatrix), nothing);
        answers.row("getRotateTrans", as<void(Q*, V*)>(&D::getRotateTrans), nothing);
        answers.row("getScrew", as<void(V*, float*, V*, float*)>(&D::getScrew), nothing);
        answers.row("transformPoint", as<void(V&, V*)>(&D::transformPoint), nothing);
        answers.row("slerp", as<void(D&, double, D*)>(&D::slerp), nothing);
        answers.row("lerp", as<void(D&, double, D*)>(&D::lerp), nothing);
        answers.row("isValid", as<bool()>(&D::isValid), false);
        answers.row("norm", as<double() const>(&D::norm), 0.0);
        answers.row("dot", as<double(D&)>(&D::dot), 0.0);
        answers.row("conjugate", as<D()>(&D::conjugate), aDefault);
        answers.row("normalized", as<D()>(&D::normalized), aDefault);
        answers.row("operator+", as<D(D&)>(&D::operator+), aDefault);
        answers.row("operator-", as<D(D&)>(&D::operator-), aDefault);
        answers.row("operator* dual", as<D(D&)>(&D::operator*), aDefault);
        answers.row("operator* number", as<D(double)>(&D::operator*), aDefault);
        answers.row("operator/ number", as<D(double)>(&D::operator/), aDefault);
    }
}

TEST(DualQuaternion, OneFieldIsNullInEveryObject)
{
    D const none;
    D const some((Q()), Q());
    D const copy(some);
    EXPECT_TRUE(isDefault(none));
    EXPECT_TRUE(isDefault(some));
    EXPECT_TRUE(isDefault(copy));
    EXPECT_EQ(sizeof(D), sizeof(void*));
    static_assert(std::is_copy_constructible<D>::value, "");
    static_assert(std::is_copy_assignable<D>::value, "");
}

TEST(Quaternion, ConstantsAnswerOnlyTheirNorm)
{
    Q const quaternion;
    D const dual;
    EXPECT_EQ(quaternion.norm(), 0.0);
    EXPECT_EQ(dual.norm(), 0.0);
}

} // namespace
