#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrpointprivate.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

struct Accessor
{
    char const* name;
    double (KDRPoint::*get)() const;
    void (KDRPoint::*set)(double);
    double (KDRPointPrivate::*getPrivate)() const;
    void (KDRPointPrivate::*setPrivate)(double);
    double initial;
};

Accessor const accessors[] = {
    {"x", &KDRPoint::x, &KDRPoint::setX, &KDRPointPrivate::getXVal, &KDRPointPrivate::setXVal, 0.0},
    {"y", &KDRPoint::y, &KDRPoint::setY, &KDRPointPrivate::getYVal, &KDRPointPrivate::setYVal, 0.0},
    {"XMax", &KDRPoint::getXMaxVal, &KDRPoint::setXMaxVal, &KDRPointPrivate::getXMaxVal,
     &KDRPointPrivate::setXMaxVal, 999999.0},
    {"XMin", &KDRPoint::getXMinVal, &KDRPoint::setXMinVal, &KDRPointPrivate::getXMinVal,
     &KDRPointPrivate::setXMinVal, -999999.0},
    {"XStep", &KDRPoint::getXStepVal, &KDRPoint::setXStepVal, &KDRPointPrivate::getXStepVal,
     &KDRPointPrivate::setXStepVal, 1.0},
    {"YMax", &KDRPoint::getYMaxVal, &KDRPoint::setYMaxVal, &KDRPointPrivate::getYMaxVal,
     &KDRPointPrivate::setYMaxVal, 999999.0},
    {"YMin", &KDRPoint::getYMinVal, &KDRPoint::setYMinVal, &KDRPointPrivate::getYMinVal,
     &KDRPointPrivate::setYMinVal, -999999.0},
    {"YStep", &KDRPoint::getYStepVal, &KDRPoint::setYStepVal, &KDRPointPrivate::getYStepVal,
     &KDRPointPrivate::setYStepVal, 1.0},
};

TEST(Point, IsOnePointerWide) { EXPECT_EQ(sizeof(KDRPoint), sizeof(void*)); }

TEST(Point, StartsAtTheOriginWithTheDefaultRanges)
{
    KDRPoint const point;
    KDRPointPrivate const record;
    for (Accessor const& accessor : accessors) {
        EXPECT_EQ((point.*accessor.get)(), accessor.initial) << accessor.name;
        EXPECT_EQ((record.*accessor.getPrivate)(), accessor.initial) << accessor.name;
    }
}

TEST(Point, TakesCoordinatesAndKeepsTheDefaultRanges)
{
    KDRPoint const point(3.5, -4.5);
    EXPECT_EQ(point.x(), 3.5);
    EXPECT_EQ(point.y(), -4.5);
    EXPECT_EQ(point.getXMaxVal(), 999999.0);
    EXPECT_EQ(point.getYStepVal(), 1.0);
}

TEST(Point, EachSetterChangesItsFieldAlone)
{
    for (Accessor const& changed : accessors) {
        KDRPoint point;
        KDRPointPrivate record;
        (point.*changed.set)(42.25);
        (record.*changed.setPrivate)(42.25);
        for (Accessor const& accessor : accessors) {
            SCOPED_TRACE(std::string(changed.name) + " set, read " + accessor.name);
            double const expected = &accessor == &changed ? 42.25 : accessor.initial;
            EXPECT_EQ((point.*accessor.get)(), expected);
            EXPECT_EQ((record.*accessor.getPrivate)(), expected);
        }
    }
}

TEST(Point, CopyAndAssignmentCarryEveryFieldAndAreIndependent)
{
    KDRPoint original;
    KDRPointPrivate originalRecord;
    double value = 10.0;
    for (Accessor const& accessor : accessors) {
        (original.*accessor.set)(value);
        (originalRecord.*accessor.setPrivate)(value);
        value += 1.0;
    }
    KDRPoint copy(original);
    KDRPoint assigned;
    KDRPoint& result = (assigned = original);
    EXPECT_EQ(&result, &assigned);
    KDRPointPrivate copyRecord(originalRecord);
    KDRPointPrivate assignedRecord;
    KDRPointPrivate& recordResult = (assignedRecord = originalRecord);
    EXPECT_EQ(&recordResult, &assignedRecord);

    value = 10.0;
    for (Accessor const& accessor : accessors) {
        SCOPED_TRACE(accessor.name);
        EXPECT_EQ((copy.*accessor.get)(), value);
        EXPECT_EQ((assigned.*accessor.get)(), value);
        EXPECT_EQ((copyRecord.*accessor.getPrivate)(), value);
        EXPECT_EQ((assignedRecord.*accessor.getPrivate)(), value);
        (copy.*accessor.set)(-1.0);
        (assigned.*accessor.set)(-1.0);
        (copyRecord.*accessor.setPrivate)(-1.0);
        (assignedRecord.*accessor.setPrivate)(-1.0);
        EXPECT_EQ((original.*accessor.get)(), value);
        EXPECT_EQ((originalRecord.*accessor.getPrivate)(), value);
        value += 1.0;
    }
}

TEST(Point, AssignmentToItselfChangesNothing)
{
    KDRPoint point(1.0, 2.0);
    point.setXMaxVal(3.0);
    KDRPoint const& alias = point;
    point = alias;
    EXPECT_EQ(point.x(), 1.0);
    EXPECT_EQ(point.y(), 2.0);
    EXPECT_EQ(point.getXMaxVal(), 3.0);
}

TEST(Point, RangesNeverBoundTheCoordinates)
{
    KDRPoint point;
    point.setXMaxVal(-10.0);
    point.setXMinVal(10.0);
    point.setXStepVal(-1.0);
    point.setX(1e12);
    EXPECT_EQ(point.x(), 1e12);
    point.setX(std::numeric_limits<double>::infinity());
    EXPECT_EQ(point.x(), std::numeric_limits<double>::infinity());
}

} // namespace
