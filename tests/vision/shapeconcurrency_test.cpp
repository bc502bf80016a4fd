// Handles that share a record, in several threads. Run under Helgrind too.

#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrshape.h>
#include <kdrdata/vision/kdrshapeprivate.h>

#include <gtest/gtest.h>

#include <vector>

#include "../support/inthreads.h"
#include "../support/shapeaccess.h"

namespace {

constexpr int rounds = 500;

KDRShape circle(double radius)
{
    KDRPoint centre(1.0, 2.0);
    KDRShape shape;
    shape.fromCircle(centre, radius);
    return shape;
}

double radiusOf(KDRShape const& shape)
{
    KDRPoint centre;
    double radius = -1.0;
    EXPECT_TRUE(shape.toCircle(&centre, &radius));
    return radius;
}

TEST(ShapeConcurrency, HandlesOfOneRecordAreCopiedReadAndDestroyedInSeveralThreads)
{
    KDRShape const source = circle(5.0);
    inThreads([&source](int) {
        for (int round = 0; round < rounds; ++round) {
            KDRShape const copy(source);
            KDRShape assigned;
            assigned = copy;
            ASSERT_EQ(radiusOf(assigned), 5.0);
        }
    });
    EXPECT_EQ(ShapeAccess::record(source).refCount(), 1);
}

TEST(ShapeConcurrency, HandlesOfOneRecordAreGeneratedInSeveralThreads)
{
    KDRShape const source = circle(5.0);
    inThreads([&source](int number) {
        KDRPoint centre(1.0, 2.0);
        for (int round = 0; round < rounds; ++round) {
            KDRShape copy(source);
            copy.fromCircle(centre, number);
            ASSERT_EQ(radiusOf(copy), number);
        }
    });
    EXPECT_EQ(radiusOf(source), 5.0);
    EXPECT_EQ(ShapeAccess::record(source).refCount(), 1);
}

TEST(ShapeConcurrency, TheLastHandleMayGoInAnyThread)
{
    for (int round = 0; round < 50; ++round) {
        std::vector<KDRShape> handles(threadCount, circle(5.0));
        inThreads(
            [&handles](int number) { handles[static_cast<std::size_t>(number)] = KDRShape(); });
    }
}

} // namespace
