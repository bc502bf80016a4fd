#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrimage.h>

#include <gtest/gtest.h>

#include <QtCore/qfile.h>
#include <QtCore/qtemporarydir.h>
#include <QtCore/qtextcodec.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>

#include "../support/localcodec.h"
#include "../support/withoutobject.h"

namespace {

std::array<unsigned char, 6> const pixels{10, 20, 30, 40, 50, 60};

KDRImage greyImage()
{
    auto copy = pixels;
    return {copy.data(), 3, 2, 1, 0, KDRImage::DataTypeUInt8};
}

std::array<unsigned char, 6> pixelsOf(KDRImage const& image)
{
    std::array<unsigned char, 6> result{};
    for (int row = 0; row < 2; ++row)
        std::memcpy(&result[static_cast<std::size_t>(row) * 3],
                    image.dataPtr() + static_cast<std::ptrdiff_t>(row) * image.step(), 3);
    return result;
}

class ImageFiles : public testing::Test
{
protected:
    std::string path(char const* name) const
    {
        return QFile::encodeName(m_directory.filePath(QString::fromUtf8(name))).toStdString();
    }

private:
    QTemporaryDir m_directory;
};

TEST(Image, IsOnePointerWide) { EXPECT_EQ(sizeof(KDRImage), sizeof(void*)); }

TEST(Image, StartsEmpty)
{
    KDRImage const image;
    EXPECT_EQ(image.width(), 0);
    EXPECT_EQ(image.height(), 0);
    EXPECT_EQ(image.dataPtr(), nullptr);
}

TEST(Image, IsMadeFromACopyOfPixelsInMemory)
{
    auto source = pixels;
    KDRImage const image(source.data(), 3, 2, 1, 3, KDRImage::DataTypeUInt8);
    source.fill(0);
    EXPECT_EQ(image.width(), 3);
    EXPECT_EQ(image.height(), 2);
    EXPECT_EQ(image.channel(), 1);
    EXPECT_EQ(image.depth(), 0);
    EXPECT_EQ(image.dataType(), KDRImage::DataTypeUInt8);
    EXPECT_EQ(pixelsOf(image), pixels);
}

TEST(Image, PassesTheElementTypeThrough)
{
    for (int code = 0; code <= 6; ++code) {
        KDRImage image;
        EXPECT_NE(image.GenImageExt(nullptr, 4, 3, 2, 0, static_cast<KDRImage::DataType>(code)), 0);
        EXPECT_EQ(image.depth(), code);
        EXPECT_EQ(image.dataType(), code);
        EXPECT_EQ(image.channel(), 2);
    }
}

TEST(Image, FailedGenerationKeepsTheOldPixels)
{
    KDRImage image = greyImage();
    EXPECT_EQ(image.GenImageExt(nullptr, 0, 5, 1, 0, KDRImage::DataTypeUInt8), 0);
    EXPECT_EQ(image.GenImageExt(nullptr, 1 << 30, 1 << 30, 4, 0, KDRImage::DataTypeUInt8), 0);
    EXPECT_EQ(pixelsOf(image), pixels);
}

TEST(Image, CopiesSharePixels)
{
    KDRImage const original = greyImage();
    KDRImage const copy(original);
    KDRImage assigned;
    KDRImage& result = (assigned = original);
    EXPECT_EQ(&result, &assigned);
    EXPECT_EQ(copy.dataPtr(), original.dataPtr());
    EXPECT_EQ(assigned.dataPtr(), original.dataPtr());
}

TEST(Image, AnImageMadeAnewLeavesItsCopiesTheirPixels)
{
    KDRImage original = greyImage();
    KDRImage const copy(original);
    EXPECT_NE(original.GenImageExt(nullptr, 1, 1, 1, 0, KDRImage::DataTypeUInt8), 0);
    EXPECT_EQ(pixelsOf(copy), pixels);
    EXPECT_EQ(original.width(), 1);
}

TEST(Image, HandlesWithoutAnImageAreSkippedByAssignmentAndHoldBytes)
{
    WithoutObject<KDRImage> bare;
    KDRImage& empty = bare.handle;
    KDRImage image = greyImage();
    EXPECT_EQ(&(image = empty), &image);
    EXPECT_EQ(pixelsOf(image), pixels);
    EXPECT_EQ(&(empty = image), &empty);
    EXPECT_EQ(KDRInternal::pointer(empty), nullptr);
    EXPECT_EQ(empty.dataType(), KDRImage::DataTypeUInt8);
}

TEST(Image, CloneHasPixelsOfItsOwn)
{
    KDRImage original = greyImage();
    KDRImage const copy = original.clone();
    EXPECT_EQ(pixelsOf(copy), pixels);
    copy.dataPtr()[0] = 99;
    EXPECT_EQ(pixelsOf(original), pixels);
}

TEST_F(ImageFiles, SaveAndReadBackTheSamePixels)
{
    KDRImage image = greyImage();
    for (char const* const name : {"grey.png", "grey.bmp", "grey.tif", "grey.pgm"}) {
        KDRString const file(path(name).c_str());
        EXPECT_NE(image.save(file), 0) << name;
        EXPECT_NE(image.save(file, 9), 0) << name;
        KDRImage back;
        EXPECT_NE(back.read(file), 0) << name;
        EXPECT_EQ(back.width(), 3) << name;
        EXPECT_EQ(pixelsOf(back), pixels) << name;
    }
}

TEST_F(ImageFiles, NamesAreEncodedWithTheLocalTextCodec)
{
    KDRImage image = greyImage();
    QByteArray const encoded = QByteArray(path("part-").c_str()) + "\xEF.png";
    LocalCodecGuard const guard;
    KDRString::setLocalTextCodec(KDRString::EncodingIBM866);
    ASSERT_NE(QTextCodec::codecForName("IBM 866"), nullptr);
    KDRString name; // U+044F in its name, which is the byte 0xEF there
    name.fromLocal8Bit(encoded.constData());
    ASSERT_NE(image.save(name), 0);
    std::FILE* const file = std::fopen(encoded.constData(), "rb");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    KDRImage back;
    EXPECT_NE(back.read(name), 0);
    // Under another codec Qt could not name the file when it removes the directory.
    EXPECT_EQ(std::remove(encoded.constData()), 0);
}

TEST_F(ImageFiles, ReadOfAMissingFileFailsAndKeepsThePixels)
{
    KDRImage image = greyImage();
    EXPECT_EQ(image.read(KDRString(path("missing.png").c_str())), 0);
    EXPECT_EQ(image.read(KDRString()), 0);
    EXPECT_EQ(pixelsOf(image), pixels);
}

TEST_F(ImageFiles, ReadOfAFloatingPointFileAnswersFailureAndKeepsWhatItRead)
{
    KDRImage floating;
    ASSERT_NE(floating.GenImageExt(nullptr, 5, 4, 1, 0, KDRImage::DataTypeFloat32), 0);
    KDRString const file(path("floating.tif").c_str());
    ASSERT_NE(floating.save(file), 0);
    KDRImage image = greyImage();
    EXPECT_EQ(image.read(file), 0);
    EXPECT_EQ(image.depth(), 5);
    EXPECT_EQ(image.width(), 5);
}

TEST_F(ImageFiles, SaveFailsWithoutAFormatAndWithoutPixels)
{
    KDRImage image = greyImage();
    EXPECT_EQ(image.save(KDRString(path("grey").c_str())), 0);
    EXPECT_EQ(image.save(KDRString(path("no/such/directory.png").c_str())), 0);
    EXPECT_EQ(KDRImage().save(KDRString(path("empty.png").c_str())), 0);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path("empty.png"))));
}

} // namespace
