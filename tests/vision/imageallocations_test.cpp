#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrimage.h>

#include "../support/failing.h"

#include <gtest/gtest.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

// What images do when there is not enough memory for anything but pixels.

namespace {

KDRImage onePixel(unsigned char value) { return {&value, 1, 1, 1, 0, KDRImage::DataTypeUInt8}; }

TEST(ImageMemory, AHandleThatCannotBeMadeLeavesNothingBehind)
{
    KDRImage image = onePixel(7);
    unsigned char pixel = 9;
    EXPECT_GE(failAtEveryAllocation([] { KDRImage const made; }), 1);
    EXPECT_GE(failAtEveryAllocation([&] { KDRImage const copy(image); }), 1);
    EXPECT_GE(failAtEveryAllocation([&] { image.clone().width(); }), 1);
    EXPECT_GE(failAtEveryAllocation(
                  [&] { KDRImage const made(&pixel, 1, 1, 1, 0, KDRImage::DataTypeUInt8); }),
              1);
    EXPECT_EQ(*image.dataPtr(), 7);
}

TEST(ImageMemory, APathThatCannotBeConvertedThrowsAndChangesNothing)
{
    QTemporaryDir const directory;
    ASSERT_TRUE(directory.isValid());
    QString const written = directory.filePath("written.png");
    KDRString const path(QFile::encodeName(written).constData());
    KDRString const other(QFile::encodeName(directory.filePath("other.png")).constData());
    ASSERT_NE(onePixel(9).save(other), 0);
    KDRImage image = onePixel(7);
    EXPECT_GE(
        failAtEveryAllocation([&] { image.read(other); }, [&] { EXPECT_EQ(*image.dataPtr(), 7); }),
        1);
    EXPECT_GE(failAtEveryAllocation([&] { image.save(path); },
                                    [&] { EXPECT_FALSE(QFile::exists(written)); }),
              1);
}

} // namespace
