// The image handle over a core image that only takes notes: what the library asks of the core
// library, and what it makes of answers that the bundled one never gives.

#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrimage.h>

#include <gtest/gtest.h>

#include <veldata/velimage.h>

#include "../../kdrdata/internal/kdrinternal_p.h"

std::vector<std::string> VelImage::calls;
int VelImage::answer = 1;
int VelImage::depthAfterReading = 0;
char VelImage::pixel[1];

namespace {

using Calls = std::vector<std::string>;

class ImageSeam : public testing::Test
{
protected:
    void SetUp() override
    {
        VelImage::calls.clear();
        VelImage::answer = 1;
        VelImage::depthAfterReading = 0;
    }
};

TEST_F(ImageSeam, GenerationPassesItsArgumentsInOrderAndTheAnswerBack)
{
    unsigned char data = 0;
    KDRImage image;
    VelImage::answer = 7;
    EXPECT_EQ(image.GenImageExt(&data, 1, 2, 3, 4, KDRImage::DataTypeFloat32), 7);
    VelImage::answer = 0;
    EXPECT_EQ(image.GenImageExt(nullptr, 5, 6, 7, 8, static_cast<KDRImage::DataType>(42)), 0);
    KDRImage const made(&data, 1, 2, 3, 4, KDRImage::DataTypeInt16);
    EXPECT_EQ(VelImage::calls, (Calls{"CreateImage data 1 2 3 4 5", "CreateImage null 5 6 7 8 42",
                                      "CreateImage data 1 2 3 4 3"}));
}

TEST_F(ImageSeam, GeometryIsTheCoreImagesOwn)
{
    KDRImage const image;
    EXPECT_EQ(image.width(), 101);
    EXPECT_EQ(image.height(), 102);
    EXPECT_EQ(image.step(), 103);
    EXPECT_EQ(image.channel(), 104);
    EXPECT_EQ(image.dataPtr(), reinterpret_cast<unsigned char*>(VelImage::pixel));
}

TEST_F(ImageSeam, DepthCodesOfSixAndMoreAreReportedAsTypeSix)
{
    KDRImage image;
    int& depth = KDRInternal::wrapped(image).depth;
    for (int code = 0; code <= 6; ++code) {
        depth = code;
        EXPECT_EQ(image.dataType(), code);
        EXPECT_EQ(image.depth(), code);
    }
    for (int const code : {7, 9, 1000, -1}) {
        depth = code;
        EXPECT_EQ(image.dataType(), 6) << code;
        EXPECT_EQ(image.depth(), code);
    }
}

TEST_F(ImageSeam, ReadAnswersFailureForFloatingPointDepthsWhateverTheCoreSaid)
{
    KDRImage image;
    VelImage::answer = 3;
    for (int const depth : {0, 1, 2, 3, 4, 7, 9}) {
        VelImage::depthAfterReading = depth;
        EXPECT_EQ(image.read(KDRString("a")), 3) << depth;
    }
    for (int const depth : {5, 6}) {
        VelImage::depthAfterReading = depth;
        EXPECT_EQ(image.read(KDRString("a")), 0) << depth;
        EXPECT_EQ(image.depth(), depth);
    }
    VelImage::answer = 0;
    VelImage::depthAfterReading = 0;
    EXPECT_EQ(image.read(KDRString("a")), 0);
}

TEST_F(ImageSeam, SavePassesSixUnlessToldOtherwise)
{
    KDRImage image;
    VelImage::answer = 5;
    EXPECT_EQ(image.save(KDRString("a.png")), 5);
    EXPECT_EQ(image.save(KDRString("b.png"), -3), 5);
    VelImage::answer = 0;
    EXPECT_EQ(image.save(KDRString("c.png"), 99), 0);
    EXPECT_EQ(VelImage::calls,
              (Calls{"SaveImage a.png 6", "SaveImage b.png -3", "SaveImage c.png 99"}));
}

TEST_F(ImageSeam, CopiesGoThroughTheCoreAssignmentAndClonesThroughTheDeepCopy)
{
    KDRImage image;
    KDRImage const copy(image);
    KDRImage assigned;
    assigned = image;
    EXPECT_EQ(VelImage::calls, (Calls{"operator=", "operator="}));
    VelImage::calls.clear();
    KDRImage const clone = image.clone();
    EXPECT_EQ(VelImage::calls, (Calls{"DeepCopy", "operator="}));
}

} // namespace
