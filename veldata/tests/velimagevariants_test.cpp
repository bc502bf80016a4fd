#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include "console.h"
#include "imagefiles.h"
#include "rawpictures.h"

namespace {

/// Reads @p bytes from a file; the image is empty where that fails.
VelImage readBytes(Bytes const& bytes)
{
    TemporaryDirectory const directory;
    writeFile(directory.path("image"), bytes);
    VelImage image;
    image.ReadImage(directory.path("image").c_str());
    return image;
}

// --- PNG
// ------------------------------------------------------------------------------------------

TEST(VelImageVariants, APngThatIsDecodedWithAWarningIsRefusedInSilence)
{
    std::pair<char const*, RawPng> cases[6];
    cases[0] = {"pixels too many", {}};
    cases[0].second.surplusBytes = 5;
    cases[1] = {"transparency too short", {}};
    cases[1].second.behindHeader = {chunkOf("tRNS", {1})};
    cases[2] = {"palette in a grey picture", {}};
    cases[2].second.behindHeader = {chunkOf("PLTE", {1, 2, 3})};
    cases[3] = {"palette of a broken length", {}};
    cases[3].second.colourType = 2;
    cases[3].second.behindHeader = {chunkOf("PLTE", {1, 2})};
    cases[4] = {"two headers", {}};
    cases[4].second.behindHeader = {chunkOf("IHDR", {0, 0, 0, 8, 0, 0, 0, 8, 8, 0, 0, 0, 0})};
    cases[5] = {"two transparencies", {}};
    cases[5].second.behindHeader = {chunkOf("tRNS", {0, 1}), chunkOf("tRNS", {0, 1})};
    Console console;
    for (auto const& [name, png] : cases)
        EXPECT_EQ(readBytes(png.bytes()).ImageData(), nullptr) << name;
    EXPECT_EQ(console.caught(), "");
    EXPECT_EQ(readBytes(RawPng().bytes()).Width(), 8);
}

TEST(VelImageVariants, TheSideInformationOfAPngDoesNotMatter)
{
    RawPng png;
    png.behindHeader = {chunkOf("gAMA", {0, 0}), chunkOf("cHRM", {1}),
                        chunkOf("sBIT", {99}),   chunkOf("tEXt", Bytes(300, 'x')),
                        chunkOf("bKGD", {1}),    chunkOf("iCCP", {'a', 0, 0, 1}),
                        chunkOf("pHYs", {})};
    png.behindPixels = {chunkOf("zTXt", {'a', 0, 0, 1}), chunkOf("tIME", {0})};
    Console console;
    EXPECT_EQ(readBytes(png.bytes()).Width(), 8);
    EXPECT_EQ(console.caught(), "");
}

/// The reader's window takes 64 KiB of the file at a time.
TEST(VelImageVariants, TheSideInformationOfAPngHasAnyLength)
{
    Console console;
    cv::Mat const plain = decoded(RawPng().bytes());
    for (std::size_t size : {0U, 1U, 65000U, 65536U, 100000U, 200000U}) {
        RawPng png;
        png.behindHeader = {chunkOf("tEXt", Bytes(size, 'x'))};
        EXPECT_TRUE(same(viewOf(readBytes(png.bytes())), plain)) << size;
    }
    EXPECT_EQ(console.caught(), "");
}

// --- JPEG
// -----------------------------------------------------------------------------------------

TEST(VelImageVariants, HandMadeJpegsAreReadInAllTheirForms)
{
    for (int components : {1, 3}) {
        for (bool isProgressive : {false, true}) {
            for (bool isInterleaved : {false, true}) {
                Bytes const bytes =
                    RawJpeg{50, 30, components, isProgressive, isInterleaved}.bytes();
                VelImage const image = readBytes(bytes);
                EXPECT_EQ(image.Channels(), components);
                EXPECT_TRUE(same(viewOf(image), decoded(bytes)));
            }
        }
    }
}

// --- TIFF
// -----------------------------------------------------------------------------------------

/// A grey TIFF file of 8 x 8 different pixels.
Bytes tiffOf(RawTiff const& tiff)
{
    Bytes bytes = tiff.header();
    for (unsigned i = 0; i < tiff.pixelBytes(); ++i)
        bytes.push_back(static_cast<unsigned char>(i * 3));
    return bytes;
}

using Changes = decltype(RawTiff::changes);

TEST(VelImageVariants, WhiteIsZeroIsTurnedRound)
{
    Changes const whiteIsZero = {{262, {3, 0}}};
    VelImage const image = readBytes(tiffOf({8, 8, 8, whiteIsZero}));
    ASSERT_EQ(image.Channels(), 1);
    ASSERT_EQ(image.BitDepth(), VEL_8U);
    for (int i = 0; i < 64; ++i)
        EXPECT_EQ(image.ImageData()[i], 255 - i * 3);
}

TEST(VelImageVariants, AnOrientationOfAnotherFieldTypeIsRefusedWhereItTurnsThePicture)
{
    constexpr unsigned byteType = 1, shortType = 3, longType = 4;
    for (unsigned type : {byteType, shortType, longType}) {
        for (std::uint32_t orientation : {1u, 3u, 6u}) {
            SCOPED_TRACE(testing::Message() << "type " << type << " orientation " << orientation);
            Changes const turned = {{274, {type, orientation}}};
            VelImage const image = readBytes(tiffOf({8, 8, 8, turned}));
            if (type != shortType && orientation != 1) {
                EXPECT_EQ(image.ImageData(), nullptr);
                continue;
            }
            ASSERT_EQ(image.Width(), 8);
            for (int i = 0; i < 64; ++i)
                EXPECT_EQ(image.ImageData()[i], i * 3);
        }
    }
}

/// libtiff reports these and goes on.
TEST(VelImageVariants, ATiffFieldOfAnImpossibleValueRefusesTheFileInSilence)
{
    constexpr unsigned fillOrder = 266, thresholding = 263, planes = 284, resolutionUnit = 296,
                       predictor = 317;
    Console console;
    for (auto const& [tag, value] : std::vector<std::pair<unsigned, std::uint32_t>>{
             {fillOrder, 5}, {planes, 3}, {resolutionUnit, 9}}) {
        Changes const impossible = {{tag, {3, value}}};
        EXPECT_EQ(readBytes(tiffOf({8, 8, 8, impossible})).ImageData(), nullptr) << tag;
    }
    for (auto const& [tag, value] : std::vector<std::pair<unsigned, std::uint32_t>>{
             {fillOrder, 1}, {planes, 1}, {resolutionUnit, 2}, {thresholding, 7}, {predictor, 1}}) {
        Changes const possible = {{tag, {3, value}}};
        EXPECT_EQ(readBytes(tiffOf({8, 8, 8, possible})).Width(), 8) << tag;
    }
    EXPECT_EQ(console.caught(), "");
}

/// More rows of indexes than are looked up at a time.
TEST(VelImageVariants, ALargeBitmapWithAPaletteIsReadToItsLastRow)
{
    cv::Mat indexes(500, 300, CV_8UC1);
    cv::randu(indexes, 0, 256);
    Bytes bytes = encoded(".bmp", indexes);
    constexpr std::size_t paletteAt = 54;
    ASSERT_GT(bytes.size(), paletteAt + 4 * 256 + indexes.total() - 1);
    for (std::size_t i = 0; i < 256; ++i)
        bytes[paletteAt + 4 * i] = static_cast<unsigned char>(255 - i);
    cv::Mat colours;
    cv::Mat const inverted = 255 - indexes;
    cv::merge(std::vector<cv::Mat>{inverted, indexes, indexes}, colours);
    EXPECT_TRUE(same(viewOf(readBytes(bytes)), colours));
}

/// More rows with bytes behind them than one read brings.
TEST(VelImageVariants, BitmapsOfManyRowsAreReadToTheLastOne)
{
    for (int rows : {255, 256, 257, 300, 512, 600}) {
        cv::Mat colours(rows, 13, CV_8UC3);
        cv::randu(colours, 0, 256);
        EXPECT_TRUE(same(viewOf(readBytes(encoded(".bmp", colours))), colours)) << rows;
    }
}

TEST(VelImageVariants, ColoursThatABitmapWithoutAPaletteAnnouncesDoNotMatter)
{
    cv::Mat const colours = picture(CV_8UC3);
    Bytes bytes = encoded(".bmp", colours);
    constexpr std::size_t countAt = 46;
    for (int const count : {1, 255}) {
        bytes[countAt] = bytes[countAt + 1] = static_cast<unsigned char>(count);
        EXPECT_TRUE(same(viewOf(readBytes(bytes)), colours)) << count;
    }
}

TEST(VelImageVariants, MasksInABitmapCountWhereItsHeaderHasAndNamesThem)
{
    RawBitmap const bitmap{8, 8, 32, 3};
    Bytes bytes = bitmap.header();
    for (std::uint32_t const mask : {0x00FF0000U, 0x0000FF00U, 0x000000FFU, 0xFF000000U})
        appendLittle(bytes, mask, 4);
    bytes.resize(bytes.size() + bitmap.pixelBytes(), 5);
    constexpr std::size_t pixelsAt = 10, sizeAt = 14, compressionAt = 30;
    bytes[pixelsAt] = 54 + 16;
    Console console;
    EXPECT_EQ(readBytes(bytes).ImageData(), nullptr);
    bytes[sizeAt] = 56;
    EXPECT_EQ(readBytes(bytes).Channels(), 4);
    for (int const compression : {1, 2, 4, 5, 6}) {
        bytes[compressionAt] = static_cast<unsigned char>(compression);
        EXPECT_EQ(readBytes(bytes).ImageData(), nullptr) << compression;
    }
    EXPECT_EQ(console.caught(), "");
}

} // namespace
