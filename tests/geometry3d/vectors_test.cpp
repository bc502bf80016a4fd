#include <kdrdata/geometry3d/kdrmatrix3.h>
#include <kdrdata/geometry3d/kdrmatrix4.h>
#include <kdrdata/geometry3d/kdrvector3d.h>

#include <gtest/gtest.h>

#include "../support/fixedanswers.h"

namespace {

using namespace FixedAnswers;
using V = KDRVector3d;
using M3 = KDRMatrix3;
using M4 = KDRMatrix4;

TEST(Vector3d, AnswersConstants)
{
    V none;
    V some(3.0, 4.0, 12.0);
    V copy(some);
    for (V* const vector : {&none, &some, &copy}) {
        Answers<V> answers(*vector);
        answers.row("operator=", as<V&(V const&)>(&V::operator=), itself);
        answers.row("operator+", as<V(V const&) const>(&V::operator+), aDefault);
        answers.row("operator-", as<V(V const&) const>(&V::operator-), aDefault);
        answers.row("operator*", as<V(double) const>(&V::operator*), aDefault);
        answers.row("operator/", as<V(double) const>(&V::operator/), aDefault);
        answers.row("Minimum", as<V(V const&) const>(&V::Minimum), aDefault);
        answers.row("Maximum", as<V(V const&) const>(&V::Maximum), aDefault);
        answers.row("Abs", as<V() const>(&V::Abs), aDefault);
        answers.row("Cross", as<V(V const&) const>(&V::Cross), aDefault);
        answers.row("Normalized", as<V() const>(&V::Normalized), aDefault);
        answers.row("operator==", as<bool(V const&) const>(&V::operator==), false);
        answers.row("Equals", as<bool(V const&, double) const>(&V::Equals), false);
        answers.row("IsNormalized", as<bool() const>(&V::IsNormalized), false);
        answers.row("IsValid", as<bool() const>(&V::IsValid), false);
        answers.row("Norm", as<double() const>(&V::Norm), 0.0);
        answers.row("Dot", as<double(V const&) const>(&V::Dot), 0.0);
        answers.row("d1Value", as<double()>(&V::d1Value), 0.0);
        answers.row("d2Value", as<double()>(&V::d2Value), 0.0);
        answers.row("d3Value", as<double()>(&V::d3Value), 0.0);
        answers.row("InValidate", as<void()>(&V::InValidate), nothing);
    }
}

TEST(Vector3d, IsNotEqualToItself)
{
    V const vector(1.0, 2.0, 3.0);
    EXPECT_FALSE(vector == vector);
    EXPECT_FALSE(vector.Equals(vector, 1e9));
}

TEST(Matrix3, AnswersConstants)
{
    M3 none;
    M3 some(1, 2, 3, 4, 5, 6, 7, 8, 10);
    M3 copy(some);
    for (M3* const matrix : {&none, &some, &copy}) {
        Answers<M3> answers(*matrix);
        answers.row("operator=", as<M3&(M3 const&)>(&M3::operator=), itself);
        answers.row("norm", as<double() const>(&M3::norm), -1.0);
        answers.row("determinant", as<double() const>(&M3::determinant), -1.0);
        answers.row("value", as<double(int, int) const>(&M3::value), -1.0);
        answers.row("transposed", as<M3() const>(&M3::transposed), aDefault);
        answers.row("inverse", as<M3() const>(&M3::inverse), aDefault);
        answers.row("operator* matrix", as<M3(M3 const&)>(&M3::operator*), aDefault);
        answers.row("operator+ matrix", as<M3(M3 const&)>(&M3::operator+), aDefault);
        answers.row("operator- matrix", as<M3(M3 const&)>(&M3::operator-), aDefault);
        answers.row("operator* number", as<M3(double)>(&M3::operator*), aDefault);
        answers.row("operator/ number", as<M3(double)>(&M3::operator/), aDefault);
        answers.row("operator+ number", as<M3(double)>(&M3::operator+), aDefault);
        answers.row("operator- number", as<M3(double)>(&M3::operator-), aDefault);
        answers.row("operator* vector", as<V(V const&)>(&M3::operator*), aDefault);
        answers.row("operator==", as<bool(M3 const&)>(&M3::operator==), false);
        answers.row("replace", as<void(int, int, double)>(&M3::replace), nothing);
        answers.row("data", as<double*() const>(&M3::data), null);
    }
}

TEST(Matrix4, AnswersConstants)
{
    M4 none;
    M4 some(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 17);
    M4 copy(some);
    for (M4* const matrix : {&none, &some, &copy}) {
        Answers<M4> answers(*matrix);
        answers.row("operator=", as<M4&(M4 const&)>(&M4::operator=), itself);
        answers.row("norm", as<double() const>(&M4::norm), -1.0);
        answers.row("determinant", as<double() const>(&M4::determinant), -1.0);
        answers.row("value", as<double(int, int) const>(&M4::value), 0.0);
        answers.row("transposed", as<M4() const>(&M4::transposed), aDefault);
        answers.row("inverse", as<M4() const>(&M4::inverse), aDefault);
        answers.row("operator* matrix", as<M4(M4 const&)>(&M4::operator*), aDefault);
        answers.row("operator+ matrix", as<M4(M4 const&)>(&M4::operator+), aDefault);
        answers.row("operator- matrix", as<M4(M4 const&)>(&M4::operator-), aDefault);
        answers.row("operator* number", as<M4(double)>(&M4::operator*), aDefault);
        answers.row("operator/ number", as<M4(double)>(&M4::operator/), aDefault);
        answers.row("operator+ number", as<M4(double)>(&M4::operator+), aDefault);
        answers.row("operator- number", as<M4(double)>(&M4::operator-), aDefault);
        answers.row("operator==", as<bool(M4 const&)>(&M4::operator==), false);
        answers.row("replace", as<void(int, int, double)>(&M4::replace), nothing);
        answers.row("data", as<double*() const>(&M4::data), null);
    }
}

TEST(Matrices, ElementIsMinusOneInTheSmallAndZeroInTheLargeMatrix)
{
    M3 small;
    M4 large;
    small.replace(0, 0, 5.0);
    large.replace(0, 0, 5.0);
    for (int const position : {-1, 0, 3, 100}) {
        EXPECT_EQ(small.value(position, position), -1.0) << position;
        EXPECT_EQ(large.value(position, position), 0.0) << position;
    }
}

TEST(Matrices, OperatorsAreChosenByTheirOperand)
{
    M3 matrix;
    static_assert(std::is_same<decltype(matrix * matrix), M3>::value, "");
    static_assert(std::is_same<decltype(matrix * V()), V>::value, "");
    static_assert(std::is_same<decltype(matrix * 2), M3>::value, "");
    static_assert(std::is_same<decltype(matrix + 2.0F), M3>::value, "");
    EXPECT_FALSE(matrix * 2 == matrix * matrix);
}

} // namespace
