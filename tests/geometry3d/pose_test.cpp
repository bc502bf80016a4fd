#include <kdrdata/geometry3d/kdrpose2d.h>
#include <kdrdata/geometry3d/kdrpose3d.h>

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <type_traits>

#include "../support/fixedanswers.h"

namespace {

using FixedAnswers::as;

std::array<double, 3> fieldsOf(KDRPose2D const& pose) { return {pose.x(), pose.y(), pose.Rz()}; }

std::array<double, 6> fieldsOf(KDRPose3D const& pose)
{
    return {pose.x(), pose.y(), pose.z(), pose.Rx(), pose.Ry(), pose.Rz()};
}

template <class Pose>
struct Fields;

template <>
struct Fields<KDRPose2D>
{
    using P = KDRPose2D;
    static constexpr std::array<void (P::*)(double), 3> setters{&P::setX, &P::setY, &P::setRz};
};

template <>
struct Fields<KDRPose3D>
{
    using P = KDRPose3D;
    static constexpr std::array<void (P::*)(double), 6> setters{&P::setX,  &P::setY,  &P::setZ,
                                                                &P::setRx, &P::setRy, &P::setRz};
};

template <class P>
class Pose : public testing::Test
{
protected:
    static constexpr auto setters = Fields<P>::setters;
    using Numbers = decltype(fieldsOf(P()));

    // Every field another number.
    static P filled()
    {
        P pose;
        for (std::size_t i = 0; i < setters.size(); ++i)
            (pose.*setters[i])(numbers()[i]);
        return pose;
    }

    static Numbers numbers()
    {
        Numbers all{};
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = 1.5 + static_cast<double>(i);
        return all;
    }
};

using Poses = testing::Types<KDRPose2D, KDRPose3D>;
TYPED_TEST_SUITE(Pose, Poses, );

TYPED_TEST(Pose, StartsWithZeroInEveryField)
{
    EXPECT_EQ(fieldsOf(TypeParam()), typename TestFixture::Numbers{});
}

TYPED_TEST(Pose, SetterStoresItsFieldAlone)
{
    for (std::size_t i = 0; i < this->setters.size(); ++i) {
        SCOPED_TRACE(i);
        TypeParam pose;
        (pose.*this->setters[i])(-2.25);
        typename TestFixture::Numbers expected{};
        expected[i] = -2.25;
        EXPECT_EQ(fieldsOf(pose), expected);
    }
}

TYPED_TEST(Pose, NumbersAreCarriedUnchanged)
{
    double const infinity = std::numeric_limits<double>::infinity();
    for (double const number : {-0.5, 725.0, 1e300, 5e-324, infinity, -infinity}) {
        TypeParam pose;
        (pose.*this->setters.back())(number);
        EXPECT_EQ(pose.Rz(), number);
    }
}

TYPED_TEST(Pose, CopyAndAssignmentCarryEveryField)
{
    TypeParam const pose = this->filled();
    TypeParam const copy(pose);
    TypeParam assigned;
    EXPECT_EQ(&(assigned = pose), &assigned);
    EXPECT_EQ(fieldsOf(pose), this->numbers());
    EXPECT_EQ(fieldsOf(copy), this->numbers());
    EXPECT_EQ(fieldsOf(assigned), this->numbers());
}

TYPED_TEST(Pose, CopiesDoNotFollowTheOriginal)
{
    TypeParam pose = this->filled();
    TypeParam const copy(pose);
    pose.setX(-9.0);
    EXPECT_EQ(fieldsOf(copy), this->numbers());
}

TYPED_TEST(Pose, AssignmentToItselfChangesNothing)
{
    TypeParam pose = this->filled();
    TypeParam const& alias = pose;
    pose = alias;
    EXPECT_EQ(fieldsOf(pose), this->numbers());
}

TYPED_TEST(Pose, HoldsItsNumbersAndNothingElse)
{
    EXPECT_EQ(sizeof(TypeParam), this->setters.size() * sizeof(double));
    EXPECT_FALSE(std::is_polymorphic<TypeParam>::value);
}

TEST(Pose3D, KeepsARotationAndCopiesIt)
{
    KDRPose3D pose;
    pose.setRy(1.5);
    EXPECT_EQ(pose.Ry(), 1.5);
    EXPECT_EQ(fieldsOf(KDRPose3D(pose)), (std::array<double, 6>{0.0, 0.0, 0.0, 0.0, 1.5, 0.0}));
}

TEST(Pose3D, IsReadThroughConstantOperations)
{
    using P = KDRPose3D;
    constexpr double (P::*readers[])() const = {&P::x, &P::y, &P::z, &P::Rx, &P::Ry, &P::Rz};
    P const pose;
    for (auto const reader : readers)
        EXPECT_EQ((pose.*reader)(), 0.0);
}

} // namespace
