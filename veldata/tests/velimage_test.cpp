#include <climits>
#include <cstring>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <veldata/velimage.h>

namespace {

static_assert(std::is_nothrow_default_constructible<VelImage>::value, "empty images are free");
static_assert(std::is_nothrow_copy_constructible<VelImage>::value, "sharing cannot fail");
static_assert(std::is_nothrow_move_constructible<VelImage>::value, "arrays move images");
static_assert(sizeof(VelImage) == sizeof(void*), "an image is one pointer");

using Pixels = std::vector<unsigned char>;

Pixels pixelsOf(VelImage const& image)
{
    return Pixels(image.ImageData(), image.ImageData() + image.Step() * image.Height());
}

void expectEmpty(VelImage const& image)
{
    EXPECT_EQ(image.Width(), 0);
    EXPECT_EQ(image.Height(), 0);
    EXPECT_EQ(image.Step(), 0);
    EXPECT_EQ(image.Channels(), 0);
    EXPECT_EQ(image.BitDepth(), 0);
    EXPECT_EQ(image.ImageData(), nullptr);
}

struct Geometry
{
    int width;
    int height;
    int channels;
    int step;
    VelImageType type;
};

/// What no image can be: each differs from a good 4 x 3 image of 3 x 16 bits in one point.
std::vector<Geometry> const& badGeometries()
{
    static std::vector<Geometry> const geometries = {
        {0, 3, 3, 0, VEL_16U},
        {-4, 3, 3, 0, VEL_16U},
        {INT_MIN, 3, 3, 0, VEL_16U},
        {4, 0, 3, 0, VEL_16U},
        {4, -3, 3, 0, VEL_16U},
        {4, INT_MIN, 3, 0, VEL_16U},
        {4, 3, 0, 0, VEL_16U},
        {4, 3, -1, 0, VEL_16U},
        {4, 3, 5, 0, VEL_16U},
        {4, 3, INT_MAX, 0, VEL_16U},
        {4, 3, 3, 23, VEL_16U},
        {4, 3, 3, 1, VEL_16U},
        {4, 3, 3, -24, VEL_16U},
        {4, 3, 3, INT_MIN, VEL_16U},
        {4, 3, 3, 0, 7},
        {4, 3, 3, 0, -1},
        {4, 3, 3, 0, INT_MAX},
        {INT_MAX, INT_MAX, 3, 0, VEL_16U},
        {65536, 65536, 1, 0, VEL_8U},
        {(1 << 30) + 1, 1, 1, 0, VEL_8U},
        {1, (1 << 30) + 1, 1, 0, VEL_8U},
        {1 << 28, 1, 4, 0, VEL_64F},
    };
    return geometries;
}

TEST(VelImage, DefaultIsEmpty) { expectEmpty(VelImage()); }

TEST(VelImage, CreateImageCopiesThePixels)
{
    unsigned char data[] = {1, 2, 3, 4, 5, 6};
    VelImage image;
    EXPECT_EQ(image.CreateImage(data, 3, 2, 1, 3, VEL_8U), 1);
    data[0] = 99;
    EXPECT_EQ(image.Width(), 3);
    EXPECT_EQ(image.Height(), 2);
    EXPECT_EQ(image.Channels(), 1);
    EXPECT_EQ(image.BitDepth(), 0);
    EXPECT_EQ(image.Step(), 3);
    EXPECT_EQ(pixelsOf(image), Pixels({1, 2, 3, 4, 5, 6}));
}

TEST(VelImage, ConstructorIsCreateImage)
{
    unsigned char data[] = {1, 2, 3, 4, 5, 6};
    VelImage const image(data, 1, 2, 3, 0, VEL_8U);
    EXPECT_EQ(image.Channels(), 3);
    EXPECT_EQ(pixelsOf(image), Pixels({1, 2, 3, 4, 5, 6}));
}

TEST(VelImage, StepZeroMeansTightlyPacked)
{
    unsigned char data[] = {1, 2, 3, 4};
    VelImage const image(data, 2, 2, 1, 0, VEL_8U);
    EXPECT_EQ(pixelsOf(image), Pixels({1, 2, 3, 4}));
}

/// The array ends with the last row's pixels: reading its padding would be found by the sanitizer.
TEST(VelImage, PaddingBetweenRowsIsLeftOutAndNotReadAfterTheLastRow)
{
    unsigned char data[] = {1, 2, 99, 99, 99, 3, 4, 99, 99, 99, 5, 6};
    VelImage const image(data, 1, 3, 2, 5, VEL_8U);
    EXPECT_EQ(image.Step(), 2);
    EXPECT_EQ(pixelsOf(image), Pixels({1, 2, 3, 4, 5, 6}));
}

TEST(VelImage, NullDataGivesZeroedPixels)
{
    VelImage const image(nullptr, 5, 4, 3, 0, VEL_64F);
    EXPECT_EQ(pixelsOf(image), Pixels(5 * 4 * 3 * 8, 0));
}

TEST(VelImage, EveryTypeHasItsSize)
{
    int const sizes[] = {1, 1, 2, 2, 4, 4, 8};
    for (int type = VEL_8U; type <= VEL_64F; ++type) {
        for (int channels = 1; channels <= 4; ++channels) {
            VelImage const image(nullptr, 5, 2, channels, 0, type);
            EXPECT_EQ(image.BitDepth(), type);
            EXPECT_EQ(image.Channels(), channels);
            EXPECT_EQ(image.Step(), 5 * channels * sizes[type]);
        }
    }
}

TEST(VelImage, BadGeometryIsRefusedAndChangesNothing)
{
    unsigned char data[256] = {};
    unsigned char const old[] = {1, 2, 3, 4};
    for (std::size_t i = 0; i < badGeometries().size(); ++i) {
        SCOPED_TRACE(i);
        Geometry const& bad = badGeometries()[i];
        for (unsigned char* source : {static_cast<unsigned char*>(nullptr), data}) {
            VelImage image(const_cast<unsigned char*>(old), 2, 2, 1, 0, VEL_8U);
            unsigned char* const pixels = image.ImageData();
            EXPECT_EQ(
                image.CreateImage(source, bad.width, bad.height, bad.channels, bad.step, bad.type),
                0);
            EXPECT_EQ(image.ImageData(), pixels);
            EXPECT_EQ(pixelsOf(image), Pixels({1, 2, 3, 4}));
            expectEmpty(VelImage(source, bad.width, bad.height, bad.channels, bad.step, bad.type));
        }
    }
}

TEST(VelImage, AnExactStepIsEnough)
{
    unsigned char data[4 * 3 * 3 * 2] = {};
    EXPECT_EQ(VelImage().CreateImage(data, 4, 3, 3, 24, VEL_16U), 1);
}

TEST(VelImage, CopiesShareThePixels)
{
    VelImage image(nullptr, 2, 1, 1, 0, VEL_8U);
    VelImage const copy(image);
    VelImage assigned;
    assigned = image;
    EXPECT_EQ(copy.ImageData(), image.ImageData());
    EXPECT_EQ(assigned.ImageData(), image.ImageData());
    image.ImageData()[1] = 7;
    EXPECT_EQ(pixelsOf(copy), Pixels({0, 7}));
    EXPECT_EQ(pixelsOf(assigned), Pixels({0, 7}));
}

TEST(VelImage, DeepCopySharesNothing)
{
    unsigned char data[] = {1, 2, 3, 4};
    VelImage image(data, 1, 1, 2, 0, VEL_16S);
    VelImage const copy = image.DeepCopy();
    EXPECT_NE(copy.ImageData(), image.ImageData());
    EXPECT_EQ(copy.BitDepth(), VEL_16S);
    EXPECT_EQ(copy.Channels(), 2);
    image.ImageData()[0] = 9;
    EXPECT_EQ(pixelsOf(copy), Pixels({1, 2, 3, 4}));
    expectEmpty(VelImage().DeepCopy());
}

TEST(VelImage, CreatingAnewLeavesEarlierCopiesTheirPixels)
{
    unsigned char first[] = {1, 2};
    unsigned char second[] = {3};
    VelImage image(first, 2, 1, 1, 0, VEL_8U);
    VelImage const copy(image);
    EXPECT_EQ(image.CreateImage(second, 1, 1, 1, 0, VEL_8U), 1);
    EXPECT_EQ(pixelsOf(copy), Pixels({1, 2}));
    EXPECT_EQ(pixelsOf(image), Pixels({3}));
}

TEST(VelImage, CanBeCreatedFromItsOwnPixels)
{
    unsigned char data[] = {1, 2, 3, 4, 5, 6};
    VelImage image(data, 3, 2, 1, 0, VEL_8U);
    EXPECT_EQ(image.CreateImage(image.ImageData() + 1, 2, 2, 1, 3, VEL_8U), 1);
    EXPECT_EQ(pixelsOf(image), Pixels({2, 3, 5, 6}));
}

TEST(VelImage, PixelsOutliveTheImageTheyWereSharedFrom)
{
    unsigned char data[] = {1, 2};
    VelImage copy;
    {
        VelImage const image(data, 2, 1, 1, 0, VEL_8U);
        copy = image;
    }
    EXPECT_EQ(pixelsOf(copy), Pixels({1, 2}));
}

TEST(VelImage, MovingLeavesTheSourceEmpty)
{
    unsigned char data[] = {1, 2};
    VelImage source(data, 2, 1, 1, 0, VEL_8U);
    VelImage target(std::move(source));
    expectEmpty(source);
    source = std::move(target);
    expectEmpty(target);
    EXPECT_EQ(pixelsOf(source), Pixels({1, 2}));
}

TEST(VelImage, AssignmentToItselfChangesNothing)
{
    unsigned char data[] = {1, 2};
    VelImage image(data, 2, 1, 1, 0, VEL_8U);
    VelImage& sameImage = image;
    image = sameImage;
    EXPECT_EQ(pixelsOf(image), Pixels({1, 2}));
    image = std::move(sameImage);
    EXPECT_EQ(pixelsOf(image), Pixels({1, 2}));
}

/// A count that is not atomic loses steps here: the pixels are freed early or never, which the
/// sanitizers report.
TEST(VelImage, ImagesThatShareMayBeCopiedInTwoThreads)
{
    unsigned char data[] = {1, 2};
    VelImage image(data, 2, 1, 1, 0, VEL_8U);
    auto const shareOften = [](VelImage const source) {
        VelImage target;
        for (int i = 0; i < 20000; ++i) {
            target = source;
            VelImage const copy(target);
            target = VelImage();
        }
    };
    std::thread one(shareOften, image);
    std::thread other(shareOften, image);
    one.join();
    other.join();
    EXPECT_EQ(pixelsOf(image), Pixels({1, 2}));
}

} // namespace
